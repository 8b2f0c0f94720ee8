#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"

#include <optional>
#include <utility>

// List builders of the junk categories.
class JunkFileModuleInfo : public FolderInfo {
public:
    // The entries under several roots, in root order, renumbered as one list.
    static std::pair<QList<FolderInfoPtr>, qint64>
    getJunkFileFolderInfoList(const QList<FolderUrl> &urls, const Progress &progress,
                              const ShowPercent &showPercent, const WalkFilter &filter);

    // The last item at the top of photoPath whose name holds the library's mark.
    static std::optional<QUrl> getPhotoslibraryPath(const QString &photoPath);
    // Adds one walked item to a photo list when the filter accepts its values
    // (absent values, an item that could not be read, are never accepted).
    static void getPhotoInfoList(const std::optional<ResourceValues> &path,
                                 const Progress &progress, const ShowPercent &showPercent,
                                 const std::function<bool(const ResourceValues &)> &filter,
                                 int status, QList<FolderInfoPtr> &list, qint64 &total);
    static bool isRegularFile(const ResourceValues &values) { return values.isRegularFile; }
};
