// The window at scale: System Junk's scan of the home it is given, from the
// click on Scan to the result drawn; the first review drawn; the review
// drawn again after going back; a tick in the list of files; select all.
// Each step ends when its state is reached and the window has been painted
// and sent to the display server. Prints one "name milliseconds" line each.
//
//   HOME=... brenlow-bench-gui

#include "cleaner/core/UserDefaults.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
#include "cleaner/shell/Workspace.h"
#include "shell/ReviewClicks.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>
#include <cstdio>
#include <functional>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int systemJunk = 1;

QMainWindow *mainWindow()
{
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String("mainWindow") && w->isVisible())
            return qobject_cast<QMainWindow *>(w);
    }
    return nullptr;
}

// Runs the event loop as the program does until `done` holds, looking
// every millisecond.
void waitUntil(const std::function<bool()> &done)
{
    if (done())
        return;
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (done())
            loop.quit();
    });
    look.start(1);
    loop.exec();
}

// Runs the step, waits for its end, draws the window, and prints the time.
void measure(
    const char *name, QWidget *window, const std::function<void()> &step,
    const std::function<bool()> &done = [] { return true; })
{
    QElapsedTimer clock;
    clock.start();
    step();
    waitUntil(done);
    QCoreApplication::processEvents(); // what the step posted for the screen
    window->repaint();
    std::printf("%s %.1f\n", name, double(clock.nsecsElapsed()) / 1e6);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    Workspace::setOpenerForTesting([](const QUrl &) { return true; });
    UserDefaults::setValue(QStringLiteral("HasLaunchedOnce"), true);
    AppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    waitUntil([] { return mainWindow() && mainWindow()->isVisible(); });
    QMainWindow *window = mainWindow();
    KestalRootViewController *root = KestalRootViewController::rootOf(window);
    root->leftTable()->selectModule(systemJunk);
    KestalRightSplitController *right = root->rightSplit();
    KestalRightBottomViewController *bar = right->bottomSwitch()->barOfModule(systemJunk);
    KestalDetailViewController *review = right->topSwitch()->detail(systemJunk);
    const auto state = [bar] { return bar->status(); };
    QCoreApplication::processEvents();

    measure(
        "scan", window, [bar] { bar->overViewScanBtn()->click(); },
        [state] { return state() == viewStatus::scandone_NoEmpty; });
    measure("review", window, [bar] { bar->reviewBtn()->click(); });
    review->rightTopBackBtn()->click();
    QCoreApplication::processEvents();
    measure("review-again", window, [bar] { bar->reviewBtn()->click(); });

    QTreeView *files = review->rightOutlineView();
    const QModelIndex row = files->model()->index(3, 0);
    const QVariant before = row.data(Qt::CheckStateRole);
    const QPoint box = checkBoxCentre(files, row);
    measure("tick", window,
            [files, box] { QTest::mouseClick(files->viewport(), Qt::LeftButton, {}, box); });
    if (row.data(Qt::CheckStateRole) == before) {
        std::fprintf(stderr, "the click did not reach the row's box\n");
        return 1;
    }
    measure("select-all", window, [review] { review->updateAllDetailBtn()->click(); });
    std::printf("rows %d\n", review->fileModel()->rowCount());
    return 0;
}
