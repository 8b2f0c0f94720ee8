#include "cleaner/shell/KestalRightBottomViewController.h"

#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/ByteCount.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalAutoCleanupBottomViewController.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/PermissionCheck.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QTimer>

namespace {

constexpr int buttonHeight = 40;
constexpr int buttonWidth = 148;

// The run's status when what needs the helper could not go to it.
constexpr int helperNotAvailable = -2;
// The wait after a stop, so that the scan's workers see the flag.
constexpr int stopWaitMs = 1000;
constexpr int autoCleanupModule = 0;

// A bar's button is at least the bar's button size and otherwise as wide as
// its text in the interface language: a fixed minimum width would let the
// layout squeeze a longer title below its natural size.
class BarButton : public QPushButton {
public:
    using QPushButton::QPushButton;
    QSize sizeHint() const override
    {
        return QPushButton::sizeHint().expandedTo(QSize(buttonWidth, buttonHeight));
    }
    QSize minimumSizeHint() const override { return sizeHint(); }
};

// The screen's frame interval: reports that come faster are shown together.
int frameIntervalMs()
{
    const QScreen *screen = QGuiApplication::primaryScreen();
    const qreal rate = screen && screen->refreshRate() > 1 ? screen->refreshRate() : 60;
    return qMax(1, int(1000 / rate));
}

QPushButton *barButton(QWidget *parent, const QString &name)
{
    auto *button = new BarButton(parent);
    button->setObjectName(name);
    button->setMinimumHeight(buttonHeight); // the rounded ends follow the height
    return button;
}

} // namespace

KestalRightBottomViewController::KestalRightBottomViewController(int moduleIndex,
                                                                 KestalRightSplitController *split,
                                                                 QWidget *parent)
    : KestalSuperViewController(parent), m_moduleIndex(moduleIndex), m_split(split)
{
    const Module &module = AppModuleService::appModules().at(moduleIndex);
    m_tab = module.tab;
    m_cateCount = int(module.categories.value_or(QList<Category>()).size());
    setObjectName(m_tab + QStringLiteral(" Bar"));

    m_screenRefresh = new QTimer(this);
    m_screenRefresh->setSingleShot(true);
    m_screenRefresh->setInterval(frameIntervalMs());
    connect(m_screenRefresh, &QTimer::timeout, this,
            &KestalRightBottomViewController::refreshScanningScreen);
    m_statusText = new QLabel(this);
    UIUtil::setTextAttribute(m_statusText, UIInfo::nsMyUI(QStringLiteral("bottom_status_font")));
    m_overViewScanBtn = barButton(this, QStringLiteral("overViewScanBtn"));
    m_scanningscanBtn = barButton(this, QStringLiteral("scanningscanBtn"));
    m_rescanBtn = barButton(this, QStringLiteral("rescanBtn"));
    m_reviewBtn = barButton(this, QStringLiteral("reviewBtn"));
    m_scandoneViewBtn = barButton(this, QStringLiteral("scandoneViewBtn"));
    m_detailViewBtn = barButton(this, QStringLiteral("detailViewBtn"));
    m_cleanningViewBtn = barButton(this, QStringLiteral("cleanningViewBtn"));
    m_cleandoneViewBtn = barButton(this, QStringLiteral("cleandoneViewBtn"));
    m_showLogViewBtn = barButton(this, QStringLiteral("showLogViewBtn"));
    using Bar = KestalRightBottomViewController;
    const std::pair<QPushButton *, void (Bar::*)()> actions[] = {
        {m_overViewScanBtn, &Bar::overViewScanAction},
        {m_scanningscanBtn, &Bar::scanningStopScanAction},
        {m_rescanBtn, &Bar::rescanAction},
        {m_reviewBtn, &Bar::scanDoneNoEmptyReviewAction},
        {m_scandoneViewBtn, &Bar::scanDoneNoEmptyCleanAction},
        {m_detailViewBtn, &Bar::detailViewCleanAction},
        {m_cleanningViewBtn, &Bar::cleanningViewStopAction},
        {m_cleandoneViewBtn, &Bar::cleandoneViewShowLogAction},
        {m_showLogViewBtn, &Bar::showLogViewHideLogAction}};

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(32, 0, 32, 0);
    layout->setSpacing(12);
    layout->addWidget(m_statusText, 1);
    for (const auto &[button, action] : actions) {
        connect(button, &QPushButton::clicked, this, action);
        layout->addWidget(button);
    }
    // The review's top child tells of new selections and of its back button.
    if (KestalDetailViewController *review = m_split->topSwitch()->detail(moduleIndex)) {
        connect(review, &KestalDetailViewController::selectionChanged, this,
                &KestalRightBottomViewController::updateDetailView);
        connect(review, &KestalDetailViewController::backRequested, this, [this] {
            if (m_status == viewStatus::detail)
                updateReScanView(viewStatus::scandone_NoEmpty);
        });
    }
    applyStyles();
    changeViewStatus(viewStatus::overview);
}

