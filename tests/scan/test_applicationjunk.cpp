// Application junk: language folders, mail attachments and device backups.
#include "ScanTestSupport.h"
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

using namespace ScanTest;

class TestApplicationJunk : public QObject {
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale("en_US")); } // the system's own language
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void changeLanguageBriefly()
    {
        // Plain substrings, in order: "Portuguese" holds "es" and no earlier code,
        // and "ar" is looked for before all others.
        const std::pair<const char *, const char *> rows[] = {
            {"zh_HK", "hk"},      {"zh-Hans", "cn"}, {"French", "fr"},
            {"en_GB", "en"},      {"uk", "en"},      {"ko_KR", "ko_KR"},
            {"Portuguese", "es"}, {"fr_ar", "ar"},   {"xx", "xx"}};
        for (const auto &[name, code] : rows)
            QCOMPARE(ApplicationJunkService::changeLanguageBriefly(name), QLatin1String(code));
    }

    void languagePacksKeepEveryFormOfAPreferredLanguage()
    {
        TestEnvironment env("macos");
        Platform::setPreferredLanguagesForTesting({"fr-CA"});
        // Also kept: the region alone, and English in every form.
        const QSet<QString> keep = ApplicationJunkFolderInfo::keepSet();
        QVERIFY(keep.contains("CA") && keep.contains("en_US"));
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
        QVERIFY(find("fr.lproj") && !find("fr.lproj")->enabled);
        const Language *ptBR = find("pt_BR.lproj");
        QVERIFY(ptBR && ptBR->enabled);
        QCOMPARE(ptBR->folders.mid(1, 2), QStringList({"pt-BR.lproj", "pt_BR.lproj"}));
        // Listed though the system knows no such locale.
        QVERIFY(find("tlh.lproj") && find("tlh.lproj")->enabled);
    }

    void languageFoldersOfApplications()
    {
        TestEnvironment env("macos");
        Platform::setPreferredLanguagesForTesting({"fr-CA"});
        TreeBuilder apps(env.root() + "/Applications");
        const QString res = "Editor.app/Contents/Resources/";
        for (const QString kept : {"fr", "fr_CA", "English"})
            apps.file(res + kept + ".lproj/Main.strings", 10);
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
        QCOMPARE(seen->bytes, c.size); // the size shown while scanning is the size found
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
        const int locale = c.files[0]->name == QLatin1String("locale") ? 0 : 1;
        QCOMPARE(names(c.files[locale]->children) + names(c.files[1 - locale]->children),
                 QStringList({"de", "pt_BR", "sr@latin", "de"}));
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
            TreeBuilder::write(mail.path("PersistenceInfo.plist"), index);
        mail.file("V6/ACC-1/Data/Attachments/1/2/report.pdf", 100);
        mail.file("V6/ACC-1/Data/Attachments/3/photo.jpg", 50);
        mail.file("V6/ACC-1/Data/Messages/1.emlx", 30);
        mail.file("V5/ACC-1/Data/Attachments/old.pdf", 30);

        Category c = categoryAt("Mail", mail.root(), 1);
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), seen.showPercent());
        QCOMPARE(names(c.files), found);
        QCOMPARE(c.size, found.isEmpty() ? 0 : 150);
        for (const FolderInfoPtr &f : std::as_const(c.files))
            QCOMPARE(f->checked, 1);
        // Without a usable index nothing is found, yet the percent still completes.
        QTRY_COMPARE(qRound(seen->percent * 100), 100);
    }

    void deviceBackups()
    {
        TestEnvironment env;
        TreeBuilder backups(env.home() + "/.local/share/MobileSync/Backup");
        const QDateTime when(QDate(2024, 3, 1), QTime(10, 0), Qt::UTC);
        TreeBuilder::write(backups.path("00008-A/Info.plist"),
                           PropertyList::toBinary(QVariantMap{{"Display Name", "Ann's iPhone"},
                                                              {"Product Name", "iPhone 12"},
                                                              {"Last Backup Date", when}}));
        backups.file("00008-A/Manifest.db", 200);
        TreeBuilder::write(backups.path("00008-B/Info.plist"), "damaged");
        backups.file("00008-C/Manifest.db", 300); // no Info.plist
        TreeBuilder::write(backups.path(".hidden/Info.plist"), PropertyList::toXml(QVariantMap{}));

        Category c = categoryAt("iTunes", backups.root());
        const ScanRecorder seen;
        ScanDispatch::scan(c, nullptr, seen.showPercent());
        QCOMPARE(names(c.files), QStringList({"--", "Ann's iPhone--iPhone 12"}));
        const int ann = c.files[1]->name == QLatin1String("--") ? 0 : 1;
        const FolderInfoPtr a = c.files[ann], b = c.files[1 - ann];
        QCOMPARE(a->date, when);
        QVERIFY(a->size > 200);
        QCOMPARE(b->date, FolderInfo::distantPast());
        QCOMPARE(c.size, a->size + b->size);
        QCOMPARE(c.files[1]->findex, 1);
        QTRY_COMPARE(seen->percentPosts, 4); // every child, the hidden one too
    }
};

QTEST_GUILESS_MAIN(TestApplicationJunk)
#include "test_applicationjunk.moc"
