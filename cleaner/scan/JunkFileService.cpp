#include "cleaner/scan/JunkFileService.h"

#include "cleaner/core/Dispatch.h"
#include "cleaner/core/FileRemoval.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/Volumes.h"
#include "cleaner/scan/JunkFileModuleInfo.h"

#include <QFile>
#include <QFileInfo>

const QString JunkFileService::newOSXPhotoAddComponentPath1 =
    QStringLiteral("resources/media/face");
const QString JunkFileService::newOSXPhotoAddComponentPath2 =
    QStringLiteral("resources/media/master");
const QString JunkFileService::oldOSXPhotoAddComponentPath1 =
    QStringLiteral("resources/media/moduleresources");

namespace {

void postPercent(const ShowPercent &showPercent, float value)
{
    if (showPercent)
        Dispatch::mainAsync([showPercent, value] { showPercent(value); });
}

// The path a filter judges: the item's URL string made a path again, as raw
// bytes so a name that is not UTF-8 is judged like any other.
QByteArray filterPath(const QUrl &url)
{
    return Services::handleBytes(FolderInfo::absoluteString(url));
}

} // namespace

QString JunkFileService::photoPath()
{
    return Platform::photoPath();
}

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
    auto [files, size] =
        JunkFileModuleInfo::getJunkFileFolderInfoList(c.urls, progress, showPercent, filter);
    c.files = std::move(files);
    c.size = size;
}

WalkFilter JunkFileService::systemCacheFilter()
{
    return [](const QUrl &url, DirectoryEnumerator &enumerator) {
        const QByteArray path = filterPath(url);
        if (!FileRemoval::isDeletable(path))
            return false; // refused, so the walk looks inside for what can go
        // The per-user temporary roots themselves are the system's; what lies
        // below them is not.
        if (path.contains("/var/folders"))
            return enumerator.level() >= 4;
        return true;
    };
}

WalkFilter JunkFileService::applicationCacheFilter()
{
    return [](const QUrl &url, DirectoryEnumerator &enumerator) {
        if (enumerator.level() >= 2)
            return true;
        const QString path = QFile::decodeName(filterPath(url));
        for (const QString &name : Platform::cacheFoldersListedElsewhere()) {
            if (path.contains(QLatin1Char('/') + name, Qt::CaseInsensitive)) {
                enumerator.skipDescendants();
                return false;
            }
        }
        return true;
    };
}

WalkFilter JunkFileService::trashFilter()
{
    return [](const QUrl &, DirectoryEnumerator &enumerator) { return enumerator.level() == 2; };
}

QList<std::pair<QUrl, QString>> JunkFileService::getUSBInfo()
{
    QList<std::pair<QUrl, QString>> result;
    for (const MountedVolume &volume : Volumes::mountedVolumes()) {
        if (!volume.isUnmountable || !volume.isRemovable ||
            volume.fileSystemType.contains(QLatin1String("hfs")))
            continue;
        const QString trash = volume.path + QLatin1Char('/') + Platform::volumeTrashName();
        result.append({FolderInfo::urlFromPath(trash), volume.name()});
    }
    return result;
}

QStringList JunkFileService::photoCacheFolders()
{
    QStringList folders;
    if (Platform::photoLibraryPattern().isEmpty()) {
        // No library: the photo tools' own thumbnail folders, those that exist.
        for (const QString &name : Platform::photoCacheFolders()) {
            const QString folder = photoPath() + QLatin1Char('/') + name;
            if (QFileInfo(folder).isDir())
                folders << folder;
        }
        return folders;
    }
    const std::optional<QUrl> library = JunkFileModuleInfo::getPhotoslibraryPath(photoPath());
    if (!library)
        return folders;
    const QString root = QFile::decodeName(FolderInfo::pathBytes(*library)) + QLatin1Char('/');
    // The library's resources moved with 10.12.
    if (Platform::systemVersionAtLeast(10, 12))
        folders << root + newOSXPhotoAddComponentPath1 << root + newOSXPhotoAddComponentPath2;
    else
        folders << root + oldOSXPhotoAddComponentPath1;
    return folders;
}

void JunkFileService::scanPhoto(Category &c, const Progress &progress,
                                const ShowPercent &showPercent)
{
    if (c.state == -1)
        c.state = 0;
    const QStringList folders = photoCacheFolders();
    if (folders.isEmpty())
        return; // no library: nothing found, nothing posted
    QList<FolderInfoPtr> files;
    qint64 total = 0;
    for (const QString &folder : folders) {
        auto e = DirectoryEnumerator::create(QFile::encodeName(folder));
        while (e && e->next()) {
            std::optional<ResourceValues> values;
            if (e->currentReadable())
                values = e->values();
            JunkFileModuleInfo::getPhotoInfoList(values, progress, showPercent,
                                                 &JunkFileModuleInfo::isRegularFile, c.state, files,
                                                 total);
        }
    }
    for (int i = 0; i < files.size(); ++i)
        files[i]->findex = i;
    c.files = std::move(files);
    c.size = total;
    postPercent(showPercent, 1.0f);
}