bool KestalRightBottomViewController::canScan() const
{
    return m_cateCount > 0 || KestalService::hasOwnScan(m_moduleIndex);
}

void KestalRightBottomViewController::reloadTexts()
{
    applyStyles();
    changeViewStatus(m_status);
}

void KestalRightBottomViewController::applyStyles()
{
    ++m_styleApplications;
    const MyUI &primary = UIInfo::nsMyUI(QStringLiteral("primary_button_gradual_font"));
    const MyUI &secondary = UIInfo::nsMyUI(QStringLiteral("secondary_button_font"));
    const QColor border = UIInfo::nsColor(QStringLiteral("secondary_button_border_color"));
    const QString clean = getLocalizedString(QStringLiteral("Clean"));
    const QString stop = getLocalizedString(QStringLiteral("Stop"));
    UIUtil::setBtnAttribute(m_overViewScanBtn, getLocalizedString(QStringLiteral("Scan")), primary);
    UIUtil::setBtnStyle(m_scanningscanBtn, stop, border, secondary);
    UIUtil::setBtnStyle(m_rescanBtn, getLocalizedString(QStringLiteral("Re-Scan")), border,
                        secondary);
    UIUtil::setBtnStyle(m_reviewBtn, getLocalizedString(QStringLiteral("Review")), border,
                        secondary);
    UIUtil::setBtnAttribute(m_scandoneViewBtn, clean, primary);
    UIUtil::setBtnAttribute(m_detailViewBtn, clean, primary);
    UIUtil::setBtnStyle(m_cleanningViewBtn, stop, border, secondary);
    UIUtil::setBtnStyle(m_cleandoneViewBtn, getLocalizedString(QStringLiteral("View Log")), border,
                        secondary);
    UIUtil::setBtnStyle(m_showLogViewBtn, getLocalizedString(QStringLiteral("Hide Log")), border,
                        secondary);
}

void KestalRightBottomViewController::changeViewStatus(viewStatus status)
{
    m_status = status;
    using enum viewStatus;
    if (status == cleandone || status == showLog) {
        const QIcon logIcon =
            ImageStore::icon(KestalCleaningViewAndLogViewController::hasFailures(m_moduleIndex)
                                 ? QStringLiteral("WarnLog")
                                 : QStringLiteral("SuccessLog"));
        for (QPushButton *button : {m_cleandoneViewBtn, m_showLogViewBtn}) {
            button->setIcon(logIcon);
            button->setIconSize(QSize(20, 20));
        }
    }
    m_overViewScanBtn->setVisible(status == overview);
    m_overViewScanBtn->setEnabled(canScan());
    m_scanningscanBtn->setVisible(status == scanning);
    m_rescanBtn->setVisible(status == scandone_Empty || status == scandone_NoEmpty ||
                            status == detail || status == cleandone);
    m_reviewBtn->setVisible(status == scandone_NoEmpty && hasReview());
    m_scandoneViewBtn->setVisible(status == scandone_NoEmpty);
    m_detailViewBtn->setVisible(status == detail);
    // Auto Cleanup cleans its modules from its result page, not from a review.
    m_detailViewBtn->setEnabled(hasReview() && selected().second > 0);
    m_cleanningViewBtn->setVisible(status == cleanning);
    m_cleanningViewBtn->setEnabled(false); // a running clean cannot be stopped from here
    m_cleandoneViewBtn->setVisible(status == cleandone);
    m_showLogViewBtn->setVisible(status == showLog);
    setStatusText(statusText());
}

void KestalRightBottomViewController::setStatusText(const QString &text)
{
    if (m_statusText->text() != text)
        m_statusText->setText(text);
}

std::pair<double, int> KestalRightBottomViewController::selected() const
{
    if (!canScan())
        return {0, 0};
    return AppModuleService::calculateModuleSizeAndNumber(m_moduleIndex);
}

