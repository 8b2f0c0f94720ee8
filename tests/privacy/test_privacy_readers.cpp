// The readers over stores built from the browsers' own schemas: every record
// kind with its name, date, size and deletion key, the profile discovery,
// and what damaged, locked or missing stores give.
#include "PrivacyTestSupport.h"
#include "cleaner/core/Platform.h"

#include <QJsonDocument>
#include <sys/stat.h>
#include <utime.h>

using namespace PrivacyTest;

namespace {

QDateTime at(qint64 unixSeconds)
{
    return QDateTime::fromSecsSinceEpoch(unixSeconds, Qt::UTC);
}

} // namespace

class PrivacyReaders : public QObject {
    Q_OBJECT

    std::unique_ptr<World> m_w;

private slots:
    void init() { m_w = std::make_unique<World>(); }

    void cleanup() { m_w.reset(); }

    void records_data()
    {
        QTest::addColumn<int>("ci");
        QTest::addColumn<QString>("group");
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QDateTime>("date");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<QString>("dbNumber");

        const QString defaultName = QStringLiteral("The file is damaged and cannot be viewed");
        // Chrome. A visit's key is the id of its url row: the later table's.
        QTest::newRow("chrome visit, joined id")
            << 0 << "Visit History" << 1 << "https://a.example/" << at(kT1) << qint64(512) << "1";
        QTest::newRow("chrome visit, comma") << 0 << "Visit History" << 0 << "https://b.example/x,y"
                                             << at(kT2) << qint64(512) << "2";
        QTest::newRow("chrome visit, empty url")
            << 0 << "Visit History" << 3 << defaultName << at(kT3) << qint64(512) << "3";
        // "<file>" stands for the downloaded file and its modification date.
        const QString file = QStringLiteral("<file>");
        const QDateTime fileDate = QDateTime::fromSecsSinceEpoch(1, Qt::UTC);
        QTest::newRow("chrome download")
            << 0 << "Downloads History" << 1 << file << at(kT1) << qint64(512) << "1";
        QTest::newRow("chrome downloaded file")
            << 0 << "Downloaded Files" << 0 << file << fileDate << qint64(3000) << "";
        QTest::newRow("chrome search, no time")
            << 0 << "Search History" << 0 << "Alpha" << QDateTime() << qint64(512) << "1";
        QTest::newRow("chrome cookie") << 0 << "Cookies" << 1 << ".a.example" << at(kT1)
                                       << qint64(512) << QString::number(chromeTime(kT1));
        QTest::newRow("chrome login, 100000 and no shift")
            << 0 << "Login History" << 0 << "https://a.example/" << at(kT1) << qint64(512)
            << "https://a.example/login,https://a.example/,ann,b";
        QTest::newRow("chrome autofill")
            << 0 << "Auto Fill History" << 1 << "q" << at(kT2) << qint64(512) << "q,it's";
        QTest::newRow("chrome local storage")
            << 0 << "HTML5 Local Storage" << -1 << "https_b.example_0.localstorage" << QDateTime()
            << qint64(200) << "";

        // Firefox. A visit's key is the visit's id, moz_historyvisits being later.
        QTest::newRow("firefox visit")
            << 1 << "Visit History" << 2 << "https://b.example/" << at(kT2) << qint64(512) << "6";
        QTest::newRow("firefox download")
            << 1 << "Downloads History" << 1 << "file:///nowhere/gone.zip" << at(kT2) << qint64(512)
            << "2";
        QTest::newRow("firefox downloaded file")
            << 1 << "Downloaded Files" << 0 << file << fileDate << qint64(3000) << "1";
        QTest::newRow("firefox keyword, divisor 1110")
            << 1 << "Search History" << 0 << "al"
            << QDateTime::fromMSecsSinceEpoch(qRound64(kT1 * 1000000.0 / 1110 * 1000), Qt::UTC)
            << qint64(512) << "3";
        QTest::newRow("firefox cookie by host")
            << 1 << "Cookies" << 1 << "b.example" << at(kT2) << qint64(512) << "2";
        QTest::newRow("firefox login")
            << 1 << "Login History" << 0 << "https://a.example/in" << at(kT1) << qint64(512) << "1";
        QTest::newRow("firefox login, no submit url")
            << 1 << "Login History" << 1 << defaultName << at(kT2) << qint64(512) << "3";
        QTest::newRow("firefox form, divisor 100000, id twice")
            << 1 << "Auto Fill History" << 0 << "q" << at(kT1 * 10) << qint64(512) << "1,1";
        QTest::newRow("firefox storage, hidden files not counted")
            << 1 << "HTML5 Local Storage" << -1 << "https+++a.example" << QDateTime()
            << qint64(4000) << "";
    }

