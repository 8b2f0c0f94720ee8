// The privilege change for real. Started as root and asked to
// (BRENLOW_PRIVILEGE_TESTS=1), this test sets up an unprivileged user
// (setup-privilege.sh), runs itself again as that user from copies it can
// read, and removes the user and its sudo rule again (teardown-privilege.sh);
// the helper, started through `sudo -n` in place of pkexec, removes what the
// user may not.

#include "CleanTestSupport.h"
#include "SafetyProperty.h"
#include "TestPaths.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>

using namespace CleanTest;

const char kDest[] = "/tmp/brenlow-clean-test";
// What the set-up changes, locked while a run uses it.
const char kLock[] = "/etc/sudoers.d";

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

namespace {

// Runs a command line through the shell; its exit status, or -1.
int shell(const QByteArray &command)
{
    const int status = std::system(command.constData());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Runs this test again as the test user, from the copy it can read, with its
// trees in that user's home; the child's exit status.
int runAsTestUser(const QByteArray &self, int argc, char *argv[])
{
    const QByteArray home = QByteArray(kDest) + "/home";
    QList<QByteArray> args = QByteArray("runuser -u brenlow-clean -- env").split(' ');
    args << "BRENLOW_PRIVILEGE_CHILD=1" << QByteArray("BRENLOW_TEST_BIN=") + kDest << "HOME=" + home
         << "TMPDIR=" + home + "/tmp"
         << QByteArray(kDest) + "/tests/" + self.mid(self.lastIndexOf('/') + 1);
    for (int i = 1; i < argc; ++i)
        args.append(argv[i]);
    QList<char *> raw;
    for (QByteArray &a : args)
        raw.append(a.data());
    raw.append(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        execvp("runuser", raw.data());
        std::perror("runuser");
        _exit(127);
    }
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) < 0)
        return 1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}

} // namespace

int main(int argc, char *argv[])
{
    if (geteuid() == 0 && !qEnvironmentVariableIsSet("BRENLOW_PRIVILEGE_CHILD")) {
        char self[4096];
        const ssize_t n = readlink("/proc/self/exe", self, sizeof self - 1);
        self[n > 0 ? n : 0] = 0;
        const QByteArray scripts = "'" BRENLOW_TEST_SOURCE_DIR "/tests/clean/";
        // One user and one sudo rule serve every checkout on the machine: a
        // second run waits here until the first has removed them.
        const int lock = ::open(kLock, O_RDONLY | O_CLOEXEC);
        if (lock >= 0)
            ::flock(lock, LOCK_EX);
        const int setup = shell("bash " + scripts + "setup-privilege.sh' '" +
                                BRENLOW_TEST_BINARY_DIR "' '" + kDest + "' '" + self + "'");
        // Not asked to, or root without sudo or runuser, skips; any other
        // failure of the set-up must not pass as a skip.
        if (setup != 0 && setup != 77) {
            std::fprintf(stderr, "the privilege set-up failed (status %d)\n", setup);
            return 1;
        }
        if (setup == 0) {
            const int tests = runAsTestUser(self, argc, argv);
            // The machine is left as it was found, whatever the tests did.
            const int teardown =
                shell("bash " + scripts + "teardown-privilege.sh' '" + kDest + "'");
            if (teardown != 0) {
                std::fprintf(stderr, "the privilege tear-down left the test user behind\n");
                return 1;
            }
            return tests;
        }
    }
    QCoreApplication app(argc, argv);
    TestPrivilege test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_privilege.moc"