QString KestalRightBottomViewController::statusText() const
{
    const QString found = getLocalizedString(QStringLiteral("Found "));
    switch (m_status) {
    case viewStatus::scanning:
        return found + byteString(KestalService::scanTotalSize().value(m_moduleIndex));
    case viewStatus::scandone_NoEmpty:
        return found + byteString(CategoryTotals::instanceTotalSize(m_moduleIndex));
    case viewStatus::detail:
        return getLocalizedString(QStringLiteral("Selected: ")) +
               byteString(qint64(selected().first));
    case viewStatus::cleanning:
        return getLocalizedString(QStringLiteral("Cleaning..."));
    case viewStatus::cleandone:
    case viewStatus::showLog: {
        const auto [size, number] = KestalService::cleanTotalSizeAndNumber().value(m_moduleIndex);
        const QString items = number == 1
                                  ? getLocalizedString(QStringLiteral("1 item"))
                                  : getLocalizedString(QStringLiteral("%1 items")).arg(number);
        return getLocalizedString(QStringLiteral("Cleaned: ")) + byteString(size) +
               QStringLiteral(", ") + items;
    }
    default:
        return canScan() ? QString()
                         : getLocalizedString(QStringLiteral("Available in a later version"));
    }
}

bool KestalRightBottomViewController::isOnScreen() const
{
    return KestalLeftTableViewController::currentRow == m_moduleIndex;
}

KestalRightTopOverViewAndScanViewController *KestalRightBottomViewController::topChild() const
{
    return m_split->topSwitch()->overViewAndScan(m_moduleIndex);
}

KestalCleaningViewAndLogViewController *KestalRightBottomViewController::cleaningChild() const
{
    return m_split->topSwitch()->cleaningAndLog(m_moduleIndex);
}

void KestalRightBottomViewController::overViewScanAction()
{
    // A second press of a scan that already runs sees another title; a
    // module that Auto Cleanup is scanning waits for it.
    if (!canScan() || m_overViewScanBtn->text() != getLocalizedString(QStringLiteral("Scan")) ||
        m_status != viewStatus::overview || KestalService::scanStatus().value(m_moduleIndex) == 1)
        return;
    if (!PermissionCheck::checkPermission(m_moduleIndex))
        return;
    enterScanning();
    startScan();
    FabricController::fabric(
        FabricEvent::scanButton,
        FabricEvent::getScanButtonName(AppModuleService::appModules().at(m_moduleIndex)));
}

void KestalRightBottomViewController::enterScanning()
{
    KestalService::scanTotalSize()[m_moduleIndex] = 0;
    KestalService::scanningPercent()[m_moduleIndex] = 0;
    m_doneCategories = 0;
    m_shownPath.clear();
    topChild()->changeViewStatus(viewStatus::scanning);
    showCategoryOnScan(0);
    updateReScanView(viewStatus::scanning);
    updateScanningPercent(0);
}

void KestalRightBottomViewController::followCategoryDone(int categoryIndex)
{
    if (categoryIndex + 1 < m_cateCount) {
        updateScanningDone(categoryIndex, m_cateCount);
        return;
    }
    // The last one: the screen stays on the scan until the driving scan ends.
    m_doneCategories = m_cateCount;
    KestalService::scanningPercent()[m_moduleIndex] = 100;
    m_shownPercent = 100;
    topChild()->updateProgress(100);
    emit moduleRowChanged(m_moduleIndex);
}

void KestalRightBottomViewController::finishScan()
{
    KestalService::scanningPercent()[m_moduleIndex] = 100;
    updateScanningDone(m_cateCount - 1, m_cateCount);
}

void KestalRightBottomViewController::leaveScanning()
{
    if (m_status != viewStatus::scanning)
        return;
    topChild()->changeViewStatus(viewStatus::overview);
    updateReScanView(viewStatus::overview);
}

void KestalRightBottomViewController::startScan()
{
    QPointer<KestalRightBottomViewController> bar(this);
    const int cateCount = m_cateCount;
    const bool ownScan = KestalService::hasOwnScan(m_moduleIndex);
    auto accumulated = std::make_shared<float>(0.0f);
    KestalService::scan(
        m_moduleIndex,
        [bar](const QString &path, qint64 size) {
            if (bar)
                bar->updateScanningProgress(path, size);
        },
        [bar, ownScan, accumulated](float percent) {
            if (!bar)
                return;
            // A scan of the module's own reports steps, fractions of the whole;
            // the category loop reports the category's percent so far.
            if (ownScan)
                percent = *accumulated = qMin(100.0f, *accumulated + percent * 100.0f);
            bar->scanningPercent(percent);
        },
        [bar, cateCount](int categoryIndex) {
            // A scan of the module's own reports its end as -1.
            if (bar)
                bar->updateScanningDone(categoryIndex < 0 ? cateCount - 1 : categoryIndex,
                                        cateCount);
        });
}

