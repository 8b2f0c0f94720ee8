#pragma once

#include <QByteArray>
#include <QList>

// The kernel's mount table as the helper reads it: every mount with the
// fields the helper acts on, octal escapes decoded, in the table's order
// (a later mount on the same point covers an earlier one).
struct MountEntry {
    QByteArray mountPoint;
    QByteArray fileSystemType; // "ext4", "ntfs3", "fuseblk", ...
    QByteArray source;         // "/dev/sdb1"
    QByteArray superOptions;   // the file system's own options
    bool readOnly = false;     // the mount's own flag
};

class MountTable {
public:
    static QList<MountEntry> parse(const QByteArray &mountinfo);
    // /proc/self/mountinfo now; empty when it cannot be read.
    static QList<MountEntry> current();
    // The topmost mount on exactly this point, if any.
    static std::optional<MountEntry> at(const QList<MountEntry> &table, const QByteArray &point);
};
