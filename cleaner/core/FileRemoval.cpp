#include "cleaner/core/FileRemoval.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QByteArray parentOf(const QByteArray &path)
{
    QByteArray p = path;
    while (p.size() > 1 && p.endsWith('/'))
        p.chop(1);
    const qsizetype slash = p.lastIndexOf('/');
    if (slash <= 0)
        return QByteArrayLiteral("/");
    return p.left(slash);
}

QByteArray nameOf(const QByteArray &path)
{
    QByteArray p = path;
    while (p.size() > 1 && p.endsWith('/'))
        p.chop(1);
    return p.mid(p.lastIndexOf('/') + 1);
}

} // namespace

bool FileRemoval::isDeletable(const QByteArray &path)
{
    struct stat self;
    if (path.isEmpty() || fstatat(AT_FDCWD, path.constData(), &self, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    const QByteArray parent = parentOf(path);
    if (faccessat(AT_FDCWD, parent.constData(), W_OK | X_OK, AT_EACCESS) != 0)
        return false;
    struct stat folder;
    if (stat(parent.constData(), &folder) != 0)
        return false;
    // In a sticky folder (like /tmp) only the owners may remove an entry.
    const uid_t me = geteuid();
    if ((folder.st_mode & S_ISVTX) && me != 0 && me != self.st_uid && me != folder.st_uid)
        return false;
    return true;
}

int FileRemoval::removeContents(int dirFd)
{
    DIR *dir = fdopendir(dirFd);
    if (!dir) {
        const int error = errno;
        close(dirFd);
        return error;
    }
    int firstError = 0;
    while (struct dirent *ent = readdir(dir)) {
        const char *name = ent->d_name;
        if (name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0)))
            continue;
        struct stat st;
        if (fstatat(dirfd(dir), name, &st, AT_SYMLINK_NOFOLLOW) != 0) {
            firstError = firstError ? firstError : errno;
            continue;
        }
        if (S_ISDIR(st.st_mode)) {
            const int fd =
                openat(dirfd(dir), name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            if (fd < 0) {
                firstError = firstError ? firstError : errno;
                continue;
            }
            const int inner = removeContents(fd);
            if (inner)
                firstError = firstError ? firstError : inner;
            if (unlinkat(dirfd(dir), name, AT_REMOVEDIR) != 0)
                firstError = firstError ? firstError : errno;
        } else if (unlinkat(dirfd(dir), name, 0) != 0) {
            firstError = firstError ? firstError : errno;
        }
    }
    closedir(dir);
    return firstError;
}

int FileRemoval::removeItem(const QByteArray &path)
{
    if (!path.startsWith('/'))
        return EINVAL;
    const int parentFd = open(parentOf(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (parentFd < 0)
        return errno;
    const int result = removeItemAt(parentFd, nameOf(path));
    close(parentFd);
    return result;
}

int FileRemoval::removeItemAt(int parentFd, const QByteArray &name)
{
    int result = 0;
    struct stat st;
    if (fstatat(parentFd, name.constData(), &st, AT_SYMLINK_NOFOLLOW) != 0) {
        result = errno;
    } else if (S_ISDIR(st.st_mode)) {
        const int fd =
            openat(parentFd, name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        if (fd < 0) {
            result = errno;
        } else {
            result = removeContents(fd);
            if (unlinkat(parentFd, name.constData(), AT_REMOVEDIR) != 0 && !result)
                result = errno;
        }
    } else if (unlinkat(parentFd, name.constData(), 0) != 0) {
        result = errno;
    }
    return result;
}
