#pragma once

#include <QString>
#include <QStringList>
#include <functional>

struct archive_entry;

// Unpacks a 7z or rar archive (rar 4 and 5, solid and multi-volume) into a
// folder through libarchive, entry by entry, and writes nothing outside that
// folder: every entry is created relative to the folder's descriptor, each
// step opened without following a link. Entries that could lead out of it
// (absolute paths, ".." steps, links whose target leaves it, hard links to
// what is not in it), devices, FIFOs and sockets, and names that are not
// valid UTF-8 are skipped and reported; the rest is unpacked.
class ArchiveExtractor {
public:
    enum class Result {
        Done,
        NeedsPassword, // encrypted entries: libarchive cannot decrypt them
        WrongPassword, // the password given does not open them
        Damaged,       // truncated or damaged archive
        Unsafe,        // some entries were refused (the rest is unpacked)
        NoSpace,       // the disk filled
        Failed,        // anything else (cannot open, cannot write)
    };
    struct Outcome {
        Result result = Result::Failed;
        QString detail;  // what went wrong, for a log or the command line
        int entries = 0; // entries written
    };
    // A fraction of the archive read, 0 to 1; false asks to stop.
    using Progress = std::function<bool(double fraction)>;

    // What the archive holds, read without unpacking.
    struct Listing {
        bool readable = false;  // the entry list could be read whole
        bool encrypted = false; // entries or the list itself are encrypted
        QString refusal;        // the first entry that would be refused, and why
        QString error;
    };
    static Listing inspect(const QString &archive);
    // Whether unpacking needs a password. In a solid rar, reading past an
    // entry means unpacking it, so there the first entry speaks for the
    // archive (an encrypted entry further on stops the extraction itself);
    // elsewhere the whole list is read.
    static bool needsPassword(const QString &archive);
    // Whether the archive is a solid rar (4 or 5), from its main header.
    static bool isSolidRar(const QString &archive);

    // A rar that is not solid, or a 7z of two blocks or more, in one volume,
    // with plain files and folders only, is unpacked by up to `workers`
    // readers at once (0: one per core, at most two); anything else by one
    // reader, entry after entry, with the writing on a second thread when
    // `workers` allows one.
    static Outcome extract(const QString &archive, const QString &target, const Progress &progress,
                           int workers = 0);

    // The volumes to read for an archive: for "x.part2.rar" or "x.part1.rar",
    // every "x.partN.rar" there is from the first; for "x.rar", its ".r00",
    // ".r01" ... volumes; else the archive alone.
    static QStringList volumesOf(const QString &archive);
    // Why an entry name is refused, or "" when it is safe inside the target.
    static QString pathRefusal(const QByteArray &name);
    // Why a link entry is refused: its target, read from the link's folder,
    // leaves the extraction folder.
    static QString linkRefusal(const QByteArray &name, const QByteArray &target);
    // Why an entry is refused (its name, a link's or hard link's target, its kind).
    static QString entryRefusal(archive_entry *entry);
};
