#include "cleaner/clean/ExtensionToggle.h"

#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/FolderInfo.h"

namespace {

constexpr int kExtensionsModule = 12;

// Hears the helper's one answer to a move and hands it to the main thread.
class MoveReceiver : public DeleteFilesProgressProtocol {
public:
    MoveReceiver(QString key, ExtensionToggle::Done done)
        : m_key(std::move(key)), m_done(std::move(done))
    {}
    void installFail(const QString &, int) override { answer(-2); }
    void processed(const QString &, qint64, int) override {}
    void finished(bool, const PathMap &folders, int) override
    {
        const QList<int> entry = folders.value(m_key);
        answer(entry.isEmpty() ? int(errorKind::nocause) : entry.last());
    }

private:
    void answer(int status)
    {
        Dispatch::mainAsync([done = m_done, status] {
            if (done)
                done(status);
        });
    }
    QString m_key;
    ExtensionToggle::Done m_done;
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
    XPCUtil::instance()->operation(folder, std::make_shared<MoveReceiver>(key, std::move(done)),
                                   qint64(operationType::move), kExtensionsModule, identities);
}
