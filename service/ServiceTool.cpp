#include "service/ServiceTool.h"

#include "cleaner/clean/InstallFailure.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace {

void logLine(const QString &text)
{
    std::fprintf(stderr, "brenlow-service: %s\n", text.toLocal8Bit().constData());
}

bool isReport(const QString &selector)
{
    return selector == QLatin1String(Wire::installFail) ||
           selector == QLatin1String(Wire::processed) || selector == QLatin1String(Wire::finished);
}

// Whether a launcher started now could ask for a password on our terminal:
// it must then stay in the terminal's foreground group to read it.
bool mayPromptOnTerminal()
{
    const int fd = ::open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (fd < 0)
        return false;
    const bool foreground = tcgetpgrp(fd) == getpgrp();
    ::close(fd);
    return foreground;
}

constexpr int defaultStartTimeoutMs = 120000;

} // namespace

ServiceTool::ServiceTool() : m_channel(0, 1), m_startTimer(new QTimer(&m_channel))
{
    m_startTimer->setSingleShot(true);
    QObject::connect(m_startTimer, &QTimer::timeout, m_startTimer, [this] { startTimedOut(); });
    QObject::connect(&m_channel, &StdioChannel::message, &m_channel,
                     [this](const QCborValue &m) { received(m); });
    QObject::connect(&m_channel, &StdioChannel::malformed, &m_channel, [this](const QString &why) {
        logLine(QStringLiteral("malformed message: ") + why);
        m_channel.send(Wire::error(why));
    });
    QObject::connect(&m_channel, &StdioChannel::closed, &m_channel,
                     [] { QCoreApplication::exit(0); });
}

ServiceTool::~ServiceTool()
{
    QProcess *helper = std::exchange(m_helper, nullptr);
    if (!helper)
        return;
    // Its end is no news any more; closing its input ends the helper once
    // its queue is done.
    QObject::disconnect(helper, nullptr, nullptr, nullptr);
    helper->closeWriteChannel();
    if (!helper->waitForFinished(10000))
        helper->kill();
    helper->waitForFinished(1000);
    delete helper;
}

QString ServiceTool::helperPath()
{
    const QString fromEnvironment = qEnvironmentVariable("BRENLOW_HELPER_PATH");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    return QCoreApplication::applicationDirPath() + QStringLiteral("/brenlow-helper");
}

QStringList ServiceTool::launcher()
{
    if (qEnvironmentVariableIsSet("BRENLOW_HELPER_LAUNCHER"))
        return QProcess::splitCommand(qEnvironmentVariable("BRENLOW_HELPER_LAUNCHER"));
    return {QStringLiteral("pkexec")};
}

int ServiceTool::startTimeout()
{
    if (!qEnvironmentVariableIsSet("BRENLOW_HELPER_START_TIMEOUT_MS"))
        return defaultStartTimeoutMs;
    bool ok = false;
    const int ms = qEnvironmentVariableIntValue("BRENLOW_HELPER_START_TIMEOUT_MS", &ok);
    if (ok && ms > 0)
        return ms;
    logLine(QStringLiteral("BRENLOW_HELPER_START_TIMEOUT_MS is not a positive number of "
                           "milliseconds: waiting %1 ms")
                .arg(defaultStartTimeoutMs));
    return defaultStartTimeoutMs;
}

void ServiceTool::received(const QCborValue &message)
{
    QString why;
    const auto call = Wire::parseCall(message, &why);
    const auto send = [this](const QCborMap &m) { m_channel.send(m); };
    if (!call) {
        logLine(QStringLiteral("malformed message: ") + why);
        send(Wire::error(why));
    } else if (!Wire::dispatch(*call, *this, send)) {
        send(
            Wire::error(QStringLiteral("\"%1\" is not served here").arg(call->selector), call->id));
    }
}

