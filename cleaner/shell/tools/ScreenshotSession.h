#pragma once

// What the screenshot tools share: a launched program with its main window
// at the pictures' size, no page opening meanwhile, the event loop run until
// a module's state or a question comes or until first draws settle, and the
// picture itself.
#include "cleaner/core/UserDefaults.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/KestalSuperViewController.h"
#include "cleaner/shell/Workspace.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>
#include <QTextStream>
#include <QThread>
#include <QTimer>
#include <functional>

class ScreenshotSession {
public:
    ScreenshotSession()
    {
        Workspace::setOpenerForTesting([](const QUrl &) { return true; });
        UserDefaults::setValue(QStringLiteral("HasLaunchedOnce"), true);
        delegate.applicationDidFinishLaunching();
        window = delegate.mainWindow();
        window->resize(1080, 680);
    }

    AppDelegate delegate;
    QMainWindow *window = nullptr;
};

inline void settle()
{
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

// Longer: lets layouts, timers' first draws and the window manager settle.
inline void settleFor(int ms = 600)
{
    QElapsedTimer t;
    t.start();
    while (t.elapsed() < ms)
        QApplication::processEvents(QEventLoop::AllEvents, 50);
}

// The widget as a PNG (smallest files), its name on standard output.
inline void save(QWidget *widget, const QString &name)
{
    widget->grab().save(name, "PNG", 0);
    QTextStream(stdout) << name << '\n';
}

// Runs the event loop until the test holds, for a minute at most.
inline bool waitUntil(const std::function<bool()> &test, const QString &what)
{
    QElapsedTimer waited;
    waited.start();
    while (waited.elapsed() < 60000) {
        if (test())
            return true;
        QApplication::processEvents();
        QThread::msleep(5);
    }
    QTextStream(stderr) << what << ": the state never came\n";
    return false;
}

inline bool waitFor(const QString &tab, KestalSuperViewController::viewStatus status)
{
    return waitUntil([&] { return KestalSuperViewController::currentStatus(tab) == status; }, tab);
}

// Presses the default button of the next question the screens ask.
inline void confirmNextQuestion()
{
    auto *poll = new QTimer;
    poll->setInterval(5);
    QObject::connect(poll, &QTimer::timeout, poll, [poll] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            poll->deleteLater();
            box->defaultButton()->click();
        }
    });
    poll->start();
}
