// The finders on the command line: the duplicate and similar image finders'
// roots, the size limit and the similarity threshold, their scans, and what
// their cleans do differently.
#include "cleaner/core/AppModuleService.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"
#include "cleaner/finders/SimilarService.h"
#include "cli/CliCommands.h"
#include "cli/ProgressBar.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

bool CliCommands::takeFinderOptions(QStringList &args, FinderOptions *options, QString *error)
{
    for (qsizetype i = 0; i < args.size();) {
        const QString option = args[i];
        if (option != QLatin1String("--path") && option != QLatin1String("--min-size") &&
            option != QLatin1String("--threshold")) {
            ++i;
            continue;
        }
        if (i + 1 >= args.size()) {
            *error = QStringLiteral("%1 needs a value").arg(option);
            return false;
        }
        const QString value = args[i + 1];
        args.remove(i, 2);
        if (option == QLatin1String("--path")) {
            const QFileInfo folder(value);
            if (!folder.isDir()) {
                *error = QStringLiteral("--path: \"%1\" is not a folder").arg(value);
                return false;
            }
            options->path = QDir::cleanPath(folder.absoluteFilePath());
        } else if (option == QLatin1String("--threshold")) {
            // A threshold of 0 would stop the program at the first exact match.
            bool ok = false;
            const qint64 threshold = value.toLongLong(&ok);
            if (!ok || threshold < 1) {
                *error = QStringLiteral("--threshold: \"%1\" is not a whole number of 1 or more")
                             .arg(value);
                return false;
            }
            options->threshold = threshold;
        } else {
            qint64 kib = 0;
            if (!DuplicateService::isPurnInt(value, &kib)) {
                *error =
                    QStringLiteral("--min-size: %1").arg(DuplicateService::notIntegerMessage());
                return false;
            }
            options->minSize = kib;
        }
    }
    return true;
}

bool CliCommands::applyFinderOptions(int module, const FinderOptions &options, QString *error)
{
    if (!options.path && !options.minSize && !options.threshold)
        return true;
    const bool duplicates = module == DuplicateService::moduleIndex;
    const bool similar = module == SimilarService::moduleIndex;
    if (!duplicates && !similar) {
        *error = QStringLiteral("--path is an option of the duplicate and similar image finders");
        return false;
    }
    if ((options.minSize && !duplicates) || (options.threshold && !similar)) {
        *error = QStringLiteral(
            "--min-size is an option of the duplicate finder, --threshold of the similar one");
        return false;
    }
    if (options.path)
        (duplicates ? DuplicateService::path() : SimilarService::path()) = *options.path;
    if (options.minSize)
        DuplicateService::size = *options.minSize;
    if (options.threshold)
        SimilarService::threshold = *options.threshold;
    return true;
}

bool CliCommands::runFinderScan(int module)
{
    // The large and old files module sorts into the categories of its list.
    if (module == KestalLargeAndOldFileServices::moduleIndex &&
        AppModuleService::categoriesOf(module).isEmpty())
        return false;
    ProgressBar bar;
    qint64 seen = 0;
    double percent = 0;
    KestalService::scan(
        module, [&](const QString &path, qint64 size) { bar.update(percent, seen += size, path); },
        [&](float step) { bar.update(percent = std::min(1.0, percent + double(step)), seen, {}); },
        [&](int) {
            bar.update(1.0, seen, QString());
            QCoreApplication::exit(0);
        });
    QCoreApplication::exec();
    bar.finish();
    return true;
}

bool CliCommands::selectFinderPaths(int module, const QByteArrayList &paths, QByteArray *missing)
{
    QList<Category> &categories = AppModuleService::categoriesOf(module);
    for (const QByteArray &wanted : paths) {
        bool found = false;
        for (int ci = 0; ci < categories.size() && !found; ++ci) {
            const QList<FolderInfoPtr> files = categories[ci].files;
            for (int fi = 0; fi < files.size() && !found; ++fi) {
                if (FolderInfo::pathBytes(files[fi]->url) != wanted)
                    continue;
                found = true;
                // A large old file is one node in two categories: ticked once.
                if (module == KestalLargeAndOldFileServices::moduleIndex)
                    AppModuleService::largeAndOldFileUpdateState(1, module, ci, files[fi]->findex,
                                                                 std::nullopt);
                else
                    AppModuleService::updateState(1, module, ci, fi, std::nullopt);
            }
        }
        if (!found) {
            *missing = wanted;
            return false;
        }
    }
    // Every category that shows a ticked node shows it ticked.
    for (Category &c : categories)
        c.state = AppModuleService::calculateParentState(c.files);
    return true;
}

void CliCommands::afterFinderClean(int module)
{
    if (module == DuplicateService::moduleIndex)
        DuplicateService::updateCategory();
    else if (module == KestalLargeAndOldFileServices::moduleIndex)
        KestalLargeAndOldFileServices::filterInfoList();
    else if (module == SimilarService::moduleIndex)
        SimilarService::updateCategory();
}
