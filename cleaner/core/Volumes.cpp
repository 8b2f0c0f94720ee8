#include "cleaner/core/Volumes.h"

#include "cleaner/core/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>

namespace {

QMutex g_mutex;
std::optional<QList<MountedVolume>> g_testVolumes;

// Mount points escape blanks, tabs, newlines and backslashes as octal ("\040").
QString unescaped(const QByteArray &field)
{
    QByteArray out;
    for (qsizetype i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size()) {
            bool ok = false;
            const int code = field.mid(i + 1, 3).toInt(&ok, 8);
            if (ok && code < 256) {
                out.append(char(code));
                i += 3;
                continue;
            }
        }
        out.append(field[i]);
    }
    return QFile::decodeName(out);
}

QString readFirstLine(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QString();
    return QString::fromLatin1(f.readLine()).trimmed();
}

// The disk of a device node ("sdb1" -> "sdb"), found among /sys/block.
QString diskOf(const QString &device)
{
    const QString block = Platform::systemPath(QStringLiteral("/sys/block"));
    if (QFileInfo::exists(block + QLatin1Char('/') + device))
        return device;
    for (const QString &disk : QDir(block).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (QFileInfo::exists(block + QLatin1Char('/') + disk + QLatin1Char('/') + device))
            return disk;
    }
    return QString();
}

// A disk is removable when the kernel says so, or when it hangs on a USB bus
// (USB hard disks and SSDs report 0 but are unplugged like sticks).
bool isRemovableDevice(const QString &source)
{
    if (!source.startsWith(QLatin1String("/dev/")))
        return false;
    QString device = QFileInfo(Platform::systemPath(source)).canonicalFilePath();
    device = QFileInfo(device.isEmpty() ? source : device).fileName();
    const QString disk = diskOf(device);
    if (disk.isEmpty())
        return false;
    const QString sys = Platform::systemPath(QStringLiteral("/sys/block/")) + disk;
    if (readFirstLine(sys + QStringLiteral("/removable")) == QLatin1String("1"))
        return true;
    return QFileInfo(sys).canonicalFilePath().contains(QLatin1String("/usb"));
}

// The mounts the system needs to run cannot be unmounted by the user.
bool isSystemMountPoint(const QString &mountPoint)
{
    static const QStringList system = {
        QStringLiteral("/"),    QStringLiteral("/boot"), QStringLiteral("/boot/efi"),
        QStringLiteral("/usr"), QStringLiteral("/var"),  QStringLiteral("/home"),
        QStringLiteral("/opt"), QStringLiteral("/srv"),  QStringLiteral("/tmp")};
    return system.contains(mountPoint);
}

} // namespace

QString MountedVolume::name() const
{
    return QFileInfo(path).fileName();
}

QList<MountedVolume> Volumes::parseMountInfo(const QByteArray &text)
{
    QList<MountedVolume> volumes;
    for (const QByteArray &line : text.split('\n')) {
        // id parent major:minor root mountpoint options [optional...] - type source super
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype dash = fields.indexOf(QByteArrayLiteral("-"));
        if (fields.size() < 6 || dash < 6 || dash + 2 >= fields.size())
            continue;
        const QString mountPoint = unescaped(fields[4]);
        if (!mountPoint.startsWith(QLatin1Char('/')))
            continue;
        MountedVolume v;
        v.path = QDir::cleanPath(
            Platform::systemPath(mountPoint == QLatin1String("/") ? QString() : mountPoint));
        if (v.path.isEmpty())
            v.path = QStringLiteral("/");
        v.fileSystemType = QString::fromLatin1(fields[dash + 1]);
        const QString source = unescaped(fields[dash + 2]);
        v.device = source;
        v.deviceNumber = QString::fromLatin1(fields[2]);
        v.mountRoot = unescaped(fields[3]);
        v.isWritable = fields[5].split(',').contains("rw");
        v.isRemovable = isRemovableDevice(source);
        v.isUnmountable =
            source.startsWith(QLatin1String("/dev/")) && !isSystemMountPoint(mountPoint);
        volumes.append(v);
    }
    return volumes;
}

QList<MountedVolume> Volumes::mountedVolumes()
{
    {
        QMutexLocker lock(&g_mutex);
        if (g_testVolumes)
            return *g_testVolumes;
    }
    QFile f(Platform::systemPath(QStringLiteral("/proc/self/mountinfo")));
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return parseMountInfo(f.readAll());
}

void Volumes::setMountedVolumesForTesting(std::optional<QList<MountedVolume>> volumes)
{
    QMutexLocker lock(&g_mutex);
    g_testVolumes = std::move(volumes);
}
