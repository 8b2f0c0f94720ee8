#include "helper/HelperTool.h"

#include "helper/HelperLog.h"

#include <QCoreApplication>
#include <cstdio>
#include <sys/stat.h>

HelperTool::HelperTool()
    : m_channel(0, 1), m_removal(AllowList::forCaller()), m_shred(AllowList::forCaller()),
      m_mover(ExtensionMover::forCaller()), m_ntfs(AllowList::callerUid())
{
    m_worker.setObjectName(QStringLiteral("helper operations"));
    m_onWorker.moveToThread(&m_worker);
    m_worker.start();
    QObject::connect(&m_channel, &StdioChannel::message, &m_channel,
                     [this](const QCborValue &m) { received(m); });
    QObject::connect(&m_channel, &StdioChannel::malformed, &m_channel,
                     [this](const QString &reason) { refuse(reason); });
    // The service went away: nobody is left to ask for anything.
    QObject::connect(&m_channel, &StdioChannel::closed, &m_channel,
                     [] { QCoreApplication::exit(0); });
}

HelperTool::~HelperTool()
{
    // Queued behind the work already asked for, so that all of it is done.
    QMetaObject::invokeMethod(
        &m_onWorker, [this] { m_worker.quit(); }, Qt::QueuedConnection);
    m_worker.wait();
}

void HelperTool::refuse(const QString &reason, std::optional<qint64> id)
{
    logLine(QStringLiteral("malformed message: ") + reason);
    m_channel.send(Wire::error(reason, id));
}

void HelperTool::received(const QCborValue &message)
{
    QString why;
    const auto call = Wire::parseCall(message, &why);
    if (!call) {
        const QCborValue id =
            message.isMap() ? message.toMap().value(QStringLiteral("id")) : QCborValue();
        refuse(why, id.isInteger() ? std::optional<qint64>(id.toInteger()) : std::nullopt);
        return;
    }
    if (!Wire::dispatch(*call, *this, [this](const QCborMap &m) { m_channel.send(m); }))
        refuse(QStringLiteral("\"%1\" is not served here").arg(call->selector), call->id);
}

void HelperTool::connectWithEndpointReply(ValueReply reply)
{
    reply(QCborValue(QCborValue::Null));
}

void HelperTool::getVersionWithReply(TextReply reply)
{
    reply(QStringLiteral(BRENLOW_VERSION));
}

void HelperTool::uninstall()
{
    // Nothing stays installed: the helper lives as long as its service.
    QCoreApplication::exit(0);
}

void HelperTool::exitWithCode(qint64 code)
{
    QCoreApplication::exit(int(code));
}

void HelperTool::operationWithFolders(const QCborMap &folders, qint64 type, qint64 moduleIndex,
                                      const QCborMap &identities)
{
    const int module = int(moduleIndex);
    quint64 sequence;
    {
        QMutexLocker lock(&m_lock);
        sequence = ++m_sequence;
        if (type == qint64(operationType::stop))
            m_stopBefore.insert(module, sequence);
    }
    switch (operationType(type)) {
    case operationType::start:
        logLine(QStringLiteral("module %1 starts a request").arg(module));
        return;
    case operationType::stop:
        logLine(QStringLiteral("module %1 asks to stop").arg(module));
        return;
    case operationType::delete_:
    case operationType::shredder:
    case operationType::move:
    case operationType::usb:
        QMetaObject::invokeMethod(
            &m_onWorker,
            [=, this] {
                carryOut(folders, Wire::wireIdentities(identities), type, module, sequence);
            },
            Qt::QueuedConnection);
        return;
    }
    answerUnknown(folders, type, module);
}

// A request the helper cannot carry out still gets its answer, or the run that
// sent it would wait for ever: every path keeps its place with `nocause`.
void HelperTool::answerUnknown(const QCborMap &folders, qint64 type, int moduleIndex)
{
    logLine(QStringLiteral("module %1: unknown operation type %2, nothing done")
                .arg(moduleIndex)
                .arg(type));
    QMap<QByteArray, QList<int>> paths = Wire::wirePaths(folders);
    for (QList<int> &slotList : paths)
        slotList.last() = int(errorKind::nocause);
    m_channel.send(Wire::finishedCall(false, Wire::wireFromPaths(paths), moduleIndex));
}

bool HelperTool::stopped(int moduleIndex, quint64 sequence)
{
    QMutexLocker lock(&m_lock);
    return m_stopBefore.value(moduleIndex) > sequence;
}

void HelperTool::carryOut(const QCborMap &folders, const IdentityMap &identities, qint64 type,
                          int moduleIndex, quint64 sequence)
{
    QMap<QByteArray, QList<int>> paths = Wire::wirePaths(folders);
    bool allGone = true;
    for (auto it = paths.begin(); it != paths.end(); ++it) {
        int status;
        if (stopped(moduleIndex, sequence)) {
            status = int(errorKind::stop);
        } else if (type == qint64(operationType::shredder)) {
            const SafeShred::Outcome outcome = m_shred.shred(it.key());
            status = outcome.status;
            if (status == int(errorKind::success))
                m_channel.send(Wire::processedCall(it.key(), outcome.size, moduleIndex));
        } else if (type == qint64(operationType::move)) {
            // An extension switched off or on: moved, never removed.
            const bool moved = m_mover.move(it.key(), identities.value(it.key())).moved;
            status = int(moved ? errorKind::success : errorKind::delete_);
            if (moved)
                m_channel.send(Wire::processedCall(it.key(), 0, moduleIndex));
        } else if (type == qint64(operationType::usb)) {
            status = m_ntfs.makeWritable(it.key());
        } else if (type != qint64(operationType::delete_)) {
            status = int(errorKind::nocause);
        } else {
            struct stat st;
            const qint64 size = lstat(it.key().constData(), &st) == 0 ? qint64(st.st_size) : 0;
            status = m_removal.remove(it.key(), identities.value(it.key())).status;
            if (status == int(errorKind::success))
                m_channel.send(Wire::processedCall(it.key(), size, moduleIndex));
        }
        it.value().last() = status;
        allGone = allGone && status == int(errorKind::success);
    }
    m_channel.send(Wire::finishedCall(allGone, Wire::wireFromPaths(paths), moduleIndex));
}
