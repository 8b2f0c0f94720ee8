#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// What an application is on each profile, for the uninstaller and the Trash
// watch. The macOS profile keeps the bundles of "/Applications" and the
// Library folders; the Linux profile the self-contained applications a user
// installs by hand (AppImages and application folders in ~/Applications and
// /opt) and the XDG folders. The rules that use these facts are the same.
class ApplicationPlaces {
public:
    // The folders whose entries are the applications on offer.
    static QStringList applicationFolders();
    // Whether an entry of such a folder is an application ("X.app" on macOS;
    // any folder or an AppImage on Linux).
    static bool isApplicationEntry(const QString &name, bool isDirectory);
    // The folders where leftovers are sought, in the order the matching tries them.
    static QStringList libraryPaths();
    // The fixed leftovers of Chrome, as absolute paths (existing or not).
    static QStringList chromeLeftovers();
    // The name an application's leftovers carry: "X.app" gives "X"; on Linux
    // "Tool-1.2.3-x86_64.AppImage" gives "Tool".
    static QString searchName(const QString &appName);
    // Whether plain names are compared without case (Linux: configuration
    // folders are often the lower-case form of the application's name).
    static bool namesIgnoreCase();

    // The folder whose entries are the Trash's items (~/.Trash on macOS, the
    // freedesktop Trash's "files" folder on Linux).
    static QString trashItemsFolder();
    // Whether an item of the Trash (an entry of that folder, or deeper on
    // macOS) is an application: "X.app"; on Linux an AppImage, or a folder
    // that was thrown away from an applications folder.
    static bool isTrashedApplication(const QString &path, bool isDirectory);
    // Where a Trash item was before (Linux: its ".trashinfo"); empty if unknown.
    static QString originalPathOf(const QString &trashedPath);

    // What a bundle says of itself; nothing when no bundle can be made of the path.
    struct BundleInfo {
        QString identifier;   // the bundle id (macOS), the desktop entry's id (Linux); may be empty
        QString shownName;    // the name to show, never empty
        QString desktopEntry; // Linux: the user's desktop entry that launches it, if any
        QString icon;         // its picture's path, or (Linux) an icon theme's name; may be empty
    };
    static std::optional<BundleInfo> bundleInfo(const QString &appPath);
};
