#pragma once

#include "cleaner/finders/DuplicateService.h"
#include "cleaner/shell/KestalDetailViewController.h"

class KestalImagePreview;
class QComboBox;

// The reviews of the finders.
class KestalFinderDetailViewControllers {
public:
    // The review of a finder module, null for any other module.
    static KestalDetailViewController *create(int moduleIndex, QWidget *parent);
};

// Duplicates, reviewed by kind: a pop-up over the groups shows the videos,
// music, images, documents, others, or all of them. A kind without a group
// shows the empty category, whose one row has no tick box.
class KestalDuplicateTopDetailViewController : public KestalDetailViewController {
    Q_OBJECT
public:
    using Kind = DuplicateService::duplicateKind;

    explicit KestalDuplicateTopDetailViewController(QWidget *parent = nullptr);

    // On entering the review: every group, and the kinds counted for the pop-up.
    void reloadData() override;
    // Shows the groups of one kind (the pop-up's action).
    void popUpKindAction(Kind kind);

    QComboBox *popUpKindButton() const { return m_kinds; }

protected:
    void reloadTexts() override;

private:
    // The pop-up's entries, with the count of groups of each kind.
    void fillKinds();

    QComboBox *m_kinds;
};

// Large and old files: a file in a size and an age category is one node, so
// a tick in one category shows in the other, and both categories' boxes follow.
class KestalLargeAndOldFileTopDetailViewController : public KestalDetailViewController {
    Q_OBJECT
public:
    explicit KestalLargeAndOldFileTopDetailViewController(QWidget *parent = nullptr);

protected:
    void propagateSelection() override;
};

// Similar images: each group lists its key picture first, in bold, then the
// others by path; the picture chosen in the list is previewed below it.
class KestalSimilarTopDetailViewController : public KestalDetailViewController {
    Q_OBJECT
public:
    explicit KestalSimilarTopDetailViewController(QWidget *parent = nullptr);

    void reloadData() override;

    KestalImagePreview *previewImageView() const { return m_preview; }

private:
    // Previews the file of the right pane's current row.
    void previewCurrentFile();

    KestalImagePreview *m_preview;
};
