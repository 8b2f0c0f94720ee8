// The review of a System Junk scan on the real main window.

#include "ReviewClicks.h"
#include "ShippedWindow.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QTreeView>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int systemJunk = 1;

Qt::CheckState checkOf(const QModelIndex &index)
{
    return index.data(Qt::CheckStateRole).value<Qt::CheckState>();
}

} // namespace

class DetailReviewTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShippedWindow> m_world;
    TreeBuilder *m_home = nullptr;
    KestalRightBottomViewController *m_bar = nullptr;
    KestalDetailViewController *m_review = nullptr;

    viewStatus state() const { return KestalSuperViewController::currentStatus("SystemJunk"); }

    // Clicks a row's tick box, as a user does.
    void tick(QTreeView *view, const QString &name)
    {
        const QModelIndex row = rowNamed(view, name);
        QVERIFY(row.isValid());
        const Qt::CheckState before = checkOf(row);
        clickCheckBox(view, row);
        QVERIFY(checkOf(rowNamed(view, name)) != before);
    }

private slots:
    void initTestCase()
    {
        isolateUserSettings();
        // No file manager on the bus: the folder opens through the recorder.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    }

    void init()
    {
        m_world = std::make_unique<ShippedWindow>();
        m_home = &m_world->home;
        const QDateTime when(QDate(2018, 6, 1), QTime(9, 30));
        m_home->file(".cache/beta/one.bin", 1000, when);
        m_home->file(".cache/beta/two.bin", 2000, when);
        m_home->file(".cache/alpha/blob.bin", 50000, when);
        m_home->file(".cache/gamma/x.bin", 30000, when);
        m_home->file(".cache/loose.log", 100, when);
        m_home->file(".local/share/xorg/Xorg.0.log.old", 5000, when);
        m_world->open();
        KestalRightSplitController *right = m_world->right();
        m_bar = right->bottomSwitch()->barOfModule(systemJunk);
        m_review = right->topSwitch()->detail(systemJunk);
        m_world->show(systemJunk);
        QTest::mouseClick(m_bar->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE(state(), viewStatus::scandone_NoEmpty);
        QTest::mouseClick(m_bar->reviewBtn(), Qt::LeftButton);
        QCOMPARE(right->topSwitch()->currentWidget(), m_review);
    }

    void cleanup() { m_world.reset(); }

    void ticksSelectAllAndTheMixedState()
    {
        QTreeView *files = m_review->rightOutlineView();
        QCOMPARE(m_review->leftCategoryTableView()->currentIndex().data().toString(),
                 QString("User Cache"));
        // Largest first, until the user sorts otherwise.
        QCOMPARE(namesOf(files), (QStringList{"alpha", "gamma", "beta", "loose.log"}));
        QCheckBox *all = m_review->updateAllDetailBtn();
        QCOMPARE(all->text(), QString("Deselect All"));

        all->click();
        QCOMPARE(all->text(), QString("Select All"));
        QCOMPARE(AppModuleService::categoriesOf(systemJunk)[0].state, 0);
        QCOMPARE(checkOf(rowNamed(files, "alpha")), Qt::Unchecked);

        tick(files, "gamma");
        QCOMPARE(AppModuleService::categoriesOf(systemJunk)[0].state, -1);
        QCOMPARE(all->checkState(), Qt::PartiallyChecked);
        QVERIFY(m_bar->statusTextField()->text().startsWith("Selected: "));

        // A mixed box turns on first.
        all->click();
        QCOMPARE(all->text(), QString("Deselect All"));
        QCOMPARE(AppModuleService::categoriesOf(systemJunk)[0].state, 1);
    }

    void sortingSearchDatesAndTheFileManager()
    {
        QTreeView *files = m_review->rightOutlineView();
        m_review->sort("ascending", "name");
        QCOMPARE(namesOf(files), (QStringList{"alpha", "beta", "gamma", "loose.log"}));
        m_review->sort("sideways", "size"); // the direction stays
        QCOMPARE(namesOf(files), (QStringList{"loose.log", "beta", "gamma", "alpha"}));

        QCOMPARE(rowNamed(files, "loose.log").siblingAtColumn(2).data().toString(),
                 QString("2018-06-01 09:30"));

        QVERIFY(KestalDetailViewController::openFolderPathAction(
            *AppModuleService::categoriesOf(systemJunk)[0].files.first()));
        QCOMPARE(m_world->env.opened, QList<QUrl>{QUrl::fromLocalFile(m_home->path(".cache"))});

        // Case does not matter; a fruitless search says so and restores the list.
        m_review->searchField()->setText("LOGS");
        m_review->searchDetaiAction();
        QCOMPARE(namesOf(m_review->leftCategoryTableView()), QStringList{"User Logs"});
        QCOMPARE(namesOf(files), QStringList{"Xorg.0.log.old"});
        const int categories = int(AppModuleService::categoriesOf(systemJunk).size());
        auto box = answerNextMessageBox("OK");
        m_review->searchField()->setText("zzz");
        m_review->searchDetaiAction();
        QVERIFY(box->shown);
        QCOMPARE(m_review->searchField()->text(), QString());
        QCOMPARE(m_review->categoryModel()->rowCount(), categories);

        QTest::mouseClick(m_review->rightTopBackBtn(), Qt::LeftButton);
        QCOMPARE(state(), viewStatus::scandone_NoEmpty);
    }

    // The box over the categories sets all of them at once; they sort by size.
    void categoriesSelectAllAndSort()
    {
        QCheckBox *all = m_review->updateAllCategoryBtn();
        // The shipped table leaves some categories off: the box is mixed.
        QCOMPARE(all->checkState(), Qt::PartiallyChecked);
        all->click();
        for (const Category &c : AppModuleService::categoriesOf(systemJunk))
            QCOMPARE(c.state, 1);
        QCOMPARE(AppModuleService::calculateModuleSizeAndNumber(systemJunk).first,
                 double(CategoryTotals::instanceTotalSize(systemJunk)));
        all->click();
        QCOMPARE(all->checkState(), Qt::Unchecked);
        QCOMPARE(AppModuleService::calculateModuleSizeAndNumber(systemJunk).second, 0);
        QVERIFY(!m_bar->detailViewBtn()->isEnabled()); // nothing to clean

        m_review->categorySort("ascending", "name");
        // Through the menu: by size, the direction kept.
        QMenu *menu = m_review->findChild<QToolButton *>("categoryPopUpButton")->menu();
        for (QAction *a : menu->actions()) {
            if (a->text() == "Size")
                a->trigger();
        }
        QList<qint64> sizes;
        KestalTopDetailLeftTableView *left = m_review->categoryModel();
        for (int row = 0; row < left->rowCount(); ++row)
            sizes.append(AppModuleService::categoriesOf(systemJunk).at(left->categoryAt(row)).size);
        QVERIFY(std::is_sorted(sizes.begin(), sizes.end()));
        // The first category of the new order is the one on the right.
        QCOMPARE(m_review->fileModel()->categoryIndex(), left->categoryAt(0));
    }
};

QTEST_MAIN(DetailReviewTest)
#include "test_detail_review.moc"
