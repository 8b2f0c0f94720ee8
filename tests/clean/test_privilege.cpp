// The privilege change for real. Started as root, this test sets up an
// unprivileged user (setup-privilege.sh) and runs itself again as that user,
// from copies that user can read. The client then meets files it may not
// remove; the helper, started through `sudo -n` in place of pkexec, may.

#include "CleanTestSupport.h"

#include <QProcessEnvironment>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>

using namespace CleanTest;

namespace {

const char kDest[] = "/tmp/brenlow-clean-test";

QString dest()
{
    return QString::fromLatin1(kDest);
}

QString unlistedHelper()
{
    return dest() + QStringLiteral("/libexec/brenlow/brenlow-helper-unlisted");
}

bool isTestUser()
{
    return geteuid() != 0 && qEnvironmentVariableIsSet("BRENLOW_PRIVILEGE_CHILD");
}

// Two categories: c0 in a folder the user may not write (its items need the
// helper), c1 in an ordinary one. Everything selected.
struct LockedTree {
    TreeBuilder tree;
    QList<QString> locked, free;

    explicit LockedTree(TestEnvironment &env)
    {
        locked = {tree.file(QStringLiteral("c0/f1"), 100), tree.file(QStringLiteral("c0/d/x"), 50),
                  tree.path(QStringLiteral("c0/d"))};
        free = {tree.file(QStringLiteral("c1/g"), 7)};
        tree.chmod(QStringLiteral("c0"), 0555);
        writeModule(
            env,
            {{FolderInfo::absoluteString(FolderInfo::urlFromPath(tree.path(QStringLiteral("c0"))))},
             {FolderInfo::absoluteString(
                 FolderInfo::urlFromPath(tree.path(QStringLiteral("c1"))))}});
        QList<Category> &categories = AppModuleService::categoriesOf(0);
        for (int ci = 0; ci < 2; ++ci) {
            for (const QString &name :
                 {QStringLiteral("c%1/f1"), QStringLiteral("c%1/d"), QStringLiteral("c%1/g")}) {
                const QString path = tree.path(name.arg(ci));
                if (!QFileInfo::exists(path))
                    continue;
                FolderInfoPtr node = FolderInfo::folderInfo(
                    FolderUrl{FolderInfo::absoluteString(FolderInfo::urlFromPath(path))}, true, {});
                node->findex = int(categories[ci].files.size());
                categories[ci].files.append(node);
            }
            AppModuleService::updateState(1, 0, ci, -1, -1);
            categories[ci].state = 1;
        }
    }
};

} // namespace

