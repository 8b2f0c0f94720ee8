#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"

#include <QHash>
#include <QPointer>
#include <functional>
#include <optional>
#include <utility>

class DispatchTimer;

// One category's clean result: status, item count and size.
struct CleanTriple {
    int status = 0;
    int number = 0;
    qint64 size = 0;
    bool operator==(const CleanTriple &) const = default;
};

// Runs the scan of a module whose categories are filled from their roots, and
// keeps the per-module scan and clean bookkeeping that screens read. Every
// table is keyed by module index and lives on the main thread; a scan's
// background task only reads `scanStatus` and `scanCategory`.
class KestalService : public Services {
public:
    using Done = std::function<void(int categoryIndex)>;

    static QHash<int, int> &scanStatus();
    static QHash<int, std::optional<QList<Category>>> &scanCategory();
    static QHash<int, float> &scanningPercent();
    static QHash<int, qint64> &scanTotalSize();
    static QHash<int, int> &cleanDone();
    static QHash<int, std::pair<qint64, int>> &cleanTotalSizeAndNumber();
    static QHash<int, QHash<int, CleanTriple>> &cleanningCompletedStatus();
    static QHash<int, QPointer<DispatchTimer>> &scanTimer();
    static int timeInterval;

    static void scan(int modelIndex, Progress progress, ShowPercent showPercent, Done done);

    // Modules whose scan is their own are registered by the layer that owns
    // them, so the driver reaches them without knowing them; scan() starts
    // them in place of the category loop. Both kinds store their categories
    // themselves and call finished on the main thread.
    using ModuleScan = std::function<void(Progress progress, ShowPercent showPercent,
                                          std::function<void()> finished)>;
    // An entry that runs the module's status and watchdog itself, as the
    // finders' services do (duplicates, large and old files); done hears -1.
    static void registerModuleScan(int modelIndex, ModuleScan entry);
    // A scan body for which the driver runs status, watchdog and stop (privacy);
    // it runs on the global queue and done hears the last category.
    static void setModuleScan(int moduleIndex, ModuleScan scan);
    // Whether an entry of registerModuleScan runs the module.
    static bool hasOwnScan(int modelIndex);
    static void handleEvents(DispatchTimer *timer);
    static bool isStopScan(int moduleIndex);
    static bool judgeStopScan(int modelIndex);
    // A module's stop action: while Auto Cleanup scans, it owns module 0 and
    // its children, and the whole of it stops; otherwise the module alone. Returns the module
    // that was stopped (0 for Auto Cleanup).
    static int stopScan(int module);
    // The index of the row titled "Tools", 0 when there is none.
    static int autoCleanEndIndex();

    // The start values of the tables, from the module table (heading rows skipped).
    static void initData();
    static void initCategory();
    static void initCleanningCompletedStatus();
    // Drops every table, so the next use starts afresh (tests, a new module table).
    static void reset();

    // Fills one category copy from its roots with the scanner its type names.
    static void scanCategoryOfType(Category &c, const Progress &progress,
                                   const ShowPercent &showPercent);

protected:
    static void startTimer(int modelIndex);
    static void stopTimer(int modelIndex);
};

// The services of modules with a scan of their own, or with none beyond the
// driver's; a screen calls `scan` on its own.
class KestalSystemJunkService : public KestalService {};
class KestalPhotoCacheService : public KestalService {};
class KestalMailTrashService : public KestalService {};
class KestalTrashBinService : public KestalService {};
class KestaliTunesJunkService : public KestalService {};
