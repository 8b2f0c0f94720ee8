// Renders the main window to PNG files for the documentation and for review:
// each module's overview, in each language asked for; with --workflow, the
// states of System Junk and Auto Cleanup from scan to log, over whatever the
// home and root hold (scripts/screenshots builds a tree for them); with
// --privacy, the privacy module's states over the browsers' stores in the
// home (scripts/privacy-screenshots).
// --applications, the extensions' result and review, and the offer made when
// an application of ~/Applications is thrown into the Trash; --uninstaller,
// the uninstaller's states from scan to log (scripts/applications-screenshots).
//
//   brenlow-screenshots [--module TITLE | --workflow | --privacy | --applications |
//                        --uninstaller] OUTPUT_DIR [LANGUAGE...]
#include "cleaner/applications/ApplicationPlaces.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/UserDefaults.h"
#include "cleaner/privacy/PrivacyService.h"
#include "cleaner/scan/UninstallService.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/KestalDetailViewController.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
#include "cleaner/shell/tools/ScreenshotSession.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QMainWindow>
#include <QPushButton>
#include <QTextStream>
#include <QTreeWidget>
#include <functional>

namespace {

QString fileStem(const QString &title)
{
    QString stem = title.toLower();
    stem.replace(QLatin1Char(' '), QLatin1Char('-'));
    return stem;
}

using viewStatus = KestalSuperViewController::viewStatus;

// The last item of the first category stays out.
void untickLastFile(KestalDetailViewController *review)
{
    QAbstractItemModel *files = review->fileModel();
    if (files->rowCount() > 1)
        files->setData(files->index(files->rowCount() - 1, 0), Qt::Unchecked, Qt::CheckStateRole);
}

// Chrome ticked whole but for its logins and one visit, and one of Firefox's cookies.
void tickBrowserRecords(KestalDetailViewController *review)
{
    QAbstractItemModel *browsers = review->categoryModel();
    KestalTopDetailRigthOutlineView *groups = review->fileModel();
    const auto group = [groups](const QString &title) {
        for (int row = 0; row < groups->rowCount(); ++row) {
            const QModelIndex index = groups->index(row, 0);
            if (groups->fileAt(index) && groups->fileAt(index)->name == title)
                return index;
        }
        return QModelIndex();
    };
    review->leftCategoryTableView()->setCurrentIndex(browsers->index(1, 0));
    groups->setData(groups->index(0, 0, group(QStringLiteral("Cookies"))), Qt::Checked,
                    Qt::CheckStateRole);
    review->leftCategoryTableView()->setCurrentIndex(browsers->index(0, 0));
    browsers->setData(browsers->index(0, 0), Qt::Checked, Qt::CheckStateRole);
    groups->setData(group(QStringLiteral("Login History")), Qt::Unchecked, Qt::CheckStateRole);
    const QModelIndex visits = group(QStringLiteral("Visit History"));
    review->rightOutlineView()->expand(visits);
    groups->setData(groups->index(0, 0, visits), Qt::Unchecked, Qt::CheckStateRole);
}

// The first application by name goes, but for its smallest item.
void tickFirstApplication(KestalDetailViewController *review)
{
    review->categorySort(QStringLiteral("ascending"), QStringLiteral("name"));
    QAbstractItemModel *apps = review->categoryModel();
    apps->setData(apps->index(0, 0), Qt::Checked, Qt::CheckStateRole);
    review->leftCategoryTableView()->setCurrentIndex(apps->index(0, 0));
    review->sort(QStringLiteral("descending"), QStringLiteral("size"));
    untickLastFile(review);
}

class WorkflowShots {
public:
    WorkflowShots(QMainWindow *window, KestalRootViewController *root, QString out,
                  QString language, QString suffix)
        : m_window(window), m_root(root), m_out(std::move(out)), m_language(std::move(language)),
          m_suffix(std::move(suffix))
    {}

    // The window as it stands; `now` takes it before the event loop runs, so
    // that a scan's or a clean's first reports do not end the state first.
    void shoot(const QString &stem, bool now = false, QWidget *widget = nullptr)
    {
        if (!now)
            settle();
        const QString name =
            QStringLiteral("%1/%2-%3%4.png").arg(m_out, m_language, stem, m_suffix);
        save(widget ? widget : m_window, name);
    }

    // Scanning, result, a review with the selection that `select` makes,
    // cleaning, clean done and the log of what stayed.
    void run(int module, const QString &stem,
             const std::function<void(KestalDetailViewController *)> &select = untickLastFile)
    {
        const QString tab = AppModuleService::appModules().at(module).tab;
        KestalRightSplitController *right = m_root->rightSplit();
        KestalRightBottomViewController *bar = right->bottomSwitch()->barOfModule(module);
        m_root->leftTable()->selectModule(module);
        bar->overViewScanBtn()->click();
        shoot(stem + QStringLiteral("-scanning"), true);
        if (!waitFor(tab, viewStatus::scandone_NoEmpty))
            return;
        shoot(stem + QStringLiteral("-scan-done"));
        if (module != 0) {
            bar->reviewBtn()->click();
            select(right->topSwitch()->detail(module));
            shoot(stem + QStringLiteral("-review"));
            // The item named "vanished" goes before the clean comes to it.
            QDir(QDir::home().filePath(QStringLiteral(".cache/vanished"))).removeRecursively();
            confirmNextQuestion();
            bar->detailViewBtn()->click();
        } else {
            confirmNextQuestion();
            bar->scandoneViewBtn()->click();
        }
        shoot(stem + QStringLiteral("-cleaning"), true);
        if (!waitFor(tab, viewStatus::cleandone))
            return;
        settle();
        if (auto *warning = qobject_cast<QDialog *>(QApplication::activeModalWidget())) {
            QTextStream(stdout) << "closing the warning: " << warning->objectName() << '\n';
            shoot(stem + QStringLiteral("-warning"), false, warning);
            warning->accept();
        }
        shoot(stem + QStringLiteral("-clean-done"));
        bar->cleandoneViewBtn()->click();
        shoot(stem + QStringLiteral("-log"));
    }

