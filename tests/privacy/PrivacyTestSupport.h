#pragma once

// Browser stores for the privacy tests, built from the schemas the real
// browsers made (tests/privacy/schemas), and read back with SQLite itself.

#include "TestPaths.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/privacy/PrivacyService.h"
#include "cleaner/scan/KestalService.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <sqlite3.h>

namespace PrivacyTest {

inline QString schema(const QString &name)
{
    QFile f(QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/tests/privacy/schemas/") + name);
    if (!f.open(QIODevice::ReadOnly))
        qFatal("missing schema %s", qPrintable(name));
    return QString::fromUtf8(f.readAll());
}

// Runs SQL on the store at path (made when absent); fails the test on an error.
inline void exec(const QString &path, const QString &sql)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    sqlite3 *db = nullptr;
    QCOMPARE(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
    char *error = nullptr;
    // Fixtures need no durability: without syncs they build in a blink.
    sqlite3_exec(db, "PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY;", nullptr, nullptr,
                 nullptr);
    const int rc = sqlite3_exec(db, sql.toUtf8().constData(), nullptr, nullptr, &error);
    const QString message = QString::fromUtf8(error ? error : "");
    sqlite3_free(error);
    sqlite3_close(db);
    QVERIFY2(rc == SQLITE_OK, qPrintable(message));
}

// A store made from a captured schema, then filled by the given statements.
inline void makeStore(const QString &path, const QString &schemaName, const QString &rows)
{
    exec(path, schema(schemaName));
    exec(path, rows);
}

// The first column of every row of a query, as text.
inline QStringList column(const QString &path, const QString &sql)
{
    QStringList out;
    sqlite3 *db = nullptr;
    if (sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY, nullptr) !=
        SQLITE_OK) {
        sqlite3_close(db);
        return {QStringLiteral("<cannot open>")};
    }
    sqlite3_stmt *st = nullptr;
    if (sqlite3_prepare_v2(db, sql.toUtf8().constData(), -1, &st, nullptr) != SQLITE_OK)
        out << QStringLiteral("<error> ") + QString::fromUtf8(sqlite3_errmsg(db));
    while (st && sqlite3_step(st) == SQLITE_ROW) {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(st, 0));
        out << QString::fromUtf8(text ? text : "");
    }
    sqlite3_finalize(st);
    sqlite3_close(db);
    return out;
}

inline QString integrity(const QString &path)
{
    return column(path, QStringLiteral("PRAGMA integrity_check")).join(QLatin1Char(' '));
}

inline QByteArray contents(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<missing>");
}

// Chrome's microseconds since 1601 for a moment, and Firefox's since 1970.
inline qint64 chromeTime(qint64 unixSeconds)
{
    return (unixSeconds + 11644473600LL) * 1000000LL;
}

inline const QString &chromeProfile()
{
    static const QString relative = QStringLiteral("/.config/chromium/Default");
    return relative;
}

// The module's category ci after the scan.
inline Category &browser(int ci)
{
    return AppModuleService::categoriesOf(PrivacyService::moduleIndex)[ci];
}

// The group of category ci with this title; null when the scan made none.
inline FolderInfoPtr group(int ci, const QString &title)
{
    for (const FolderInfoPtr &g : browser(ci).files) {
        if (g->name == title)
            return g;
    }
    return nullptr;
}

// Reads the three browsers into the module's tree, as the scan files them.
inline void readAll()
{
    for (int ci = 0; ci < 3; ++ci)
        browser(ci).files.clear();
    PrivacyService::updateModule(PrivacyFolderInfo::getChromeInfoList({}),
                                 QStringLiteral("chrome"));
    PrivacyService::updateModule(PrivacyFolderInfo::getFireFoxInfoList({}),
                                 QStringLiteral("firefox"));
    PrivacyService::updateModule(PrivacyFolderInfo::getSafariInfoList({}),
                                 QStringLiteral("safari"));
}

