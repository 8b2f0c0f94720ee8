#pragma once

#include <QtGlobal>
#include <sys/stat.h>

// What a scan saw of an item on the disk: its kind and where it lives (device
// and inode). A removal compares the item it reaches with this record and
// leaves it alone when they differ, so an item swapped after the scan (a
// folder that became a link, a file that became a folder, another file moved
// in under the same name) is never what goes.
struct ItemIdentity {
    enum class Kind : int { Unknown = 0, File = 1, Folder = 2, Link = 3, Other = 4 };

    Kind kind = Kind::Unknown;
    quint64 device = 0;
    quint64 inode = 0;

    static ItemIdentity fromStat(const struct stat &st);
    static Kind kindOf(mode_t mode);
    // A record a removal can check against (nodes that are no file have none).
    bool isKnown() const { return kind != Kind::Unknown && inode != 0; }
    bool matches(const struct stat &st) const;

    friend bool operator==(const ItemIdentity &, const ItemIdentity &) = default;
};
