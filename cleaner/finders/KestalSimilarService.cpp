#include "cleaner/finders/KestalSimilarService.h"

#include "cleaner/finders/SimilarService.h"

void KestalSimilarService::scanSimilar(Progress progress, ShowPercent showPercent,
                                       std::function<void()> done)
{
    start(SimilarService::moduleIndex, SimilarService::generation(), &SimilarService::scan,
          std::move(progress), std::move(showPercent), std::move(done));
}
