#include "TestPaths.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

struct Run {
    int exitCode = -1;
    QByteArray out;
};

Run cli(const TestEnvironment &env, const QStringList &args)
{
    QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
    e.insert("BRENLOW_PLATFORM", "linux");
    e.insert("BRENLOW_ROOT", env.root());
    e.insert("BRENLOW_RESOURCES", env.resources());
    e.insert("HOME", env.home());
    QProcess p;
    p.setProcessEnvironment(e);
    p.start(QStringLiteral(BRENLOW_TEST_BINARY_DIR "/bin/brenlow-cli"), args);
    if (!p.waitForFinished(120000))
        qFatal("brenlow-cli did not finish");
    return Run{p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
               p.readAllStandardOutput()};
}

QStringList pathsOf(const QJsonObject &category)
{
    QStringList paths;
    for (const QJsonValue &f : category.value("files").toArray())
        paths << QUrl(f.toObject().value("url").toString()).toLocalFile();
    paths.sort();
    return paths;
}

} // namespace

class CliFinders : public QObject {
    Q_OBJECT

private slots:
    // The groups come out as JSON; a clean takes the selected copies only.
    void duplicatesScanAndClean()
    {
        TestEnvironment env;
        TreeBuilder tree;
        const QString a = tree.file("a/x", 5000), b = tree.file("b/x", 5000),
                      c = tree.file("c/x", 5000), other = tree.file("other/y", 6000);
        const QStringList where{"--path", tree.root(), "--min-size", "0"};
        const Run scan = cli(env, QStringList{"scan", "Duplicates", "--json"} + where);
        QCOMPARE(scan.exitCode, 0);
        const QJsonArray groups =
            QJsonDocument::fromJson(scan.out).object().value("categories").toArray();
        QCOMPARE(groups.size(), 1);
        QCOMPARE(pathsOf(groups.first().toObject()), (QStringList{a, b, c}));
        QCOMPARE(groups.first().toObject().value("size").toInteger(), 15000);

        const Run clean =
            cli(env, QStringList{"clean", "Duplicates", "--select", a, b, "--yes"} + where);
        QCOMPARE(clean.exitCode, 0);
        QVERIFY(!QFile::exists(a) && !QFile::exists(b));
        QVERIFY(QFile::exists(c) && QFile::exists(other));
    }

    void duplicateOptionsRefuseBadInput_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::newRow("fraction") << QStringList{"scan", "Duplicates", "--min-size", "1.5"};
        QTest::newRow("missing folder")
            << QStringList{"scan", "Duplicates", "--path", "/nowhere/x"};
        QTest::newRow("other module") << QStringList{"scan", "Trash Bin", "--min-size", "4"};
        QTest::newRow("no value") << QStringList{"scan", "Duplicates", "--path"};
    }
    void duplicateOptionsRefuseBadInput()
    {
        QFETCH(QStringList, args);
        TestEnvironment env;
        QCOMPARE(cli(env, args).exitCode, 1);
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
        const Run scan = cli(env, {"scan", "Large and Old Files", "--json"});
        QCOMPARE(scan.exitCode, 0);
        const QJsonArray categories =
            QJsonDocument::fromJson(scan.out).object().value("categories").toArray();
        QCOMPARE(categories.size(), 4);
        QCOMPARE(pathsOf(categories[0].toObject()), QStringList{big});
        QCOMPARE(pathsOf(categories[2].toObject()), (QStringList{big, small}));

        const Run clean =
            cli(env, {"clean", "Large and Old Files", "--select", big, "--yes", "--json"});
        QCOMPARE(clean.exitCode, 0);
        QCOMPARE(QJsonDocument::fromJson(clean.out).object().value("number").toInt(), 1);
        QVERIFY(!QFile::exists(big));
        QVERIFY(QFile::exists(small) && QFile::exists(recent));
    }
};

QTEST_GUILESS_MAIN(CliFinders)
#include "test_cli_finders.moc"