void ServiceTool::bundledHelperVersionWithReply(TextReply reply)
{
    // The helper this service would start, asked without privilege: its
    // "brenlow-helper VERSION" line; "" when there is none to run.
    QProcess helper;
    helper.start(helperPath(), {QStringLiteral("--version")});
    if (!helper.waitForFinished(5000) || helper.exitCode() != 0) {
        helper.kill();
        reply(QString());
        return;
    }
    const QString line = QString::fromUtf8(helper.readAllStandardOutput()).trimmed();
    reply(line.section(QLatin1Char(' '), 1));
}

void ServiceTool::installHelperToolWithReply(ValueReply reply)
{
    ensureHelper([reply](std::optional<int> failure) {
        if (!failure)
            reply(QCborValue(QCborValue::Null));
        else
            reply(QCborMap{{QStringLiteral("code"), *failure}});
    });
}

void ServiceTool::connectWithModuleIndex(qint64 moduleIndex, ValueReply reply)
{
    Q_UNUSED(moduleIndex);
    reply(QCborValue(QCborValue::Null)); // every module shares the one link
}

void ServiceTool::disconnect() {}

void ServiceTool::operationWithFolders(const QCborMap &folders, qint64 type, qint64 moduleIndex,
                                       const QCborMap &identities)
{
    const int module = int(moduleIndex);
    if (type == qint64(operationType::stop) && m_state != State::Ready) {
        logLine(QStringLiteral("stop for module %1: nothing is running").arg(module));
        return;
    }
    ensureHelper([=, this](std::optional<int> failure) {
        if (failure) {
            // An announcement needs no answer; the request after it gets one.
            if (type != qint64(operationType::start))
                m_channel.send(Wire::installFailCall(QString::number(*failure), module));
            return;
        }
        if (type != qint64(operationType::start) && type != qint64(operationType::stop))
            m_inFlight[module] += 1;
        sendToHelper(Wire::call(Wire::helperOperation, {folders, QCborValue(QCborValue::Null), type,
                                                        moduleIndex, identities}));
    });
}

void ServiceTool::ensureHelper(Installed then)
{
    if (m_state == State::Ready) {
        then(std::nullopt);
        return;
    }
    m_waiting.append(std::move(then));
    if (m_state == State::Installing)
        return;

    const QString helper = helperPath();
    if (!QFileInfo(helper).isExecutable()) {
        logLine(QStringLiteral("no helper at %1").arg(helper));
        installed(InstallFailure::missingProgram);
        return;
    }
    QStringList command = launcher();
    const QString launcherName = command.isEmpty() ? QString() : command.first();
    command.append(helper);
    m_state = State::Installing;
    m_helperErrors.clear();
    m_helper = new QProcess;
    QObject::connect(m_helper, &QProcess::readyReadStandardOutput, m_helper, [this] {
        for (const FrameDecoder::Item &item : m_decoder.feed(m_helper->readAllStandardOutput())) {
            if (item.message)
                fromHelper(*item.message);
            else
                logLine(QStringLiteral("unreadable message from the helper: ") + item.error);
        }
    });
    QObject::connect(m_helper, &QProcess::readyReadStandardError, m_helper, [this] {
        const QByteArray text = m_helper->readAllStandardError();
        std::fwrite(text.constData(), 1, size_t(text.size()), stderr);
        m_helperErrors = QString(m_helperErrors + QString::fromLocal8Bit(text)).right(4096);
    });
    QObject::connect(
        m_helper, &QProcess::errorOccurred, m_helper,
        [this, launcherName](QProcess::ProcessError error) {
            if (error != QProcess::FailedToStart || m_state != State::Installing)
                return;
            logLine(
                QStringLiteral("cannot start %1: %2").arg(launcherName, m_helper->errorString()));
            m_helper->deleteLater();
            m_helper = nullptr;
            installed(InstallFailure::launcherNotStarted(launcherName));
        });
    QObject::connect(m_helper, &QProcess::finished, m_helper,
                     [this](int exitCode, QProcess::ExitStatus) { helperEnded(exitCode); });
    // Elsewhere the launcher leads a group of its own, so that a time-out
    // ends it together with whatever it started (an agent, a prompt).
    if (!mayPromptOnTerminal())
        m_helper->setChildProcessModifier([] { ::setpgid(0, 0); });
    m_startTimer->start(startTimeout());
    m_helper->start(command.first(), command.mid(1));
    m_versionId = m_nextId++;
    m_helper->write(FrameDecoder::encode(Wire::call(Wire::getVersion, {}, m_versionId)));
}

