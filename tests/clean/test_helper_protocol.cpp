// The helper and the service as real processes, spoken to in frames.

#include "CleanTestSupport.h"
#include "TestPaths.h"
#include "cleaner/clean/InstallFailure.h"

#include <csignal>
#include <sys/ioctl.h>

using namespace CleanTest;

namespace {

// Whether a process is still running (a zombie has ended).
bool running(qint64 pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly))
        return false;
    const QByteArray line = stat.readAll();
    return line.mid(line.lastIndexOf(')') + 2, 1) != "Z";
}

// Bytes waiting in a process's standard input, read through its /proc entry.
int waitingInput(qint64 pid)
{
    const int fd = ::open(QByteArray("/proc/" + QByteArray::number(pid) + "/fd/0").constData(),
                          O_RDONLY | O_NONBLOCK);
    int bytes = 0;
    if (fd >= 0 && ::ioctl(fd, FIONREAD, &bytes) != 0)
        bytes = 0;
    if (fd >= 0)
        ::close(fd);
    return bytes;
}

qint64 pidIn(const QString &file)
{
    QFile f(file);
    return f.open(QIODevice::ReadOnly) ? f.readAll().trimmed().toLongLong() : 0;
}

QCborMap serviceDelete(qint64 module)
{
    return Wire::call(Wire::serviceOperation, {Wire::wireFromPaths({{"/nonexistent/x", {0, 0, 0}}}),
                                               qint64(operationType::delete_), module, QCborMap()});
}

void expectInstallFail(const std::optional<QCborMap> &answer, const QString &number, int module)
{
    QVERIFY(answer);
    QCOMPARE(answer->value(QStringLiteral("sel")).toString(), QLatin1String(Wire::installFail));
    QCOMPARE(answer->value(QStringLiteral("args")).toArray().at(0).toString(), number);
    QCOMPARE(answer->value(QStringLiteral("args")).toArray().at(1).toInteger(), module);
}

} // namespace

class TestHelperProtocol : public QObject {
    Q_OBJECT

private:
    void stillServes(Peer &helper)
    {
        helper.send(Wire::call(Wire::getVersion, {}, 77));
        const auto answer = helper.next();
        QVERIFY(answer);
        QCOMPARE(answer->value(QStringLiteral("reply")).toInteger(), 77);
        QVERIFY(!answer->value(QStringLiteral("value")).toString().isEmpty());
    }

private slots:
    void init() { qunsetenv("BRENLOW_HELPER_START_TIMEOUT_MS"); }
    // A stop ends the module's requests that came before it: the one running
    // stops between two paths, the one waiting behind it touches nothing.
    void stopEndsTheModulesRequests()
    {
        TreeBuilder tree(TreeBuilder::Place::RealHome);
        QList<QByteArray> many, waiting;
        for (int i = 0; i < 3000; ++i)
            many.append(QFile::encodeName(tree.file(QStringLiteral("many/%1").arg(i))));
        for (int i = 0; i < 3; ++i)
            waiting.append(QFile::encodeName(tree.file(QStringLiteral("waiting/%1").arg(i))));
        Peer helper(helperProgram);
        helper.process.write(
            FrameDecoder::encode(deleteCall(many)) + FrameDecoder::encode(deleteCall(waiting)) +
            FrameDecoder::encode(operationCall(QCborMap(), qint64(operationType::stop), 3)));
        const auto first = helper.nextSkippingProgress();
        const auto second = helper.nextSkippingProgress();
        QVERIFY(first && second);
        for (int status : statuses(*first))
            QVERIFY(status == 1 || status == 7);
        QCOMPARE(statuses(*second).values(), QList<int>(3, 7));
        QVERIFY(!second->value(QStringLiteral("args")).toArray().at(0).toBool());
        for (const QByteArray &p : waiting)
            QVERIFY(existsOnDisk(p));
    }

