#pragma once

#include <QProcess>
#include <QString>

// A session bus of the test's own (dbus-daemon --session), made the
// process's session bus before its first use, so no service of the real
// desktop answers and the test can stand in for one.
class PrivateSessionBus {
public:
    ~PrivateSessionBus();
    // Starts the daemon with env and sets DBUS_SESSION_BUS_ADDRESS; the
    // address, or an empty string when the daemon could not start.
    QString start(const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment());
    void stop();

private:
    QProcess m_daemon;
};
