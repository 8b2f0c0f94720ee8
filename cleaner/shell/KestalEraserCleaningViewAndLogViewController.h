#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

class QLabel;
class QTreeWidget;

// The Eraser's top area while it shreds and afterwards: one row per path of
// the run, running until the report and then shredded or not, and the log of
// the paths that stayed with the reason of each.
class KestalEraserCleaningViewAndLogViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalEraserCleaningViewAndLogViewController(QWidget *parent = nullptr);

    void changeViewStatus(viewStatus status);

    QTreeWidget *tableView() const { return m_table; }
    QLabel *titleLabel() const { return m_title; }

protected:
    void reloadTexts() override { changeViewStatus(m_status); }

private:
    viewStatus m_status = viewStatus::cleanning;
    QLabel *m_title;
    QTreeWidget *m_table;
};
