#include "cleaner/clean/XPCUtil.h"

#include "cleaner/clean/MessageChannel.h"
#include "cleaner/core/Bundle.h"
#include "cleaner/core/Fatal.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <csignal>
#include <cstdio>
#include <mutex>

namespace {

// The pipeline's log lines go to standard error: standard output carries
// the command line's results.
void printLine(const QString &text)
{
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
}

std::unique_ptr<XPCUtil> g_instance;
QMutex g_instanceLock;

} // namespace

// The link to the service process. It lives on its own thread: requests are
// posted to it, and reports are read and delivered there.
class XPCConnection : public QObject {
public:
    XPCConnection(QString identifier, DeleteFilesProgressProtocol *exported)
        : m_identifier(std::move(identifier)), m_exported(exported)
    {}

    // Runs on the connection's thread.
    void resume()
    {
        if (m_identifier.isEmpty()) {
            m_failure = QStringLiteral("no service is named for this edition");
            return;
        }
        m_process = new QProcess(this);
        m_process->setReadChannel(QProcess::StandardOutput);
        // The service's own log lines go where ours go.
        m_process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        QObject::connect(m_process, &QProcess::readyReadStandardOutput, this, [this] { read(); });
        QObject::connect(m_process, &QProcess::errorOccurred, this,
                         [this](QProcess::ProcessError) { m_failure = m_process->errorString(); });
        QObject::connect(
            m_process, &QProcess::finished, this, [this](int code, QProcess::ExitStatus) {
                if (m_failure.isEmpty())
                    m_failure = QStringLiteral("the service ended with status %1").arg(code);
            });
        m_process->start(XPCUtil::servicePath(), {QStringLiteral("--name"), m_identifier});
    }

    void send(const QCborMap &message)
    {
        if (!m_failure.isEmpty() || !m_process || m_process->state() == QProcess::NotRunning) {
            printLine(QStringLiteral("XPCService Error: ") +
                      (m_failure.isEmpty() ? QStringLiteral("no connection") : m_failure));
            return;
        }
        m_process->write(FrameDecoder::encode(message));
    }

    void close()
    {
        if (!m_process)
            return;
        m_process->closeWriteChannel();
        if (!m_process->waitForFinished(5000)) {
            m_process->kill();
            m_process->waitForFinished(1000);
        }
        delete m_process;
        m_process = nullptr;
    }

private:
    void read()
    {
        for (const FrameDecoder::Item &item : m_decoder.feed(m_process->readAllStandardOutput())) {
            QString why;
            const auto c = item.message ? Wire::parseCall(*item.message, &why) : std::nullopt;
            if (!item.message)
                why = item.error;
            else if (!c && item.message->isMap() &&
                     item.message->toMap().contains(QStringLiteral("error")))
                why = item.message->toMap().value(QStringLiteral("error")).toString();
            if (!c || !Wire::deliverReport(*c, *m_exported))
                printLine(QStringLiteral("XPCService Error: ") +
                          (why.isEmpty() ? QStringLiteral("unexpected message") : why));
        }
    }

    QString m_identifier;
    DeleteFilesProgressProtocol *m_exported;
    QProcess *m_process = nullptr;
    FrameDecoder m_decoder;
    QString m_failure;
};

XPCUtil *XPCUtil::instance()
{
    QMutexLocker lock(&g_instanceLock);
    if (!g_instance) {
        g_instance.reset(new XPCUtil);
        // A write to a service that has gone must be an error, not the end of us.
        std::signal(SIGPIPE, SIG_IGN);
        static std::once_flag once;
        std::call_once(once, [] { qAddPostRoutine(&XPCUtil::shutdown); });
    }
    return g_instance.get();
}

XPCUtil::XPCUtil()
{
    const QVariant name = Bundle::objectForInfoDictionaryKey(QStringLiteral("File Name"));
    if (!name.isValid())
        fatalStop(QStringLiteral("the bundle has no \"File Name\""));
    serviceName = name.toString();
}

XPCUtil::~XPCUtil()
{
    if (m_connection) {
        QMetaObject::invokeMethod(
            m_connection, [c = m_connection] { c->close(); }, Qt::BlockingQueuedConnection);
        m_connection->deleteLater();
        m_thread->quit();
        m_thread->wait();
        delete m_thread;
    }
}

