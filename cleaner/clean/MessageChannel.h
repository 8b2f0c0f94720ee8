#pragma once

#include <QByteArray>
#include <QCborMap>
#include <QCborValue>
#include <QList>
#include <QMutex>
#include <QObject>
#include <QString>
#include <optional>

class QSocketNotifier;

// Messages travel as frames: a four-byte big-endian length, then one CBOR
// value of that length. The decoder takes bytes as they come and hands out
// whole messages, or a reason for each frame it could not read.
class FrameDecoder {
public:
    struct Item {
        std::optional<QCborValue> message;
        QString error; // set when message is empty
    };
    static constexpr quint32 maxFrame = 64u << 20;

    QList<Item> feed(const QByteArray &bytes);
    // Bytes of an unfinished frame (at the end of the stream: a cut message).
    bool hasPartial() const { return !m_buffer.isEmpty(); }
    static QByteArray encode(const QCborMap &message);

private:
    QByteArray m_buffer;
};

// One end of a channel on two file descriptors (a server's standard input
// and output). Reads on the thread that owns it; writes from any thread.
class StdioChannel : public QObject {
    Q_OBJECT
public:
    StdioChannel(int readFd, int writeFd, QObject *parent = nullptr);
    // Writes one whole frame; false when the other end is gone.
    bool send(const QCborMap &message);

signals:
    void message(const QCborValue &message);
    void malformed(const QString &reason);
    // The other end closed; a cut frame was reported as malformed before.
    void closed();

private:
    void readable();
    int m_readFd;
    int m_writeFd;
    QSocketNotifier *m_notifier;
    FrameDecoder m_decoder;
    QMutex m_writeLock;
};
