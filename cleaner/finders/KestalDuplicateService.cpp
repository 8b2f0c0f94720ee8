#include "cleaner/finders/KestalDuplicateService.h"

#include "cleaner/core/Dispatch.h"
#include "cleaner/finders/DuplicateService.h"

void KestalDuplicateService::scanDupliate(Progress progress, ShowPercent showPercent,
                                          std::function<void()> done)
{
    const int module = DuplicateService::moduleIndex;
    if (scanStatus().value(module) == 1)
        return;
    scanStatus()[module] = 1;
    startTimer(module);
    // A scan stopped earlier may still be running: the new generation silences it.
    DuplicateService::newGeneration();
    const auto finished = [module, done] {
        stopTimer(module);
        if (done)
            done();
    };
    Dispatch::globalAsync([progress, showPercent, finished] {
        DuplicateService::scan(progress, showPercent, finished);
    });
}
