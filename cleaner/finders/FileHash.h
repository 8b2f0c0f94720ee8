#pragma once

#include <QByteArray>
#include <QString>

// Digests of whole files read as a stream, so memory stays bounded whatever
// the file's size.
class FileHash {
public:
    // The digest to compute: its init, update and final steps, the digest's
    // length in bytes and its running state.
    struct ComputationContext {
        bool (*init)(void *state);
        bool (*update)(void *state, const void *data, size_t length);
        bool (*final)(void *state, unsigned char *digest);
        size_t digestLength;
        void *state;
    };

    // The lower-case hexadecimal MD5 of the file, or the empty string when it
    // cannot be opened or read to its end.
    static QString md5HashOfFileAtPath(const QByteArray &path);
    static QString hashOfFileAtPath(const QByteArray &path, ComputationContext &context);

    // Lower-case hexadecimal of digest bytes, two digits a byte.
    static QString hexString(const unsigned char *digest, size_t length);
    // Reads an open file to its end with large reads; each chunk goes to
    // `consume`. False on a read error, or when the file does not hold
    // `expectedSize` bytes (-1: any size).
    template <typename Consume>
    static bool readSequential(int fd, Consume &&consume, qint64 expectedSize = -1);
    // Opens for reading and tells the kernel the reads will be sequential.
    static int openForReading(const QByteArray &path);
    // Fills buffer from fd at offset; false on an error or an early end.
    static bool readFully(int fd, char *buffer, size_t length, qint64 offset);
    static constexpr size_t chunkSize = 1 << 20;
};

#include <cerrno>
#include <unistd.h>
#include <vector>

template <typename Consume>
bool FileHash::readSequential(int fd, Consume &&consume, qint64 expectedSize)
{
    std::vector<char> buffer(chunkSize);
    qint64 total = 0;
    bool ok = true;
    for (;;) {
        const ssize_t n = ::read(fd, buffer.data(), buffer.size());
        if (n < 0) {
            if (errno == EINTR)
                continue;
            ok = false;
            break;
        }
        if (n == 0)
            break;
        consume(buffer.data(), size_t(n));
        total += n;
    }
    return ok && (expectedSize < 0 || total == expectedSize);
}
