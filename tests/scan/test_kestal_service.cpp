// The scan driver: one module's scan, its stop and a rescan, and Auto Cleanup
// running its five child modules at once under module 0's status.
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/KestalService.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QtTest>
#include <memory>

namespace {

// Callbacks of one scan, as the screen would see them.
struct Seen {
    QList<int> done;
    int progress = 0;
    QList<float> percents;
    qint64 bytes = 0;

    void scan(int module)
    {
        KestalService::scan(
            module,
            [this](const QString &, qint64 size) {
                ++progress;
                bytes += size;
            },
            [this](float p) { percents << p; }, [this](int ci) { done << ci; });
    }
};

// Roots in the module file are system paths, which live under the test's root.
QString urlOf(const QString &rel)
{
    return QStringLiteral("file:///") + rel + QLatin1Char('/');
}

FolderInfoPtr marker(const QString &name, qint64 size = 1)
{
    return FolderInfo::make(0, name, {}, size, {}, false, {}, QUrl(), false, {}, false, 0, {});
}

// Lets the main loop run n timer intervals. Used only before asserting that
// something did NOT happen: a callback that never comes has no condition to
// wait on, only the time in which it would have come.
void waitForTicks(int n)
{
    QTest::qWait(n * KestalService::timeInterval * 1000 + 200);
}

const QStringList kChildren = {"System Junk", "Photo Cache", "Mail Trash", "Trash Bin",
                               "iTunes Junk"};

// What Auto Cleanup tells module 0's screen, kept on the heap so late calls land safely.
struct ChildrenSeen {
    QList<std::tuple<int, int, bool>> done;
    QSet<int> progressFrom;
    int percents = 0;
    int finishedOf(int n) const
    {
        return int(std::count(done.begin(), done.end(), std::make_tuple(n, 1, true)));
    }
};

// Module 0 with one category per child; modules 1 to 5 with two plain
// categories each over their own folder of the tree.
void writeAutoCleanupTable(TestEnvironment &env)
{
    TreeBuilder tree(env.root());
    QVariantList cats;
    for (const QString &t : kChildren)
        cats << TestEnvironment::categoryRow(t);
    QVariantList rows{TestEnvironment::moduleRow("Auto Cleanup", cats)};
    for (int m = 1; m <= 5; ++m) {
        const QString dir = QStringLiteral("m%1").arg(m);
        tree.file(dir + "/a/file", 10 * m);
        tree.file(dir + "/b/file", m);
        QVariantList children;
        for (const char *sub : {"a", "b"})
            children << TestEnvironment::categoryRow(QLatin1String(sub), {},
                                                     QVariantList{urlOf(dir + '/' + sub)}, 1);
        rows << TestEnvironment::moduleRow(kChildren[m - 1], children);
    }
    env.writeModules(rows);
}

std::shared_ptr<ChildrenSeen>
startAutoCleanup(std::shared_ptr<ChildrenSeen> seen = std::make_shared<ChildrenSeen>())
{
    KestalAutoCleanupService::scanAutoCleanup(
        [seen](const QString &, qint64, int n) { seen->progressFrom << n; },
        [seen](int, float) { ++seen->percents; },
        [seen](int n, int ci, bool finished) { seen->done << std::make_tuple(n, ci, finished); });
    return seen;
}

bool allChildrenAre(int status)
{
    for (int m = 1; m <= 5; ++m)
        if (KestalService::scanStatus().value(m) != status)
            return false;
    return true;
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
        t.file("two/sub/c", 30);
        t.file("three/d", 40);
        using E = TestEnvironment;
        env.writeModules(QVariantList{E::moduleRow(
            "M", {E::categoryRow("Single", urlOf("one"), QVariantList{urlOf("two")}, 1),
                  E::categoryRow("Several", {}, QVariantList{urlOf("two"), urlOf("three")}, -1),
                  E::categoryRow("Nothing", {}, {}, 0)})});
        // A category with no roots keeps the files it had.
        const FolderInfoPtr stale = marker("stale", 5);
        (*KestalService::scanCategory()[0])[2].files = {stale};

        Seen seen;
        seen.scan(0);
        QCOMPARE(KestalService::scanStatus().value(0), 1);
        QTRY_COMPARE(seen.done, QList<int>({0, 1, 2}));
        QCOMPARE(KestalService::scanStatus().value(0), -1);
        QVERIFY(!KestalService::scanTimer().value(0));
        const QList<Category> &cats = *AppModuleService::appModules()[0].categories;
        // `url` wins over `urls`; its entries start with the category's state.
        QCOMPARE(cats[0].size, 10);
        QCOMPARE(cats[0].files.first()->checked, 1);
        // Several roots make one renumbered list; a partly selected category starts unselected.
        QCOMPARE(cats[1].size, 70);
        QCOMPARE(cats[1].state, 0);
        QCOMPARE(cats[1].files.size(), 2);
        QCOMPARE(cats[1].files[1]->findex, 1);
        QCOMPARE(cats[2].files, QList<FolderInfoPtr>{stale});
        QVERIFY(seen.bytes > 0);
        QTRY_COMPARE(seen.percents.value(seen.percents.size() - 1), 1.0f);
        // Late callbacks of a finished scan are dropped.
        QVERIFY(KestalService::judgeStopScan(0));
        QVERIFY(!KestalService::isStopScan(0));
    }

