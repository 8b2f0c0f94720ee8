// The permission test before Photo Cache and Mail Trash scan, over real
// folders whose modes the test sets, and the Scan button that it guards.

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

viewStatus stateOf(int module)
{
    return KestalSuperViewController::currentStatus(AppModuleService::appModules().at(module).tab);
}

} // namespace

class PermissionCheckTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ShippedWindow> m_world;

    TreeBuilder &home() { return m_world->home; }
    QList<QUrl> &opened() { return m_world->env.opened; }

    void pressScan(int module)
    {
        m_world->show(module);
        auto *bar = m_world->right()->bottomSwitch()->barOfModule(module);
        QTest::mouseClick(bar->overViewScanBtn(), Qt::LeftButton);
    }

private slots:
    void initTestCase() { isolateUserSettings(); }

    void cleanup() { m_world.reset(); }

    void deniedFolderOpensItsSettingsPaneAndNothingScans()
    {
        if (geteuid() == 0)
            QSKIP("root reads a folder of mode 000, so no folder can be denied");
        m_world = std::make_unique<ShippedWindow>(QStringLiteral("macos"));
        home().file("Pictures/Albums/a.jpg", 100);
        home().file("Pictures/Private/b.jpg", 100);
        home().chmod("Pictures/Private", 0000);
        home().file("Library/Mail/V9/Locked/Data/Attachments/1/a.pdf", 100);
        home().chmod("Library/Mail/V9/Locked", 0000);
        m_world->open();

        QVERIFY(!PermissionCheck::checkPermission(photoCache));
        QVERIFY(!PermissionCheck::checkPermission(mailTrash));
        QVERIFY(PermissionCheck::checkPermission(systemJunk)); // guards no folder
        pressScan(photoCache);
        QCOMPARE(stateOf(photoCache), viewStatus::overview);
        QCOMPARE(opened(), (QList<QUrl>{photosPane, fullDiskAccessPane, photosPane}));
    }

    // Readable folders, or none at all, let the scan start without a pane.
    void readableOrMissingFoldersPass()
    {
        m_world = std::make_unique<ShippedWindow>(QStringLiteral("macos"));
        home().file("Pictures/Albums/b.jpg", 100);
        m_world->open();

        QVERIFY(PermissionCheck::checkPermission(photoCache));
        QVERIFY(PermissionCheck::checkPermission(mailTrash)); // no Library/Mail here
        pressScan(photoCache);
        QTRY_VERIFY(stateOf(photoCache) != viewStatus::overview &&
                    stateOf(photoCache) != viewStatus::scanning);
        QCOMPARE(opened(), QList<QUrl>{});
    }

    void linuxGuardsNoFolder()
    {
        m_world = std::make_unique<ShippedWindow>();
        home().file(".cache/thumbnails/large/b.png", 100);
        home().chmod(".cache/thumbnails/large", 0000);
        QVERIFY(PermissionCheck::checkPermission(photoCache));
        QVERIFY(PermissionCheck::checkPermission(mailTrash));
        QCOMPARE(opened(), QList<QUrl>{});
    }
};

QTEST_MAIN(PermissionCheckTest)
#include "test_permission_check.moc"
