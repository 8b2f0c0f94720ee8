// The clean pipeline in this process, and through the real service and helper
// for items that vanished after the scan, which the in-process removal refuses.

#include "CleanTestSupport.h"

using namespace CleanTest;

class TestCleanPipeline : public QObject {
    Q_OBJECT

private:
    // A module of these categories, each listing its files, all selected.
    void loadSelected(TestEnvironment &env, TreeBuilder &tree, const QList<QStringList> &files)
    {
        QStringList roots;
        for (qsizetype ci = 0; ci < files.size(); ++ci)
            roots.append(tree.folder(QStringLiteral("c%1").arg(ci)));
        writeModule(env, roots);
        QList<Category> &categories = AppModuleService::categoriesOf(0);
        for (qsizetype ci = 0; ci < files.size(); ++ci) {
            for (const QString &name : files[ci])
                appendNode(categories[ci],
                           tree.file(QStringLiteral("c%1/").arg(ci) + name, 100 + ci), false)
                    ->checked = 1;
            categories[ci].state = 1;
        }
    }

private slots:
    void init()
    {
        useHelper(QString());
        qunsetenv("BRENLOW_HELPER_START_TIMEOUT_MS");
    }
    void cleanupTestCase() { XPCUtil::shutdown(); }

    void stopBeforeTheFirstItem()
    {
        TestEnvironment env;
        TreeBuilder tree;
        loadSelected(env, tree, {{QStringLiteral("a"), QStringLiteral("b")}});
        CleanRun run;
        QVERIFY(run.cleanToEnd(0, true));
        QCOMPARE(run.reports.size(), 1);
        const CleanRun::Report &r = run.reports.first();
        QVERIFY(!r.result);
        QCOMPARE((QList<qint64>{r.ci, r.status, r.number, r.size}), (QList<qint64>{-1, -3, 0, 0}));
        QVERIFY(QFile::exists(tree.path(QStringLiteral("c0/a"))));
        QCOMPARE(AppModuleService::categoriesOf(0)[0].files.size(), 2);
    }

    // Categories 1 and 2 each hold a vanished item, which goes to the helper; the
    // second request waits for the first one's answer.
    void helperOutcomes_data()
    {
        QTest::addColumn<QString>("launcher");
        QTest::addColumn<bool>("helperPresent");
        QTest::addColumn<int>("runStatus");
        QTest::addColumn<int>("vanishedStatus");
        QTest::newRow("helper reached") << QString() << true << 999 << 3;
        QTest::newRow("launcher refuses") << QStringLiteral("false") << true << -2 << 8;
        QTest::newRow("no helper") << QString() << false << -2 << 8;
    }

