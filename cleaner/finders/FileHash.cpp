#include "cleaner/finders/FileHash.h"

#include "cleaner/finders/Md5.h"

#include <cerrno>
#include <fcntl.h>

QString FileHash::hexString(const unsigned char *digest, size_t length)
{
    static const char digits[] = "0123456789abcdef";
    QString text(qsizetype(length * 2), Qt::Uninitialized);
    QChar *out = text.data();
    for (size_t i = 0; i < length; ++i) {
        *out++ = QLatin1Char(digits[digest[i] >> 4]);
        *out++ = QLatin1Char(digits[digest[i] & 15]);
    }
    return text;
}

int FileHash::openForReading(const QByteArray &path)
{
    const int fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (fd >= 0)
        posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
    return fd;
}

bool FileHash::readFully(int fd, char *buffer, size_t length, qint64 offset)
{
    while (length > 0) {
        const ssize_t n = ::pread(fd, buffer, length, off_t(offset));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        buffer += n;
        length -= size_t(n);
        offset += n;
    }
    return true;
}

QString FileHash::hashOfFileAtPath(const QByteArray &path, ComputationContext &context)
{
    if (path.isEmpty())
        return QString();
    const int fd = openForReading(path);
    if (fd < 0)
        return QString();
    bool ok = context.init(context.state);
    ok = readSequential(fd,
                        [&](const char *data, size_t length) {
                            ok = context.update(context.state, data, length) && ok;
                        }) &&
         ok;
    ::close(fd);
    std::vector<unsigned char> digest(context.digestLength);
    // The final step always runs, so the state is left clean.
    ok = context.final(context.state, digest.data()) && ok;
    return ok ? hexString(digest.data(), digest.size()) : QString();
}

QString FileHash::md5HashOfFileAtPath(const QByteArray &path)
{
    Md5 md5;
    ComputationContext context{
        [](void *s) { return static_cast<Md5 *>(s)->init(); },
        [](void *s, const void *data, size_t length) {
            return static_cast<Md5 *>(s)->update(data, length);
        },
        [](void *s, unsigned char *digest) { return static_cast<Md5 *>(s)->final(digest); },
        Md5::length, &md5};
    return hashOfFileAtPath(path, context);
}
