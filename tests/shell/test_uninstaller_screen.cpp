// The uninstaller in the real window, offscreen, from its scan through the
// review of applications and their leftovers, the confirmation and the
// clean, to the log, over a home the test builds: what was ticked goes, the
// rest stays, whatever shares its name or its folder.

#include "ReviewClicks.h"
#include "ShippedWindow.h"
#include "cleaner/applications/KestalUninstallService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/UninstallService.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightTabSwitchControllers.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalUninstallerTopDetailRigthOutlineView.h"

#include <QTreeView>
#include <QTreeWidget>
#include <unistd.h>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int uninstaller = UninstallService::moduleIndex;

QString sizeText(qint64 bytes)
{
    return KestalSuperViewController::byteString(bytes);
}

} // namespace

class UninstallerScreenTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        isolateUserSettings();
        KestalUninstallService::registerWithScanDriver();
        useBuiltPrograms();
    }

    // Tool goes whole; Editor goes but for one leftover left unticked. Its
    // folder goes as the one item the scan listed; the library folders that
    // hold the leftovers, and what else they hold, stay.
    void scanReviewCleanAndLog()
    {
        ShippedWindow world;
        TreeBuilder &home = world.home;
        const QString tool = home.file("Applications/Tool-1.2.AppImage", 3000);
        const QString toolEntry = home.file(".local/share/applications/tool.desktop");
        QFile entry(toolEntry);
        QVERIFY(entry.open(QIODevice::WriteOnly));
        // Tool's entry names its picture by path: the list shows it.
        const QString toolIcon = home.path(".local/share/icons/tool.png");
        QDir().mkpath(QFileInfo(toolIcon).path());
        QImage picture(32, 32, QImage::Format_RGB32);
        picture.fill(QColor(200, 30, 40));
        QVERIFY(picture.save(toolIcon));
        entry.write("[Desktop Entry]\nName=Tool\nExec=" + QFile::encodeName(tool) +
                    "\nIcon=" + QFile::encodeName(toolIcon) + "\n");
        entry.close();
        const QString toolConfig = home.folder(".config/tool");
        home.file(".config/tool/settings.json", 200);
        const QString toolCache = home.folder(".cache/tool");
        home.file(".cache/tool/cache.bin", 5000);
        const QString editor = home.folder("Applications/Editor");
        // A file in Editor that neither this process nor the helper can
        // remove (as root: immutable): Editor's folder stays, and the log says so.
        const QString locked = home.file("Applications/Editor/bin/editor", 2000);
        const bool isLocked = TreeBuilder::setImmutable(QFile::encodeName(locked), true);
        const auto unlock =
            qScopeGuard([&] { TreeBuilder::setImmutable(QFile::encodeName(locked), false); });
        QVERIFY(isLocked || geteuid() != 0);
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
        KestalRightBottomViewController *bar = world.bar(uninstaller);
        world.scan(uninstaller, 30000);
        world.openReview(uninstaller);
        KestalDetailViewController *review = world.right()->topSwitch()->detail(uninstaller);
        QVERIFY(review->isVisible());
        KestalTopDetailLeftTableView *apps = review->categoryModel();
        QStringList titles = namesOf(review->leftCategoryTableView());
        titles.sort();
        QCOMPARE(titles, QStringList({"Editor", "Tool", "Viewer"}));
        const QModelIndex toolRow = rowNamed(review->leftCategoryTableView(), "Tool");
        const QModelIndex editorRow = rowNamed(review->leftCategoryTableView(), "Editor");
        const auto centre = [](const QModelIndex &row) {
            return row.data(Qt::DecorationRole)
                .value<QIcon>()
                .pixmap(16, 16)
                .toImage()
                .pixelColor(8, 8);
        };
        QCOMPARE(centre(toolRow), QColor(200, 30, 40));
        QVERIFY(centre(editorRow) != QColor(200, 30, 40));
        // Each application lists its own item and its leftovers, with their sizes.
        review->leftCategoryTableView()->setCurrentIndex(toolRow);
        KestalTopDetailRigthOutlineView *files = review->fileModel();
        QCOMPARE(files->rowCount(), 4);
        for (const QString &path : {tool, toolEntry, toolConfig, toolCache})
            QVERIFY2(rowOfPath(files, path).isValid(), qPrintable(path));
        const QModelIndex cache = rowOfPath(files, toolCache);
        QCOMPARE(cache.data().toString(), QString("tool  \u2014  ~/.cache"));
        QVERIFY(files->fileAt(cache)->size >= 5000); // the folder's whole content
        QVERIFY(rowOfPath(files, tool).data(Qt::FontRole).value<QFont>().bold());
        QVERIFY(!cache.data(Qt::FontRole).value<QFont>().bold());

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

        world.confirmClean(uninstaller, "To be removed: 6 items, " + sizeText(chosen), 30000);
        for (const QString &gone : {tool, toolEntry, toolConfig, toolCache, editorConfig})
            QVERIFY2(!QFileInfo::exists(gone), qPrintable(gone));
        QCOMPARE(QFileInfo::exists(editor), isLocked);
        for (const QString &path : stays)
            QVERIFY2(QFileInfo::exists(path), qPrintable(path));
        // What went counts; a folder that stayed does not.
        const qint64 editorWent = isLocked ? 70 : chosen - toolApp.size;
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(uninstaller),
                 std::make_pair(toolApp.size + editorWent, isLocked ? 5 : 6));

        // The run's rows name the applications that went, with their sizes, and no other.
        KestalCleaningViewAndLogViewController *log =
            world.right()->topSwitch()->cleaningAndLog(uninstaller);
        QTreeWidget *run = log->findChild<QTreeWidget *>("cleanningTableView");
        QStringList rows;
        for (int i = 0; i < run->topLevelItemCount(); ++i)
            rows << run->topLevelItem(i)->text(0) + " " + run->topLevelItem(i)->text(1);
        rows.sort();
        QCOMPARE(rows, QStringList({QString(isLocked ? "Editor  Failed " : "Editor ") +
                                        sizeText(editorWent),
                                    "Tool " + sizeText(toolApp.size)}));
        QTest::mouseClick(bar->cleandoneViewBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(uninstaller), viewStatus::showLog);
        QTreeWidget *failures = log->logTableView();
        if (isLocked) {
            QCOMPARE(failures->topLevelItemCount(), 2);
            QCOMPARE(failures->topLevelItem(0)->text(0), QString("Editor"));
            QCOMPARE(failures->topLevelItem(1)->toolTip(0), editor);
            QCOMPARE(failures->topLevelItem(1)->text(1), QString("delete fail"));
        } else {
            QCOMPARE(failures->topLevelItem(0)->text(0), QString("Nothing failed."));
        }

        // A new scan finds what was left alone, and nothing of what went.
        QTest::mouseClick(bar->showLogViewBtn(), Qt::LeftButton);
        QTest::mouseClick(bar->rescanBtn(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(uninstaller), viewStatus::scandone_NoEmpty, 30000);
        world.openReview(uninstaller);
        QStringList after = namesOf(review->leftCategoryTableView());
        after.sort();
        QCOMPARE(after, isLocked ? QStringList({"Editor", "Viewer"}) : QStringList("Viewer"));
    }
};

QTEST_MAIN(UninstallerScreenTest)
#include "test_uninstaller_screen.moc"
