// The privilege change for real. Started as root, this test sets up an
// unprivileged user (setup-privilege.sh) and runs itself again as that user,
// from copies that user can read. The client then meets files it may not
// remove; the helper, started through `sudo -n` in place of pkexec, may.

#include "CleanTestSupport.h"

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

bool isTestUser()
{
    return geteuid() != 0 && qEnvironmentVariableIsSet("BRENLOW_PRIVILEGE_CHILD");
}

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

    // Two categories, everything selected: c0 in a folder the user may not
    // write (its items need the helper), c1 in an ordinary one.
    void helperRemovesWhatTheClientMayNot()
    {
        useHelper(QStringLiteral("sudo -n"));
        TestEnvironment env;
        TreeBuilder tree;
        const QStringList locked = {tree.file(QStringLiteral("c0/f1"), 100),
                                    tree.file(QStringLiteral("c0/d/x"), 50),
                                    tree.path(QStringLiteral("c0/d"))};
        const QString free = tree.file(QStringLiteral("c1/g"), 7);
        tree.chmod(QStringLiteral("c0"), 0555);
        writeModule(env, {tree.path(QStringLiteral("c0")), tree.path(QStringLiteral("c1"))});
        QList<Category> &categories = AppModuleService::categoriesOf(0);
        appendNode(categories[0], locked[0], true);
        appendNode(categories[0], locked[2], true);
        appendNode(categories[1], free, true);
        for (int ci = 0; ci < 2; ++ci) {
            AppModuleService::updateState(1, 0, ci, -1, -1);
            categories[ci].state = 1;
        }
        QVERIFY(!FolderInfo::deleteFile(FolderInfo::urlFromPath(locked.first())));
        CleanRun run;
        QVERIFY(run.cleanToEnd(0));
        QCOMPARE(run.status, 999);
        for (const QString &p : locked + QStringList{free})
            QVERIFY2(!QFileInfo::exists(p), qPrintable(p));
        QCOMPARE(KestalService::cleanningCompletedStatus().value(0).value(0),
                 (CleanTriple{999, 2, 150}));
        QCOMPARE(KestalService::cleanTotalSizeAndNumber().value(0), std::make_pair(qint64(157), 3));
        QVERIFY(AppModuleService::categoriesOf(0)[0].files.isEmpty());
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
        QProcessEnvironment environment = cliEnvironment(
            sandbox, dest() + QStringLiteral("/share/brenlow/linux"), QStringLiteral("sudo -n"));
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
