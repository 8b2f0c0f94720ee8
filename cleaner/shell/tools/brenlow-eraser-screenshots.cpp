// Renders the Eraser's list, its result and log, and the decompression
// window's two states to PNG files (scripts/eraser-screenshots), over the
// files of a folder the script made. The shred runs for real, through the
// service and the helper.
#include "cleaner/erasure/ShredService.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/DeconpressViewController.h"
#include "cleaner/shell/KestalEraserBottomController.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTabSwitchControllers.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/KestalShredTopDetailViewController.h"
#include "cleaner/shell/tools/ScreenshotSession.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QMessageBox>
#include <QProgressBar>
#include <QTextStream>
#include <QTimer>

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    if (argc < 3) {
        QTextStream(stderr) << "usage: brenlow-eraser-screenshots OUTPUT_DIR FILES_DIR\n";
        return 1;
    }
    const QString out = QString::fromLocal8Bit(argv[1]);
    const QDir files(QString::fromLocal8Bit(argv[2]));
    QDir().mkpath(out);
    ScreenshotSession session;
    QMainWindow *window = session.window;
    auto *root = KestalRootViewController::rootOf(window);
    root->leftTable()->selectModule(ShredService::moduleIndex);
    root->rightSplit()->showModule(ShredService::moduleIndex);
    auto *top = root->rightSplit()->topSwitch();
    QStringList paths;
    for (const QString &name :
         files.entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System))
        paths.append(files.filePath(name));
    top->shredList()->addPaths(paths);
    settleFor();
    save(window, out + QStringLiteral("/en-eraser-list.png"));

    // The confirmation is answered as a user would.
    QTimer confirm;
    QObject::connect(&confirm, &QTimer::timeout, [] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        for (QAbstractButton *button : box ? box->buttons() : QList<QAbstractButton *>()) {
            if (box->buttonRole(button) == QMessageBox::AcceptRole)
                return button->click();
        }
    });
    confirm.start(50);
    auto *bar = qobject_cast<KestalEraserBottomController *>(
        root->rightSplit()->bottomSwitch()->currentWidget());
    bar->detailViewCleanAction();
    waitUntil([bar] { return bar->status() == KestalSuperViewController::viewStatus::cleandone; },
              QStringLiteral("the shred"));
    settleFor();
    save(window, out + QStringLiteral("/en-eraser-clean-done.png"));
    bar->cleandoneViewShowLogAction();
    settleFor();
    save(window, out + QStringLiteral("/en-eraser-log.png"));

    DeconpressViewController *decompress = DeconpressViewController::shared();
    decompress->show();
    decompress->progressBar()->setValue(420);
    settleFor();
    save(decompress, out + QStringLiteral("/en-decompression-progress.png"));
    decompress->setView(true);
    settleFor();
    save(decompress, out + QStringLiteral("/en-decompression-password.png"));
    return 0;
}
