// Sizes as every screen, the command line and the log print them.

#include "cleaner/core/ByteCount.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/core/UserDefaults.h"
#include "support/TestEnvironment.h"

#include <QtTest>

class ByteCountTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        SwitchLanguageService::setUserLanguage(QStringLiteral("en"));
    }
    void cleanupTestCase() { UserDefaults::remove(SwitchLanguageService::LocalLanguageKey); }

    void decimalUnitsWithOneDecimal_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<qint64>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("nothing") << "en" << qint64(0) << "0 bytes";
        QTest::newRow("one byte") << "en" << qint64(1) << "1 byte";
        QTest::newRow("below a kB") << "en" << qint64(999) << "999 bytes";
        QTest::newRow("a kB is 1000 bytes") << "en" << qint64(1000) << "1.0 kB";
        QTest::newRow("45 MB") << "en" << qint64(45'000'000) << "45.0 MB";
        QTest::newRow("rounds half up") << "en" << qint64(45'050'000) << "45.1 MB";
        QTest::newRow("never 1000.0 kB") << "en" << qint64(999'960) << "1.0 MB";
        QTest::newRow("just below") << "en" << qint64(999'940) << "999.9 kB";
        QTest::newRow("GB") << "en" << qint64(3'210'000'000) << "3.2 GB";
        QTest::newRow("largest") << "en" << std::numeric_limits<qint64>::max() << "9.2 EB";
        QTest::newRow("negative") << "en" << qint64(-2'500'000) << "-2.5 MB";
        QTest::newRow("German comma") << "de" << qint64(45'000'000) << "45,0 MB";
        QTest::newRow("French comma") << "fr" << qint64(1'500) << "1,5 kB";
        QTest::newRow("Chinese point") << "zh-Hant" << qint64(45'000'000) << "45.0 MB";
    }

    void decimalUnitsWithOneDecimal()
    {
        QFETCH(QString, language);
        QFETCH(qint64, bytes);
        QFETCH(QString, text);
        SwitchLanguageService::setUserLanguage(language);
        QCOMPARE(ByteCount::string(bytes), text);
    }

    // Counts and small sizes speak the interface language.
    void countsInTheInterfaceLanguage()
    {
        QCOMPARE(ByteCount::itemsAndSize(1, 1), QString("1 item, 1 byte"));
        QCOMPARE(ByteCount::itemsAndSize(3, 45'000'000), QString("3 items, 45.0 MB"));
        SwitchLanguageService::setUserLanguage(QStringLiteral("de"));
        const QString german = ByteCount::removalSummary(1234, 500);
        QVERIFY2(german.contains(QStringLiteral("1.234")) && german.contains(QStringLiteral("500")),
                 qPrintable(german));
        QVERIFY2(!german.contains(QStringLiteral("items")) &&
                     !german.contains(QStringLiteral("bytes")),
                 qPrintable(german));
    }
};

QTEST_GUILESS_MAIN(ByteCountTest)
#include "test_byte_count.moc"
