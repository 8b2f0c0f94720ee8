#include "cleaner/status/NtfsVolumes.h"

#include "cleaner/status/SystemFiles.h"

QList<NtfsDisk> NtfsVolumes::getUSBInfo()
{
    QList<NtfsDisk> disks;
    for (const MountedVolume &v : Volumes::mountedVolumes()) {
        if (!isNtfs(v))
            continue;
        const QString name = v.name();
        disks.append({v.path, name.isEmpty() ? QStringLiteral("Untitle") : name, v.isWritable});
    }
    return disks;
}

bool NtfsVolumes::isNtfs(const MountedVolume &volume)
{
    if (volume.fileSystemType == QLatin1String("ntfs") ||
        volume.fileSystemType == QLatin1String("ntfs3"))
        return true;
    if (volume.fileSystemType != QLatin1String("fuseblk"))
        return false;
    // udev's record of the block device ("E:ID_FS_TYPE=ntfs").
    const QByteArray record =
        SystemFiles::read(QStringLiteral("/run/udev/data/b") + volume.deviceNumber);
    return record.isEmpty() || record.contains("\nE:ID_FS_TYPE=ntfs\n") ||
           record.startsWith("E:ID_FS_TYPE=ntfs\n");
}
