// Renders the tray's status panel and Auto Cleanup's dashboard to PNG files
// (scripts/status-screenshots), over this machine's figures.
#include "cleaner/shell/KestalStatusViewController.h"
#include "cleaner/shell/tools/ScreenshotSession.h"

#include <QDir>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    if (argc < 2) {
        QTextStream(stderr) << "usage: brenlow-status-screenshots OUTPUT_DIR\n";
        return 1;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    QDir().mkpath(out);
    ScreenshotSession session;
    QMainWindow *window = session.window;
    settleFor();
    save(window, out + QStringLiteral("/en-auto-cleanup-dashboard.png"));

    KestalStatusViewController panel;
    panel.showBeside(QRect(900, 0, 22, 22));
    settleFor();
    save(&panel, out + QStringLiteral("/en-status-panel.png"));
    return 0;
}
