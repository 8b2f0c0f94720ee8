#include "ShellTestSupport.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/KestalRightTopShowMessageViewController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "support/TreeBuilder.h"

#include <QLabel>
#include <QMainWindow>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

// Three modules and a heading: one without a scan yet, one whose roots hold
// files, and, after the heading, one whose root is empty.
void writeTable(ShellEnvironment &env, TreeBuilder &tree)
{
    tree.file("junk/a.cache", 3000);
    tree.file("junk/deep/b.cache", 5000);
    tree.file("more/c.log", 2000);
    tree.folder("empty");
    // Roots are system paths, which live under the test's root.
    const auto root = [](const QString &rel) -> QString { return "file:///" + rel + "/"; };
    QVariantMap later = TestEnvironment::moduleRow("Later", {}, "Later");
    later.remove("categories");
    QVariantMap heading = TestEnvironment::moduleRow("Tools", {}, "Header");
    heading.remove("categories");
    heading.insert("listBefore", 2);
    env.writeModules(QVariantList{
        later,
        TestEnvironment::moduleRow("Found",
                                   {TestEnvironment::categoryRow("Caches", root("junk"), {}, 1),
                                    TestEnvironment::categoryRow("Logs", root("more"), {}, 1)},
                                   "Found"),
        TestEnvironment::moduleRow(
            "Empty", {TestEnvironment::categoryRow("Nothing", root("empty"))}, "Empty"),
        heading});
    ShellEnvironment::resetShell();
}

} // namespace

class MainWindowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShellEnvironment> m_env;
    std::unique_ptr<TreeBuilder> m_tree;
    std::unique_ptr<QMainWindow> m_window;
    KestalRootViewController *m_root = nullptr;

    KestalLeftTableViewController *left() const { return m_root->leftTable(); }
    KestalRightSplitController *right() const { return m_root->rightSplit(); }

    void clickRow(int row)
    {
        const QRect rect = left()->visualItemRect(left()->item(row));
        QTest::mouseClick(left()->viewport(), Qt::LeftButton, {}, rect.center());
    }

    QWidget *topOnScreen() const { return right()->topSwitch()->currentWidget(); }
    QWidget *barOnScreen() const { return right()->bottomSwitch()->currentWidget(); }