    // The extensions' result and review; then the offer for an application
    // thrown into the Trash (a dialog where no notification server answers).
    void applications()
    {
        constexpr int extensions = 12;
        const QString tab = AppModuleService::appModules().at(extensions).tab;
        KestalRightSplitController *right = m_root->rightSplit();
        KestalRightBottomViewController *bar = right->bottomSwitch()->barOfModule(extensions);
        m_root->leftTable()->selectModule(extensions);
        bar->overViewScanBtn()->click();
        if (!waitFor(tab, viewStatus::scandone_NoEmpty))
            return;
        shoot(QStringLiteral("extensions-scan-done"));
        bar->reviewBtn()->click();
        shoot(QStringLiteral("extensions-review"));

        const QString app = QDir::home().filePath(QStringLiteral("Applications/Tool-1.2.AppImage"));
        QDir().mkpath(ApplicationPlaces::trashItemsFolder());
        QDir().mkpath(Platform::trashPath() + QStringLiteral("/info"));
        QFile info(Platform::trashPath() + QStringLiteral("/info/Tool-1.2.AppImage.trashinfo"));
        if (info.open(QIODevice::WriteOnly))
            info.write("[Trash Info]\nPath=" + QFile::encodeName(app) + "\n");
        info.close();
        QDir().rename(app,
                      ApplicationPlaces::trashItemsFolder() + QStringLiteral("/Tool-1.2.AppImage"));
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < 20000) {
            for (QWidget *top : QApplication::topLevelWidgets()) {
                if (top->objectName() == QLatin1String("trashOffer") && top->isVisible()) {
                    settle();
                    shoot(QStringLiteral("trash-offer"), false, top);
                    top->close();
                    return;
                }
            }
            QApplication::processEvents();
            QThread::msleep(5);
        }
        QTextStream(stderr) << "the Trash offer never came\n";
    }

private:
    QMainWindow *m_window;
    KestalRootViewController *m_root;
    QString m_out;
    QString m_language;
    QString m_suffix;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    QStringList args = QApplication::arguments().mid(1);
    QString only;
    bool workflow = false;
    bool privacy = false;
    bool uninstaller = false;
    bool applications = false;
    if (!args.isEmpty() && (args.first() == QLatin1String("--workflow") ||
                            args.first() == QLatin1String("--privacy") ||
                            args.first() == QLatin1String("--uninstaller"))) {
        workflow = args.first() == QLatin1String("--workflow");
        uninstaller = args.first() == QLatin1String("--uninstaller");
        privacy = !workflow && !uninstaller;
        args = args.mid(1);
    } else if (!args.isEmpty() && args.first() == QLatin1String("--applications")) {
        applications = true;
        args = args.mid(1);
    } else if (args.size() >= 2 && args.first() == QLatin1String("--module")) {
        only = args.at(1);
        args = args.mid(2);
    }
    if (args.isEmpty()) {
        QTextStream(stderr)
            << "usage: brenlow-screenshots [--module TITLE | --workflow | --privacy | "
               "--applications | --uninstaller] OUTPUT_DIR [LANGUAGE...]\n";
        return 1;
    }
    const QString out = args.first();
    const QStringList languages =
        args.size() > 1 ? args.mid(1) : QStringList{QStringLiteral("en"), QStringLiteral("ja")};
    QDir().mkpath(out);

    ScreenshotSession session;
    AppDelegate &delegate = session.delegate;
    QMainWindow *window = session.window;
    settle();
    KestalRootViewController *root = KestalRootViewController::rootOf(window);
    const qreal scale = window->devicePixelRatioF();
    const QString suffix = scale > 1.0 ? QStringLiteral("@%1x").arg(scale) : QString();

    const QList<Module> &modules = AppModuleService::appModules();
    if (applications) {
        if (QAction *item = delegate.languageItem(languages.first()))
            item->trigger();
        WorkflowShots(window, root, out, languages.first(), suffix).applications();
        return 0;
    }
    if (workflow || privacy || uninstaller) {
        // One language a run: a clean changes the tree the next one would see.
        if (QAction *item = delegate.languageItem(languages.first()))
            item->trigger();
        WorkflowShots shots(window, root, out, languages.first(), suffix);
        if (privacy) {
            shots.run(PrivacyService::moduleIndex, QStringLiteral("privacy"), tickBrowserRecords);
            return 0;
        }
        if (uninstaller) {
            shots.run(UninstallService::moduleIndex, QStringLiteral("uninstaller"),
                      tickFirstApplication);
            return 0;
        }
        shots.run(1, QStringLiteral("system-junk"));
        shots.run(0, QStringLiteral("auto-cleanup"));
        return 0;
    }
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
