#include "cli/CliApplications.h"

#include "cleaner/applications/ExtensionsFolderInfo.h"
#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/ExtensionToggle.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/UninstallService.h"
#include "cli/CliCommands.h"
#include "cli/JsonOutput.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <unistd.h>

bool CliApplications::selectApplications(const QByteArrayList &names, QByteArray *missing)
{
    constexpr int module = UninstallService::moduleIndex;
    QList<Category> &apps = AppModuleService::categoriesOf(module);
    for (int ci = 0; ci < apps.size(); ++ci) {
        AppModuleService::updateState(0, module, ci, -1, -1);
        AppModuleService::updateState(0, module, ci, std::nullopt, std::nullopt);
    }
    for (const QByteArray &name : names) {
        bool found = false;
        for (int ci = 0; ci < apps.size(); ++ci) {
            if (apps[ci].files.isEmpty())
                continue;
            const QByteArray path = FolderInfo::pathBytes(apps[ci].files.first()->url);
            const QByteArray file = path.mid(path.lastIndexOf('/') + 1);
            if (apps[ci].title.compare(QString::fromLocal8Bit(name), Qt::CaseInsensitive) != 0 &&
                file != name && path != name)
                continue;
            AppModuleService::updateState(1, module, ci, -1, -1);
            AppModuleService::updateState(1, module, ci, std::nullopt, std::nullopt);
            found = true;
        }
        if (!found) {
            *missing = name;
            return false;
        }
    }
    return true;
}

int CliApplications::scanExtensions(bool json)
{
    constexpr int module = ExtensionsFolderInfo::moduleIndex;
    CliCommands::runScan(module);
    const Module &m = AppModuleService::appModules()[module];
    if (json) {
        QJsonObject whole = JsonOutput::module(m, module);
        QJsonArray categories;
        for (const Category &c : m.categories.value_or(QList<Category>())) {
            QJsonObject category = JsonOutput::category(c);
            QJsonArray files;
            for (const FolderInfoPtr &f : c.files) {
                QJsonObject row = JsonOutput::node(*f);
                row.insert(QStringLiteral("enabled"), ExtensionsFolderInfo::isEnabled(f->url));
                files.append(row);
            }
            category.insert(QStringLiteral("files"), files);
            categories.append(category);
        }
        whole.insert(QStringLiteral("categories"), categories);
        CliCommands::printJson(QJsonDocument(whole));
        return 0;
    }
    CliCommands::printOut(TerminalText::escaped(getLocalizedString(m.title)) + QLatin1Char('\n'));
    for (const Category &c : m.categories.value_or(QList<Category>())) {
        CliCommands::printOut(QStringLiteral("  %1  (%2 items)\n")
                                  .arg(TerminalText::escaped(getLocalizedString(c.title)))
                                  .arg(c.files.size()));
        for (const FolderInfoPtr &f : c.files)
            CliCommands::printOut(
                QStringLiteral("    %1  %2\n")
                    .arg(ExtensionsFolderInfo::isEnabled(f->url) ? QStringLiteral("on ")
                                                                 : QStringLiteral("off"))
                    .arg(TerminalText::escapedBytes(FolderInfo::pathBytes(f->url))));
    }
    return 0;
}

int CliApplications::extensions(const QByteArrayList &args)
{
    if (args.size() != 2 || args.first() != "toggle")
        return CliCommands::usage(QStringLiteral("extensions takes: toggle PATH"));
    QByteArray path = args[1];
    if (!path.startsWith('/')) {
        char here[4096];
        path = QByteArray(getcwd(here, sizeof here) ? here : "/") + '/' + path;
    }
    const auto values = ResourceValues::read(path);
    if (!values)
        return CliCommands::usage(
            QStringLiteral("\"%1\" cannot be read").arg(TerminalText::escapedBytes(args[1])));
    int status = 0;
    ExtensionToggle::moveFile(values->path, values->identity, 0, 0, [&status](int s) {
        status = s;
        QCoreApplication::exit(0);
    });
    QCoreApplication::exec();
    if (status == 1) {
        CliCommands::printOut(QStringLiteral("%1\n").arg(
            ExtensionsFolderInfo::isEnabled(FolderInfo::urlFromPath(path))
                ? getLocalizedString(QStringLiteral("Switched off"))
                : getLocalizedString(QStringLiteral("Switched on"))));
        return 0;
    }
    std::fprintf(
        stderr, "brenlow-cli: %s: %s\n", TerminalText::escapedBytes(path).toLocal8Bit().constData(),
        (status == -2 ? installFailureReason(ExtensionsFolderInfo::moduleIndex)
                      : getLocalizedString(QStringLiteral(
                            "The helper refused to move it: it lies in none of the extension "
                            "folders, or an item of its name is already where it would go")))
            .toLocal8Bit()
            .constData());
    return 2;
}
