// The cleaners over stores built from the browsers' own schemas: whole
// groups and single records of every kind, with exactly the selected rows
// gone, every other byte of the home as it was, and the accounting.
#include "PrivacyTestSupport.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/clean/PrivacyClean.h"
#include "cleaner/core/Dispatch.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace PrivacyTest;

namespace {

// Every file below a folder with a digest of its bytes.
QMap<QString, QByteArray> snapshot(const QString &root)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(root, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(path, QCryptographicHash::hash(contents(path), QCryptographicHash::Sha1));
    }
    return files;
}

// Ticks records of a group (none: the whole group) as the review does.
void tick(int ci, const QString &title, const QList<int> &records)
{
    const QList<FolderInfoPtr> &groups = browser(ci).files;
    int fi = 0;
    while (fi < groups.size() && groups[fi]->name != title)
        ++fi;
    QVERIFY(fi < groups.size());
    if (records.isEmpty())
        AppModuleService::updateState(1, PrivacyService::moduleIndex, ci, fi, -1);
    for (int k : records)
        AppModuleService::updateState(1, PrivacyService::moduleIndex, ci, fi, k);
}

std::pair<qint64, int> cleanBrowser(int ci)
{
    switch (ci) {
    case 0:
        return PrivacyService::cleanChrome(ci);
    case 1:
        return PrivacyService::cleanFirefox(ci);
    default:
        return PrivacyService::cleanSafari(ci);
    }
}

// The reports of a run, as a screen receives them.
class Reports : public KestalCleanProtocol {
public:
    void done(bool, int ci, int status, int number, qint64 size) override
    {
        QMutexLocker lock(&mutex);
        lines << QStringLiteral("%1 %2 %3 %4").arg(ci).arg(status).arg(number).arg(size);
    }
    QMutex mutex;
    QStringList lines;
};

} // namespace

class PrivacyCleaners : public QObject {
    Q_OBJECT

    std::unique_ptr<World> m_w;

    QString store(const QString &key) const
    {
        const QHash<QString, QString> stores{
            {"history", m_w->b.history()}, {"cookies", m_w->b.cookies()},
            {"logins", m_w->b.logins()},   {"webdata", m_w->b.webData()},
            {"places", m_w->b.places()},   {"ffcookies", m_w->b.ffCookies()},
            {"forms", m_w->b.forms()},     {"fflogins", m_w->b.ffLogins()}};
        return stores.value(key);
    }

private slots:
    void init()
    {
        m_w = std::make_unique<World>();
        readAll();
    }

    void cleanup() { m_w.reset(); }

