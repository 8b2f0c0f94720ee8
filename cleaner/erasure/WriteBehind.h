#pragma once

#include <QByteArray>
#include <condition_variable>
#include <ctime>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

// Writes unpacked files on a thread of its own, so that decompressing the
// next block and copying the last one into the page cache go on at once.
// The caller opens each file (through its own checks) and hands over the
// descriptor; data is copied into a few reused buffers, so the caller never
// waits unless the writer is that many buffers behind. Files are written and
// closed in the order they were handed over.
class WriteBehind {
public:
    struct Failure {
        int error = 0;   // errno of the first write that failed, 0 for none
        QByteArray name; // the file it was writing
    };

    WriteBehind();
    ~WriteBehind(); // waits for what is queued
    WriteBehind(const WriteBehind &) = delete;
    WriteBehind &operator=(const WriteBehind &) = delete;

    // A file to write: the descriptor is the writer's from now on.
    void open(int fd, const QByteArray &name);
    // `size` bytes at `offset` of the open file; false once any write failed.
    bool append(const void *data, size_t size, qint64 offset);
    // Ends the open file: cut to `size` (when not negative), its modification
    // time set (when given), closed.
    void close(qint64 size, std::optional<timespec> modified);
    // Waits for every queued write; the first failure, if any.
    Failure finish();
    bool failed() const;

private:
    struct Task {
        int fd = -1;
        QByteArray name;
        std::unique_ptr<char[]> buffer; // data to write, or null for the close
        size_t size = 0;
        qint64 offset = 0;
        qint64 truncate = -1;
        std::optional<timespec> modified;
    };
    void push(Task task);
    void flush();
    void run();
    std::unique_ptr<char[]> takeBuffer();

    // The open file, and the buffer being filled for it.
    int m_fd = -1;
    QByteArray m_name;
    std::unique_ptr<char[]> m_buffer;
    size_t m_used = 0;
    qint64 m_start = 0; // the file offset of the buffer's first byte

    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    std::deque<Task> m_tasks;
    std::vector<std::unique_ptr<char[]>> m_free;
    int m_buffers = 0; // made so far
    bool m_done = false;
    Failure m_failure;
    std::thread m_thread;
};