    void records()
    {
        QFETCH(int, ci);
        QFETCH(QString, group);
        QFETCH(int, index);
        QFETCH(QString, name);
        QFETCH(QDateTime, date);
        QFETCH(qint64, size);
        QFETCH(QString, dbNumber);
        if (name == QLatin1String("<file>"))
            name = m_w->b.downloaded;
        if (date == QDateTime::fromSecsSinceEpoch(1, Qt::UTC))
            date = QFileInfo(m_w->b.downloaded).lastModified().toUTC();
        readAll();
        const FolderInfoPtr g = PrivacyTest::group(ci, group);
        QVERIFY(g);
        QVERIFY(g->isPackage);
        FolderInfoPtr r;
        if (index >= 0) {
            QVERIFY(index < g->children.size());
            r = g->children[index];
            QCOMPARE(r->findex, index);
            QCOMPARE(r->date, date);
        } else {
            // Folder entries come in the file system's order: found by name.
            for (const FolderInfoPtr &c : g->children)
                if (c->name == name)
                    r = c;
            QVERIFY(r);
        }
        QCOMPARE(r->name, name);
        QCOMPARE(r->size, size);
        QCOMPARE(r->dbNumber, dbNumber);
        QVERIFY(!r->isPackage);
        qint64 sum = 0;
        for (const FolderInfoPtr &c : g->children)
            sum += c->size;
        QCOMPARE(g->size, sum);
    }

    void groupsInKindOrder()
    {
        readAll();
        const QStringList chrome{
            "Visit History", "Downloads History", "Downloaded Files",  "Search History",
            "Cookies",       "Login History",     "Auto Fill History", "HTML5 Local Storage"};
        QStringList titles;
        qint64 total = 0;
        for (const FolderInfoPtr &g : browser(0).files) {
            QCOMPARE(g->findex, int(titles.size()));
            titles << g->name;
            total += g->size;
        }
        QCOMPARE(titles, chrome);
        QCOMPARE(browser(0).size, total);
        // The journal goes with its store and is no record of its own; the
        // download whose file is gone stays as history only.
        QCOMPARE(group(0, "HTML5 Local Storage")->children.size(), 2);
        QCOMPARE(group(0, "Downloads History")->children.size(), 2);
        QCOMPARE(group(0, "Downloaded Files")->children.size(), 1);
        QCOMPARE(browser(1).files.size(), 8);
        QCOMPARE(browser(2).files.size(), 0); // no Safari on Linux
        QCOMPARE(browser(2).size, 0);

        // A kind the dictionary lacks leaves no gap; an unknown kind changes nothing.
        BrowserGroups two;
        two.insert(BowserList::Login,
                   PrivacyFolderInfo::manageData(BowserList::Login, "L", 512, {}));
        two.insert(BowserList::Visit,
                   PrivacyFolderInfo::manageData(BowserList::Visit, "V", 1024, {}));
        PrivacyService::updateModule(two, QStringLiteral("opera"));
        QCOMPARE(browser(2).files.size(), 0);
        PrivacyService::updateModule(two, QStringLiteral("safari"));
        QCOMPARE(browser(2).files.size(), 2);
        QCOMPARE(browser(2).files[1]->name, QStringLiteral("Login History"));
        QCOMPARE(browser(2).files[1]->findex, 1);
        QCOMPARE(browser(2).size, 1536);
    }

    void browserFolderPreferences()
    {
        // The XDG folders are read by records(). Google Chrome's folder wins over Chromium's, the
        // moved cookie store over the old place, the older Firefox folder over the XDG one.
        m_w->home.file(".config/google-chrome/Default/Network/Cookies");
        m_w->home.folder(".mozilla/firefox/zz.default");
        PrivacyService::reset();
        QCOMPARE(PrivacyService::chromeCookiePath(),
                 m_w->env.home() + "/.config/google-chrome/Default/Network/Cookies");
        QCOMPARE(PrivacyService::chromeAutoPath(),
                 m_w->env.home() + "/.config/google-chrome/Default/Web Data");
        QCOMPARE(PrivacyService::firefoxCookiesPath(),
                 m_w->env.home() + "/.mozilla/firefox/zz.default/cookies.sqlite");
    }

