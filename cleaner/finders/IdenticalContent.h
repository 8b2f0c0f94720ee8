#pragma once

#include "cleaner/finders/OpenFolder.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QSet>
#include <QString>
#include <functional>
#include <memory>
#include <sys/types.h>

// A regular file the walk kept: its raw path, what it is on the disk, and
// its folder when the walk holds that open.
struct WalkedFile {
    QByteArray path;
    dev_t device = 0;
    ino_t inode = 0;
    std::shared_ptr<const OpenFolder> folder;
};

// Files by exact size; the sizes that more than one file has.
using SizeAndPath = QHash<qint64, QList<WalkedFile>>;
using MoreDoubleSize = QSet<qint64>;
// Sets of byte-identical files, one entry a set. The key names the set
// ("size/number"), except for the unreadable files, which are under the MD5
// of no data. Sets proven by their bytes need no digest: none is shown or
// kept, and equal bytes are the stronger proof.
using MD5AndPath = QMultiHash<QString, QList<QByteArray>>;

// Sorts the files of each size into sets of byte-identical files, reading as
// little as that allows:
// - paths to one (device, inode) are one file and read once;
// - files are opened by name from their folder when the walk held it open;
// - files are first told apart by a hash of their first and last blocks (of
//   the whole file when that is smaller), and a file that matches nothing is
//   never read further;
// - the rest are compared chunk by chunk side by side, from the page cache,
//   each leaving the comparison as soon as it matches no other;
// - sizes are shared out among the cores.
// A file that cannot be read below 30 MiB joins the set of the empty data's
// digest (one for all sizes); one of 30 MiB or more is left out.
class IdenticalContent {
public:
    using StopTest = std::function<bool()>;

    static MD5AndPath group(const SizeAndPath &sizeAndPath, const MoreDoubleSize &sizes,
                            const StopTest &stopped);
    // The MD5 of no bytes, which every unreadable small file is given.
    static QString emptyDigest();

    // From this size an unreadable file is dropped instead of digested as empty.
    static constexpr qint64 streamingSize = 31457280;
    static constexpr qint64 blockSize = 4096;
    // Above this size the last block joins the first in the first look.
    static constexpr qint64 tailFrom = 64 * 1024;
};
