#include "cleaner/scan/ScanDispatch.h"

#include "cleaner/core/Platform.h"
#include "cleaner/scan/ApplicationJunkFolderInfo.h"
#include "cleaner/scan/ApplicationJunkService.h"
#include "cleaner/scan/JunkFileService.h"

namespace {

void takeList(Category &c, ApplicationJunkFolderInfo::InfoList list)
{
    c.files = std::move(list.first);
    c.size = list.second;
}

} // namespace

void ScanDispatch::scan(Category &c, const Progress &progress, const ShowPercent &showPercent)
{
    const QString &type = c.type;
    if (type == QLatin1String("System_Cache")) {
        // Before 10.12 the system's caches were listed whole.
        JunkFileService::scanFolder(c, progress, showPercent,
                                    Platform::systemVersionAtLeast(10, 12)
                                        ? JunkFileService::systemCacheFilter()
                                        : WalkFilter());
    } else if (type == QLatin1String("Localization")) {
        if (c.state == -1)
            c.state = 0;
        takeList(c, ApplicationJunkFolderInfo::getLanguagesInfoList(
                        ApplicationJunkService::APPLICATIONS_PATH(), progress, showPercent));
        // What the scan finds starts with the category's own check state.
        for (const FolderInfoPtr &app : std::as_const(c.files)) {
            app->checked = c.state;
            for (const FolderInfoPtr &language : std::as_const(app->children))
                language->checked = c.state;
        }
    } else if (type == QLatin1String("Photo")) {
        c.files.clear();
        c.size = 0;
        JunkFileService::scanPhoto(c, progress, showPercent);
    } else if (type == QLatin1String("TrashBin")) {
        c.urls.clear();
        for (const auto &[url, name] : JunkFileService::getUSBInfo())
            c.urls.append(FolderUrl{FolderInfo::absoluteString(url), QStringLiteral("Folder"), 0});
        if (c.urls.isEmpty() && c.url.url.isEmpty()) {
            // No volume now: what an unplugged one held is gone from the list.
            c.files.clear();
            c.size = 0;
        }
        JunkFileService::scanFolder(c, progress, showPercent, JunkFileService::trashFilter());
    } else if (type == QLatin1String("Mail")) {
        ApplicationJunkService::scanMail(c, progress, showPercent);
    } else if (type == QLatin1String("iTunes")) {
        takeList(c, ApplicationJunkFolderInfo::getiTunesInfoList(c.url, progress, showPercent));
    } else if (type == QLatin1String("App_Cache")) {
        JunkFileService::scanFolder(c, progress, showPercent,
                                    JunkFileService::applicationCacheFilter());
    } else {
        JunkFileService::scanFolder(c, progress, showPercent, nullptr);
    }
}
