// Renders the main window to PNG files for the documentation and for review:
// each module's overview, in each language asked for.
//
//   brenlow-screenshots [--module TITLE] OUTPUT_DIR [LANGUAGE...]
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/UserDefaults.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/Workspace.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QTextStream>

namespace {

void settle()
{
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

QString fileStem(const QString &title)
{
    QString stem = title.toLower();
    stem.replace(QLatin1Char(' '), QLatin1Char('-'));
    return stem;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    QStringList args = QApplication::arguments().mid(1);
    QString only;
    if (args.size() >= 2 && args.first() == QLatin1String("--module")) {
        only = args.at(1);
        args = args.mid(2);
    }
    if (args.isEmpty()) {
        QTextStream(stderr)
            << "usage: brenlow-screenshots [--module TITLE] OUTPUT_DIR [LANGUAGE...]\n";
        return 1;
    }
    const QString out = args.first();
    const QStringList languages =
        args.size() > 1 ? args.mid(1) : QStringList{QStringLiteral("en"), QStringLiteral("ja")};
    QDir().mkpath(out);

    // No page opens while the pictures are made.
    Workspace::setOpenerForTesting([](const QUrl &) { return true; });
    UserDefaults::setValue(QStringLiteral("HasLaunchedOnce"), true);
    AppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    QMainWindow *window = delegate.mainWindow();
    window->resize(1080, 680);
    settle();
    KestalRootViewController *root = KestalRootViewController::rootOf(window);
    const qreal scale = window->devicePixelRatioF();
    const QString suffix = scale > 1.0 ? QStringLiteral("@%1x").arg(scale) : QString();

    const QList<Module> &modules = AppModuleService::appModules();
    for (const QString &language : languages) {
        if (QAction *item = delegate.languageItem(language))
            item->trigger();
        for (int moduleIndex : AppModuleService::leftListRows()) {
            if (modules.at(moduleIndex).isHeader() ||
                (!only.isEmpty() && modules.at(moduleIndex).title != only))
                continue;
            root->leftTable()->selectModule(moduleIndex);
            settle();
            const QString name =
                QStringLiteral("%1/%2-%3%4.png")
                    .arg(out, language, fileStem(modules.at(moduleIndex).title), suffix);
            window->grab().save(name, "PNG", 0); // smallest files
            QTextStream(stdout) << name << '\n';
        }
    }
    return 0;
}
