#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/HelpPages.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/core/SettingInfo.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/core/UserDefaults.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QTranslator>
#include <QtTest>

class SettingsAndLanguages : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        UserDefaults::remove(SwitchLanguageService::LocalLanguageKey);
    }

    void propertyListsInBothForms()
    {
        const QVariantMap value{{"name", "Brenlow"},
                                {"count", qint64(3)},
                                {"ratio", 0.5},
                                {"on", true},
                                {"blob", QByteArray("\x00\x01", 2)},
                                {"when", QDateTime(QDate(2019, 3, 4), QTime(5, 6, 7), Qt::UTC)},
                                {"list", QVariantList{"a", QVariantMap{{"k", "v"}}}}};
        QCOMPARE(PropertyList::fromData(PropertyList::toXml(value)).value(), QVariant(value));
        QCOMPARE(PropertyList::fromData(PropertyList::toBinary(value)).value(), QVariant(value));
        QVERIFY(PropertyList::toBinary(value).startsWith("bplist00"));
        // Damaged or empty data is an error, not a crash.
        QVERIFY(!PropertyList::fromData(QByteArray()));
        QVERIFY(!PropertyList::fromData("<?xml version=\"1.0\"?><plist><dict><key>a"));
        QVERIFY(!PropertyList::fromData(PropertyList::toBinary(value).left(20)));
        QVERIFY(!PropertyList::fromFile(QStringLiteral("/nonexistent/x.plist")));
    }

    void settingsList()
    {
        TestEnvironment env;
        QVERIFY(!SettingInfo::valueOf("support_link").isEmpty());
        QFile::remove(env.resources() + "/BrenlowSetting.plist");
        SettingInfo::reset();
        QVERIFY(TestEnvironment::endsInFatalStop([] { SettingInfo::valueOf("support_link"); }));
    }

    void systemLanguageMapping_data()
    {
        QTest::addColumn<QStringList>("preferred");
        QTest::addColumn<QString>("expected");
        QTest::newRow("Italian") << QStringList{"it-IT"} << "en";
        QTest::newRow("British English") << QStringList{"en-GB", "ja"} << "en";
        QTest::newRow("Japanese") << QStringList{"ja-JP"} << "ja";
        QTest::newRow("Simplified Chinese") << QStringList{"zh-Hans-CN"} << "zh-Hant";
        QTest::newRow("no preference") << QStringList{} << "en";
    }
    void systemLanguageMapping()
    {
        QFETCH(QStringList, preferred);
        QFETCH(QString, expected);
        TestEnvironment env;
        Platform::setPreferredLanguagesForTesting(preferred);
        QCOMPARE(SwitchLanguageService::getCurrentLanguage(), expected);
        SwitchLanguageService::initUserLanguage();
        QCOMPARE(SwitchLanguageService::userLanguage(), expected);
        QVERIFY(SwitchLanguageService::getBundle());
    }

    void storedLanguageWinsAndTextsFollowIt()
    {
        TestEnvironment env;
        Platform::setPreferredLanguagesForTesting({"fr-FR"});
        UserDefaults::setValue(SwitchLanguageService::LocalLanguageKey, "ja");
        SwitchLanguageService::initUserLanguage();
        QCOMPARE(SwitchLanguageService::getCurrentLanguage(), QStringLiteral("ja"));
        QCOMPARE(getLocalizedString("System Junk"), QStringLiteral("システムジャンク"));

        SwitchLanguageService::setUserLanguage("de");
        QCOMPARE(getLocalizedString("System Junk"), QStringLiteral("Systemmüll"));
        // A text without a translation is its own key.
        QCOMPARE(getLocalizedString("no such text"), QStringLiteral("no such text"));

        // A language without a table keeps the table in use.
        SwitchLanguageService::setUserLanguage("xx");
        QCOMPARE(getLocalizedString("System Junk"), QStringLiteral("Systemmüll"));
    }

    void everyLanguageHasEveryText()
    {
        // Each shipped table translates every title and description of the
        // module lists, so no screen shows an English leftover.
        QStringList texts;
        for (const QString &profile : {QStringLiteral("linux"), QStringLiteral("macos")}) {
            TestEnvironment env(profile);
            for (const Module &m : AppModuleService::appModules()) {
                texts << m.title << m.description;
                for (const Feature &f : m.features)
                    texts << f.description;
                for (const Category &c : m.categories.value_or(QList<Category>()))
                    texts << c.title << c.description;
            }
        }
        texts.removeAll(QString());
        TestEnvironment env;
        for (const QString &lang : SwitchLanguageService::languages) {
            SwitchLanguageService::setUserLanguage(lang);
            QTranslator *table = SwitchLanguageService::getBundle();
            QVERIFY2(table, qPrintable(lang));
            for (const QString &text : std::as_const(texts))
                QVERIFY2(!table->translate("English", text.toUtf8().constData()).isEmpty(),
                         qPrintable(lang + ": " + text));
        }
    }
    // The help, home, support and welcome entries lead to the shipped pages
    // in every language, and the pages' own links lead to pages that exist.
    void linksLeadToTheLocalHelpPages()
    {
        TestEnvironment env(QStringLiteral("linux"));
        const QRegularExpression href(QStringLiteral("href=\"([^\"#]+)"));
        for (const QString &language : SwitchLanguageService::languages) {
            for (const char *key : {"help_link", "home_link", "support_link", "install_link"}) {
                const QUrl url = HelpPages::linkURL(QLatin1String(key), language);
                const QFileInfo page(url.toLocalFile());
                QVERIFY2(url.isLocalFile() && page.isFile(), key);
                QCOMPARE(page.dir().dirName(), language);
                QFile file(page.filePath());
                QVERIFY(file.open(QIODevice::ReadOnly));
                const QString text = QString::fromUtf8(file.readAll());
                QVERIFY(text.contains(QStringLiteral("<html lang=\"%1\">").arg(language)));
                for (auto it = href.globalMatch(text); it.hasNext();) {
                    const QString target = page.dir().filePath(it.next().captured(1));
                    QVERIFY2(QFileInfo(target).isFile(), qPrintable(target));
                }
            }
        }
        // No real address behind them: no entry.
        for (const char *key : {"facebook_link", "sendEmail_link", "feedback_link", "product_link"})
            QVERIFY2(HelpPages::linkURL(QLatin1String(key), QStringLiteral("en")).isEmpty(), key);
    }

    void pageNamesResolveOrGiveNothing_data()
    {
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("expected"); // below the help folder; "" for nothing
        const auto row = [](const char *name, const char *value, const char *language,
                            const char *expected) {
            QTest::newRow(name) << QString(value) << QString(language) << QString(expected);
        };
        row("in the language", "guide.html", "de", "de/guide.html");
        row("English fallback", "guide.html", "it", "en/guide.html");
        row("no such page", "missing.html", "en", "");
        row("climbs out", "../Info.plist", "en", "");
        row("climbs out inside", "a/../../../Info.plist", "en", "");
        row("absolute", "/etc/passwd", "en", "");
        row("empty", "", "en", "");
    }

    void pageNamesResolveOrGiveNothing()
    {
        QFETCH(QString, value);
        QFETCH(QString, language);
        QFETCH(QString, expected);
        TestEnvironment env(QStringLiteral("linux"));
        const QUrl url = HelpPages::pageURL(value, language);
        QCOMPARE(url.isEmpty(), expected.isEmpty());
        if (!expected.isEmpty())
            QCOMPARE(url, QUrl::fromLocalFile(HelpPages::folder() + QLatin1Char('/') + expected));
        // A web address stands as it is.
        QCOMPARE(HelpPages::pageURL(QStringLiteral("https://example.org/a b"), language),
                 QUrl(QStringLiteral("https://example.org/a b")));
    }
};

QTEST_GUILESS_MAIN(SettingsAndLanguages)
#include "test_settings_languages.moc"
