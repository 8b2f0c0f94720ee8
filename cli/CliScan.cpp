#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/KestalService.h"
#include "cli/CliCommands.h"
#include "cli/JsonOutput.h"
#include "cli/ProgressBar.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

// The child modules that module 0's categories name, in their order.
QList<int> autoCleanupChildren()
{
    QList<int> children;
    for (const Category &c : KestalAutoCleanupService::categories().value_or(QList<Category>())) {
        const int module = KestalAutoCleanupService::childModuleIndex(c.title);
        if (module >= 0 && module < AppModuleService::appModules().size())
            children << module;
    }
    return children;
}

// Module 0 scans its children at once; each is printed as a module.
int scanAutoCleanup(const QList<int> &children, bool json)
{
    int pending = 0;
    for (int module : children) {
        // A child without categories never reports; it is not waited for.
        if (!AppModuleService::appModules()[module]
                 .categories.value_or(QList<Category>())
                 .isEmpty())
            ++pending;
    }
    if (pending > 0) {
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
        bar.finish();
    }

    const QList<Module> &modules = AppModuleService::appModules();
    if (json) {
        QJsonObject whole = JsonOutput::module(modules[0], 0);
        QJsonArray array;
        for (int module : std::as_const(children))
            array.append(JsonOutput::module(modules[module], module));
        whole.insert(QStringLiteral("children"), array);
        CliCommands::printOut(QString::fromUtf8(QJsonDocument(whole).toJson()));
        return 0;
    }
    qint64 sum = 0;
    CliCommands::printOut(QStringLiteral("%1\n").arg(getLocalizedString(modules[0].title)));
    for (int module : std::as_const(children)) {
        CliCommands::printOut(
            QStringLiteral("\n%1\n").arg(getLocalizedString(modules[module].title)));
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

void CliCommands::printCategory(const Category &c)
{
    printOut(QStringLiteral("  %1  %2  (%3 items, state %4)\n")
                 .arg(getLocalizedString(c.title), -28)
                 .arg(sizeText(c.size), 10)
                 .arg(c.files.size())
                 .arg(c.state));
    for (const FolderInfoPtr &f : c.files) {
        printOut(QStringLiteral("    [%1] %2  %3\n")
                     .arg(f->checked == 1    ? QStringLiteral("x")
                          : f->checked == -1 ? QStringLiteral("-")
                                             : QStringLiteral(" "))
                     .arg(sizeText(f->size), 10)
                     .arg(QString::fromLocal8Bit(FolderInfo::pathBytes(f->url))));
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
        return usage(QStringLiteral("no module named \"%1\"").arg(rest.first()));
    if (!applyFinderOptions(module, finderOptions, &error))
        return usage(error);
    if (KestalService::hasOwnScan(module)) {
        if (!runFinderScan(module))
            return usage(QStringLiteral("module \"%1\" has nothing to scan").arg(rest.first()));
        return printModule(module, json);
    }
    // Module 0 is Auto Cleanup when its categories name child modules.
    if (const QList<int> children = autoCleanupChildren(); module == 0 && !children.isEmpty())
        return scanAutoCleanup(children, json);

    const QList<Category> categories =
        AppModuleService::appModules()[module].categories.value_or(QList<Category>());
    if (categories.isEmpty()) {
        // A module with no categories of its own would scan forever.
        if (json)
            printOut(QString::fromUtf8(
                QJsonDocument(JsonOutput::module(AppModuleService::appModules()[module], module))
                    .toJson()));
        else
            printOut(QStringLiteral("%1: nothing to scan\n")
                         .arg(getLocalizedString(AppModuleService::appModules()[module].title)));
        return 0;
    }

    ProgressBar bar;
    qint64 seen = 0;
    const int count = int(categories.size());
    KestalService::scan(
        module,
        [&](const QString &path, qint64 size) {
            seen += size;
            bar.update(double(KestalService::scanningPercent().value(module)), seen, path);
        },
        [&](float percent) { Q_UNUSED(percent); },
        [&](int ci) {
            KestalService::scanningPercent()[module] = float(ci + 1) / float(count);
            bar.update(double(ci + 1) / count, seen, QString());
            if (ci + 1 == count)
                QCoreApplication::exit(0);
        });
    QCoreApplication::exec();
    bar.finish();
    return printModule(module, json);
}

int CliCommands::printModule(int module, bool json)
{
    const Module &m = AppModuleService::appModules()[module];
    if (json) {
        printOut(QString::fromUtf8(QJsonDocument(JsonOutput::module(m, module)).toJson()));
        return 0;
    }
    qint64 total = 0;
    printOut(QStringLiteral("%1\n").arg(getLocalizedString(m.title)));
    for (const Category &c : m.categories.value_or(QList<Category>())) {
        printCategory(c);
        total += c.size;
    }
    printOut(QStringLiteral("Total: %1\n").arg(sizeText(total)));
    return 0;
}
