#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/core/SettingInfo.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/core/UserDefaults.h"
#include "support/TestEnvironment.h"

#include <QFile>
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
};

QTEST_GUILESS_MAIN(SettingsAndLanguages)
#include "test_settings_languages.moc"
