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

    // The listed items' folder is swapped for a link after the scan, to a
    // folder holding the same names: nothing behind the link goes, in
    // process or through the helper, and the items fail.
    void swappedFolderLeadsNowhere_data()
    {
        QTest::addColumn<bool>("swapItem");
        QTest::newRow("the category's folder became a link") << false;
        QTest::newRow("a listed folder became a link") << true;
    }

    void swappedFolderLeadsNowhere()
    {
        QFETCH(bool, swapItem);
        TestEnvironment env;
        TreeBuilder tree(TreeBuilder::Place::RealHome);
        TreeBuilder outside;
        loadSelected(env, tree, {{QStringLiteral("a"), QStringLiteral("b")}});
        outside.file(QStringLiteral("a/inner"), 11);
        outside.file(QStringLiteral("b"), 11);
        const QString swapped = swapItem ? tree.path(QStringLiteral("c0/a")) : tree.path("c0");
        if (swapItem) {
            QFile::remove(swapped);
            tree.symlink(QStringLiteral("c0/a"), outside.path(QStringLiteral("a")));
        } else {
            QVERIFY(QFile::rename(swapped, tree.path(QStringLiteral("c0-scanned"))));
            tree.symlink(QStringLiteral("c0"), outside.root());
        }
        const QMap<QByteArray, QByteArray> untouched = snapshot(outside.root());

        CleanRun run;
        QVERIFY(run.cleanToEnd(0));
        QCOMPARE(snapshot(outside.root()), untouched);
        QCOMPARE(run.reports.first().status, 3);
        QVERIFY(!run.reports.first().result);
        const QList<cleanFolder> &items =
            KestalModuleCleanService::cleanInfoDict().value(0).first().folders;
        QCOMPARE(items[0].status, 3);
        // The untouched sibling goes only where its folder is still the scanned one.
        QCOMPARE(items[1].status, swapItem ? 1 : 3);
    }

    // What needs the helper meets a service, or a launcher, that fails: the
    // run ends with -2 and the failure's number, and so does the next run,
    // which tries the service again.
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

        for (int round = 0; round < 2; ++round) {
            TestEnvironment env;
            TreeBuilder tree;
            loadSelected(env, tree, {{QStringLiteral("a"), QStringLiteral("gone")}});
            QFile::remove(tree.path(QStringLiteral("c0/gone")));
            CleanRun run;
            QVERIFY(run.cleanToEnd(0));
            QCOMPARE(run.status, -2);
            QCOMPARE(XPCUtil::instance()->installFailure(0), failure);
            QVERIFY(!QFile::exists(tree.path(QStringLiteral("c0/a"))));
            QCOMPARE(KestalModuleCleanService::cleanInfoDict().value(0)[0].folders[1].status,
                     int(errorKind::getRoot));
        }
    }

    // A service that went is started afresh: the next clean reaches the helper.
    void aLostServiceIsStartedAgain()
    {
        TreeBuilder programs;
        const QString dying = shellProgram(programs, "service", "head -c 1 >/dev/null; exit 3");
        for (const QString &service : {dying, serviceProgram}) {
            qputenv("BRENLOW_SERVICE_PATH", QFile::encodeName(service));
            TestEnvironment env;
            TreeBuilder tree;
            loadSelected(env, tree, {{QStringLiteral("gone")}});
            QFile::remove(tree.path(QStringLiteral("c0/gone")));
            CleanRun run;
            QVERIFY(run.cleanToEnd(0));
            QCOMPARE(run.status, service == dying ? -2 : 999);
        }
        // The helper tried the vanished path and said why it failed.
        QCOMPARE(KestalModuleCleanService::cleanInfoDict().value(0)[0].folders[0].status,
                 int(errorKind::delete_));
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
