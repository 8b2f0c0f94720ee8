#include "cleaner/core/FileMove.h"

#include "cleaner/core/FileRemoval.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char kDisabledSuffix[] = ".disabled";

struct Fd {
    int fd = -1;
    explicit Fd(int f) : fd(f) {}
    ~Fd()
    {
        if (fd >= 0)
            ::close(fd);
    }
    Fd(const Fd &) = delete;
    Fd &operator=(const Fd &) = delete;
};

QByteArray parentOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return slash <= 0 ? QByteArray("/") : path.left(slash);
}

QByteArray nameOf(const QByteArray &path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

QString failure(const char *what)
{
    return QStringLiteral("%1: %2").arg(QLatin1String(what),
                                        QString::fromLocal8Bit(std::strerror(errno)));
}

// Opens the target folder, making it first when it is missing, owned like
// the source folder so that a user's place stays the user's.
int openOrMakeFolder(const QByteArray &folder, const struct stat &like)
{
    const int fd = FileRemoval::openFolder(folder);
    if (fd >= 0 || errno != ENOENT)
        return fd;
    Fd above(FileRemoval::openFolder(parentOf(folder)));
    if (above.fd < 0)
        return -1;
    const QByteArray name = nameOf(folder);
    if (mkdirat(above.fd, name.constData(), like.st_mode & 07777) != 0 && errno != EEXIST)
        return -1;
    if (geteuid() == 0)
        fchownat(above.fd, name.constData(), like.st_uid, like.st_gid, AT_SYMLINK_NOFOLLOW);
    return FileRemoval::openFolder(folder);
}

} // namespace

QByteArray FileMove::disabledFolder(const QByteArray &folder)
{
    return folder + kDisabledSuffix;
}

std::optional<QByteArray> FileMove::toggledPath(const QByteArray &path,
                                                const QList<QByteArray> &folders)
{
    const std::optional<QByteArray> clean = FileRemoval::normalized(path);
    if (!clean || *clean == "/")
        return std::nullopt;
    const QByteArray parent = parentOf(*clean);
    const QByteArray name = nameOf(*clean);
    for (const QByteArray &folder : folders) {
        if (parent == folder)
            return disabledFolder(folder) + '/' + name;
        if (parent == disabledFolder(folder))
            return folder + '/' + name;
    }
    return std::nullopt;
}

FileMove::Result FileMove::move(const QByteArray &from, const QByteArray &to,
                                const ItemIdentity &expected)
{
    const std::optional<QByteArray> source = FileRemoval::normalized(from);
    const std::optional<QByteArray> target = FileRemoval::normalized(to);
    if (!source || !target || *source == "/" || *target == "/")
        return {false, QStringLiteral("not an absolute path without \".\" or \"..\" steps")};
    Fd sourceFolder(FileRemoval::openFolder(parentOf(*source)));
    if (sourceFolder.fd < 0)
        return {false, failure("its folder cannot be opened")};
    const QByteArray name = nameOf(*source);
    struct stat item;
    if (fstatat(sourceFolder.fd, name.constData(), &item, AT_SYMLINK_NOFOLLOW) != 0)
        return {false, failure("it cannot be read")};
    if (expected.isKnown() && !expected.matches(item))
        return {false, QStringLiteral("it is not the item that was scanned")};
    struct stat folderStat;
    if (fstat(sourceFolder.fd, &folderStat) != 0)
        return {false, failure("its folder cannot be read")};
    Fd targetFolder(openOrMakeFolder(parentOf(*target), folderStat));
    if (targetFolder.fd < 0)
        return {false, failure("the place it goes to cannot be opened")};
    const QByteArray targetName = nameOf(*target);
    if (renameat2(sourceFolder.fd, name.constData(), targetFolder.fd, targetName.constData(),
                  RENAME_NOREPLACE) != 0) {
        if (errno == EEXIST)
            return {false, QStringLiteral("the place it goes to holds an item of that name")};
        return {false, failure("it cannot be moved")};
    }
    return {true, QString()};
}