    void clean_data()
    {
        QTest::addColumn<int>("ci");
        QTest::addColumn<QString>("group");
        QTest::addColumn<QList<int>>("ticks"); // empty: the whole group
        QTest::addColumn<QString>("store");    // the store the query reads
        QTest::addColumn<bool>("changes");     // whether the store may change at all
        QTest::addColumn<QString>("query");
        QTest::addColumn<QStringList>("left");
        QTest::addColumn<int>("number");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<int>("recordsLeft");

        using L = QList<int>;
        using S = QStringList;
        const QString visits = "select id from visits order by id";
        const QString urls = "select id from urls order by id";
        // Record 1 is visit 2 of url 1: the visit goes, not visit 1 of url 2.
        QTest::newRow("chrome visit") << 0 << "Visit History" << L{1} << "history" << true << visits
                                      << S{"1", "3", "4"} << 1 << qint64(512) << 3;
        QTest::newRow("chrome visits whole") << 0 << "Visit History" << L{} << "history" << true
                                             << urls << S{"1", "2", "3"} << 4 << qint64(2048) << 0;
        QTest::newRow("chrome download")
            << 0 << "Downloads History" << L{0} << "history" << true << "select id from downloads"
            << S{"1"} << 1 << qint64(512) << 1;
        QTest::newRow("chrome downloads whole")
            << 0 << "Downloads History" << L{} << "history" << true << "select id from downloads"
            << S{} << 2 << qint64(1024) << 0;
        // No such column: the statement does not run, the record counts and goes.
        QTest::newRow("chrome search") << 0 << "Search History" << L{0} << "history" << false
                                       << "select term from keyword_search_terms"
                                       << S{"cats", "dogs"} << 1 << qint64(512) << 1;
        QTest::newRow("chrome searches whole")
            << 0 << "Search History" << L{} << "history" << true
            << "select term from keyword_search_terms" << S{} << 2 << qint64(1024) << 0;
        QTest::newRow("chrome cookie")
            << 0 << "Cookies" << L{0} << "cookies" << true << "select host_key from cookies"
            << S{".a.example"} << 1 << qint64(512) << 1;
        QTest::newRow("chrome login") << 0 << "Login History" << L{0} << "logins" << false
                                      << "select username_value from logins order by username_value"
                                      << S{"ann,b", "bob"} << 1 << qint64(512) << 1;
        QTest::newRow("chrome logins whole")
            << 0 << "Login History" << L{} << "logins" << true
            << "select username_value from logins" << S{} << 2 << qint64(1024) << 0;
        QTest::newRow("chrome autofill") << 0 << "Auto Fill History" << L{1} << "webdata" << false
                                         << "select value from autofill order by name"
                                         << S{"ann@a.example", "it's"} << 1 << qint64(512) << 1;
        QTest::newRow("chrome autofill whole")
            << 0 << "Auto Fill History" << L{} << "webdata" << true << "select value from autofill"
            << S{} << 2 << qint64(1024) << 0;
        QTest::newRow("chrome downloaded file") << 0 << "Downloaded Files" << L{0} << "file" << true
                                                << "" << S{} << 1 << qint64(3000) << 0;
        QTest::newRow("chrome local storage") << 0 << "HTML5 Local Storage" << L{-1} << "storage"
                                              << true << "" << S{} << 1 << qint64(100) << 1;
        QTest::newRow("chrome local storage whole")
            << 0 << "HTML5 Local Storage" << L{} << "storage" << true << "" << S{} << 2
            << qint64(300) << 0;

        const QString ffVisits = "select id from moz_historyvisits order by id";
        QTest::newRow("firefox visit") << 1 << "Visit History" << L{0} << "places" << true
                                       << ffVisits << S{"5", "6"} << 1 << qint64(512) << 2;
        QTest::newRow("firefox visits whole")
            << 1 << "Visit History" << L{} << "places" << true
            << "select id from moz_places order by id" << S{"1", "2"} << 3 << qint64(1536) << 0;
        QTest::newRow("firefox download")
            << 1 << "Downloads History" << L{0} << "places" << true << "select id from moz_annos"
            << S{"2"} << 1 << qint64(512) << 1;
        QTest::newRow("firefox keyword")
            << 1 << "Search History" << L{0} << "places" << true << "select id from moz_keywords"
            << S{"4"} << 1 << qint64(512) << 1;
        QTest::newRow("firefox cookie")
            << 1 << "Cookies" << L{1} << "ffcookies" << true << "select id from moz_cookies"
            << S{"1"} << 1 << qint64(512) << 1;
        QTest::newRow("firefox cookies whole")
            << 1 << "Cookies" << L{} << "ffcookies" << true << "select id from moz_cookies" << S{}
            << 2 << qint64(1024) << 0;
        // The id twice with a comma: the statement does not run.
        QTest::newRow("firefox form")
            << 1 << "Auto Fill History" << L{1} << "forms" << false
            << "select id from moz_formhistory order by id" << S{"1", "2"} << 1 << qint64(512) << 1;
        QTest::newRow("firefox forms whole")
            << 1 << "Auto Fill History" << L{} << "forms" << true
            << "select id from moz_formhistory" << S{} << 2 << qint64(1024) << 0;
        QTest::newRow("firefox login") << 1 << "Login History" << L{1} << "fflogins" << true << ""
                                       << S{"1"} << 1 << qint64(512) << 1;
        QTest::newRow("firefox logins whole") << 1 << "Login History" << L{} << "fflogins" << true
                                              << "" << S{} << 2 << qint64(1024) << 0;
        QTest::newRow("firefox storage") << 1 << "HTML5 Local Storage" << L{-1} << "storage" << true
                                         << "" << S{} << 1 << qint64(4000) << 1;
    }

