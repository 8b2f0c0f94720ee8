#pragma once

// The main window over the shipped module table, in a world whose home the
// test fills before it opens the window.
#include "ShellTestSupport.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTabSwitchControllers.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "support/TreeBuilder.h"

#include <QMainWindow>

// Where a module's screen stands.
inline KestalSuperViewController::viewStatus stateOf(int module)
{
    return KestalSuperViewController::currentStatus(AppModuleService::appModules().at(module).tab);
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

    ShellEnvironment env;
    TreeBuilder home{env.home()};
    std::unique_ptr<QMainWindow> window;
    KestalRootViewController *root = nullptr;
};
