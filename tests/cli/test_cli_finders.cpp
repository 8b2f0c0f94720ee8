#include "support/CliProcess.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

QByteArray bytes(const QString &path)
{
    return QFile::encodeName(path);
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
        const QByteArrayList where{"--path", bytes(tree.root()), "--min-size", "0"};
        const auto scan =
            CliProcess::run(env, QByteArrayList{"scan", "Duplicates", "--json"} + where);
        QCOMPARE(scan.exitCode, 0);
        const QJsonArray groups =
            QJsonDocument::fromJson(scan.out).object().value("categories").toArray();
        QCOMPARE(groups.size(), 1);
        QCOMPARE(pathsOf(groups.first().toObject()), (QStringList{a, b, c}));
        QCOMPARE(groups.first().toObject().value("size").toInteger(), 15000);

        const auto clean = CliProcess::run(
            env,
            QByteArrayList{"clean", "Duplicates", "--select", bytes(a), bytes(b), "--yes"} + where);
        QCOMPARE(clean.exitCode, 0);
        QVERIFY(!QFile::exists(a) && !QFile::exists(b));
        QVERIFY(QFile::exists(c) && QFile::exists(other));
    }

    void duplicateOptionsRefuseBadInput_data()
    {
        QTest::addColumn<QByteArrayList>("args");
        QTest::newRow("fraction") << QByteArrayList{"scan", "Duplicates", "--min-size", "1.5"};
        QTest::newRow("missing folder")
            << QByteArrayList{"scan", "Duplicates", "--path", "/nowhere/x"};
        QTest::newRow("other module") << QByteArrayList{"scan", "Trash Bin", "--min-size", "4"};
        QTest::newRow("no value") << QByteArrayList{"scan", "Duplicates", "--path"};
    }
    void duplicateOptionsRefuseBadInput()
    {
        QFETCH(QByteArrayList, args);
        TestEnvironment env;
        QCOMPARE(CliProcess::run(env, args).exitCode, 1);
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
        const auto scan = CliProcess::run(env, {"scan", "Large and Old Files", "--json"});
        QCOMPARE(scan.exitCode, 0);
        const QJsonArray categories =
            QJsonDocument::fromJson(scan.out).object().value("categories").toArray();
        QCOMPARE(categories.size(), 4);
        QCOMPARE(pathsOf(categories[0].toObject()), QStringList{big});
        QCOMPARE(pathsOf(categories[2].toObject()), (QStringList{big, small}));

        const auto clean = CliProcess::run(
            env, {"clean", "Large and Old Files", "--select", bytes(big), "--yes", "--json"});
        QCOMPARE(clean.exitCode, 0);
        QCOMPARE(QJsonDocument::fromJson(clean.out).object().value("number").toInt(), 1);
        QVERIFY(!QFile::exists(big));
        QVERIFY(QFile::exists(small) && QFile::exists(recent));
    }
};

QTEST_GUILESS_MAIN(CliFinders)
#include "test_cli_finders.moc"
