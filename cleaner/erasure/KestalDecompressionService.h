#pragma once

#include "cleaner/erasure/ArchiveExtractor.h"

#include <QString>
#include <functional>

// Unpacks the 7z and rar archives the program is asked to open, each into a
// fresh folder beside it. libarchive reads them; entries it cannot decrypt
// go to the command-line back end with the password.
class KestalDecompressionService {
public:
    // The entry being unpacked, unknown here, and the fraction done: -1.0 for
    // a failure, 1.0 at the end.
    using ProgressCallback = std::function<void(const QString &info, double progress)>;

    // Whether an archive path is one of the kinds opened here: the extension
    // contains "7z" or "rar" ("rar5" counts as rar).
    static bool isSevenZip(const QString &path);
    static bool isRar(const QString &path);
    // Whether an archive needs a password: it holds encrypted entries or an
    // encrypted list.
    static bool isPasswordProtected(const QString &path);

    // The folder an archive unpacks into: its folder, "/", and its name with
    // every ".rar" (or, for 7z, ".7z") taken out; when that is taken, the
    // same with a blank and 1, 2, ... until a name is free.
    static QString targetFolder(const QString &archivePath);

    // Unpacks into extraPath, made here if it is not there. `progress` hears
    // the steps, then 1.0 or -1.0. The outcome says what happened.
    static ArchiveExtractor::Outcome uncompressionRAR(const QString &password,
                                                      const QString &rarPath,
                                                      const QString &extraPath,
                                                      const ProgressCallback &progress);
    // The same for any archive of the kinds above.
    static ArchiveExtractor::Outcome extract(const QString &archive, const QString &extraPath,
                                             const QString &password,
                                             const std::function<bool(double)> &progress);

    // A line for the outcome, for a log or the command line.
    static QString describe(const ArchiveExtractor::Outcome &outcome);
};
