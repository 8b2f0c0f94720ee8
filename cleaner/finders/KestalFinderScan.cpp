#include "cleaner/finders/KestalFinderScan.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"

void KestalFinderScan::start(int module, Generation &generation, const Body &body,
                             Progress progress, ShowPercent showPercent, std::function<void()> done)
{
    if (scanStatus().value(module) == 1)
        return;
    scanStatus()[module] = 1;
    startTimer(module);
    // A scan stopped earlier may still be running: the new generation silences it.
    generation.next();
    const auto finished = [module, done] {
        stopTimer(module);
        if (done)
            done();
    };
    Dispatch::globalAsync(
        [body, progress, showPercent, finished] { body(progress, showPercent, finished); });
}

void KestalFinderScan::storeCategories(int module, const QList<Category> &categories)
{
    AppModuleService::appModules()[module].categories = categories;
    scanCategory()[module] = categories;
}
