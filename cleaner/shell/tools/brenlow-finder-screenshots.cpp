// Renders the duplicate and the large-and-old screens to PNG files, from the
// overview through the scan, the review, the clean and the log, over whatever
// the home holds (scripts/finder-screenshots builds a tree for them).
//
//   brenlow-finder-screenshots OUTPUT_DIR LANGUAGE
#include "cleaner/core/AppModuleService.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/shell/KestalDuplicateConfigurationWindowController.h"
#include "cleaner/shell/KestalFinderDetailViewControllers.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
#include "cleaner/shell/tools/ScreenshotSession.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QMainWindow>
#include <QTextStream>

namespace {

using viewStatus = KestalSuperViewController::viewStatus;

bool waitForModule(int module, viewStatus status)
{
    return waitFor(AppModuleService::appModules().at(module).tab, status);
}

// Ticks the file at `row` of the category on show.
void tick(KestalDetailViewController *review, int row)
{
    QAbstractItemModel *files = review->fileModel();
    if (row < files->rowCount())
        files->setData(files->index(row, 0), Qt::Checked, Qt::CheckStateRole);
}

class FinderShots {
public:
    FinderShots(QMainWindow *window, KestalRootViewController *root, QString out, QString language)
        : m_window(window), m_root(root), m_out(std::move(out)), m_language(std::move(language))
    {}

    void shoot(const QString &stem, bool now = false, QWidget *widget = nullptr)
    {
        if (!now)
            settle();
        const QString name = QStringLiteral("%1/%2-%3.png").arg(m_out, m_language, stem);
        save(widget ? widget : m_window, name);
    }

    // Overview, scan, result, the review of one kind with a copy ticked,
    // clean done and log; then the configuration window.
    void duplicates()
    {
        const int module = DuplicateService::moduleIndex;
        KestalRightBottomViewController *bar = barOf(module);
        m_root->leftTable()->selectModule(module);
        shoot(QStringLiteral("duplicates-overview"));
        scanAndOpenReview(module, QStringLiteral("duplicates"));
        auto *review = qobject_cast<KestalDuplicateTopDetailViewController *>(
            m_root->rightSplit()->topSwitch()->detail(module));
        QComboBox *kinds = review->popUpKindButton();
        waitUntil([kinds] { return kinds->currentText().contains(QLatin1Char('(')); },
                  QStringLiteral("the kinds"));
        kinds->setCurrentIndex(kinds->findData(int(DuplicateService::duplicateKind::image)));
        tick(review, 0);
        shoot(QStringLiteral("duplicates-review"));
        kinds->setCurrentIndex(kinds->findData(int(DuplicateService::duplicateKind::music)));
        if (kinds->currentText().endsWith(QStringLiteral("(0)")))
            shoot(QStringLiteral("duplicates-review-empty-kind"));
        cleanToLog(module, bar, QStringLiteral("duplicates"));

        auto *configuration =
            KestalDuplicateConfigurationWindowController::duplicateConfigureAction();
        settle();
        shoot(QStringLiteral("duplicates-configuration"), false, configuration);
        configuration->close();
    }

    // Scan, result, the review with a file ticked that stands in a size and
    // an age category, clean done and log.
    void largeAndOld()
    {
        const int module = 7;
        m_root->leftTable()->selectModule(module);
        scanAndOpenReview(module, QStringLiteral("large-and-old-files"));
        KestalDetailViewController *review = m_root->rightSplit()->topSwitch()->detail(module);
        review->clickEvent(0); // larger than 100 MB
        tick(review, 0);
        review->clickEvent(2); // older than a year: the same file shows ticked
        shoot(QStringLiteral("large-and-old-files-review"));
        cleanToLog(module, barOf(module), QStringLiteral("large-and-old-files"));
    }

private:
    KestalRightBottomViewController *barOf(int module) const
    {
        return m_root->rightSplit()->bottomSwitch()->barOfModule(module);
    }

    void scanAndOpenReview(int module, const QString &stem)
    {
        KestalRightBottomViewController *bar = barOf(module);
        bar->overViewScanBtn()->click();
        shoot(stem + QStringLiteral("-scanning"), true);
        if (!waitForModule(module, viewStatus::scandone_NoEmpty))
            return;
        shoot(stem + QStringLiteral("-scan-done"));
        bar->reviewBtn()->click();
    }

    void cleanToLog(int module, KestalRightBottomViewController *bar, const QString &stem)
    {
        confirmNextQuestion();
        bar->detailViewBtn()->click();
        if (!waitForModule(module, viewStatus::cleandone))
            return;
        shoot(stem + QStringLiteral("-clean-done"));
        bar->cleandoneViewBtn()->click();
        shoot(stem + QStringLiteral("-log"));
    }

    QMainWindow *m_window;
    KestalRootViewController *m_root;
    QString m_out;
    QString m_language;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Brenlow"));
    const QStringList args = QApplication::arguments().mid(1);
    if (args.size() != 2) {
        QTextStream(stderr) << "usage: brenlow-finder-screenshots OUTPUT_DIR LANGUAGE\n";
        return 1;
    }
    QDir().mkpath(args.at(0));
    ScreenshotSession session;
    QMainWindow *window = session.window;
    if (QAction *item = session.delegate.languageItem(args.at(1)))
        item->trigger();
    settle();
    FinderShots shots(window, KestalRootViewController::rootOf(window), args.at(0), args.at(1));
    shots.duplicates();
    shots.largeAndOld();
    return 0;
}
