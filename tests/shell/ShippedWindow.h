#pragma once

// The main window over the shipped module table, in a world whose home the
// test fills before it opens the window.
#include "ShellTestSupport.h"
#include "TestPaths.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTabSwitchControllers.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "support/TreeBuilder.h"

#include <QMainWindow>
#include <QTreeWidget>

// Where a module's screen stands.
inline KestalSuperViewController::viewStatus stateOf(int module)
{
    return KestalSuperViewController::currentStatus(AppModuleService::appModules().at(module).tab);
}

// The built service, and the built helper started directly with this
// process's rights, or none at `helper`.
inline void useBuiltPrograms(const QByteArray &helper = BRENLOW_TEST_BINARY_DIR
                             "/libexec/brenlow/brenlow-helper")
{
    qputenv("BRENLOW_SERVICE_PATH", BRENLOW_TEST_BINARY_DIR "/libexec/brenlow/brenlow-service");
    qputenv("BRENLOW_HELPER_PATH", helper);
    qputenv("BRENLOW_HELPER_LAUNCHER", "");
}

// The index of a module's category with this title, or -1.
inline int categoryTitled(int module, const QString &title)
{
    const QList<Category> &categories = AppModuleService::categoriesOf(module);
    for (int ci = 0; ci < categories.size(); ++ci) {
        if (categories[ci].title == title)
            return ci;
    }
    return -1;
}

class ShippedWindow {
public:
    explicit ShippedWindow(const QString &profile = QStringLiteral("linux")) : env(profile) {}

    ~ShippedWindow()
    {
        XPCUtil::shutdown();
        KestalModuleCleanService::reset();
        window.reset();
    }

    void open()
    {
        window.reset(KestalRootViewController::instantiateMainWindow());
        root = KestalRootViewController::rootOf(window.get());
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
    }

    KestalRightSplitController *right() const { return root->rightSplit(); }
    KestalRightBottomViewController *bar(int module) const
    {
        return right()->bottomSwitch()->barOfModule(module);
    }

    void clickRow(int row)
    {
        auto *left = root->leftTable();
        QTest::mouseClick(left->viewport(), Qt::LeftButton, {},
                          left->visualItemRect(left->item(row)).center());
    }

    void show(int module)
    {
        clickRow(root->leftTable()->rowOfModule(module));
        QCOMPARE(KestalLeftTableViewController::currentRow, module);
    }

    // Scans the module from its overview; it must find something.
    void scan(int module, int timeoutMs = 20000)
    {
        show(module);
        QTest::mouseClick(bar(module)->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(
            stateOf(module), KestalSuperViewController::viewStatus::scandone_NoEmpty, timeoutMs);
    }

    void openReview(int module)
    {
        QTest::mouseClick(bar(module)->reviewBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(module), KestalSuperViewController::viewStatus::detail);
    }

    // Confirms the review's clean, whose question must end with `question`,
    // and waits for its end.
    void confirmClean(int module, const QString &question, int timeoutMs = 20000)
    {
        auto seen = answerNextMessageBox(QStringLiteral("Confirm"));
        QTest::mouseClick(bar(module)->detailViewBtn(), Qt::LeftButton);
        QVERIFY(seen->shown);
        QVERIFY2(seen->informative.endsWith(question), qPrintable(seen->informative));
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(module), KestalSuperViewController::viewStatus::cleandone,
                                  timeoutMs);
    }

    // Opens the log of a clean done, which must show no failure.
    void openLogWithoutFailures(int module)
    {
        QTest::mouseClick(bar(module)->cleandoneViewBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(module), KestalSuperViewController::viewStatus::showLog);
        QTreeWidget *log = right()->topSwitch()->cleaningAndLog(module)->logTableView();
        QVERIFY(log->isVisible());
        QCOMPARE(log->topLevelItem(0)->text(0), QStringLiteral("Nothing failed."));
    }

    ShellEnvironment env;
    TreeBuilder home{env.home()};
    std::unique_ptr<QMainWindow> window;
    KestalRootViewController *root = nullptr;
};
