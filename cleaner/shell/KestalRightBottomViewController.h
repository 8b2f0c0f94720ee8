#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

#include <memory>

class KestalCleanProtocol;
class KestalCleaningViewAndLogViewController;
class KestalRightSplitController;
class KestalRightTopOverViewAndScanViewController;
class QLabel;
class QPushButton;
class QTimer;

// A module's bottom bar: the buttons and the short status line of each
// state, the module's scan and its clean, which both go on while the module
// is off screen.
class KestalRightBottomViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    KestalRightBottomViewController(int moduleIndex, KestalRightSplitController *split,
                                    QWidget *parent = nullptr);

    int moduleIndex() const { return m_moduleIndex; }
    QString tab() const { return m_tab; }
    viewStatus status() const { return m_status; }
    // Whether the module has a scan the bar can start yet: categories to
    // fill, or a scan of its own.
    bool canScan() const;

    // Sets every widget of the bar from the state. Styles are not touched:
    // they change only with the language (applyStyles).
    virtual void changeViewStatus(viewStatus status);
    // How often the buttons' styles were applied: once at the start and once
    // per change of language, never per report of a scan.
    int styleApplications() const { return m_styleApplications; }

    void overViewScanAction();
    virtual void scanningStopScanAction();
    void rescanAction();
    void scanDoneNoEmptyReviewAction();
    virtual void scanDoneNoEmptyCleanAction();
    void detailViewCleanAction();
    void cleanningViewStopAction() {}
    void cleandoneViewShowLogAction();
    void showLogViewHideLogAction();

    // Asks whether the selection may go; true when the user confirmed.
    static bool checkModel(int moduleIndex, bool isAutoClean);
    // Resets the module's clean counters before a run.
    static void handleClean(int modelIndex);
    void cleanSingleCateDone(int ci, int status, int number, qint64 size);
    virtual void cleanDone(bool success, qint64 size, int number);

    void updateScanningPercent(float percent);
    void updateScanningProgress(const QString &path, qint64 size);
    void updateScanningDone(int doneNum, int cateCount,
                            viewStatus noEmptyToStatus = viewStatus::scandone_NoEmpty,
                            viewStatus emptyToStatus = viewStatus::scandone_Empty);
    void updateReScanView(viewStatus toStatus);

    // For a scan that another screen drives (Auto Cleanup's of its children):
    // the totals reset and the screen on the scan; a category's end; the
    // end of the whole scan; and the way back to the overview after a stop.
    void enterScanning();
    void followCategoryDone(int categoryIndex);
    void finishScan();
    void leaveScanning();
    // The chosen size of the review, after a change of the selection.
    void updateDetailView() { changeViewStatus(m_status); }

    QPushButton *overViewScanBtn() const { return m_overViewScanBtn; }
    QPushButton *scanningscanBtn() const { return m_scanningscanBtn; }
    QPushButton *rescanBtn() const { return m_rescanBtn; }
    QPushButton *reviewBtn() const { return m_reviewBtn; }
    QPushButton *scandoneViewBtn() const { return m_scandoneViewBtn; }
    QPushButton *detailViewBtn() const { return m_detailViewBtn; }
    QPushButton *cleanningViewBtn() const { return m_cleanningViewBtn; }
    QPushButton *cleandoneViewBtn() const { return m_cleandoneViewBtn; }
    QPushButton *showLogViewBtn() const { return m_showLogViewBtn; }
    QLabel *statusTextField() const { return m_statusText; }

signals:
    // The module's row of the left list has something new to show.
    void moduleRowChanged(int moduleIndex);

protected:
    void reloadTexts() override;
    // Starts the module's own scan, after the totals were reset.
    virtual void startScan();
    // A percent report of that scan: the percent of the category in hand.
    virtual void scanningPercent(float percent) { updateScanningPercent(percent); }
    // Runs the clean of the review's selection on a worker; each report goes
    // to `recorder`. Modules that edit stores rather than remove files differ.
    virtual void runClean(const std::shared_ptr<KestalCleanProtocol> &recorder);
    // Size and number of what the review has selected, as its clean counts them.
    virtual std::pair<double, int> selected() const;
    // Asks whether what a clean takes may go; true when the user confirmed.
    static bool confirmRemoval(double size, qint64 number);
    // Whether the result page offers the review (Auto Cleanup cleans from it).
    virtual bool hasReview() const { return true; }
    bool isOnScreen() const;
    KestalRightTopOverViewAndScanViewController *topChild() const;
    KestalCleaningViewAndLogViewController *cleaningChild() const;
    KestalRightSplitController *split() const { return m_split; }
    int cateCount() const { return m_cateCount; }
    int m_doneCategories = 0;

private:
    // The buttons' titles and styles in the interface language.
    void applyStyles();
    // A scan's reports change figures only; the screen shows them at most
    // once a frame, and only the texts that changed.
    void scheduleScreenRefresh();
    void refreshScanningScreen();
    void setStatusText(const QString &text);
    // Resets the progress and names the category the scan is on.
    void showCategoryOnScan(int categoryIndex);
    QString statusText() const;

    int m_moduleIndex;
    QString m_tab;
    int m_cateCount = 0;
    viewStatus m_status = viewStatus::overview;
    KestalRightSplitController *m_split;
    int m_styleApplications = 0;
    QTimer *m_screenRefresh;
    float m_shownPercent = 0;
    QString m_shownPath;

    QLabel *m_statusText;
    QPushButton *m_overViewScanBtn;
    QPushButton *m_scanningscanBtn;
    QPushButton *m_rescanBtn;
    QPushButton *m_reviewBtn;
    QPushButton *m_scandoneViewBtn;
    QPushButton *m_detailViewBtn;
    QPushButton *m_cleanningViewBtn;
    QPushButton *m_cleandoneViewBtn;
    QPushButton *m_showLogViewBtn;
};
