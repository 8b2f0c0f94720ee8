// brenlow-cli runs Auto Cleanup's five children together and prints each.
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QtTest>

class TestAutoCleanupCli : public QObject {
    Q_OBJECT

private slots:
    void printsTheFiveChildren()
    {
        TestEnvironment env;
        TreeBuilder home(env.home());
        home.file(QStringLiteral(".cache/pip/http/blob"), 5);
        home.file(QStringLiteral(".cache/thumbnails/large/b.png"), 6);
        home.file(QStringLiteral(".local/share/Trash/files/old.txt"), 8);

        QProcess cli;
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.insert(QStringLiteral("BRENLOW_PLATFORM"), QStringLiteral("linux"));
        e.insert(QStringLiteral("BRENLOW_ROOT"), env.root());
        e.insert(QStringLiteral("BRENLOW_RESOURCES"), env.resources());
        e.insert(QStringLiteral("HOME"), env.home());
        e.insert(QStringLiteral("XDG_CONFIG_HOME"), env.root() + QStringLiteral("/config"));
        cli.setProcessEnvironment(e);
        cli.start(
            QStringLiteral(BRENLOW_TEST_BINARY_DIR "/cli/brenlow-cli"),
            {QStringLiteral("scan"), QStringLiteral("Auto Cleanup"), QStringLiteral("--json")});
        QVERIFY(cli.waitForFinished(60000));
        QCOMPARE(cli.exitCode(), 0);
        const QByteArray out = cli.readAllStandardOutput();
        const QJsonObject whole = QJsonDocument::fromJson(out).object();
        QCOMPARE(whole.value(QStringLiteral("index")).toInt(), 0);
        const QJsonArray children = whole.value(QStringLiteral("children")).toArray();
        QStringList titles;
        qint64 found = 0;
        for (const QJsonValue &child : children) {
            titles << child[QStringLiteral("title")].toString();
            for (const QJsonValue &c : child[QStringLiteral("categories")].toArray())
                found += c[QStringLiteral("size")].toInteger();
        }
        QCOMPARE(titles, QStringList({"System Junk", "Photo Cache", "Mail Trash", "Trash Bin",
                                      "iTunes Junk"}));
        QCOMPARE(found, 5 + 6 + 8);
    }
};

QTEST_GUILESS_MAIN(TestAutoCleanupCli)
#include "test_autocleanup_cli.moc"
