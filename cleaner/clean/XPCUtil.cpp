#include "cleaner/clean/XPCUtil.h"

#include "cleaner/clean/XPCConnection.h"
#include "cleaner/core/Bundle.h"
#include "cleaner/core/Fatal.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QThread>
#include <csignal>
#include <mutex>

namespace {

std::unique_ptr<XPCUtil> g_instance;
QMutex g_instanceLock;

} // namespace

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
        connection,
        [connection, message, type, moduleIndex] { connection->send(message, type, moduleIndex); },
        Qt::QueuedConnection);
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
        pipelineLogLine(
            QStringLiteral("No receiver for module %1: processed %2").arg(moduleIndex).arg(url));
        return;
    }
    pipelineLogLine(QStringLiteral("Deleted file: ") + url);
    receiver->processed(url, size, moduleIndex);
}

void XPCUtil::finished(bool result, const PathMap &folders, int moduleIndex)
{
    const auto receiver = customerProgress(moduleIndex);
    if (!receiver) {
        pipelineLogLine(QStringLiteral("No receiver for module %1: finished").arg(moduleIndex));
        return;
    }
    pipelineLogLine(QStringLiteral("Finished: %1")
                        .arg(result ? QStringLiteral("true") : QStringLiteral("false")));
    receiver->finished(result, folders, moduleIndex);
}

QString XPCUtil::installFailure(int moduleIndex) const
{
    QMutexLocker lock(&m_lock);
    return m_installFailure.value(moduleIndex);
}

void XPCUtil::installFail(const QString &error, int moduleIndex)
{
    {
        QMutexLocker lock(&m_lock);
        m_installFailure.insert(moduleIndex, error);
    }
    const auto receiver = customerProgress(moduleIndex);
    if (!receiver) {
        pipelineLogLine(QStringLiteral("No receiver for module %1: install failed, %2")
                            .arg(moduleIndex)
                            .arg(error));
        return;
    }
    pipelineLogLine(error);
    receiver->installFail(error, moduleIndex);
}
