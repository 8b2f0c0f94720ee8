#pragma once

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/clean/MessageChannel.h"

#include <QHash>
#include <QObject>
#include <QString>

class QProcess;

// One line of the pipeline's log, on standard error: standard output
// carries the command line's results.
void pipelineLogLine(const QString &text);

// The link to the service process. It lives on its own thread: requests are
// posted to it, and reports are read and delivered there. It keeps count of
// the requests each module has out, from the request until its `finished`
// or `installFail`: when the service cannot be started or goes away, each
// module with a request out hears an install failure instead of waiting for
// ever, and the next request starts the service afresh.
class XPCConnection : public QObject {
public:
    XPCConnection(QString identifier, DeleteFilesProgressProtocol *exported);

    // The rest runs on the connection's thread.
    // Starts the service.
    void resume();
    // Sends an operation request of this type for this module. An
    // announcement (`start`) and a `stop` expect no answer.
    void send(const QCborMap &message, qint64 type, int moduleIndex);
    // Ends the service without telling anyone (program exit).
    void close();

private:
    void start();
    void read();
    // The service ended, or could not be reached: every module with a
    // request out gets the install failure.
    void lost(const QString &why);

    QString m_identifier;
    DeleteFilesProgressProtocol *m_exported;
    QProcess *m_process = nullptr;
    QString m_program; // the service program of the last start
    FrameDecoder m_decoder;
    QHash<int, int> m_out; // requests out, by module
};
