#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/scan/KestalService.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QtTest>

namespace {

// Callbacks of one scan, as the screen would see them.
struct Seen {
    QList<int> done;
    int progress = 0;
    QList<float> percents;
    qint64 bytes = 0;

    Progress progressFn()
    {
        return [this](const QString &, qint64 size) {
            ++progress;
            bytes += size;
        };
    }
    ShowPercent percentFn()
    {
        return [this](float p) { percents << p; };
    }
    KestalService::Done doneFn()
    {
        return [this](int ci) { done << ci; };
    }
};

// Roots in the module file are system paths, which live under the test's root.
QString urlOf(const TreeBuilder &, const QString &rel)
{
    return QStringLiteral("file:///") + rel + QLatin1Char('/');
}

QVariantMap folderCategory(const QString &title, const QVariant &url, const QVariant &urls = {},
                           int state = 0)
{
    return TestEnvironment::categoryRow(title, url, urls, state);
}

void waitForTicks(int n)
{
    // Let the main loop run n timer intervals without sleeping the thread.
    QTest::qWait(n * KestalService::timeInterval * 1000 + 200);
}

} // namespace

class KestalServiceTest : public QObject {
    Q_OBJECT

private slots:
    void init() { QStandardPaths::setTestModeEnabled(true); }

    void plainScanFillsTheTree()
    {
        TestEnvironment env;
        TreeBuilder t(env.root());
        t.file("one/a", 10);
        t.file("one/sub/b", 20);
        t.file("two/c", 30);
        t.file("three/d", 40);
        QVariantMap header = TestEnvironment::moduleRow("Heading", {}, "Header");
        header.remove("categories");
        env.writeModules(QVariantList{
            TestEnvironment::moduleRow(
                "M", {folderCategory("Single", urlOf(t, "one"), QVariantList{urlOf(t, "two")}, 1),
                      folderCategory("Several", {},
                                     QVariantList{urlOf(t, "two"), urlOf(t, "three")}, -1),
                      folderCategory("Nothing", {}, {}, 0)}),
            header});

        // A category left with stale files and no roots keeps them.
        const FolderInfoPtr stale =
            FolderInfo::make(0, "stale", {}, 5, {}, false, {}, QUrl(), false, {}, false, 0, {});
        (*KestalService::scanCategory()[0])[2].files = {stale};

        Seen seen;
        KestalService::scan(0, seen.progressFn(), seen.percentFn(), seen.doneFn());
        QCOMPARE(KestalService::scanStatus().value(0), 1);
        QTRY_COMPARE(seen.done, QList<int>({0, 1, 2}));
        QCOMPARE(KestalService::scanStatus().value(0), -1);
        QVERIFY(!KestalService::scanTimer().value(0));

        const QList<Category> &cats = *AppModuleService::appModules()[0].categories;
        // `url` wins over `urls`; its entries start with the category's state.
        QCOMPARE(cats[0].size, 30);
        QCOMPARE(cats[0].files.size(), 2);
        for (const FolderInfoPtr &f : cats[0].files)
            QCOMPARE(f->checked, 1);
        // Several roots: the entries under them, renumbered as one list; a
        // partly selected category starts unselected.
        QCOMPARE(cats[1].size, 70);
        QCOMPARE(cats[1].state, 0);
        QCOMPARE(cats[1].files.size(), 2);
        QCOMPARE(cats[1].files[0]->findex, 0);
        QCOMPARE(cats[1].files[1]->findex, 1);
        QCOMPARE(cats[2].files.size(), 1);
        QCOMPARE(cats[2].files.first(), stale);
        QVERIFY(seen.bytes > 0);
        // Each category's percent series accumulates up to one.
        QTRY_VERIFY(!seen.percents.isEmpty());
        QCOMPARE(seen.percents.last(), 1.0f);

        // Late callbacks of a finished scan are dropped.
        QVERIFY(KestalService::judgeStopScan(0));
        QVERIFY(!KestalService::isStopScan(0));
        // A heading row has no status, and is never "stopped".
        QVERIFY(!KestalService::scanStatus().contains(1));
        QVERIFY(!KestalService::judgeStopScan(1));
        QVERIFY(!KestalService::isStopScan(1));
    }

