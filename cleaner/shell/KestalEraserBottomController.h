#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

#include <memory>

class KestalEraserCleaningViewAndLogViewController;
class KestalRightSplitController;
class KestalShredTopDetailViewController;
class QLabel;
class QPushButton;

// The Eraser's bottom bar. The module has no scan: its list is what the user
// added, so the bar knows the list (overview), the shredding (cleanning),
// its result (cleandone) and the log (showLog).
class KestalEraserBottomController : public KestalSuperViewController {
    Q_OBJECT
public:
    KestalEraserBottomController(KestalRightSplitController *split,
                                 KestalShredTopDetailViewController *list,
                                 KestalEraserCleaningViewAndLogViewController *cleaning,
                                 QWidget *parent = nullptr);
    ~KestalEraserBottomController() override;

    viewStatus status() const { return m_status; }
    void changeViewStatus(viewStatus status);

    // Asks for the confirmation, then sends the checked items to the helper.
    void detailViewCleanAction();
    // The report of the run: the list keeps what stayed.
    void finished(const QMap<QString, QList<int>> &folders);
    // The helper could not be brought up: every item stays, back to the list.
    void installFail();
    void cleandoneViewShowLogAction();
    void showLogViewHideLogAction();
    // Back to the list after a run.
    void backToListAction();

    QPushButton *cleanButton() const { return m_clean; }
    QPushButton *logButton() const { return m_log; }
    QPushButton *backButton() const { return m_back; }
    QLabel *statusTextField() const { return m_text; }

protected:
    void reloadTexts() override { changeViewStatus(m_status); }

private:
    class Receiver;
    void moveTo(viewStatus status);

    KestalRightSplitController *m_split;
    KestalShredTopDetailViewController *m_list;
    KestalEraserCleaningViewAndLogViewController *m_cleaning;
    std::shared_ptr<Receiver> m_receiver;
    viewStatus m_status = viewStatus::overview;
    QLabel *m_text;
    QPushButton *m_clean;
    QPushButton *m_log;
    QPushButton *m_back;
};
