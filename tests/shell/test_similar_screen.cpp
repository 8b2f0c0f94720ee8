// The real main window, offscreen, driving the similar image finder from the
// root chooser and the scan through the review with its preview, one
// picture ticked, the clean and the log, over pictures the test draws: near
// copies group with their original, the rest stays apart and on disk.

#include "FinderTestSupport.h"
#include "ReviewClicks.h"
#include "ShippedWindow.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/finders/FinderScans.h"
#include "cleaner/finders/SimilarService.h"
#include "cleaner/shell/ElidedLabel.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"
#include "cleaner/shell/KestalFinderBottomViewControllers.h"
#include "cleaner/shell/KestalFinderDetailViewControllers.h"
#include "cleaner/shell/KestalImagePreview.h"
#include "cleaner/shell/KestalSimilarConfigurationWindowController.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QRandomGenerator>
#include <QTreeView>
#include <QTreeWidget>

namespace {

constexpr int similar = SimilarService::moduleIndex;
constexpr int block = 40; // a hash cell's side in the drawn picture

// A picture of 9 × 8 gray blocks, one per cell of the hash, whose levels
// differ between neighbours by enough that scaling and lossy saving keep
// every comparison; the seed makes the picture.
QImage drawPicture(quint32 seed)
{
    QRandomGenerator random(seed);
    QImage image(9 * block, 8 * block, QImage::Format_RGB32);
    QPainter painter(&image);
    for (int y = 0; y < 8; ++y) {
        int level = random.bounded(30, 226);
        for (int x = 0; x < 9; ++x) {
            painter.fillRect(x * block, y * block, block, block, QColor(level, level, level));
            const int step = random.bounded(24, 60);
            level = level + step <= 240 && (level - step < 15 || random.bounded(2)) ? level + step
                                                                                    : level - step;
        }
    }
    return image;
}

void save(const QImage &image, const QString &path, const char *format, int quality = -1)
{
    QDir().mkpath(QFileInfo(path).path());
    QVERIFY2(image.save(path, format, quality), qPrintable(path));
}

} // namespace

class SimilarScreenTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShippedWindow> m_world;

    KestalRightSplitController *right() const { return m_world->right(); }
    QString home(const QString &relative) const { return m_world->home.path(relative); }

