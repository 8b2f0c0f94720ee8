#pragma once

#include "cleaner/clean/CleanProtocols.h"

#include <QHash>
#include <QMutex>
#include <QString>
#include <memory>

class XPCConnection;
class QThread;

// The application's side of privileged work: one instance, made on first
// use, that starts the service process and carries requests to it. Reports
// arrive on the connection's own thread and go to the receiver registered
// for their module, on that thread. Every request is answered: a service
// that cannot be started or goes away answers with an install failure.
class XPCUtil : public DeleteFilesProgressProtocol {
public:
    // Stops the program when the bundle has no "File Name".
    static XPCUtil *instance();

    // A direct link to the helper; kept for the design's shape, never filled.
    void *helperConnection = nullptr;
    // The edition's name, "File Name" of the bundle.
    QString serviceName;

    // The service identifier of an edition; "" for an edition not in the table.
    static QString serviceIdentifier(const QString &editionName);
    // Whether a service answers to this identifier.
    static bool isServiceIdentifier(const QString &identifier);
    // Where the service program is: BRENLOW_SERVICE_PATH, else beside this
    // program, else in the libexec folder beside its bin folder.
    static QString servicePath();

    // Sends a request. A present `progress` becomes the module's receiver,
    // an absent one removes it. A removal carries what the scan saw of each
    // path; the helper refuses a path without it.
    void operation(const PathMap &folder, std::shared_ptr<DeleteFilesProgressProtocol> progress,
                   qint64 type, int moduleIndex, const IdentityMap &identities = {});

    // The receiving side.
    void processed(const QString &url, qint64 size, int moduleIndex) override;
    void finished(bool result, const PathMap &folders, int moduleIndex) override;
    void installFail(const QString &error, int moduleIndex) override;

    std::shared_ptr<DeleteFilesProgressProtocol> customerProgress(int moduleIndex) const;
    bool hasCustomerProgress(int moduleIndex) const;
    // The error text of the last install failure reported for the module
    // ("" when none was), for the words a screen shows with status -2.
    QString installFailure(int moduleIndex) const;

    // Ends the service process and the connection thread (at program exit,
    // and in tests that need a fresh service with other settings).
    static void shutdown();

    ~XPCUtil() override;

private:
    XPCUtil();
    XPCConnection *xpcServiceConnection();

    mutable QMutex m_lock; // guards the receivers and the connection's creation
    QHash<int, std::shared_ptr<DeleteFilesProgressProtocol>> m_customerProgress;
    QHash<int, QString> m_installFailure;
    XPCConnection *m_connection = nullptr;
    QThread *m_thread = nullptr;
};
