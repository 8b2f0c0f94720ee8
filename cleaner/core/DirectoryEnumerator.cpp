#include "cleaner/core/DirectoryEnumerator.h"

#include "cleaner/core/Platform.h"

#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

struct DirectoryEnumerator::Frame {
    DIR *dir = nullptr;
    QByteArray path; // with no trailing slash, "" for "/"
    ~Frame()
    {
        if (dir)
            closedir(dir);
    }
};

namespace {

DIR *openFolderAt(int parentFd, const char *name)
{
    const int fd = openat(parentFd, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0)
        return nullptr;
    DIR *dir = fdopendir(fd);
    if (!dir)
        close(fd);
    return dir;
}

DirectoryEnumerator::Error folderError(const QByteArray &path, int code)
{
    return {path, code,
            Platform::folderErrorDescription(
                ResourceValues::displayName(ResourceValues::lastComponent(path)), code)};
}

QByteArray withoutTrailingSlash(QByteArray path)
{
    while (path.endsWith('/'))
        path.chop(1);
    return path;
}

} // namespace

DirectoryEnumerator::DirectoryEnumerator(int options) : m_options(options) {}
DirectoryEnumerator::~DirectoryEnumerator() = default;

std::unique_ptr<DirectoryEnumerator>
DirectoryEnumerator::create(const QByteArray &rootPath, int options, ErrorHandler errorHandler)
{
    if (rootPath.isEmpty())
        return nullptr;
    // A trailing slash would make the kernel follow a link in the last place.
    const QByteArray trimmed = withoutTrailingSlash(rootPath);
    DIR *dir = openFolderAt(AT_FDCWD, trimmed.isEmpty() ? "/" : trimmed.constData());
    if (!dir) {
        const int code = errno;
        if (errorHandler)
            errorHandler(folderError(trimmed.isEmpty() ? QByteArray("/") : trimmed, code));
        return nullptr;
    }
    std::unique_ptr<DirectoryEnumerator> e(new DirectoryEnumerator(options));
    e->m_errorHandler = std::move(errorHandler);
    auto frame = std::make_unique<Frame>();
    frame->dir = dir;
    frame->path = trimmed;
    e->m_stack.push_back(std::move(frame));
    return e;
}

bool DirectoryEnumerator::descendIntoPending()
{
    const bool wanted = m_pendingDescend && !m_skipPending;
    m_pendingDescend = false;
    m_skipPending = false;
    if (!wanted)
        return false;
    Frame &parent = *m_stack.back();
    const QByteArray name = m_path.mid(parent.path.size() + 1);
    DIR *dir = openFolderAt(dirfd(parent.dir), name.constData());
    if (!dir) {
        // An unreadable folder is listed, not entered.
        const int code = errno;
        if (m_errorHandler && !m_errorHandler(folderError(m_path, code)))
            m_stack.clear();
        return false;
    }
    auto frame = std::make_unique<Frame>();
    frame->dir = dir;
    frame->path = m_path;
    m_stack.push_back(std::move(frame));
    return true;
}

const ResourceValues &DirectoryEnumerator::values() const
{
    if (!m_valuesBuilt) {
        if (m_currentReadable) {
            m_values = ResourceValues::fromStat(m_path, m_stat);
        } else {
            m_values = ResourceValues();
            m_values.path = m_path;
            m_values.localizedName =
                ResourceValues::displayName(ResourceValues::lastComponent(m_path));
        }
        m_valuesBuilt = true;
    }
    return m_values;
}

int DirectoryEnumerator::folderDescriptor() const
{
    return m_stack.empty() ? -1 : dirfd(m_stack.back()->dir);
}

bool DirectoryEnumerator::next()
{
    descendIntoPending();
    while (!m_stack.empty()) {
        Frame &frame = *m_stack.back();
        errno = 0;
        struct dirent *ent = readdir(frame.dir);
        if (!ent) {
            m_stack.pop_back();
            continue;
        }
        const char *name = ent->d_name;
        if (name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0)))
            continue;
        if ((m_options & SkipsHiddenFiles) && name[0] == '.')
            continue;

        // One allocation a path: the walks keep many of them.
        const size_t nameLength = std::strlen(name);
        m_path = QByteArray(frame.path.size() + 1 + qsizetype(nameLength), Qt::Uninitialized);
        char *out = m_path.data();
        std::memcpy(out, frame.path.constData(), size_t(frame.path.size()));
        out[frame.path.size()] = '/';
        std::memcpy(out + frame.path.size() + 1, name, nameLength);
        m_currentLevel = int(m_stack.size());
        m_valuesBuilt = false;
        m_currentReadable = fstatat(dirfd(frame.dir), name, &m_stat, AT_SYMLINK_NOFOLLOW) == 0;
        m_pendingDescend = false;
        if (m_currentReadable && S_ISDIR(m_stat.st_mode) &&
            !(m_options & SkipsSubdirectoryDescendants)) {
            m_pendingDescend = !((m_options & SkipsPackageDescendants) &&
                                 ResourceValues::isPackageName(QByteArray(name)));
        }
        return true;
    }
    return false;
}
