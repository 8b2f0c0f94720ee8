#include "cleaner/status/VolumeInfo.h"

#include "cleaner/core/Platform.h"

#include <QDir>
#include <QSet>
#include <QTextStream>
#include <algorithm>
#include <sys/statvfs.h>

QList<VolumeInfo> VolumeInfo::volumes;

namespace {

// File systems that live in memory or in the kernel, and read-only package
// images (snaps, live media), which hold nothing of the user's.
const QSet<QString> &pseudoTypes()
{
    static const QSet<QString> types = {
        "proc",        "sysfs",           "tmpfs",      "devtmpfs",      "devpts",   "cgroup",
        "cgroup2",     "securityfs",      "debugfs",    "tracefs",       "configfs", "fusectl",
        "mqueue",      "hugetlbfs",       "pstore",     "bpf",           "autofs",   "binfmt_misc",
        "efivarfs",    "rpc_pipefs",      "nsfs",       "ramfs",         "squashfs", "selinuxfs",
        "fuse.portal", "fuse.gvfsd-fuse", "fuse.lxcfs", "fuse.snapfuse", "overlay",  "iso9660"};
    return types;
}

const QSet<QString> &networkTypes()
{
    static const QSet<QString> types = {"nfs",   "nfs4",       "cifs", "smb3",
                                        "smbfs", "fuse.sshfs", "9p",   "afs"};
    return types;
}

bool isSnapshot(const MountedVolume &v)
{
    // ZFS names a snapshot "pool/fs@name"; btrfs tools keep theirs in
    // .snapshots folders.
    return (v.fileSystemType == QLatin1String("zfs") && v.device.contains(QLatin1Char('@'))) ||
           v.path.contains(QLatin1String("/.snapshots")) ||
           v.mountRoot.contains(QLatin1String("/.snapshots"));
}

// Where the system's disk is mounted, as Volumes writes the path.
QString rootPath()
{
    const QString root = QDir::cleanPath(Platform::root());
    return root.isEmpty() || root == QLatin1String(".") ? QStringLiteral("/") : root;
}

QString iconName(const MountedVolume &v, bool isLocal)
{
    if (!isLocal)
        return QStringLiteral("folder-remote");
    return v.isRemovable ? QStringLiteral("drive-removable-media")
                         : QStringLiteral("drive-harddisk");
}

} // namespace

bool VolumeInfo::isUserVolume(const MountedVolume &v)
{
    if (v.path == rootPath())
        return true; // the system's disk, whatever holds it (a container's overlay too)
    if (isSnapshot(v) || pseudoTypes().contains(v.fileSystemType))
        return false;
    return v.device.startsWith(QLatin1String("/dev/")) ||
           networkTypes().contains(v.fileSystemType) || v.fileSystemType == QLatin1String("zfs");
}

std::optional<VolumeInfo> VolumeInfo::fromVolume(const MountedVolume &volume)
{
    struct statvfs fs {};
    if (statvfs(QFile::encodeName(volume.path).constData(), &fs) != 0)
        return std::nullopt;
    VolumeInfo info;
    info.path = volume.path;
    const bool isRoot = volume.path == rootPath();
    // The system's disk has no name of its own on Linux; the file manager
    // calls it by the machine's.
    info.name = isRoot ? QSysInfo::machineHostName() : volume.name();
    info.volumeType = volume.fileSystemType;
    info.capacity = qint64(fs.f_blocks) * qint64(fs.f_frsize);
    // What the user can still write: the blocks kept for root are not his.
    info.available = qint64(fs.f_bavail) * qint64(fs.f_frsize);
    info.removable = volume.isRemovable;
    info.isLocal = !networkTypes().contains(volume.fileSystemType);
    info.image = iconName(volume, info.isLocal);
    return info;
}

QList<VolumeInfo> VolumeInfo::mountedVolumes()
{
    QList<VolumeInfo> found;
    QSet<QString> seenDevices;
    QList<MountedVolume> mounts = Volumes::mountedVolumes();
    // The system's disk first: the panel shows the first volume.
    std::stable_partition(mounts.begin(), mounts.end(),
                          [](const MountedVolume &m) { return m.path == rootPath(); });
    for (const MountedVolume &mount : mounts) {
        if (!isUserVolume(mount))
            continue;
        if (!mount.deviceNumber.isEmpty() && seenDevices.contains(mount.deviceNumber))
            continue;
        const std::optional<VolumeInfo> info = fromVolume(mount);
        if (!info) {
            QTextStream(stdout) << "Error in mount volumes" << Qt::endl;
            continue;
        }
        seenDevices.insert(mount.deviceNumber);
        found.append(*info);
    }
    volumes = found;
    return found;
}
