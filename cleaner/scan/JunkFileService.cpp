#include "cleaner/scan/JunkFileService.h"

#include "cleaner/core/Dispatch.h"
#include "cleaner/scan/JunkFileModuleInfo.h"

namespace {

void postPercent(const ShowPercent &showPercent, float value)
{
    if (showPercent)
        Dispatch::mainAsync([showPercent, value] { showPercent(value); });
}

} // namespace

void JunkFileService::scanFolder(Category &c, const Progress &progress,
                                 const ShowPercent &showPercent, const WalkFilter &filter)
{
    if (c.state == -1)
        c.state = 0; // a partial selection left by an earlier scan starts unselected
    if (!c.url.url.isEmpty()) {
        // A single root lists its own entries; the filter plays no part here.
        c.url.checked = c.state;
        const FolderInfoPtr node = FolderInfo::folderInfo(c.url, true, progress);
        c.files = node ? node->children : QList<FolderInfoPtr>();
        c.size = node ? node->size : 0;
        postPercent(showPercent, 1.0f);
        return;
    }
    if (c.urls.isEmpty()) {
        postPercent(showPercent, 1.0f);
        return;
    }
    for (FolderUrl &u : c.urls)
        u.checked = c.state;
    auto [files, size] = JunkFileModuleInfo::getJunkFileFolderInfoList(c.urls, progress, showPercent, filter);
    c.files = std::move(files);
    c.size = size;
}
