#include "cleaner/finders/KestalDuplicateService.h"

#include "cleaner/finders/DuplicateService.h"

void KestalDuplicateService::scanDupliate(Progress progress, ShowPercent showPercent,
                                          std::function<void()> done)
{
    start(DuplicateService::moduleIndex, DuplicateService::generation(), &DuplicateService::scan,
          std::move(progress), std::move(showPercent), std::move(done));
}
