#pragma once

#include "cleaner/core/ItemIdentity.h"

#include <QByteArray>
#include <QString>
#include <cerrno>
#include <optional>

// The one removal of the program, in process and in the privileged helper
// alike. It reaches an item by opening every folder on the way from "/" with
// O_NOFOLLOW | O_DIRECTORY, checks the item against what the scan saw, and
// removes it with unlinkat relative to the folder it opened: no path string is
// resolved again by the kernel after the check, so a folder swapped for a link
// after the scan cannot lead the removal elsewhere. Below a folder it walks
// the same way, removes links as themselves, and stays on the folder's device.
class FileRemoval {
public:
    enum class Outcome {
        Removed,
        Vanished,     // nothing at the path any more
        Changed,      // the item is not the one the scan saw
        BlockedStep,  // a step of the path is a link or no folder
        NotPermitted, // this process may not (the helper may)
        Failed,       // anything else, with its errno
        Invalid,      // not an absolute path, or a "." or ".." step
    };

    struct Result {
        Outcome outcome = Outcome::Failed;
        int error = 0; // the errno of the first failure

        bool removed() const { return outcome == Outcome::Removed; }
        // Whether more rights could do what this process could not.
        bool needsPrivilege() const { return outcome == Outcome::NotPermitted; }
        // Why not, in a line for a log.
        QString reason() const;
    };

    // Removes the item at an absolute path, everything below it when it is a
    // folder, provided it is still `expected` (kind, device, inode).
    static Result removeListed(const QByteArray &path, const ItemIdentity &expected);
    // Removes whatever is at the path now, the same way (tests, and a plain
    // removal of an item nobody scanned).
    static Result removeItem(const QByteArray &path);
    // Whether the folder holding the item lets this process remove it.
    static bool isDeletable(const QByteArray &path);

    // "/a//b/" -> "/a/b"; nothing for a relative path, a NUL, or a "." or
    // ".." step, which could lead a check of the string astray.
    static std::optional<QByteArray> normalized(const QByteArray &path);

private:
    // clean: a path as normalized() gives it, never "/".
    static Result remove(const QByteArray &clean, const std::optional<ItemIdentity> &expected);
};