    // A recorded session: each request ("> ", CBOR in hex) must draw exactly
    // the recorded answers ("< "), byte for byte, so the wire form cannot drift.
    void recordedTranscript()
    {
        QFile in(QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/tests/clean/helper-transcript.txt"));
        QVERIFY(in.open(QIODevice::ReadOnly));
        Peer helper(helperProgram);
        int answers = 0;
        for (const QByteArray &line : in.readAll().split('\n')) {
            if (line.startsWith("> ")) {
                helper.process.write(framed(QByteArray::fromHex(line.mid(2))));
            } else if (line.startsWith("< ")) {
                const auto answer = helper.next();
                QVERIFY(answer);
                QCOMPARE(answer->toCborValue().toCbor().toHex(), line.mid(2));
                ++answers;
            }
        }
        QCOMPARE(answers, 6);
        stillServes(helper);
    }

    void launcherFailureNumbers()
    {
        const QString pkexec = QStringLiteral("Error executing command as another user: ");
        const struct {
            QString launcher;
            int exitCode;
            QString errors;
            int number;
        } rows[] = {
            {"pkexec", 126, pkexec + "Request dismissed", 1021},
            {"/usr/bin/pkexec", 127, pkexec + "Not authorized", 1020},
            {"pkexec", 127, pkexec + "No authentication agent found.", 1022},
            {"sudo", 1, "sudo: a password is required", 1022},
            {"sudo", 1, "Sorry, user x is not allowed to execute '/h' as root", 1020},
        };
        for (const auto &r : rows)
            QCOMPARE(InstallFailure::fromLauncher(r.launcher, r.exitCode, r.errors), r.number);
    }

    void serviceReportsInstallFailures_data()
    {
        QTest::addColumn<QString>("launcher");
        QTest::addColumn<QString>("helper");
        QTest::addColumn<QString>("number");
        QTest::newRow("helper missing") << QString() << "/nonexistent/brenlow-helper"
                                        << "1000";
        QTest::newRow("launcher missing") << "/nonexistent/launcher" << helperProgram << "1022";
    }

    void serviceReportsInstallFailures()
    {
        QFETCH(QString, launcher);
        QFETCH(QString, helper);
        QFETCH(QString, number);
        useHelper(launcher, helper);
        Peer service(serviceProgram, serviceArgs);
        // An announcement is not answered; the request after it is.
        service.send(Wire::call(Wire::serviceOperation,
                                {QCborMap(), qint64(operationType::start), 4, QCborMap()}));
        service.send(
            Wire::call(Wire::serviceOperation, {Wire::wireFromPaths({{"/tmp/x", {0, 0, 0}}}),
                                                qint64(operationType::delete_), 4, QCborMap()}));
        expectInstallFail(service.next(), number, 4);
    }

    // A launcher that never brings the helper up is given up once the
    // time-out passes: the request gets an install failure, and what the
    // launcher started is ended with it.
    void launcherThatNeverAnswersIsGivenUp()
    {
        TreeBuilder programs;
        const QString pidFile = programs.path(QStringLiteral("sleeper.pid"));
        useHelper(shellProgram(programs, "launcher",
                               "sleep 600 & echo $! > '" + QFile::encodeName(pidFile) + "'; wait"));
        qputenv("BRENLOW_HELPER_START_TIMEOUT_MS", "300");
        Peer service(serviceProgram, serviceArgs, true);
        service.send(serviceDelete(4));
        expectInstallFail(service.next(), QStringLiteral("1023"), 4);
        const qint64 sleeper = pidIn(pidFile);
        QVERIFY(sleeper > 0);
        QTRY_VERIFY(!running(sleeper));
    }

    // A helper that dies with a request out: that module hears of it, one
    // whose request was answered before does not.
    void helperThatDiesAnswersWhatItHadOut()
    {
        TreeBuilder programs;
        const QString pidFile = programs.path(QStringLiteral("helper.pid"));
        useHelper(shellProgram(programs, "launcher",
                               "exec 3<&0; \"$@\" <&3 & echo $! > '" + QFile::encodeName(pidFile) +
                                   "'; wait $!"));
        Peer service(serviceProgram, serviceArgs);
        service.send(serviceDelete(4));
        const auto first = service.nextSkippingProgress();
        QVERIFY(first);
        QCOMPARE(first->value(QStringLiteral("sel")).toString(), QLatin1String(Wire::finished));
        const qint64 helper = pidIn(pidFile);
        QVERIFY(helper > 0);
        ::kill(pid_t(helper), SIGSTOP);
        service.send(serviceDelete(5));
        // The request has reached the helper when it waits at its input.
        QTRY_VERIFY(waitingInput(helper) > 0);
        ::kill(pid_t(helper), SIGKILL);
        expectInstallFail(service.nextSkippingProgress(), QStringLiteral("1023"), 5);
        // The next request starts the helper afresh; nothing else came in between.
        service.send(serviceDelete(6));
        const auto next = service.nextSkippingProgress();
        QVERIFY(next);
        QCOMPARE(next->value(QStringLiteral("sel")).toString(), QLatin1String(Wire::finished));
        QCOMPARE(next->value(QStringLiteral("args")).toArray().last().toInteger(), 6);
    }
};

QTEST_GUILESS_MAIN(TestHelperProtocol)
#include "test_helper_protocol.moc"
