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

// Lets the main loop run n timer intervals.
void waitForTicks(int n)
{
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
};

QTEST_GUILESS_MAIN(KestalServiceTest)
#include "test_kestal_service.moc"
