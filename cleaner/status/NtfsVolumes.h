#pragma once

#include "cleaner/core/Volumes.h"

#include <QList>
#include <QString>

// An NTFS volume mounted now, as the NTFS switch offers it.
struct NtfsDisk {
    QString path; // where it is mounted
    QString name; // its display name, "Untitle" when it has none
    bool isWritable = false;
};

// The NTFS volumes of the mount table (the switch's getUSBInfo): those the
// kernel's drivers mount ("ntfs", "ntfs3"), and FUSE block mounts
// ("fuseblk", ntfs-3g) whose device udev knows as NTFS, or that udev does
// not describe at all; the helper reads every device itself before it acts.
class NtfsVolumes {
public:
    static QList<NtfsDisk> getUSBInfo();
    static bool isNtfs(const MountedVolume &volume);
};
