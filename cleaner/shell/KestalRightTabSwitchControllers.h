#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

#include <QHash>
#include <QStackedWidget>

class KestalCleaningViewAndLogViewController;
class KestalDetailViewController;
class KestalEraserCleaningViewAndLogViewController;
class KestalShredTopDetailViewController;
class KestalRightBottomViewController;
class KestalRightSplitController;
class KestalRightTopOverViewAndScanViewController;
class KestalRightTopShowMessageViewController;

using viewStatus = KestalSuperViewController::viewStatus;

// Holds the top children of every module, at the positions of
// `tabChildrenDict`, and shows one of them.
class KestalRightTopTabSwitchController : public QStackedWidget {
    Q_OBJECT
public:
    explicit KestalRightTopTabSwitchController(QWidget *parent = nullptr);

    KestalRightTopOverViewAndScanViewController *overViewAndScan(int moduleIndex) const;
    KestalRightTopShowMessageViewController *showMessage(int moduleIndex) const;
    KestalCleaningViewAndLogViewController *cleaningAndLog(int moduleIndex) const;
    KestalDetailViewController *detail(int moduleIndex) const;
    // The Eraser's own list and cleaning children, in place of the overview
    // and cleaning children of a module that scans.
    KestalShredTopDetailViewController *shredList() const { return m_shredList; }
    KestalEraserCleaningViewAndLogViewController *shredCleaning() const { return m_shredCleaning; }
    // Brings the child that shows `status` of `tab` to the front.
    void swap(const QString &tab, viewStatus status);
    // Sets the top child that shows `updateStatus` of the module to that state.
    void updateTopMessageViewStatus(viewStatus updateStatus, const QString &updateTab,
                                    int moduleIndex);

private:
    QHash<int, KestalRightTopOverViewAndScanViewController *> m_overViews;
    QHash<int, KestalRightTopShowMessageViewController *> m_messages;
    QHash<int, KestalCleaningViewAndLogViewController *> m_cleanings;
    QHash<int, KestalDetailViewController *> m_details;
    KestalShredTopDetailViewController *m_shredList = nullptr;
    KestalEraserCleaningViewAndLogViewController *m_shredCleaning = nullptr;
};

// Holds the bottom bar of every module, at the positions of
// `bottomTabChildrenDict`, and routes state changes to them.
class KestalRightBottomTabSwitchController : public QStackedWidget {
    Q_OBJECT
public:
    explicit KestalRightBottomTabSwitchController(KestalRightSplitController *split,
                                                  QWidget *parent = nullptr);

    KestalRightBottomViewController *bar(const QString &tab) const;
    KestalRightBottomViewController *barOfModule(int moduleIndex) const;
    void updateBootomStatus(viewStatus updateStatus, const QString &updateTab);
    void reScanAction(const QString &tab);
};