private slots:
    void initTestCase() { prepareFinderScreens(); }

    void init()
    {
        m_world = std::make_unique<ShippedWindow>();
        m_world->open();
        SimilarService::threshold = 3;
    }

    void cleanup() { m_world.reset(); }

    // The chosen folder is the one searched; each group lists its key
    // picture first and previews the picture chosen; the one picture ticked
    // is the only file the clean takes, and the clean's page accounts for it.
    void fromChooserToLog()
    {
        const QImage beach = drawPicture(1), hill = drawPicture(2);
        const QString key = home("Photos/beach.jpg"), png = home("Photos/beach.png"),
                      half = home("Photos/copies/beach-half.jpg");
        save(beach, key, "JPEG", 90);
        save(beach, png, "PNG");
        save(beach.scaled(beach.size() / 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), half,
             "JPEG", 60);
        save(hill, home("Photos/hill.png"), "PNG");
        save(hill, home("Photos/hill-again.jpg"), "JPEG", 60);
        QStringList stays = {key, png, home("Photos/hill.png"), home("Photos/hill-again.jpg")};
        for (quint32 seed : {3u, 4u}) { // unrelated: no group
            stays << home(QStringLiteral("Photos/other-%1.jpg").arg(seed));
            save(drawPicture(seed), stays.last(), "JPEG", 80);
        }
        stays << home("Pictures/beach.jpg"); // outside the chosen folder
        save(beach, stays.last(), "JPEG", 90);

        m_world->show(similar);
        auto *bar = qobject_cast<KestalSimilarBottomController *>(
            right()->bottomSwitch()->barOfModule(similar));
        QVERIFY(bar);
        QCOMPARE(bar->choosePathBtn()->text(), QString("Change Photo Library"));
        QVERIFY(bar->scanPathTextField()->fullText().endsWith("/Pictures"));
        answerNextFolderDialog(home("Photos"));
        QTest::mouseClick(bar->choosePathBtn(), Qt::LeftButton);
        QCOMPARE(SimilarService::path(), home("Photos"));
        QCOMPARE(bar->scanPathTextField()->fullText(), "Folder: " + home("Photos"));

        m_world->scan(similar);
        QVERIFY(!bar->choosePathBtn()->isVisible());
        m_world->openReview(similar);

        auto *review = qobject_cast<KestalSimilarTopDetailViewController *>(
            right()->topSwitch()->detail(similar));
        QVERIFY(review);
        QCOMPARE(namesOf(review->leftCategoryTableView()),
                 QStringList({"beach.jpg", "hill-again.jpg"}));
        review->clickEvent(0);
        QCOMPARE(namesOf(review->rightOutlineView()),
                 QStringList({"beach.jpg  (Key picture)", "beach.png", "beach-half.jpg"}));
        KestalImagePreview *preview = review->previewImageView();
        QTRY_COMPARE(preview->shownPath(), key);
        const QSize shown = preview->pixmap().deviceIndependentSize().toSize();
        QVERIFY2(!shown.isEmpty() && preview->rect().contains(QRect(QPoint(), shown)),
                 qPrintable(QStringLiteral("%1x%2").arg(shown.width()).arg(shown.height())));

        const QModelIndex copy = rowOfPath(review->fileModel(), half);
        QTest::mouseClick(review->rightOutlineView()->viewport(), Qt::LeftButton, {},
                          review->rightOutlineView()->visualRect(copy).center());
        QTRY_COMPARE(preview->shownPath(), half);
        clickCheckBox(review->rightOutlineView(), copy);
        const qint64 size = QFileInfo(half).size();
        QCOMPARE(bar->statusTextField()->text(),
                 "Selected: " + KestalSuperViewController::byteString(size));

        m_world->confirmClean(similar, "To be removed: 1 item, " +
                                           KestalSuperViewController::byteString(size));
        QVERIFY(!QFile::exists(half));
        for (const QString &path : std::as_const(stays))
            QVERIFY2(QFile::exists(path), qPrintable(path));
        KestalCleaningViewAndLogViewController *page =
            right()->topSwitch()->cleaningAndLog(similar);
        const QTreeWidgetItem *group = page->cleanningTableView()->topLevelItem(0);
        QCOMPARE(group->text(0), QString("beach.jpg"));
        QCOMPARE(group->text(1), KestalSuperViewController::byteString(size));
        m_world->openLogWithoutFailures(similar);
    }

    void configuration_data()
    {
        QTest::addColumn<QString>("typed"); // empty: the pop-up's entry "10" is chosen
        QTest::addColumn<qint64>("threshold");
        QTest::addColumn<bool>("taken");
        QTest::newRow("chosen in the pop-up") << QString() << qint64(10) << true;
        QTest::newRow("typed, blanks around") << " 7 " << qint64(7) << true;
        QTest::newRow("every place of a hash") << "64" << qint64(64) << true;
        QTest::newRow("zero") << "0" << qint64(5) << false;
        QTest::newRow("past the places of a hash") << "65" << qint64(5) << false;
        QTest::newRow("negative") << "-2" << qint64(5) << false;
        QTest::newRow("fraction") << "2.5" << qint64(5) << false;
        QTest::newRow("word") << "three" << qint64(5) << false;
        QTest::newRow("empty") << " " << qint64(5) << false;
    }

    // The menu's window: a choice in the pop-up applies at once; a typed
    // threshold applies with OK and closes; anything else gets the warning
    // and leaves the threshold and the window as they were.
    void configuration()
    {
        QFETCH(QString, typed);
        QFETCH(qint64, threshold);
        QFETCH(bool, taken);
        SimilarService::threshold = 5;
        AppDelegate delegate;
        QAction *entry = delegate.similarConfigurationItem();
        QVERIFY(delegate.menus().contains(qobject_cast<QMenu *>(entry->parent())));
        QPointer<KestalSimilarConfigurationWindowController> window =
            openOneWindow<KestalSimilarConfigurationWindowController>(entry);
        QVERIFY(window);
        QComboBox *choices = window->sortPopBtn();
        QCOMPARE(choices->currentText(), QString("5"));
        QVERIFY(choices->findText("3") >= 0);
        if (typed.isNull()) {
            choices->setCurrentIndex(choices->findText("10"));
            emit choices->activated(choices->currentIndex());
        } else {
            choices->setEditText(typed);
            QTest::mouseClick(window->okButton(), Qt::LeftButton);
        }
        QCOMPARE(SimilarService::threshold, threshold);
        if (!taken)
            QCOMPARE(closeWarning(window),
                     QString("The threshold can only be a whole number from 1 to 64"));
        // Only a typed threshold that was taken closes the window.
        if (taken && !typed.isNull())
            QTRY_VERIFY(!window);
        QVERIFY(window || (taken && !typed.isNull()));
        if (window)
            window->close();
        QTRY_VERIFY(!window);
        SimilarService::threshold = 3;
    }
};

QTEST_MAIN(SimilarScreenTest)
#include "test_similar_screen.moc"
