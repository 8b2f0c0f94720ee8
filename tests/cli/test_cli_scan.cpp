#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"
#include "support/CliProcess.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

namespace {

// A module's scan as JSON; a failed run warns and gives an empty object.
QJsonObject scanJson(const TestEnvironment &env, const QByteArray &module)
{
    const CliProcess::Result run = CliProcess::run(env, {"scan", module, "--json"});
    if (run.exitCode != 0)
        qWarning("brenlow-cli ended with %d: %s", run.exitCode, run.err.constData());
    return QJsonDocument::fromJson(run.out).object();
}

QJsonObject categoryNamed(const QJsonObject &module, const QString &title)
{
    for (const QJsonValue &c : module.value("categories").toArray()) {
        if (c.toObject().value("title").toString() == title)
            return c.toObject();
    }
    return {};
}

QStringList fileNames(const QJsonObject &category)
{
    QStringList names;
    for (const QJsonValue &f : category.value("files").toArray())
        names << f.toObject().value("name").toString();
    names.sort();
    return names;
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
        const QJsonObject module = scanJson(env, "System Junk");
        const QJsonObject caches = categoryNamed(module, "User Cache");
        QCOMPARE(fileNames(caches), QStringList({"com.example.app", "org.other"}));
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
        const QJsonObject module = QJsonDocument::fromJson(run.out).object();
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
        QCOMPARE(fileNames(categoryNamed(scanJson(env, "Custom"), "Only")), QStringList({"a"}));
        const CliProcess::Result list = CliProcess::run(env, {"modules", "--json"});
        QCOMPARE(QJsonDocument::fromJson(list.out).array().size(), 2);
    }
};

QTEST_GUILESS_MAIN(CliScan)
#include "test_cli_scan.moc"
