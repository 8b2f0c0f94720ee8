#include "cleaner/shell/KestalAutoCleanupBottomViewController.h"

#include "cleaner/clean/AutoCleanupClean.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/KestalRightTopShowMessageViewController.h"

#include <QPointer>

namespace {

constexpr int autoCleanupModule = 0;

} // namespace

KestalAutoCleanupBottomViewController::KestalAutoCleanupBottomViewController(
    KestalRightSplitController *split, QWidget *parent)
    : KestalRightBottomViewController(autoCleanupModule, split, parent)
{
    connect(split->topSwitch()->showMessage(autoCleanupModule),
            &KestalRightTopShowMessageViewController::childBoxChanged, this,
            &KestalAutoCleanupBottomViewController::updateCate);
}

QList<int> KestalAutoCleanupBottomViewController::childModules()
{
    QList<int> children;
    const QList<Category> categories =
        AppModuleService::appModules().at(autoCleanupModule).categories.value_or(QList<Category>());
    for (const Category &c : categories)
        children.append(KestalAutoCleanupService::childModuleIndex(c.title));
    return children;
}

KestalRightBottomViewController *KestalAutoCleanupBottomViewController::childBar(int n) const
{
    return m_followers.value(n);
}

void KestalAutoCleanupBottomViewController::startScan()
{
    // Each child's own screen follows its part of the scan; one that is
    // busy on its own (a scan or a clean of its own) is left alone. Taken
    // once here, as the scan reports for every file it finds.
    m_children = childModules();
    m_followers.clear();
    for (int child : std::as_const(m_children)) {
        KestalRightBottomViewController *follower =
            child < 0 ? nullptr : split()->bottomSwitch()->barOfModule(child);
        if (follower && (follower->status() == viewStatus::scanning ||
                         follower->status() == viewStatus::cleanning))
            follower = nullptr;
        if (follower)
            follower->enterScanning();
        m_followers.append(follower);
    }
    QPointer<KestalAutoCleanupBottomViewController> bar(this);
    const int cateCount = this->cateCount();
    KestalAutoCleanupService::scanAutoCleanup(
        [bar](const QString &path, qint64 size, int n) {
            if (!bar)
                return;
            bar->updateScanningProgress(path, size);
            if (KestalRightBottomViewController *child = bar->childBar(n))
                child->updateScanningProgress(path, size);
        },
        [bar](int n, float percent) {
            if (!bar)
                return;
            if (KestalRightBottomViewController *child = bar->childBar(n))
                child->updateScanningPercent(percent);
            bar->updateOwnPercent();
        },
        [bar, cateCount](int n, int ci, bool) {
            if (!bar || n < 0)
                return;
            KestalRightBottomViewController *child = bar->childBar(n);
            if (KestalService::scanStatus().value(autoCleanupModule) == -1) {
                bar->updateScanningDone(cateCount - 1, cateCount);
                for (int i = 0; i < cateCount; ++i) {
                    if (KestalRightBottomViewController *c = bar->childBar(i))
                        c->finishScan();
                }
                bar->updateOwnPercent();
                return;
            }
            if (child)
                child->followCategoryDone(ci);
            bar->updateOwnPercent();
        });
}

void KestalAutoCleanupBottomViewController::updateOwnPercent()
{
    // The mean of the children's percents, each of which counts its
    // finished categories.
    float sum = 0;
    for (int child : std::as_const(m_children))
        sum += KestalService::scanningPercent().value(child);
    const float percent = sum / float(qMax(1, int(m_children.size())));
    KestalService::scanningPercent()[autoCleanupModule] = percent;
    topChild()->updateProgress(percent);
    emit moduleRowChanged(autoCleanupModule);
}

void KestalAutoCleanupBottomViewController::scanningStopScanAction()
{
    if (status() != viewStatus::scanning)
        return;
    KestalAutoCleanupService::stopScanAutoCleanup();
    topChild()->changeViewStatus(viewStatus::overview);
    updateReScanView(viewStatus::overview);
    for (int n = 0; n < cateCount(); ++n) {
        if (KestalRightBottomViewController *child = childBar(n))
            child->leaveScanning();
    }
    FabricController::fabric(
        FabricEvent::stopScanButton,
        FabricEvent::getStopScanName(AppModuleService::appModules().at(autoCleanupModule)));
}

void KestalAutoCleanupBottomViewController::updateCate(int modelIndex, int cb)
{
    const int n = int(childModules().indexOf(modelIndex));
    if (n < 0)
        return;
    AppModuleService::categoriesOf(autoCleanupModule)[n].state = cb;
    const QList<Category> defaults =
        AppModuleService::initAppModules().at(modelIndex).categories.value_or(QList<Category>());
    const int count = int(AppModuleService::categoriesOf(modelIndex).size());
    for (int i = 0; i < count && i < defaults.size(); ++i) {
        if (defaults[i].state == 1)
            AppModuleService::updateState(cb, modelIndex, i, -1, -1);
    }
    updateDetailView();
}

void KestalAutoCleanupBottomViewController::scanDoneCleanAction()
{
    if (status() != viewStatus::scandone_NoEmpty || !checkModel(autoCleanupModule, true))
        return;
    handleClean(autoCleanupModule);
    KestalAutoCleanupService::canCleanNum = 0;
    m_cleanedChildren = 0;
    updateReScanView(viewStatus::cleanning);

    const QList<AutoCleanupClean::Child> children = AutoCleanupClean::cleanableChildren();
    KestalAutoCleanupService::canCleanNum = int(children.size());
    QPointer<KestalAutoCleanupBottomViewController> bar(this);
    AutoCleanupClean::cleanChildren(
        m_serialQueue, children,
        [bar](const AutoCleanupClean::Child &c, int status, int number, qint64 size) {
            if (bar)
                bar->childCleanEnded(c.row, c.module, status, number, size);
        });
    checkDone();
    FabricController::fabric(
        FabricEvent::cleanButton,
        FabricEvent::getCleanButtonName(AppModuleService::appModules().at(autoCleanupModule)));
}

void KestalAutoCleanupBottomViewController::childCleanEnded(int n, int child, int status,
                                                            int number, qint64 size)
{
    ++m_cleanedChildren;
    KestalService::cleanningCompletedStatus()[autoCleanupModule].insert(
        n, {status == 999 ? 999 : status, number, size});
    cleaningChild()->updateCleanningView();
    emit moduleRowChanged(child);
    emit childCleaned(child);
    checkDone();
}

void KestalAutoCleanupBottomViewController::checkDone()
{
    if (status() != viewStatus::cleanning ||
        m_cleanedChildren != KestalAutoCleanupService::canCleanNum)
        return;
    KestalService::cleanDone()[autoCleanupModule] = 2;
    qint64 size = 0;
    int number = 0;
    for (const CleanTriple &r :
         KestalService::cleanningCompletedStatus().value(autoCleanupModule)) {
        size += r.size;
        number += r.number;
    }
    KestalService::cleanTotalSizeAndNumber()[autoCleanupModule] = {size, number};
    updateReScanView(viewStatus::cleandone);
}
