#include "cli/CliCommands.h"

#include "cleaner/applications/KestalUninstallService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/ByteCount.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/FinderScans.h"
#include "cli/CliApplications.h"
#include "cli/CliEraser.h"
#include "cli/CliPrivacy.h"
#include "cli/CliUsage.h"
#include "cli/JsonOutput.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTextStream>
#include <cstdio>

void CliCommands::printOut(const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stdout);
}

void CliCommands::printJson(const QJsonDocument &document)
{
    const QByteArray text = TerminalText::json(document);
    std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
}

QString CliCommands::sizeText(qint64 bytes)
{
    return ByteCount::string(bytes);
}

int CliCommands::usage(const QString &reason)
{
    // One line: the reason may quote what was typed, escaped where it is made.
    std::fprintf(stderr, "brenlow-cli: %s (see brenlow-cli --help)\n",
                 reason.toLocal8Bit().constData());
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
            printOut(QStringLiteral("%1  %2  %3\n")
                         .arg(i, 2)
                         .arg(TerminalText::escaped(getLocalizedString(m.title)), -22)
                         .arg(TerminalText::escaped(getLocalizedString(m.description))));
        }
    }
    if (json)
        printJson(QJsonDocument(array));
    return 0;
}

int CliCommands::run(const QByteArrayList &arguments)
{
    if (arguments.isEmpty())
        return usage(QStringLiteral("no command given"));
    const QByteArray command = arguments.first();
    if (command == "--version" || command == "-V")
        return CliUsage::version();
    if (CliUsage::asksForHelp(arguments)) {
        printOut(CliUsage::help(command));
        return 0;
    }
    if (command.startsWith('-'))
        return usage(
            QStringLiteral("unknown option \"%1\"").arg(TerminalText::escapedBytes(command)));
    if (const QString option = CliUsage::unknownOption(command, arguments.mid(1));
        !option.isEmpty())
        return usage(
            QStringLiteral("%1: unknown option \"%2\"").arg(QString::fromLatin1(command), option));
    SwitchLanguageService::initUserLanguage();
    FinderScans::registerAll();
    KestalUninstallService::registerWithScanDriver();
    QStringList args;
    for (const QByteArray &a : arguments.mid(1))
        args.append(QString::fromLocal8Bit(a));
    if (command == "modules")
        return modules(args);
    // The privacy module's records are no files: its commands are its own.
    const bool privacy = CliPrivacy::namesPrivacy(arguments);
    if (command == "scan")
        return privacy ? CliPrivacy::scan(args) : scan(args);
    if (command == "clean")
        return privacy ? CliPrivacy::clean(arguments.mid(1)) : clean(arguments.mid(1));
    if (command == "status")
        return status(args);
    if (command == "shred")
        return CliEraser::shred(arguments.mid(1));
    if (command == "extract")
        return CliEraser::extract(arguments.mid(1));
    if (command == "extensions")
        return CliApplications::extensions(arguments.mid(1));
    return usage(QStringLiteral("unknown command \"%1\"").arg(TerminalText::escapedBytes(command)));
}
