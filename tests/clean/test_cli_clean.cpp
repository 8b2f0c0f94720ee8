// brenlow-cli clean, run as a user would run it, in a sandboxed home with
// every system folder under a built root.

#include "CleanTestSupport.h"
#include "TestPaths.h"
#include "cleaner/clean/KestalCleanManager.h"
#include "support/CliProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace CleanTest;

class TestCliClean : public QObject {
    Q_OBJECT

private:
    TreeBuilder *sandbox = nullptr;

    QProcessEnvironment environment() const
    {
        return cliEnvironment(*sandbox, QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/resources/linux"),
                              QString());
    }

    CliProcess::Result cli(const QByteArrayList &args, const QByteArray &input = {})
    {
        return CliProcess::run(cliProgram, QByteArrayList{"clean", "System Junk"} + args,
                               environment(), input);
    }

    QMap<QByteArray, QByteArray> disk() const
    {
        return without(snapshot(sandbox->root()), sandbox->root());
    }

    // The paths a scan of System Junk (module 1) lists, scanned here with
    // the same places.
    QByteArrayList listed()
    {
        const QProcessEnvironment places = environment();
        for (const char *name : {"HOME", "BRENLOW_ROOT", "BRENLOW_PLATFORM", "BRENLOW_RESOURCES"})
            qputenv(name, QFile::encodeName(places.value(QLatin1String(name))));
        TestEnvironment::resetCaches();
        const int count = int(AppModuleService::categoriesOf(1).size());
        bool done = false;
        KestalService::scan(1, {}, {}, [&](int ci) { done = done || ci + 1 == count; });
        if (!QTest::qWaitFor([&] { return done; }, 30000))
            return {"the scan did not end"};
        QByteArrayList paths;
        for (const Category &c : AppModuleService::categoriesOf(1)) {
            for (const FolderInfoPtr &f : c.files)
                paths.append(FolderInfo::pathBytes(f->url));
        }
        return paths;
    }

private slots:
    void init()
    {
        sandbox = new TreeBuilder;
        sandbox->file(QStringLiteral("home/.cache/app/a"), 300);
        sandbox->file(QStringLiteral("home/.cache/app/sub/b"), 200);
        sandbox->file(QStringLiteral("home/.cache/thumbnail ü.png"), 50);
        sandbox->file(QStringLiteral("home/.local/share/xorg/Xorg.0.log"), 40);
        sandbox->file(QStringLiteral("home/keep.txt"), 5);
        sandbox->file(QStringLiteral("root/var/crash/app.crash"), 70);
        sandbox->file(QStringLiteral("root/var/cache/apt/archives/p.deb"), 90);
        sandbox->file(QStringLiteral("root/var/lib/systemd/coredump/core.1"), 30);
        sandbox->file(QStringLiteral("root/var/lib/keep"), 5);
    }
    void cleanup()
    {
        delete sandbox;
        KestalService::reset();
    }

    void cleansExactlyWhatTheScanListed()
    {
        const QByteArrayList before = listed();
        QCOMPARE(before.size(), 6);
        const QMap<QByteArray, QByteArray> was = disk();
        const CliProcess::Result r = cli({"--select", "all", "--yes", "--json"});
        QCOMPARE(r.exitCode, 0);
        const QJsonObject json = QJsonDocument::fromJson(r.out).object();
        QCOMPARE(json[QStringLiteral("status")].toInt(), 999);
        QCOMPARE(json[QStringLiteral("number")].toInt(), 6);
        QCOMPARE(json[QStringLiteral("size")].toInteger(), 780);
        QVERIFY(json[QStringLiteral("failures")].toArray().isEmpty());
        // The listed paths are gone; nothing else changed but the program's settings.
        QCOMPARE(disk(), without(was, sandbox->root(), before));
    }

    // An item vanishes while the command line asks for confirmation, so it
    // goes to the helper; when the service or the launcher fails, the run
    // ends with -2, the install failure's words and status 2.
    void installFailuresReachTheCommandLine_data()
    {
        QTest::addColumn<QString>("service");
        QTest::addColumn<QByteArray>("launcher"); // a script's body; empty: none
        QTest::addColumn<bool>("json");
        QTest::addColumn<QString>("failure");
        QTest::newRow("service missing")
            << "/nonexistent/brenlow-service" << QByteArray() << false
            << KestalCleanManager::installFailureText(QStringLiteral("1000"));
        QTest::newRow("launcher never returns")
            << QString() << QByteArray("exec sleep 600") << true
            << KestalCleanManager::installFailureText(QStringLiteral("1023"));
    }

