#include "cleaner/scan/JunkFileModuleInfo.h"

std::pair<QList<FolderInfoPtr>, qint64> JunkFileModuleInfo::getJunkFileFolderInfoList(
    const QList<FolderUrl> &urls, const Progress &progress, const ShowPercent &showPercent,
    const WalkFilter &filter)
{
    QList<FolderInfoPtr> files;
    qint64 total = 0;
    if (urls.isEmpty())
        return {files, total};
    const float step = 1.0f / float(urls.size());
    for (const FolderUrl &url : urls) {
        const FolderInfoPtr node = filter ? filterFolderInfo(url, true, progress, filter)
                                          : folderInfo(url, true, progress);
        if (node) {
            node->checked = url.checked;
            // The root itself is never listed: a category's files are the
            // entries under its roots.
            for (const FolderInfoPtr &child : std::as_const(node->children)) {
                child->findex = int(files.size());
                files.append(child);
                postProgress(progress, ResourceValues::displayName(pathBytes(child->url)), child->size);
            }
        }
        postPercent(showPercent, step);
        if (node)
            total += node->size;
    }
    return {files, total};
}
