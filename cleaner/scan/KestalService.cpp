#include "cleaner/scan/KestalService.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/scan/JunkFileService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/ScanDispatch.h"

#include <memory>

namespace {

struct Tables {
    QHash<int, int> scanStatus;
    QHash<int, std::optional<QList<Category>>> scanCategory;
    QHash<int, float> scanningPercent;
    QHash<int, qint64> scanTotalSize;
    QHash<int, int> cleanDone;
    QHash<int, std::pair<qint64, int>> cleanTotalSizeAndNumber;
    QHash<int, QHash<int, CleanTriple>> cleanningCompletedStatus;
    QHash<int, QPointer<DispatchTimer>> scanTimer;
    // Bumped by every scan of a module: a loop left running by an earlier,
    // stopped scan is silenced instead of storing into the new one.
    QHash<int, quint64> generation;
};

std::unique_ptr<Tables> g_tables;
// Set once by the layers above, before any scan; kept across resets.
QHash<int, KestalService::ModuleScan> g_moduleScans;

Tables &tables()
{
    if (!g_tables) {
        g_tables = std::make_unique<Tables>();
        KestalService::initData();
        KestalService::initCategory();
        KestalService::initCleanningCompletedStatus();
    }
    return *g_tables;
}

bool hasOwnCategoriesFromScan(int moduleIndex)
{
    return moduleIndex == 6 || moduleIndex == 8 || moduleIndex == 9 || moduleIndex == 10;
}

} // namespace

int KestalService::timeInterval = 1;

namespace {

// Outlives reset(): registration happens once per process.
QHash<int, KestalService::ModuleScan> &ownScans()
{
    static QHash<int, KestalService::ModuleScan> entries;
    return entries;
}

} // namespace

void KestalService::registerModuleScan(int modelIndex, ModuleScan entry)
{
    ownScans().insert(modelIndex, std::move(entry));
}

bool KestalService::hasOwnScan(int modelIndex)
{
    return ownScans().contains(modelIndex);
}

QHash<int, int> &KestalService::scanStatus()
{
    return tables().scanStatus;
}
QHash<int, std::optional<QList<Category>>> &KestalService::scanCategory()
{
    return tables().scanCategory;
}
QHash<int, float> &KestalService::scanningPercent()
{
    return tables().scanningPercent;
}
QHash<int, qint64> &KestalService::scanTotalSize()
{
    return tables().scanTotalSize;
}
QHash<int, int> &KestalService::cleanDone()
{
    return tables().cleanDone;
}
QHash<int, std::pair<qint64, int>> &KestalService::cleanTotalSizeAndNumber()
{
    return tables().cleanTotalSizeAndNumber;
}
QHash<int, QHash<int, CleanTriple>> &KestalService::cleanningCompletedStatus()
{
    return tables().cleanningCompletedStatus;
}
QHash<int, QPointer<DispatchTimer>> &KestalService::scanTimer()
{
    return tables().scanTimer;
}

void KestalService::initData()
{
    const QList<Module> &modules = AppModuleService::appModules();
    for (int i = 0; i < modules.size(); ++i) {
        if (modules[i].isHeader())
            continue;
        g_tables->scanStatus.insert(i, 0);
        g_tables->scanningPercent.insert(i, 0);
        g_tables->scanTotalSize.insert(i, 0);
        g_tables->cleanDone.insert(i, 0);
        g_tables->cleanTotalSizeAndNumber.insert(i, {0, 0});
    }
}

void KestalService::initCategory()
{
    const QList<Module> &modules = AppModuleService::appModules();
    for (int i = 0; i < modules.size(); ++i) {
        if (!modules[i].isHeader())
            g_tables->scanCategory.insert(i, modules[i].categories);
    }
}

void KestalService::initCleanningCompletedStatus()
{
    const QList<Module> &modules = AppModuleService::appModules();
    for (int i = 0; i < modules.size(); ++i) {
        if (modules[i].isHeader())
            continue;
        QHash<int, CleanTriple> inner;
        if (!hasOwnCategoriesFromScan(i)) {
            const int count = int(modules[i].categories.value_or(QList<Category>()).size());
            for (int ci = 0; ci < count; ++ci)
                inner.insert(ci, CleanTriple{});
        }
        g_tables->cleanningCompletedStatus.insert(i, inner);
    }
}

void KestalService::reset()
{
    if (g_tables) {
        for (const auto &timer : std::as_const(g_tables->scanTimer)) {
            if (timer)
                timer->invalidate();
        }
    }
    g_tables.reset();
}

bool KestalService::isStopScan(int moduleIndex)
{
    const auto &status = scanStatus();
    return status.contains(moduleIndex) && status.value(moduleIndex) == 2;
}

bool KestalService::judgeStopScan(int modelIndex)
{
    const auto &status = scanStatus();
    if (!status.contains(modelIndex))
        return false;
    const int s = status.value(modelIndex);
    return s == 2 || s == -1;
}

int KestalService::stopScan(int module)
{
    if (scanStatus().value(0) == 1 && KestalAutoCleanupService::ownsModule(module)) {
        KestalAutoCleanupService::stopScanAutoCleanup();
        return 0;
    }
    scanStatus()[module] = 2;
    return module;
}

