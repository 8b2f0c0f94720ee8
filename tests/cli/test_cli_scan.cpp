// Scans and cleans through brenlow-cli: the scanners' roots and node
// fields, their fallbacks, and the finders' options, groups and cleans.
#include "cleaner/core/Platform.h"
#include "support/CliProcess.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

// A scan's categories as JSON; a failed run warns and gives none.
QJsonArray categoriesOf(const TestEnvironment &env, const QByteArrayList &args)
{
    const CliProcess::Result run =
        CliProcess::run(env, QByteArrayList{"scan"} + args + QByteArrayList{"--json"});
    if (run.exitCode != 0)
        qWarning("brenlow-cli ended with %d: %s", run.exitCode, run.err.constData());
    return QJsonDocument::fromJson(run.out).object().value("categories").toArray();
}

QJsonObject categoryNamed(const QJsonArray &categories, const QString &title)
{
    for (const QJsonValue &c : categories) {
        if (c.toObject().value("title").toString() == title)
            return c.toObject();
    }
    return {};
}

// The category's files by name, or by path when from a url.
QStringList filesOf(const QJsonValue &category, bool paths = false)
{
    QStringList list;
    for (const QJsonValue &f : category.toObject().value("files").toArray())
        list << (paths ? QUrl(f.toObject().value("url").toString()).toLocalFile()
                       : f.toObject().value("name").toString());
    list.sort();
    return list;
}

QByteArray bytes(const QString &path)
{
    return QFile::encodeName(path);
}

} // namespace

class CliScan : public QObject {
    Q_OBJECT

private slots:
    // The scanners' macOS roots are covered in the scan tests; here the
    // command line resolves them and writes every node field.
    void macosTreeScansItsRoots()
    {
        TestEnvironment env(QStringLiteral("macos"));
        TreeBuilder tree(env.root());
        const QString home = "Users/" + Platform::userName();
        tree.file(home + "/Library/Caches/com.example.app/cache.db", 1000);
        tree.file(home + "/Library/Caches/org.other/blob", 24);
        tree.file("Library/Logs/system.log", 70);
        const QJsonArray module = categoriesOf(env, {"System Junk"});
        const QJsonObject caches = categoryNamed(module, "User Cache");
        QCOMPARE(filesOf(caches), QStringList({"com.example.app", "org.other"}));
        QCOMPARE(caches.value("size").toInteger(), 1024);
        QCOMPARE(categoryNamed(module, "System Logs").value("size").toInteger(), 70);
        const QJsonObject node = caches.value("files").toArray().first().toObject();
        for (const char *key : {"findex", "name", "size", "isFolder", "date", "url", "isPackage",
                                "children", "hidden", "checked", "dbNumber"})
            QVERIFY2(node.contains(QLatin1String(key)), key);
        QVERIFY(node.value("url").toString().startsWith("file://" + env.root() + "/" + home));
    }

    void oddRootsGiveTheirFallbacks()
    {
        TestEnvironment env(QStringLiteral("linux"));
        TreeBuilder tree(env.root());
        TreeBuilder elsewhere;
        elsewhere.file("precious/data", 10);
        // A symbolic root, a removed root, an unreadable folder, a raw name.
        tree.symlink("var/cache/apt/archives", elsewhere.path("precious"));
        tree.file("home/user/.cache/locked/inner", 5);
        tree.chmod("home/user/.cache/locked", 0);
        tree.fileBytes("home/user/.cache/caf\xe9\xff", 7);
        const CliProcess::Result run = CliProcess::run(env, {"scan", "1", "--json"});
        tree.chmod("home/user/.cache/locked", 0755);
        QCOMPARE(run.exitCode, 0);
        const QJsonArray module =
            QJsonDocument::fromJson(run.out).object().value("categories").toArray();
        QCOMPARE(categoryNamed(module, "System Cache").value("files").toArray().size(), 0);
        QCOMPARE(categoryNamed(module, "Crash Reports").value("files").toArray().size(), 0);
        const QJsonObject caches = categoryNamed(module, "User Cache");
        QCOMPARE(caches.value("files").toArray().size(), 2);
        QVERIFY2(run.out.contains("caf%E9%FF\""), run.out.constData());
        for (const QJsonValue &f : caches.value("files").toArray()) {
            if (f.toObject().value("url").toString().endsWith("caf%E9%FF"))
                QCOMPARE(f.toObject().value("size").toInt(), 7);
        }
        QVERIFY(QFile::exists(elsewhere.path("precious/data")));
    }

