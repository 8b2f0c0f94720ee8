// What the NTFS switch reads of a volume before it acts: the mount table's
// fields and escapes, and the NTFS signature and dirty flag of real images that mkntfs
// makes and the ntfs-3g tools change.

#include "helper/AllowList.h"
#include "helper/MountTable.h"
#include "helper/NtfsVolume.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace {

bool tool(const QString &program, const QStringList &args)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    p.setStandardOutputFile(QProcess::nullDevice());
    p.start(program, args);
    p.closeWriteChannel();
    return p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
}

} // namespace

class TestNtfsVolume : public QObject {
    Q_OBJECT

private slots:
    void mountTable()
    {
        const QByteArray table =
            "22 1 8:1 / / rw,relatime shared:1 - ext4 /dev/sda1 rw\n"
            "40 22 7:0 / /media/u/My\\040Disk ro,nosuid shared:5 master:2 - fuseblk /dev/loop0 "
            "ro,user_id=0\n"
            "41 22 7:1 / /media/u/My\\040Disk rw - ntfs3 /dev/loop1 rw,uid=1000\n"
            "42 22 8:18 / /mnt/back\\134slash\\011tab rw - ext4 /dev/sdb2 rw\n"
            "43 22 8:19 / /mnt/not\\8escape rw - ext4 /dev/sdb3 rw\n"
            "broken line\n";
        const QList<MountEntry> entries = MountTable::parse(table);
        QCOMPARE(AllowList::mountPoints(table),
                 (QList<QByteArray>{"/", "/media/u/My Disk", "/media/u/My Disk",
                                    "/mnt/back\\slash\ttab", "/mnt/not\\8escape"}));
        QCOMPARE(entries[1].fileSystemType, QByteArray("fuseblk"));
        QCOMPARE(entries[1].source, QByteArray("/dev/loop0"));
        QVERIFY(entries[1].readOnly && !entries[0].readOnly);
        // The later mount on a point covers the earlier one.
        const auto top = MountTable::at(entries, "/media/u/My Disk");
        QVERIFY(top && top->source == "/dev/loop1" && !top->readOnly);
        QVERIFY(!MountTable::at(entries, "/media/u"));
    }

    void inspect_data()
    {
        QTest::addColumn<QStringList>("change"); // a tool and its arguments; IMAGE is the image
        QTest::addColumn<qint64>("cutAt");       // bytes kept, 0 for all
        QTest::addColumn<int>("state");

        QTest::newRow("as mkntfs made it")
            << QStringList{} << qint64(0) << int(NtfsVolume::State::Clean);
        // ntfsresize leaves the flag set so that Windows checks the volume.
        QTest::newRow("resized, so marked dirty")
            << QStringList{"ntfsresize", "-f", "-f", "-s", "24M", "IMAGE"} << qint64(0)
            << int(NtfsVolume::State::Dirty);
        QTest::newRow("signature gone")
            << QStringList{"dd",     "if=/dev/zero", "of=IMAGE",    "bs=1",
                           "seek=3", "count=8",      "conv=notrunc"}
            << qint64(0) << int(NtfsVolume::State::NotNtfs);
        QTest::newRow("cut before the MFT")
            << QStringList{} << qint64(8192) << int(NtfsVolume::State::Unreadable);
    }
    void inspect()
    {
        QFETCH(QStringList, change);
        QFETCH(qint64, cutAt);
        QFETCH(int, state);
        if (QStandardPaths::findExecutable("mkntfs", {"/usr/sbin", "/sbin"}).isEmpty())
            QSKIP("mkntfs is not installed (Debian package ntfs-3g)");
        QTemporaryDir dir;
        const QString image = dir.filePath("volume.img");
        QVERIFY(tool("truncate", {"-s", "32M", image}));
        QVERIFY(tool(QStandardPaths::findExecutable("mkntfs", {"/usr/sbin", "/sbin"}),
                     {"-F", "-q", "-f", image}));
        if (!change.isEmpty()) {
            change.replaceInStrings("IMAGE", image);
            QVERIFY(
                tool(QStandardPaths::findExecutable(change[0], {"/usr/sbin", "/usr/bin", "/bin"}),
                     change.mid(1)));
        }
        if (cutAt > 0)
            QVERIFY(QFile::resize(image, cutAt));
        QCOMPARE(int(NtfsVolume::inspect(QFile::encodeName(image))), state);
        if (state == int(NtfsVolume::State::Dirty)) {
            // ntfsfix -d clears the flag again.
            QVERIFY(tool(QStandardPaths::findExecutable("ntfsfix", {"/usr/bin", "/bin"}),
                         {"-d", image}));
            QCOMPARE(NtfsVolume::inspect(QFile::encodeName(image)), NtfsVolume::State::Clean);
        }
    }
};

QTEST_GUILESS_MAIN(TestNtfsVolume)
#include "test_ntfs_volume.moc"
