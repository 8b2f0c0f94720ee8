// brenlow-cli clean, run as a user would run it, in a sandboxed home with
// every system folder under a built root.

#include "CleanTestSupport.h"
#include "TestPaths.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace CleanTest;

class TestCliClean : public QObject {
    Q_OBJECT

private:
    struct Result {
        int exitCode;
        QJsonObject json;
        QString errors;
    };

    TreeBuilder *sandbox = nullptr;

    QProcessEnvironment environment() const
    {
        return cliEnvironment(*sandbox, QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/resources/linux"),
                              QString());
    }

    Result cli(const QStringList &args, const QByteArray &input = {})
    {
        QProcess p;
        p.setProcessEnvironment(environment());
        p.start(cliProgram, QStringList{"clean", "System Junk"} + args);
        p.write(input);
        p.closeWriteChannel();
        if (!p.waitForFinished(60000))
            p.kill();
        return {p.exitCode(), QJsonDocument::fromJson(p.readAllStandardOutput()).object(),
                QString::fromLocal8Bit(p.readAllStandardError())};
    }

    // The paths a scan of System Junk (module 1) lists, scanned here with
    // the same places.
    QStringList listed()
    {
        const QProcessEnvironment places = environment();
        for (const char *name : {"HOME", "BRENLOW_ROOT", "BRENLOW_PLATFORM", "BRENLOW_RESOURCES"})
            qputenv(name, QFile::encodeName(places.value(QLatin1String(name))));
        TestEnvironment::resetCaches();
        const int count = int(AppModuleService::categoriesOf(1).size());
        bool done = false;
        KestalService::scan(1, {}, {}, [&](int ci) { done = done || ci + 1 == count; });
        if (!QTest::qWaitFor([&] { return done; }, 30000))
            return {QStringLiteral("the scan did not end")};
        QStringList paths;
        for (const Category &c : AppModuleService::categoriesOf(1)) {
            for (const FolderInfoPtr &f : c.files)
                paths.append(QFile::decodeName(FolderInfo::pathBytes(f->url)));
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
        const QStringList before = listed();
        QCOMPARE(before.size(), 6);
        const QMap<QByteArray, QByteArray> all = snapshot(sandbox->root());
        const Result r = cli({"--select", "all", "--yes", "--json"});
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.json[QStringLiteral("status")].toInt(), 999);
        QCOMPARE(r.json[QStringLiteral("number")].toInt(), 6);
        QCOMPARE(r.json[QStringLiteral("size")].toInteger(), 780);
        QVERIFY(r.json[QStringLiteral("failures")].toArray().isEmpty());
        // The listed paths are gone; nothing else changed but the program's settings.
        QMap<QByteArray, QByteArray> after = snapshot(sandbox->root());
        after.removeIf([](const auto &it) { return it.key().startsWith("/home/.config"); });
        QMap<QByteArray, QByteArray> expected = all;
        expected.removeIf([&](const auto &it) {
            const QString path = QFile::decodeName(QFile::encodeName(sandbox->root()) + it.key());
            return std::any_of(before.begin(), before.end(), [&](const QString &gone) {
                return path == gone || path.startsWith(gone + QLatin1Char('/'));
            });
        });
        QCOMPARE(after, expected);
    }

    void refusesBadUsage_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QByteArray>("input");
        QTest::newRow("path not listed")
            << QStringList{"--select", "/etc/passwd", "--yes"} << QByteArray();
        QTest::newRow("not confirmed") << QStringList{"--select", "all"} << QByteArray("n\n");
    }

    void refusesBadUsage()
    {
        QFETCH(QStringList, args);
        QFETCH(QByteArray, input);
        const int before = int(listed().size());
        QCOMPARE(cli(args, input).exitCode, 1);
        QCOMPARE(listed().size(), before);
    }

    // The question says how much will go, in the window's words and units:
    // the default selection leaves the apt archive out.
    void confirmationSaysWhatWillGo()
    {
        const Result r = cli({}, "n\n");
        QCOMPARE(r.exitCode, 1);
        QVERIFY2(r.errors.contains(QStringLiteral("To be removed: 5 items, 690 bytes\n")),
                 qPrintable(r.errors));
        QVERIFY2(r.errors.contains(QStringLiteral("[y/N]")), qPrintable(r.errors));
    }
};

QTEST_GUILESS_MAIN(TestCliClean)
#include "test_cli_clean.moc"
