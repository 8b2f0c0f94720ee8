#pragma once

#include "cleaner/shell/KestalRightBottomViewController.h"

class ElidedLabel;

// The bars of the two finders. Both scans are the finders' own; what
// differs from a junk module's bar is what happens around the clean.
class KestalFinderBottomViewControllers {
public:
    // The bar of a finder module, null for any other module.
    static KestalRightBottomViewController *
    create(int moduleIndex, KestalRightSplitController *split, QWidget *parent);
};

// Duplicates: the folder the scan walks is chosen on the bar before a scan;
// after a clean the groups are renumbered and resized from what is left.
class KestalDuplicateBottomViewController : public KestalRightBottomViewController {
    Q_OBJECT
public:
    explicit KestalDuplicateBottomViewController(KestalRightSplitController *split,
                                                 QWidget *parent = nullptr);

    void changeViewStatus(viewStatus status) override;
    void cleanDone(bool success, qint64 size, int number) override;
    // Asks for the folder to scan; true when one was chosen.
    bool updateScanPathAction();

    QPushButton *choosePathBtn() const { return m_choosePath; }
    ElidedLabel *scanPathTextField() const { return m_scanPath; }

protected:
    void reloadTexts() override;

private:
    QPushButton *m_choosePath = nullptr;
    ElidedLabel *m_scanPath = nullptr;
};

// Large and old files: a file listed in a size and an age category is one
// node; the clean plans it once, and afterwards the four categories are
// sorted again from the files that are still there.
class KestalLargeAndOldFileBottomViewController : public KestalRightBottomViewController {
    Q_OBJECT
public:
    explicit KestalLargeAndOldFileBottomViewController(KestalRightSplitController *split,
                                                       QWidget *parent = nullptr);

    void cleanDone(bool success, qint64 size, int number) override;

protected:
    void runClean(const std::shared_ptr<KestalCleanProtocol> &recorder) override;
};