    void resourceFolderReplacesTheModuleList()
    {
        TestEnvironment env(QStringLiteral("linux"));
        TreeBuilder tree(env.root());
        tree.file("srv/junk/a", 3);
        env.writeModules(QVariantList{
            TestEnvironment::moduleRow("Auto", {}),
            TestEnvironment::moduleRow(
                "Custom", {TestEnvironment::categoryRow("Only", "file:///srv/junk/", {}, 1)})});
        QCOMPARE(filesOf(categoryNamed(categoriesOf(env, {"Custom"}), "Only")), QStringList{"a"});
        const CliProcess::Result list = CliProcess::run(env, {"modules", "--json"});
        QCOMPARE(QJsonDocument::fromJson(list.out).array().size(), 2);
    }

    // The groups come out as JSON; a clean takes the selected copies only.
    void duplicatesScanAndClean()
    {
        TestEnvironment env;
        TreeBuilder tree;
        const QString a = tree.file("a/x", 5000), b = tree.file("b/x", 5000),
                      c = tree.file("c/x", 5000), other = tree.file("other/y", 6000);
        const QByteArrayList where{"--path", bytes(tree.root()), "--min-size", "0"};
        const QJsonArray groups = categoriesOf(env, QByteArrayList{"Duplicates"} + where);
        QCOMPARE(groups.size(), 1);
        QCOMPARE(filesOf(groups.first(), true), (QStringList{a, b, c}));
        QCOMPARE(groups.first().toObject().value("size").toInteger(), 15000);

        const auto clean = CliProcess::run(
            env,
            QByteArrayList{"clean", "Duplicates", "--select", bytes(a), bytes(b), "--yes"} + where);
        QCOMPARE(clean.exitCode, 0);
        QVERIFY(!QFile::exists(a) && !QFile::exists(b));
        QVERIFY(QFile::exists(c) && QFile::exists(other));
    }

    // A large old file shows in two categories and goes once.
    void largeAndOldScanAndClean()
    {
        TestEnvironment env;
        TreeBuilder home(env.home());
        const QString big = home.file("old/big", 0), small = home.file("old/small", 10),
                      recent = home.file("recent", 10);
        QFile::resize(big, 120000000);
        const qint64 twoYears = 2 * 365 * 86400;
        for (const QString &p : {big, small}) {
            const struct timespec t[2] = {{time(nullptr) - twoYears, 0},
                                          {time(nullptr) - twoYears, 0}};
            utimensat(AT_FDCWD, QFile::encodeName(p).constData(), t, 0);
        }
        const QJsonArray categories = categoriesOf(env, {"Large and Old Files"});
        QCOMPARE(categories.size(), 4);
        QCOMPARE(filesOf(categories[0], true), QStringList{big});
        QCOMPARE(filesOf(categories[2], true), (QStringList{big, small}));

        const auto clean = CliProcess::run(
            env, {"clean", "Large and Old Files", "--select", bytes(big), "--yes", "--json"});
        QCOMPARE(clean.exitCode, 0);
        QCOMPARE(QJsonDocument::fromJson(clean.out).object().value("number").toInt(), 1);
        QVERIFY(!QFile::exists(big));
        QVERIFY(QFile::exists(small) && QFile::exists(recent));
    }

    // Pictures whose hashes have 0, 0, 2 and 5 ones: the threshold decides
    // the group, and a clean takes the selected pictures only.
    void similarScanAndClean()
    {
        TestEnvironment env;
        TreeBuilder tree;
        QStringList pictures;
        for (const int ones : {0, 0, 2, 5}) {
            QImage image(9, 8, QImage::Format_RGB32);
            for (int y = 0; y < 8; ++y) {
                for (int x = 0; x < 9; ++x)
                    image.setPixel(x, y, x == 0 && y < ones ? 0xffffffff : qRgb(x * 20, 0, 0));
            }
            pictures << tree.path(QString("p%1.png").arg(pictures.size()));
            QVERIFY(image.save(pictures.last()));
        }
        const auto groupOf = [&](const QByteArray &threshold) {
            const QJsonArray groups = categoriesOf(
                env, {"Similar Images", "--path", bytes(tree.root()), "--threshold", threshold});
            return groups.size() == 1 ? filesOf(groups.first(), true) : QStringList();
        };
        QCOMPARE(groupOf("1"), pictures.mid(0, 2));
        QCOMPARE(groupOf("3"), pictures.mid(0, 3));

        const auto clean =
            CliProcess::run(env, {"clean", "Similar Images", "--path", bytes(tree.root()),
                                  "--select", bytes(pictures[1]), bytes(pictures[2]), "--yes"});
        QCOMPARE(clean.exitCode, 0);
        QVERIFY(!QFile::exists(pictures[1]) && !QFile::exists(pictures[2]));
        QVERIFY(QFile::exists(pictures[0]) && QFile::exists(pictures[3]));
    }
};

QTEST_GUILESS_MAIN(CliScan)
#include "test_cli_scan.moc"