// A home with a Chrome "Default" profile and a Firefox profile whose
// stores hold a few records of every kind; paths by store.
struct Browsers {
    QString chrome, firefox;
    QString downloaded; // a file both browsers list as downloaded
    QString history() const { return chrome + QStringLiteral("/History"); }
    QString cookies() const { return chrome + QStringLiteral("/Cookies"); }
    QString logins() const { return chrome + QStringLiteral("/Login Data"); }
    QString webData() const { return chrome + QStringLiteral("/Web Data"); }
    QString places() const { return firefox + QStringLiteral("/places.sqlite"); }
    QString ffCookies() const { return firefox + QStringLiteral("/cookies.sqlite"); }
    QString forms() const { return firefox + QStringLiteral("/formhistory.sqlite"); }
    QString ffLogins() const { return firefox + QStringLiteral("/logins.json"); }
};

// Unix seconds of the records' moments.
constexpr qint64 kT1 = 1700000000, kT2 = 1700003600, kT3 = 1700007200;

inline Browsers makeBrowsers(TreeBuilder &home)
{
    Browsers b;
    b.chrome = home.folder(QStringLiteral(".config/chromium/Default"));
    b.firefox = home.folder(QStringLiteral(".config/mozilla/firefox/ab12cd34.default-esr"));
    b.downloaded = home.file(QStringLiteral("Downloads/report.pdf"), 3000);
    const QString t1 = QString::number(chromeTime(kT1)), t2 = QString::number(chromeTime(kT2)),
                  t3 = QString::number(chromeTime(kT3));
    // Visit 1 is of url 2: the joined rows' "id" is the url's, so a clean
    // by that key alone would take visit 1 for a record of url 1.
    makeStore(
        b.history(), QStringLiteral("chrome-history.sql"),
        QStringLiteral(
            "insert into urls (id,url,title,visit_count,last_visit_time) values"
            " (1,'https://a.example/','Alpha',2,%1),(2,'https://b.example/x,y','Beta',1,%2),"
            " (3,'','',1,%3);"
            "insert into visits (id,url,visit_time) values (1,2,%2),(2,1,%1),(3,1,%3),(4,3,%3);"
            "insert into keyword_search_terms values (7,1,'cats','cats'),(7,2,'dogs','dogs');"
            "insert into downloads (id,guid,current_path,target_path,start_time,received_bytes,"
            "total_bytes,state,danger_type,interrupt_reason,hash,end_time,opened,"
            "last_access_time,transient,referrer,site_url,embedder_download_data,tab_url,"
            "tab_referrer_url,http_method,by_ext_id,by_ext_name,by_web_app_id,etag,"
            "last_modified,mime_type,original_mime_type) values"
            " (1,'g1','%4','%4',%1,3000,3000,1,0,0,x'',%1,0,0,0,'','','','','','','','','','',"
            "'','',''),"
            " (2,'g2','/nowhere/gone.zip','/nowhere/gone.zip',%2,1,1,1,0,0,x'',%2,0,0,0,'','',"
            "'','','','','','','','','','','');")
            .arg(t1, t2, t3, b.downloaded));
    makeStore(
        b.cookies(), QStringLiteral("chrome-cookies.sql"),
        QStringLiteral(
            "insert into cookies values (%1,'.a.example','','sid','1',x'','/',0,0,0,0,0,0,1,0,"
            "2,443,0,0,0),(%2,'b.example','','n','2',x'','/',0,0,0,0,0,0,1,0,2,443,0,0,0);")
            .arg(t1, t2));
    makeStore(
        b.logins(), QStringLiteral("chrome-login-data.sql"),
        QStringLiteral("insert into logins (origin_url,signon_realm,username_value,date_created,"
                       "blacklisted_by_user,scheme) values"
                       " ('https://a.example/login','https://a.example/','ann,b',%1,0,0),"
                       " ('https://b.example/','https://b.example/','bob',%2,0,0);")
            .arg(kT1 * 100000)
            .arg(kT2 * 100000));
    makeStore(b.webData(), QStringLiteral("chrome-web-data.sql"),
              QStringLiteral("insert into autofill (name,value,value_lower,date_created) values"
                             " ('email','ann@a.example','ann@a.example',%1),"
                             " ('q','it''s','it''s',%2);")
                  .arg(kT1)
                  .arg(kT2));
    home.file(
        QStringLiteral(".config/chromium/Default/Local Storage/https_a.example_0.localstorage"),
        100);
    home.file(QStringLiteral(
                  ".config/chromium/Default/Local Storage/https_a.example_0.localstorage-journal"),
              10);
    home.file(
        QStringLiteral(".config/chromium/Default/Local Storage/https_b.example_0.localstorage"),
        200);

    const QString f1 = QString::number(kT1 * 1000000), f2 = QString::number(kT2 * 1000000);
    makeStore(
        b.places(), QStringLiteral("firefox-places.sql"),
        QStringLiteral(
            "insert into moz_places (id,url,title,last_visit_date,guid) values"
            " (1,'https://a.example/','Alpha',%1,'g1'),(2,'https://b.example/','Beta',%2,'g2');"
            "insert into moz_historyvisits (id,place_id,visit_date,visit_type) values"
            " (5,1,%1,1),(6,2,%2,1),(7,1,%2,1);"
            "insert into moz_anno_attributes values (1,'downloads/destinationFileURI');"
            "insert into moz_annos (id,place_id,anno_attribute_id,content,dateAdded) values"
            " (1,1,1,'file://%3',%1),(2,2,1,'file:///nowhere/gone.zip',%2);"
            "insert into moz_keywords (id,keyword,place_id) values (3,'al',1),(4,'be',2);")
            .arg(f1, f2, b.downloaded));
    makeStore(b.ffCookies(), QStringLiteral("firefox-cookies.sql"),
              QStringLiteral("insert into moz_cookies (id,name,value,host,path,expiry,creationTime)"
                             " values (1,'sid','1','.a.example','/',0,%1),"
                             " (2,'n','2','b.example','/',0,%2);")
                  .arg(f1, f2));
    makeStore(b.forms(), QStringLiteral("firefox-formhistory.sql"),
              QStringLiteral("insert into moz_formhistory (id,fieldname,value,timesUsed,firstUsed,"
                             "lastUsed,guid) values (1,'q','cats',1,%1,%1,'a'),"
                             " (2,'email','ann@a.example',1,%2,%2,'b');")
                  .arg(f1, f2));
    QFile logins(b.ffLogins());
    logins.open(QIODevice::WriteOnly);
    logins.write(
        QStringLiteral(
            R"({"nextId":4,"logins":[)"
            R"({"id":1,"hostname":"https://a.example","formSubmitURL":"https://a.example/in",)"
            R"("usernameField":"u","passwordField":"p","encryptedUsername":"x",)"
            R"("encryptedPassword":"y","guid":"{1}","encType":1,"timeCreated":%1,)"
            R"("timeLastUsed":%1,"timePasswordChanged":%1,"timesUsed":1},)"
            R"({"id":3,"hostname":"https://b.example","httpRealm":"B","formSubmitURL":null,)"
            R"("guid":"{3}","encType":1,"timeCreated":%2}],"version":3})")
            .arg(kT1 * 1000)
            .arg(kT2 * 1000)
            .toUtf8());
    logins.close();
    home.file(
        QStringLiteral(
            ".config/mozilla/firefox/ab12cd34.default-esr/storage/default/https+++a.example/ls/"
            "data.sqlite"),
        4000);
    home.file(QStringLiteral(
                  ".config/mozilla/firefox/ab12cd34.default-esr/storage/default/https+++a.example/"
                  ".metadata-v2"),
              50);
    home.file(QStringLiteral(
                  ".config/mozilla/firefox/ab12cd34.default-esr/storage/default/https+++b.example/"
                  "idb/1.sqlite"),
              700);
    return b;
}

// A test's own world, with the browsers' stores in its home.
struct World {
    TestEnvironment env;
    TreeBuilder home{env.home()};
    Browsers b = makeBrowsers(home);
};

} // namespace PrivacyTest
