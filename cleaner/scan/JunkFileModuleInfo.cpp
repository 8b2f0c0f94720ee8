#include "cleaner/scan/JunkFileModuleInfo.h"

#include "cleaner/core/Platform.h"

#include <QFile>

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
            // entries under its roots. The walk has already reported each.
            for (const FolderInfoPtr &child : std::as_const(node->children)) {
                child->findex = int(files.size());
                files.append(child);
            }
        }
        postPercent(showPercent, step);
        if (node)
            total += node->size;
    }
    return {files, total};
}

std::optional<QUrl> JunkFileModuleInfo::getPhotoslibraryPath(const QString &photoPath)
{
    const QString pattern = Platform::photoLibraryPattern();
    if (pattern.isEmpty())
        return std::nullopt;
    std::optional<QUrl> library;
    auto e = DirectoryEnumerator::create(QFile::encodeName(photoPath),
                                         DirectoryEnumerator::SkipsSubdirectoryDescendants);
    while (e && e->next()) {
        if (ResourceValues::displayName(ResourceValues::lastComponent(e->path())).contains(pattern))
            library = urlFromPath(e->path());
    }
    return library;
}

void JunkFileModuleInfo::getPhotoInfoList(const std::optional<ResourceValues> &path,
                                          const Progress &progress, const ShowPercent &,
                                          const std::function<bool(const ResourceValues &)> &filter,
                                          int status, QList<FolderInfoPtr> &list, qint64 &total)
{
    if (!path || (filter && !filter(*path)))
        return;
    FolderInfoPtr node = nodeFromValues(*path, 0, status);
    node->icon = QStringLiteral("PhotoCache");
    node->isFolder = false;
    node->isPackage = false;
    node->hidden = false;
    total += node->size;
    postProgress(progress, node->absoluteString(), node->size);
    list.append(std::move(node));
}
