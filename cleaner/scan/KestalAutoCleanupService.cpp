#include "cleaner/scan/KestalAutoCleanupService.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"

#include <algorithm>

namespace {

struct AutoState {
    std::optional<QList<Category>> categories;
    bool categoriesTaken = false;
    QPointer<DispatchTimer> timer;
    // Per category number: the child's number of categories.
    QHash<int, int> childCategoryCount;
    int moduleDoneNum = 0;
};

AutoState &autoState()
{
    static AutoState state;
    return state;
}

struct Child {
    const char *title;
    int module;
};

constexpr Child kChildren[] = {
    {"System Junk", 1}, {"Photo Cache", 2}, {"Mail Trash", 3}, {"Trash Bin", 4}, {"iTunes Junk", 5},
};

} // namespace

int KestalAutoCleanupService::canCleanNum = 0;

std::optional<QList<Category>> &KestalAutoCleanupService::categories()
{
    AutoState &s = autoState();
    if (!s.categoriesTaken) {
        const QList<Module> &modules = AppModuleService::appModules();
        if (!modules.isEmpty())
            s.categories = modules[0].categories;
        s.categoriesTaken = true;
    }
    return s.categories;
}

QPointer<DispatchTimer> &KestalAutoCleanupService::timer()
{
    return autoState().timer;
}

int KestalAutoCleanupService::moduleDoneNum()
{
    return autoState().moduleDoneNum;
}

int KestalAutoCleanupService::childModuleIndex(const QString &title)
{
    for (const Child &child : kChildren) {
        if (title == QLatin1String(child.title))
            return child.module;
    }
    return -1;
}

bool KestalAutoCleanupService::ownsModule(int module)
{
    if (module == 0)
        return true;
    const QList<Category> cats = categories().value_or(QList<Category>());
    return std::any_of(cats.begin(), cats.end(),
                       [module](const Category &c) { return childModuleIndex(c.title) == module; });
}

void KestalAutoCleanupService::scanAutoCleanup(AutoProgress progress, AutoShowPercent showPercent,
                                               AutoDone done)
{
    if (scanStatus().value(0) == 1)
        return;
    scanStatus()[0] = 1;
    startTimer(0);
    AutoState &s = autoState();
    s.moduleDoneNum = 0;
    s.childCategoryCount.clear();
    const std::optional<QList<Category>> cats = categories();
    if (!cats || cats->isEmpty())
        return;
    for (int n = 0; n < cats->size(); ++n) {
        const int module = childModuleIndex((*cats)[n].title);
        if (module < 0 || module >= AppModuleService::appModules().size())
            continue; // an unknown title scans nothing
        s.childCategoryCount[n] = int(
            AppModuleService::appModules()[module].categories.value_or(QList<Category>()).size());
        // The children's callbacks fall silent as soon as the whole is stopped.
        scan(
            module,
            [progress, n](const QString &path, qint64 size) {
                if (!judgeStopScan(0) && progress)
                    progress(path, size, n);
            },
            [showPercent, n](float percent) {
                if (!judgeStopScan(0) && showPercent)
                    showPercent(n, percent);
            },
            [done, n](int ci) { scanDone(n, ci, done); });
    }
}

void KestalAutoCleanupService::scanDone(int n, int ci, const AutoDone &done)
{
    if (!done)
        return;
    const int status = scanStatus().value(0);
    if (status == 2 || status == -1) {
        done(-1, -1, true);
        return;
    }
    AutoState &s = autoState();
    if (ci + 1 != s.childCategoryCount.value(n, -1)) {
        done(n, ci, false);
        return;
    }
    // The whole is done when every category of module 0 has had its child finish.
    if (++s.moduleDoneNum == int(categories().value_or(QList<Category>()).size())) {
        scanStatus()[0] = -1;
        stopTimer(0);
    }
    done(n, ci, true);
}

void KestalAutoCleanupService::stopScanAutoCleanup()
{
    scanStatus()[0] = 2;
    for (const int module : scanStatus().keys()) {
        if (module != 0 && ownsModule(module) && scanStatus().value(module) == 1)
            scanStatus()[module] = 2;
    }
}

void KestalAutoCleanupService::reset()
{
    if (autoState().timer)
        autoState().timer->invalidate();
    autoState() = AutoState();
    canCleanNum = 0;
}