    void clean()
    {
        QFETCH(int, ci);
        QFETCH(QString, group);
        QFETCH(QList<int>, ticks);
        QFETCH(QString, store);
        QFETCH(bool, changes);
        QFETCH(QString, query);
        QFETCH(QStringList, left);
        QFETCH(int, number);
        QFETCH(qint64, size);
        QFETCH(int, recordsLeft);

        const FolderInfoPtr node = PrivacyTest::group(ci, group);
        QVERIFY(node);
        // -1 stands for the "a.example" entry of a local storage folder, whose
        // place among the entries is the file system's.
        for (int &k : ticks) {
            if (k == -1)
                for (int i = 0; i < node->children.size(); ++i)
                    if (node->children[i]->name.contains(QLatin1String("a.example")))
                        k = i;
        }
        const QString path = this->store(store);
        const QList<FolderInfoPtr> before = node->children;
        QList<FolderInfoPtr> removed;
        for (int k : ticks)
            removed << before[k];
        if (ticks.isEmpty())
            removed = before;
        const qint64 categorySize = browser(ci).size;
        const QMap<QString, QByteArray> was = snapshot(m_w->env.home());
        const QString schemaQuery = QStringLiteral("select sql from sqlite_master order by name");
        const QStringList schemaBefore = column(path, schemaQuery);
        tick(ci, group, ticks);

        const auto [cleanedSize, cleanedNumber] = cleanBrowser(ci);
        QCOMPARE(cleanedNumber, number);
        QCOMPARE(cleanedSize, size);
        QCOMPARE(browser(ci).size, categorySize - size);
        QCOMPARE(node->children.size(), recordsLeft);
        for (int i = 0; i < node->children.size(); ++i)
            QCOMPARE(node->children[i]->findex, i);
        if (ticks.isEmpty()) {
            QCOMPARE(node->size, 0);
            QCOMPARE(node->checked, 0);
        }

        // The store holds what it should, and is sound.
        if (!query.isEmpty()) {
            QCOMPARE(column(path, query), left);
            QCOMPARE(integrity(path), QStringLiteral("ok"));
            // Tables and indexes as the browser made them: it opens the store as its own.
            QCOMPARE(column(path, schemaQuery), schemaBefore);
        }
        if (store == QLatin1String("fflogins")) {
            const QJsonObject top = QJsonDocument::fromJson(contents(path)).object();
            QStringList ids;
            for (const QJsonValue &login : top.value("logins").toArray())
                ids << QString::number(login.toObject().value("id").toInteger());
            QCOMPARE(ids, left);
            QCOMPARE(top.value("nextId").toInt(), 4); // the rest of the file stays
            QCOMPARE(top.value("version").toInt(), 3);
        }

        // Nothing else in the home changed: not another store, not another file.
        const QMap<QString, QByteArray> now = snapshot(m_w->env.home());
        for (auto it = was.begin(); it != was.end(); ++it) {
            const QString &file = it.key();
            const bool listed =
                std::any_of(removed.begin(), removed.end(), [&](const FolderInfoPtr &r) {
                    // Firefox's storage path holds the double slash its profile path gives.
                    const QString p =
                        QDir::cleanPath(QString::fromUtf8(FolderInfo::pathBytes(r->url)));
                    return !p.isEmpty() &&
                           (file == p || file.startsWith(p + "/") || file == p + "-journal");
                });
            if (listed && (store == QLatin1String("file") || store == QLatin1String("storage"))) {
                QVERIFY2(!now.contains(file), qPrintable(file));
                continue;
            }
            if (changes && !path.isEmpty() && file.startsWith(path))
                continue;
            QVERIFY2(now.value(file) == it.value(), qPrintable(file + " changed"));
        }
        for (const QString &file : now.keys())
            QVERIFY2(was.contains(file), qPrintable(file + " appeared"));
    }

