// The real main window, offscreen, with the shipped module table and the
// real clean service: a junk module's whole life from scan to log.

#include "ShippedWindow.h"
#include "cleaner/clean/KestalCleanManager.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/KestalAutoCleanupBottomViewController.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/KestalRightTopShowMessageViewController.h"
#include "cleaner/shell/KestalWarnningAndErrorViewController.h"

#include <QCheckBox>
#include <QLabel>
#include <QTreeWidget>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int systemJunk = 1;
constexpr int photoCache = 2;
constexpr int trashBin = 4;

// The index of the category titled so, and of its listed item named so.
std::pair<int, int> itemOf(int module, const QString &category, const QString &name)
{
    const int ci = categoryTitled(module, category);
    const QList<FolderInfoPtr> &files =
        ci < 0 ? QList<FolderInfoPtr>() : AppModuleService::categoriesOf(module)[ci].files;
    for (int fi = 0; fi < files.size(); ++fi) {
        if (files[fi]->name == name)
            return {ci, fi};
    }
    return {-1, -1};
}

} // namespace

class ModuleWorkflowTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShippedWindow> m_world;
    TreeBuilder *m_home = nullptr;

    KestalRightSplitController *right() const { return m_world->right(); }
    KestalRightBottomViewController *bar(int module) const { return m_world->bar(module); }
    QWidget *topOnScreen() const { return right()->topSwitch()->currentWidget(); }

    KestalLeftTableViewController *left() const { return m_world->root->leftTable(); }
    void show(int module) { m_world->show(module); }

