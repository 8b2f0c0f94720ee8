// brenlow-cli scans Auto Cleanup's children over the shipped Linux table.
#include "TestPaths.h"
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
    void printsWhatEachChildFound()
    {
        TestEnvironment env;
        TreeBuilder home(env.home());
        home.file(".cache/pip/http/blob", 5);
        home.file(".cache/thumbnails/large/b.png", 6);
        home.file(".cache/evolution/mail/1a2b/folders/INBOX/cur/ab/9", 7);
        home.file(".cache/evolution/mail/1a2b/folders.db", 40); // the mail store's own
        home.file(".cache/evolution/mail/trash-note", 1);
        home.file(".local/share/Trash/files/old.txt", 8);

        QProcess cli;
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.insert("BRENLOW_PLATFORM", "linux");
        e.insert("BRENLOW_ROOT", env.root());
        e.insert("BRENLOW_RESOURCES", env.resources());
        e.insert("HOME", env.home());
        e.insert("XDG_CONFIG_HOME", env.root() + "/config");
        cli.setProcessEnvironment(e);
        cli.start(BRENLOW_TEST_BINARY_DIR "/bin/brenlow-cli", {"scan", "Auto Cleanup", "--json"});
        QVERIFY(cli.waitForFinished(60000));
        QCOMPARE(cli.exitCode(), 0);
        const QJsonObject whole = QJsonDocument::fromJson(cli.readAllStandardOutput()).object();
        QCOMPARE(whole["index"].toInt(), 0);
        QStringList found;
        for (const QJsonValue &child : whole["children"].toArray()) {
            qint64 size = 0;
            for (const QJsonValue &c : child["categories"].toArray())
                size += c["size"].toInteger();
            found << child["title"].toString() + QLatin1Char('=') + QString::number(size);
        }
        QCOMPARE(found, QStringList({"System Junk=5", "Photo Cache=6", "Mail Trash=7",
                                     "Trash Bin=8", "iTunes Junk=0"}));
    }
};

QTEST_GUILESS_MAIN(TestAutoCleanupCli)
#include "test_autocleanup_cli.moc"
