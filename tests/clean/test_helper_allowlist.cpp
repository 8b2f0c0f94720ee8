// Where the helper acts: only inside the system places the shipped lists
// name, the home of the user who started it, and the volumes' trash folders.
// The real helper is asked to remove real system files and must refuse them
// for being outside the places; when the test runs as root it asks a copy of
// the helper running as "nobody", so that a broken list could not cost the
// machine its files.

#include "CleanTestSupport.h"

#include <QTemporaryDir>
#include <cstdio>
#include <dlfcn.h>
#include <pwd.h>

using namespace CleanTest;

namespace {

// One request for one path; the status it got. The helper's log is in *log.
// With `unprivileged`, a root test asks a copy of the helper that runs as
// "nobody" (from a folder that user can read).
int removeThroughHelper(
    const QByteArray &path, QString *log = nullptr,
    const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
    bool unprivileged = false)
{
    static QTemporaryDir copies(QStringLiteral("/tmp/brenlow-helper-copy-XXXXXX"));
    QString program = helperProgram;
    QStringList args;
    if (unprivileged && geteuid() == 0) {
        const QString copy = copies.path() + QStringLiteral("/brenlow-helper");
        if (!QFileInfo::exists(copy)) {
            QFile::copy(helperProgram, copy);
            QFile::setPermissions(copies.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                     QFileDevice::ExeOwner |
                                                     QFileDevice::ReadOther |
                                                     QFileDevice::ExeOther);
        }
        program = QStringLiteral("runuser");
        args =
            QStringList{QStringLiteral("-u"), QStringLiteral("nobody"), QStringLiteral("--"), copy};
    }
    Peer helper(program, args, false, environment);
    helper.send(deleteCall({path}));
    const auto report = helper.nextSkippingProgress();
    if (!report || report->value(QStringLiteral("sel")).toString() != QLatin1String(Wire::finished))
        return -1;
    if (log) {
        // The refusal is logged before the report is sent.
        helper.process.closeWriteChannel();
        helper.process.waitForFinished(10000);
        *log = helper.errors();
    }
    return statuses(*report).value(path, -1);
}

QByteArray libcPath()
{
    Dl_info info{};
    dladdr(reinterpret_cast<void *>(&std::printf), &info);
    return QFile::encodeName(QFileInfo(QFile::decodeName(info.dli_fname)).canonicalFilePath());
}

bool isRoot()
{
    return geteuid() == 0;
}

} // namespace

class TestHelperAllowList : public QObject {
    Q_OBJECT

private slots:
    void cleanupTestCase() { XPCUtil::shutdown(); }

