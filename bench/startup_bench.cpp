// Start-up to the first drawn window. The program starts as `brenlow` does
// (the same three steps of main.cpp over the same library), and when the
// first window's first frame has gone to the display server it prints the
// monotonic clock in nanoseconds and quits. The caller takes the clock just
// before it starts the process, so the figure includes loading the program.
//
//   brenlow-bench-startup brenlow | bare
//
// `bare` shows an empty window of the same size: the floor that any Qt
// Widgets program pays on this machine.

#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/Workspace.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <ctime>
#include <memory>

namespace {

// Waits for the first paint of any window; the frame is flushed in the same
// pass, so a zero timer fires once it has gone out.
class FirstFrame : public QObject {
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *widget = qobject_cast<QWidget *>(watched);
        if (!m_seen && event->type() == QEvent::Paint && widget && widget->window()->isVisible()) {
            m_seen = true;
            QTimer::singleShot(0, [] {
                timespec now{};
                clock_gettime(CLOCK_MONOTONIC, &now);
                std::printf("%lld\n",
                            static_cast<long long>(now.tv_sec) * 1000000000LL + now.tv_nsec);
                std::fflush(stdout);
                QApplication::exit(0);
            });
        }
        return false;
    }

private:
    bool m_seen = false;
};

} // namespace

int main(int argc, char *argv[])
{
    const bool bare = argc > 1 && qstrcmp(argv[1], "bare") == 0;
    QApplication application(argc, argv);
    FirstFrame probe;
    application.installEventFilter(&probe);

    std::unique_ptr<QWidget> window;
    std::unique_ptr<AppDelegate> delegate;
    if (bare) {
        window = std::make_unique<QWidget>();
        window->resize(1080, 680);
        window->show();
    } else {
        QApplication::setApplicationName(QStringLiteral("Brenlow"));
        QApplication::setDesktopFileName(QStringLiteral("brenlow"));
        // A first launch opens the installation page in the browser; the
        // browser's start is not Brenlow's.
        Workspace::setOpenerForTesting([](const QUrl &) { return true; });
        delegate = std::make_unique<AppDelegate>();
        delegate->applicationDidFinishLaunching();
    }
    return application.exec();
}
