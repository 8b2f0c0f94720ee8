// The helper's NTFS switch on real NTFS volumes: images made with mkntfs,
// attached to loop devices and mounted read-only with ntfs-3g, as a stick
// is. It changes the machine (loop devices, mounts), so it runs only as
// root with BRENLOW_PRIVILEGE_TESTS=1, and undoes everything at its end.

#include "CleanTestSupport.h"
#include "cleaner/clean/NtfsStatus.h"

#include <QDir>
#include <QStandardPaths>

using namespace CleanTest;

namespace {

const QString work = QStringLiteral("/tmp/brenlow-ntfs-test");

QString run(const QString &program, const QStringList &args)
{
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(QStandardPaths::findExecutable(program, {"/usr/sbin", "/sbin", "/usr/bin", "/bin"}),
            args);
    p.closeWriteChannel();
    const bool done =
        p.waitForFinished(60000) && p.exitStatus() == QProcess::NormalExit && p.exitCode() == 0;
    if (!done)
        qWarning("%s %s: %s", qPrintable(program), qPrintable(args.join(' ')), p.readAll().data());
    return QString::fromLocal8Bit(p.readAll()).trimmed();
}

// The mount at a point now: its type and options ("" when none).
QString mountAt(const QString &point)
{
    return run("findmnt", {"-n", "-o", "FSTYPE,OPTIONS", "--mountpoint", point});
}

bool readOnlyAt(const QString &point)
{
    return mountAt(point).section(' ', -1).split(',').contains("ro");
}

} // namespace

class TestNtfsSwitch : public QObject {
    Q_OBJECT

    // Makes an NTFS image, attaches it and mounts it read-only; `prepare`
    // runs while it is mounted for writing first.
    QString volume(const QString &name, const QStringList &afterMkntfs = {},
                   const std::function<void(const QString &)> &prepare = {})
    {
        const QString image = work + "/" + name + ".img", point = work + "/" + name;
        run("truncate", {"-s", "32M", image});
        run("mkntfs", {"-F", "-q", "-f", "-L", name, image});
        if (!afterMkntfs.isEmpty())
            run(afterMkntfs[0], QStringList(afterMkntfs.mid(1)) << image);
        const QString loop = run("losetup", {"-f", "--show", image});
        QDir().mkpath(point);
        if (prepare) {
            run("mount", {"-t", "ntfs-3g", loop, point});
            prepare(point);
            run("umount", {point});
        }
        run("mount", {"-t", "ntfs-3g", "-o", "ro", loop, point});
        return point;
    }

    static void teardown()
    {
        for (const QString &name : QDir(work).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            while (!mountAt(work + "/" + name).isEmpty())
                run("umount", {"-l", work + "/" + name});
        }
        for (const QString &image : QDir(work).entryList({"*.img"}, QDir::Files)) {
            const QString attached = run("losetup", {"-n", "-O", "NAME", "-j", work + "/" + image});
            for (const QString &loop : attached.split('\n', Qt::SkipEmptyParts))
                run("losetup", {"-d", loop.trimmed()});
        }
        QDir(work).removeRecursively();
    }

private slots:
    void initTestCase()
    {
        if (qgetenv("BRENLOW_PRIVILEGE_TESTS") != "1" || ::geteuid() != 0)
            QSKIP("mounts volumes: runs as root with BRENLOW_PRIVILEGE_TESTS=1");
        if (!QFile::exists("/dev/loop-control"))
            QSKIP("no loop devices here");
        for (const char *program : {"mkntfs", "ntfs-3g", "ntfsresize", "losetup", "findmnt"}) {
            if (QStandardPaths::findExecutable(program, {"/usr/sbin", "/sbin", "/usr/bin", "/bin"})
                    .isEmpty())
                QSKIP(qPrintable(QStringLiteral("%1 is not installed").arg(program)));
        }
        teardown(); // what a killed run left
        QVERIFY(QDir().mkpath(work));
    }

    void cleanupTestCase()
    {
        if (qgetenv("BRENLOW_PRIVILEGE_TESTS") != "1" || ::geteuid() != 0)
            return;
        teardown();
        QVERIFY(!QFile::exists(work));
        QVERIFY(!run("losetup", {"-a"}).contains(work));
    }

    void switchesOnlyCleanNtfsVolumesMountedNow()
    {
        const QString clean = volume("clean");
        const QString dirty = volume("dirty", {"ntfsresize", "-f", "-f", "-s", "24M"});
        const QString hibernated = volume("hibernated", {}, [](const QString &point) {
            QFile file(point + "/hiberfil.sys");
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(QByteArray("HIBR") + QByteArray(4092, '\0'));
        });
        const QString busy = volume("busy", {}, [](const QString &point) {
            QFile file(point + "/open.txt");
            QVERIFY(file.open(QIODevice::WriteOnly));
        });
        QFile open(busy + "/open.txt");
        QVERIFY(open.open(QIODevice::ReadOnly)); // keeps the volume in use
        const QString notMounted = work + "/not-a-mount";
        QVERIFY(QDir().mkpath(notMounted));
        QVERIFY(mountAt(clean).startsWith("fuseblk") && readOnlyAt(clean));

        const QMap<QString, NtfsStatus> expected = {
            {clean, NtfsStatus::writable},        {dirty, NtfsStatus::dirty},
            {hibernated, NtfsStatus::hibernated}, {busy, NtfsStatus::busy},
            {notMounted, NtfsStatus::notMounted}, {"/", NtfsStatus::notNtfs},
        };
        QMap<QByteArray, QList<int>> paths;
        for (const QString &path : expected.keys())
            paths.insert(QFile::encodeName(path), {0});
        Peer helper(helperProgram);
        helper.send(operationCall(Wire::wireFromPaths(paths), qint64(operationType::usb)));
        std::optional<QCborMap> answer = helper.nextFinished();
        QVERIFY(answer);
        const QCborArray args = answer->value(QStringLiteral("args")).toArray();
        QCOMPARE(args.at(0).toBool(), false);
        const QMap<QByteArray, QList<int>> statuses = Wire::wirePaths(args.at(1).toMap());
        for (auto it = expected.begin(); it != expected.end(); ++it)
            QCOMPARE(statuses.value(QFile::encodeName(it.key())).value(0), int(it.value()));

        // The clean one is mounted for writing by the system's driver; the
        // refused ones stay read-only.
        QVERIFY2(!mountAt(clean).isEmpty() && !readOnlyAt(clean), qPrintable(mountAt(clean)));
        QFile written(clean + "/written.txt");
        QVERIFY(written.open(QIODevice::WriteOnly));
        QCOMPARE(written.write("now writable"), 12);
        for (const QString &refused : {dirty, hibernated, busy})
            QVERIFY2(readOnlyAt(refused), qPrintable(refused));

        // Asked again, a writable volume is left as it is.
        helper.send(operationCall(Wire::wireFromPaths({{QFile::encodeName(clean), {0}}}),
                                  qint64(operationType::usb)));
        answer = helper.nextFinished();
        QVERIFY(answer);
        QCOMPARE(answer->value(QStringLiteral("args")).toArray().at(0).toBool(), true);
    }
};

QTEST_GUILESS_MAIN(TestNtfsSwitch)
#include "test_ntfs_switch.moc"
