#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"
#include "cleaner/scan/KestalService.h"
#include "cli/CliCommands.h"
#include "cli/ProgressBar.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <QThreadPool>
#include <cstdio>

namespace {

struct CleanOptions {
    int module = -1;
    QString select = QStringLiteral("default");
    QList<QByteArray> paths;
    bool yes = false;
    bool json = false;
};

QByteArray trimmedPath(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

QString shownPath(const FolderInfo &node)
{
    return QString::fromLocal8Bit(trimmedPath(FolderInfo::pathBytes(node.url)));
}

// Applies --select to the scanned tree; false (with *missing) when a PATH
// names nothing the scan listed.
bool applySelection(const CleanOptions &o, QString *missing)
{
    QList<Category> &categories = AppModuleService::categoriesOf(o.module);
    if (o.select == QLatin1String("default"))
        return true;
    const int state = o.select == QLatin1String("all") ? 1 : 0;
    for (int ci = 0; ci < categories.size(); ++ci) {
        if (!categories[ci].files.isEmpty())
            AppModuleService::updateState(state, o.module, ci, -1, -1);
        AppModuleService::updateState(categories[ci].files.isEmpty() ? 0 : state, o.module, ci,
                                      std::nullopt, std::nullopt);
    }
    if (KestalService::hasOwnScan(o.module))
        return CliCommands::selectFinderPaths(o.module, o.paths, missing);
    for (const QByteArray &wanted : o.paths) {
        bool found = false;
        for (int ci = 0; ci < categories.size(); ++ci) {
            const QList<FolderInfoPtr> files = categories[ci].files;
            for (int fi = 0; fi < files.size(); ++fi) {
                if (trimmedPath(FolderInfo::pathBytes(files[fi]->url)) == wanted) {
                    if (!files[fi]->children.isEmpty())
                        AppModuleService::updateState(1, o.module, ci, fi, -1);
                    AppModuleService::updateState(1, o.module, ci, fi, std::nullopt);
                    found = true;
                }
                for (int k = 0; k < files[fi]->children.size(); ++k) {
                    if (trimmedPath(FolderInfo::pathBytes(files[fi]->children[k]->url)) == wanted) {
                        AppModuleService::updateState(1, o.module, ci, fi, k);
                        found = true;
                    }
                }
            }
        }
        if (!found) {
            *missing = QString::fromLocal8Bit(wanted);
            return false;
        }
    }
    return true;
}

bool confirmed()
{
    std::fprintf(stderr, "%s [y/N] ",
                 getLocalizedString(QStringLiteral("Are you sure to delete selected files?"))
                     .toLocal8Bit()
                     .constData());
    QTextStream in(stdin);
    const QString answer = in.readLine().trimmed().toLower();
    return answer == QLatin1String("y") || answer == QLatin1String("yes");
}

QString statusText(std::optional<CleanTriple> triple)
{
    if (!triple)
        return getLocalizedString(QStringLiteral("Failed"));
    if (triple->status == 999)
        return getLocalizedString(QStringLiteral("Done"));
    if (triple->status == -3)
        return cleanFailureReason(7);
    return getLocalizedString(QStringLiteral("Failed"));
}

} // namespace

bool CliCommands::runScan(int module)
{
    if (KestalService::hasOwnScan(module))
        return runFinderScan(module);
    const int count =
        int(AppModuleService::appModules()[module].categories.value_or(QList<Category>()).size());
    if (count == 0)
        return false;
    ProgressBar bar;
    qint64 seen = 0;
    KestalService::scan(
        module, [&](const QString &path, qint64 size) { bar.update(0, seen += size, path); },
        [](float) {},
        [&](int ci) {
            bar.update(double(ci + 1) / count, seen, QString());
            if (ci + 1 == count)
                QCoreApplication::exit(0);
        });
    QCoreApplication::exec();
    // The scan's task may still ask the main thread for one more read after
    // the last category: serve it, or leaving would wait for that task for ever.
    while (!QThreadPool::globalInstance()->waitForDone(10))
        QCoreApplication::processEvents();
    bar.finish();
    return true;
}

int CliCommands::clean(const QStringList &args)
{
    CleanOptions o;
    QStringList rest;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QString &a = args[i];
        if (a == QLatin1String("--yes")) {
            o.yes = true;
        } else if (a == QLatin1String("--json")) {
            o.json = true;
        } else if (a == QLatin1String("--select")) {
            if (i + 1 >= args.size())
                return usage(QStringLiteral("--select needs default, all or PATH..."));
            o.select = args[++i];
            if (o.select != QLatin1String("default") && o.select != QLatin1String("all")) {
                o.paths.append(trimmedPath(QFile::encodeName(
                    QDir::cleanPath(QDir::current().absoluteFilePath(o.select)))));
                while (i + 1 < args.size() && !args[i + 1].startsWith(QLatin1String("--")))
                    o.paths.append(trimmedPath(QFile::encodeName(
                        QDir::cleanPath(QDir::current().absoluteFilePath(args[++i])))));
                o.select = QStringLiteral("paths");
            }
        } else {
            rest.append(a);
        }
    }
    FinderOptions finderOptions;
    QString error;
    if (!takeFinderOptions(rest, &finderOptions, &error))
        return usage(error);
    if (rest.size() != 1)
        return usage(QStringLiteral("clean takes one MODULE"));
    o.module = resolveModule(rest.first());
    if (o.module < 0)
        return usage(QStringLiteral("no module named \"%1\"").arg(rest.first()));
    if (!applyFinderOptions(o.module, finderOptions, &error))
        return usage(error);
    if (!runScan(o.module))
        return usage(QStringLiteral("module \"%1\" has nothing to scan").arg(rest.first()));
    QString missing;
    if (!applySelection(o, &missing))
        return usage(QStringLiteral("the scan did not list \"%1\"").arg(missing));
    if (!o.yes && !confirmed())
        return 1;

