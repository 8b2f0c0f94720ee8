#include "cleaner/finders/SimilarFolderInfo.h"

#include "cleaner/finders/DuplicateFolderInfo.h"
#include "cleaner/finders/SimilarService.h"

Category SimilarFolderInfo::emptyCategory()
{
    // The duplicate finder's placeholder, with this module's two texts.
    Category c = DuplicateFolderInfo::emptyCategory();
    c.description = SimilarService::emptyCateDesc;
    c.files.first()->name = SimilarService::emptyFileName;
    return c;
}

QList<qint64> SimilarFolderInfo::getOsxBlock(const QVariant &value)
{
    QList<qint64> integers;
    for (const QVariant &v : value.toList())
        integers.append(v.toLongLong());
    return integers;
}