int KestalService::autoCleanEndIndex()
{
    return AppModuleService::rowOfTitle(QStringLiteral("Tools"));
}

void KestalService::startTimer(int modelIndex)
{
    stopTimer(modelIndex);
    scanTimer().insert(modelIndex, DispatchTimer::scheduled(timeInterval * 1000, true, modelIndex,
                                                            &KestalService::handleEvents));
}

void KestalService::stopTimer(int modelIndex)
{
    const QPointer<DispatchTimer> timer = scanTimer().take(modelIndex);
    if (timer)
        timer->invalidate();
}

void KestalService::handleEvents(DispatchTimer *timer)
{
    bool ok = false;
    int module = timer->userInfo().toInt(&ok);
    if (!ok)
        module = 0;
    if (scanStatus().value(module) != 2)
        return;
    // A stopped scan keeps what it stored so far.
    QList<Module> &modules = AppModuleService::appModules();
    if (module >= 0 && module < modules.size())
        modules[module].categories = scanCategory().value(module).value_or(QList<Category>());
    timer->invalidate();
    if (scanTimer().value(module) == timer)
        scanTimer().remove(module);
}

void KestalService::setModuleScan(int moduleIndex, ModuleScan scan)
{
    g_moduleScans.insert(moduleIndex, std::move(scan));
}

void KestalService::scanCategoryOfType(Category &c, const Progress &progress,
                                       const ShowPercent &showPercent)
{
    ScanDispatch::scan(c, progress, showPercent);
}

void KestalService::scan(int modelIndex, Progress progress, ShowPercent showPercent, Done done)
{
    if (const auto own = ownScans().constFind(modelIndex); own != ownScans().constEnd()) {
        (*own)(std::move(progress), std::move(showPercent), [modelIndex, done] {
            scanStatus()[modelIndex] = -1;
            if (done)
                done(-1);
        });
        return;
    }
    if (scanStatus().value(modelIndex) == 1)
        return; // already scanning
    scanStatus()[modelIndex] = 1;
    startTimer(modelIndex);
    const quint64 generation = ++tables().generation[modelIndex];
    const auto silenced = [modelIndex, generation] {
        return judgeStopScan(modelIndex) || tables().generation.value(modelIndex) != generation;
    };

    // The loop works from the categories as they stand now. While it runs,
    // only its own store steps change this array, and only at the places it
    // has passed, so this copy is what reading the array afresh would give,
    // without the scan thread ever touching main-thread state or waiting on
    // the main loop (which may already have quit).
    const QList<Category> categories = scanCategory().value(modelIndex).value_or(QList<Category>());
    if (categories.isEmpty())
        return; // no categories: the timer keeps running and done never comes

    if (const ModuleScan own = g_moduleScans.value(modelIndex)) {
        const int last = int(categories.size()) - 1;
        const Progress quietProgress = [silenced, progress](const QString &path, qint64 size) {
            if (!silenced() && progress)
                progress(path, size);
        };
        const ShowPercent quietPercent = [silenced, showPercent](float step) {
            if (!silenced() && showPercent)
                showPercent(step);
        };
        const auto finished = [modelIndex, generation, last, done] {
            if (tables().generation.value(modelIndex) != generation)
                return; // a later scan of the module owns the tables now
            scanCategory()[modelIndex] = AppModuleService::appModules()[modelIndex].categories;
            if (isStopScan(modelIndex))
                return; // stopped: the watchdog has published what there is
            scanStatus()[modelIndex] = -1;
            stopTimer(modelIndex);
            if (done)
                done(last);
        };
        Dispatch::globalAsync([own, quietProgress, quietPercent, finished] {
            own(quietProgress, quietPercent, finished);
        });
        return;
    }

    Dispatch::globalAsync([modelIndex, progress, showPercent, done, silenced, categories] {
        for (int ci = 0; ci < categories.size(); ++ci) {
            Category c = categories[ci];

            auto accumulated = std::make_shared<float>(0.0f);
            const Progress wrappedProgress = [silenced, progress](const QString &path,
                                                                  qint64 size) {
                if (!silenced() && progress)
                    progress(path, size);
            };
            const ShowPercent wrappedPercent = [silenced, showPercent, accumulated](float step) {
                if (silenced())
                    return;
                *accumulated += step;
                if (showPercent)
                    showPercent(*accumulated);
            };
            scanCategoryOfType(c, wrappedProgress, wrappedPercent);

            Dispatch::mainAsync([modelIndex, ci, c = std::move(c), done, silenced]() mutable {
                if (silenced())
                    return;
                auto &stored = scanCategory()[modelIndex];
                if (!stored || ci >= stored->size())
                    fatalStop(QStringLiteral("the category array of module %1 is shorter than %2")
                                  .arg(modelIndex)
                                  .arg(ci + 1));
                (*stored)[ci] = std::move(c);
                AppModuleService::appModules()[modelIndex].categories = stored;
                if (ci + 1 == stored->size()) {
                    scanStatus()[modelIndex] = -1;
                    stopTimer(modelIndex);
                }
                if (done)
                    done(ci);
            });
        }
    });
}
