#include "cli/CliCommands.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalService.h"
#include "cli/JsonOutput.h"
#include "cli/ProgressBar.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QTextStream>

#include <cstdio>

namespace {

void printOut(const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stdout);
}

QString sizeText(qint64 bytes)
{
    return QLocale::system().formattedDataSize(bytes);
}

void printCategory(const Category &c)
{
    printOut(QStringLiteral("  %1  %2  (%3 items, state %4)\n")
                 .arg(getLocalizedString(c.title), -28)
                 .arg(sizeText(c.size), 10)
                 .arg(c.files.size())
                 .arg(c.state));
    for (const FolderInfoPtr &f : c.files) {
        printOut(QStringLiteral("    [%1] %2  %3\n")
                     .arg(f->checked == 1 ? QStringLiteral("x") : f->checked == -1 ? QStringLiteral("-") : QStringLiteral(" "))
                     .arg(sizeText(f->size), 10)
                     .arg(QString::fromLocal8Bit(FolderInfo::pathBytes(f->url))));
    }
}

} // namespace

int CliCommands::usage(const QString &reason)
{
    std::fprintf(stderr, "brenlow-cli: %s\n", reason.toLocal8Bit().constData());
    std::fputs("usage: brenlow-cli modules [--json]\n"
               "       brenlow-cli scan MODULE [--json]\n",
               stderr);
    return 1;
}

int CliCommands::resolveModule(const QString &name)
{
    const QList<Module> &modules = AppModuleService::appModules();
    bool isNumber = false;
    const int index = name.toInt(&isNumber);
    if (isNumber)
        return index >= 0 && index < modules.size() && !modules[index].isHeader() ? index : -1;
    for (int i = 0; i < modules.size(); ++i) {
        if (modules[i].isHeader())
            continue;
        if (modules[i].title.compare(name, Qt::CaseInsensitive) == 0 ||
            getLocalizedString(modules[i].title).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return -1;
}

int CliCommands::modules(const QStringList &args)
{
    const bool json = args.contains(QStringLiteral("--json"));
    const QList<Module> &modules = AppModuleService::appModules();
    QJsonArray array;
    for (int i = 0; i < modules.size(); ++i) {
        const Module &m = modules[i];
        if (json) {
            QJsonObject o = JsonOutput::module(m, i);
            o.remove(QStringLiteral("categories"));
            o.insert(QStringLiteral("description"), m.description);
            array.append(o);
        } else if (!m.isHeader()) {
            printOut(QStringLiteral("%1  %2  %3\n").arg(i, 2).arg(getLocalizedString(m.title), -22)
                         .arg(getLocalizedString(m.description)));
        }
    }
    if (json)
        printOut(QString::fromUtf8(QJsonDocument(array).toJson()));
    return 0;
}

int CliCommands::scan(const QStringList &args)
{
    QStringList rest = args;
    const bool json = rest.removeAll(QStringLiteral("--json")) > 0;
    if (rest.size() != 1)
        return usage(QStringLiteral("scan takes one MODULE"));
    const int module = resolveModule(rest.first());
    if (module < 0)
        return usage(QStringLiteral("no module named \"%1\"").arg(rest.first()));

    const QList<Category> categories = AppModuleService::appModules()[module].categories.value_or(QList<Category>());
    if (categories.isEmpty()) {
        // A module with no categories of its own would scan forever.
        if (json)
            printOut(QString::fromUtf8(QJsonDocument(JsonOutput::module(AppModuleService::appModules()[module], module)).toJson()));
        else
            printOut(QStringLiteral("%1: nothing to scan\n").arg(getLocalizedString(AppModuleService::appModules()[module].title)));
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

int CliCommands::run(const QStringList &arguments)
{
    if (arguments.isEmpty())
        return usage(QStringLiteral("no command given"));
    SwitchLanguageService::initUserLanguage();
    const QString command = arguments.first();
    const QStringList args = arguments.mid(1);
    if (command == QLatin1String("modules"))
        return modules(args);
    if (command == QLatin1String("scan"))
        return scan(args);
    return usage(QStringLiteral("unknown command \"%1\"").arg(command));
}