    void installFailuresReachTheCommandLine()
    {
        QFETCH(QString, service);
        QFETCH(QByteArray, launcher);
        QFETCH(bool, json);
        QFETCH(QString, failure);
        TreeBuilder programs;
        QProcessEnvironment env = environment();
        // Unless told otherwise the program finds its service as installed.
        env.remove(QStringLiteral("BRENLOW_SERVICE_PATH"));
        if (!service.isEmpty())
            env.insert(QStringLiteral("BRENLOW_SERVICE_PATH"), service);
        if (!launcher.isEmpty())
            env.insert(QStringLiteral("BRENLOW_HELPER_LAUNCHER"),
                       shellProgram(programs, "launcher", launcher));
        env.insert(QStringLiteral("BRENLOW_HELPER_START_TIMEOUT_MS"), QStringLiteral("300"));
        QProcess p;
        p.setProcessEnvironment(env);
        QStringList args{"clean", "System Junk", "--select", "all"};
        if (json)
            args.append(QStringLiteral("--json"));
        p.start(cliProgram, args);
        QString errors;
        QVERIFY(QTest::qWaitFor(
            [&] {
                p.waitForReadyRead(10);
                errors += QString::fromLocal8Bit(p.readAllStandardError());
                return errors.contains(QLatin1String("[y/N]"));
            },
            30000));
        QVERIFY(QFile::remove(sandbox->path(QStringLiteral("root/var/crash/app.crash"))));
        p.write("y\n");
        p.closeWriteChannel();
        QVERIFY(p.waitForFinished(30000));
        QCOMPARE(p.exitCode(), 2);
        const QByteArray out = p.readAllStandardOutput();
        if (json) {
            const QJsonObject o = QJsonDocument::fromJson(out).object();
            QCOMPARE(o[QStringLiteral("status")].toInt(), -2);
            QCOMPARE(o[QStringLiteral("installFailure")].toString(), failure);
        } else {
            QVERIFY2(QString::fromLocal8Bit(out).contains(failure), out.constData());
        }
        // What the process could remove went.
        QVERIFY(!QFile::exists(sandbox->path(QStringLiteral("home/.cache/app/a"))));
    }

    // Nothing changes without consent. The question says how much will go,
    // in the window's words and units: the default selection leaves the apt
    // archive out.
    void refusesBadUsage_data()
    {
        QTest::addColumn<QByteArrayList>("args");
        QTest::addColumn<QByteArray>("input");
        QTest::addColumn<QByteArray>("question");
        QTest::newRow("path not listed")
            << QByteArrayList{"--select", "/etc/passwd", "--yes"} << QByteArray() << QByteArray();
        QTest::newRow("not confirmed") << QByteArrayList{} << QByteArray("n\n")
                                       << QByteArray("To be removed: 5 items, 690 bytes\n");
    }

    void refusesBadUsage()
    {
        QFETCH(QByteArrayList, args);
        QFETCH(QByteArray, input);
        QFETCH(QByteArray, question);
        const QMap<QByteArray, QByteArray> before = disk();
        const CliProcess::Result r = cli(args, input);
        QCOMPARE(r.exitCode, 1);
        QVERIFY2(r.err.contains(question), r.err.constData());
        if (!question.isEmpty())
            QVERIFY2(r.err.contains("[y/N]"), r.err.constData());
        QCOMPARE(disk(), before);
    }

    // A PATH is compared as the bytes typed, never through text: a name
    // with a line break and a byte that is not UTF-8 can be chosen, and the
    // text form of that name names nothing.
    void selectsTheExactBytesOfAListedName_data()
    {
        QTest::addColumn<QByteArray>("typed"); // under the sandbox
        QTest::addColumn<int>("exitCode");
        QTest::newRow("line break and raw byte") << QByteArray("home/.cache/odd\nname\xff") << 0;
        QTest::newRow("with . and .. steps")
            << QByteArray("home/./.cache/x/../odd\nname\xff/") << 0;
        QTest::newRow("decoded and encoded again")
            << QByteArray("home/.cache/odd\nname\xef\xbf\xbd") << 1;
    }
    void selectsTheExactBytesOfAListedName()
    {
        QFETCH(QByteArray, typed);
        QFETCH(int, exitCode);
        const QByteArray odd = "/home/.cache/odd\nname\xff";
        sandbox->fileBytes(odd.mid(1), 9);
        QMap<QByteArray, QByteArray> expected = disk();
        const CliProcess::Result r =
            cli({"--select", sandbox->pathBytes(typed), "--yes", "--json"});
        QCOMPARE(r.exitCode, exitCode);
        if (exitCode == 0) {
            const QJsonObject json = QJsonDocument::fromJson(r.out).object();
            QCOMPARE(json[QStringLiteral("number")].toInt(), 1);
            expected.remove(odd);
        }
        QCOMPARE(disk(), expected);
    }
};

QTEST_GUILESS_MAIN(TestCliClean)
#include "test_cli_clean.moc"
