#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

class QLabel;
class QStackedWidget;
class QTreeWidget;

// The top area of a module while it is cleaned and afterwards: one row per
// category that turns from running to a tick or a warning, and the log of
// the items that could not be removed, with the reason of each.
class KestalCleaningViewAndLogViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalCleaningViewAndLogViewController(int moduleIndex, QWidget *parent = nullptr);

    void changeViewStatus(viewStatus status);
    // Reads the module's results again; runs on each report of the clean.
    void updateCleanningView() { updateView(); }

    // Whether the last run left items behind (the log button's image); only
    // after the run's last report.
    static bool hasFailures(int moduleIndex);
    // A path as the log shows it: 36 characters or longer are cut in the middle.
    static QString cutPath(const QString &path);

    // Lists only the categories the run takes (the applications being
    // uninstalled, out of all that are installed); the others have no row.
    void setListsTakenOnly(bool on) { m_takenOnly = on; }

    QTreeWidget *cleanningTableView() const { return m_cleanning; }
    QTreeWidget *logTableView() const { return m_log; }
    QLabel *titleLabel() const { return m_title; }

protected:
    void reloadTexts() override { updateView(); }

private:
    // Sets every widget from the state and the module's results.
    void updateView();
    void fillCleanning();
    void fillLog();

    int m_moduleIndex;
    viewStatus m_status = viewStatus::cleanning;
    bool m_takenOnly = false;
    QLabel *m_title;
    QStackedWidget *m_pages;
    QTreeWidget *m_cleanning;
    QTreeWidget *m_log;
};
