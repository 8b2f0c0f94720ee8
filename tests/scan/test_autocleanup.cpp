// Auto Cleanup: five child modules scanning at once under module 0's status.
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QtTest>
#include <memory>

namespace {

const QStringList kChildren = {"System Junk", "Photo Cache", "Mail Trash", "Trash Bin",
                               "iTunes Junk"};

// What module 0's screen is told, kept on the heap so late calls land safely.
struct Seen {
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
void writeTable(TestEnvironment &env)
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
            children << TestEnvironment::categoryRow(
                QLatin1String(sub), {},
                QVariantList{QStringLiteral("file:///%1/%2/").arg(dir, QLatin1String(sub))}, 1);
        rows << TestEnvironment::moduleRow(kChildren[m - 1], children);
    }
    env.writeModules(rows);
}

std::shared_ptr<Seen> start(std::shared_ptr<Seen> seen = std::make_shared<Seen>())
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

class TestAutoCleanup : public QObject {
    Q_OBJECT

private slots:
    void fiveChildrenFinishOnceEach()
    {
        TestEnvironment env;
        writeTable(env);
        const auto seen = start();
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
        start(seen);
        QTRY_COMPARE(KestalService::scanStatus().value(0), -1);
        for (int n = 0; n < 5; ++n)
            QCOMPARE(seen->finishedOf(n), 2);
    }

    void stopSilencesAllChildren()
    {
        TestEnvironment env;
        writeTable(env);
        const auto seen = start();
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

QTEST_GUILESS_MAIN(TestAutoCleanup)
#include "test_autocleanup.moc"
