#pragma once

// What the finder screens' tests share: the folder dialog answered, and the
// configuration windows of the menu.
#include "ShellTestSupport.h"
#include "cleaner/finders/FinderScans.h"
#include "cleaner/shell/KestalWarnningAndErrorViewController.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QPointer>

// Settings of the test's own, the finders' scans registered, and no service:
// the finders scan in the window's own process.
inline void prepareFinderScreens()
{
    isolateUserSettings();
    FinderScans::registerAll();
    qputenv("BRENLOW_SERVICE_PATH", "/nonexistent/brenlow-service");
}

// Chooses `folder` in the next folder dialog.
inline void answerNextFolderDialog(const QString &folder)
{
    answerNextModal<QFileDialog>([folder](QFileDialog *dialog) {
        dialog->setDirectory(folder);
        static_cast<QDialog *>(dialog)->accept(); // the dialog's own accept, as OK does
    });
}

// Triggers a menu entry twice: the one window it opens, or null when it
// opened none or a second one.
template <class Window> QPointer<Window> openOneWindow(QAction *entry)
{
    entry->trigger();
    entry->trigger(); // the open window comes to the front
    QList<Window *> open;
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (auto *window = qobject_cast<Window *>(w))
            open.append(window);
    }
    return open.size() == 1 && open.first()->isVisible() ? open.first() : nullptr;
}

// The warning over `window`, closed; its text, or a null string without one.
inline QString closeWarning(QWidget *window)
{
    auto *alert = window->findChild<KestalWarnningAndErrorViewController *>();
    if (!alert || !alert->isVisible())
        return {};
    const QString text = alert->descriptionLabel()->text();
    alert->okAction();
    return text;
}