    void accounting()
    {
        // A group left at 0 is skipped, whatever its records say.
        const FolderInfoPtr visits = group(0, "Visit History");
        visits->children[0]->checked = 1;
        const QByteArray history = contents(m_w->b.history());
        QCOMPARE(PrivacyService::cleanChrome(0), std::make_pair(qint64(0), 0));
        QCOMPARE(contents(m_w->b.history()), history);
        QCOMPARE(visits->children.size(), 4);

        // More cleaned than the category held leaves 0, never less.
        tick(0, "Cookies", {});
        browser(0).size = 100;
        QCOMPARE(PrivacyService::cleanChrome(0), std::make_pair(qint64(1024), 2));
        QCOMPARE(browser(0).size, 0);

        // A category without groups: (0, 0) and size 0.
        QCOMPARE(PrivacyService::cleanSafari(2), std::make_pair(qint64(0), 0));
        QCOMPARE(browser(2).size, 0);

        // The group's own size is left as it was by a clean of some records.
        tick(1, "Cookies", {0});
        QCOMPARE(PrivacyService::cleanFirefox(1).second, 1);
        QCOMPARE(group(1, "Cookies")->size, 1024);
        QCOMPARE(group(1, "Cookies")->children.size(), 1);
    }

    void lockedStore()
    {
        // A browser holding its store: the statements fail and are dropped, the
        // records count and leave the list, the store is as it was.
        sqlite3 *db = nullptr;
        QCOMPARE(sqlite3_open(m_w->b.places().toUtf8().constData(), &db), SQLITE_OK);
        QCOMPARE(sqlite3_exec(db, "BEGIN EXCLUSIVE;", nullptr, nullptr, nullptr), SQLITE_OK);
        const QByteArray before = contents(m_w->b.places());
        tick(1, "Visit History", {0});
        tick(1, "Downloads History", {});
        QCOMPARE(PrivacyService::cleanFirefox(1), std::make_pair(qint64(512 + 1024), 3));
        sqlite3_exec(db, "COMMIT;", nullptr, nullptr, nullptr);
        sqlite3_close(db);
        QCOMPARE(contents(m_w->b.places()), before);
        QCOMPARE(group(1, "Visit History")->children.size(), 2);
        QCOMPARE(group(1, "Downloads History")->children.size(), 0);
        QCOMPARE(column(m_w->b.places(), "select count(*) from moz_historyvisits"),
                 QStringList{"3"});
    }

    void valuesThatCloseTheStatement()
    {
        // Values put together into a statement may end it and start another:
        // such text is never run, so no row beyond the selected one can go.
        exec(m_w->b.logins(),
             "insert into logins (origin_url,signon_realm,username_value,date_created,"
             "blacklisted_by_user,scheme) values ('1','1','1; delete from logins',0,0,0);");
        exec(m_w->b.webData(), "insert into autofill (name,value,value_lower) values"
                               " ('1','1; delete from autofill','x');");
        readAll();
        tick(0, "Login History", {2});
        tick(0, "Auto Fill History", {2});
        QCOMPARE(group(0, "Login History")->children[2]->dbNumber,
                 QStringLiteral("1,1,1; delete from logins"));
        QCOMPARE(PrivacyService::cleanChrome(0).second, 2);
        QCOMPARE(column(m_w->b.logins(), "select count(*) from logins"), QStringList{"3"});
        QCOMPARE(column(m_w->b.webData(), "select count(*) from autofill"), QStringList{"3"});
        QCOMPARE(integrity(m_w->b.logins()), QStringLiteral("ok"));
    }

