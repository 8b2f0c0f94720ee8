#include "cleaner/shell/KestalRightTabSwitchControllers.h"

#include "cleaner/applications/ExtensionsFolderInfo.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/privacy/PrivacyService.h"
#include "cleaner/scan/UninstallService.h"
#include "cleaner/shell/KestalAutoCleanupBottomViewController.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalEraserBottomController.h"
#include "cleaner/shell/KestalEraserCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalExtensionsTopDetailViewController.h"
#include "cleaner/shell/KestalFinderBottomViewControllers.h"
#include "cleaner/shell/KestalFinderDetailViewControllers.h"
#include "cleaner/shell/KestalPrivacyBottomViewController.h"
#include "cleaner/shell/KestalPrivacyTopDetailRigthOutlineView.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/KestalRightTopShowMessageViewController.h"
#include "cleaner/shell/KestalShredTopDetailViewController.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalUninstallerTopDetailRigthOutlineView.h"

using TopChild = KestalSuperViewController::TopChild;

KestalRightTopTabSwitchController::KestalRightTopTabSwitchController(QWidget *parent)
    : QStackedWidget(parent)
{
    const QList<Module> &modules = AppModuleService::appModules();
    for (int i = 0; i < modules.size(); ++i) {
        if (modules[i].isHeader())
            continue;
        const bool eraser = modules[i].tab == QLatin1String("Eraser");
        QWidget *overView = nullptr;
        QWidget *cleaning = nullptr;
        if (eraser) {
            overView = m_shredList = new KestalShredTopDetailViewController(this);
            cleaning = m_shredCleaning = new KestalEraserCleaningViewAndLogViewController(this);
        } else {
            auto *scan = new KestalRightTopOverViewAndScanViewController(i, this);
            auto *log = new KestalCleaningViewAndLogViewController(i, this);
            log->setListsTakenOnly(i == UninstallService::moduleIndex);
            m_overViews.insert(i, scan);
            m_cleanings.insert(i, log);
            overView = scan;
            cleaning = log;
        }
        auto *message = new KestalRightTopShowMessageViewController(i, this);
        m_messages.insert(i, message);
        KestalDetailViewController *detail =
            i == PrivacyService::moduleIndex
                ? new KestalDetailViewController(i, this,
                                                 new KestalPrivacyTopDetailRigthOutlineView(i))
            : i == UninstallService::moduleIndex
                ? new KestalDetailViewController(i, this,
                                                 new KestalUninstallerTopDetailRigthOutlineView())
            : i == ExtensionsFolderInfo::moduleIndex
                ? new KestalExtensionsTopDetailViewController(this)
                : KestalFinderDetailViewControllers::create(i, this);
        if (!detail)
            detail = new KestalDetailViewController(i, this);
        // Each application is shown by its own picture.
        if (i == UninstallService::moduleIndex)
            detail->categoryModel()->setIsRealImage(true);
        m_details.insert(i, detail);
        // One child of each kind, in the order of the kinds.
        for (int kind = 0; kind < int(TopChild::count); ++kind) {
            QWidget *child = nullptr;
            if (kind == int(TopChild::overviewAndScan))
                child = overView;
            else if (kind == int(TopChild::showMessage))
                child = message;
            else if (kind == int(TopChild::cleaningAndLog))
                child = cleaning;
            else
                child = detail;
            addWidget(child);
        }
    }
}

KestalRightTopOverViewAndScanViewController *
KestalRightTopTabSwitchController::overViewAndScan(int moduleIndex) const
{
    return m_overViews.value(moduleIndex);
}

KestalRightTopShowMessageViewController *
KestalRightTopTabSwitchController::showMessage(int moduleIndex) const
{
    return m_messages.value(moduleIndex);
}

KestalCleaningViewAndLogViewController *
KestalRightTopTabSwitchController::cleaningAndLog(int moduleIndex) const
{
    return m_cleanings.value(moduleIndex);
}

KestalDetailViewController *KestalRightTopTabSwitchController::detail(int moduleIndex) const
{
    return m_details.value(moduleIndex);
}

void KestalRightTopTabSwitchController::swap(const QString &tab, viewStatus status)
{
    const QString key = tab + KestalSuperViewController::viewStatusDict(status).second;
    const auto &children = KestalSuperViewController::tabChildrenDict();
    if (children.contains(key))
        setCurrentIndex(children.value(key));
}

void KestalRightTopTabSwitchController::updateTopMessageViewStatus(viewStatus updateStatus,
                                                                   const QString &updateTab,
                                                                   int moduleIndex)
{
    Q_UNUSED(updateTab);
    const TopChild kind = KestalSuperViewController::topChildOf(updateStatus);
    if (kind == TopChild::showMessage) {
        if (auto *message = showMessage(moduleIndex))
            message->changeViewStatus(updateStatus);
    } else if (kind == TopChild::detail) {
        if (auto *review = detail(moduleIndex))
            review->reloadData();
    } else if (kind == TopChild::cleaningAndLog) {
        if (auto *cleaning = cleaningAndLog(moduleIndex))
            cleaning->changeViewStatus(updateStatus);
    }
}

KestalRightBottomTabSwitchController::KestalRightBottomTabSwitchController(
    KestalRightSplitController *split, QWidget *parent)
    : QStackedWidget(parent)
{
    const QList<Module> &modules = AppModuleService::appModules();
    for (int i = 0; i < modules.size(); ++i) {
        if (modules[i].isHeader())
            continue;
        // Auto Cleanup, module 0, runs the junk modules through a bar of its own.
        if (i == 0)
            addWidget(new KestalAutoCleanupBottomViewController(split, this));
        else if (auto *finder = KestalFinderBottomViewControllers::create(i, split, this))
            addWidget(finder);
        else if (i == PrivacyService::moduleIndex)
            addWidget(new KestalPrivacyBottomViewController(split, this));
        else if (modules[i].tab == QLatin1String("Eraser"))
            addWidget(new KestalEraserBottomController(split, split->topSwitch()->shredList(),
                                                       split->topSwitch()->shredCleaning(), this));
        else
            addWidget(new KestalRightBottomViewController(i, split, this));
    }
}

KestalRightBottomViewController *KestalRightBottomTabSwitchController::bar(const QString &tab) const
{
    const auto &positions = KestalSuperViewController::bottomTabChildrenDict();
    if (!positions.contains(tab))
        return nullptr;
    return qobject_cast<KestalRightBottomViewController *>(widget(positions.value(tab)));
}

KestalRightBottomViewController *
KestalRightBottomTabSwitchController::barOfModule(int moduleIndex) const
{
    const QList<Module> &modules = AppModuleService::appModules();
    if (moduleIndex < 0 || moduleIndex >= modules.size())
        return nullptr;
    return bar(modules.at(moduleIndex).tab);
}

void KestalRightBottomTabSwitchController::updateBootomStatus(viewStatus updateStatus,
                                                              const QString &updateTab)
{
    if (auto *target = bar(updateTab))
        target->changeViewStatus(updateStatus);
}

void KestalRightBottomTabSwitchController::reScanAction(const QString &tab)
{
    if (auto *target = bar(tab))
        target->rescanAction();
}
