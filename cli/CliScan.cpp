#include "cleaner/applications/ExtensionsFolderInfo.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/KestalService.h"
#include "cli/CliApplications.h"
#include "cli/CliCommands.h"
#include "cli/JsonOutput.h"
#include "cli/ProgressBar.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QThreadPool>

namespace {

// The task of a scan may still ask the main thread for one more read after
// its last report: serve it, or leaving would wait for that task for ever.
void finishScanTasks()
{
    while (!QThreadPool::globalInstance()->waitForDone(10))
        QCoreApplication::processEvents();
}

// Module 0 scans its children at once; each is printed as a module.
int scanAutoCleanup(const QList<int> &children, bool json)
{
    CliCommands::runAutoCleanupScan(children);
    const QList<Module> &modules = AppModuleService::appModules();
    if (json) {
        QJsonObject whole = JsonOutput::module(modules[0], 0);
        QJsonArray array;
        for (int module : std::as_const(children))
            array.append(JsonOutput::module(modules[module], module));
        whole.insert(QStringLiteral("children"), array);
        CliCommands::printJson(QJsonDocument(whole));
        return 0;
    }
    qint64 sum = 0;
    CliCommands::printOut(
        QStringLiteral("%1\n").arg(TerminalText::escaped(getLocalizedString(modules[0].title))));
    for (int module : std::as_const(children)) {
        CliCommands::printOut(QStringLiteral("\n%1\n").arg(
            TerminalText::escaped(getLocalizedString(modules[module].title))));
        for (const Category &c : modules[module].categories.value_or(QList<Category>())) {
            CliCommands::printCategory(c);
            sum += c.size;
        }
    }
    CliCommands::printOut(getLocalizedString(QStringLiteral("Total")) +
                          QStringLiteral(": %1\n").arg(CliCommands::sizeText(sum)));
    return 0;
}

} // namespace

QList<int> CliCommands::autoCleanupChildren()
{
    QList<int> children;
    for (const Category &c : KestalAutoCleanupService::categories().value_or(QList<Category>())) {
        const int module = KestalAutoCleanupService::childModuleIndex(c.title);
        if (module >= 0 && module < AppModuleService::appModules().size())
            children << module;
    }
    return children;
}

void CliCommands::runAutoCleanupScan(const QList<int> &children)
{
    int pending = 0;
    for (int module : children) {
        // A child without categories never reports; it is not waited for.
        if (!AppModuleService::appModules()[module]
                 .categories.value_or(QList<Category>())
                 .isEmpty())
            ++pending;
    }
    if (pending == 0)
        return;
    ProgressBar bar;
    qint64 seen = 0;
    float percent = 0;
    const int total = pending;
    KestalAutoCleanupService::scanAutoCleanup(
        [&](const QString &path, qint64 size, int) {
            seen += size;
            bar.update(double(percent) / total, seen, path);
        },
        [&](int, float) {},
        [&](int n, int, bool finished) {
            if (!finished || n < 0)
                return;
            percent += 1;
            bar.update(double(percent) / total, seen, QString());
            if (--pending == 0)
                QCoreApplication::exit(0);
        });
    QCoreApplication::exec();
    finishScanTasks();
    bar.finish();
}

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
    finishScanTasks();
    bar.finish();
    return true;
}

void CliCommands::printCategory(const Category &c)
{
    printOut(QStringLiteral("  %1  %2  (%3 items, state %4)\n")
                 .arg(TerminalText::escaped(getLocalizedString(c.title)), -28)
                 .arg(sizeText(c.size), 10)
                 .arg(c.files.size())
                 .arg(c.state));
    for (const FolderInfoPtr &f : c.files) {
        printOut(QStringLiteral("    [%1] %2  %3\n")
                     .arg(f->checked == 1    ? QStringLiteral("x")
                          : f->checked == -1 ? QStringLiteral("-")
                                             : QStringLiteral(" "))
                     .arg(sizeText(f->size), 10)
                     .arg(TerminalText::escapedBytes(FolderInfo::pathBytes(f->url))));
    }
}

int CliCommands::scan(const QStringList &args)
{
    QStringList rest = args;
    const bool json = rest.removeAll(QStringLiteral("--json")) > 0;
    FinderOptions finderOptions;
    QString error;
    if (!takeFinderOptions(rest, &finderOptions, &error))
        return usage(error);
    if (rest.size() != 1)
        return usage(QStringLiteral("scan takes one MODULE"));
    const int module = resolveModule(rest.first());
    if (module < 0)
        return usage(
            QStringLiteral("no module named \"%1\"").arg(TerminalText::escaped(rest.first())));
    if (!applyFinderOptions(module, finderOptions, &error))
        return usage(error);
    if (module == ExtensionsFolderInfo::moduleIndex)
        return CliApplications::scanExtensions(json);
    // Module 0 is Auto Cleanup when its categories name child modules.
    if (const QList<int> children = autoCleanupChildren(); module == 0 && !children.isEmpty())
        return scanAutoCleanup(children, json);

    const QList<Category> categories =
        AppModuleService::appModules()[module].categories.value_or(QList<Category>());
    // The duplicate finder makes its categories; the others scan into theirs.
    if (categories.isEmpty() && !KestalService::hasOwnScan(module)) {
        // A module with no categories of its own would scan forever.
        if (json)
            printJson(
                QJsonDocument(JsonOutput::module(AppModuleService::appModules()[module], module)));
        else
            printOut(QStringLiteral("%1: nothing to scan\n")
                         .arg(TerminalText::escaped(
                             getLocalizedString(AppModuleService::appModules()[module].title))));
        return 0;
    }

    runScan(module);

    const Module &m = AppModuleService::appModules()[module];
    if (json) {
        printJson(QJsonDocument(JsonOutput::module(m, module)));
        return 0;
    }
    qint64 total = 0;
    printOut(QStringLiteral("%1\n").arg(TerminalText::escaped(getLocalizedString(m.title))));
    for (const Category &c : m.categories.value_or(QList<Category>())) {
        printCategory(c);
        total += c.size;
    }
    printOut(QStringLiteral("Total: %1\n").arg(sizeText(total)));
    return 0;
}
