// The uninstaller in the real window, offscreen, from its scan through the
// review of applications and their leftovers, the confirmation and the
// clean, to the log, over a home the test builds: what was ticked goes, the
// rest stays, whatever shares its name or its folder.

#include "ReviewClicks.h"
#include "ShippedWindow.h"
#include "TestPaths.h"
#include "cleaner/applications/KestalUninstallService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/UninstallService.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightTabSwitchControllers.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalUninstallerTopDetailRigthOutlineView.h"

#include <QLabel>
#include <QTreeView>
#include <QTreeWidget>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int uninstaller = UninstallService::moduleIndex;

void writeEntry(const QString &path, const QString &name, const QString &exec)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile entry(path);
    QVERIFY(entry.open(QIODevice::WriteOnly));
    entry.write("[Desktop Entry]\nType=Application\nName=" + name.toUtf8() +
                "\nExec=" + QFile::encodeName(exec) + " %U\n");
}

// The row of the right pane that shows this path.
QModelIndex rowOfPath(KestalTopDetailRigthOutlineView *files, const QString &path)
{
    for (int row = 0; row < files->rowCount(); ++row) {
        const QModelIndex index = files->index(row, 0);
        const FolderInfoPtr file = files->fileAt(index);
        if (file && file->url.toLocalFile() == path)
            return index;
    }
    return {};
}

} // namespace

class UninstallerScreenTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        isolateUserSettings();
        KestalUninstallService::registerWithScanDriver();
        qputenv("BRENLOW_SERVICE_PATH", BRENLOW_TEST_BINARY_DIR "/libexec/brenlow/brenlow-service");
        qputenv("BRENLOW_HELPER_PATH", BRENLOW_TEST_BINARY_DIR "/libexec/brenlow/brenlow-helper");
        qputenv("BRENLOW_HELPER_LAUNCHER", "");
    }

    // Tool goes whole; Editor goes but for one leftover left unticked. Its
    // folder goes as the one item the scan listed; the library folders that
    // hold the leftovers, and what else they hold, stay.
    void scanReviewCleanAndLog()
    {
        ShippedWindow world;
        TreeBuilder &home = world.home;
        const QString tool = home.file("Applications/Tool-1.2.AppImage", 3000);
        const QString toolEntry = home.path(".local/share/applications/tool.desktop");
        writeEntry(toolEntry, "Tool", tool);
        const QString toolConfig = home.folder(".config/tool");
        home.file(".config/tool/settings.json", 200);
        const QString toolCache = home.folder(".cache/tool");
        home.file(".cache/tool/cache.bin", 5000);
        const QString editor = home.folder("Applications/Editor");
        home.file("Applications/Editor/bin/editor", 2000);
        const QString editorConfig = home.file(".config/Editor", 70);
        const QString editorData = home.file(".local/share/editor/notes.db", 900);
        // An application nothing of which is ticked: neither removed nor in the run's rows.
        const QString viewer = home.file("Applications/Viewer.AppImage", 400);
        const QStringList stays{viewer,
                                home.file(".config/viewer/v.ini", 10),
                                home.file("Applications/readme.txt", 10),
                                home.file(".config/other/x", 10),
                                editorData,
                                home.file(".cache/toolbox/y", 10)};

        world.open();
        world.show(uninstaller);
        KestalRightBottomViewController *bar =
            world.right()->bottomSwitch()->barOfModule(uninstaller);
        QVERIFY(bar->overViewScanBtn()->isEnabled());
        QTest::mouseClick(bar->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(KestalSuperViewController::currentStatus("Uninstaller"),
                                  viewStatus::scandone_NoEmpty, 30000);
        QTest::mouseClick(bar->reviewBtn(), Qt::LeftButton);
        QCOMPARE(KestalSuperViewController::currentStatus("Uninstaller"), viewStatus::detail);

        KestalDetailViewController *review = world.right()->topSwitch()->detail(uninstaller);
        QVERIFY(review->isVisible());
        KestalTopDetailLeftTableView *apps = review->categoryModel();
        QStringList titles = namesOf(review->leftCategoryTableView());
        titles.sort();
        QCOMPARE(titles, QStringList({"Editor", "Tool", "Viewer"}));
        const QModelIndex toolRow = rowNamed(review->leftCategoryTableView(), "Tool");
        const QModelIndex editorRow = rowNamed(review->leftCategoryTableView(), "Editor");
        // Each application lists its own item and its leftovers, with their sizes.
        review->leftCategoryTableView()->setCurrentIndex(toolRow);
        KestalTopDetailRigthOutlineView *files = review->fileModel();
        QCOMPARE(files->rowCount(), 4);
        for (const QString &path : {tool, toolEntry, toolConfig, toolCache})
            QVERIFY2(rowOfPath(files, path).isValid(), qPrintable(path));
        const QModelIndex cache = rowOfPath(files, toolCache);
        QCOMPARE(cache.data().toString(), QString("tool  \u2014  ~/.cache"));
        const qint64 cacheSize = review->fileModel()->fileAt(cache)->size;
        QVERIFY(cacheSize >= 5000); // the folder's whole content
        QCOMPARE(cache.siblingAtColumn(KestalTopDetailRigthOutlineView::sizeColumn).data(),
                 QVariant(KestalSuperViewController::byteString(cacheSize)));
        QVERIFY(rowOfPath(files, tool).data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(!cache.data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(
            cache.data(Qt::ToolTipRole).toString().startsWith("Left behind by the application"));

        // Tool whole from its box on the left; Editor whole, then one leftover out.
        clickCheckBox(review->leftCategoryTableView(), toolRow);
        clickCheckBox(review->leftCategoryTableView(), editorRow);
        review->leftCategoryTableView()->setCurrentIndex(editorRow);
        QCOMPARE(files->rowCount(), 3);
        clickCheckBox(review->rightOutlineView(), rowOfPath(files, QFileInfo(editorData).path()));
        QCOMPARE(editorRow.data(Qt::CheckStateRole).toInt(), int(Qt::PartiallyChecked));
        const Category toolApp =
            AppModuleService::categoriesOf(uninstaller).at(apps->categoryAt(toolRow.row()));
        const Category editorApp =
            AppModuleService::categoriesOf(uninstaller).at(apps->categoryAt(editorRow.row()));
        qint64 chosen = toolApp.size;
        for (const FolderInfoPtr &f : editorApp.files)
            chosen += f->checked == 1 ? f->size : 0;
        QCOMPARE(bar->statusTextField()->text(),
                 "Selected: " + KestalSuperViewController::byteString(chosen));

        auto question = answerNextMessageBox("Confirm");
        QTest::mouseClick(bar->detailViewBtn(), Qt::LeftButton);
        QVERIFY(question->shown);
        QVERIFY2(question->informative.endsWith("To be removed: 6 items, " +
                                                KestalSuperViewController::byteString(chosen)),
                 qPrintable(question->informative));
        QTRY_COMPARE_WITH_TIMEOUT(KestalSuperViewController::currentStatus("Uninstaller"),
                                  viewStatus::cleandone, 30000);
        for (const QString &gone : {tool, toolEntry, toolConfig, toolCache, editor, editorConfig})
            QVERIFY2(!QFileInfo::exists(gone), qPrintable(gone));
        for (const QString &path : stays)
            QVERIFY2(QFileInfo::exists(path), qPrintable(path));
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(uninstaller),
                 std::make_pair(chosen, 6));

        // The run's rows name the applications that went, with their sizes, and no other.
        KestalCleaningViewAndLogViewController *log =
            world.right()->topSwitch()->cleaningAndLog(uninstaller);
        QTreeWidget *run = log->findChild<QTreeWidget *>("cleanningTableView");
        QStringList rows;
        for (int i = 0; i < run->topLevelItemCount(); ++i)
            rows << run->topLevelItem(i)->text(0) + " " + run->topLevelItem(i)->text(1);
        rows.sort();
        QCOMPARE(
            rows,
            QStringList({"Editor " + KestalSuperViewController::byteString(chosen - toolApp.size),
                         "Tool " + KestalSuperViewController::byteString(toolApp.size)}));
        QTest::mouseClick(bar->cleandoneViewBtn(), Qt::LeftButton);
        QCOMPARE(KestalSuperViewController::currentStatus("Uninstaller"), viewStatus::showLog);
        QCOMPARE(log->logTableView()->topLevelItem(0)->text(0), QString("Nothing failed."));

        // The module's table lists only what stayed; a new scan finds the
        // application that was left alone, and none of those that went.
        QVERIFY(AppModuleService::categoriesOf(uninstaller)
                    .at(apps->categoryAt(toolRow.row()))
                    .files.isEmpty());
        const QList<FolderInfoPtr> left =
            AppModuleService::categoriesOf(uninstaller).at(apps->categoryAt(editorRow.row())).files;
        QCOMPARE(left.size(), 1);
        QCOMPARE(left.first()->url.toLocalFile(), QFileInfo(editorData).path());
        QTest::mouseClick(bar->showLogViewBtn(), Qt::LeftButton);
        QTest::mouseClick(bar->rescanBtn(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(KestalSuperViewController::currentStatus("Uninstaller"),
                                  viewStatus::scandone_NoEmpty, 30000);
        QTest::mouseClick(bar->reviewBtn(), Qt::LeftButton);
        QCOMPARE(namesOf(review->leftCategoryTableView()), QStringList("Viewer"));
    }
};

QTEST_MAIN(UninstallerScreenTest)
#include "test_uninstaller_screen.moc"
