#include "cleaner/clean/PrivacyClean.h"

#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/privacy/PrivacyService.h"

#include <QMutexLocker>

void PrivacyClean::run(const std::shared_ptr<KestalCleanProtocol> &cleanService)
{
    using Cleaner = std::pair<qint64, int> (*)(int);
    const Cleaner cleaners[] = {&PrivacyService::cleanChrome, &PrivacyService::cleanFirefox,
                                &PrivacyService::cleanSafari};
    qint64 size = 0;
    int number = 0;
    for (int ci = 0; ci < 3; ++ci) {
        const auto [cleanedSize, cleanedNumber] = cleaners[ci](ci);
        size += cleanedSize;
        number += cleanedNumber;
        if (cleanService)
            cleanService->done(true, ci, 999, cleanedNumber, cleanedSize);
    }
    {
        QMutexLocker lock(&KestalModuleCleanService::lock());
        KestalModuleCleanService::cleanStatusDict()[PrivacyService::moduleIndex] =
            cleanStatus::cleandone;
    }
    if (cleanService)
        cleanService->done(true, -1, 1, number, size);
}
