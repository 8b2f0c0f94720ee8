#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>
#include <functional>

// Hands the archives of a second launch to the program already running for
// this user, over a local socket that only the user can reach.
class OpenFilesChannel : public QObject {
    Q_OBJECT
public:
    using Open = std::function<void(const QStringList &paths)>;

    // The socket's name for this user.
    static QString serverName();
    // Sends the paths to a running instance; false when none answers.
    static bool handOff(const QStringList &paths);
    // Serves later launches: each one's paths go to `open`.
    explicit OpenFilesChannel(Open open, QObject *parent = nullptr);
    bool listening() const { return m_server.isListening(); }

private:
    QLocalServer m_server;
    Open m_open;
};
