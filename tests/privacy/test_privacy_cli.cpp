// brenlow-cli's privacy commands, run as a user runs them, over a home that
// holds Chromium and Firefox stores.
#include "PrivacyTestSupport.h"
#include "support/CliProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace PrivacyTest;

class PrivacyCli : public QObject {
    Q_OBJECT

    std::unique_ptr<World> m_w;

    CliProcess::Result cli(const QByteArrayList &args, const QByteArray &input = {})
    {
        return CliProcess::run(m_w->env, args, input);
    }

private slots:
    void init() { m_w = std::make_unique<World>(); }

    void cleanup() { m_w.reset(); }

    void scanListing()
    {
        // A record's text comes from web pages: it reaches the terminal escaped.
        exec(m_w->b.history(), "insert into urls (id,url,title,last_visit_time) values"
                               " (9,'https://evil.example/' || char(27) || '[31m','x',0);"
                               "insert into visits (id,url,visit_time) values (9,9,0);");
        const auto run = cli({"scan", "Privacy"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!run.out.contains('\x1b'));
        QVERIFY(run.out.contains("https://evil.example/\\x1b[31m"));
        QVERIFY(run.out.contains("Visit History"));
        QVERIFY(run.out.contains("https+++a.example"));
    }

    void cleanSelected()
    {
        const auto run = cli({"clean", "Privacy", "--select", "chrome/Visit History/1",
                              "Firefox/cookies", "--yes", "--json"});
        QCOMPARE(run.exitCode, 0);
        const QJsonObject report = QJsonDocument::fromJson(run.out).object();
        QCOMPARE(report.value("number").toInt(), 3);
        QCOMPARE(report.value("size").toInteger(), 1536);
        const QJsonArray rows = report.value("categories").toArray();
        QCOMPARE(rows[0].toObject().value("status").toInt(), 999);
        QCOMPARE(rows[1].toObject().value("number").toInt(), 2);
        QCOMPARE(column(m_w->b.history(), "select id from visits order by id"),
                 QStringList({"1", "3", "4"}));
        QCOMPARE(column(m_w->b.ffCookies(), "select count(*) from moz_cookies"), QStringList{"0"});
        QCOMPARE(column(m_w->b.places(), "select count(*) from moz_historyvisits"),
                 QStringList{"3"});
        QCOMPARE(integrity(m_w->b.history()), QStringLiteral("ok"));
    }

    void refused_data()
    {
        QTest::addColumn<QByteArrayList>("args");
        QTest::addColumn<QByteArray>("input");
        QTest::newRow("no such group")
            << QByteArrayList{"clean", "Privacy", "--select", "Chrome/Bookmarks", "--yes"}
            << QByteArray();
        QTest::newRow("no such record")
            << QByteArrayList{"clean", "Privacy", "--select", "Chrome/Cookies/7", "--yes"}
            << QByteArray();
        QTest::newRow("not confirmed")
            << QByteArrayList{"clean", "Privacy", "--select", "all"} << QByteArray("n\n");
    }

    void refused()
    {
        QFETCH(QByteArrayList, args);
        QFETCH(QByteArray, input);
        const QByteArray history = contents(m_w->b.history()), cookies = contents(m_w->b.cookies());
        const auto run = cli(args, input);
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(contents(m_w->b.history()), history);
        QCOMPARE(contents(m_w->b.cookies()), cookies);
    }
};

QTEST_GUILESS_MAIN(PrivacyCli)
#include "test_privacy_cli.moc"
