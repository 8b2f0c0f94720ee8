#include "cleaner/erasure/WriteBehind.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr size_t kBuffer = 1 << 20;
constexpr int kBuffers = 16;   // how far the writer may fall behind
constexpr size_t kTasks = 256; // files queued at most, each holding a descriptor

} // namespace

WriteBehind::WriteBehind() : m_thread([this] { run(); }) {}

WriteBehind::~WriteBehind()
{
    finish();
}

void WriteBehind::open(int fd, const QByteArray &name)
{
    if (m_fd >= 0) // the last file was left half-way: it is closed as it stands
        close(-1, std::nullopt);
    m_fd = fd;
    m_name = name;
    m_used = 0;
    m_start = 0;
}

bool WriteBehind::append(const void *data, size_t size, qint64 offset)
{
    // A jump (a hole in a sparse entry) starts a buffer of its own.
    if (m_used > 0 && offset != m_start + qint64(m_used))
        flush();
    const char *from = static_cast<const char *>(data);
    while (size > 0) {
        if (!m_buffer) {
            m_buffer = takeBuffer();
            m_used = 0;
            m_start = offset;
        }
        const size_t n = std::min(size, kBuffer - m_used);
        std::memcpy(m_buffer.get() + m_used, from, n);
        m_used += n;
        from += n;
        offset += qint64(n);
        size -= n;
        if (m_used == kBuffer)
            flush();
    }
    return !failed();
}

void WriteBehind::close(qint64 size, std::optional<timespec> modified)
{
    flush();
    Task task;
    task.fd = std::exchange(m_fd, -1);
    task.name = m_name;
    task.truncate = size;
    task.modified = modified;
    push(std::move(task));
}

WriteBehind::Failure WriteBehind::finish()
{
    {
        std::unique_lock lock(m_mutex);
        m_done = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable())
        m_thread.join();
    if (m_fd >= 0) // handed over but never closed: the caller stopped half-way
        ::close(std::exchange(m_fd, -1));
    std::lock_guard lock(m_mutex);
    return m_failure;
}

bool WriteBehind::failed() const
{
    std::lock_guard lock(m_mutex);
    return m_failure.error != 0;
}

void WriteBehind::flush()
{
    if (!m_buffer || m_used == 0)
        return;
    Task task;
    task.fd = m_fd;
    task.name = m_name;
    task.buffer = std::move(m_buffer);
    task.size = std::exchange(m_used, 0);
    task.offset = m_start;
    push(std::move(task));
}

void WriteBehind::push(Task task)
{
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_tasks.size() < kTasks; });
        m_tasks.push_back(std::move(task));
    }
    m_changed.notify_all();
}

std::unique_ptr<char[]> WriteBehind::takeBuffer()
{
    std::unique_lock lock(m_mutex);
    if (m_free.empty() && m_buffers < kBuffers) {
        ++m_buffers;
        return std::make_unique_for_overwrite<char[]>(kBuffer);
    }
    m_changed.wait(lock, [this] { return !m_free.empty(); });
    std::unique_ptr<char[]> buffer = std::move(m_free.back());
    m_free.pop_back();
    return buffer;
}

void WriteBehind::run()
{
    for (;;) {
        Task task;
        {
            std::unique_lock lock(m_mutex);
            m_changed.wait(lock, [this] { return !m_tasks.empty() || m_done; });
            if (m_tasks.empty())
                return;
            task = std::move(m_tasks.front());
            m_tasks.pop_front();
        }
        m_changed.notify_all(); // room in the queue
        int error = 0;
        if (task.buffer) {
            // After a failure nothing more is written; the queue only drains.
            for (size_t done = 0; !failed() && done < task.size;) {
                const ssize_t n = ::pwrite(task.fd, task.buffer.get() + done, task.size - done,
                                           task.offset + qint64(done));
                if (n < 0 && errno == EINTR)
                    continue;
                if (n <= 0) {
                    error = n < 0 ? errno : EIO;
                    break;
                }
                done += size_t(n);
            }
        } else {
            if (task.truncate >= 0)
                (void)::ftruncate(task.fd, task.truncate);
            if (task.modified) {
                const timespec times[2] = {*task.modified, *task.modified};
                ::futimens(task.fd, times);
            }
            ::close(task.fd);
        }
        std::lock_guard lock(m_mutex);
        if (task.buffer)
            m_free.push_back(std::move(task.buffer));
        if (error && !m_failure.error)
            m_failure = {error, task.name};
        m_changed.notify_all(); // a buffer back
    }
}
