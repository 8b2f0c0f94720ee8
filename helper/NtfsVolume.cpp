#include "helper/NtfsVolume.h"

#include <QtEndian>
#include <fcntl.h>
#include <unistd.h>

namespace {

class Device {
public:
    explicit Device(const QByteArray &path)
        : m_fd(::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW))
    {}
    ~Device()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    // Exactly size bytes at offset, or nothing.
    QByteArray read(qint64 offset, qint64 size) const
    {
        QByteArray bytes(size, Qt::Uninitialized);
        if (m_fd < 0 || offset < 0 || ::pread(m_fd, bytes.data(), size, offset) != size)
            return {};
        return bytes;
    }

private:
    int m_fd;
};

template <typename T> T at(const QByteArray &bytes, qsizetype offset)
{
    return qFromLittleEndian<T>(bytes.constData() + offset);
}

constexpr int kBlock = 512; // the stride of a record's update sequence

// Puts back the last two bytes of each 512-byte block, which the update
// sequence array keeps; false when a block was not written whole.
bool applyFixups(QByteArray &record)
{
    const quint16 offset = at<quint16>(record, 4);
    const quint16 count = at<quint16>(record, 6);
    if (count < 1 || offset + 2 * qsizetype(count) > record.size() ||
        (count - 1) * kBlock > record.size())
        return false;
    const quint16 usn = at<quint16>(record, offset);
    for (int i = 1; i < count; ++i) {
        const qsizetype end = qsizetype(i) * kBlock - 2;
        if (at<quint16>(record, end) != usn)
            return false;
        record[end] = record[offset + 2 * i];
        record[end + 1] = record[offset + 2 * i + 1];
    }
    return true;
}

} // namespace

NtfsVolume::State NtfsVolume::inspect(const QByteArray &device)
{
    const Device disk(device);
    const QByteArray boot = disk.read(0, 512);
    if (boot.isEmpty())
        return State::Unreadable;
    if (boot.mid(3, 8) != "NTFS    ")
        return State::NotNtfs;
    const qint64 sectorSize = at<quint16>(boot, 0x0B);
    const quint8 sectors = at<quint8>(boot, 0x0D);
    // Above 128, the count is a power of two written as its negative exponent.
    const qint64 clusterSize = sectorSize * (sectors <= 0x80 ? sectors : 1 << (256 - sectors));
    const qint8 perRecord = at<qint8>(boot, 0x40);
    const qint64 recordSize = perRecord < 0 ? qint64(1) << -perRecord : perRecord * clusterSize;
    const qint64 mft = at<qint64>(boot, 0x30);
    if (sectorSize < 256 || sectorSize > 4096 || clusterSize <= 0 || recordSize < kBlock ||
        recordSize > 65536 || mft <= 0 || mft > (qint64(1) << 48) / clusterSize)
        return State::Unreadable;

    // $Volume is the fourth record of the MFT, which starts whole.
    QByteArray record = disk.read(mft * clusterSize + 3 * recordSize, recordSize);
    if (record.size() < 0x30 || !record.startsWith("FILE") || !applyFixups(record))
        return State::Unreadable;
    qsizetype attribute = at<quint16>(record, 0x14);
    while (attribute + 0x18 <= record.size()) {
        const quint32 type = at<quint32>(record, attribute);
        const quint32 length = at<quint32>(record, attribute + 4);
        if (type == 0xFFFFFFFF || length < 0x18 || attribute + length > record.size())
            break;
        // $VOLUME_INFORMATION, resident: its flags are at 0x0A of the value.
        if (type == 0x70 && at<quint8>(record, attribute + 8) == 0) {
            const qsizetype value = attribute + at<quint16>(record, attribute + 0x14);
            if (at<quint32>(record, attribute + 0x10) < 12 || value + 12 > attribute + length)
                return State::Unreadable;
            return at<quint16>(record, value + 0x0A) & 0x0001 ? State::Dirty : State::Clean;
        }
        attribute += length;
    }
    return State::Unreadable;
}

bool NtfsVolume::hibernated(const QByteArray &mountPoint)
{
    const int folder = ::open(mountPoint.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return false;
    const int file = ::openat(folder, "hiberfil.sys", O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    ::close(folder);
    if (file < 0)
        return false;
    char head[4] = {};
    const bool read = ::read(file, head, 4) == 4;
    ::close(file);
    return read && QByteArray(head, 4).toLower() == "hibr";
}
