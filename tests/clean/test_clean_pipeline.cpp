// The clean pipeline in this process, and through the real service and
// helper where an item cannot go in process (here: an item that vanished
// after the scan, which the in-process removal refuses).

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
    void init() { useHelper(QString()); }
    void cleanupTestCase() { XPCUtil::shutdown(); }

    void propertyInProcess()
    {
        for (quint32 seed = 1; seed <= 12; ++seed) {
            RandomClean::cleanAndVerify(seed, false);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("failed with seed %1").arg(seed)));
        }
    }

    void nothingSelectedFinishesInProcess()
    {
        TestEnvironment env;
        TreeBuilder tree;
        loadSelected(env, tree, {{QStringLiteral("a")}, {QStringLiteral("b")}});
        for (int ci = 0; ci < 2; ++ci)
            AppModuleService::updateState(0, 0, ci, -1, std::nullopt);
        CleanRun run;
        QVERIFY(run.cleanToEnd(0));
        QCOMPARE(run.reports.size(), 3);
        for (int i = 0; i < 3; ++i) {
            QCOMPARE(run.reports[i].ci, i < 2 ? i : -1);
            QCOMPARE(run.reports[i].status, 999);
            QCOMPARE(run.reports[i].number, 0);
        }
        QVERIFY(QFile::exists(tree.path(QStringLiteral("c0/a"))));
    }

    void stopBeforeTheFirstItem()
    {
        TestEnvironment env;
        TreeBuilder tree;
        loadSelected(env, tree, {{QStringLiteral("a"), QStringLiteral("b")}});
        CleanRun run;
        QVERIFY(run.cleanToEnd(0, true));
        QCOMPARE(run.reports.size(), 1);
        const CleanRun::Report &report = run.reports.first();
        QVERIFY(!report.result);
        QCOMPARE(report.ci, -1);
        QCOMPARE(report.status, -3);
        QCOMPARE(report.number, 0);
        QCOMPARE(report.size, 0);
        QVERIFY(QFile::exists(tree.path(QStringLiteral("c0/a"))));
        QCOMPARE(AppModuleService::categoriesOf(0)[0].files.size(), 2);
    }

    // Every listed child checked while the folder says "partly": the children
    // go one by one, and the emptied folder leaves the list.
    void partlySelectedFolderEmptiedLeavesTheTree()
    {
        TestEnvironment env;
        TreeBuilder tree;
        tree.file(QStringLiteral("c0/folder/x"), 10);
        tree.file(QStringLiteral("c0/folder/y"), 20);
        writeModule(env, {tree.path(QStringLiteral("c0"))});
        Category &c = AppModuleService::categoriesOf(0)[0];
        FolderInfoPtr folder = appendNode(c, tree.path(QStringLiteral("c0/folder")), true);
        folder->checked = -1;
        for (const FolderInfoPtr &child : folder->children)
            child->checked = 1;
        c.state = -1;
        CleanRun run;
        QVERIFY(run.cleanToEnd(0));
        QCOMPARE(run.status, 999);
        QCOMPARE(run.reports.first().number, 2);
        QCOMPARE(run.reports.first().size, 30);
        QVERIFY(AppModuleService::categoriesOf(0)[0].files.isEmpty());
        QVERIFY(QFileInfo(tree.path(QStringLiteral("c0/folder"))).isDir());
        QVERIFY(!QFile::exists(tree.path(QStringLiteral("c0/folder/x"))));
    }

    // Categories 1 and 2 each hold an item that vanished after the scan: the
    // in-process removal refuses it and it goes to the helper, whose fate
    // the launcher decides. The first request goes out alone; the second
    // waits for its answer.
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
                  helperPresent ? helperProgram() : QStringLiteral("/nonexistent/brenlow-helper"));
        TestEnvironment env;
        TreeBuilder tree;
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
        TreeBuilder tree;
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

    // The file tree's shred and move entry points reach the helper as their
    // own kinds of request, for the Eraser and Extensions modules.
    void shredAndMoveEntryPointsReachTheHelper()
    {
        TestEnvironment env;
        writeModule(env, {});
        TreeBuilder tree;
        const QString file = tree.file(QStringLiteral("keep me"), 4);
        struct Sink : DeleteFilesProgressProtocol {
            QList<std::pair<int, PathMap>> done;
            void installFail(const QString &, int) override {}
            void processed(const QString &, qint64, int) override {}
            void finished(bool, const PathMap &folders, int module) override
            {
                done.append({module, folders});
            }
        };
        auto sink = std::make_shared<Sink>();
        const QUrl url = FolderInfo::urlFromPath(file);
        FolderInfo::helperToolShredFiles({url}, sink);
        QTRY_COMPARE_WITH_TIMEOUT(sink->done.size(), 1, 20000);
        FolderInfo::helperToolMoveFiles({url}, sink);
        QTRY_COMPARE_WITH_TIMEOUT(sink->done.size(), 2, 20000);
        QCOMPARE(sink->done[0].first, 10);
        QCOMPARE(sink->done[1].first, 12);
        // Neither kind is carried out yet: the item is answered "nocause" and stays.
        for (const auto &[module, folders] : std::as_const(sink->done))
            QCOMPARE(folders.value(FolderInfo::absoluteString(url)).last(), 4);
        QVERIFY(QFile::exists(file));
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