    void secondScanOfAScanningModuleReturns()
    {
        TestEnvironment env;
        env.writeModules(QVariantList{TestEnvironment::moduleRow("Empty", {})});
        Seen first, second;
        KestalService::scan(0, first.progressFn(), first.percentFn(), first.doneFn());
        const QPointer<DispatchTimer> timer = KestalService::scanTimer().value(0);
        QVERIFY(timer);
        KestalService::scan(0, second.progressFn(), second.percentFn(), second.doneFn());
        QCOMPARE(KestalService::scanTimer().value(0), timer);
        // No categories: the module stays scanning, the timer runs, and done never comes.
        waitForTicks(1);
        QCOMPARE(KestalService::scanStatus().value(0), 1);
        QVERIFY(timer && timer->isValid());
        QVERIFY(first.done.isEmpty() && second.done.isEmpty());
    }

    void stopSilencesAndPublishesWhatWasStored()
    {
        TestEnvironment env;
        TreeBuilder t(env.root());
        for (int i = 0; i < 200; ++i)
            t.file(QStringLiteral("big/%1/%2").arg(i % 20).arg(i), 1);
        t.file("small/x", 1);
        env.writeModules(QVariantList{
            TestEnvironment::moduleRow("M", {folderCategory("Big", urlOf(t, "big")),
                                             folderCategory("Small", urlOf(t, "small"))})});
        const FolderInfoPtr old =
            FolderInfo::make(0, "old", {}, 1, {}, false, {}, QUrl(), false, {}, false, 0, {});
        (*KestalService::scanCategory()[0])[0].files = {old};

        Seen seen;
        KestalService::scan(0, seen.progressFn(), seen.percentFn(), seen.doneFn());
        // The stop lands before the loop's first category is stored.
        KestalService::scanStatus()[0] = 2;
        QVERIFY(KestalService::isStopScan(0));
        QTRY_VERIFY(!KestalService::scanTimer().value(0));
        waitForTicks(1);
        QVERIFY(seen.done.isEmpty());
        QCOMPARE(seen.progress, 0);
        QVERIFY(seen.percents.isEmpty());
        // The timer published the categories as they were: unscanned, old files kept.
        const QList<Category> &cats = *AppModuleService::appModules()[0].categories;
        QCOMPARE(cats[0].files.size(), 1);
        QCOMPARE(cats[0].files.first(), old);
    }

    void rescanAfterStopIsNotMixedWithTheOldLoop()
    {
        TestEnvironment env;
        TreeBuilder t(env.root());
        t.file("r/a", 3);
        env.writeModules(
            QVariantList{TestEnvironment::moduleRow("M", {folderCategory("R", urlOf(t, "r"))})});
        Seen old, fresh;
        KestalService::scan(0, old.progressFn(), old.percentFn(), old.doneFn());
        KestalService::scanStatus()[0] = 2;
        KestalService::scan(0, fresh.progressFn(), fresh.percentFn(), fresh.doneFn());
        QTRY_COMPARE(fresh.done, QList<int>({0}));
        waitForTicks(1);
        QVERIFY(old.done.isEmpty());
        QCOMPARE(old.progress, 0);
        QCOMPARE(KestalService::scanStatus().value(0), -1);
    }

    void tablesStartFromTheModuleTable()
    {
        TestEnvironment env;
        QCOMPARE(KestalService::cleanningCompletedStatus().value(6).size(), 0);
        QCOMPARE(KestalService::cleanningCompletedStatus().value(8).size(), 0);
        const int junk = int(AppModuleService::appModules()[1].categories->size());
        QCOMPARE(KestalService::cleanningCompletedStatus().value(1).size(), junk);
        QCOMPARE(KestalService::cleanningCompletedStatus().value(1).value(0), CleanTriple{});
        QCOMPARE(KestalService::scanStatus().value(12), 0);
        QVERIFY(!KestalService::scanStatus().contains(13)); // "Cleanup" heading
        QCOMPARE(KestalService::autoCleanEndIndex(), 7);
    }

    void timerWithoutModuleFallsBackToZero()
    {
        TestEnvironment env;
        env.writeModules(QVariantList{TestEnvironment::moduleRow("M", {folderCategory("C", {})})});
        KestalService::scanStatus()[0] = 2;
        const FolderInfoPtr mark =
            FolderInfo::make(0, "m", {}, 1, {}, false, {}, QUrl(), false, {}, false, 0, {});
        (*KestalService::scanCategory()[0])[0].files = {mark};
        bool fired = false;
        DispatchTimer::scheduled(10, false, QStringLiteral("not a module"),
                                 [&](DispatchTimer *timer) {
                                     KestalService::handleEvents(timer);
                                     fired = true;
                                 });
        QTRY_VERIFY(fired);
        QCOMPARE(AppModuleService::appModules()[0].categories->first().files.first(), mark);
    }
};

QTEST_GUILESS_MAIN(KestalServiceTest)
#include "test_kestal_service.moc"
