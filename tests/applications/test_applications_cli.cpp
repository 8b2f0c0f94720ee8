// The uninstaller and the extensions through the real brenlow-cli, the real
// service and the real helper.
#include "support/CliProcess.h"
#include "support/MadeInHome.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>
#include <unistd.h>

namespace {

CliProcess::Result cli(const TestEnvironment &env, const QStringList &args)
{
    QProcessEnvironment e = CliProcess::environmentOf(env);
    // The helper runs with our own rights, for our own home.
    e.insert("BRENLOW_HELPER_LAUNCHER", "");
    QByteArrayList bytes;
    for (const QString &a : args)
        bytes << QFile::encodeName(a);
    return CliProcess::run(CliProcess::program(), bytes, e);
}

} // namespace

class TestApplicationsCli : public QObject {
    Q_OBJECT

private slots:
    // Listed by application; a clean takes the named application and its
    // leftovers, nothing of the others; a name nothing matches is refused.
    void uninstaller()
    {
        TestEnvironment env("linux");
        TreeBuilder::write(env.root() + "/opt/Tool/run", "x");
        TreeBuilder::write(env.home() + "/.config/Tool/settings", "yy");
        TreeBuilder::write(env.home() + "/.local/share/applications/tool.desktop",
                           "[Desktop Entry]\nName=Tool Deluxe\nExec=" +
                               QFile::encodeName(env.root()) + "/opt/Tool/run\n");
        TreeBuilder::write(env.home() + "/Applications/Other-2.0.AppImage", "zzz");
        TreeBuilder::write(env.home() + "/.cache/other/c", "c");

        const CliProcess::Result scan = cli(env, {"scan", "Uninstaller", "--json"});
        QCOMPARE(scan.exitCode, 0);
        const QJsonArray apps =
            QJsonDocument::fromJson(scan.out).object().value("categories").toArray();
        QStringList titles;
        for (const QJsonValue &a : apps)
            titles << a.toObject().value("title").toString();
        titles.sort();
        QCOMPARE(titles, (QStringList{"Other", "Tool Deluxe"}));

        const CliProcess::Result unknown =
            cli(env, {"clean", "Uninstaller", "--select", "Nothing", "--yes"});
        QCOMPARE(unknown.exitCode, 1);
        QVERIFY(QFile::exists(env.root() + "/opt/Tool/run"));

        const CliProcess::Result clean =
            cli(env, {"clean", "Uninstaller", "--select", "tool deluxe", "--yes"});
        QVERIFY2(clean.exitCode == 0, clean.err.constData());
        QVERIFY(!QFileInfo::exists(env.root() + "/opt/Tool"));
        QVERIFY(!QFileInfo::exists(env.home() + "/.config/Tool"));
        QVERIFY(!QFileInfo::exists(env.home() + "/.local/share/applications/tool.desktop"));
        QVERIFY(QFileInfo::exists(env.home() + "/Applications/Other-2.0.AppImage"));
        QVERIFY(QFileInfo::exists(env.home() + "/.cache/other/c"));
        QVERIFY(QFileInfo::exists(env.root() + "/opt"));
    }

    // The rows with their state; a row moved off and on again by the helper;
    // the helper refuses a path outside the folders and a move onto an item.
    void extensions()
    {
        TestEnvironment env("linux");
        TreeBuilder::write(env.home() + "/.config/autostart/on.desktop", "[Desktop Entry]\n");
        TreeBuilder::write(env.home() + "/.config/autostart.disabled/off.desktop",
                           "[Desktop Entry]\n");
        const CliProcess::Result scan = cli(env, {"scan", "Extensions", "--json"});
        QCOMPARE(scan.exitCode, 0);
        QMap<QString, bool> rows;
        for (const QJsonValue &c :
             QJsonDocument::fromJson(scan.out).object().value("categories").toArray())
            for (const QJsonValue &f : c.toObject().value("files").toArray())
                rows.insert(f.toObject().value("name").toString(),
                            f.toObject().value("enabled").toBool());
        QCOMPARE(rows, (QMap<QString, bool>{{"on.desktop", true}, {"off.desktop", false}}));

        // The helper acts in the home of the user who started it, which is
        // the real one: a shell extension without metadata, which no shell loads.
        const QString folder = TreeBuilder::realHome() + "/.local/share/gnome-shell/extensions";
        const QString name = QStringLiteral("brenlow-test-%1@brenlow.invalid").arg(getpid());
        MadeInHome made;
        made.makeFolder(folder + "/" + name);
        made.items << folder + "/" + name << folder + ".disabled/" + name;
        made.mayMake(folder + ".disabled");

        CliProcess::Result off = cli(env, {"extensions", "toggle", folder + "/" + name});
        QVERIFY2(off.exitCode == 0, off.err.constData());
        QVERIFY(QFileInfo(folder + ".disabled/" + name).isDir());
        QVERIFY(!QFileInfo::exists(folder + "/" + name));
        CliProcess::Result on = cli(env, {"extensions", "toggle", folder + ".disabled/" + name});
        QVERIFY2(on.exitCode == 0, on.err.constData());
        QVERIFY(QFileInfo(folder + "/" + name).isDir());
        QVERIFY(!QFileInfo::exists(folder + ".disabled/" + name));

        QDir().mkpath(folder + ".disabled/" + name);
        const CliProcess::Result onto = cli(env, {"extensions", "toggle", folder + "/" + name});
        QCOMPARE(onto.exitCode, 2);
        QVERIFY(QFileInfo(folder + "/" + name).isDir());
        QVERIFY(QFileInfo(folder + ".disabled/" + name).isDir());

        TreeBuilder outside(TreeBuilder::Place::RealHome);
        const QString item = outside.file("autostart/x.desktop", 4);
        const CliProcess::Result refused = cli(env, {"extensions", "toggle", item});
        QCOMPARE(refused.exitCode, 2);
        QVERIFY(QFileInfo::exists(item));
        QVERIFY(!QFileInfo::exists(outside.path("autostart.disabled")));
    }
};

QTEST_GUILESS_MAIN(TestApplicationsCli)
#include "test_applications_cli.moc"
