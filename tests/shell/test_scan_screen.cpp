// The scan as the window shows it, over a cache of many entries: the figure
// shown while scanning is the one the result then shows, and the progress
// changes texts only, never the styles of the bar.

#include "ShippedWindow.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/LanguageNotifier.h"

#include <QLabel>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int systemJunk = 1;

} // namespace

class ScanScreenTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShippedWindow> m_world;

private slots:
    void initTestCase() { isolateUserSettings(); }

    void init()
    {
        m_world = std::make_unique<ShippedWindow>();
        TreeBuilder &home = m_world->home;
        // Folders (sized by a deep walk), loose files and a link: every
        // kind of entry the walks report.
        for (int d = 0; d < 60; ++d) {
            for (int f = 0; f < 4; ++f)
                home.file(QStringLiteral(".cache/app%1/sub/f%2").arg(d).arg(f), 100 + d * 7 + f);
        }
        for (int f = 0; f < 300; ++f)
            home.file(QStringLiteral(".cache/loose%1.bin").arg(f), 1000 + f);
        home.symlink(".cache/pointer", home.path(".cache/app0"));
        home.file(".local/share/xorg/Xorg.0.log.old", 5000);
        m_world->open();
        m_world->show(systemJunk);
    }

    void cleanup() { m_world.reset(); }

    void theFoundSizeWhileScanningIsTheResult()
    {
        KestalRightBottomViewController *bar =
            m_world->right()->bottomSwitch()->barOfModule(systemJunk);
        const int styles = bar->styleApplications();
        QStringList shownWhileScanning;
        connect(bar, &KestalRightBottomViewController::moduleRowChanged, bar, [&] {
            if (bar->status() == viewStatus::scanning)
                shownWhileScanning << bar->statusTextField()->text();
        });
        QTest::mouseClick(bar->overViewScanBtn(), Qt::LeftButton);
        QTRY_COMPARE(bar->status(), viewStatus::scandone_NoEmpty);

        const qint64 found = CategoryTotals::instanceTotalSize(systemJunk);
        QVERIFY(found > 0);
        QCOMPARE(KestalService::scanTotalSize().value(systemJunk), found);
        QVERIFY(!shownWhileScanning.isEmpty());
        QCOMPARE(shownWhileScanning.last(), bar->statusTextField()->text());
        QCOMPARE(bar->statusTextField()->text(),
                 "Found " + KestalSuperViewController::byteString(found));

        // Hundreds of reports, then the result page and the review: styles
        // may follow a change of state, never a report. A new language
        // applies them again.
        QTest::mouseClick(bar->reviewBtn(), Qt::LeftButton);
        const int states = 3; // scanning, result, review
        QVERIFY(bar->styleApplications() - styles <= states);
        const int beforeLanguage = bar->styleApplications();
        SwitchLanguageService::setUserLanguage("de");
        LanguageNotifier::defaultCenter()->post(nullptr);
        QVERIFY(bar->styleApplications() > beforeLanguage);
        QCOMPARE(bar->rescanBtn()->text(), getLocalizedString("Re-Scan"));
        QVERIFY(bar->rescanBtn()->text() != "Re-Scan");
    }
};

QTEST_MAIN(ScanScreenTest)
#include "test_scan_screen.moc"