class TestPrivilege : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        if (!isTestUser())
            QSKIP("needs the unprivileged test user that root sets up");
    }
    void cleanupTestCase() { XPCUtil::shutdown(); }

    void helperRemovesWhatTheClientMayNot()
    {
        useHelper(QStringLiteral("sudo -n"));
        TestEnvironment env;
        LockedTree t(env);
        QVERIFY(!FolderInfo::deleteFile(FolderInfo::urlFromPath(t.locked.first())));
        CleanRun run;
        run.start(0);
        QTRY_VERIFY_WITH_TIMEOUT(run.finished, 20000);
        QCOMPARE(run.status, 999);
        for (const QString &p : t.locked + t.free)
            QVERIFY2(!QFileInfo::exists(p), qPrintable(p));
        QCOMPARE(KestalService::cleanningCompletedStatus().value(0).value(0),
                 (CleanTriple{999, 2, 150}));
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(0), std::make_pair(qint64(157), 3));
        QVERIFY(AppModuleService::categoriesOf(0)[0].files.isEmpty());
    }

    void refusedLauncherLeavesTheRestUntried()
    {
        useHelper(QStringLiteral("sudo -n"), unlistedHelper());
        TestEnvironment env;
        LockedTree t(env);
        CleanRun run;
        run.start(0);
        QTRY_VERIFY_WITH_TIMEOUT(run.finished, 20000);
        QCOMPARE(run.status, -2);
        for (const QString &p : t.locked)
            QVERIFY(QFileInfo::exists(p));
        QVERIFY(!QFileInfo::exists(t.free.first()));
        const QList<cleanCategory> plan = KestalModuleCleanService::cleanInfoDict().value(0);
        for (const cleanFolder &entry : plan[0].folders)
            QCOMPARE(entry.status, 8);
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(0), std::make_pair(qint64(7), 1));
        QCOMPARE(AppModuleService::categoriesOf(0)[0].files.size(), 2);
    }

    void helperWithoutRightsFailsEachItem()
    {
        useHelper(QString());
        TestEnvironment env;
        LockedTree t(env);
        CleanRun run;
        run.start(0);
        QTRY_VERIFY_WITH_TIMEOUT(run.finished, 20000);
        // The items stay (inside the folder, what the user may remove is gone).
        QVERIFY(QFileInfo::exists(t.locked[0]));
        QVERIFY(QFileInfo::exists(t.locked[2]));
        const auto first = std::find_if(run.reports.begin(), run.reports.end(),
                                        [](const CleanRun::Report &r) { return r.ci == 0; });
        QVERIFY(first != run.reports.end());
        QVERIFY(!first->result);
        QCOMPARE(first->status, 3);
        QCOMPARE(run.status, 999);
        QCOMPARE(KestalService::cleanningCompletedStatus().value(0).value(0),
                 (CleanTriple{3, 0, 0}));
        const QList<cleanCategory> plan = KestalModuleCleanService::cleanInfoDict().value(0);
        for (const cleanFolder &entry : plan[0].folders)
            QCOMPARE(entry.status, 3);
        QCOMPARE(AppModuleService::categoriesOf(0)[0].files.size(), 2);
    }

    void propertyThroughTheHelper()
    {
        useHelper(QStringLiteral("sudo -n"));
        for (quint32 seed = 100; seed < 108; ++seed) {
            RandomClean::cleanAndVerify(seed, true);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QStringLiteral("failed with seed %1").arg(seed)));
        }
    }

    void commandLineLogsFailures_data()
    {
        QTest::addColumn<QString>("helper");
        QTest::addColumn<int>("exitCode");
        QTest::newRow("helper reached") << QStringLiteral("brenlow-helper") << 0;
        QTest::newRow("helper refused") << QStringLiteral("brenlow-helper-unlisted") << 2;
    }

    void commandLineLogsFailures()
    {
        QFETCH(QString, helper);
        QFETCH(int, exitCode);
        TreeBuilder sandbox;
        const QString locked = sandbox.file(QStringLiteral("home/.cache/locked/inner"), 10);
        const QString free = sandbox.file(QStringLiteral("home/.cache/free"), 10);
        sandbox.chmod(QStringLiteral("home/.cache/locked"), 0555);
        sandbox.folder(QStringLiteral("root"));
        QProcess cli;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("HOME"), sandbox.path(QStringLiteral("home")));
        environment.insert(QStringLiteral("BRENLOW_ROOT"), sandbox.path(QStringLiteral("root")));
        environment.insert(QStringLiteral("BRENLOW_PLATFORM"), QStringLiteral("linux"));
        environment.insert(QStringLiteral("BRENLOW_RESOURCES"),
                           dest() + QStringLiteral("/share/brenlow/linux"));
        environment.insert(QStringLiteral("BRENLOW_HELPER_LAUNCHER"), QStringLiteral("sudo -n"));
        environment.insert(QStringLiteral("BRENLOW_HELPER_PATH"),
                           dest() + QStringLiteral("/libexec/brenlow/") + helper);
        environment.remove(QStringLiteral("BRENLOW_SERVICE_PATH"));
        cli.setProcessEnvironment(environment);
        cli.start(cliProgram(),
                  {QStringLiteral("clean"), QStringLiteral("System Junk"),
                   QStringLiteral("--select"), QStringLiteral("all"), QStringLiteral("--yes")});
        QVERIFY(cli.waitForFinished(60000));
        const QString out = QString::fromLocal8Bit(cli.readAllStandardOutput());
        QCOMPARE(cli.exitCode(), exitCode);
        QVERIFY(!QFileInfo::exists(free));
        QCOMPARE(QFileInfo::exists(locked), exitCode == 2);
        QCOMPARE(out.contains(QLatin1String("get root fail")), exitCode == 2);
        QCOMPARE(out.contains(QFileInfo(locked).path()), exitCode == 2);
    }
};

int main(int argc, char *argv[])
{
    if (geteuid() == 0 && !qEnvironmentVariableIsSet("BRENLOW_PRIVILEGE_CHILD")) {
        char self[4096];
        const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
        self[n > 0 ? n : 0] = 0;
        const QByteArray setup =
            QByteArray("bash '" BRENLOW_TEST_SOURCE_DIR
                       "/tests/clean/setup-privilege.sh' '" BRENLOW_TEST_BINARY_DIR "' '") +
            kDest + "' '" + self + "'";
        const int status = std::system(setup.constData());
        // Root without sudo or runuser skips; any other failure of the set-up
        // must not pass as a skip.
        if (!WIFEXITED(status) || (WEXITSTATUS(status) != 0 && WEXITSTATUS(status) != 77)) {
            std::fprintf(stderr, "the privilege set-up failed (status %d)\n", status);
            return 1;
        }
        if (WEXITSTATUS(status) == 0) {
            // Run again as the test user, from the copy it can read.
            QList<QByteArray> args = {
                "runuser",
                "-u",
                "brenlow-clean",
                "--",
                "env",
                "BRENLOW_PRIVILEGE_CHILD=1",
                QByteArray("BRENLOW_TEST_BIN=") + kDest,
                QByteArray(kDest) + "/tests/" +
                    QFileInfo(QFile::decodeName(self)).fileName().toLocal8Bit()};
            for (int i = 1; i < argc; ++i)
                args.append(argv[i]);
            QList<char *> raw;
            for (QByteArray &a : args)
                raw.append(a.data());
            raw.append(nullptr);
            execvp("runuser", raw.data());
            std::perror("runuser");
            return 1;
        }
    }
    QCoreApplication app(argc, argv);
    TestPrivilege test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_privilege.moc"
