#include "helper/SafeShred.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/Descriptor.h"
#include "cleaner/core/FileRemoval.h"
#include "helper/HelperLog.h"

#include <QRandomGenerator>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <unistd.h>

namespace {

constexpr int kStepFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

QString errnoText(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}

QString kindRefusal(mode_t mode)
{
    if (S_ISLNK(mode))
        return QStringLiteral("a symbolic link: the link is not shredded, nor what it points to");
    if (S_ISDIR(mode))
        return QStringLiteral("a folder: only the files in it are shredded");
    if (S_ISBLK(mode) || S_ISCHR(mode))
        return QStringLiteral("a device");
    return QStringLiteral("not a regular file (a FIFO or a socket)");
}

bool sameItem(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

// Writes random data over the first `length` bytes of the file, in large
// blocks; the errno of a failure, else 0.
int overwrite(int fd, qint64 length)
{
    QRandomGenerator random = QRandomGenerator::securelySeeded();
    QList<quint32> block(std::min<qint64>(SafeShred::blockSize, length) / 4 + 1);
    for (qint64 offset = 0; offset < length;) {
        random.fillRange(block.data(), block.size());
        const qint64 chunk = std::min<qint64>(SafeShred::blockSize, length - offset);
        const char *data = reinterpret_cast<const char *>(block.constData());
        for (qint64 done = 0; done < chunk;) {
            const ssize_t n = ::pwrite(fd, data + done, size_t(chunk - done), offset + done);
            if (n < 0 && errno == EINTR)
                continue;
            if (n <= 0)
                return n < 0 ? errno : EIO;
            done += n;
        }
        offset += chunk;
    }
    return ::fsync(fd) == 0 ? 0 : errno;
}

// A random name that is not in the folder yet, the file renamed to it.
std::optional<QByteArray> renameToRandom(int folder, const QByteArray &name)
{
    static const char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    for (int attempt = 0; attempt < 16; ++attempt) {
        QByteArray random(16, Qt::Uninitialized);
        for (char &c : random)
            c = kLetters[QRandomGenerator::system()->bounded(int(sizeof kLetters) - 1)];
        if (::renameat2(folder, name.constData(), folder, random.constData(), RENAME_NOREPLACE) ==
            0)
            return random;
        if (errno != EEXIST)
            return std::nullopt;
    }
    return std::nullopt;
}

} // namespace

std::optional<SafeShred::Rights> SafeShred::Rights::of(uid_t uid)
{
    const passwd *pw = getpwuid(uid);
    if (!pw)
        return uid == 0 ? std::optional<Rights>(Rights{}) : std::nullopt;
    Rights rights{uid, pw->pw_gid, {}};
    int count = 64;
    QList<gid_t> groups(count);
    if (getgrouplist(pw->pw_name, pw->pw_gid, groups.data(), &count) < 0) {
        groups.resize(count);
        getgrouplist(pw->pw_name, pw->pw_gid, groups.data(), &count);
    }
    groups.resize(std::max(0, count));
    rights.groups = groups;
    return rights;
}

bool SafeShred::Rights::grants(const struct stat &st, int want) const
{
    if (uid == 0)
        return true;
    int shift = 0;
    if (st.st_uid == uid)
        shift = 6;
    else if (st.st_gid == gid || groups.contains(st.st_gid))
        shift = 3;
    return ((int(st.st_mode) >> shift) & want) == want;
}

bool SafeShred::Rights::canRemoveFrom(const struct stat &folder, const struct stat &item) const
{
    if (!grants(folder, W_OK | X_OK))
        return false;
    return !(folder.st_mode & S_ISVTX) || uid == 0 || uid == item.st_uid || uid == folder.st_uid;
}

SafeShred::SafeShred(AllowList allowed)
    : m_allowed(std::move(allowed)),
      m_caller(m_allowed.caller() ? Rights::of(*m_allowed.caller()) : std::nullopt)
{}

SafeShred::Outcome SafeShred::shred(const QByteArray &path) const
{
    const auto failed = [&path](errorKind kind, const QString &why) {
        logLine(QStringLiteral("not shredded %1: %2").arg(loggable(path), why));
        return Outcome{int(kind), 0, why};
    };
    const auto refused = [&](const QString &why) { return failed(errorKind::shredFail, why); };

    const auto clean = FileRemoval::normalized(path);
    if (!clean || *clean == "/")
        return refused(QStringLiteral("not an absolute path without \".\" or \"..\" steps"));
    if (AllowList::isSystemPath(*clean))
        return refused(QStringLiteral("a path in a folder of the system"));
    const bool allowed = !m_allowed.refusal(*clean);

    // Every folder on the way, from "/", without following a link; the
    // caller reaches the file only when every one of them lets them search it.
    const QList<QByteArray> steps = clean->mid(1).split('/');
    const QByteArray &name = steps.last();
    Descriptor folder(::open("/", O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat folderStat;
    bool reachable = m_caller.has_value();
    for (qsizetype i = 0; folder.get() >= 0; ++i) {
        if (::fstat(folder.get(), &folderStat) != 0)
            return refused(errnoText(errno));
        reachable = reachable && m_caller->grants(folderStat, X_OK);
        if (i + 1 >= steps.size())
            break;
        const int next = ::openat(folder.get(), steps[i].constData(), kStepFlags);
        const int error = errno;
        folder.reset(next);
        errno = error;
    }
    if (folder.get() < 0) {
        return refused(errno == ELOOP || errno == ENOTDIR
                           ? QStringLiteral("a step of the path is not a folder or is a link")
                           : errnoText(errno));
    }

    struct stat seen;
    if (::fstatat(folder.get(), name.constData(), &seen, AT_SYMLINK_NOFOLLOW) != 0)
        return refused(errnoText(errno));
    if (!S_ISREG(seen.st_mode))
        return refused(kindRefusal(seen.st_mode));
    if (seen.st_nlink != 1)
        return refused(QStringLiteral("the file has other names (hard links) that share its data"));
    if (!allowed && !(reachable && m_caller->canRemoveFrom(folderStat, seen)))
        return refused(QStringLiteral("outside the places the helper may remove from, and the "
                                      "calling user could not remove it with their own rights"));

    Descriptor file(::openat(folder.get(), name.constData(),
                             O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat opened;
    if (file.get() < 0)
        return refused(errnoText(errno));
    if (::fstat(file.get(), &opened) != 0 || !sameItem(opened, seen) || !S_ISREG(opened.st_mode) ||
        opened.st_nlink != 1)
        return refused(QStringLiteral("the file changed while it was opened"));

    // The whole length, up to the end of its last block, so that the slack
    // behind the end of the data goes as well.
    const qint64 unit = opened.st_blksize > 0 ? opened.st_blksize : 4096;
    const qint64 length = (qint64(opened.st_size) + unit - 1) / unit * unit;
    if (const int error = overwrite(file.get(), length))
        return failed(errorKind::shredFail, QStringLiteral("overwriting: ") + errnoText(error));

    // The data is gone from here on; what fails now leaves an emptied name.
    const auto left = [&](const QString &step) {
        return failed(errorKind::moreFail, step + QStringLiteral(": ") + errnoText(errno));
    };
    const std::optional<QByteArray> random = renameToRandom(folder.get(), name);
    if (!random)
        return left(QStringLiteral("renaming"));
    if (::ftruncate(file.get(), 0) != 0 || ::fsync(file.get()) != 0)
        return left(QStringLiteral("truncating"));
    struct stat renamed;
    if (::fstatat(folder.get(), random->constData(), &renamed, AT_SYMLINK_NOFOLLOW) != 0 ||
        !sameItem(renamed, opened)) {
        errno = ESTALE;
        return left(QStringLiteral("removing"));
    }
    if (::unlinkat(folder.get(), random->constData(), 0) != 0)
        return left(QStringLiteral("removing"));
    // The folder's entry is gone for good only once the folder is on the device.
    Descriptor listing(::openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (listing.get() >= 0)
        ::fsync(listing.get());
    return Outcome{int(errorKind::success), qint64(opened.st_size), QString()};
}
