#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

class ElidedLabel;
class QLabel;
class QProgressBar;
class QVBoxLayout;

// The top area of a module in its overview and while it scans: the module's
// image, title and description, its feature lines, and during a scan the
// progress of the category being scanned and the path last seen.
class KestalRightTopOverViewAndScanViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalRightTopOverViewAndScanViewController(int moduleIndex,
                                                         QWidget *parent = nullptr);

    int moduleIndex() const { return m_moduleIndex; }
    viewStatus status() const { return m_status; }
    void changeViewStatus(viewStatus status);

    // The scanning updates: percent of the current category (0 to 100), the
    // text under the title, the path being walked.
    void updateProgress(float percent);
    void updateDescription(const QString &text);
    void updatePath(const QString &path);

    QLabel *titleLabel() const { return m_title; }
    QLabel *descriptionLabel() const { return m_description; }

protected:
    void reloadTexts() override { updateView(); }

private:
    // Sets every widget from the state.
    void updateView();

    int m_moduleIndex;
    viewStatus m_status = viewStatus::overview;
    float m_percent = 0;
    QString m_scanDescription;

    QLabel *m_image;
    QLabel *m_title;
    QLabel *m_description;
    QWidget *m_features;
    QList<QLabel *> m_featureTexts;
    QWidget *m_scanning;
    QProgressBar *m_progress;
    ElidedLabel *m_pathLabel;
};
