#pragma once

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/clean/MessageChannel.h"
#include "helper/ExtensionMover.h"
#include "helper/NtfsSwitch.h"
#include "helper/SafeRemoval.h"
#include "helper/SafeShred.h"

#include <QHash>
#include <QMutex>
#include <QThread>

// The privileged helper: serves HelperProtocol on its standard input and
// output. Operations run one after another on a thread of their own, so a
// stop, read on the main thread, reaches the operation that is running.
class HelperTool : public HelperProtocol {
public:
    HelperTool();
    // Carries out every operation asked for before it ends.
    ~HelperTool() override;

    void connectWithEndpointReply(ValueReply reply) override;
    void getVersionWithReply(TextReply reply) override;
    void uninstall() override;
    void exitWithCode(qint64 code) override;
    void operationWithFolders(const QCborMap &folders, qint64 type, qint64 moduleIndex,
                              const QCborMap &identities) override;

private:
    void received(const QCborValue &message);
    void refuse(const QString &reason, std::optional<qint64> id = {});
    void carryOut(const QCborMap &folders, const IdentityMap &identities, qint64 type,
                  int moduleIndex, quint64 sequence);
    void answerUnknown(const QCborMap &folders, qint64 type, int moduleIndex);
    bool stopped(int moduleIndex, quint64 sequence);

    StdioChannel m_channel;
    SafeRemoval m_removal;
    SafeShred m_shred;
    ExtensionMover m_mover;
    NtfsSwitch m_ntfs;
    QThread m_worker;
    QObject m_onWorker; // what runs on m_worker is posted to this object
    QMutex m_lock;
    quint64 m_sequence = 0;
    // A stop ends every request of the module that came before it.
    QHash<int, quint64> m_stopBefore;
};