private slots:
    void initTestCase() { isolateUserSettings(); }

    void init()
    {
        // What the process may not remove goes to the real service, which
        // finds no helper here: such items fail and the log tells why.
        useBuiltPrograms("/nonexistent/brenlow-helper");
        m_world = std::make_unique<ShippedWindow>();
        m_home = &m_world->home;
        m_home->file(".cache/appA/blob.bin", 40000);
        m_home->file(".cache/appB/keep.bin", 30000);
        m_home->file(".local/share/xorg/Xorg.0.log.old", 5000);
        m_home->file(".local/share/Trash/files/old.txt", 6000);
        m_home->file(".local/share/Trash/info/old.txt.trashinfo", 60);
        m_world->open();
    }

    void cleanup() { m_world.reset(); }

    // A heading row takes no click, and the keyboard passes over it.
    void headingsAreNotModules()
    {
        QVERIFY(left()->isHeaderRow(1));
        QCOMPARE(left()->item(1)->flags(), Qt::NoItemFlags);
        m_world->clickRow(1);
        QCOMPARE(KestalLeftTableViewController::currentRow, 0);
        m_world->clickRow(0);
        QTest::keyClick(left(), Qt::Key_Down);
        QCOMPARE(left()->QListWidget::currentRow(), 2);
        QCOMPARE(KestalLeftTableViewController::currentRow, left()->moduleOfRow(2));
    }

    // Scan, result, review, a selection of one item, confirmation, cleaning,
    // clean done and log: the selected item goes, the rest stays.
    void systemJunkFromScanToLog()
    {
        auto *junk = bar(systemJunk);
        m_world->scan(systemJunk);
        QCOMPARE(topOnScreen(), right()->topSwitch()->showMessage(systemJunk));

        m_world->openReview(systemJunk);

        // Only appA's folder stays selected.
        const QList<Category> &categories = AppModuleService::categoriesOf(systemJunk);
        for (int ci = 0; ci < categories.size(); ++ci) {
            for (int fi = 0; fi < categories[ci].files.size(); ++fi)
                AppModuleService::updateState(0, systemJunk, ci, fi, std::nullopt);
        }
        const auto [ci, fi] = itemOf(systemJunk, "User Cache", "appA");
        QVERIFY(fi >= 0);
        AppModuleService::updateState(1, systemJunk, ci, fi, std::nullopt);
        junk->updateDetailView();
        QCOMPARE(junk->statusTextField()->text(),
                 "Selected: " + KestalSuperViewController::byteString(40000));

        auto question = answerNextMessageBox("Confirm");
        QTest::mouseClick(junk->detailViewBtn(), Qt::LeftButton);
        QVERIFY(question->shown);
        // It says what will go, as the command line does.
        QVERIFY2(question->informative.endsWith("To be removed: 1 item, 40.0 kB"),
                 qPrintable(question->informative));
        QCOMPARE(stateOf(systemJunk), viewStatus::cleanning);
        auto *cleaning = right()->topSwitch()->cleaningAndLog(systemJunk);
        QCOMPARE(topOnScreen(), cleaning);
        QVERIFY(!junk->cleanningViewBtn()->isEnabled());

        QTRY_COMPARE(stateOf(systemJunk), viewStatus::cleandone);
        QVERIFY(!QFile::exists(m_home->path(".cache/appA")));
        QVERIFY(QFile::exists(m_home->path(".cache/appB/keep.bin")));
        QVERIFY(QFile::exists(m_home->path(".local/share/xorg/Xorg.0.log.old")));
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(systemJunk).first, 40000);
        QCOMPARE(itemOf(systemJunk, "User Cache", "appA").second, -1);
        QCOMPARE(itemOf(systemJunk, "User Cache", "appB").second >= 0, true);

        // Every category row ends with a tick, the cleaned one with its size.
        QTreeWidget *rows = cleaning->cleanningTableView();
        QCOMPARE(rows->topLevelItemCount(), int(categories.size()));
        for (int row = 0; row < rows->topLevelItemCount(); ++row)
            QCOMPARE(rows->topLevelItem(row)->data(0, Qt::UserRole).toString(),
                     QString("LogViewSuccess"));
        QCOMPARE(rows->topLevelItem(ci)->text(1), KestalSuperViewController::byteString(40000));

        m_world->openLogWithoutFailures(systemJunk);
        QTest::mouseClick(junk->showLogViewBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(systemJunk), viewStatus::cleandone);
    }

    void cancelledConfirmationChangesNothing()
    {
        auto *junk = bar(systemJunk);
        m_world->scan(systemJunk);
        QTest::mouseClick(junk->scandoneViewBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(systemJunk), viewStatus::detail);
        const qint64 found = CategoryTotals::instanceTotalSize(systemJunk);
        const auto selected = AppModuleService::calculateModuleSizeAndNumber(systemJunk);
        QVERIFY(selected.second > 0);

        auto question = answerNextMessageBox("Cancel");
        QTest::mouseClick(junk->detailViewBtn(), Qt::LeftButton);
        QVERIFY(question->shown);
        QCOMPARE(stateOf(systemJunk), viewStatus::detail);
        QCOMPARE(AppModuleService::calculateModuleSizeAndNumber(systemJunk), selected);
        QCOMPARE(CategoryTotals::instanceTotalSize(systemJunk), found);
        QVERIFY(QFile::exists(m_home->path(".cache/appA/blob.bin")));
        QVERIFY(!KestalService::cleanTotalSizeAndNumber().contains(systemJunk) ||
                KestalService::cleanTotalSizeAndNumber().value(systemJunk).second == 0);
    }

    // Two modules scan at once while a third is on screen, which stays as it was.
    void twoScansOffScreen()
    {
        show(systemJunk);
        QTest::mouseClick(bar(systemJunk)->overViewScanBtn(), Qt::LeftButton);
        show(trashBin);
        QTest::mouseClick(bar(trashBin)->overViewScanBtn(), Qt::LeftButton);
        show(photoCache);
        QCOMPARE(stateOf(systemJunk), viewStatus::scanning);
        QTRY_COMPARE(stateOf(systemJunk), viewStatus::scandone_NoEmpty);
        QTRY_COMPARE(stateOf(trashBin), viewStatus::scandone_NoEmpty);
        QCOMPARE(stateOf(photoCache), viewStatus::overview);
        QCOMPARE(topOnScreen(), right()->topSwitch()->overViewAndScan(photoCache));
        QCOMPARE(right()->bottomSwitch()->currentWidget(), bar(photoCache));

        show(trashBin);
        QCOMPARE(topOnScreen(), right()->topSwitch()->showMessage(trashBin));
        QVERIFY(CategoryTotals::instanceTotalSize(trashBin) >= 6000);
    }

    // A stop waits a second: with nothing found the result says so, with
    // something found the review opens on it.
    void stopWithAndWithoutFindings()
    {
        auto *junk = bar(systemJunk);
        show(systemJunk);
        QTest::mouseClick(junk->overViewScanBtn(), Qt::LeftButton);
        QTest::mouseClick(junk->scanningscanBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(systemJunk), viewStatus::scanning);
        QTRY_COMPARE(stateOf(systemJunk), viewStatus::scandone_Empty);
        QCOMPARE(topOnScreen(), right()->topSwitch()->showMessage(systemJunk));

        // Stop as soon as the first category (User Cache) has come in.
        auto stopOnFindings =
            connect(junk, &KestalRightBottomViewController::moduleRowChanged, junk, [junk] {
                if (junk->status() == viewStatus::scanning &&
                    CategoryTotals::instanceTotalSize(systemJunk) > 0)
                    junk->scanningscanBtn()->click();
            });
        QTest::mouseClick(junk->rescanBtn(), Qt::LeftButton);
        QTRY_COMPARE(stateOf(systemJunk), viewStatus::detail);
        disconnect(stopOnFindings);
        QCOMPARE(itemOf(systemJunk, "User Logs", "Xorg.0.log.old").second, -1);
    }

    // An item that vanished after the scan is refused in process, and the
    // helper is not there: the run ends, the row warns, a window says why, and
    // the log names the item, its path cut, with the reason. (Which failures
    // end a run is the clean pipeline's test.)
    void failuresReachTheLog()
    {
        auto *junk = bar(systemJunk);
        m_world->scan(systemJunk);
        QTest::mouseClick(junk->reviewBtn(), Qt::LeftButton);
        QVERIFY(QDir(m_home->path(".cache/appB")).removeRecursively());
        const auto [ci, fi] = itemOf(systemJunk, "User Cache", "appB");
        QVERIFY(fi >= 0);

        answerNextMessageBox("Confirm");
        QTest::mouseClick(junk->detailViewBtn(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(systemJunk), viewStatus::cleandone, 20000);
        QVERIFY(!QFile::exists(m_home->path(".cache/appA")));
        QVERIFY(!QFile::exists(m_home->path(".local/share/xorg/Xorg.0.log.old")));

        KestalWarnningAndErrorViewController *warning = nullptr;
        QTRY_VERIFY((warning = qobject_cast<KestalWarnningAndErrorViewController *>(
                         QApplication::activeModalWidget())));
        QVERIFY(warning->descriptionLabel()->text().contains(
            KestalCleanManager::installFailureText(QStringLiteral("1000"))));
        QTest::mouseClick(warning->okButton(), Qt::LeftButton);
        QTRY_VERIFY(!QApplication::activeModalWidget());

        auto *cleaning = right()->topSwitch()->cleaningAndLog(systemJunk);
        QTreeWidgetItem *row = cleaning->cleanningTableView()->topLevelItem(ci);
        QCOMPARE(row->data(0, Qt::UserRole).toString(), QString("LogViewWarnning"));
        QVERIFY(row->text(0).endsWith("Failed"));
        QVERIFY(KestalCleaningViewAndLogViewController::hasFailures(systemJunk));

        QTest::mouseClick(junk->cleandoneViewBtn(), Qt::LeftButton);
        QTreeWidget *log = cleaning->logTableView();
        QCOMPARE(log->topLevelItemCount(), 2); // the category, then its one line
        QCOMPARE(log->topLevelItem(0)->text(0), QString("User Cache"));
        const QString path = m_home->path(".cache/appB");
        QCOMPARE(log->topLevelItem(1)->toolTip(0), path);
        QCOMPARE(log->topLevelItem(1)->text(0),
                 KestalCleaningViewAndLogViewController::cutPath(path));
        QCOMPARE(log->topLevelItem(1)->text(1), QString("get root fail"));
    }

    // Auto Cleanup scans its five modules, cleans those whose box stays on
    // one after another in row order, and its stop ends the whole scan.
    void autoCleanupScansAndCleansItsChildrenInRowOrder()
    {
        auto *autoBar = qobject_cast<KestalAutoCleanupBottomViewController *>(bar(0));
        QVERIFY(autoBar);
        show(0);
        QTest::mouseClick(autoBar->overViewScanBtn(), Qt::LeftButton);
        // A child's stop ends the whole scan.
        for (int child : KestalAutoCleanupBottomViewController::childModules())
            QCOMPARE(stateOf(child), viewStatus::scanning);
        show(systemJunk);
        QTest::mouseClick(bar(systemJunk)->scanningscanBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(0), viewStatus::overview);
        QCOMPARE(KestalService::scanStatus().value(0), 2);
        for (int child : KestalAutoCleanupBottomViewController::childModules())
            QCOMPARE(stateOf(child), viewStatus::overview);

        show(0);
        QTest::mouseClick(autoBar->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(0), viewStatus::scandone_NoEmpty, 20000);
        QCOMPARE(stateOf(systemJunk), viewStatus::scandone_NoEmpty);
        QCOMPARE(stateOf(trashBin), viewStatus::scandone_NoEmpty);
        QCOMPARE(KestalService::scanningPercent().value(0), 100.0f);
        QVERIFY(autoBar->scandoneViewBtn()->isVisible());

        // Trash Bin's box off: its files stay, and it is not cleaned.
        QCheckBox *trashBox = right()->topSwitch()->showMessage(0)->childBox(trashBin);
        QVERIFY(trashBox->isVisible() && trashBox->isChecked());
        trashBox->click();
        QCOMPARE(AppModuleService::calculateModuleSizeAndNumber(trashBin).second, 0);
        QList<int> order;
        connect(autoBar, &KestalAutoCleanupBottomViewController::childCleaned, this,
                [&order](int module) { order.append(module); });
        answerNextMessageBox("Confirm");
        QTest::mouseClick(autoBar->scandoneViewBtn(), Qt::LeftButton);
        QTRY_COMPARE_WITH_TIMEOUT(stateOf(0), viewStatus::cleandone, 20000);

        QVERIFY(order.contains(systemJunk));
        QVERIFY(!order.contains(trashBin));
        QVERIFY(std::is_sorted(order.begin(), order.end()));
        QVERIFY(!QFile::exists(m_home->path(".cache/appA")));
        QVERIFY(QFile::exists(m_home->path(".local/share/Trash/files/old.txt")));
        QVERIFY(KestalService::cleanTotalSizeAndNumber().value(0).first >= 70000);
        auto *cleaning = right()->topSwitch()->cleaningAndLog(0);
        QCOMPARE(cleaning->cleanningTableView()->topLevelItem(0)->data(0, Qt::UserRole),
                 QVariant("LogViewSuccess"));
    }
};

QTEST_MAIN(ModuleWorkflowTest)
#include "test_module_workflow.moc"
