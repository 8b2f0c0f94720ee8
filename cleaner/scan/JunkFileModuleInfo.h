#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"

#include <utility>

// List builders of the junk categories.
class JunkFileModuleInfo : public FolderInfo {
public:
    // The entries under several roots, in root order, renumbered as one list.
    static std::pair<QList<FolderInfoPtr>, qint64> getJunkFileFolderInfoList(
        const QList<FolderUrl> &urls, const Progress &progress, const ShowPercent &showPercent,
        const WalkFilter &filter);
};