void ServiceTool::installed(std::optional<int> failure)
{
    m_startTimer->stop();
    m_state = failure ? State::Absent : State::Ready;
    const QList<Installed> waiting = std::exchange(m_waiting, {});
    for (const Installed &then : waiting)
        then(failure);
}

void ServiceTool::helperEnded(int exitCode)
{
    m_helper->readAllStandardError();
    const QString errors = m_helperErrors;
    m_helper->deleteLater();
    m_helper = nullptr;
    m_decoder = FrameDecoder();
    if (m_state == State::Installing) {
        const QStringList command = launcher();
        const int failure = InstallFailure::fromLauncher(
            command.isEmpty() ? QString() : command.first(), exitCode, errors);
        logLine(QStringLiteral("the helper did not start (status %1): install failure %2")
                    .arg(exitCode)
                    .arg(failure));
        installed(failure);
        return;
    }
    m_state = State::Absent;
    logLine(QStringLiteral("the helper ended with status %1").arg(exitCode));
    const QHash<int, int> lost = std::exchange(m_inFlight, {});
    for (auto it = lost.begin(); it != lost.end(); ++it) {
        if (it.value() > 0)
            m_channel.send(
                Wire::installFailCall(QString::number(InstallFailure::unknown), it.key()));
    }
}

void ServiceTool::startTimedOut()
{
    if (m_state != State::Installing || !m_helper)
        return;
    QProcess *launcher = std::exchange(m_helper, nullptr);
    logLine(QStringLiteral("the helper did not answer within %1 ms: giving up on it")
                .arg(m_startTimer->interval()));
    QObject::disconnect(launcher, nullptr, nullptr, nullptr);
    launcher->closeWriteChannel();
    const pid_t pid = pid_t(launcher->processId());
    if (pid > 0 && ::getpgid(pid) == pid)
        ::kill(-pid, SIGKILL);
    launcher->kill();
    launcher->waitForFinished(1000);
    launcher->deleteLater();
    m_decoder = FrameDecoder();
    // Whether a prompt was ever shown is not known here.
    installed(InstallFailure::unknown);
}

void ServiceTool::sendToHelper(const QCborMap &message)
{
    if (m_helper)
        m_helper->write(FrameDecoder::encode(message));
}

void ServiceTool::fromHelper(const QCborValue &message)
{
    const QCborMap map = message.toMap();
    if (map.contains(QStringLiteral("reply"))) {
        if (map.value(QStringLiteral("reply")).toInteger() != m_versionId ||
            m_state != State::Installing)
            return;
        const QString version = map.value(QStringLiteral("value")).toString();
        if (version == QLatin1String(BRENLOW_VERSION)) {
            installed(std::nullopt);
            return;
        }
        logLine(QStringLiteral("helper version %1, expected %2")
                    .arg(version, QStringLiteral(BRENLOW_VERSION)));
        sendToHelper(Wire::call(Wire::exitWithCode, {0}));
        m_state = State::Absent;
        installed(InstallFailure::unknown);
        return;
    }
    if (map.contains(QStringLiteral("error"))) {
        logLine(QStringLiteral("the helper refused a message: ") +
                map.value(QStringLiteral("error")).toString());
        return;
    }
    QString why;
    const auto call = Wire::parseCall(message, &why);
    if (!call || !isReport(call->selector)) {
        logLine(QStringLiteral("unexpected message from the helper: ") + why);
        return;
    }
    if (call->selector == QLatin1String(Wire::finished)) {
        const int module = int(call->args.last().toInteger());
        if (m_inFlight.value(module) > 0)
            m_inFlight[module] -= 1;
    }
    m_channel.send(map);
}
