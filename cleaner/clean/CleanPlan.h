#pragma once

#include "cleaner/core/FolderInfo.h"

#include <QList>

// Where a module's clean stands.
enum class cleanStatus : int { cleanning = 1, noclean = 0, cleandone = 2 };

// One planned item: a node, its status, and (for a partly selected folder)
// the children that go instead of it.
struct cleanFolder {
    int finder = 0;
    int status = 0;
    FolderInfoPtr folder;
    QList<cleanFolder> children;
};

// The plan of one category; `ci` is the category's finder.
struct cleanCategory {
    QList<cleanFolder> folders;
    int ci = 0;
};