    void firefoxProfileChoice()
    {
        // Of two ".default" profiles the one changed last is in use; a blank
        // stays a blank; other folders and files do not count.
        const QString older = m_w->home.folder(".mozilla/firefox/aa11.default-esr");
        const QString newer = m_w->home.folder(".mozilla/firefox/zz99 my.default");
        m_w->home.file(".mozilla/firefox/yy.default.txt");
        m_w->home.folder(".mozilla/firefox/Crash Reports");
        const auto setTime = [](const QString &path, qint64 t) {
            const struct utimbuf times {
                time_t(t), time_t(t)
            };
            QCOMPARE(utime(QFile::encodeName(path).constData(), &times), 0);
        };
        setTime(older, kT2);
        setTime(newer, kT1);
        QCOMPARE(PrivacyFolderInfo::getFireFoxPath(), older + "/");
        setTime(newer, kT3);
        QCOMPARE(PrivacyFolderInfo::getFireFoxPath(), newer + "/");
        QVERIFY(!PrivacyFolderInfo::getFireFoxPath().contains("%20"));

        QDir(older).removeRecursively();
        QDir(newer).removeRecursively();
        QCOMPARE(PrivacyFolderInfo::getFireFoxPath(), QString());
        PrivacyService::reset();
        QCOMPARE(PrivacyService::firefoxHistoryPath(), QStringLiteral("places.sqlite"));
    }

    void missingStores()
    {
        // No Chrome at all: no groups. A profile folder without its stores:
        // empty groups, and no store is made in the browser's folder.
        QDir(m_w->env.home() + "/.config/chromium").removeRecursively();
        readAll();
        QCOMPARE(browser(0).files.size(), 0);
        QCOMPARE(browser(0).size, 0);

        m_w->home.folder(".config/chromium/Default");
        PrivacyService::reset(); // the places are fixed on first use
        readAll();
        QCOMPARE(browser(0).files.size(), 7); // no local storage folder
        for (const FolderInfoPtr &g : browser(0).files)
            QVERIFY(g->children.isEmpty());
        QCOMPARE(QDir(m_w->b.chrome).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
                 QStringList());
    }

    // A store that cannot be read (no database, damaged, held by its browser,
    // a logins file of the wrong shape) shows as an empty group and stays as
    // it was; the other stores read as ever.
    void unreadableStoresReadEmpty_data()
    {
        QTest::addColumn<int>("ci");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QByteArray>("bytes"); // the store's new contents
        const QString cookies = QStringLiteral("Cookies"), logins = QStringLiteral("Login History");
        QTest::newRow("zero length") << 0 << cookies << QByteArray();
        QTest::newRow("not a database") << 0 << cookies << QByteArray("a text file, not a store");
        QTest::newRow("damaged database") << 0 << cookies << QByteArray("<damaged>");
        QTest::newRow("locked by the browser") << 0 << cookies << QByteArray("<locked>");
        QTest::newRow("logins not JSON") << 1 << logins << QByteArray("{\"logins\": [");
        QTest::newRow("logins not a list") << 1 << logins << QByteArray(R"({"logins": {"id": 1}})");
        QTest::newRow("logins in a list") << 1 << logins << QByteArray(R"([{"id": 1}])");
    }

    void unreadableStoresReadEmpty()
    {
        QFETCH(int, ci);
        QFETCH(QString, title);
        QFETCH(QByteArray, bytes);
        const QString store = ci == 0 ? m_w->b.cookies() : m_w->b.ffLogins();
        sqlite3 *db = nullptr;
        if (bytes == "<locked>") {
            QCOMPARE(sqlite3_open(store.toUtf8().constData(), &db), SQLITE_OK);
            QCOMPARE(sqlite3_exec(db, "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE;", nullptr,
                                  nullptr, nullptr),
                     SQLITE_OK);
        } else {
            if (bytes == "<damaged>") // the captured store with its pages overwritten
                bytes = contents(store).replace(100, 3000, QByteArray(3000, '\xff'));
            QFile f(store);
            QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
            f.write(bytes);
        }
        const QByteArray before = contents(store);
        readAll();
        sqlite3_exec(db, "COMMIT;", nullptr, nullptr, nullptr);
        sqlite3_close(db);
        QVERIFY(group(ci, title));
        QCOMPARE(group(ci, title)->children.size(), 0);
        QCOMPARE(contents(store), before);
        QCOMPARE(group(0, "Visit History")->children.size(), 4);
        QCOMPARE(group(0, "Auto Fill History")->children.size(), 2);
    }

