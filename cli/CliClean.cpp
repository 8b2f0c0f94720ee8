#include "cleaner/applications/ExtensionsFolderInfo.h"
#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/ByteCount.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/scan/UninstallService.h"
#include "cli/CliApplications.h"
#include "cli/CliCommands.h"
#include "cli/JsonOutput.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QTextStream>
#include <cstdio>
#include <unistd.h>

namespace {

QByteArray trimmedPath(QByteArray path)
{
    while (path.size() > 1 && path.endsWith('/'))
        path.chop(1);
    return path;
}

// An argument as an absolute path, cleaned of "." and ".." steps and
// repeated slashes, byte for byte: no step of it is decoded.
QByteArray absolutePath(const QByteArray &argument)
{
    QByteArray path = argument;
    if (!path.startsWith('/')) {
        char here[4096];
        path = QByteArray(getcwd(here, sizeof here) ? here : "/") + '/' + path;
    }
    QByteArrayList steps;
    for (const QByteArray &step : path.split('/')) {
        if (step.isEmpty() || step == ".")
            continue;
        if (step == "..") {
            if (!steps.isEmpty())
                steps.removeLast();
            continue;
        }
        steps.append(step);
    }
    return '/' + steps.join('/');
}

// Ticks every node of module whose path is wanted; true when any was.
bool selectPath(int module, const QByteArray &wanted)
{
    bool found = false;
    const QList<Category> &categories = AppModuleService::categoriesOf(module);
    for (int ci = 0; ci < categories.size(); ++ci) {
        const QList<FolderInfoPtr> files = categories[ci].files;
        for (int fi = 0; fi < files.size(); ++fi) {
            if (trimmedPath(FolderInfo::pathBytes(files[fi]->url)) == wanted) {
                if (!files[fi]->children.isEmpty())
                    AppModuleService::updateState(1, module, ci, fi, -1);
                AppModuleService::updateState(1, module, ci, fi, std::nullopt);
                found = true;
            }
            for (int k = 0; k < files[fi]->children.size(); ++k) {
                if (trimmedPath(FolderInfo::pathBytes(files[fi]->children[k]->url)) == wanted) {
                    AppModuleService::updateState(1, module, ci, fi, k);
                    found = true;
                }
            }
        }
    }
    return found;
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

bool CliCommands::applySelection(const CleanOptions &o, const QList<int> &modules,
                                 QByteArray *missing)
{
    if (o.select == QLatin1String("default"))
        return true;
    const int state = o.select == QLatin1String("all") ? 1 : 0;
    for (int module : modules) {
        QList<Category> &categories = AppModuleService::categoriesOf(module);
        for (int ci = 0; ci < categories.size(); ++ci) {
            if (!categories[ci].files.isEmpty())
                AppModuleService::updateState(state, module, ci, -1, -1);
            AppModuleService::updateState(categories[ci].files.isEmpty() ? 0 : state, module, ci,
                                          std::nullopt, std::nullopt);
        }
    }
    for (const QByteArray &wanted : o.paths) {
        bool found = false;
        for (int module : modules)
            found = selectPath(module, wanted) || found;
        if (!found) {
            *missing = wanted;
            return false;
        }
    }
    return true;
}

bool CliCommands::confirmed(int number, double size)
{
    // The same figures, in the same words, as the window's confirmation.
    std::fprintf(stderr, "%s\n%s [y/N] ",
                 ByteCount::removalSummary(number, qint64(size)).toLocal8Bit().constData(),
                 getLocalizedString(QStringLiteral("Are you sure to delete selected files?"))
                     .toLocal8Bit()
                     .constData());
    QTextStream in(stdin);
    const QString answer = in.readLine().trimmed().toLower();
    return answer == QLatin1String("y") || answer == QLatin1String("yes");
}

int CliCommands::clean(const QByteArrayList &args)
{
    CleanOptions o;
    QStringList rest;
    for (qsizetype i = 0; i < args.size(); ++i) {
        const QByteArray &a = args[i];
        if (a == "--yes") {
            o.yes = true;
        } else if (a == "--json") {
            o.json = true;
        } else if (a == "--select") {
            if (i + 1 >= args.size())
                return usage(QStringLiteral("--select needs default, all or PATH..."));
            const QByteArray first = args[++i];
            if (first == "default" || first == "all") {
                o.select = QString::fromLatin1(first);
                continue;
            }
            o.select = QStringLiteral("paths");
            QByteArrayList names{first};
            while (i + 1 < args.size() && !args[i + 1].startsWith("--"))
                names.append(args[++i]);
            for (const QByteArray &name : std::as_const(names))
                o.paths.append(absolutePath(name));
            o.names += names;
        } else {
            rest.append(QString::fromLocal8Bit(a));
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
        return usage(
            QStringLiteral("no module named \"%1\"").arg(TerminalText::escaped(rest.first())));
    if (!applyFinderOptions(o.module, finderOptions, &error))
        return usage(error);
    if (o.module == ExtensionsFolderInfo::moduleIndex)
        return usage(QStringLiteral(
            "extensions are switched off and on, never removed: extensions toggle PATH"));
    // Module 0 is Auto Cleanup when its categories name child modules.
    if (const QList<int> children = autoCleanupChildren(); o.module == 0 && !children.isEmpty())
        return cleanAutoCleanup(o, children);
    if (!runScan(o.module))
        return usage(QStringLiteral("module \"%1\" has nothing to scan")
                         .arg(TerminalText::escaped(rest.first())));
    QByteArray missing;
    bool listed = false;
    if (o.module == UninstallService::moduleIndex && o.select == QLatin1String("paths")) {
        // Applications are named as the user sees them, or by their path.
        listed = CliApplications::selectApplications(o.names, &missing);
    } else if (KestalService::hasOwnScan(o.module) && o.select == QLatin1String("paths")) {
        // Everything unticked first; a file shown twice is then ticked once.
        CleanOptions nothing = o;
        nothing.select = QStringLiteral("none");
        nothing.paths.clear();
        listed = applySelection(nothing, {o.module}, &missing) &&
                 selectFinderPaths(o.module, o.paths, &missing);
    } else {
        listed = applySelection(o, {o.module}, &missing);
    }
    if (!listed)
        return usage(QStringLiteral("the scan did not list \"%1\"")
                         .arg(TerminalText::escapedBytes(missing)));
    const auto [size, number] = AppModuleService::calculateModuleSizeAndNumber(o.module);
    if (!o.yes && !confirmed(number, size))
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
    const CleanReport report = cleanReport(o.module, runStatus);
    if (o.json)
        printJson(QJsonDocument(report.record));
    else
        printCleanReport(report.record);
    return report.failed ? 2 : 0;
}

CliCommands::CleanReport CliCommands::cleanReport(int module, int runStatus)
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
        categoryRows.append(QJsonObject{
            {QStringLiteral("title"),
             getLocalizedString(i < categories.size() ? categories[i].title : QString())},
            {QStringLiteral("status"), triple ? triple->status : runStatus},
            {QStringLiteral("statusText"), statusText(triple)},
            {QStringLiteral("number"), triple ? triple->number : 0},
            {QStringLiteral("size"), triple ? triple->size : 0}});
        for (const cleanFolder &entry : c.folders) {
            QList<cleanFolder> items =
                entry.children.isEmpty() ? QList<cleanFolder>{entry} : entry.children;
            for (const cleanFolder &item : items) {
                if (item.status == 1 || item.status == 999)
                    continue;
                failed = true;
                const QByteArray path = trimmedPath(FolderInfo::pathBytes(item.folder->url));
                QJsonObject row{{QStringLiteral("path"), QString::fromUtf8(path)},
                                {QStringLiteral("status"), item.status},
                                {QStringLiteral("reason"), cleanFailureReason(item.status)}};
                JsonOutput::addRawBytes(row, QStringLiteral("pathBytes"), path);
                failureRows.append(row);
            }
        }
    }
    const QJsonObject record{
        {QStringLiteral("module"), m.title},          {QStringLiteral("status"), runStatus},
        {QStringLiteral("number"), number},           {QStringLiteral("size"), size},
        {QStringLiteral("categories"), categoryRows}, {QStringLiteral("failures"), failureRows}};
    QJsonObject shown = record;
    if (runStatus == -2)
        shown.insert(QStringLiteral("installFailure"), installFailureReason(module));
    return {shown, failed};
}

void CliCommands::printCleanReport(const QJsonObject &record)
{
    const auto text = [](const QJsonValue &v) { return TerminalText::escaped(v.toString()); };
    for (const QJsonValue &c : record[QStringLiteral("categories")].toArray())
        printOut(QStringLiteral("  %1  %2  %3 items  %4\n")
                     .arg(text(c[QStringLiteral("title")]), -28)
                     .arg(text(c[QStringLiteral("statusText")]), -12)
                     .arg(c[QStringLiteral("number")].toInt())
                     .arg(sizeText(c[QStringLiteral("size")].toInteger())));
    printOut(QStringLiteral("%1: %2 items, %3\n")
                 .arg(getLocalizedString(QStringLiteral("Cleaned")))
                 .arg(record[QStringLiteral("number")].toInt())
                 .arg(sizeText(record[QStringLiteral("size")].toInteger())));
    if (record.contains(QStringLiteral("installFailure")))
        printOut(text(record[QStringLiteral("installFailure")]) + QLatin1Char('\n'));
    for (const QJsonValue &f : record[QStringLiteral("failures")].toArray()) {
        const QByteArray path =
            JsonOutput::rawBytes(f.toObject(), QStringLiteral("path"), QStringLiteral("pathBytes"));
        printOut(QStringLiteral("  %1: %2\n")
                     .arg(TerminalText::escapedBytes(path), text(f[QStringLiteral("reason")])));
    }
}
