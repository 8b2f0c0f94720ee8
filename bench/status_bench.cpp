// The status panel's own cost: the panel open on a display, its views
// redrawn by their timers, and the process's CPU time over the period.
// Prints "<seconds> <cpu milliseconds> <percent of one core> <redraws>".
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/KestalGraphView.h"
#include "cleaner/shell/KestalStatusViewController.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <cstdio>
#include <sys/resource.h>

namespace {

double cpuMilliseconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return (usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000.0 +
           (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000.0;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const int seconds = argc > 1 ? QString::fromLatin1(argv[1]).toInt() : 60;
    SwitchLanguageService::initUserLanguage();
    KestalStatusViewController panel;
    panel.showBeside(QRect(1800, 0, 22, 22));
    double startCpu = 0;
    QElapsedTimer wall;
    int drawsBefore = 0;
    // Measure from the first drawn panel on, not the start-up.
    QTimer::singleShot(1000, [&] {
        startCpu = cpuMilliseconds();
        drawsBefore = panel.cpuView()->drawCount() + panel.memoryView()->drawCount() +
                      panel.diskView()->drawCount() + panel.batteryView()->drawCount();
        wall.start();
        QTimer::singleShot(seconds * 1000, [&] {
            const double cpu = cpuMilliseconds() - startCpu;
            const int draws = panel.cpuView()->drawCount() + panel.memoryView()->drawCount() +
                              panel.diskView()->drawCount() + panel.batteryView()->drawCount() -
                              drawsBefore;
            std::printf("%.1f %.1f %.3f %d\n", wall.elapsed() / 1000.0, cpu,
                        cpu / double(wall.elapsed()) * 100, draws);
            app.quit();
        });
    });
    return app.exec();
}
