// The extensions module in the window, from its scan to a row switched off
// and on again by the real helper, with the review's search and sort.
#include "ShippedWindow.h"
#include "TestPaths.h"
#include "cleaner/applications/ExtensionsFolderInfo.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalExtensionsTopDetailViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightTabSwitchControllers.h"
#include "support/MadeInHome.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>
#include <unistd.h>

using viewStatus = KestalSuperViewController::viewStatus;

class ExtensionsScreenTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        isolateUserSettings();
        qputenv("BRENLOW_SERVICE_PATH", BRENLOW_TEST_BINARY_DIR "/libexec/brenlow/brenlow-service");
        qputenv("BRENLOW_HELPER_PATH", BRENLOW_TEST_BINARY_DIR "/libexec/brenlow/brenlow-helper");
        qputenv("BRENLOW_HELPER_LAUNCHER", "");
    }

    void scanReviewAndToggle()
    {
        constexpr int module = ExtensionsFolderInfo::moduleIndex;
        ShippedWindow world;
        // The helper moves items in the home of the user who started it:
        // the real one, where a shell extension without metadata loads nowhere.
        qputenv("HOME", QFile::encodeName(TreeBuilder::realHome()));
        TestEnvironment::resetCaches();
        const QString folder = TreeBuilder::realHome() + "/.local/share/gnome-shell/extensions";
        const QString name = QStringLiteral("brenlow-test-%1@brenlow.invalid").arg(getpid());
        MadeInHome made;
        made.makeFolder(folder + "/" + name);
        made.makeFolder(folder + "/" + name + "-b");
        made.items << folder + "/" + name << folder + ".disabled/" + name
                   << folder + "/" + name + "-b";
        made.mayMake(folder + ".disabled");
        for (const QString &extension : QStringList{name, name + "-b"}) {
            QFile note(folder + "/" + extension + "/note");
            QVERIFY(note.open(QIODevice::WriteOnly));
            note.write("no metadata.json: no shell loads this");
        }
        world.open();
        world.show(module);

        KestalRightBottomViewController *bar = world.right()->bottomSwitch()->barOfModule(module);
        QTest::mouseClick(bar->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE(KestalSuperViewController::currentStatus("Extensions"),
                     viewStatus::scandone_NoEmpty);
        QTest::mouseClick(bar->reviewBtn(), Qt::LeftButton);
        QCOMPARE(KestalSuperViewController::currentStatus("Extensions"), viewStatus::detail);
        // Rows are switched, never cleaned.
        QVERIFY(!bar->detailViewBtn()->isEnabled());

        auto *review = qobject_cast<KestalExtensionsTopDetailViewController *>(
            world.right()->topSwitch()->detail(module));
        QVERIFY(review && review->isVisible());
        const QList<Category> &categories = AppModuleService::categoriesOf(module);
        int shell = -1;
        for (int ci = 0; ci < categories.size(); ++ci)
            if (categories[ci].title == QLatin1String("Shell Extensions"))
                shell = ci;
        QVERIFY(shell >= 0);
        review->categoryList()->setCurrentRow(shell);
        QTest::keyClicks(review->findChild<QLineEdit *>("searchField"), "BRENLOW-TEST");
        QTreeWidget *rows = review->extensionList();
        QCOMPARE(rows->topLevelItemCount(), 2);
        review->sortFiles("descending", "name");
        QCOMPARE(rows->topLevelItem(0)->text(0), name + "-b");
        review->sortFiles("ascending", "name");
        QCOMPARE(rows->topLevelItem(0)->text(0), name);
        QCOMPARE(review->statusBtn(0)->text(), QStringLiteral("On"));

        QTest::mouseClick(review->statusBtn(0), Qt::LeftButton);
        QTRY_COMPARE(review->statusBtn(0)->text(), QStringLiteral("Off"));
        QVERIFY(QFileInfo(folder + ".disabled/" + name).isDir());
        QVERIFY(!QFileInfo::exists(folder + "/" + name));
        QCOMPARE(rows->topLevelItem(0)->toolTip(1), folder + ".disabled/" + name);

        QTest::mouseClick(review->statusBtn(0), Qt::LeftButton);
        QTRY_COMPARE(review->statusBtn(0)->text(), QStringLiteral("On"));
        QVERIFY(QFileInfo(folder + "/" + name).isDir());
        QVERIFY(QFileInfo(folder + "/" + name + "-b").isDir());
    }
};

QTEST_MAIN(ExtensionsScreenTest)
#include "test_extensions_screen.moc"