    int runStatus = 0;
    KestalCleanRecorder::handleClean(o.module);
    auto recorder = std::make_shared<KestalCleanRecorder>(
        o.module, [&runStatus](bool, int ci, int status, int, qint64) {
            if (ci == -1) {
                runStatus = status;
                QCoreApplication::exit(0);
            }
        });
    // The large and old files module lists one file in two categories.
    if (o.module == KestalLargeAndOldFileServices::moduleIndex)
        KestalModuleCleanService::largeAndOldAnalysisModule(o.module, recorder);
    else
        KestalModuleCleanService::analysisModule(o.module, recorder);
    QCoreApplication::exec();
    if (KestalService::hasOwnScan(o.module))
        afterFinderClean(o.module);
    return printCleanResult(o.module, runStatus, o.json);
}

int CliCommands::printCleanResult(int module, int runStatus, bool json)
{
    const Module &m = AppModuleService::appModules()[module];
    const QList<Category> categories = m.categories.value_or(QList<Category>());
    const QList<cleanCategory> plan = KestalModuleCleanService::cleanInfoDict().value(module);
    const QHash<int, CleanTriple> results = KestalService::cleanningCompletedStatus().value(module);
    const auto [size, number] = KestalService::cleanTotalSizeAndNumber().value(module);

    QJsonArray categoryRows, failureRows;
    bool failed = runStatus != 999;
    for (qsizetype i = 0; i < plan.size(); ++i) {
        const cleanCategory &c = plan[i];
        const std::optional<CleanTriple> triple =
            results.contains(c.ci) ? std::optional(results.value(c.ci)) : std::nullopt;
        const QString title =
            getLocalizedString(i < categories.size() ? categories[i].title : QString());
        categoryRows.append(
            QJsonObject{{QStringLiteral("title"), title},
                        {QStringLiteral("status"), triple ? triple->status : runStatus},
                        {QStringLiteral("number"), triple ? triple->number : 0},
                        {QStringLiteral("size"), triple ? triple->size : 0}});
        if (!json)
            printOut(QStringLiteral("  %1  %2  %3 items  %4\n")
                         .arg(title, -28)
                         .arg(statusText(triple), -12)
                         .arg(triple ? triple->number : 0)
                         .arg(sizeText(triple ? triple->size : 0)));
        for (const cleanFolder &entry : c.folders) {
            QList<cleanFolder> items =
                entry.children.isEmpty() ? QList<cleanFolder>{entry} : entry.children;
            for (const cleanFolder &item : items) {
                if (item.status == 1 || item.status == 999)
                    continue;
                failed = true;
                failureRows.append(
                    QJsonObject{{QStringLiteral("path"), shownPath(*item.folder)},
                                {QStringLiteral("status"), item.status},
                                {QStringLiteral("reason"), cleanFailureReason(item.status)}});
            }
        }
    }
    if (json) {
        const QJsonObject o{{QStringLiteral("module"), m.title},
                            {QStringLiteral("status"), runStatus},
                            {QStringLiteral("number"), number},
                            {QStringLiteral("size"), size},
                            {QStringLiteral("categories"), categoryRows},
                            {QStringLiteral("failures"), failureRows}};
        QJsonObject shown = o;
        if (runStatus == -2)
            shown.insert(QStringLiteral("installFailure"), installFailureReason(module));
        printOut(QString::fromUtf8(QJsonDocument(shown).toJson()));
    } else {
        printOut(QStringLiteral("%1: %2 items, %3\n")
                     .arg(getLocalizedString(QStringLiteral("Cleaned")))
                     .arg(number)
                     .arg(sizeText(size)));
        if (runStatus == -2)
            printOut(installFailureReason(module) + QLatin1Char('\n'));
        for (const QJsonValue &f : std::as_const(failureRows))
            printOut(QStringLiteral("  %1: %2\n")
                         .arg(f[QStringLiteral("path")].toString(),
                              f[QStringLiteral("reason")].toString()));
    }
    return failed ? 2 : 0;
}
