#pragma once

#include "cleaner/scan/KestalService.h"

#include <QPointer>

// Auto Cleanup, module 0: one scan that runs the five junk modules at once.
// Each of module 0's categories stands for one child module, chosen by its
// title; the children scan through the driver with their own status, and
// module 0's status stops them all. Main thread only.
class KestalAutoCleanupService : public KestalService {
public:
    using AutoProgress = std::function<void(const QString &path, qint64 size, int categoryNumber)>;
    using AutoShowPercent = std::function<void(int categoryNumber, float percent)>;
    using AutoDone = std::function<void(int categoryNumber, int categoryIndex, bool finished)>;

    // Module 0's categories, taken from the table at first use.
    static std::optional<QList<Category>> &categories();
    // The clean watchdog, and how many children have something to clean.
    static QPointer<DispatchTimer> &timer();
    static int canCleanNum;
    // How many children have finished their last category in this scan.
    static int moduleDoneNum();

    // The child module a module-0 category stands for; -1 for an unknown title.
    static int childModuleIndex(const QString &title);
    // Module 0 itself, or a child one of its categories names.
    static bool ownsModule(int module);
    // Starts every child's scan at once. Category number n is the position of
    // the child's category in module 0.
    static void scanAutoCleanup(AutoProgress progress, AutoShowPercent showPercent, AutoDone done);
    // One finished category ci of child n.
    static void scanDone(int n, int ci, const AutoDone &done);
    // Stops the whole: module 0 and every child still scanning.
    static void stopScanAutoCleanup();
    // Forgets the snapshot and the counters (tests, a new module table).
    static void reset();
};
