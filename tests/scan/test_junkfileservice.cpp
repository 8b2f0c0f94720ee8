// The typed junk scanners on trees built for both profiles.
#include "ScanTestSupport.h"
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/Volumes.h"
#include "cleaner/scan/JunkFileService.h"
#include "cleaner/scan/ScanDispatch.h"
#include "support/ScanRecorder.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QCoreApplication>
#include <QFile>
#include <QtTest>

using namespace ScanTest;

class TestJunkFileService : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { Volumes::setMountedVolumesForTesting(std::nullopt); }

    void systemCacheListsOnlyBelowTheTemporaryRoots()
    {
        TestEnvironment env("macos");
        TreeBuilder tree(env.root() + "/private/var/folders");
        tree.file("xy/abc123/T/cache.db", 10);
        tree.file("xy/abc123/C/com.foo/blob", 20);
        tree.file("xy/abc123/0/left", 5);
        tree.fileBytes("xy/abc123/T/caf\xe9\xff", 2); // a name that is not UTF-8
        Category c = categoryOf("System_Cache", {tree.root()});
        ScanDispatch::scan(c, nullptr, nullptr);
        // The per-user roots (levels 1 to 3) are the system's and never listed.
        QCOMPARE(relativePaths(c.files, tree.root()),
                 QStringList({"xy/abc123/0/left", "xy/abc123/C/com.foo", "xy/abc123/T/cache.db",
                              QFile::decodeName("xy/abc123/T/caf\xe9\xff")}));
        QCOMPARE(c.size, 37);
    }

    void systemCacheEntersWhatItCannotRemove()
    {
        TestEnvironment env;
        TreeBuilder tree;
        tree.file("locked/open/junk", 7);
        tree.file("locked/stuck", 3);
        tree.chmod("locked/open", 0777);
        tree.chmod("locked", 0555);
        ::chmod(QFile::encodeName(tree.root()).constData(), 0755);
        if (!TestEnvironment::canDropPrivileges())
            QSKIP("as root every item is removable, and there is no unprivileged user to become");
        // "open" cannot go (its folder is read-only), so the walk looks inside
        // and finds "junk", which can; "stuck" is a file and is not entered.
        const bool found = TestEnvironment::asUnprivileged([&] {
            Category c = categoryOf("System_Cache", {tree.root()});
            ScanDispatch::scan(c, nullptr, nullptr);
            return relativePaths(c.files, tree.root()) == QStringList{"locked/open/junk"};
        });
        TreeBuilder::makeRemovable(tree.root());
        QVERIFY(found);
    }

    void applicationCacheLeavesOutWhatOthersList_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("folders");
        QTest::addColumn<QStringList>("listed");
        QTest::newRow("macos") << "macos" << QStringList{"com.apple.iTunes", "com.foo.app"}
                               << QStringList{"com.foo.app"};
        QTest::newRow("linux") << "linux"
                               << QStringList{"thumbnails", "shotwell", "evolution", "pip"}
                               << QStringList{"pip"};
    }
    void applicationCacheLeavesOutWhatOthersList()
    {
        QFETCH(QString, profile);
        QFETCH(QStringList, folders);
        QFETCH(QStringList, listed);
        TestEnvironment env(profile);
        TreeBuilder tree;
        for (const QString &folder : folders)
            tree.file(folder + "/deep/data", 4);
        Category c = categoryOf("App_Cache", {tree.root()}, 1);
        ScanDispatch::scan(c, nullptr, nullptr);
        QCOMPARE(relativePaths(c.files, tree.root()), listed);
        QCOMPARE(c.size, 4 * listed.size());
        QCOMPARE(c.files.first()->checked, 1);
    }

    // What a scan reports while it runs adds up to what it found, each
    // entry once: a root's sum and the entries under it are not both counted.
    void eachEntryIsReportedOnce_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<bool>("singleRoot");
        QTest::addColumn<QStringList>("roots");
        QTest::addColumn<int>("reports");
        QTest::newRow("one root") << "Folder" << true << QStringList{"a"} << 3;
        QTest::newRow("roots") << "Folder" << false << QStringList{"a", "b"} << 4;
        QTest::newRow("filtered roots") << "App_Cache" << false << QStringList{"a", "b"} << 4;
        QTest::newRow("a file as a root") << "Folder" << false << QStringList{"b/only"} << 1;
    }
    void eachEntryIsReportedOnce()
    {
        QFETCH(QString, type);
        QFETCH(bool, singleRoot);
        QFETCH(QStringList, roots);
        QFETCH(int, reports);
        TestEnvironment env;
        TreeBuilder tree;
        tree.file("a/one", 10);
        tree.file("a/sub/two", 200);
        tree.file("a/sub/deep/three", 3000);
        tree.file("a/four", 40000);
        tree.file("b/only", 500000);
        QStringList paths;
        for (const QString &root : std::as_const(roots))
            paths << tree.path(root);
        Category c = categoryOf(type, singleRoot ? QStringList() : paths);
        if (singleRoot)
            c.url = FolderUrl{FolderInfo::absoluteString(FolderInfo::urlFromPath(paths.first()))};
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), seen.showPercent());
        QTRY_COMPARE(seen->paths.size(), reports);
        QTRY_COMPARE(seen->percent, 1.0f);
        QCOMPARE(seen->bytes, c.size);
        QVERIFY(c.size > 0);
    }

    void volumeTrashes_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QString>("trash");
        QTest::newRow("macos") << "macos"
                               << ".Trashes";
        QTest::newRow("linux") << "linux"
                               << ".Trash-" + QString::number(Platform::userId());
    }
    void volumeTrashes()
    {
        QFETCH(QString, profile);
        QFETCH(QString, trash);
        TestEnvironment env(profile);
        TreeBuilder tree;
        const QString stick = tree.folder("media/STICK");
        Volumes::setMountedVolumesForTesting(QList<MountedVolume>{
            MountedVolume{tree.root(), "ext4", false, true, false},
            MountedVolume{stick, "vfat", true, true, true},
            MountedVolume{tree.folder("media/MAC"), "hfsplus", true, true, true},
            MountedVolume{tree.folder("mnt/disk"), "ext4", false, true, true},
            MountedVolume{tree.folder("media/fixed"), "vfat", true, true, false},
        });
        const auto usb = JunkFileService::getUSBInfo();
        QCOMPARE(usb.size(), 1);
        QCOMPARE(usb.first().first, FolderInfo::urlFromPath(stick + QLatin1Char('/') + trash));
        QCOMPARE(usb.first().second, "STICK");

        // Listed: the entries one level inside the trash's own folders.
        tree.file("media/STICK/" + trash + "/files/old.txt", 6);
        tree.file("media/STICK/" + trash + "/files/dir/a", 4);
        tree.file("media/STICK/" + trash + "/info/old.txt.trashinfo", 1);
        tree.file("media/MAC/" + trash + "/files/never", 1);
        Category c = categoryOf("TrashBin", {"/stale"}, 1);
        ScanDispatch::scan(c, nullptr, nullptr);
        QCOMPARE(relativePaths(c.files, stick + QLatin1Char('/') + trash),
                 QStringList({"files/dir", "files/old.txt", "info/old.txt.trashinfo"}));
        QCOMPARE(c.size, 11);

        // Once the stick is gone, so is what its trash held.
        Volumes::setMountedVolumesForTesting(QList<MountedVolume>{});
        ScanDispatch::scan(c, nullptr, nullptr);
        QCOMPARE(c.size + c.files.size(), 0);
    }

    void mountTableIsReadFromTheSystem()
    {
        TestEnvironment env;
        TreeBuilder sys(env.root() + "/sys");
        sys.file("block/sda/removable");
        sys.folder("block/sda/sda1");
        sys.file("block/sdb/sdb1/partition");
        TreeBuilder::write(sys.path("block/sdb/removable"), "1\n");
        // A USB disk says it is fixed, but hangs on a USB bus.
        const QString usb = "devices/pci0000:00/usb2/2-1/block/sdc";
        sys.file(usb + "/removable");
        sys.folder(usb + "/sdc1");
        sys.symlink("block/sdc", sys.path(usb));
        TreeBuilder::write(
            env.root() + "/proc/self/mountinfo",
            "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
            "23 22 0:5 / /proc rw,nosuid - proc proc rw\n"
            "40 22 8:17 / /media/user/MY\\040STICK rw,nosuid shared:2 - vfat /dev/sdb1 rw\n"
            "41 22 8:33 / /media/user/Backup ro,nosuid - exfat /dev/sdc1 ro\n"
            "damaged line\n");

        const QList<MountedVolume> volumes = Volumes::mountedVolumes();
        QCOMPARE(volumes.size(), 4);
        QCOMPARE(volumes[0],
                 (MountedVolume{env.root(), "ext4", false, true, false, "/dev/sda1", "8:1", "/"}));
        QVERIFY(!volumes[1].isRemovable && !volumes[1].isUnmountable);
        QCOMPARE(volumes[2], (MountedVolume{env.root() + "/media/user/MY STICK", "vfat", true, true,
                                            true, "/dev/sdb1", "8:17", "/"}));
        QCOMPARE(volumes[3], (MountedVolume{env.root() + "/media/user/Backup", "exfat", true, false,
                                            true, "/dev/sdc1", "8:33", "/"}));
    }

    void photoCache_data()
    {
        QTest::addColumn<QString>("profile");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QStringList>("listed");
        QTest::addColumn<bool>("olderSystem");
        const QString lib = "Pictures/Photos Library.photoslibrary/";
        const QString face = lib + "resources/media/face/1/f.jpg";
        const QString master = lib + "resources/media/master/m.heic";
        const QString module = lib + "resources/media/moduleresources/x.jpg";
        const QString notALibrary = "Pictures/holiday/resources/media/face/a.jpg";
        const QString original = lib + "originals/keep.heic";
        QTest::newRow("macos") << "macos"
                               << QStringList{notALibrary, face, master, module, original}
                               << QStringList{face, master} << false;
        // Before 10.12 the library kept its caches in one folder.
        QTest::newRow("macos before 10.12")
            << "macos" << QStringList{face, master, module} << QStringList{module} << true;
        const QString thumbnail = ".cache/thumbnails/normal/x.png";
        const QString shotwell = ".cache/shotwell/thumbs/thumbs128/t.jpg";
        QTest::newRow("linux") << "linux"
                               << QStringList{thumbnail, shotwell, ".cache/shotwell/data/keep.db"}
                               << QStringList{shotwell, thumbnail} << false;
        QTest::newRow("macos without library")
            << "macos" << QStringList{"Pictures/holiday.jpg"} << QStringList() << false;
    }
    void photoCache()
    {
        QFETCH(QString, profile);
        QFETCH(QStringList, files);
        QFETCH(QStringList, listed);
        QFETCH(bool, olderSystem);
        TestEnvironment env(profile);
        if (olderSystem)
            Platform::setSystemVersionForTesting(10, 11);
        TreeBuilder home(env.home());
        for (const QString &f : files)
            home.file(f, 8);
        Category c = categoryOf("Photo", {}, 1);
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), seen.showPercent());
        QCOMPARE(relativePaths(c.files, env.home()), listed);
        QCOMPARE(c.size, 8 * listed.size());
        for (int i = 0; i < c.files.size(); ++i) {
            QCOMPARE(c.files[i]->findex, i);
            QCOMPARE(c.files[i]->checked, 1);
        }
        // With no library nothing at all is posted, not even the percent.
        QCoreApplication::processEvents();
        QTRY_COMPARE(seen->percentPosts, listed.isEmpty() ? 0 : 1);
        QCOMPARE(seen->percent, listed.isEmpty() ? 0.0f : 1.0f);
        if (listed.isEmpty())
            QVERIFY(seen->paths.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestJunkFileService)
#include "test_junkfileservice.moc"