void KestalRightBottomViewController::rescanAction()
{
    updateReScanView(viewStatus::overview);
    overViewScanAction();
}

void KestalRightBottomViewController::updateScanningPercent(float percent)
{
    // The driver reports the percent of the current category so far; the
    // module's own percent, which its row shows, counts the finished ones.
    KestalService::scanningPercent()[m_moduleIndex] =
        (float(m_doneCategories) * 100.0f + percent) / float(qMax(1, m_cateCount));
    m_shownPercent = percent;
    scheduleScreenRefresh();
}

void KestalRightBottomViewController::updateScanningProgress(const QString &path, qint64 size)
{
    KestalService::scanTotalSize()[m_moduleIndex] += size;
    if (!path.isEmpty()) // a walk's last report may carry a sum without a path
        m_shownPath = path;
    scheduleScreenRefresh();
}

void KestalRightBottomViewController::scheduleScreenRefresh()
{
    if (!m_screenRefresh->isActive())
        m_screenRefresh->start();
}

void KestalRightBottomViewController::refreshScanningScreen()
{
    m_screenRefresh->stop();
    if (m_status != viewStatus::scanning)
        return;
    topChild()->updateProgress(m_shownPercent);
    topChild()->updatePath(m_shownPath);
    setStatusText(statusText());
    emit moduleRowChanged(m_moduleIndex);
}

void KestalRightBottomViewController::updateScanningDone(int doneNum, int cateCount,
                                                         viewStatus noEmptyToStatus,
                                                         viewStatus emptyToStatus)
{
    // A scan whose stop already ended it reports no more.
    if (m_status != viewStatus::scanning)
        return;
    m_doneCategories = doneNum + 1;
    refreshScanningScreen(); // what came before the end is shown, late or not
    if (cateCount - 1 == doneNum) {
        const qint64 size = CategoryTotals::instanceTotalSize(m_moduleIndex);
        topChild()->changeViewStatus(viewStatus::overview);
        updateReScanView(size < 1 ? emptyToStatus : noEmptyToStatus);
        return;
    }
    showCategoryOnScan(doneNum + 1);
    emit moduleRowChanged(m_moduleIndex); // its percent counts finished categories
}

void KestalRightBottomViewController::showCategoryOnScan(int categoryIndex)
{
    const QList<Category> categories =
        AppModuleService::appModules().at(m_moduleIndex).categories.value_or(QList<Category>());
    m_shownPercent = 0;
    topChild()->updateProgress(0);
    // A scan of the module's own does not go category by category.
    if (categoryIndex < categories.size() && !KestalService::hasOwnScan(m_moduleIndex))
        topChild()->updateDescription(categories.at(categoryIndex).title);
}

void KestalRightBottomViewController::updateReScanView(viewStatus toStatus)
{
    changeViewStatus(toStatus);
    // The top children follow the state off screen too, so coming back shows it.
    m_split->topSwitch()->updateTopMessageViewStatus(toStatus, m_tab, m_moduleIndex);
    if (isOnScreen())
        m_split->transitionTopView(m_tab, toStatus, m_tab);
    viewCurrentStatusDict()[m_tab] = toStatus;
    emit moduleRowChanged(m_moduleIndex);
}

void KestalRightBottomViewController::scanningStopScanAction()
{
    if (m_status != viewStatus::scanning)
        return;
    // While Auto Cleanup drives this scan, only its stop can end it.
    if (m_moduleIndex != autoCleanupModule &&
        KestalService::scanStatus().value(autoCleanupModule) == 1 &&
        KestalAutoCleanupBottomViewController::childModules().contains(m_moduleIndex)) {
        m_split->bottomSwitch()->barOfModule(autoCleanupModule)->scanningStopScanAction();
        return;
    }
    KestalService::stopScan(m_moduleIndex);
    const int cateCount = m_cateCount;
    QPointer<KestalRightBottomViewController> bar(this);
    QTimer::singleShot(stopWaitMs, this, [bar, cateCount] {
        if (!bar)
            return;
        bar->updateScanningDone(cateCount - 1, cateCount, viewStatus::detail,
                                viewStatus::scandone_Empty);
    });
    FabricController::fabric(
        FabricEvent::stopScanButton,
        FabricEvent::getStopScanName(AppModuleService::appModules().at(m_moduleIndex)));
}

