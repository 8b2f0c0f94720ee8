// The real main window, offscreen, driving the two finders from the folder
// chooser and the scan through the review, a selection, the clean and the
// log, over trees the test builds: what was ticked goes, the rest stays.

#include "FinderTestSupport.h"
#include "ReviewClicks.h"
#include "ShippedWindow.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/finders/FinderScans.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/ElidedLabel.h"
#include "cleaner/shell/KestalDuplicateConfigurationWindowController.h"
#include "cleaner/shell/KestalFinderBottomViewControllers.h"
#include "cleaner/shell/KestalFinderDetailViewControllers.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
#include "cleaner/shell/KestalWarnningAndErrorViewController.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTreeView>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int duplicates = 6;
constexpr int largeAndOld = 7;
constexpr qint64 KiB = 1024;
constexpr qint64 MiB = 1024 * KiB;

// A file of `size` bytes of one value, so that equal values make copies.
void writeFile(const QString &path, qint64 size, char fill)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(f.write(QByteArray(size, fill)), size);
}

// A sparse file of `size` bytes last changed at `modified`.
void writeSparse(const QString &path, qint64 size, const QDateTime &modified)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    QVERIFY(f.open(QIODevice::ReadWrite | QIODevice::Truncate));
    QVERIFY(f.resize(size));
    QVERIFY(f.setFileTime(modified, QFileDevice::FileModificationTime));
}

bool listed(int module, const QString &path)
{
    for (const Category &c : AppModuleService::categoriesOf(module)) {
        for (const FolderInfoPtr &f : c.files) {
            if (f->url.toLocalFile() == path)
                return true;
        }
    }
    return false;
}

} // namespace

class FinderScreensTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShippedWindow> m_world;

    KestalRightSplitController *right() const { return m_world->right(); }
    KestalRightBottomViewController *bar(int module) const { return m_world->bar(module); }
    KestalDetailViewController *review(int module) const
    {
        return right()->topSwitch()->detail(module);
    }
    QString home(const QString &relative) const { return m_world->home.path(relative); }

