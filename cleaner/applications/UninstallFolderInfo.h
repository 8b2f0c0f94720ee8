#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"

#include <QByteArray>
#include <QSet>
#include <QStringList>

class PackageFiles;

// The uninstaller's rules for what belongs to an application: the
// applications on offer, the folders searched for their leftovers, and the
// name matching. Paths are raw bytes, so a leftover whose name is not UTF-8
// is still found and removed.
class UninstallFolderInfo : public FolderInfo {
public:
    using PathSet = QSet<QByteArray>;

    // The applications to offer, as paths: the entries of the applications
    // folders that are applications, not black-listed and owned by no package.
    static QStringList getAppPaths();
    static QStringList getAppPaths(const PackageFiles &packages);
    static QStringList getLibraryPaths();
    // The fixed leftovers of Chrome that exist.
    static PathSet getChromeInfoList();
    // Everything in the library folders that belongs to appPath/appName.
    static PathSet matchAppInfoList(const QString &appPath, const QString &appName);
    static PathSet matchAppInfoList(const QString &appPath, const QString &appName,
                                    const PackageFiles &packages);
    // Immediate children of path named fileName (equalORContain true), or
    // whose name holds fileName followed by "." (false).
    static PathSet matchesForFileName(const QString &fileName, const QString &path,
                                      bool equalORContain);
    // Immediate children of path whose name holds fileName.
    static PathSet extraMatchesForFileName(const QString &fileName, const QString &path);

    // A node of an application's list: the item's own values, its whole size;
    // a path that cannot be read gives "no name" and size 0.
    static FolderInfoPtr uninstallNode(const QByteArray &path, int findex);
    // One application's category: its shown name, the application's node
    // first and then each matched path's, flat, with their total size.
    static Category applicationCategory(const QString &appPath, const QList<QByteArray> &matches);
};
