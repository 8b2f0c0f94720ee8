// The privilege change for real. Started as root, this test sets up an unprivileged
// user (setup-privilege.sh) and runs itself again as that user from copies it can
// read; the helper, started through `sudo -n` in place of pkexec, removes what it may not.

#include "CleanTestSupport.h"
#include "SafetyProperty.h"
#include "TestPaths.h"

#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>

using namespace CleanTest;

const char kDest[] = "/tmp/brenlow-clean-test";

class TestPrivilege : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        if (geteuid() == 0 || !qEnvironmentVariableIsSet("BRENLOW_PRIVILEGE_CHILD"))
            QSKIP("needs the unprivileged test user that root sets up");
    }
    void cleanupTestCase() { XPCUtil::shutdown(); }

    void propertyThroughTheHelper()
    {
        useHelper("sudo -n");
        // Every case goes through the pipeline: what sits in a locked folder
        // reaches the helper through sudo.
        SafetyProperty::rounds(100, 8, {.lockSome = true, .directHelper = false});
    }

    // A helper the sudo rules do not list: the command line cleans what it
    // may itself, logs the rest and ends with 2.
    void commandLineLogsWhatTheHelperCouldNot()
    {
        TreeBuilder sandbox;
        const QString locked = sandbox.file("home/.cache/locked/inner", 10);
        const QString free = sandbox.file("home/.cache/free", 10);
        sandbox.chmod("home/.cache/locked", 0555);
        sandbox.folder("root");
        const QString dest = QString::fromLatin1(kDest);
        QProcessEnvironment environment =
            cliEnvironment(sandbox, dest + "/share/brenlow/linux", "sudo -n");
        environment.insert("BRENLOW_HELPER_PATH",
                           dest + "/libexec/brenlow/brenlow-helper-unlisted");
        environment.remove("BRENLOW_SERVICE_PATH");
        QProcess cli;
        cli.setProcessEnvironment(environment);
        cli.start(cliProgram, {"clean", "System Junk", "--select", "all", "--yes"});
        QVERIFY(cli.waitForFinished(60000));
        const QString out = QString::fromLocal8Bit(cli.readAllStandardOutput());
        QCOMPARE(cli.exitCode(), 2);
        QVERIFY(!QFileInfo::exists(free));
        QVERIFY(QFileInfo::exists(locked));
        QVERIFY(out.contains(QLatin1String("get root fail")));
        QVERIFY(out.contains(QFileInfo(locked).path()));
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
            QList<QByteArray> args =
                QByteArray("runuser -u brenlow-clean -- env BRENLOW_PRIVILEGE_CHILD=1").split(' ');
            args << QByteArray("BRENLOW_TEST_BIN=") + kDest
                 << QByteArray(kDest) + "/tests/" +
                        QByteArray(self).mid(QByteArray(self).lastIndexOf('/') + 1);
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