    void secondScanOfAScanningModuleReturns()
    {
        TestEnvironment env;
        env.writeModules(QVariantList{TestEnvironment::moduleRow("Empty", {})});
        Seen first, second;
        first.scan(0);
        const QPointer<DispatchTimer> timer = KestalService::scanTimer().value(0);
        QVERIFY(timer);
        second.scan(0);
        QCOMPARE(KestalService::scanTimer().value(0), timer);
        waitForTicks(1);
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
        using E = TestEnvironment;
        env.writeModules(QVariantList{E::moduleRow(
            "M", {E::categoryRow("Big", urlOf("big")), E::categoryRow("Small", urlOf("small"))})});
        const FolderInfoPtr old = marker("old");
        (*KestalService::scanCategory()[0])[0].files = {old};

        Seen seen;
        seen.scan(0);
        // The stop lands before the loop's first category is stored.
        KestalService::scanStatus()[0] = 2;
        QVERIFY(KestalService::isStopScan(0));
        QTRY_VERIFY(!KestalService::scanTimer().value(0));
        waitForTicks(1);
        QVERIFY(seen.done.isEmpty() && seen.progress == 0 && seen.percents.isEmpty());
        // The timer published the categories as they were: unscanned, old files kept.
        QCOMPARE(AppModuleService::appModules()[0].categories->at(0).files,
                 QList<FolderInfoPtr>{old});
    }

    void rescanAfterStopIsNotMixedWithTheOldLoop()
    {
        TestEnvironment env;
        TreeBuilder t(env.root());
        t.file("r/a", 3);
        using E = TestEnvironment;
        env.writeModules(QVariantList{E::moduleRow("M", {E::categoryRow("R", urlOf("r"))})});
        Seen old, fresh;
        old.scan(0);
        KestalService::scanStatus()[0] = 2;
        fresh.scan(0);
        QTRY_COMPARE(fresh.done, QList<int>({0}));
        waitForTicks(1);
        QVERIFY(old.done.isEmpty() && old.progress == 0);
        QCOMPARE(KestalService::scanStatus().value(0), -1);
    }

    void autoCleanupChildrenFinishOnceEach()
    {
        TestEnvironment env;
        writeAutoCleanupTable(env);
        const auto seen = startAutoCleanup();
        // All five run at once, each under its own status.
        QVERIFY(allChildrenAre(1));
        QTRY_COMPARE(KestalService::scanStatus().value(0), -1);
        for (int n = 0; n < 5; ++n) {
            QCOMPARE(seen->finishedOf(n), 1);
            QVERIFY(seen->done.contains(std::make_tuple(n, 0, false)));
            QCOMPARE(AppModuleService::appModules()[n + 1].categories->at(0).size, 10 * (n + 1));
        }
        QCOMPARE(seen->done.size(), 10);
        QCOMPARE(seen->progressFrom, QSet<int>({0, 1, 2, 3, 4}));
        QCOMPARE(KestalAutoCleanupService::moduleDoneNum(), 5);
        QVERIFY(!KestalService::scanTimer().value(0));

        // A second scan while none runs starts afresh.
        startAutoCleanup(seen);
        QTRY_COMPARE(KestalService::scanStatus().value(0), -1);
        for (int n = 0; n < 5; ++n)
            QCOMPARE(seen->finishedOf(n), 2);
    }

    void autoCleanupStopSilencesAllChildren()
    {
        TestEnvironment env;
        writeAutoCleanupTable(env);
        const auto seen = startAutoCleanup();
        // A module that is no child keeps its own stop.
        QCOMPARE(KestalService::stopScan(7), 7);
        QCOMPARE(KestalService::scanStatus().value(0), 1);
        // A child's own stop while Auto Cleanup runs stops the whole.
        QCOMPARE(KestalService::stopScan(3), 0);
        QCOMPARE(KestalService::scanStatus().value(0), 2);
        QVERIFY(allChildrenAre(2));
        // Every watchdog publishes and goes within a tick; nothing reached the screen.
        QTRY_VERIFY(KestalService::scanTimer().isEmpty());
        QCOMPARE(seen->done.size(), 0);
        QCOMPARE(seen->progressFrom.size(), 0);
        QCOMPARE(seen->percents, 0);

        // With Auto Cleanup idle, a module's stop is its own.
        QCOMPARE(KestalService::stopScan(3), 3);
        QCOMPARE(KestalService::scanStatus().value(0), 2);
    }
};

QTEST_GUILESS_MAIN(KestalServiceTest)
#include "test_kestal_service.moc"
