#pragma once

#include <QList>
#include <QString>
#include <optional>

// A mounted volume and what the system says about it.
struct MountedVolume {
    QString path;           // mount point, under the root prefix
    QString fileSystemType; // "vfat", "exfat", "hfsplus", ...
    bool isRemovable = false;
    bool isWritable = false;
    bool isUnmountable = false;
    QString device{};       // what is mounted: "/dev/sda1", "server:/export", "proc"
    QString deviceNumber{}; // "major:minor" of the file system
    QString mountRoot{};    // the folder of the file system mounted there ("/" unless a bind)

    QString name() const;
    bool operator==(const MountedVolume &) const = default;
};

// The mounted volumes, read from the kernel's mount table
// (<root>/proc/self/mountinfo) and the block devices' removable flags
// (<root>/sys/block/*/removable). A volume the table cannot describe is left
// out; none gives an empty list.
class Volumes {
public:
    static QList<MountedVolume> mountedVolumes();
    // Parses a mount table; the sysfs facts come from under the root prefix.
    static QList<MountedVolume> parseMountInfo(const QByteArray &text);
    // A test cannot plug in a stick: it describes the volumes instead
    // (nullopt goes back to the system's list).
    static void setMountedVolumesForTesting(std::optional<QList<MountedVolume>> volumes);
};
