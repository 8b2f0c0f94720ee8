#include "TestPaths.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QImage>
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

    void finderOptionsRefuseBadInput_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::newRow("fraction") << QStringList{"scan", "Duplicates", "--min-size", "1.5"};
        QTest::newRow("missing folder")
            << QStringList{"scan", "Duplicates", "--path", "/nowhere/x"};
        QTest::newRow("other module") << QStringList{"scan", "Trash Bin", "--min-size", "4"};
        QTest::newRow("no value") << QStringList{"scan", "Duplicates", "--path"};
        QTest::newRow("threshold 0") << QStringList{"scan", "Similar Images", "--threshold", "0"};
        QTest::newRow("threshold of duplicates")
            << QStringList{"scan", "Duplicates", "--threshold", "2"};
        QTest::newRow("size of similar")
            << QStringList{"scan", "Similar Images", "--min-size", "2"};
    }
    void finderOptionsRefuseBadInput()
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
        const auto groupOf = [&](const QString &threshold) {
            const Run scan = cli(env, {"scan", "Similar Images", "--path", tree.root(),
                                       "--threshold", threshold, "--json"});
            const QJsonArray groups =
                QJsonDocument::fromJson(scan.out).object().value("categories").toArray();
            return scan.exitCode == 0 && groups.size() == 1 ? pathsOf(groups.first().toObject())
                                                            : QStringList();
        };
        QCOMPARE(groupOf("1"), pictures.mid(0, 2));
        QCOMPARE(groupOf("3"), pictures.mid(0, 3));

        const Run clean = cli(env, {"clean", "Similar Images", "--path", tree.root(), "--select",
                                    pictures[1], pictures[2], "--yes"});
        QCOMPARE(clean.exitCode, 0);
        QVERIFY(!QFile::exists(pictures[1]) && !QFile::exists(pictures[2]));
        QVERIFY(QFile::exists(pictures[0]) && QFile::exists(pictures[3]));
    }
};

QTEST_GUILESS_MAIN(CliFinders)
#include "test_cli_finders.moc"
