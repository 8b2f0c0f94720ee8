#pragma once

#include "cleaner/erasure/ArchiveExtractor.h"

#include <QString>
#include <QStringList>

// The command-line programs that unpack what libarchive cannot decrypt:
// 7-Zip for 7z, unar for rar. The password never stands on a command line,
// where every user of the machine could read it: 7-Zip reads it from its
// standard input, and unar, which asks only a terminal, from a pseudo
// terminal of its own. The program unpacks into a private folder inside the
// target; what it wrote is checked there (links that leave the target,
// devices, FIFOs and sockets are removed and reported) before it is moved
// into the target.
class ArchiveBackEnd {
public:
    // The program and its arguments for an archive (nothing for other kinds).
    static QStringList command(const QString &archive, const QString &into);

    static ArchiveExtractor::Outcome extract(const QString &archive, const QString &target,
                                             const QString &password,
                                             const ArchiveExtractor::Progress &progress);

    // Removes from a tree what may not stay in an extraction folder; the
    // first thing removed and why, or "" when nothing was.
    static QString sanitize(const QString &folder);
};