void XPCUtil::shutdown()
{
    QMutexLocker lock(&g_instanceLock);
    g_instance.reset();
}

namespace {

// One row per edition of the product.
const QHash<QString, QString> &serviceTable()
{
    static const QHash<QString, QString> table = {
        {QStringLiteral("Brenlow"), QStringLiteral("com.orrimay.Brenlow.XPCService")},
    };
    return table;
}

} // namespace

QString XPCUtil::serviceIdentifier(const QString &editionName)
{
    return serviceTable().value(editionName);
}

bool XPCUtil::isServiceIdentifier(const QString &identifier)
{
    return !identifier.isEmpty() && !serviceTable().key(identifier).isEmpty();
}

QString XPCUtil::servicePath()
{
    const QString fromEnvironment = qEnvironmentVariable("BRENLOW_SERVICE_PATH");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const QString bin = QCoreApplication::applicationDirPath();
    const QString beside = bin + QStringLiteral("/brenlow-service");
    if (QFileInfo(beside).isExecutable())
        return beside;
    return bin + QStringLiteral("/../libexec/brenlow/brenlow-service");
}

XPCConnection *XPCUtil::xpcServiceConnection()
{
    QMutexLocker lock(&m_lock);
    if (!m_connection) {
        m_thread = new QThread;
        m_thread->setObjectName(QStringLiteral("XPCConnection"));
        m_connection = new XPCConnection(serviceIdentifier(serviceName), this);
        m_connection->moveToThread(m_thread);
        m_thread->start();
        QMetaObject::invokeMethod(
            m_connection, [c = m_connection] { c->resume(); }, Qt::QueuedConnection);
    }
    return m_connection;
}

void XPCUtil::operation(const PathMap &folder,
                        std::shared_ptr<DeleteFilesProgressProtocol> progress, qint64 type,
                        int moduleIndex, const IdentityMap &identities)
{
    {
        QMutexLocker lock(&m_lock);
        if (progress)
            m_customerProgress.insert(moduleIndex, std::move(progress));
        else
            m_customerProgress.remove(moduleIndex);
    }
    XPCConnection *connection = xpcServiceConnection();
    const QCborMap message =
        Wire::call(Wire::serviceOperation, {Wire::foldersToWire(folder), type, moduleIndex,
                                            Wire::identitiesToWire(identities)});
    QMetaObject::invokeMethod(
        connection, [connection, message] { connection->send(message); }, Qt::QueuedConnection);
}

std::shared_ptr<DeleteFilesProgressProtocol> XPCUtil::customerProgress(int moduleIndex) const
{
    QMutexLocker lock(&m_lock);
    return m_customerProgress.value(moduleIndex);
}

bool XPCUtil::hasCustomerProgress(int moduleIndex) const
{
    QMutexLocker lock(&m_lock);
    return m_customerProgress.contains(moduleIndex);
}

void XPCUtil::processed(const QString &url, qint64 size, int moduleIndex)
{
    const auto receiver = customerProgress(moduleIndex);
    if (!receiver) {
        printLine(
            QStringLiteral("No receiver for module %1: processed %2").arg(moduleIndex).arg(url));
        return;
    }
    printLine(QStringLiteral("Deleted file: ") + url);
    receiver->processed(url, size, moduleIndex);
}

void XPCUtil::finished(bool result, const PathMap &folders, int moduleIndex)
{
    const auto receiver = customerProgress(moduleIndex);
    if (!receiver) {
        printLine(QStringLiteral("No receiver for module %1: finished").arg(moduleIndex));
        return;
    }
    printLine(QStringLiteral("Finished: %1")
                  .arg(result ? QStringLiteral("true") : QStringLiteral("false")));
    receiver->finished(result, folders, moduleIndex);
}

void XPCUtil::installFail(const QString &error, int moduleIndex)
{
    const auto receiver = customerProgress(moduleIndex);
    if (!receiver) {
        printLine(QStringLiteral("No receiver for module %1: install failed, %2")
                      .arg(moduleIndex)
                      .arg(error));
        return;
    }
    printLine(error);
    receiver->installFail(error, moduleIndex);
}
