#include "cleaner/finders/DuplicateFolderInfo.h"

#include "cleaner/finders/DuplicateService.h"

Category DuplicateFolderInfo::emptyCategory()
{
    Category c;
    c.title = QStringLiteral("No File");
    c.image = QStringLiteral("App-Cache");
    c.size = 0;
    c.description = DuplicateService::emptyCateDesc;
    c.url = FolderUrl{QString(), QStringLiteral("Folder"), 0};
    c.type = QString();
    c.files = {FolderInfo::make(0, DuplicateService::emptyFileName, QStringLiteral("App-Cache"), 0,
                                QColor(), false, QDateTime(), QUrl(), false, {}, false, 0,
                                QString())};
    c.state = 0;
    c.finder = 0;
    return c;
}
