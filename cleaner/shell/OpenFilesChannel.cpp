#include "cleaner/shell/OpenFilesChannel.h"

#include <QLocalSocket>
#include <unistd.h>

QString OpenFilesChannel::serverName()
{
    return QStringLiteral("brenlow-open-files-%1").arg(::getuid());
}

bool OpenFilesChannel::handOff(const QStringList &paths)
{
    QLocalSocket socket;
    socket.connectToServer(serverName());
    if (!socket.waitForConnected(2000))
        return false;
    socket.write(paths.join(QLatin1Char('\n')).toUtf8());
    socket.flush();
    socket.disconnectFromServer();
    return socket.state() == QLocalSocket::UnconnectedState || socket.waitForDisconnected(2000);
}

OpenFilesChannel::OpenFilesChannel(Open open, QObject *parent)
    : QObject(parent), m_open(std::move(open))
{
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server.listen(serverName())) {
        // A socket left by a program that ended without closing it.
        QLocalServer::removeServer(serverName());
        m_server.listen(serverName());
    }
    connect(&m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket *socket = m_server.nextPendingConnection()) {
            connect(socket, &QLocalSocket::disconnected, socket, [this, socket] {
                const QStringList paths = QString::fromUtf8(socket->readAll())
                                              .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
                socket->deleteLater();
                if (!paths.isEmpty() && m_open)
                    m_open(paths);
            });
        }
    });
}
