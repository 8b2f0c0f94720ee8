#include "cleaner/shell/PermissionCheck.h"

#include "cleaner/core/DirectoryEnumerator.h"
#include "cleaner/core/Platform.h"
#include "cleaner/shell/Workspace.h"

#include <QFile>
#include <QUrl>

namespace {

constexpr int photoCache = 2;
constexpr int mailTrash = 3;

// What macOS says of a folder that its privacy guard keeps closed.
const QString deniedByGuard = QStringLiteral("you don\u2019t have permission to view it.");

// The folder the module's scan reads when the system may guard it; empty
// for other modules.
QString guardedFolder(int moduleIndex)
{
    // Linux desktops have no per-folder privacy guard: file modes alone
    // decide, and the scan passes over what it cannot read.
    if (!Platform::isMacOS())
        return {};
    if (moduleIndex == photoCache)
        return Platform::homeDirectory() + QStringLiteral("/Pictures");
    if (moduleIndex == mailTrash)
        return Platform::homeDirectory() + QStringLiteral("/Library/Mail");
    return {};
}

// The settings pane where the user grants the module's folder.
QUrl settingsPane(int moduleIndex)
{
    return QUrl(QStringLiteral("x-apple.systempreferences:com.apple.preference.security?") +
                (moduleIndex == photoCache ? QStringLiteral("Privacy_Photos")
                                           : QStringLiteral("Privacy_FullDiskAccess")));
}

} // namespace

bool PermissionCheck::checkPermission(int moduleIndex)
{
    const QString folder = guardedFolder(moduleIndex);
    if (folder.isEmpty())
        return true;
    bool permitted = true;
    auto walk =
        DirectoryEnumerator::create(QFile::encodeName(folder), DirectoryEnumerator::NoOptions,
                                    [&permitted](const DirectoryEnumerator::Error &error) {
                                        if (error.localizedDescription.contains(deniedByGuard))
                                            permitted = false;
                                        return permitted;
                                    });
    // The handler decides; the items themselves do not matter.
    while (walk && walk->next()) {
    }
    if (!permitted)
        Workspace::openURL(settingsPane(moduleIndex));
    return permitted;
}
