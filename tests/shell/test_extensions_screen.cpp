// The extensions module in the window, from its scan to a row switched off
// and on again by the real helper, with the review's search and sort.
#include "ShippedWindow.h"
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

class ExtensionsScreenTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        isolateUserSettings();
        useBuiltPrograms();
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
        world.scan(module);
        world.openReview(module);
        // Rows are switched, never cleaned.
        QVERIFY(!world.bar(module)->detailViewBtn()->isEnabled());

        auto *review = qobject_cast<KestalExtensionsTopDetailViewController *>(
            world.right()->topSwitch()->detail(module));
        QVERIFY(review && review->isVisible());
        const int shell = categoryTitled(module, "Shell Extensions");
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
