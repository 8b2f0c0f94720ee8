#include "cleaner/applications/KestalUninstallService.h"

#include "cleaner/applications/UninstallFolderInfo.h"
#include "cleaner/scan/UninstallService.h"

#include <QFile>
#include <QFileInfo>

void KestalUninstallService::scanUninstall(Progress progress, ShowPercent showPercent,
                                           std::function<void()> done)
{
    constexpr int module = UninstallService::moduleIndex;
    // A second scan replaces the first: its timer, and (by its generation) its jobs.
    scanStatus()[module] = 1;
    startTimer(module);
    UninstallService::scan(progress, showPercent, [done] {
        stopTimer(module);
        if (done)
            done();
    });
}

Category KestalUninstallService::scanSingleApp(const QUrl &url)
{
    QByteArray path = Services::handleBytes(FolderInfo::absoluteString(url));
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    const QString decoded = QFile::decodeName(path);
    const QFileInfo info(decoded);
    // No Chrome table here: the application is matched by its own names.
    const UninstallFolderInfo::PathSet matched =
        UninstallFolderInfo::matchAppInfoList(info.path() + QLatin1Char('/'), info.fileName());
    QList<QByteArray> sorted(matched.begin(), matched.end());
    std::sort(sorted.begin(), sorted.end());
    return UninstallFolderInfo::applicationCategory(decoded, sorted);
}

void KestalUninstallService::registerWithScanDriver()
{
    registerModuleScan(UninstallService::moduleIndex, &KestalUninstallService::scanUninstall);
}
