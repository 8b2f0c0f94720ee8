#include "cli/CliPrivacy.h"

#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/PrivacyClean.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/privacy/PrivacyService.h"
#include "cleaner/scan/KestalService.h"
#include "cli/CliCommands.h"
#include "cli/JsonOutput.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

constexpr int kModule = PrivacyService::moduleIndex;

const QList<Category> &browsers()
{
    return AppModuleService::categoriesOf(kModule);
}

QString checkMark(int checked)
{
    return checked == 1    ? QStringLiteral("x")
           : checked == -1 ? QStringLiteral("-")
                           : QStringLiteral(" ");
}

void printBrowsers()
{
    qint64 total = 0;
    CliCommands::printOut(QStringLiteral("%1\n").arg(
        TerminalText::escaped(getLocalizedString(AppModuleService::appModules()[kModule].title))));
    for (const Category &c : browsers()) {
        total += c.size;
        CliCommands::printOut(QStringLiteral("  %1  %2\n")
                                  .arg(TerminalText::escaped(c.title), -28)
                                  .arg(CliCommands::sizeText(c.size), 10));
        for (const FolderInfoPtr &group : c.files) {
            CliCommands::printOut(QStringLiteral("    [%1] %2  %3  (%4 records)\n")
                                      .arg(checkMark(group->checked))
                                      .arg(TerminalText::escaped(group->name), -24)
                                      .arg(CliCommands::sizeText(group->size), 10)
                                      .arg(group->children.size()));
            for (const FolderInfoPtr &r : group->children)
                CliCommands::printOut(QStringLiteral("      [%1] %2  %3  %4  %5\n")
                                          .arg(checkMark(r->checked))
                                          .arg(r->findex, 6)
                                          .arg(r->date.toString(Qt::ISODate), -20)
                                          .arg(CliCommands::sizeText(r->size), 10)
                                          .arg(TerminalText::escaped(r->name)));
        }
    }
    CliCommands::printOut(QStringLiteral("Total: %1\n").arg(CliCommands::sizeText(total)));
}

int browserIndex(const QString &name)
{
    for (int ci = 0; ci < browsers().size(); ++ci) {
        if (browsers()[ci].title.compare(name, Qt::CaseInsensitive) == 0 ||
            getLocalizedString(browsers()[ci].title).compare(name, Qt::CaseInsensitive) == 0)
            return ci;
    }
    return -1;
}

int groupIndex(const Category &c, const QString &name)
{
    for (int fi = 0; fi < c.files.size(); ++fi) {
        if (c.files[fi]->name.compare(name, Qt::CaseInsensitive) == 0 ||
            getLocalizedString(c.files[fi]->name).compare(name, Qt::CaseInsensitive) == 0)
            return fi;
    }
    return -1;
}

// Ticks what one BROWSER/GROUP[/RECORD-INDEX] names; false when it names nothing.
bool select(const QString &named)
{
    const QStringList parts = named.split(QLatin1Char('/'));
    if (parts.size() < 2 || parts.size() > 3)
        return false;
    const int ci = browserIndex(parts[0]);
    if (ci < 0)
        return false;
    const int fi = groupIndex(browsers()[ci], parts[1]);
    if (fi < 0)
        return false;
    const QList<FolderInfoPtr> records = browsers()[ci].files[fi]->children;
    if (parts.size() == 2) {
        if (records.isEmpty())
            return true; // nothing listed, nothing to clean
        AppModuleService::updateState(1, kModule, ci, fi, -1);
        return true;
    }
    bool isNumber = false;
    const int index = parts[2].toInt(&isNumber);
    for (int k = 0; isNumber && k < records.size(); ++k) {
        if (records[k]->findex == index) {
            AppModuleService::updateState(1, kModule, ci, fi, k);
            return true;
        }
    }
    return false;
}

void selectAll()
{
    for (int ci = 0; ci < browsers().size(); ++ci) {
        // A group with no record is left alone: emptying its store would
        // take rows that were never listed.
        for (int fi = 0; fi < browsers()[ci].files.size(); ++fi) {
            if (!browsers()[ci].files[fi]->children.isEmpty())
                AppModuleService::updateState(1, kModule, ci, fi, -1);
        }
    }
}

} // namespace