    // The files whose loss breaks a system: the helper, root here, keeps them.
    void refusesSystemFiles_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QString>("reason");
        const QString outside = QStringLiteral("outside the places");
        for (const char *path :
             {"/etc/passwd", "/etc/shadow", "/etc/sudoers", "/usr/bin/sudo", "/usr/lib/systemd"})
            QTest::newRow(path) << QByteArray(path) << outside;
        QTest::newRow("libc.so.6") << libcPath() << outside;
        QTest::newRow("etc, with slashes") << QByteArray("//etc///") << outside;
        QTest::newRow("a system place itself")
            << QByteArray("/var/lib/systemd/coredump") << QStringLiteral("allowed place itself");
        QTest::newRow("empty") << QByteArray() << QStringLiteral("not an absolute");
    }

    void refusesSystemFiles()
    {
        QFETCH(QByteArray, path);
        QFETCH(QString, reason);
        const bool existed = existsOnDisk(path);
        QString log;
        QCOMPARE(removeThroughHelper(path, &log, QProcessEnvironment::systemEnvironment(), true),
                 int(errorKind::delete_));
        QCOMPARE(existsOnDisk(path), existed);
        QVERIFY2(log.contains(QStringLiteral("refused ") + QFile::decodeName(path)) &&
                     log.contains(reason),
                 qPrintable(log));
    }

    // Inside a place a shipped list names, the helper removes.
    void removesInsideASystemPlace()
    {
        if (!isRoot())
            QSKIP("only root can make an item in a system place");
        QString place;
        for (const char *candidate : {"/var/crash", "/var/lib/systemd/coredump"}) {
            if (QFileInfo(QLatin1String(candidate)).isDir()) {
                place = QLatin1String(candidate);
                break;
            }
        }
        if (place.isEmpty())
            QSKIP("no listed system place exists here");
        QTemporaryDir item(place + QStringLiteral("/brenlow-test-XXXXXX"));
        QVERIFY(item.isValid());
        TreeBuilder inside(item.path());
        inside.file(QStringLiteral("deep/core"), 10);
        const QByteArray path = QFile::encodeName(item.path());
        QCOMPARE(removeThroughHelper(path), int(errorKind::success));
        QVERIFY(!existsOnDisk(path));
        QVERIFY(QFileInfo(place).isDir());
    }

    // The home is the password database's for the user who started the
    // helper (its own, or the one a launcher that made it root reports);
    // HOME changes nothing.
    void homeOfTheCaller_data()
    {
        QTest::addColumn<QString>("variable");
        QTest::addColumn<QString>("value");
        QTest::addColumn<bool>("homeAllowed");
        QTest::newRow("no launcher") << QString() << QString() << true;
        QTest::newRow("HOME=/etc") << "HOME"
                                   << "/etc" << true;
        // A launcher's report counts only when the helper runs as root.
        const passwd *nobody = getpwnam("nobody");
        const QString other = QString::number(nobody ? nobody->pw_uid : 65534);
        QTest::newRow("pkexec caller") << "PKEXEC_UID" << other << !isRoot();
        QTest::newRow("sudo caller") << "SUDO_UID" << other << !isRoot();
        QTest::newRow("unreadable caller") << "PKEXEC_UID"
                                           << "0x" << !isRoot();
    }

    void homeOfTheCaller()
    {
        QFETCH(QString, variable);
        QFETCH(QString, value);
        QFETCH(bool, homeAllowed);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char *name : {"PKEXEC_UID", "SUDO_UID"})
            environment.remove(QLatin1String(name));
        if (!variable.isEmpty())
            environment.insert(variable, value);
        TreeBuilder tree(TreeBuilder::Place::RealHome);
        const QByteArray file = QFile::encodeName(tree.file(QStringLiteral("mine"), 3));
        QString log;
        QCOMPARE(removeThroughHelper(file, &log, environment),
                 int(homeAllowed ? errorKind::success : errorKind::delete_));
        QCOMPARE(existsOnDisk(file), !homeAllowed);
        // What HOME names is no home of the caller's.
        const QByteArray inEtc = "/etc/brenlow-absent-" + QByteArray::number(getpid());
        QCOMPARE(removeThroughHelper(inEtc, &log, environment), int(errorKind::delete_));
        QVERIFY2(log.contains(QLatin1String("outside the places")), qPrintable(log));
    }

    // The trash folder of a mounted volume, for the user who started the helper.
    void removesInAVolumeTrash()
    {
        QString mount;
        for (const char *candidate : {"/dev/shm", "/tmp", "/run/user"}) {
            const QString m = QLatin1String(candidate);
            if (QFileInfo(m).isWritable() && QFileInfo(m).isDir() && isMountPoint(m)) {
                mount = m;
                break;
            }
        }
        if (mount.isEmpty())
            QSKIP("no writable mounted volume here");
        const QString trash = mount + QStringLiteral("/.Trash-") + QString::number(getuid());
        const bool hadTrash = QFileInfo::exists(trash);
        TreeBuilder inTrash(trash + QStringLiteral("/files/brenlow-test-") +
                            QString::number(getpid()));
        inTrash.file(QStringLiteral("thrown"), 5);
        QCOMPARE(removeThroughHelper(QFile::encodeName(inTrash.root())), int(errorKind::success));
        QVERIFY(!QFileInfo::exists(inTrash.root()));
        QCOMPARE(removeThroughHelper(QFile::encodeName(trash)), int(errorKind::delete_));
        QVERIFY(QFileInfo::exists(trash));
        if (!hadTrash)
            QVERIFY(QDir(trash).removeRecursively());
    }

    // An operation the helper does not know is answered through the service,
    // so the run that sent it can close.
    void unknownOperationIsAnswered()
    {
        useHelper(QString());
        Peer service(serviceProgram, serviceArgs);
        const QByteArray path = "/nonexistent-brenlow/unknown";
        service.send(Wire::call(Wire::serviceOperation, {Wire::wireFromPaths({{path, {2, 5, 0}}}),
                                                         16, 6, Wire::identitiesToWire({})}));
        const auto answer = service.nextSkippingProgress();
        QVERIFY(answer);
        QCOMPARE(answer->value(QStringLiteral("sel")).toString(), QLatin1String(Wire::finished));
        const QCborArray args = answer->value(QStringLiteral("args")).toArray();
        QVERIFY(!args.at(0).toBool());
        QCOMPARE(Wire::wirePaths(args.at(1).toMap()).value(path),
                 (QList<int>{2, 5, int(errorKind::nocause)}));
        QCOMPARE(args.at(2).toInteger(), 6);
    }

    // No library of the desktop, the display or the network runs as root.
    void linksNoGuiLibrary()
    {
        QProcess ldd;
        ldd.start(QStringLiteral("ldd"), {helperProgram});
        QVERIFY(ldd.waitForFinished(30000));
        const QString libraries = QString::fromLocal8Bit(ldd.readAllStandardOutput());
        QVERIFY2(libraries.contains(QLatin1String("libQt6Core")), qPrintable(libraries));
        for (const char *forbidden :
             {"libQt6Gui", "libX11", "libfontconfig", "libQt6DBus", "libQt6Network", "libxcb"})
            QVERIFY2(!libraries.contains(QLatin1String(forbidden)), forbidden);
    }

private:
    static bool isMountPoint(const QString &path)
    {
        struct stat self, parent;
        return stat(QFile::encodeName(path).constData(), &self) == 0 &&
               stat(QFile::encodeName(path + QStringLiteral("/..")).constData(), &parent) == 0 &&
               self.st_dev != parent.st_dev;
    }
};

QTEST_GUILESS_MAIN(TestHelperAllowList)
#include "test_helper_allowlist.moc"
