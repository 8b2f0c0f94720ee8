#include "PrivateSessionBus.h"

PrivateSessionBus::~PrivateSessionBus()
{
    stop();
}

QString PrivateSessionBus::start(const QProcessEnvironment &env)
{
    m_daemon.setProcessEnvironment(env);
    m_daemon.start(QStringLiteral("dbus-daemon"),
                   {QStringLiteral("--session"), QStringLiteral("--print-address"),
                    QStringLiteral("--nofork")});
    if (!m_daemon.waitForStarted())
        return QString();
    while (!m_daemon.canReadLine()) {
        if (!m_daemon.waitForReadyRead(10000))
            return QString();
    }
    const QByteArray address = m_daemon.readLine().trimmed();
    // Before the first use: the session bus connection is made only once.
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    return QString::fromUtf8(address);
}

void PrivateSessionBus::stop()
{
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    m_daemon.kill();
    m_daemon.waitForFinished();
}
