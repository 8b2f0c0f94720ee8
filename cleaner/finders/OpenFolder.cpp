#include "cleaner/finders/OpenFolder.h"

#include <atomic>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

std::atomic<int> s_held{0};

} // namespace

int OpenFolder::budget()
{
    static const int value = [] {
        struct rlimit limit {};
        if (getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY)
            return 4096;
        return int(std::max<rlim_t>(limit.rlim_cur / 2, 256) - 256);
    }();
    return value;
}

std::shared_ptr<const OpenFolder> OpenFolder::hold(int fd)
{
    if (fd < 0 || s_held.fetch_add(1) >= budget()) {
        --s_held;
        return nullptr;
    }
    const int copy = fcntl(fd, F_DUPFD_CLOEXEC, 0);
    if (copy < 0) {
        --s_held;
        return nullptr;
    }
    return std::shared_ptr<const OpenFolder>(new OpenFolder(copy));
}

OpenFolder::~OpenFolder()
{
    ::close(m_fd);
    --s_held;
}

int OpenFolder::openFile(const OpenFolder *folder, const QByteArray &path)
{
    constexpr int flags = O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NOFOLLOW;
    if (!folder)
        return ::open(path.constData(), flags);
    const char *name = path.constData() + path.lastIndexOf('/') + 1;
    return ::openat(folder->m_fd, name, flags);
}