    void helperOutcomes()
    {
        QFETCH(QString, launcher);
        QFETCH(bool, helperPresent);
        QFETCH(int, runStatus);
        QFETCH(int, vanishedStatus);
        useHelper(launcher,
                  helperPresent ? helperProgram : QStringLiteral("/nonexistent/brenlow-helper"));
        TestEnvironment env;
        TreeBuilder tree(TreeBuilder::Place::RealHome);
        loadSelected(env, tree,
                     {{QStringLiteral("a")},
                      {QStringLiteral("b"), QStringLiteral("gone1")},
                      {QStringLiteral("gone2"), QStringLiteral("c")}});
        QFile::remove(tree.path(QStringLiteral("c1/gone1")));
        QFile::remove(tree.path(QStringLiteral("c2/gone2")));

        CleanRun run;
        QVERIFY(run.cleanToEnd(0));
        QCOMPARE(run.status, runStatus);
        // What went in process stays gone whatever became of the helper.
        for (const char *name : {"c0/a", "c1/b", "c2/c"})
            QVERIFY(!QFile::exists(tree.path(QLatin1String(name))));

        const QList<cleanCategory> plan = KestalModuleCleanService::cleanInfoDict().value(0);
        QCOMPARE(plan[1].folders[1].status, vanishedStatus);
        QCOMPARE(plan[2].folders[0].status, vanishedStatus);
        QCOMPARE(plan[1].folders[0].status, 1);
        // The failed items stay listed, the removed ones leave.
        QCOMPARE(AppModuleService::categoriesOf(0)[1].files.size(), 1);
        QCOMPARE(AppModuleService::categoriesOf(0)[1].files[0]->name, QStringLiteral("gone1"));
        QCOMPARE(AppModuleService::categoriesOf(0)[0].files.size(), 0);
        // Only what went counts: one item of 100, 101 and 102 bytes each.
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(0), std::make_pair(qint64(303), 3));
        if (runStatus == 999) {
            QCOMPARE(run.reports.size(), 4);
            QCOMPARE(run.reports[1].ci, 1);
            QCOMPARE(run.reports[1].status, 3);
            QCOMPARE(run.reports[1].number, 1);
            QCOMPARE(run.reports[2].ci, 2);
            QVERIFY(KestalModuleCleanService::passHelpTool());
        } else {
            // One install failure closes the run: the queued request is dropped.
            QCOMPARE(run.reports.size(), 2);
            QCOMPARE(run.reports[0].ci, 0);
            QVERIFY(!KestalModuleCleanService::passHelpTool());
            QVERIFY(KestalModuleCleanService::modelHelpTool().isEmpty());
        }
    }

    // A stop after a request went to the helper: the rest is not tried, and
    // the helper's answer closes the run.
    void stopAfterAHelperRequest()
    {
        TestEnvironment env;
        TreeBuilder tree(TreeBuilder::Place::RealHome);
        loadSelected(env, tree,
                     {{QStringLiteral("gone")}, {QStringLiteral("a")}, {QStringLiteral("b")}});
        QFile::remove(tree.path(QStringLiteral("c0/gone")));
        // The screen side asks for the stop as the second category ends.
        struct StopAfterSecond : KestalCleanProtocol {
            QList<int> cis;
            std::atomic<bool> closed = false;
            void done(bool, int ci, int, int, qint64) override
            {
                if (ci == 1)
                    KestalModuleCleanService::setStop(0, true);
                if (ci == -1)
                    closed = true;
                else
                    cis.append(ci);
            }
        };
        auto screen = std::make_shared<StopAfterSecond>();
        KestalModuleCleanService::setStop(0, false);
        KestalModuleCleanService::analysisModule(0, screen);
        QTRY_VERIFY_WITH_TIMEOUT(screen->closed, 20000);
        QCOMPARE(screen->cis, (QList<int>{1, 0}));
        QVERIFY(!QFile::exists(tree.path(QStringLiteral("c1/a"))));
        QVERIFY(QFile::exists(tree.path(QStringLiteral("c2/b"))));
        QCOMPARE(AppModuleService::categoriesOf(0)[2].files.size(), 1);
    }

    // What needs the helper meets a service, or a launcher, that fails: the
    // run ends with -2 and the failure's number, and so does the next run,
    // which tries the service again. Once the service works, the next run
    // starts it afresh and reaches the helper.
    void serviceFailuresEndTheRun_data()
    {
        // A script's body, or empty: the real service, or none when not `executable`.
        QTest::addColumn<QByteArray>("service");
        QTest::addColumn<bool>("executable");
        QTest::addColumn<QByteArray>("launcher"); // a script's body; empty: none
        QTest::addColumn<QString>("failure");
        QTest::newRow("service missing") << QByteArray() << false << QByteArray() << "1000";
        QTest::newRow("service not executable")
            << QByteArray("exit 0") << false << QByteArray() << "1023";
        QTest::newRow("service ends at once")
            << QByteArray("exit 1") << true << QByteArray() << "1023";
        QTest::newRow("service ends after the request")
            << QByteArray("head -c 1 >/dev/null; exit 3") << true << QByteArray() << "1023";
        QTest::newRow("launcher never returns")
            << QByteArray() << true << QByteArray("exec sleep 600") << "1023";
    }

    void serviceFailuresEndTheRun()
    {
        QFETCH(QByteArray, service);
        QFETCH(bool, executable);
        QFETCH(QByteArray, launcher);
        QFETCH(QString, failure);
        TreeBuilder programs;
        useHelper(launcher.isEmpty() ? QString() : shellProgram(programs, "launcher", launcher));
        if (!service.isEmpty())
            qputenv("BRENLOW_SERVICE_PATH",
                    QFile::encodeName(shellProgram(programs, "service", service,
                                                   executable ? QFile::ReadOwner | QFile::ExeOwner
                                                              : QFile::ReadOwner)));
        else if (!executable)
            qputenv("BRENLOW_SERVICE_PATH", "/nonexistent/brenlow-service");
        qputenv("BRENLOW_HELPER_START_TIMEOUT_MS", "300");

        // The launcher is the running service's own: only a failed service is replaced.
        const int rounds = launcher.isEmpty() ? 3 : 2;
        for (int round = 0; round < rounds; ++round) {
            const bool works = round == 2;
            if (works)
                qputenv("BRENLOW_SERVICE_PATH", QFile::encodeName(serviceProgram));
            TestEnvironment env;
            TreeBuilder tree;
            loadSelected(env, tree, {{QStringLiteral("a"), QStringLiteral("gone")}});
            QFile::remove(tree.path(QStringLiteral("c0/gone")));
            CleanRun run;
            QVERIFY(run.cleanToEnd(0));
            QCOMPARE(run.status, works ? 999 : -2);
            if (!works)
                QCOMPARE(XPCUtil::instance()->installFailure(0), failure);
            QVERIFY(!QFile::exists(tree.path(QStringLiteral("c0/a"))));
            // The helper tried the vanished path itself and said why it failed.
            QCOMPARE(KestalModuleCleanService::cleanInfoDict().value(0)[0].folders[1].status,
                     int(works ? errorKind::delete_ : errorKind::getRoot));
        }
    }

    void editionWithoutAFileNameStops()
    {
        TestEnvironment env;
        writeInfo(env, QStringLiteral("CFBundleName"));
        XPCUtil::shutdown();
        QVERIFY(TestEnvironment::endsInFatalStop([] { XPCUtil::instance(); }));
    }
};

QTEST_GUILESS_MAIN(TestCleanPipeline)
#include "test_clean_pipeline.moc"
