#include "cleaner/finders/FinderScans.h"

#include "cleaner/finders/DuplicateService.h"
#include "cleaner/finders/KestalDuplicateService.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"
#include "cleaner/finders/KestalSimilarService.h"
#include "cleaner/finders/SimilarService.h"

void FinderScans::registerAll()
{
    KestalService::registerModuleScan(DuplicateService::moduleIndex,
                                      &KestalDuplicateService::scanDupliate);
    KestalService::registerModuleScan(KestalLargeAndOldFileServices::moduleIndex,
                                      &KestalLargeAndOldFileServices::scanLargeAndOldFile);
    KestalService::registerModuleScan(SimilarService::moduleIndex,
                                      &KestalSimilarService::scanSimilar);
}
