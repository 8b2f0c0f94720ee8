#pragma once

#include "cleaner/core/FolderInfo.h"

#include <QList>

// Where a module's clean stands.
enum class cleanStatus : int { cleanning = 1, noclean = 0, cleandone = 2 };

// One planned item: a node, its status, and (for a partly selected folder or
// a container) the children that go instead of it. The values after
// `children` are taken from the node on the main thread when the plan is
// made; the clean thread works from them alone and never reads the shared
// node, which stays for the main thread to take out of the tree afterwards.
struct cleanFolder {
    int finder = 0;
    int status = 0;
    FolderInfoPtr folder;
    QList<cleanFolder> children;

    QString key;           // the node's absoluteString, the path map's key
    QByteArray path;       // the raw path bytes
    ItemIdentity identity; // what the scan saw there
    qint64 size = 0;

    static cleanFolder of(const FolderInfoPtr &node);
};

// The plan of one category; `ci` is the category's finder.
struct cleanCategory {
    QList<cleanFolder> folders;
    int ci = 0;
};

inline cleanFolder cleanFolder::of(const FolderInfoPtr &node)
{
    cleanFolder entry;
    entry.finder = node->findex;
    entry.folder = node;
    entry.key = node->absoluteString();
    entry.path = FolderInfo::pathBytes(node->url);
    entry.identity = node->identity;
    entry.size = node->size;
    return entry;
}