void KestalRightBottomViewController::scanDoneNoEmptyReviewAction()
{
    if (m_status != viewStatus::scandone_NoEmpty)
        return;
    updateReScanView(viewStatus::detail);
    FabricController::fabric(
        FabricEvent::reviewButton,
        FabricEvent::getReviewButtonName(AppModuleService::appModules().at(m_moduleIndex)));
}

void KestalRightBottomViewController::scanDoneNoEmptyCleanAction()
{
    // Despite its name, it opens the review: the clean starts there.
    if (m_status == viewStatus::scandone_NoEmpty)
        updateReScanView(viewStatus::detail);
}

bool KestalRightBottomViewController::checkModel(int moduleIndex, bool isAutoClean)
{
    // The same figures as the command line's confirmation: what the clean will take.
    double size = 0;
    qint64 number = 0;
    const auto add = [&](int module) {
        const auto [moduleSize, moduleNumber] =
            AppModuleService::calculateModuleSizeAndNumber(module);
        size += moduleSize;
        number += moduleNumber;
    };
    if (isAutoClean) {
        // Auto Cleanup cleans the modules whose box is on.
        for (const Category &row : AppModuleService::categoriesOf(moduleIndex)) {
            const int child = KestalAutoCleanupService::childModuleIndex(row.title);
            if (row.state != 0 && child >= 0)
                add(child);
        }
    } else {
        add(moduleIndex);
    }
    return confirmRemoval(size, number);
}

bool KestalRightBottomViewController::confirmRemoval(double size, qint64 number)
{
    return UIUtil::dialogOKCancel(
        getLocalizedString(QStringLiteral("Confirmation")),
        getLocalizedString(QStringLiteral("Are you sure to delete selected files?")) +
            QStringLiteral("\n") + ByteCount::removalSummary(number, qint64(size)));
}

void KestalRightBottomViewController::handleClean(int modelIndex)
{
    KestalCleanRecorder::handleClean(modelIndex);
}

void KestalRightBottomViewController::detailViewCleanAction()
{
    if (m_status != viewStatus::detail || !m_detailViewBtn->isEnabled())
        return;
    if (const auto [size, number] = selected(); !confirmRemoval(size, number))
        return;
    handleClean(m_moduleIndex);
    updateReScanView(viewStatus::cleanning);

    // The recorder keeps the module's counts on the main thread, then tells the bar.
    QPointer<KestalRightBottomViewController> bar(this);
    auto recorder = std::make_shared<KestalCleanRecorder>(
        m_moduleIndex, [bar](bool result, int ci, int status, int number, qint64 size) {
            if (!bar)
                return;
            if (ci >= 0) {
                bar->cleanSingleCateDone(ci, status, number, size);
                return;
            }
            bar->cleanDone(result, size, number);
            if (status == helperNotAvailable)
                bar->showAlert(getLocalizedString(QStringLiteral(
                                   "Some items need administrator rights, and the helper that "
                                   "removes them could not be started. The log lists them.")) +
                                   QStringLiteral("\n\n") +
                                   installFailureReason(bar->m_moduleIndex),
                               true);
        });
    runClean(recorder);
    FabricController::fabric(
        FabricEvent::cleanButton,
        FabricEvent::getCleanButtonName(AppModuleService::appModules().at(m_moduleIndex)));
}

void KestalRightBottomViewController::runClean(const std::shared_ptr<KestalCleanProtocol> &recorder)
{
    const int module = m_moduleIndex;
    Dispatch::globalAsync(
        [module, recorder] { KestalModuleCleanService::analysisModule(module, recorder); });
}

void KestalRightBottomViewController::cleanSingleCateDone(int ci, int status, int number,
                                                          qint64 size)
{
    // The counts themselves were stored by the recorder before this call.
    Q_UNUSED(ci);
    Q_UNUSED(status);
    Q_UNUSED(number);
    Q_UNUSED(size);
    cleaningChild()->updateCleanningView();
}

void KestalRightBottomViewController::cleanDone(bool success, qint64 size, int number)
{
    Q_UNUSED(success);
    Q_UNUSED(size);
    Q_UNUSED(number);
    updateReScanView(viewStatus::cleandone);
}

void KestalRightBottomViewController::cleandoneViewShowLogAction()
{
    if (m_status != viewStatus::cleandone)
        return;
    updateReScanView(viewStatus::showLog);
    FabricController::fabric(
        FabricEvent::watchLogButton,
        FabricEvent::getLogButtonName(AppModuleService::appModules().at(m_moduleIndex)));
}

void KestalRightBottomViewController::showLogViewHideLogAction()
{
    if (m_status == viewStatus::showLog)
        updateReScanView(viewStatus::cleandone);
}
