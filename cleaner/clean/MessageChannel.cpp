#include "cleaner/clean/MessageChannel.h"

#include <QCborStreamReader>
#include <QSocketNotifier>
#include <QtEndian>
#include <cerrno>
#include <unistd.h>

namespace {

// CBOR can write integers down to -2^64, but a decoded value keeps 64 bits
// and turns those below -2^63 into other numbers (-2^64 reads as 0). A
// message holding one is refused, or a damaged value could pass as valid.
bool integersFit(const QByteArray &body)
{
    QCborStreamReader reader(body);
    int depth = 0;
    while (reader.lastError() == QCborError::NoError) {
        if (!reader.hasNext()) {
            if (depth == 0)
                return true;
            reader.leaveContainer();
            --depth;
        } else if (reader.isContainer()) {
            reader.enterContainer();
            ++depth;
        } else {
            if (reader.isNegativeInteger()) {
                const quint64 magnitude = quint64(reader.toNegativeInteger());
                if (magnitude == 0 || magnitude > (quint64(1) << 63))
                    return false;
            }
            reader.next();
        }
    }
    return false;
}

} // namespace

QList<FrameDecoder::Item> FrameDecoder::feed(const QByteArray &bytes)
{
    QList<Item> items;
    m_buffer.append(bytes);
    while (m_buffer.size() >= 4) {
        const quint32 length = qFromBigEndian<quint32>(m_buffer.constData());
        if (length > maxFrame) {
            // Nothing after a false length can be trusted to start a frame.
            items.append(
                {std::nullopt, QStringLiteral("frame of %1 bytes is too long").arg(length)});
            m_buffer.clear();
            break;
        }
        if (quint32(m_buffer.size() - 4) < length)
            break;
        const QByteArray body = m_buffer.mid(4, length);
        m_buffer.remove(0, 4 + qsizetype(length));
        QCborStreamReader reader(body);
        const QCborValue value = QCborValue::fromCbor(reader);
        if (reader.lastError() != QCborError::NoError)
            items.append(
                {std::nullopt,
                 QStringLiteral("unreadable message: %1").arg(reader.lastError().toString())});
        else if (reader.currentOffset() != body.size())
            items.append({std::nullopt, QStringLiteral("unreadable message: bytes after its end")});
        else if (!integersFit(body))
            items.append(
                {std::nullopt, QStringLiteral("unreadable message: an integer below -2^63")});
        else
            items.append({value, QString()});
    }
    return items;
}

QByteArray FrameDecoder::encode(const QCborMap &message)
{
    const QByteArray body = message.toCborValue().toCbor();
    QByteArray frame(4, Qt::Uninitialized);
    qToBigEndian<quint32>(quint32(body.size()), frame.data());
    return frame + body;
}

StdioChannel::StdioChannel(int readFd, int writeFd, QObject *parent)
    : QObject(parent), m_readFd(readFd), m_writeFd(writeFd),
      m_notifier(new QSocketNotifier(readFd, QSocketNotifier::Read, this))
{
    connect(m_notifier, &QSocketNotifier::activated, this, &StdioChannel::readable);
}

void StdioChannel::readable()
{
    char chunk[65536];
    const ssize_t n = ::read(m_readFd, chunk, sizeof chunk);
    if (n < 0 && (errno == EINTR || errno == EAGAIN))
        return;
    if (n <= 0) {
        m_notifier->setEnabled(false);
        if (m_decoder.hasPartial())
            emit malformed(QStringLiteral("the stream ended inside a message"));
        emit closed();
        return;
    }
    for (const FrameDecoder::Item &item : m_decoder.feed(QByteArray(chunk, n))) {
        if (item.message)
            emit message(*item.message);
        else
            emit malformed(item.error);
    }
}

bool StdioChannel::send(const QCborMap &message)
{
    const QByteArray frame = FrameDecoder::encode(message);
    QMutexLocker lock(&m_writeLock);
    qsizetype done = 0;
    while (done < frame.size()) {
        const ssize_t n = ::write(m_writeFd, frame.constData() + done, size_t(frame.size() - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += n;
    }
    return true;
}
