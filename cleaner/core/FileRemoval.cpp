#include "cleaner/core/FileRemoval.h"

#include <QList>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A descriptor closed when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int fd = -1) : m_fd(fd) {}
    ~Descriptor()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    void reset(int fd)
    {
        if (m_fd >= 0)
            ::close(m_fd);
        m_fd = fd;
    }
    int get() const { return m_fd; }
    int release() { return std::exchange(m_fd, -1); }

private:
    int m_fd;
};

constexpr int kStepFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr int kListFlags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

bool isDotEntry(const char *name)
{
    return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

void keepFirst(int &first, int error)
{
    if (!first)
        first = error;
}

// Removes everything inside the open folder (the descriptor is taken).
// Folders are opened without following links and checked to be the entry that
// was listed; a folder on another device (a mount inside the tree) is left.
int removeContents(int dirFd, dev_t device)
{
    DIR *dir = fdopendir(dirFd);
    if (!dir) {
        const int error = errno;
        ::close(dirFd);
        return error;
    }
    int firstError = 0;
    while (const dirent *ent = readdir(dir)) {
        const char *name = ent->d_name;
        if (isDotEntry(name))
            continue;
        struct stat st;
        if (fstatat(dirfd(dir), name, &st, AT_SYMLINK_NOFOLLOW) != 0) {
            if (errno != ENOENT)
                keepFirst(firstError, errno);
            continue;
        }
        if (!S_ISDIR(st.st_mode)) {
            if (unlinkat(dirfd(dir), name, 0) != 0 && errno != ENOENT)
                keepFirst(firstError, errno);
            continue;
        }
        if (st.st_dev != device) {
            keepFirst(firstError, EXDEV);
            continue;
        }
        const int fd = openat(dirfd(dir), name, kListFlags);
        if (fd < 0) {
            keepFirst(firstError, errno);
            continue;
        }
        struct stat opened;
        if (fstat(fd, &opened) != 0 || opened.st_dev != st.st_dev || opened.st_ino != st.st_ino) {
            ::close(fd); // swapped between the look and the open
            keepFirst(firstError, ESTALE);
            continue;
        }
        keepFirst(firstError, removeContents(fd, device));
        if (unlinkat(dirfd(dir), name, AT_REMOVEDIR) != 0)
            keepFirst(firstError, errno);
    }
    closedir(dir);
    return firstError;
}

FileRemoval::Result outcomeOf(int error)
{
    using O = FileRemoval::Outcome;
    switch (error) {
    case 0:
        return {O::Removed, 0};
    case EACCES:
    case EPERM:
        return {O::NotPermitted, error};
    case ENOENT:
        return {O::Vanished, error};
    case ELOOP:
    case ENOTDIR:
        return {O::BlockedStep, error};
    case ESTALE:
        return {O::Changed, error};
    default:
        return {O::Failed, error};
    }
}

// Whether this process may remove entries of the open folder: write and
// search rights, and in a sticky folder (such as /tmp) being an owner.
int parentAllows(int parentFd, const struct stat &item)
{
    const uid_t me = geteuid();
    if (me == 0)
        return 0;
    if (faccessat(parentFd, ".", W_OK | X_OK, AT_EACCESS) != 0)
        return errno;
    struct stat folder;
    if (fstat(parentFd, &folder) != 0)
        return errno;
    if ((folder.st_mode & S_ISVTX) && me != item.st_uid && me != folder.st_uid)
        return EPERM;
    return 0;
}

} // namespace

QString FileRemoval::Result::reason() const
{
    switch (outcome) {
    case Outcome::Removed:
        return QString();
    case Outcome::Vanished:
        return QStringLiteral("it is no longer there");
    case Outcome::Changed:
        return QStringLiteral("it is not the item that was scanned");
    case Outcome::BlockedStep:
        return QStringLiteral("a step of the path is not a folder or is a symbolic link");
    case Outcome::Invalid:
        return QStringLiteral("not an absolute path without \".\" or \"..\" steps");
    case Outcome::NotPermitted:
    case Outcome::Failed:
        break;
    }
    return QString::fromLocal8Bit(std::strerror(error));
}

std::optional<QByteArray> FileRemoval::normalized(const QByteArray &path)
{
    if (!path.startsWith('/') || path.contains('\0'))
        return std::nullopt;
    QByteArray out;
    for (const QByteArray &step : path.split('/')) {
        if (step.isEmpty())
            continue;
        if (step == "." || step == "..")
            return std::nullopt;
        out += '/' + step;
    }
    return out.isEmpty() ? QByteArray("/") : out;
}

FileRemoval::Result FileRemoval::removeListed(const QByteArray &path, const ItemIdentity &expected)
{
    const std::optional<QByteArray> clean = normalized(path);
    if (!clean || *clean == "/")
        return {Outcome::Invalid, EINVAL};
    if (!expected.isKnown())
        return {Outcome::Changed, ESTALE};
    return remove(*clean, expected);
}

FileRemoval::Result FileRemoval::removeItem(const QByteArray &path)
{
    const std::optional<QByteArray> clean = normalized(path);
    if (!clean || *clean == "/")
        return {Outcome::Invalid, EINVAL};
    return remove(*clean, std::nullopt);
}

FileRemoval::Result FileRemoval::remove(const QByteArray &clean,
                                        const std::optional<ItemIdentity> &expected)
{
    const QList<QByteArray> steps = clean.mid(1).split('/');
    const QByteArray &name = steps.last();

    // Every folder on the way, from "/", without following a link.
    Descriptor parent(::open("/", kStepFlags & ~O_NOFOLLOW));
    for (qsizetype i = 0; parent.get() >= 0 && i + 1 < steps.size(); ++i) {
        const int next = openat(parent.get(), steps[i].constData(), kStepFlags);
        const int error = errno;
        parent.reset(next);
        errno = error;
    }
    if (parent.get() < 0)
        return outcomeOf(errno);

    struct stat st;
    if (fstatat(parent.get(), name.constData(), &st, AT_SYMLINK_NOFOLLOW) != 0)
        return outcomeOf(errno);
    if (expected && !expected->matches(st))
        return {Outcome::Changed, ESTALE};
    if (const int refused = parentAllows(parent.get(), st))
        return outcomeOf(refused);

    if (!S_ISDIR(st.st_mode)) {
        if (unlinkat(parent.get(), name.constData(), 0) != 0)
            return outcomeOf(errno);
        return {Outcome::Removed, 0};
    }
    Descriptor folder(openat(parent.get(), name.constData(), kListFlags));
    if (folder.get() < 0)
        return outcomeOf(errno);
    struct stat opened;
    if (fstat(folder.get(), &opened) != 0 || opened.st_dev != st.st_dev ||
        opened.st_ino != st.st_ino)
        return {Outcome::Changed, ESTALE};
    int error = removeContents(folder.release(), st.st_dev);
    if (unlinkat(parent.get(), name.constData(), AT_REMOVEDIR) != 0)
        keepFirst(error, errno);
    return outcomeOf(error);
}

bool FileRemoval::isDeletable(const QByteArray &path)
{
    const std::optional<QByteArray> clean = normalized(path);
    if (!clean || *clean == "/")
        return false;
    const qsizetype slash = clean->lastIndexOf('/');
    const QByteArray folder = slash == 0 ? QByteArray("/") : clean->left(slash);
    Descriptor parent(::open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    struct stat st;
    if (parent.get() < 0 ||
        fstatat(parent.get(), clean->mid(slash + 1).constData(), &st, AT_SYMLINK_NOFOLLOW) != 0)
        return false;
    return parentAllows(parent.get(), st) == 0;
}
