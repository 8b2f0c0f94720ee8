#pragma once

#include <QByteArray>
#include <cerrno>

// Removal of an item and everything below it without ever following a
// symbolic link: a link is removed as itself, and folders are opened with
// O_NOFOLLOW relative to their parent, so a folder swapped for a link while
// the walk runs cannot lead it elsewhere.
class FileRemoval {
public:
    // Removes the item at an absolute path. Returns 0, or the errno of the
    // first failure (what could be removed is removed).
    static int removeItem(const QByteArray &path);
    // Removes the entry `name` of the open folder `parentFd` the same way.
    static int removeItemAt(int parentFd, const QByteArray &name);
    // Whether the folder holding the item lets this process remove it.
    static bool isDeletable(const QByteArray &path);

private:
    static int removeContents(int dirFd);
};