private slots:
    void initTestCase() { prepareFinderScreens(); }

    void init()
    {
        m_world = std::make_unique<ShippedWindow>();
        m_world->open();
    }

    void cleanup() { m_world.reset(); }

    // The folder chosen on the bar is the one searched; the review sorts the
    // groups by kind, an empty kind shows its placeholder row, and the copy
    // ticked is the only file the clean takes.
    void duplicatesFromChooserToLog()
    {
        writeFile(home("Pictures/set/a.png"), 600 * KiB, 'x');
        writeFile(home("Pictures/set/copy/a.png"), 600 * KiB, 'x');
        writeFile(home("Pictures/set/unlike.png"), 600 * KiB, 'y'); // same size, other bytes
        writeFile(home("Pictures/clip.mp4"), 700 * KiB, 'v');
        writeFile(home("Pictures/old/clip.mp4"), 700 * KiB, 'v');
        writeFile(home("Pictures/small/s1.txt"), 512 * KiB, 's'); // at the limit: skipped
        writeFile(home("Pictures/small/s2.txt"), 512 * KiB, 's');
        writeFile(home("Downloads/d1.bin"), 600 * KiB, 'd'); // outside the chosen folder
        writeFile(home("Downloads/d2.bin"), 600 * KiB, 'd');

        m_world->show(duplicates);
        auto *dupBar = qobject_cast<KestalDuplicateBottomViewController *>(bar(duplicates));
        QVERIFY(dupBar);
        QVERIFY(dupBar->overViewScanBtn()->isEnabled());
        QVERIFY(dupBar->scanPathTextField()->fullText().endsWith("/Downloads"));
        // A folder without copies: the empty result, where another may be chosen.
        writeFile(home("Empty/only.bin"), 600 * KiB, 'o');
        answerNextFolderDialog(home("Empty"));
        QTest::mouseClick(dupBar->choosePathBtn(), Qt::LeftButton);
        QCOMPARE(DuplicateService::path(), home("Empty"));
        QTest::mouseClick(dupBar->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE(stateOf(duplicates), viewStatus::scandone_Empty);
        QVERIFY(dupBar->choosePathBtn()->isVisible());

        answerNextFolderDialog(home("Pictures"));
        QTest::mouseClick(dupBar->choosePathBtn(), Qt::LeftButton);
        QCOMPARE(dupBar->scanPathTextField()->fullText(), "Folder: " + home("Pictures"));
        QTest::mouseClick(dupBar->rescanBtn(), Qt::LeftButton);
        QTRY_COMPARE(stateOf(duplicates), viewStatus::scandone_NoEmpty);
        QVERIFY(!dupBar->choosePathBtn()->isVisible());
        m_world->openReview(duplicates);
        QCOMPARE(AppModuleService::categoriesOf(duplicates).size(), 2);

        auto *byKind = qobject_cast<KestalDuplicateTopDetailViewController *>(review(duplicates));
        QVERIFY(byKind);
        QComboBox *kinds = byKind->popUpKindButton();
        QTRY_COMPARE(kinds->currentText(), QString("All (2)"));
        QStringList entries;
        for (int i = 0; i < kinds->count(); ++i)
            entries << kinds->itemText(i);
        QCOMPARE(entries, QStringList({"All (2)", "Videos (1)", "Music (0)", "Images (1)",
                                       "Documents (0)", "Others (0)"}));

        // An empty kind: the placeholder category, whose one row has no box.
        kinds->setCurrentIndex(kinds->findData(int(DuplicateService::duplicateKind::music)));
        QCOMPARE(namesOf(byKind->leftCategoryTableView()), QStringList("No File"));
        QCOMPARE(namesOf(byKind->rightOutlineView()), QStringList("Not the same file"));
        const QModelIndex placeholder = byKind->fileModel()->index(0, 0);
        QVERIFY(!(byKind->fileModel()->flags(placeholder) & Qt::ItemIsUserCheckable));
        QVERIFY(!(byKind->categoryModel()->flags(byKind->categoryModel()->index(0, 0)) &
                  Qt::ItemIsUserCheckable));
        QVERIFY(!byKind->updateAllDetailBtn()->isEnabled());
        QVERIFY(!byKind->updateAllCategoryBtn()->isEnabled());

        kinds->setCurrentIndex(kinds->findData(int(DuplicateService::duplicateKind::image)));
        QCOMPARE(namesOf(byKind->leftCategoryTableView()), QStringList("a.png"));
        const QModelIndex copy = rowOfPath(byKind->fileModel(), home("Pictures/set/copy/a.png"));
        QVERIFY(copy.isValid());
        clickCheckBox(byKind->rightOutlineView(), copy);
        QCOMPARE(copy.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QCOMPARE(dupBar->statusTextField()->text(),
                 "Selected: " + KestalSuperViewController::byteString(600 * KiB));

        m_world->confirmClean(duplicates, "To be removed: 1 item, " +
                                              KestalSuperViewController::byteString(600 * KiB));
        m_world->openLogWithoutFailures(duplicates);
        QVERIFY(!QFile::exists(home("Pictures/set/copy/a.png")));
        for (const char *stays : {"Pictures/set/a.png", "Pictures/set/unlike.png",
                                  "Pictures/clip.mp4", "Pictures/old/clip.mp4",
                                  "Pictures/small/s1.txt", "Downloads/d1.bin", "Downloads/d2.bin"})
            QVERIFY2(QFile::exists(home(stays)), stays);
        // The group is down to one file and its size follows.
        const int group = categoryTitled(duplicates, "a.png");
        QVERIFY(group >= 0);
        QCOMPARE(AppModuleService::categoriesOf(duplicates).at(group).files.size(), 1);
        QCOMPARE(AppModuleService::categoriesOf(duplicates).at(group).size, 600 * KiB);
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(duplicates),
                 std::make_pair(600 * KiB, 1));
    }

    void configuration_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<qint64>("size");
        QTest::newRow("integer") << "1024" << true << qint64(1024);
        QTest::newRow("negative, blanks around") << " -5 " << true << qint64(-5);
        QTest::newRow("too large for the size") << "99999999999999999999" << true << qint64(0);
        QTest::newRow("with a unit") << "12kb" << false << qint64(512);
        QTest::newRow("fraction") << "1.5" << false << qint64(512);
        QTest::newRow("empty") << "" << false << qint64(512);
    }

    // The menu's window takes an integer and closes; anything else gets the
    // warning and leaves the size and the window as they were.
    void configuration()
    {
        QFETCH(QString, typed);
        QFETCH(bool, taken);
        QFETCH(qint64, size);
        DuplicateService::size = 512;
        AppDelegate delegate;
        QAction *entry = delegate.duplicateConfigurationItem();
        QVERIFY(delegate.menus().contains(qobject_cast<QMenu *>(entry->parent())));
        QPointer<KestalDuplicateConfigurationWindowController> window =
            openOneWindow<KestalDuplicateConfigurationWindowController>(entry);
        QVERIFY(window);
        QCOMPARE(window->bottomEnterValueTextField()->text(), QString("512"));
        window->bottomEnterValueTextField()->setText(typed);
        QTest::mouseClick(window->okButton(), Qt::LeftButton);
        QCOMPARE(DuplicateService::size, size);
        if (!taken) {
            QCOMPARE(closeWarning(window), QString("The number entered can only be an integer"));
            QVERIFY(window->isVisible());
            window->close();
        }
        QTRY_VERIFY(!window);
        DuplicateService::size = 512;
    }

    // The screens' texts stand in a translation context of their own.
    void textsOfTheirOwnContext()
    {
        AppDelegate delegate;
        delegate.languageItem("de")->trigger();
        QCOMPARE(delegate.duplicateConfigurationItem()->text(), QString("Duplikatsuche…"));
        auto *dupBar = qobject_cast<KestalDuplicateBottomViewController *>(bar(duplicates));
        QCOMPARE(dupBar->choosePathBtn()->text(), QString("Ordner wählen…"));
    }

    // A large old file stands in a size and an age category as one node:
    // ticked in one it is ticked in both, and it is removed and counted once.
    void largeAndOldFromScanToLog()
    {
        const QDateTime now = QDateTime::currentDateTime();
        const QString big = home("big-old.iso"), mid = home("media/mid.bin"),
                      oldNotes = home("notes/old-notes.txt"), month = home("notes/month.txt"),
                      fresh = home("notes/fresh.txt");
        writeSparse(big, 110 * MiB, now.addYears(-2));
        writeSparse(mid, 6 * MiB, now);
        writeSparse(oldNotes, 1000, now.addYears(-2));
        writeSparse(month, 500, now.addDays(-40));
        writeSparse(fresh, 300, now);

        m_world->scan(largeAndOld);
        m_world->openReview(largeAndOld);
        KestalDetailViewController *detail = review(largeAndOld);
        const int over100 = categoryTitled(largeAndOld, "Larger than 100 MB");
        const int overYear = categoryTitled(largeAndOld, "Older than a year");
        QVERIFY(over100 >= 0 && overYear >= 0);
        QVERIFY(listed(largeAndOld, mid) && listed(largeAndOld, month));
        QVERIFY(!listed(largeAndOld, fresh));

        detail->clickEvent(over100);
        clickCheckBox(detail->rightOutlineView(), rowOfPath(detail->fileModel(), big));
        // The age category holds the same node: its box shows it, partly ticked.
        KestalTopDetailLeftTableView *left = detail->categoryModel();
        QCOMPARE(left->index(left->rowOf(overYear), 0).data(Qt::CheckStateRole).toInt(),
                 int(Qt::PartiallyChecked));
        detail->clickEvent(overYear);
        QCOMPARE(rowOfPath(detail->fileModel(), big).data(Qt::CheckStateRole).toInt(),
                 int(Qt::Checked));
        clickCheckBox(detail->rightOutlineView(), rowOfPath(detail->fileModel(), oldNotes));
        const qint64 chosen = 110 * MiB + 1000;
        QCOMPARE(bar(largeAndOld)->statusTextField()->text(),
                 "Selected: " + KestalSuperViewController::byteString(chosen));

        m_world->confirmClean(largeAndOld, "To be removed: 2 items, " +
                                               KestalSuperViewController::byteString(chosen));
        m_world->openLogWithoutFailures(largeAndOld);
        QVERIFY(!QFile::exists(big));
        QVERIFY(!QFile::exists(oldNotes));
        for (const QString &stays : {mid, month, fresh})
            QVERIFY2(QFile::exists(stays), qPrintable(stays));
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(largeAndOld),
                 std::make_pair(chosen, 2));
        // Sorted again from what is left: the removed file is in no category.
        QVERIFY(!listed(largeAndOld, big));
        QVERIFY(listed(largeAndOld, mid) && listed(largeAndOld, month));
    }
};

QTEST_MAIN(FinderScreensTest)
#include "test_finder_screens.moc"
