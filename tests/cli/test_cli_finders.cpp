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

    void finderOptionsRefuseBadInput_data()
    {
        QTest::addColumn<QByteArrayList>("args");
        QTest::newRow("fraction") << QByteArrayList{"scan", "Duplicates", "--min-size", "1.5"};
        QTest::newRow("missing folder")
            << QByteArrayList{"scan", "Duplicates", "--path", "/nowhere/x"};
        QTest::newRow("other module") << QByteArrayList{"scan", "Trash Bin", "--min-size", "4"};
        QTest::newRow("no value") << QByteArrayList{"scan", "Duplicates", "--path"};
        QTest::newRow("threshold 0")
            << QByteArrayList{"scan", "Similar Images", "--threshold", "0"};
        QTest::newRow("threshold of duplicates")
            << QByteArrayList{"scan", "Duplicates", "--threshold", "2"};
        QTest::newRow("size of similar")
            << QByteArrayList{"scan", "Similar Images", "--min-size", "2"};
    }
    void finderOptionsRefuseBadInput()
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
            const auto scan =
                CliProcess::run(env, {"scan", "Similar Images", "--path", bytes(tree.root()),
                                      "--threshold", threshold, "--json"});
            const QJsonArray groups =
                QJsonDocument::fromJson(scan.out).object().value("categories").toArray();
            return scan.exitCode == 0 && groups.size() == 1 ? pathsOf(groups.first().toObject())
                                                            : QStringList();
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

QTEST_GUILESS_MAIN(CliFinders)
#include "test_cli_finders.moc"
