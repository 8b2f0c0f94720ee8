#pragma once

#include "cleaner/shell/KestalRightBottomViewController.h"

class ElidedLabel;

// The bars of the finders. Their scans are the finders' own; what
// differs from a junk module's bar is what happens around the clean.
class KestalFinderBottomViewControllers {
public:
    // The bar of a finder module, null for any other module.
    static KestalRightBottomViewController *
    create(int moduleIndex, KestalRightSplitController *split, QWidget *parent);
};

// A finder whose scan walks one folder: the folder is shown and chosen on
// the bar before a scan, or after one that found nothing. After a clean the
// finder's groups are brought up to date with what is left.
class KestalRootChoosingBottomViewController : public KestalRightBottomViewController {
    Q_OBJECT
public:
    // The finder's root, the untranslated texts of its button and dialog,
    // and what a clean leaves its groups to do.
    struct Chooser {
        QString &(*path)();
        const char *button;
        const char *dialogTitle;
        void (*updateCategory)();
    };

    KestalRootChoosingBottomViewController(int moduleIndex, Chooser chooser,
                                           KestalRightSplitController *split,
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
    Chooser m_chooser;
    QPushButton *m_choosePath = nullptr;
    ElidedLabel *m_scanPath = nullptr;
};

// Duplicates: after a clean the groups are renumbered and resized.
class KestalDuplicateBottomViewController : public KestalRootChoosingBottomViewController {
    Q_OBJECT
public:
    explicit KestalDuplicateBottomViewController(KestalRightSplitController *split,
                                                 QWidget *parent = nullptr);
};

// Similar images: the root is the photo library or any folder; after a clean
// the groups are renumbered, their sizes stay those the scan found.
class KestalSimilarBottomController : public KestalRootChoosingBottomViewController {
    Q_OBJECT
public:
    explicit KestalSimilarBottomController(KestalRightSplitController *split,
                                           QWidget *parent = nullptr);
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
