#pragma once

// What the screenshot tools share: the main window as a user first sees it,
// and the wait that lets layouts and first draws settle before a picture.
#include "cleaner/core/UserDefaults.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/Workspace.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QTextStream>

namespace ScreenshotWindow {

inline void settleFor(int ms = 600)
{
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

inline void save(QWidget *widget, const QString &name)
{
    widget->grab().save(name, "PNG", 0);
    QTextStream(stdout) << name << '\n';
}

// The main window at the pictures' size; no page opens meanwhile.
inline QMainWindow *open(AppDelegate &delegate)
{
    Workspace::setOpenerForTesting([](const QUrl &) { return true; });
    UserDefaults::setValue(QStringLiteral("HasLaunchedOnce"), true);
    delegate.applicationDidFinishLaunching();
    QMainWindow *window = delegate.mainWindow();
    window->resize(1080, 680);
    return window;
}

} // namespace ScreenshotWindow
