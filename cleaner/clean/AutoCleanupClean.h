#pragma once

#include "cleaner/core/Dispatch.h"

#include <QList>
#include <functional>

// How Auto Cleanup cleans: the child module of each of its rows, in row
// order, one after another, and only a child whose row box is on and that
// has something selected. The bar and the command line both run it.
class AutoCleanupClean {
public:
    struct Child {
        int row;    // the position of the child's category in module 0
        int module; // the child module's index
    };
    // Runs on the main thread once a child's run has ended, with the totals
    // of its run.
    using ChildEnded = std::function<void(const Child &child, int status, int number, qint64 size)>;

    // The children a clean would run now (main thread).
    static QList<Child> cleanableChildren();
    // Resets each child's counters and queues its clean on queue; a child
    // starts only once the one before it has ended (main thread).
    static void cleanChildren(SerialQueue &queue, const QList<Child> &children,
                              const ChildEnded &ended);
};
