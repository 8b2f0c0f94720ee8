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

QStringList names(const QList<FolderInfoPtr> &nodes)
{
    QStringList out;
    for (const FolderInfoPtr &n : nodes)
        out << n->name;
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

} // namespace

class TestApplicationJunk : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        // A French-Canadian user on an English system.
        QLocale::setDefault(QLocale(QStringLiteral("en_US")));
    }
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void changeLanguageBriefly_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("code");
        QTest::newRow("arabic") << "ar"
                                << "ar";
        QTest::newRow("hong kong") << "zh_HK"
                                   << "hk";
        QTest::newRow("taiwan") << "zh_TW"
                                << "tw";
        QTest::newRow("chinese") << "zh-Hans"
                                 << "cn";
        QTest::newRow("english name") << "French"
                                      << "fr";
        QTest::newRow("german") << "German"
                                << "de";
        QTest::newRow("italian") << "it"
                                 << "it";
        QTest::newRow("russian") << "Russian"
                                 << "ru";
        QTest::newRow("english") << "en_GB"
                                 << "en";
        QTest::newRow("ukrainian is english") << "uk"
                                              << "en";
        QTest::newRow("korean exact") << "ko"
                                      << "ko";
        QTest::newRow("korean in a name") << "ko_KR"
                                          << "ko_KR";
        // Plain substrings, in order: "Portuguese" holds "es" and no earlier code.
        QTest::newRow("substring, not a name") << "Portuguese"
                                               << "es";
        QTest::newRow("arabic before all") << "fr_ar"
                                           << "ar";
        QTest::newRow("unknown") << "xx"
                                 << "xx";
    }
    void changeLanguageBriefly()
    {
        QFETCH(QString, name);
        QFETCH(QString, code);
        QCOMPARE(ApplicationJunkService::changeLanguageBriefly(name), code);
    }

    void keepSetHoldsEveryFormOfAPreferredLanguage()
    {
        TestEnvironment env(QStringLiteral("macos"));
        Platform::setPreferredLanguagesForTesting({QStringLiteral("fr-CA")});
        const QSet<QString> keep = ApplicationJunkFolderInfo::keepSet();
        for (const char *form : {"fr-CA", "fr_CA", "fr", "CA", "en", "en_US"})
            QVERIFY2(keep.contains(QLatin1String(form)), form);
        QVERIFY(!keep.contains(QStringLiteral("de")));
    }

    void languagePacks()
    {
        TestEnvironment env(QStringLiteral("macos"));
        Platform::setPreferredLanguagesForTesting({QStringLiteral("fr-CA")});
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
        const Language *fr = find(QStringLiteral("fr.lproj"));
        QVERIFY(fr && !fr->enabled);
        QVERIFY(fr->folders.contains(QStringLiteral("French.lproj")));
        const Language *de = find(QStringLiteral("de.lproj"));
        QVERIFY(de && de->enabled);
        const Language *ptBR = find(QStringLiteral("pt_BR.lproj"));
        QVERIFY(ptBR);
        QCOMPARE(ptBR->folders.mid(1, 2), QStringList({"pt-BR.lproj", "pt_BR.lproj"}));
        // The identifiers of the list are there though the system knows no such locale.
        const Language *klingon = find(QStringLiteral("tlh.lproj"));
        QVERIFY(klingon && klingon->enabled);
        QCOMPARE(klingon->displayName, QStringLiteral("locale_tlh"));
        QVERIFY(find(QStringLiteral("zh_CN.lproj")));
        const Language *tk = find(QStringLiteral("tk_Cyrl.lproj"));
        QVERIFY(tk);
        QCOMPARE(tk->folders.mid(1, 2), QStringList({"tk-Cyrl.lproj", "tk_Cyrl.lproj"}));
    }

    void languageFoldersOfApplications()
    {
        TestEnvironment env(QStringLiteral("macos"));
        Platform::setPreferredLanguagesForTesting({QStringLiteral("fr-CA")});
        TreeBuilder apps(env.root() + QStringLiteral("/Applications"));
        const QString res = QStringLiteral("Editor.app/Contents/Resources/");
        apps.file(res + QStringLiteral("fr.lproj/Main.strings"), 10);
        apps.file(res + QStringLiteral("fr_CA.lproj/Main.strings"), 10);
        apps.file(res + QStringLiteral("English.lproj/Main.strings"), 10);
        apps.file(res + QStringLiteral("de.lproj/Main.strings"), 30);
        apps.file(res + QStringLiteral("de.lproj/nested/it.lproj/x"), 5);
        apps.file(res + QStringLiteral("German.lproj/Main.strings"), 20);
        apps.folder(res + QStringLiteral("it.lproj")); // empty: not listed
        apps.file(
            QStringLiteral("Editor.app/Contents/Frameworks/Kit.framework/Resources/ja.lproj/a"), 7);
        apps.file(QStringLiteral("Mine.app/Contents/Resources/fr.lproj/Main.strings"), 10);
        apps.file(QStringLiteral("Safari.app/Contents/Resources/de.lproj/Main.strings"), 10);

        Category c;
        c.type = QStringLiteral("Localization");
        c.state = 1;
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), seen.showPercent());
        // Only the application with junk is listed; Safari is never searched.
        QCOMPARE(names(c.files), QStringList{QStringLiteral("Editor.app")});
        const FolderInfoPtr app = c.files.first();
        QStringList languages = names(app->children);
        languages.sort();
        QCOMPARE(languages, QStringList({"German.lproj", "de.lproj", "ja.lproj"}));
        QCOMPARE(app->size, 35 + 20 + 7);
        QCOMPARE(c.size, app->size);
        for (int i = 0; i < app->children.size(); ++i) {
            QCOMPARE(app->children[i]->findex, i);
            QCOMPARE(app->children[i]->checked, 1);
            const bool german = app->children[i]->name.startsWith(QLatin1Char('G')) ||
                                app->children[i]->name.startsWith(QLatin1String("de"));
            QCOMPARE(app->children[i]->icon, german ? QStringLiteral("de") : QStringLiteral("ja"));
        }
        QTRY_COMPARE(qRound(seen->percent * 100), 100);
        QCOMPARE(seen->paths, QStringList{apps.path(QStringLiteral("Editor.app"))});
    }

    void languageTreesOnLinux()
    {
        TestEnvironment env;
        Platform::setPreferredLanguagesForTesting({QStringLiteral("fr-FR")});
        TreeBuilder share(env.root() + QStringLiteral("/usr/share"));
        for (const char *lang : {"fr", "en", "de", "pt_BR", "sr@latin"})
            share.file(QStringLiteral("locale/%1/LC_MESSAGES/app.mo").arg(QLatin1String(lang)), 10);
        share.file(QStringLiteral("locale/fr/LC_MESSAGES/it/odd"), 3); // only the top counts
        share.file(QStringLiteral("man/man1/ls.1"), 4);
        share.file(QStringLiteral("man/de/man1/ls.1"), 4);
        share.file(QStringLiteral("icons/de/icon.png"), 4); // not a language tree
        Category c;
        c.type = QStringLiteral("Localization");
        ScanDispatch::scan(c, nullptr, nullptr);
        QStringList apps = names(c.files);
        apps.sort();
        QCOMPARE(apps, QStringList({"locale", "man"}));
        for (const FolderInfoPtr &app : std::as_const(c.files)) {
            QStringList langs = names(app->children);
            langs.sort();
            if (app->name == QLatin1String("locale"))
                QCOMPARE(langs, QStringList({"de", "pt_BR", "sr@latin"}));
            else
                QCOMPARE(langs, QStringList{"de"});
        }
        QCOMPARE(c.size, 34);
    }

    void mailAttachments_data()
    {
        QTest::addColumn<bool>("binary");
        QTest::newRow("xml index") << false;
        QTest::newRow("binary index") << true;
    }
    void mailAttachments()
    {
        QFETCH(bool, binary);
        TestEnvironment env(QStringLiteral("macos"));
        TreeBuilder mail(env.home() + QStringLiteral("/Library/Mail"));
        const QVariantMap index{
            {QStringLiteral("LastUsedVersionDirectoryName"), QStringLiteral("V6")},
            {QStringLiteral("AccountsVersionDirectoryIdentifiers"),
             QVariantMap{{QStringLiteral("ACC-1"), QStringLiteral("me@example.com")},
                         {QStringLiteral("ACC-GONE"), QStringLiteral("old@example.com")}}},
            {QStringLiteral("OtherVersionDirectoryIdentifiers"),
             QStringLiteral("not a dictionary")},
            {QStringLiteral("Unrelated"), 7}};
        writeFile(mail.path(QStringLiteral("PersistenceInfo.plist")),
                  binary ? PropertyList::toBinary(index) : PropertyList::toXml(index));
        mail.file(QStringLiteral("V6/ACC-1/Data/Attachments/1/2/report.pdf"), 100);
        mail.file(QStringLiteral("V6/ACC-1/Data/Attachments/3/photo.jpg"), 50);
        mail.file(QStringLiteral("V6/ACC-1/Data/Messages/1.emlx"), 30);
        mail.file(QStringLiteral("V5/ACC-1/Data/Attachments/old.pdf"), 30);

        Category c;
        c.type = QStringLiteral("Mail");
        c.url.url = urlOf(mail.root());
        c.state = 1;
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), seen.showPercent());
        QStringList found = names(c.files);
        found.sort();
        QCOMPARE(found, QStringList({"photo.jpg", "report.pdf"}));
        QCOMPARE(c.size, 150);
        for (const FolderInfoPtr &f : std::as_const(c.files))
            QCOMPARE(f->checked, 1);
        QTRY_COMPARE(qRound(seen->percent * 100), 100);
        QVERIFY(
            seen->paths.contains(QStringLiteral("Scanning Mail Attachments From me@example.com")));
    }

    void mailFolderWithoutUsableIndex_data()
    {
        QTest::addColumn<QByteArray>("index");
        QTest::newRow("no index") << QByteArray();
        QTest::newRow("damaged index") << QByteArray("<?xml version=\"1.0\"?><plist><dict><key>");
        QTest::newRow("index of an array") << PropertyList::toXml(QVariantList{1, 2});
    }
    void mailFolderWithoutUsableIndex()
    {
        QFETCH(QByteArray, index);
        TestEnvironment env(QStringLiteral("macos"));
        TreeBuilder mail(env.home() + QStringLiteral("/Library/Mail"));
        mail.file(QStringLiteral("V6/ACC/Data/Attachments/a.pdf"), 10);
        if (!index.isNull())
            writeFile(mail.path(QStringLiteral("PersistenceInfo.plist")), index);
        const ScanRecorder seen;
        const auto [files, size] = ApplicationJunkFolderInfo::getMailInfoList(
            urlOf(mail.root()), nullptr, seen.showPercent());
        QVERIFY(files.isEmpty());
        QCOMPARE(size, 0);
        QTRY_COMPARE(seen->percent, 1.0f);
    }

    void mailCacheOnLinux()
    {
        TestEnvironment env;
        TreeBuilder mail(env.home() + QStringLiteral("/.cache/evolution/mail"));
        mail.file(QStringLiteral("1a2b/folders/INBOX/cur/ab/17"), 80);
        mail.file(QStringLiteral("1a2b/folders.db"), 40);
        mail.file(QStringLiteral("trash-note"), 1);
        writeFile(env.home() + QStringLiteral("/.config/evolution/sources/1a2b.source"),
                  "[Data Source]\nDisplayName=me@example.org\nEnabled=true\n");
        Category c;
        c.type = QStringLiteral("Mail");
        c.url.url = QStringLiteral("file://") + mail.root(); // no trailing slash
        const ScanRecorder seen;
        ScanDispatch::scan(c, seen.progress(), nullptr);
        QCOMPARE(names(c.files), QStringList{QStringLiteral("17")});
        QCOMPARE(c.size, 80);
        QTRY_VERIFY(
            seen->paths.contains(QStringLiteral("Scanning Mail Attachments From me@example.org")));
    }

    void deviceBackups()
    {
        TestEnvironment env;
        TreeBuilder backups(env.home() + QStringLiteral("/.local/share/MobileSync/Backup"));
        const QDateTime when(QDate(2024, 3, 1), QTime(10, 0), Qt::UTC);
        writeFile(backups.path(QStringLiteral("00008-A/Info.plist")),
                  PropertyList::toBinary(
                      QVariantMap{{QStringLiteral("Display Name"), QStringLiteral("Ann's iPhone")},
                                  {QStringLiteral("Product Name"), QStringLiteral("iPhone 12")},
                                  {QStringLiteral("Last Backup Date"), when}}));
        backups.file(QStringLiteral("00008-A/Manifest.db"), 200);
        writeFile(backups.path(QStringLiteral("00008-B/Info.plist")), "damaged");
        backups.file(QStringLiteral("00008-C/Manifest.db"), 300); // no Info.plist
        writeFile(backups.path(QStringLiteral(".hidden/Info.plist")),
                  PropertyList::toXml(QVariantMap{}));

        Category c;
        c.type = QStringLiteral("iTunes");
        c.url.url = urlOf(backups.root());
        const ScanRecorder seen;
        ScanDispatch::scan(c, nullptr, seen.showPercent());
        QCOMPARE(names(c.files).size(), 2);
        const FolderInfoPtr a =
            c.files[0]->name.startsWith(QLatin1String("Ann")) ? c.files[0] : c.files[1];
        const FolderInfoPtr b = a == c.files[0] ? c.files[1] : c.files[0];
        QCOMPARE(a->name, QStringLiteral("Ann's iPhone--iPhone 12"));
        QCOMPARE(a->date, when);
        QCOMPARE(a->icon, QStringLiteral("iTunesJunk"));
        QVERIFY(a->size > 200);
        QCOMPARE(b->name, QStringLiteral("--"));
        QCOMPARE(b->date, FolderInfo::distantPast());
        QCOMPARE(c.size, a->size + b->size);
        QCOMPARE(c.files[1]->findex, 1);
        QTRY_COMPARE(seen->percentPosts, 4); // every child, the hidden one too
    }
};

QTEST_GUILESS_MAIN(TestApplicationJunk)
#include "test_applicationjunk.moc"
