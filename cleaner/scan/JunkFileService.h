#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"

#include <QUrl>
#include <utility>

// The plain folder scan of a category, and the filters and walks of the
// typed junk categories. All of it runs on a scan's background task.
class JunkFileService : public Services {
public:
    // The library's resources that the photo library makes again.
    static const QString newOSXPhotoAddComponentPath1;
    static const QString newOSXPhotoAddComponentPath2;
    static const QString oldOSXPhotoAddComponentPath1;
    // Where the photo library (or, on Linux, the photo tools' caches) is looked for.
    static QString photoPath();

    // Fills c.files and c.size from the category's `url`, or else its `urls`.
    static void scanFolder(Category &category, const Progress &progress,
                           const ShowPercent &showPercent, const WalkFilter &filter);
    // Fills c.files and c.size with the photo library's cache files.
    static void scanPhoto(Category &category, const Progress &progress,
                          const ShowPercent &showPercent);
    // The Trash folders of the removable volumes, with each volume's name.
    static QList<std::pair<QUrl, QString>> getUSBInfo();

    // System caches: only what may be removed; in the per-user temporary
    // roots only what lies below the roots themselves.
    static WalkFilter systemCacheFilter();
    // Application caches: every cache folder but those another module lists.
    static WalkFilter applicationCacheFilter();
    // A volume's Trash: the entries one level inside a user's folder of it.
    static WalkFilter trashFilter();

private:
    // The folders whose files are the photo cache; empty when there is no library.
    static QStringList photoCacheFolders();
};