bool CliPrivacy::namesPrivacy(const QByteArrayList &args)
{
    for (qsizetype i = 1; i < args.size(); ++i) {
        if (args[i] == "--select") {
            ++i;
            continue;
        }
        if (args[i].startsWith("--"))
            continue;
        return CliCommands::resolveModule(QString::fromLocal8Bit(args[i])) == kModule;
    }
    return false;
}

int CliPrivacy::scan(const QStringList &args)
{
    const bool json = args.contains(QStringLiteral("--json"));
    CliCommands::runScan(kModule);
    if (json)
        CliCommands::printJson(
            QJsonDocument(JsonOutput::module(AppModuleService::appModules()[kModule], kModule)));
    else
        printBrowsers();
    return 0;
}

int CliPrivacy::clean(const QByteArrayList &args)
{
    bool yes = false, json = false;
    QString mode = QStringLiteral("default");
    QStringList selections;
    for (qsizetype i = 0; i < args.size(); ++i) {
        if (args[i] == "--yes") {
            yes = true;
        } else if (args[i] == "--json") {
            json = true;
        } else if (args[i] == "--select") {
            if (i + 1 >= args.size())
                return CliCommands::usage(QStringLiteral(
                    "--select needs default, all or BROWSER/GROUP[/RECORD-INDEX]..."));
            mode = QString::fromLocal8Bit(args[++i]);
            if (mode != QLatin1String("default") && mode != QLatin1String("all")) {
                selections << mode;
                while (i + 1 < args.size() && !args[i + 1].startsWith("--"))
                    selections << QString::fromLocal8Bit(args[++i]);
            }
        }
    }
    CliCommands::runScan(kModule);
    if (mode == QLatin1String("all"))
        selectAll();
    for (const QString &named : std::as_const(selections)) {
        if (!select(named))
            return CliCommands::usage(
                QStringLiteral("the scan listed no \"%1\"").arg(TerminalText::escaped(named)));
    }
    const auto [total, count] = PrivacyService::selectedRecords();
    if (!yes && !CliCommands::confirmed(count, total))
        return 1;

    KestalCleanRecorder::handleClean(kModule);
    auto recorder =
        std::make_shared<KestalCleanRecorder>(kModule, [](bool, int ci, int, int, qint64) {
            if (ci == -1)
                QCoreApplication::exit(0);
        });
    Dispatch::globalAsync([recorder] { PrivacyClean::run(recorder); });
    QCoreApplication::exec();

    const QHash<int, CleanTriple> results =
        KestalService::cleanningCompletedStatus().value(kModule);
    const auto [size, number] = KestalService::cleanTotalSizeAndNumber().value(kModule);
    QJsonArray rows;
    for (int ci = 0; ci < browsers().size(); ++ci) {
        const CleanTriple t = results.value(ci);
        rows.append(QJsonObject{{QStringLiteral("title"), browsers()[ci].title},
                                {QStringLiteral("status"), t.status},
                                {QStringLiteral("number"), t.number},
                                {QStringLiteral("size"), t.size}});
    }
    if (json) {
        CliCommands::printJson(QJsonDocument(
            QJsonObject{{QStringLiteral("module"), AppModuleService::appModules()[kModule].title},
                        {QStringLiteral("status"), 1},
                        {QStringLiteral("number"), number},
                        {QStringLiteral("size"), size},
                        {QStringLiteral("categories"), rows},
                        {QStringLiteral("failures"), QJsonArray()}}));
        return 0;
    }
    for (const QJsonValue &row : std::as_const(rows))
        CliCommands::printOut(
            QStringLiteral("  %1  %2 records  %3\n")
                .arg(TerminalText::escaped(row[QStringLiteral("title")].toString()), -28)
                .arg(row[QStringLiteral("number")].toInt())
                .arg(CliCommands::sizeText(row[QStringLiteral("size")].toInteger())));
    CliCommands::printOut(QStringLiteral("%1: %2 records, %3\n")
                              .arg(getLocalizedString(QStringLiteral("Cleaned")))
                              .arg(number)
                              .arg(CliCommands::sizeText(size)));
    return 0;
}
