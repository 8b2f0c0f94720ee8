// The uninstaller's scan, declared with its lists in cleaner/scan.
#include "cleaner/scan/UninstallService.h"

#include "cleaner/applications/PackageFiles.h"
#include "cleaner/applications/UninstallFolderInfo.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalService.h"

#include <QFileInfo>
#include <atomic>
#include <memory>

namespace {

std::atomic<quint64> g_generation{0};

bool silenced(quint64 generation)
{
    return g_generation.load() != generation ||
           KestalService::judgeStopScan(UninstallService::moduleIndex);
}

// What the main thread counts while the sizing jobs come in.
struct Bookkeeping {
    int finished = 0;
    qint64 total = 0;
    QList<Category> categories;
};

} // namespace

void UninstallService::scan(const Progress &progress, const ShowPercent &showPercent,
                            std::function<void()> done)
{
    const quint64 generation = ++g_generation;
    Dispatch::globalAsync([=] {
        const PackageFiles packages = PackageFiles::load();
        const QStringList apps = UninstallFolderInfo::getAppPaths(packages);
        AppMatches appMatchFile;
        const float step = apps.isEmpty() ? 1.0f : 1.0f / float(apps.size());
        for (const QString &app : apps) {
            if (silenced(generation))
                return;
            if (showPercent)
                Dispatch::mainAsync([=] {
                    if (!silenced(generation))
                        showPercent(step);
                });
            const QFileInfo info(app);
            // Chrome, and any build of it, has a fixed table of its own.
            const UninstallFolderInfo::PathSet matched =
                info.fileName().contains(QLatin1String("Chrome"))
                    ? UninstallFolderInfo::getChromeInfoList()
                    : UninstallFolderInfo::matchAppInfoList(info.path(), info.fileName(), packages);
            QList<QByteArray> sorted(matched.begin(), matched.end());
            std::sort(sorted.begin(), sorted.end());
            appMatchFile.append({app, sorted});
        }
        if (apps.isEmpty()) {
            // No job would ever finish: the scan ends here with an empty list.
            Dispatch::mainAsync([=] {
                if (silenced(generation))
                    return;
                AppModuleService::appModules()[moduleIndex].categories = QList<Category>();
                if (progress)
                    progress(getLocalizedString(QStringLiteral("Scan Done")), 0);
                if (done)
                    done();
            });
            return;
        }
        origainData(appMatchFile, progress, showPercent, done);
    });
}

void UninstallService::origainData(const AppMatches &appMatchFile, const Progress &progress,
                                   const ShowPercent &, std::function<void()> done)
{
    const quint64 generation = g_generation.load();
    auto books = std::make_shared<Bookkeeping>();
    const int count = int(appMatchFile.size());
    for (const auto &[app, matches] : appMatchFile) {
        Dispatch::globalAsync([=] {
            Category c = UninstallFolderInfo::applicationCategory(app, matches);
            Dispatch::mainAsync([=] {
                if (silenced(generation))
                    return;
                books->finished += 1;
                books->total += c.size;
                books->categories.append(c);
                if (progress)
                    progress(app, c.size); // each application once: the reports add up to the total
                if (books->finished != count)
                    return;
                AppModuleService::appModules()[moduleIndex].categories = books->categories;
                KestalService::scanCategory()[moduleIndex] = books->categories;
                if (progress)
                    progress(getLocalizedString(QStringLiteral("Scan Done")), 0);
                if (done)
                    done();
            });
        });
    }
}
