#include "cleaner/shell/KestalEraserBottomController.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/erasure/ShredService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/KestalEraserCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalShredTopDetailViewController.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

// The helper's reports arrive on the connection's thread; the bar takes
// them on the main thread, while it still exists.
class KestalEraserBottomController::Receiver : public DeleteFilesProgressProtocol {
public:
    explicit Receiver(KestalEraserBottomController *bar) : m_bar(bar) {}
    void installFail(const QString &, int) override
    {
        Dispatch::mainAsync([bar = m_bar] {
            if (bar)
                bar->installFail();
        });
    }
    void processed(const QString &, qint64, int) override {}
    void finished(bool, const PathMap &folders, int) override
    {
        Dispatch::mainAsync([bar = m_bar, folders] {
            if (bar)
                bar->finished(folders);
        });
    }

private:
    QPointer<KestalEraserBottomController> m_bar;
};

KestalEraserBottomController::KestalEraserBottomController(
    KestalRightSplitController *split, KestalShredTopDetailViewController *list,
    KestalEraserCleaningViewAndLogViewController *cleaning, QWidget *parent)
    : KestalSuperViewController(parent), m_split(split), m_list(list), m_cleaning(cleaning),
      m_receiver(std::make_shared<Receiver>(this))
{
    setObjectName(QStringLiteral("eraserBar"));
    m_text = new QLabel(this);
    m_clean = new QPushButton(this);
    m_log = new QPushButton(this);
    m_back = new QPushButton(this);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(24, 0, 24, 0);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_back);
    layout->addWidget(m_log);
    layout->addWidget(m_clean);
    connect(m_clean, &QPushButton::clicked, this,
            &KestalEraserBottomController::detailViewCleanAction);
    connect(m_back, &QPushButton::clicked, this, &KestalEraserBottomController::backToListAction);
    connect(m_log, &QPushButton::clicked, this, [this] {
        if (m_status == viewStatus::showLog)
            showLogViewHideLogAction();
        else
            cleandoneViewShowLogAction();
    });
    connect(m_list, &KestalShredTopDetailViewController::selectionChanged, this, [this] {
        if (m_status == viewStatus::overview)
            changeViewStatus(m_status);
    });
    changeViewStatus(viewStatus::overview);
}

KestalEraserBottomController::~KestalEraserBottomController() = default;

void KestalEraserBottomController::changeViewStatus(viewStatus status)
{
    m_status = status;
    const int module = ShredService::moduleIndex;
    m_clean->setVisible(status == viewStatus::overview || status == viewStatus::cleanning);
    m_clean->setText(getLocalizedString(status == viewStatus::cleanning ? QStringLiteral("Stop")
                                                                        : QStringLiteral("Clean")));
    m_log->setVisible(status == viewStatus::cleandone || status == viewStatus::showLog);
    m_log->setText(getLocalizedString(status == viewStatus::showLog ? QStringLiteral("Hide Log")
                                                                    : QStringLiteral("View Log")));
    m_back->setVisible(m_log->isVisibleTo(this));
    m_back->setText(getLocalizedString(QStringLiteral("Back to the list")));
    if (status == viewStatus::overview) {
        // What a shred would take now: the checked items.
        qint64 size = 0;
        int number = 0;
        for (const Category &c : AppModuleService::categoriesOf(module)) {
            size += c.state == 1 ? c.size : 0;
            number += c.state == 1;
        }
        m_clean->setEnabled(number > 0);
        m_text->setText(byteString(size));
    } else if (status == viewStatus::cleanning) {
        m_clean->setEnabled(false); // a shred cannot be stopped halfway
        m_text->setText(getLocalizedString(QStringLiteral("Cleaning...")));
    } else {
        const auto [size, number] = KestalService::cleanTotalSizeAndNumber().value(module);
        m_text->setText(byteString(size));
        m_log->setEnabled(!ShredService::shredFailures().isEmpty());
    }
}

void KestalEraserBottomController::moveTo(viewStatus status)
{
    changeViewStatus(status);
    const QString tab = AppModuleService::appModules().at(ShredService::moduleIndex).tab;
    KestalSuperViewController::viewCurrentStatusDict()[tab] = status;
    m_split->transitionTopView(tab, status, tab);
    if (status == viewStatus::overview)
        m_list->reloadData();
    else
        m_cleaning->changeViewStatus(status);
}

void KestalEraserBottomController::detailViewCleanAction()
{
    const int module = ShredService::moduleIndex;
    if (m_status != viewStatus::overview ||
        !KestalRightBottomViewController::checkModel(module, false))
        return;
    KestalRightBottomViewController::handleClean(module);
    ShredService::shred(m_receiver);
    moveTo(viewStatus::cleanning);
    FabricController::fabric(
        FabricEvent::cleanButton,
        FabricEvent::getCleanButtonName(AppModuleService::appModules().at(module)));
}

void KestalEraserBottomController::finished(const QMap<QString, QList<int>> &folders)
{
    const auto [size, number] = ShredService::shredDone(folders);
    KestalService::cleanTotalSizeAndNumber()[ShredService::moduleIndex] = {size, number};
    moveTo(viewStatus::cleandone);
}

void KestalEraserBottomController::installFail()
{
    // Every path failed with getRoot: every item stays, and the list returns.
    ShredService::shredDone(ShredService::allFailed(int(errorKind::getRoot)));
    moveTo(viewStatus::overview);
}

void KestalEraserBottomController::cleandoneViewShowLogAction()
{
    moveTo(viewStatus::showLog);
    FabricController::fabric(FabricEvent::watchLogButton,
                             FabricEvent::getLogButtonName(
                                 AppModuleService::appModules().at(ShredService::moduleIndex)));
}

void KestalEraserBottomController::showLogViewHideLogAction()
{
    moveTo(viewStatus::cleandone);
}

void KestalEraserBottomController::backToListAction()
{
    moveTo(viewStatus::overview);
}
