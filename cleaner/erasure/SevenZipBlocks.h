#pragma once

#include <QList>
#include <QString>

// Where the blocks of a 7z archive begin, read from its header. A block is
// compressed as one stream: a reader can start at the first entry of any
// block without decompressing the blocks before it, but not in the middle of
// one. Entries are counted in the archive's own order, those without data
// (folders, empty files) included, as libarchive lists them.
struct SevenZipBlocks {
    QList<int> firstEntry; // each block's first entry
    QList<qint64> size;    // each block's size unpacked
    int entries = 0;

    // The blocks, or none when the file is not a 7z, or its header is damaged,
    // encrypted or packed by a method other than LZMA, LZMA2 or none.
    static SevenZipBlocks of(const QString &archive);
};
