#pragma once

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/clean/MessageChannel.h"

#include <QHash>
#include <QList>
#include <QProcess>
#include <QTimer>
#include <functional>
#include <optional>

// The service between the application and the helper: serves
// XPCServiceProtocol on its standard input and output, starts the helper
// through the launcher when first needed (the "installation", which asks
// for the user's authorisation), and relays operations and reports.
class ServiceTool : public XPCServiceProtocol {
public:
    ServiceTool();
    ~ServiceTool() override;

    void bundledHelperVersionWithReply(TextReply reply) override;
    void installHelperToolWithReply(ValueReply reply) override;
    void connectWithModuleIndex(qint64 moduleIndex, ValueReply reply) override;
    void disconnect() override;
    void operationWithFolders(const QCborMap &folders, qint64 type, qint64 moduleIndex,
                              const QCborMap &identities) override;

    // Where the helper is: BRENLOW_HELPER_PATH, else beside this program.
    static QString helperPath();
    // The launcher command: BRENLOW_HELPER_LAUNCHER when set (empty: none),
    // else pkexec.
    static QStringList launcher();
    // How long the launcher may take to bring up the helper, in ms:
    // BRENLOW_HELPER_START_TIMEOUT_MS when it is a positive number, else two
    // minutes, time enough to type a password at the prompt.
    static int startTimeout();

private:
    using Installed = std::function<void(std::optional<int> failure)>;
    enum class State { Absent, Installing, Ready };

    void received(const QCborValue &message);
    void ensureHelper(Installed then);
    void installed(std::optional<int> failure);
    void fromHelper(const QCborValue &message);
    void helperEnded(int exitCode);
    // The launcher did not bring the helper up in time.
    void startTimedOut();
    void sendToHelper(const QCborMap &message);

    StdioChannel m_channel;
    QProcess *m_helper = nullptr;
    State m_state = State::Absent;
    FrameDecoder m_decoder;
    QString m_helperErrors;
    qint64 m_nextId = 1;
    qint64 m_versionId = 0;
    QList<Installed> m_waiting;
    QTimer *m_startTimer;
    // Requests the helper has not answered, by module: if it dies, their
    // modules hear of it instead of waiting for ever.
    QHash<int, int> m_inFlight;
};
