#include "cleaner/clean/XPCConnection.h"

#include "cleaner/clean/InstallFailure.h"
#include "cleaner/clean/XPCUtil.h"

#include <QFileInfo>
#include <QProcess>
#include <cstdio>

void pipelineLogLine(const QString &text)
{
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

XPCConnection::XPCConnection(QString identifier, DeleteFilesProgressProtocol *exported)
    : m_identifier(std::move(identifier)), m_exported(exported)
{}

void XPCConnection::resume()
{
    start();
}

void XPCConnection::start()
{
    m_decoder = FrameDecoder();
    if (m_identifier.isEmpty()) {
        m_program.clear();
        lost(QStringLiteral("no service is named for this edition"));
        return;
    }
    m_program = XPCUtil::servicePath();
    auto *process = new QProcess(this);
    m_process = process;
    process->setReadChannel(QProcess::StandardOutput);
    // The service's own log lines go where ours go.
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    QObject::connect(process, &QProcess::readyReadStandardOutput, this, [this, process] {
        if (process == m_process)
            read();
    });
    // Any error of the link (not started, crashed, a broken pipe) ends this
    // service: a half-working link would leave requests without an answer.
    QObject::connect(process, &QProcess::errorOccurred, this, [this, process] {
        if (process == m_process)
            lost(process->errorString());
    });
    QObject::connect(process, &QProcess::finished, this, [this, process](int code) {
        if (process == m_process)
            lost(QStringLiteral("the service ended with status %1").arg(code));
    });
    process->start(m_program, {QStringLiteral("--name"), m_identifier});
    if (!process->waitForStarted() && process == m_process)
        lost(process->errorString());
}

void XPCConnection::send(const QCborMap &message, qint64 type, int moduleIndex)
{
    const bool answered =
        type != qint64(operationType::start) && type != qint64(operationType::stop);
    if (!m_process && type == qint64(operationType::stop)) {
        // Whatever the module had out was answered when the service went.
        pipelineLogLine(
            QStringLiteral("XPCService Error: no service to stop module %1 on").arg(moduleIndex));
        return;
    }
    if (answered)
        m_out[moduleIndex] += 1;
    if (!m_process)
        start();
    if (m_process)
        m_process->write(FrameDecoder::encode(message));
}

void XPCConnection::close()
{
    QProcess *process = std::exchange(m_process, nullptr);
    if (!process)
        return;
    QObject::disconnect(process, nullptr, this, nullptr);
    process->closeWriteChannel();
    if (!process->waitForFinished(5000)) {
        process->kill();
        process->waitForFinished(1000);
    }
    delete process;
}

void XPCConnection::read()
{
    for (const FrameDecoder::Item &item : m_decoder.feed(m_process->readAllStandardOutput())) {
        QString why;
        const auto c = item.message ? Wire::parseCall(*item.message, &why) : std::nullopt;
        if (!item.message)
            why = item.error;
        else if (!c && item.message->isMap() &&
                 item.message->toMap().contains(QStringLiteral("error")))
            why = item.message->toMap().value(QStringLiteral("error")).toString();
        if (c && (c->selector == QLatin1String(Wire::finished) ||
                  c->selector == QLatin1String(Wire::installFail))) {
            const int module = int(c->args.last().toInteger());
            if (m_out.value(module) > 0)
                m_out[module] -= 1;
        }
        if (!c || !Wire::deliverReport(*c, *m_exported))
            pipelineLogLine(QStringLiteral("XPCService Error: ") +
                            (why.isEmpty() ? QStringLiteral("unexpected message") : why));
    }
}

void XPCConnection::lost(const QString &why)
{
    if (m_process) {
        // Reports the service wrote before it went still count.
        read();
        QProcess *process = std::exchange(m_process, nullptr);
        QObject::disconnect(process, nullptr, this, nullptr);
        process->kill();
        process->deleteLater();
    }
    pipelineLogLine(QStringLiteral("XPCService Error: ") + why);
    const int failure =
        QFileInfo::exists(m_program) ? InstallFailure::unknown : InstallFailure::missingProgram;
    const QHash<int, int> out = std::exchange(m_out, {});
    for (auto it = out.begin(); it != out.end(); ++it) {
        if (it.value() > 0)
            m_exported->installFail(QString::number(failure), it.key());
    }
}
