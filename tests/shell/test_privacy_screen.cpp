// The privacy module in the real main window, offscreen, over a home whose
// Chrome and Firefox stores are built from the browsers' own schemas: scan,
// result, review, a partial selection made by clicks, confirmation, clean,
// clean done and log. Exactly the ticked records leave the stores.

#include "ReviewClicks.h"
#include "ShippedWindow.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightTopShowMessageViewController.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
#include "privacy/PrivacyTestSupport.h"

#include <QLabel>
#include <QTreeView>
#include <QTreeWidget>

using namespace PrivacyTest;
using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int privacy = PrivacyService::moduleIndex;

Qt::CheckState checkState(const QModelIndex &index)
{
    return Qt::CheckState(index.data(Qt::CheckStateRole).toInt());
}

// The record of a group whose first column reads `name`.
QModelIndex recordNamed(const QModelIndex &group, const QString &name)
{
    const QAbstractItemModel *model = group.model();
    for (int row = 0; row < model->rowCount(group); ++row) {
        const QModelIndex record = model->index(row, 0, group);
        if (record.data().toString() == name)
            return record;
    }
    return {};
}

} // namespace

class PrivacyScreenTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    void scanReviewSelectCleanAndLog()
    {
        ShippedWindow world;
        const Browsers b = makeBrowsers(world.home);
        // Chrome's form data is written only after the scan: its group lists
        // nothing, so even a ticked browser must leave that store alone.
        QVERIFY(QFile::remove(b.webData()));
        PrivacyService::registerWithScanDriver(); // as the application does at its start
        world.open();
        KestalRightSplitController *right = world.right();
        KestalRightBottomViewController *bar = right->bottomSwitch()->barOfModule(privacy);

        world.scan(privacy);
        QCOMPARE(right->topSwitch()->currentWidget(), right->topSwitch()->showMessage(privacy));
        makeStore(b.webData(), QStringLiteral("chrome-web-data.sql"),
                  QStringLiteral("insert into autofill (name,value,value_lower,date_created)"
                                 " values ('email','a@a.example','a@a.example',1),"
                                 " ('q','late','late',2);"));

        world.openReview(privacy);
        KestalDetailViewController *review = right->topSwitch()->detail(privacy);
        QCOMPARE(right->topSwitch()->currentWidget(), review);
        QTreeView *browsers = review->leftCategoryTableView();
        QTreeView *groups = review->rightOutlineView();
        QCOMPARE(namesOf(browsers), QStringList({"Chrome", "Firefox", "Safari"}));

        // Chrome: the whole browser, then one visit and the logins taken out.
        clickCheckBox(browsers, rowNamed(browsers, "Chrome"));
        QCOMPARE(checkState(rowNamed(groups, "Cookies")), Qt::Checked);
        const QModelIndex autofill = rowNamed(groups, "Auto Fill History");
        QVERIFY(autofill.isValid());
        QVERIFY(!(autofill.flags() & Qt::ItemIsUserCheckable));
        QVERIFY(!autofill.data(Qt::CheckStateRole).isValid());
        const QModelIndex visits = rowNamed(groups, "Visit History");
        groups->expand(visits);
        QVERIFY(recordNamed(visits, PrivacyService::defaultName()).isValid());
        clickCheckBox(groups, recordNamed(visits, "https://b.example/x,y"));
        QCOMPARE(checkState(visits), Qt::PartiallyChecked);
        clickCheckBox(groups, rowNamed(groups, "Login History"));
        QCOMPARE(checkState(rowNamed(browsers, "Chrome")), Qt::PartiallyChecked);

        // Firefox: one cookie, and a search group less one keyword.
        QTest::mouseClick(browsers->viewport(), Qt::LeftButton, {},
                          browsers->visualRect(rowNamed(browsers, "Firefox")).center());
        QCOMPARE(review->fileModel()->categoryIndex(), 1);
        const QModelIndex cookies = rowNamed(groups, "Cookies");
        groups->expand(cookies);
        clickCheckBox(groups, recordNamed(cookies, "b.example"));
        const QModelIndex keywords = rowNamed(groups, "Search History");
        groups->expand(keywords);
        clickCheckBox(groups, keywords);
        clickCheckBox(groups, recordNamed(keywords, "be"));
        QCOMPARE(checkState(keywords), Qt::PartiallyChecked);
        QCOMPARE(checkState(rowNamed(browsers, "Firefox")), Qt::PartiallyChecked);
        QCOMPARE(checkState(rowNamed(browsers, "Safari")), Qt::Unchecked);

        const QByteArray firefoxLogins = contents(b.ffLogins());
        const auto question = answerNextMessageBox(QStringLiteral("Confirm"));
        QTest::mouseClick(bar->detailViewBtn(), Qt::LeftButton);
        QVERIFY(question->shown);
        // The question counts records, as the clean does: a ticked group is all it lists.
        QVERIFY2(question->informative.contains(QStringLiteral("14 items")),
                 qPrintable(question->informative));
        QTRY_COMPARE(stateOf(privacy), viewStatus::cleandone);

        // One report per browser, then the module's: Chrome's three visits,
        // two downloads, the downloaded file (3000 bytes), two searches, two
        // cookies and two local stores (300 bytes); Firefox's two records.
        KestalCleaningViewAndLogViewController *page = right->topSwitch()->cleaningAndLog(privacy);
        QCOMPARE(right->topSwitch()->currentWidget(), page);
        QTreeWidget *rows = page->cleanningTableView();
        QCOMPARE(rows->topLevelItemCount(), 3);
        const QHash<int, CleanTriple> reports =
            KestalService::cleanningCompletedStatus().value(privacy);
        const CleanTriple expected[] = {
            {999, 12, 9 * 512 + 3000 + 300}, {999, 2, 1024}, {999, 0, 0}};
        for (int ci = 0; ci < 3; ++ci) {
            QCOMPARE(reports.value(ci).status, expected[ci].status);
            QCOMPARE(reports.value(ci).number, expected[ci].number);
            QCOMPARE(reports.value(ci).size, expected[ci].size);
            QCOMPARE(rows->topLevelItem(ci)->data(0, Qt::UserRole).toString(),
                     QStringLiteral("LogViewSuccess"));
        }
        const auto [size, number] = KestalService::cleanTotalSizeAndNumber().value(privacy);
        QCOMPARE(number, 14);
        QCOMPARE(size, qint64(11 * 512 + 3000 + 300));
        QVERIFY(bar->statusTextField()->text().endsWith(QStringLiteral(", 14 items")));
        QVERIFY(!KestalCleaningViewAndLogViewController::hasFailures(privacy));
        world.openLogWithoutFailures(privacy);
        QTest::mouseClick(bar->showLogViewBtn(), Qt::LeftButton);
        QCOMPARE(stateOf(privacy), viewStatus::cleandone);

        // Chrome: visit 1 (of url 2) stays, the others went; so did every
        // ticked group; the logins and the late form data stay.
        QCOMPARE(column(b.history(), "select id from visits order by id"), QStringList{"1"});
        QCOMPARE(column(b.history(), "select count(*) from downloads"), QStringList{"0"});
        QCOMPARE(column(b.history(), "select count(*) from keyword_search_terms"),
                 QStringList{"0"});
        QCOMPARE(column(b.history(), "select count(*) from urls"), QStringList{"3"});
        QCOMPARE(column(b.cookies(), "select count(*) from cookies"), QStringList{"0"});
        QCOMPARE(column(b.logins(), "select username_value from logins order by 1"),
                 QStringList({"ann,b", "bob"}));
        QCOMPARE(column(b.webData(), "select value from autofill order by 1"),
                 QStringList({"a@a.example", "late"}));
        QVERIFY(!QFile::exists(b.downloaded));
        QVERIFY(!QFile::exists(b.chrome + "/Local Storage/https_a.example_0.localstorage"));
        QVERIFY(!QFile::exists(b.chrome + "/Local Storage/https_a.example_0.localstorage-journal"));
        QVERIFY(!QFile::exists(b.chrome + "/Local Storage/https_b.example_0.localstorage"));
        // Firefox: cookie 2 and keyword 3 went, nothing else.
        QCOMPARE(column(b.ffCookies(), "select id from moz_cookies"), QStringList{"1"});
        QCOMPARE(column(b.places(), "select id from moz_keywords"), QStringList{"4"});
        QCOMPARE(column(b.places(), "select id from moz_historyvisits order by id"),
                 QStringList({"5", "6", "7"}));
        QCOMPARE(column(b.places(), "select id from moz_annos order by id"),
                 QStringList({"1", "2"}));
        QCOMPARE(column(b.forms(), "select count(*) from moz_formhistory"), QStringList{"2"});
        QCOMPARE(contents(b.ffLogins()), firefoxLogins);
        QVERIFY(QFile::exists(b.firefox + "/storage/default/https+++a.example/ls/data.sqlite"));
        for (const QString &store : {b.history(), b.cookies(), b.places(), b.ffCookies()})
            QCOMPARE(integrity(store), QStringLiteral("ok"));
    }
};

QTEST_MAIN(PrivacyScreenTest)
#include "test_privacy_screen.moc"