private slots:
    void initTestCase() { isolateUserSettings(); }

    void init()
    {
        m_env = std::make_unique<ShellEnvironment>();
        m_tree = std::make_unique<TreeBuilder>(m_env->root());
        writeTable(*m_env, *m_tree);
        m_window.reset(KestalRootViewController::instantiateMainWindow());
        m_root = KestalRootViewController::rootOf(m_window.get());
        m_window->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    }

    void cleanup()
    {
        m_window.reset();
        m_tree.reset();
        m_env.reset();
    }

    void leftListOrderAndHeadings()
    {
        QCOMPARE(left()->count(), 4);
        QCOMPARE(left()->moduleOfRow(2), 3); // the heading
        QVERIFY(left()->isHeaderRow(2));
        QCOMPARE(left()->item(2)->flags(), Qt::NoItemFlags);
        QCOMPARE(left()->item(2)->text(), QString("Tools"));
        QCOMPARE(KestalLeftTableViewController::currentRow, 0);

        // A click on the heading changes nothing.
        clickRow(2);
        QCOMPARE(KestalLeftTableViewController::currentRow, 0);
        QCOMPARE(topOnScreen(), right()->topSwitch()->overViewAndScan(0));

        // The keyboard passes over it.
        clickRow(1);
        QCOMPARE(KestalLeftTableViewController::currentRow, 1);
        QTest::keyClick(left(), Qt::Key_Down);
        QCOMPARE(KestalLeftTableViewController::currentRow, 2);
        QCOMPARE(left()->QListWidget::currentRow(), 3);
    }

    void choosingAModuleSwapsTheRightSide()
    {
        for (int row : {3, 1, 0}) {
            const int module = left()->moduleOfRow(row);
            clickRow(row);
            QCOMPARE(KestalLeftTableViewController::currentRow, module);
            auto *overview = right()->topSwitch()->overViewAndScan(module);
            QCOMPARE(topOnScreen(), overview);
            QCOMPARE(barOnScreen(), right()->bottomSwitch()->barOfModule(module));
            QCOMPARE(overview->titleLabel()->text(),
                     AppModuleService::appModules().at(module).title);
            QVERIFY(overview->isVisible());
        }
        // A module without a scan offers none yet.
        QVERIFY(!right()->bottomSwitch()->barOfModule(0)->overViewScanBtn()->isEnabled());
        QVERIFY(right()->bottomSwitch()->barOfModule(1)->overViewScanBtn()->isEnabled());
    }

    // A scan goes on while its module is off screen, and only its state and
    // its row change; coming back shows the result.
    void scanRunsOffScreenAndShowsItsResultOnReturn()
    {
        auto *found = right()->bottomSwitch()->barOfModule(1);
        auto *empty = right()->bottomSwitch()->barOfModule(2);
        clickRow(1);
        QTest::mouseClick(found->overViewScanBtn(), Qt::LeftButton);
        QCOMPARE(KestalSuperViewController::currentStatus("Found"), viewStatus::scanning);
        QCOMPARE(found->status(), viewStatus::scanning);
        QVERIFY(!found->overViewScanBtn()->isVisible());

        clickRow(3);
        QTest::mouseClick(empty->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE(KestalSuperViewController::currentStatus("Empty"), viewStatus::scandone_Empty);
        QTRY_COMPARE(KestalSuperViewController::currentStatus("Found"),
                     viewStatus::scandone_NoEmpty);

        // The module that finished off screen changed only its row.
        QCOMPARE(topOnScreen(), right()->topSwitch()->showMessage(2));
        QCOMPARE(left()->detailOfModule(1),
                 KestalSuperViewController::byteString(CategoryTotals::instanceTotalSize(1)));
        QCOMPARE(left()->detailOfModule(2), QString());

        auto *emptyMessage = right()->topSwitch()->showMessage(2);
        QCOMPARE(topOnScreen(), emptyMessage);
        QCOMPARE(emptyMessage->titleLabel()->text(), QString("Nothing to Clean"));
        QVERIFY(empty->rescanBtn()->isVisible());

        clickRow(1);
        const qint64 size = CategoryTotals::instanceTotalSize(1);
        QVERIFY(size >= 10000);
        auto *message = right()->topSwitch()->showMessage(1);
        QCOMPARE(topOnScreen(), message);
        QCOMPARE(message->titleLabel()->text(), QString("Scan Done"));
        QCOMPARE(message->messageLabel()->text(),
                 "Found " + KestalSuperViewController::byteString(size));
        QCOMPARE(found->statusTextField()->text(), message->messageLabel()->text());

        // Re-scan runs the module again from its overview page.
        QTest::mouseClick(found->rescanBtn(), Qt::LeftButton);
        QCOMPARE(found->status(), viewStatus::scanning);
        QTRY_COMPARE(KestalSuperViewController::currentStatus("Found"),
                     viewStatus::scandone_NoEmpty);
        QCOMPARE(CategoryTotals::instanceTotalSize(1), size);
    }

    // Auto Cleanup's Scan runs its five junk modules and shows what they found together.
    void autoCleanupScansTheJunkModules()
    {
        m_window.reset();
        m_env->useShippedResources();
        TestEnvironment::resetCaches();
        ShellEnvironment::resetShell();
        TreeBuilder home(m_env->home());
        home.file(".cache/someapp/blob.bin", 40000);
        home.file(".local/share/Trash/files/old.txt", 6000);
        home.file(".local/share/Trash/info/old.txt.trashinfo", 60);
        m_window.reset(KestalRootViewController::instantiateMainWindow());
        m_root = KestalRootViewController::rootOf(m_window.get());
        m_window->show();

        auto *bar = right()->bottomSwitch()->barOfModule(0);
        QTest::mouseClick(bar->overViewScanBtn(), Qt::LeftButton);
        QCOMPARE(bar->status(), viewStatus::scanning);
        QTRY_COMPARE_WITH_TIMEOUT(KestalSuperViewController::currentStatus("AutoCleanup"),
                                  viewStatus::scandone_NoEmpty, 20000);
        for (int child = 1; child <= 5; ++child)
            QCOMPARE(KestalService::scanStatus().value(child), -1);
        QVERIFY(CategoryTotals::instanceTotalSize(0) >= 46000);
        QCOMPARE(topOnScreen(), right()->topSwitch()->showMessage(0));
    }
};

QTEST_MAIN(MainWindowTest)
#include "test_main_window.moc"
