#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

class KestalRightSplitController;
class KestalRightTopOverViewAndScanViewController;
class QLabel;
class QPushButton;

// A module's bottom bar: the buttons and the short status line of each
// state, and the module's scan, which goes on while the module is off screen.
class KestalRightBottomViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    KestalRightBottomViewController(int moduleIndex, KestalRightSplitController *split,
                                    QWidget *parent = nullptr);

    int moduleIndex() const { return m_moduleIndex; }
    QString tab() const { return m_tab; }
    viewStatus status() const { return m_status; }
    // Whether the module has a scan the bar can start yet.
    bool canScan() const { return m_cateCount > 0; }

    // Sets every widget of the bar from the state.
    void changeViewStatus(viewStatus status);

    void overViewScanAction();
    void rescanAction();

    void updateScanningPercent(float percent);
    void updateScanningProgress(const QString &path, qint64 size);
    void updateScanningDone(int doneNum, int cateCount);
    void updateReScanView(viewStatus toStatus);

    QPushButton *overViewScanBtn() const { return m_overViewScanBtn; }
    QPushButton *rescanBtn() const { return m_rescanBtn; }
    QLabel *statusTextField() const { return m_statusText; }

signals:
    // The module's row of the left list has something new to show.
    void moduleRowChanged(int moduleIndex);

protected:
    void reloadTexts() override { changeViewStatus(m_status); }

private:
    bool isOnScreen() const;
    void startModuleScan();
    void startAutoCleanupScan();
    // Resets the progress and names the category the scan is on.
    void showCategoryOnScan(int categoryIndex);
    KestalRightTopOverViewAndScanViewController *topChild() const;

    int m_moduleIndex;
    QString m_tab;
    int m_cateCount = 0;
    int m_doneCategories = 0;
    viewStatus m_status = viewStatus::overview;
    KestalRightSplitController *m_split;

    QLabel *m_statusText;
    QPushButton *m_overViewScanBtn;
    QPushButton *m_rescanBtn;
};
