#include "cleaner/core/ResourceValues.h"

#include <QMimeDatabase>
#include <QStringDecoder>
#include <fcntl.h>

namespace {

// Bundle extensions: such a directory is shown and removed as one item.
constexpr const char *kPackageExtensions[] = {
    ".app",
    ".bundle",
    ".framework",
    ".plugin",
    ".kext",
    ".photoslibrary",
    ".appex",
    ".prefPane",
    ".qlgenerator",
    ".mdimporter",
    ".saver",
    ".xpc",
    ".pkg",
    ".mpkg",
    ".rtfd",
    ".wdgt",
    ".safariextension",
    ".download",
};

QDateTime dateOf(const struct timespec &ts)
{
    return QDateTime::fromMSecsSinceEpoch(qint64(ts.tv_sec) * 1000 + ts.tv_nsec / 1000000, Qt::UTC);
}

} // namespace

QByteArray ResourceValues::lastComponent(const QByteArray &path)
{
    QByteArray p = path;
    while (p.size() > 1 && p.endsWith('/'))
        p.chop(1);
    const qsizetype slash = p.lastIndexOf('/');
    return slash < 0 ? p : p.mid(slash + 1);
}

bool ResourceValues::isPackageName(const QByteArray &name)
{
    for (const char *ext : kPackageExtensions) {
        if (name.size() > qsizetype(qstrlen(ext)) && name.endsWith(ext))
            return true;
    }
    return false;
}

QString ResourceValues::displayName(const QByteArray &name)
{
    // Invalid sequences show as U+FFFD; the raw bytes stay in the path.
    QStringDecoder decoder(QStringDecoder::Utf8);
    return decoder.decode(name);
}

ResourceValues ResourceValues::fromStat(const QByteArray &path, const struct stat &st)
{
    ResourceValues v;
    v.path = path;
    const QByteArray name = lastComponent(path);
    v.localizedName = displayName(name);
    v.isRegularFile = S_ISREG(st.st_mode);
    v.isDirectory = S_ISDIR(st.st_mode);
    v.isSymbolicLink = S_ISLNK(st.st_mode);
    v.isPackage = v.isDirectory && isPackageName(name);
    v.isHidden = name.startsWith('.');
    if (!v.isDirectory)
        v.fileSize = qint64(st.st_size);
    v.contentModificationDate = dateOf(st.st_mtim);
    v.owner = st.st_uid;
    v.device = st.st_dev;
    v.inode = st.st_ino;
    v.allocatedSize = qint64(st.st_blocks) * 512;
    v.identity = ItemIdentity::fromStat(st);
    return v;
}

std::optional<ResourceValues> ResourceValues::read(const QByteArray &path)
{
    struct stat st;
    if (fstatat(AT_FDCWD, path.constData(), &st, AT_SYMLINK_NOFOLLOW) != 0)
        return std::nullopt;
    return fromStat(path, st);
}

QString ResourceValues::typeIdentifier() const
{
    if (isDirectory)
        return isPackage ? QStringLiteral("inode/x-package") : QStringLiteral("inode/directory");
    static const QMimeDatabase db;
    return db.mimeTypeForFile(localizedName, QMimeDatabase::MatchExtension).name();
}
