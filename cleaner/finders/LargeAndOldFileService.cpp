#include "cleaner/finders/LargeAndOldFileService.h"

#include "cleaner/core/Platform.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"

#include <QFile>

QByteArray LargeAndOldFileService::libraryFolder()
{
    return QFile::encodeName(Platform::homeDirectory()) +
           (Platform::isMacOS() ? QByteArrayLiteral("/Library") : QByteArrayLiteral("/snap"));
}

FilterType LargeAndOldFileService::largeAndOldFileFilter(const ResourceValues &props)
{
    const QByteArray &path = props.path;
    const qint64 monthAgo =
        QDateTime::currentSecsSinceEpoch() - KestalLargeAndOldFileServices::monthSeconds;
    if (path.contains(libraryFolder()))
        return FilterType::SkipSelfAndChildren;
    if (path.endsWith(".zip"))
        return FilterType::SkipChildren;
    if (props.isDirectory)
        return FilterType::SkipSelf;
    if (props.fileSize.value_or(0) > KestalLargeAndOldFileServices::over5M)
        return FilterType::NoSkip;
    const QDateTime date = props.contentModificationDate.isValid() ? props.contentModificationDate
                                                                   : FolderInfo::distantPast();
    if (date < QDateTime::fromSecsSinceEpoch(monthAgo))
        return FilterType::NoSkip;
    return FilterType::SkipSelf;
}
