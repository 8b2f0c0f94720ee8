#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"

// The duplicate finder's nodes: the placeholder of a kind with no group.
class DuplicateFolderInfo : public FolderInfo {
public:
    static Category emptyCategory();
};
