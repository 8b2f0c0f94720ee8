#include "cleaner/shell/KestalRightBottomViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>

namespace {

constexpr int buttonHeight = 40;
// Auto Cleanup scans the junk modules instead of roots of its own.
constexpr int autoCleanupModule = 0;
constexpr int buttonWidth = 148;

QPushButton *barButton(QWidget *parent)
{
    auto *button = new QPushButton(parent);
    button->setMinimumHeight(buttonHeight);
    button->setMinimumWidth(buttonWidth);
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

    m_statusText = new QLabel(this);
    UIUtil::setTextAttribute(m_statusText, UIInfo::nsMyUI(QStringLiteral("bottom_status_font")));
    m_overViewScanBtn = barButton(this);
    m_overViewScanBtn->setObjectName(QStringLiteral("overViewScanBtn"));
    m_rescanBtn = barButton(this);
    m_rescanBtn->setObjectName(QStringLiteral("rescanBtn"));
    connect(m_overViewScanBtn, &QPushButton::clicked, this,
            &KestalRightBottomViewController::overViewScanAction);
    connect(m_rescanBtn, &QPushButton::clicked, this,
            &KestalRightBottomViewController::rescanAction);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(32, 0, 32, 0);
    layout->setSpacing(12);
    layout->addWidget(m_statusText, 1);
    layout->addWidget(m_rescanBtn);
    layout->addWidget(m_overViewScanBtn);
    changeViewStatus(viewStatus::overview);
}

void KestalRightBottomViewController::changeViewStatus(viewStatus status)
{
    m_status = status;
    const MyUI &primary = UIInfo::nsMyUI(QStringLiteral("primary_button_gradual_font"));
    const MyUI &secondary = UIInfo::nsMyUI(QStringLiteral("secondary_button_font"));
    UIUtil::setBtnAttribute(m_overViewScanBtn, getLocalizedString(QStringLiteral("Scan")), primary);
    UIUtil::setBtnStyle(m_rescanBtn, getLocalizedString(QStringLiteral("Re-Scan")),
                        UIInfo::nsColor(QStringLiteral("secondary_button_border_color")),
                        secondary);

    m_overViewScanBtn->setVisible(status == viewStatus::overview);
    m_overViewScanBtn->setEnabled(canScan());
    m_rescanBtn->setVisible(status == viewStatus::scandone_Empty ||
                            status == viewStatus::scandone_NoEmpty);

    const qint64 found = KestalService::scanTotalSize().value(m_moduleIndex);
    switch (status) {
    case viewStatus::scanning:
        m_statusText->setText(getLocalizedString(QStringLiteral("Found ")) + byteString(found));
        break;
    case viewStatus::scandone_NoEmpty:
        m_statusText->setText(getLocalizedString(QStringLiteral("Found ")) +
                              byteString(CategoryTotals::instanceTotalSize(m_moduleIndex)));
        break;
    default:
        if (canScan())
            m_statusText->clear();
        else
            m_statusText->setText(
                getLocalizedString(QStringLiteral("Available in a later version")));
        break;
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

void KestalRightBottomViewController::overViewScanAction()
{
    // A second press of a scan that already runs sees another title; a
    // module that Auto Cleanup is scanning waits for it.
    if (!canScan() || m_overViewScanBtn->text() != getLocalizedString(QStringLiteral("Scan")) ||
        m_status != viewStatus::overview || KestalService::scanStatus().value(m_moduleIndex) == 1)
        return;
    KestalService::scanTotalSize()[m_moduleIndex] = 0;
    KestalService::scanningPercent()[m_moduleIndex] = 0;
    m_doneCategories = 0;
    topChild()->changeViewStatus(viewStatus::scanning);
    showCategoryOnScan(0);
    updateReScanView(viewStatus::scanning);
    updateScanningPercent(0);

    if (m_moduleIndex == autoCleanupModule)
        startAutoCleanupScan();
    else
        startModuleScan();
    FabricController::fabric(
        FabricEvent::scanButton,
        FabricEvent::getScanButtonName(AppModuleService::appModules().at(m_moduleIndex)));
}

void KestalRightBottomViewController::startModuleScan()
{
    QPointer<KestalRightBottomViewController> bar(this);
    const int cateCount = m_cateCount;
    KestalService::scan(
        m_moduleIndex,
        [bar](const QString &path, qint64 size) {
            if (bar)
                bar->updateScanningProgress(path, size);
        },
        [bar](float percent) {
            if (bar)
                bar->updateScanningPercent(percent);
        },
        [bar, cateCount](int categoryIndex) {
            if (bar)
                bar->updateScanningDone(categoryIndex, cateCount);
        });
}

void KestalRightBottomViewController::startAutoCleanupScan()
{
    // The children scan at once, so the progress is the share of children done.
    QPointer<KestalRightBottomViewController> bar(this);
    const int cateCount = m_cateCount;
    KestalAutoCleanupService::scanAutoCleanup(
        [bar](const QString &path, qint64 size, int) {
            if (bar)
                bar->updateScanningProgress(path, size);
        },
        nullptr,
        [bar, cateCount](int categoryNumber, int, bool finished) {
            if (!bar || categoryNumber < 0)
                return;
            if (KestalService::scanStatus().value(autoCleanupModule) == -1) {
                bar->updateScanningDone(cateCount - 1, cateCount);
                return;
            }
            if (!finished)
                return;
            ++bar->m_doneCategories;
            bar->topChild()->updateProgress(float(bar->m_doneCategories) * 100.0f /
                                            float(qMax(1, cateCount)));
            KestalService::scanningPercent()[autoCleanupModule] =
                float(bar->m_doneCategories) * 100.0f / float(qMax(1, cateCount));
            emit bar->moduleRowChanged(autoCleanupModule);
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
    topChild()->updateProgress(percent);
    emit moduleRowChanged(m_moduleIndex);
}

void KestalRightBottomViewController::updateScanningProgress(const QString &path, qint64 size)
{
    KestalService::scanTotalSize()[m_moduleIndex] += size;
    topChild()->updatePath(path);
    if (m_status == viewStatus::scanning)
        changeViewStatus(m_status);
}

void KestalRightBottomViewController::updateScanningDone(int doneNum, int cateCount)
{
    m_doneCategories = doneNum + 1;
    if (cateCount - 1 == doneNum) {
        const qint64 size = CategoryTotals::instanceTotalSize(m_moduleIndex);
        const viewStatus to = size < 1 ? viewStatus::scandone_Empty : viewStatus::scandone_NoEmpty;
        m_split->topSwitch()->updateTopMessageViewStatus(to, m_tab, m_moduleIndex);
        topChild()->changeViewStatus(viewStatus::overview);
        updateReScanView(to);
        return;
    }
    showCategoryOnScan(doneNum + 1);
}

void KestalRightBottomViewController::showCategoryOnScan(int categoryIndex)
{
    const QList<Category> categories =
        AppModuleService::appModules().at(m_moduleIndex).categories.value_or(QList<Category>());
    topChild()->updateProgress(0);
    if (categoryIndex < categories.size())
        topChild()->updateDescription(categories.at(categoryIndex).title);
}

void KestalRightBottomViewController::updateReScanView(viewStatus toStatus)
{
    changeViewStatus(toStatus);
    if (isOnScreen())
        m_split->transitionTopView(m_tab, toStatus, m_tab);
    viewCurrentStatusDict()[m_tab] = toStatus;
    emit moduleRowChanged(m_moduleIndex);
}
