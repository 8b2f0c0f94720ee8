#include "cleaner/clean/AutoCleanupClean.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cli/CliCommands.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QJsonArray>

int CliCommands::cleanAutoCleanup(const CleanOptions &o, const QList<int> &children)
{
    runAutoCleanupScan(children);
    QByteArray missing;
    if (!applySelection(o, children, &missing))
        return usage(QStringLiteral("the scan did not list \"%1\"")
                         .arg(TerminalText::escapedBytes(missing)));
    // A chosen selection decides alone what goes: every row's box is on.
    if (o.select != QLatin1String("default")) {
        for (Category &row : AppModuleService::categoriesOf(0))
            row.state = 1;
    }

    const QList<AutoCleanupClean::Child> cleanable = AutoCleanupClean::cleanableChildren();
    int number = 0;
    double size = 0;
    for (const AutoCleanupClean::Child &child : cleanable) {
        const auto [childSize, childNumber] =
            AppModuleService::calculateModuleSizeAndNumber(child.module);
        number += childNumber;
        size += childSize;
    }
    if (!cleanable.isEmpty() && !o.yes && !confirmed(number, size))
        return 1;

    QHash<int, int> runStatus; // by child module
    if (!cleanable.isEmpty()) {
        qsizetype pending = cleanable.size();
        SerialQueue queue(QStringLiteral("cli autoCleanup"));
        AutoCleanupClean::cleanChildren(
            queue, cleanable, [&](const AutoCleanupClean::Child &child, int status, int, qint64) {
                runStatus.insert(child.module, status);
                if (--pending == 0)
                    QCoreApplication::exit(0);
            });
        QCoreApplication::exec();
        queue.drain();
    }

    const Module &whole = AppModuleService::appModules()[0];
    QJsonArray records;
    bool failed = false;
    int wholeStatus = 999;
    int totalNumber = 0;
    qint64 totalSize = 0;
    for (const AutoCleanupClean::Child &child : cleanable) {
        const CleanReport report = cleanReport(child.module, runStatus.value(child.module));
        failed = failed || report.failed;
        if (runStatus.value(child.module) != 999)
            wholeStatus = runStatus.value(child.module);
        totalNumber += report.record[QStringLiteral("number")].toInt();
        totalSize += report.record[QStringLiteral("size")].toInteger();
        records.append(report.record);
        if (!o.json) {
            printOut(QStringLiteral("%1\n").arg(TerminalText::escaped(
                getLocalizedString(AppModuleService::appModules()[child.module].title))));
            printCleanReport(report.record);
        }
    }
    if (o.json) {
        printJson(QJsonDocument(QJsonObject{{QStringLiteral("module"), whole.title},
                                            {QStringLiteral("status"), wholeStatus},
                                            {QStringLiteral("number"), totalNumber},
                                            {QStringLiteral("size"), totalSize},
                                            {QStringLiteral("children"), records}}));
    } else {
        printOut(getLocalizedString(QStringLiteral("Total")) +
                 QStringLiteral(": %1 items, %2\n").arg(totalNumber).arg(sizeText(totalSize)));
    }
    return failed ? 2 : 0;
}
