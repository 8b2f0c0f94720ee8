// Application junk: language folders, mail attachments and device backups,
// on trees built for both profiles.
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/scan/ApplicationJunkFolderInfo.h"
#include "cleaner/scan/ApplicationJunkService.h"
#include "cleaner/scan/ScanDispatch.h"
#include "support/ScanRecorder.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QtTest>

namespace {

// Names of the nodes, sorted.
QStringList names(const QList<FolderInfoPtr> &nodes)
{
    QStringList out;
    for (const FolderInfoPtr &n : nodes)
        out << n->name;
    out.sort();
    return out;
}

void writeFile(const QString &path, const QByteArray &data)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(data);
}

QString urlOf(const QString &path)
{
    return FolderInfo::absoluteString(FolderInfo::urlFromPath(path)) + QLatin1Char('/');
}

Category categoryOf(const QString &type, const QString &url = {}, int state = 0)
{
    Category c;
    c.type = type;
    c.url.url = url;
    c.state = state;
    return c;
}

} // namespace

class TestApplicationJunk : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        // A French-Canadian user on an English system.
        QLocale::setDefault(QLocale("en_US"));
    }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void changeLanguageBriefly_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("code");
        // Plain substrings, in order: "Portuguese" holds "es" and no earlier code,
        // and "ar" is looked for before all others.
        const std::pair<const char *, const char *> rows[] = {
            {"zh_HK", "hk"},      {"zh-Hans", "cn"}, {"French", "fr"},
            {"en_GB", "en"},      {"uk", "en"},      {"ko_KR", "ko_KR"},
            {"Portuguese", "es"}, {"fr_ar", "ar"},   {"xx", "xx"}};
        for (const auto &[name, code] : rows)
            QTest::newRow(name) << QString::fromLatin1(name) << QString::fromLatin1(code);
    }
    void changeLanguageBriefly()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QCOMPARE(ApplicationJunkService::changeLanguageBriefly(name), code);
    }

    void languagePacksKeepEveryFormOfAPreferredLanguage()
    {
        TestEnvironment env("macos");
        Platform::setPreferredLanguagesForTesting({"fr-CA"});
        const QSet<QString> keep = ApplicationJunkFolderInfo::keepSet();
        for (const char *form : {"fr-CA", "fr_CA", "fr", "CA", "en", "en_US"})
            QVERIFY2(keep.contains(QLatin1String(form)), form);
        QVERIFY(!keep.contains("de"));
        const QList<Language> packs = ApplicationJunkFolderInfo::getLanguagePacks();
        QVERIFY(packs.size() > 100);
        for (int i = 1; i < packs.size(); ++i)
            QVERIFY(packs[i - 1].displayName <= packs[i].displayName);
        const auto find = [&](const QString &folder) -> const Language * {
            for (const Language &l : packs)
                if (l.folders.first() == folder)
                    return &l;
            return nullptr;
        };
        const Language *fr = find("fr.lproj");
        QVERIFY(fr && !fr->enabled);
        QVERIFY(fr->folders.contains("French.lproj"));
        const Language *de = find("de.lproj");
        QVERIFY(de && de->enabled);
        const Language *ptBR = find("pt_BR.lproj");
        QVERIFY(ptBR);
        QCOMPARE(ptBR->folders.mid(1, 2), QStringList({"pt-BR.lproj", "pt_BR.lproj"}));
        // The identifiers of the list are there though the system knows no such locale.
        const Language *klingon = find("tlh.lproj");
        QVERIFY(klingon && klingon->enabled);
        QCOMPARE(klingon->displayName, "locale_tlh");
    }

    void languageFoldersOfApplications()
    {
        TestEnvironment env("macos");
        Platform::setPreferredLanguagesForTesting({"fr-CA"});
        TreeBuilder apps(env.root() + "/Applications");
        const QString res = "Editor.app/Contents/Resources/";
        apps.file(res + "fr.lproj/Main.strings", 10);
        apps.file(res + "fr_CA.lproj/Main.strings", 10);
        apps.file(res + "English.lproj/Main.strings", 10);
        apps.file(res + "de.lproj/Main.strings", 30);
        apps.file(res + "de.lproj/nested/it.lproj/x", 5);
        apps.file(res + "German.lproj/Main.strings", 20);
        apps.folder(res + "it.lproj"); // empty: not listed
        apps.file("Editor.app/Contents/Frameworks/Kit.framework/Resources/ja.lproj/a", 7);
        apps.file("Mine.app/Contents/Resources/fr.lproj/Main.strings", 10);
        apps.file("Safari.app/Contents/Resources/de.lproj/Main.strings", 10);

        Category c = categoryOf("Localization", {}, 1);
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), seen.showPercent());
        // Only the application with junk is listed; Safari is never searched.
        QCOMPARE(names(c.files), QStringList{"Editor.app"});
        const FolderInfoPtr app = c.files.first();
        QCOMPARE(names(app->children), QStringList({"German.lproj", "de.lproj", "ja.lproj"}));
        QCOMPARE(app->size, 35 + 20 + 7);
        QCOMPARE(c.size, app->size);
        for (int i = 0; i < app->children.size(); ++i) {
            const FolderInfoPtr &l = app->children[i];
            QCOMPARE(l->findex, i);
            QCOMPARE(l->checked, 1);
            QCOMPARE(l->icon, l->name.startsWith(QLatin1String("ja")) ? "ja" : "de");
        }
        QTRY_COMPARE(qRound(seen->percent * 100), 100);
        QCOMPARE(seen->paths, QStringList{apps.path("Editor.app")});
    }

    void languageTreesOnLinux()
    {
        TestEnvironment env;
        Platform::setPreferredLanguagesForTesting({"fr-FR"});
        TreeBuilder share(env.root() + "/usr/share");
        for (const char *lang : {"fr", "en", "de", "pt_BR", "sr@latin"})
            share.file(QStringLiteral("locale/%1/LC_MESSAGES/app.mo").arg(QLatin1String(lang)), 10);
        share.file("locale/fr/LC_MESSAGES/it/odd", 3); // only the top counts
        share.file("man/man1/ls.1", 4);
        share.file("man/de/man1/ls.1", 4);
        share.file("icons/de/icon.png", 4); // not a language tree
        Category c = categoryOf("Localization");
        ScanDispatch::scan(c, nullptr, nullptr);
        QCOMPARE(names(c.files), QStringList({"locale", "man"}));
        for (const FolderInfoPtr &app : std::as_const(c.files)) {
            QCOMPARE(names(app->children), app->name == QLatin1String("locale")
                                               ? QStringList({"de", "pt_BR", "sr@latin"})
                                               : QStringList{"de"});
        }
        QCOMPARE(c.size, 34);
    }

    void mailAttachments_data()
    {
        QTest::addColumn<QByteArray>("index");
        QTest::addColumn<QStringList>("found");
        const QVariantMap index{
            {"LastUsedVersionDirectoryName", "V6"},
            {"AccountsVersionDirectoryIdentifiers",
             QVariantMap{{"ACC-1", "me@example.com"}, {"ACC-GONE", "old@example.com"}}},
            {"OtherVersionDirectoryIdentifiers", "not a dictionary"},
            {"Unrelated", 7}};
        const QStringList found{"photo.jpg", "report.pdf"};
        QTest::newRow("xml index") << PropertyList::toXml(index) << found;
        QTest::newRow("binary index") << PropertyList::toBinary(index) << found;
        QTest::newRow("no index") << QByteArray() << QStringList();
        QTest::newRow("damaged index")
            << QByteArray("<?xml version=\"1.0\"?><plist><dict><key>") << QStringList();
        QTest::newRow("index of an array")
            << PropertyList::toXml(QVariantList{1, 2}) << QStringList();
    }
    void mailAttachments()
    {
        QFETCH(QByteArray, index);
        QFETCH(QStringList, found);
        TestEnvironment env("macos");
        TreeBuilder mail(env.home() + "/Library/Mail");
        if (!index.isNull())
            writeFile(mail.path("PersistenceInfo.plist"), index);
        mail.file("V6/ACC-1/Data/Attachments/1/2/report.pdf", 100);
        mail.file("V6/ACC-1/Data/Attachments/3/photo.jpg", 50);
        mail.file("V6/ACC-1/Data/Messages/1.emlx", 30);
        mail.file("V5/ACC-1/Data/Attachments/old.pdf", 30);

        Category c = categoryOf("Mail", urlOf(mail.root()), 1);
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), seen.showPercent());
        QCOMPARE(names(c.files), found);
        QCOMPARE(c.size, found.isEmpty() ? 0 : 150);
        for (const FolderInfoPtr &f : std::as_const(c.files))
            QCOMPARE(f->checked, 1);
        // Without a usable index nothing is found, yet the percent still completes.
        if (found.isEmpty())
            QTRY_COMPARE(seen->percent, 1.0f);
        else
            QTRY_COMPARE(qRound(seen->percent * 100), 100);
        QCOMPARE(seen->paths.contains("Scanning Mail Attachments From me@example.com"),
                 !found.isEmpty());
    }

    void mailCacheOnLinux()
    {
        TestEnvironment env;
        TreeBuilder mail(env.home() + "/.cache/evolution/mail");
        mail.file("1a2b/folders/INBOX/cur/ab/17", 80);
        mail.file("1a2b/folders.db", 40);
        mail.file("trash-note", 1);
        writeFile(env.home() + "/.config/evolution/sources/1a2b.source",
                  "[Data Source]\nDisplayName=me@example.org\nEnabled=true\n");
        Category c = categoryOf("Mail", "file://" + mail.root()); // no trailing slash
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), nullptr);
        QCOMPARE(names(c.files), QStringList{"17"});
        QCOMPARE(c.size, 80);
        QTRY_VERIFY(seen->paths.contains("Scanning Mail Attachments From me@example.org"));
    }

    void deviceBackups()
    {
        TestEnvironment env;
        TreeBuilder backups(env.home() + "/.local/share/MobileSync/Backup");
        const QDateTime when(QDate(2024, 3, 1), QTime(10, 0), Qt::UTC);
        writeFile(backups.path("00008-A/Info.plist"),
                  PropertyList::toBinary(QVariantMap{{"Display Name", "Ann's iPhone"},
                                                     {"Product Name", "iPhone 12"},
                                                     {"Last Backup Date", when}}));
        backups.file("00008-A/Manifest.db", 200);
        writeFile(backups.path("00008-B/Info.plist"), "damaged");
        backups.file("00008-C/Manifest.db", 300); // no Info.plist
        writeFile(backups.path(".hidden/Info.plist"), PropertyList::toXml(QVariantMap{}));

        Category c = categoryOf("iTunes", urlOf(backups.root()));
        const ScanRecorder seen;
        ScanDispatch::scan(c, nullptr, seen.showPercent());
        QCOMPARE(c.files.size(), 2);
        const FolderInfoPtr a =
            c.files[0]->name.startsWith(QLatin1String("Ann")) ? c.files[0] : c.files[1];
        const FolderInfoPtr b = a == c.files[0] ? c.files[1] : c.files[0];
        QCOMPARE(a->name, "Ann's iPhone--iPhone 12");
        QCOMPARE(a->date, when);
        QCOMPARE(a->icon, "iTunesJunk");
        QVERIFY(a->size > 200);
        QCOMPARE(b->name, "--");
        QCOMPARE(b->date, FolderInfo::distantPast());
        QCOMPARE(c.size, a->size + b->size);
        QCOMPARE(c.files[1]->findex, 1);
        QTRY_COMPARE(seen->percentPosts, 4); // every child, the hidden one too
    }
};

QTEST_GUILESS_MAIN(TestApplicationJunk)
#include "test_applicationjunk.moc"
