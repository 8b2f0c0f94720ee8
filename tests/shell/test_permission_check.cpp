// The permission test before Photo Cache and Mail Trash scan, over real folders.

#include "ShippedWindow.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/PermissionCheck.h"

#include <unistd.h>

using viewStatus = KestalSuperViewController::viewStatus;

namespace {

constexpr int systemJunk = 1;
constexpr int photoCache = 2;
constexpr int mailTrash = 3;

const QUrl photosPane("x-apple.systempreferences:com.apple.preference.security?Privacy_Photos");
const QUrl fullDiskAccessPane(
    "x-apple.systempreferences:com.apple.preference.security?Privacy_FullDiskAccess");

} // namespace

class PermissionCheckTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    // A denied folder opens its settings pane and nothing scans; readable or
    // missing folders let the scan start; the Linux profile guards none.
    void checkGuardsTheScan_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("denied");
        QTest::addColumn<QList<QUrl>>("panes");
        QTest::newRow("macos denied")
            << "macos"
            << QStringList{"Pictures/Albums/a.jpg", "Pictures/Private/b.jpg",
                           "Library/Mail/V9/Locked/Data/Attachments/1/a.pdf"}
            << QStringList{"Pictures/Private", "Library/Mail/V9/Locked"}
            << QList<QUrl>{photosPane, fullDiskAccessPane, photosPane};
        QTest::newRow("macos readable, no mail")
            << "macos" << QStringList{"Pictures/Albums/b.jpg"} << QStringList{} << QList<QUrl>{};
        QTest::newRow("linux") << "linux" << QStringList{".cache/thumbnails/large/b.png"}
                               << QStringList{".cache/thumbnails/large"} << QList<QUrl>{};
    }

    void checkGuardsTheScan()
    {
        QFETCH(QString, profile);
        QFETCH(QStringList, files);
        QFETCH(QStringList, denied);
        QFETCH(QList<QUrl>, panes);
        const bool passes = panes.isEmpty();
        if (!passes && geteuid() == 0)
            QSKIP("root reads a folder of mode 000, so no folder can be denied");
        ShippedWindow world(profile);
        for (const QString &file : files)
            world.home.file(file, 100);
        for (const QString &folder : denied)
            world.home.chmod(folder, 0000);
        world.open();

        QCOMPARE(PermissionCheck::checkPermission(photoCache), passes);
        QCOMPARE(PermissionCheck::checkPermission(mailTrash), passes);
        QVERIFY(PermissionCheck::checkPermission(systemJunk)); // guards no folder
        world.show(photoCache);
        QTest::mouseClick(world.right()->bottomSwitch()->barOfModule(photoCache)->overViewScanBtn(),
                          Qt::LeftButton);
        if (passes)
            QTRY_VERIFY(stateOf(photoCache) != viewStatus::overview &&
                        stateOf(photoCache) != viewStatus::scanning);
        else
            QCOMPARE(stateOf(photoCache), viewStatus::overview);
        QCOMPARE(world.env.opened, panes);
    }
};

QTEST_MAIN(PermissionCheckTest)
#include "test_permission_check.moc"
