// Renders the finders' screens to PNG files, from the overview through the
// scan, the review, the clean and the log: duplicates and large and old files
// over whatever the home holds (scripts/finder-screenshots builds a tree for
// them), similar images over pictures drawn here into ~/Pictures.
//
//   brenlow-finder-screenshots OUTPUT_DIR LANGUAGE [similar]
#include "cleaner/core/AppModuleService.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/finders/SimilarService.h"
#include "cleaner/shell/KestalDuplicateConfigurationWindowController.h"
#include "cleaner/shell/KestalFinderDetailViewControllers.h"
#include "cleaner/shell/KestalImagePreview.h"
#include "cleaner/shell/KestalLeftTableViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/KestalSimilarConfigurationWindowController.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
#include "cleaner/shell/tools/ScreenshotSession.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QMainWindow>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>
#include <QTextStream>
#include <QTreeView>

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

// A landscape of sky, sun and hills, its colours and shapes from the seed;
// the sky brightens towards the sun, so that no two neighbouring places of
// the picture's hash are alike.
QImage drawLandscape(quint32 seed)
{
    QRandomGenerator random(seed);
    QImage image(1600, 1200, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const int hue = random.bounded(360);
    QLinearGradient sky(0, 0, image.width(), image.height() / 2);
    sky.setColorAt(0, QColor::fromHsv(hue, 200, 60));
    sky.setColorAt(1, QColor::fromHsv((hue + 40) % 360, 120, 250));
    painter.fillRect(image.rect(), sky);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 240, 200));
    painter.drawEllipse(QPoint(1100 + random.bounded(300), 150 + random.bounded(200)), 90, 90);
    for (int layer = 0; layer < 4; ++layer) {
        QPainterPath hill;
        const int base = 560 + layer * 150;
        hill.moveTo(0, image.height());
        for (int x = 0; x <= image.width(); x += 100)
            hill.lineTo(x, base - random.bounded(220));
        hill.lineTo(image.width(), image.height());
        QLinearGradient shade(0, 0, image.width(), 0);
        shade.setColorAt(0, QColor::fromHsv((hue + 120 + 30 * layer) % 360, 160, 40 + 30 * layer));
        shade.setColorAt(1, QColor::fromHsv((hue + 150 + 30 * layer) % 360, 140, 90 + 35 * layer));
        painter.setBrush(shade);
        painter.drawPath(hill);
    }
    return image;
}

// Three photographs with near copies (half size, lower quality, another
// format, brighter, a caption) and two without, in `folder`.
void drawPictures(const QString &folder)
{
    QDir().mkpath(folder + QStringLiteral("/Phone"));
    QDir().mkpath(folder + QStringLiteral("/Edited"));
    const QImage lake = drawLandscape(11), dunes = drawLandscape(12), ridge = drawLandscape(13);
    lake.save(folder + QStringLiteral("/IMG_2041.jpg"), "JPEG", 92);
    lake.scaled(lake.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .save(folder + QStringLiteral("/Phone/IMG_2041-small.jpg"), "JPEG", 60);
    lake.save(folder + QStringLiteral("/Edited/IMG_2041.png"), "PNG");
    dunes.save(folder + QStringLiteral("/IMG_2107.jpg"), "JPEG", 92);
    QImage brighter = dunes;
    for (int y = 0; y < brighter.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(brighter.scanLine(y));
        for (int x = 0; x < brighter.width(); ++x)
            line[x] =
                qRgb(qMin(255, qRed(line[x]) * 105 / 100), qMin(255, qGreen(line[x]) * 105 / 100),
                     qMin(255, qBlue(line[x]) * 105 / 100));
    }
    brighter.save(folder + QStringLiteral("/Edited/IMG_2107-bright.jpg"), "JPEG", 85);
    ridge.save(folder + QStringLiteral("/IMG_2230.jpg"), "JPEG", 92);
    QImage captioned = ridge;
    QPainter caption(&captioned);
    caption.setPen(Qt::white);
    caption.setFont(QFont(QStringLiteral("Sans"), 28));
    caption.drawText(40, captioned.height() - 40, QStringLiteral("Ridge walk, 2024"));
    caption.end();
    captioned.save(folder + QStringLiteral("/Edited/IMG_2230-caption.jpg"), "JPEG", 88);
    drawLandscape(14).save(folder + QStringLiteral("/IMG_2301.jpg"), "JPEG", 92);
    drawLandscape(15).save(folder + QStringLiteral("/Phone/IMG_2302.png"), "PNG");
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

    // Overview with the root chooser, scan, result, the review of a group
    // with a copy ticked and previewed, clean done and log; then the
    // configuration window.
    void similarImages()
    {
        const int module = SimilarService::moduleIndex;
        drawPictures(SimilarService::path());
        m_root->leftTable()->selectModule(module);
        shoot(QStringLiteral("similar-images-overview"));
        scanAndOpenReview(module, QStringLiteral("similar-images"));
        auto *review = qobject_cast<KestalSimilarTopDetailViewController *>(
            m_root->rightSplit()->topSwitch()->detail(module));
        review->clickEvent(0);
        tick(review, 1);
        review->rightOutlineView()->setCurrentIndex(review->fileModel()->index(1, 0));
        const QString previewed =
            review->fileModel()->fileAt(review->fileModel()->index(1, 0))->url.toLocalFile();
        KestalImagePreview *preview = review->previewImageView();
        waitUntil([preview, previewed] { return preview->shownPath() == previewed; },
                  QStringLiteral("the preview"));
        shoot(QStringLiteral("similar-images-review"));
        cleanToLog(module, barOf(module), QStringLiteral("similar-images"));

        auto *configuration = KestalSimilarConfigurationWindowController::similarConfigureAction();
        settle();
        shoot(QStringLiteral("similar-images-configuration"), false, configuration);
        configuration->close();
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
    if (args.size() < 2 || args.size() > 3 ||
        (args.size() == 3 && args.at(2) != QLatin1String("similar"))) {
        QTextStream(stderr) << "usage: brenlow-finder-screenshots OUTPUT_DIR LANGUAGE [similar]\n";
        return 1;
    }
    QDir().mkpath(args.at(0));
    ScreenshotSession session;
    QMainWindow *window = session.window;
    if (QAction *item = session.delegate.languageItem(args.at(1)))
        item->trigger();
    settle();
    FinderShots shots(window, KestalRootViewController::rootOf(window), args.at(0), args.at(1));
    if (args.size() == 2) {
        shots.duplicates();
        shots.largeAndOld();
    }
    shots.similarImages();
    return 0;
}
