// The Eraser's list, bar and log over the real helper, and the
// decompression window, in the real main window offscreen.

#include "ShippedWindow.h"
#include "TestPaths.h"
#include "cleaner/clean/CleanResults.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/erasure/ShredService.h"
#include "cleaner/shell/DeconpressViewController.h"
#include "cleaner/shell/KestalEraserBottomController.h"
#include "cleaner/shell/KestalEraserCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalRightTabSwitchControllers.h"
#include "cleaner/shell/KestalShredTopDetailViewController.h"
#include "cleaner/shell/KestalWarnningAndErrorViewController.h"
#include "cleaner/shell/OpenFilesChannel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

const QString rarData = QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/../shared/testdata/rar/");

QStringList rowsOf(const QTreeWidget *table, int column = 0)
{
    QStringList rows;
    for (int i = 0; i < table->topLevelItemCount(); ++i)
        rows.append(table->topLevelItem(i)->text(column));
    return rows;
}

} // namespace

class EraserScreensTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        isolateUserSettings();
        useBuiltPrograms();
    }

    // Add, refuse, cut, sort, select all, shred, look at the log, go back.
    void eraserList()
    {
        ShippedWindow world;
        world.env.useShippedResources();
        ShredService::reset();
        world.open();
        world.show(ShredService::moduleIndex);
        auto *list = world.right()->topSwitch()->shredList();
        auto *bar = qobject_cast<KestalEraserBottomController *>(
            world.right()->bottomSwitch()->currentWidget());
        QVERIFY(bar);
        QCOMPARE(world.right()->topSwitch()->currentWidget(), list);
        QVERIFY(!bar->cleanButton()->isEnabled());

        TreeBuilder tree;
        const QString longName = QString(50, QLatin1Char('b')) + QStringLiteral(".txt");
        tree.file(QStringLiteral("a.txt"), 1000);
        tree.file(longName, 2000);
        const QString link = tree.symlink(QStringLiteral("c-link"), tree.path("a.txt"));
        list->addPaths({tree.path("a.txt"), tree.path(longName), link, tree.path("a.txt")});
        auto *warning = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        QVERIFY(warning);
        QCOMPARE(KestalWarnningAndErrorViewController::desc,
                 getLocalizedString(QStringLiteral("shred_sameFile_text")));
        warning->close();
        QCOMPARE(rowsOf(list->tableView()),
                 QStringList({"a.txt", longName.left(40) + "...", "c-link"}));
        list->sortBy(1);
        QCOMPARE(rowsOf(list->tableView()).first(), QStringLiteral("c-link"));
        list->selectAll(false);
        QVERIFY(!bar->cleanButton()->isEnabled());
        QCOMPARE(list->selectAllBox()->checkState(), Qt::Unchecked);
        list->tableView()->topLevelItem(0)->setCheckState(0, Qt::Checked); // c-link
        QCOMPARE(list->selectAllBox()->checkState(), Qt::PartiallyChecked);
        list->selectAll(true);
        QVERIFY(bar->cleanButton()->isEnabled());

        const auto answer = answerNextMessageBox(getLocalizedString(QStringLiteral("Confirm")));
        QTest::mouseClick(bar->cleanButton(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(bar->status(), viewStatus::cleandone, 30000);
        QVERIFY(answer->shown);
        QVERIFY(!QFileInfo::exists(tree.path("a.txt")) && !QFileInfo::exists(tree.path(longName)));
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(bar->logButton()->isEnabled());

        QTest::mouseClick(bar->logButton(), Qt::LeftButton);
        auto *log = world.right()->topSwitch()->shredCleaning();
        QCOMPARE(world.right()->topSwitch()->currentWidget(), log);
        QCOMPARE(rowsOf(log->tableView(), 1), QStringList{cleanFailureReason(5)});
        QTest::mouseClick(bar->backButton(), Qt::LeftButton);
        QCOMPARE(bar->status(), viewStatus::overview);
        QCOMPARE(rowsOf(list->tableView()), QStringList{"c-link"});
    }

    // A rar unpacks beside itself and the window closes; a protected one asks
    // for the password first, and a wrong one ends in "Compress Failed".
    void decompressionWindow()
    {
        ShellEnvironment env;
        TreeBuilder tree;
        QVERIFY(QFile::copy(rarData + "test_read_format_rar5_stored.rar", tree.path("s.rar")));
        QVERIFY(
            QFile::copy(rarData + "test_read_format_rar_encryption_data.rar", tree.path("e.rar")));
        tree.folder(QStringLiteral("s"));

        DeconpressViewController::openFiles({tree.path("s.rar")});
        auto *window = DeconpressViewController::shared();
        QTRY_VERIFY_WITH_TIMEOUT(!window->isVisible(), 20000);
        QVERIFY(QFileInfo::exists(tree.path("s 1/helloworld.txt")));

        DeconpressViewController::openFiles({tree.path("e.rar")});
        QTRY_VERIFY(window->isVisible());
        QVERIFY(window->isPassword());
        QCOMPARE(window->titleLabel()->text(),
                 getLocalizedString(QStringLiteral("Enter Password :")));
        const auto failed = answerNextMessageBox(getLocalizedString(QStringLiteral("Confirm")));
        window->passwordField()->setText(QStringLiteral("wrong"));
        QTest::mouseClick(window->doneButton(), Qt::LeftButton);
        QVERIFY(!window->isPassword());
        QTRY_VERIFY_WITH_TIMEOUT(failed->shown, 20000);
        QCOMPARE(failed->title, getLocalizedString(QStringLiteral("Compress Failed")));
        QTRY_VERIFY(!window->isVisible());
        QVERIFY(!DeconpressViewController::decompressionFiles);
    }

    // A second launch's archives reach the running program.
    void secondLaunchHandsOver()
    {
        QStringList received;
        OpenFilesChannel channel([&received](const QStringList &paths) { received = paths; });
        QVERIFY(channel.listening());
        const QStringList paths = {QStringLiteral("/x/one.rar"), QStringLiteral("/y/two words.7z")};
        QVERIFY(OpenFilesChannel::handOff(paths));
        QTRY_COMPARE(received, paths);
    }
};

QTEST_MAIN(EraserScreensTest)
#include "test_eraser_screens.moc"
