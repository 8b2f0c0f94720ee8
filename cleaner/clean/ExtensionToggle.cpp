#include "cleaner/clean/ExtensionToggle.h"

#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/FolderInfo.h"

#include <QHash>
#include <QMutex>

namespace {

constexpr int kExtensionsModule = 12;

// Hears the helper's answers to moves. The module has one receiver, and
// rows pressed one after another have their requests out together, so each
// answer goes to the row its path names. Answers arrive on the connection's
// thread; the rows are told on the main thread.
class MoveReceiver : public DeleteFilesProgressProtocol {
public:
    static std::shared_ptr<MoveReceiver> instance()
    {
        static const auto receiver = std::make_shared<MoveReceiver>();
        return receiver;
    }
    void expect(const QString &key, ExtensionToggle::Done done)
    {
        QMutexLocker lock(&m_lock);
        m_pending.insert(key, std::move(done));
    }
    void installFail(const QString &, int) override
    {
        QMutexLocker lock(&m_lock);
        for (const ExtensionToggle::Done &done : std::as_const(m_pending))
            answer(done, -2);
        m_pending.clear();
    }
    void processed(const QString &, qint64, int) override {}
    void finished(bool, const PathMap &folders, int) override
    {
        QMutexLocker lock(&m_lock);
        for (auto it = folders.begin(); it != folders.end(); ++it) {
            const auto pending = m_pending.constFind(it.key());
            if (pending == m_pending.constEnd())
                continue;
            answer(*pending, it.value().isEmpty() ? int(errorKind::nocause) : it.value().last());
            m_pending.erase(pending);
        }
    }

private:
    static void answer(ExtensionToggle::Done done, int status)
    {
        Dispatch::mainAsync([done = std::move(done), status] {
            if (done)
                done(status);
        });
    }

    QMutex m_lock;
    QHash<QString, ExtensionToggle::Done> m_pending;
};

} // namespace

void ExtensionToggle::moveFile(const QByteArray &path, const ItemIdentity &identity, int ci, int fi,
                               Done done)
{
    // The key is the item's URL string, percent-encoded; the helper decodes it.
    const QString key = FolderInfo::absoluteString(FolderInfo::urlFromPath(path));
    PathMap folder{{key, {ci, fi, 0}}};
    IdentityMap identities;
    if (identity.isKnown())
        identities.insert(path, identity);
    const std::shared_ptr<MoveReceiver> receiver = MoveReceiver::instance();
    receiver->expect(key, std::move(done));
    XPCUtil::instance()->operation(folder, receiver, qint64(operationType::move), kExtensionsModule,
                                   identities);
}
