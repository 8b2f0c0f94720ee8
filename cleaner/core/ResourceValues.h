#pragma once

#include "cleaner/core/ItemIdentity.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <optional>
#include <sys/stat.h>

// What the walks ask of every item, read with one fstatat. The path is kept as
// the raw bytes the file system gave, so a name that is not valid UTF-8 can
// still be found and removed; the display name is decoded from it.
struct ResourceValues {
    QByteArray path;                // absolute path, raw bytes
    QString localizedName;          // display name
    std::optional<qint64> fileSize; // absent for a directory
    bool isRegularFile = false;
    bool isDirectory = false;
    bool isSymbolicLink = false;
    bool isPackage = false;
    bool isHidden = false;
    QDateTime contentModificationDate; // invalid when unknown
    uid_t owner = 0;
    dev_t device = 0;
    ino_t inode = 0;
    qint64 allocatedSize = 0;
    ItemIdentity identity; // kind, device and inode, for the removal's check

    // Fills the values from a stat record (lstat semantics: a link is itself).
    static ResourceValues fromStat(const QByteArray &path, const struct stat &st);
    // Reads one item; nullopt when it cannot be read.
    static std::optional<ResourceValues> read(const QByteArray &path);

    // A directory whose extension marks it as a bundle.
    static bool isPackageName(const QByteArray &name);
    static QString displayName(const QByteArray &name);
    static QByteArray lastComponent(const QByteArray &path);

    // The MIME type's name, looked up from the name only (never by reading the file).
    QString typeIdentifier() const;
};