    void safari()
    {
        TestEnvironment mac(QStringLiteral("macos"));
        TreeBuilder home(mac.home());
        const QString safari = home.folder("Library/Safari");
        makeStore(
            safari + "/History.db", "safari-history.sql",
            "insert into history_items (id,url,visit_count,daily_visit_counts,"
            "should_recompute_derived_visit_counts,visit_count_score) values"
            " (1,'https://a.example/',2,x'',0,0);"
            "insert into history_visits (id,history_item,visit_time) values (8,1,1),(9,1,2);");
        const QVariantList history{
            QVariantMap{{"DownloadEntryPath", "~/a.dmg"}, {"DownloadEntryIdentifier", "ID-1"}},
            QVariantMap{{"DownloadEntryPath", "~/b.dmg"}, {"DownloadEntryIdentifier", "ID-2"}},
            QVariantMap{{"DownloadEntryPath", "~/c.dmg"}}};
        QFile plist(safari + "/Downloads.plist");
        QVERIFY(plist.open(QIODevice::WriteOnly));
        plist.write(
            PropertyList::toBinary(QVariantMap{{"DownloadHistory", history}, {"Other", 7}}));
        plist.close();
        // A store whose name holds a quote, with its side files.
        const QString quoted = home.file("Library/Safari/LocalStorage/it's_0.localstorage", 10);
        home.file("Library/Safari/LocalStorage/it's_0.localstorage-wal", 5);
        const QString other = home.file("Library/Safari/LocalStorage/b_0.localstorage", 20);
        const QString tracker = safari + "/LocalStorage/StorageTracker.db";
        makeStore(tracker, "safari-storagetracker.sql",
                  QStringLiteral("insert into Origins values ('a','%1'),('b','%2');")
                      .arg(QString(quoted).replace("'", "''"), other));
        readAll();

        tick(2, "Visit History", {0});
        tick(2, "Downloads History", {1, 2}); // the third entry has no identifier
        tick(2, "HTML5 Local Storage", {0});
        const auto [size, number] = PrivacyService::cleanSafari(2);
        QCOMPARE(number, 3);
        QCOMPARE(size, qint64(512 * 2 + 512));
        QCOMPARE(column(safari + "/History.db", "select id from history_visits"), QStringList{"8"});
        QCOMPARE(column(safari + "/History.db", "select count(*) from history_items"),
                 QStringList{"1"});
        const QByteArray written = contents(safari + "/Downloads.plist");
        QVERIFY(written.startsWith("bplist")); // kept in its own format
        const QVariantMap top = PropertyList::fromData(written)->toMap();
        QCOMPARE(top.value("Other").toInt(), 7);
        const QVariantList kept = top.value("DownloadHistory").toList();
        QCOMPARE(kept.size(), 2);
        QCOMPARE(kept[0].toMap().value("DownloadEntryIdentifier").toString(),
                 QStringLiteral("ID-1"));
        QCOMPARE(column(tracker, "select origin from Origins"), QStringList{"b"});
        QVERIFY(!QFileInfo::exists(quoted));
        QVERIFY(!QFileInfo::exists(quoted + "-wal"));
        QVERIFY(QFileInfo::exists(other));

        // The whole downloads group empties the list and keeps the rest.
        tick(2, "Downloads History", {});
        PrivacyService::cleanSafari(2);
        const QVariantMap emptied = PropertyList::fromFile(safari + "/Downloads.plist")->toMap();
        QCOMPARE(emptied.value("DownloadHistory").toList().size(), 0);
        QCOMPARE(emptied.value("Other").toInt(), 7);

        // A list of the wrong type is left as it is.
        readAll();
        QVERIFY(plist.open(QIODevice::WriteOnly | QIODevice::Truncate));
        plist.write(PropertyList::toXml(QVariantMap{{"DownloadHistory", "not a list"}}));
        plist.close();
        const QByteArray wrong = contents(safari + "/Downloads.plist");
        tick(2, "Visit History", {});
        PrivacyService::cleanSafari(2);
        QCOMPARE(contents(safari + "/Downloads.plist"), wrong);
    }

    void caller()
    {
        // The three cleaners in order, each reported, then the module.
        tick(0, "Cookies", {});
        tick(1, "Visit History", {0});
        auto reports = std::make_shared<Reports>();
        KestalModuleCleanService::cleanStatusDict().remove(PrivacyService::moduleIndex);
        bool ended = false;
        Dispatch::globalAsync([reports, &ended] {
            PrivacyClean::run(reports);
            Dispatch::mainAsync([&ended] { ended = true; });
        });
        QTRY_VERIFY(ended);
        QCOMPARE(reports->lines,
                 QStringList({"0 999 2 1024", "1 999 1 512", "2 999 0 0", "-1 1 3 1536"}));
        QCOMPARE(KestalModuleCleanService::cleanStatusDict().value(PrivacyService::moduleIndex),
                 cleanStatus::cleandone);
        QCOMPARE(column(m_w->b.cookies(), "select count(*) from cookies"), QStringList{"0"});
    }
};

QTEST_GUILESS_MAIN(PrivacyCleaners)
#include "test_privacy_cleaners.moc"