    void safariOnMac()
    {
        TestEnvironment mac(QStringLiteral("macos"));
        TreeBuilder home(mac.home());
        const QString safari = home.folder("Library/Safari");
        // Safari counts seconds from its own reference point.
        makeStore(safari + "/History.db", "safari-history.sql",
                  QStringLiteral("insert into history_items (id,url,visit_count,daily_visit_counts,"
                                 "should_recompute_derived_visit_counts,visit_count_score) values"
                                 " (1,'https://a.example/',1,x'',0,0);"
                                 "insert into history_visits (id,history_item,visit_time) values"
                                 " (9,1,%1);")
                      .arg(kT1 - 978278400));
        const QString file = home.file("Downloads/a b.dmg", 1234);
        QVariantList history{QVariantMap{{"DownloadEntryPath", "~/Downloads/a b.dmg"},
                                         {"DownloadEntryIdentifier", "ID-1"},
                                         {"DownloadEntryDateFinishedKey", at(kT2)}},
                             QVariantMap{{"DownloadEntryPath", "~/Downloads/gone.zip"}},
                             QVariant("not a dictionary")};
        QFile plist(safari + "/Downloads.plist");
        QVERIFY(plist.open(QIODevice::WriteOnly));
        plist.write(PropertyList::toBinary(QVariantMap{{"DownloadHistory", history}}));
        plist.close();
        const QString db =
            home.file("Library/Safari/LocalStorage/https_a.example_0.localstorage", 300);
        makeStore(safari + "/LocalStorage/StorageTracker.db", "safari-storagetracker.sql",
                  QStringLiteral("insert into Origins values ('https_a.example_0','%1');").arg(db));
        readAll();
        QCOMPARE(PrivacyService::chromeLoginPath(),
                 mac.home() + "/Library/Application Support/Google/Chrome/Default/login Data");
        QCOMPARE(browser(2).files.size(), 8);
        const FolderInfoPtr visit = group(2, "Visit History")->children.value(0);
        QVERIFY(visit);
        QCOMPARE(visit->date, at(kT1));
        QCOMPARE(visit->dbNumber, QStringLiteral("9"));
        const FolderInfoPtr downloads = group(2, "Downloads History");
        QCOMPARE(downloads->children.size(), 2);
        QCOMPARE(downloads->children[0]->dbNumber, QStringLiteral("ID-1"));
        QCOMPARE(downloads->children[0]->date, at(kT2));
        QCOMPARE(downloads->children[1]->dbNumber, QString());
        QCOMPARE(downloads->size, 1024);
        const FolderInfoPtr files = group(2, "Downloaded Files");
        QCOMPARE(files->children.size(), 1);
        QCOMPARE(files->children[0]->name, file);
        QCOMPARE(files->size, 1234);
        const FolderInfoPtr storage = group(2, "HTML5 Local Storage");
        QCOMPARE(storage->children.size(), 1);
        QCOMPARE(storage->children[0]->name, db);
        QCOMPARE(storage->size, 300);
        QCOMPARE(group(2, "Cookies")->children.size(), 0);

        // A downloads list of the wrong type gives empty groups.
        QVERIFY(plist.open(QIODevice::WriteOnly | QIODevice::Truncate));
        plist.write(PropertyList::toXml(QVariantList{QVariantMap{{"DownloadHistory", history}}}));
        plist.close();
        readAll();
        QCOMPARE(group(2, "Downloads History")->children.size(), 0);
    }

    void scanThroughDriver()
    {
        // The module's own scan, run by the scan driver as any module's.
        PrivacyService::registerWithScanDriver();
        float percent = 0;
        int done = -1;
        QStringList paths;
        KestalService::scan(
            PrivacyService::moduleIndex, [&](const QString &path, qint64) { paths << path; },
            [&](float step) { percent += step; }, [&](int ci) { done = ci; });
        QTRY_COMPARE(done, 2);
        QCOMPARE(KestalService::scanStatus().value(PrivacyService::moduleIndex), -1);
        QVERIFY(!KestalService::scanTimer().contains(PrivacyService::moduleIndex));
        QVERIFY(qAbs(percent - 1.0f) < 1e-5f);
        QVERIFY(paths.contains(m_w->b.history()));
        QCOMPARE(group(0, "Visit History")->children.size(), 4);
        QCOMPARE(group(1, "Cookies")->children.size(), 2);
    }
};

QTEST_GUILESS_MAIN(PrivacyReaders)
#include "test_privacy_readers.moc"
