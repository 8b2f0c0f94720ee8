#include "cleaner/applications/ExtensionsFolderInfo.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/FileMove.h"
#include "cleaner/core/FileRemoval.h"

bool ExtensionsFolderInfo::isEnabled(const QUrl &url)
{
    QByteArray path = pathBytes(url);
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    const QByteArray folder = path.left(path.lastIndexOf('/'));
    return !folder.endsWith(FileMove::disabledFolder(QByteArray()));
}

QByteArrayList ExtensionsFolderInfo::configuredFolders()
{
    QByteArrayList folders;
    const QByteArray suffix = FileMove::disabledFolder(QByteArray());
    for (const Category &c : AppModuleService::categoriesOf(moduleIndex)) {
        for (const FolderUrl &url : c.urls) {
            const auto clean = FileRemoval::normalized(pathBytes(QUrl(url.url)));
            if (clean && !clean->endsWith(suffix))
                folders << *clean;
        }
    }
    return folders;
}
