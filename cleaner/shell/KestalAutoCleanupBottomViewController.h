#pragma once

#include "cleaner/core/Dispatch.h"
#include "cleaner/shell/KestalRightBottomViewController.h"

// Auto Cleanup's bar: one scan runs the five junk modules at once, and one
// Clean on the result page cleans them one after another, in row order.
class KestalAutoCleanupBottomViewController : public KestalRightBottomViewController {
    Q_OBJECT
public:
    KestalAutoCleanupBottomViewController(KestalRightSplitController *split,
                                          QWidget *parent = nullptr);

    // Stops every child and goes back to the overview.
    void scanningStopScanAction() override;
    void scanDoneNoEmptyCleanAction() override { scanDoneCleanAction(); }
    void scanDoneCleanAction();
    // The box of a child module on the result page: it ticks or unticks
    // only the child's categories that the module table selects by default.
    void updateCate(int modelIndex, int cb);
    // Ends the clean once every child that had something to clean is done.
    void checkDone();

    // The child modules, in the order of module 0's categories.
    static QList<int> childModules();

signals:
    // A child's clean has ended (main thread).
    void childCleaned(int moduleIndex);

protected:
    void startScan() override;
    bool hasReview() const override { return false; }

private:
    // The bar of the child module of row n that follows the scan, if any.
    KestalRightBottomViewController *childBar(int n) const;
    void updateOwnPercent();
    void childCleanEnded(int n, int child, int status, int number, qint64 size);

    SerialQueue m_serialQueue{QStringLiteral("autoCleanup")};
    int m_cleanedChildren = 0;
    // Taken at the scan's start: the child modules, and the bars of those
    // that follow it (null where a child was busy on its own).
    QList<int> m_children;
    QList<KestalRightBottomViewController *> m_followers;
};
