// How names reach a terminal and a JSON reader: every active character and
// every byte that is not UTF-8 escaped, and the escaped form unambiguous.
#include "cli/TerminalText.h"

#include <QJsonObject>
#include <QtTest>

class TestTerminalText : public QObject {
    Q_OBJECT

private slots:
    void escapesBytes_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("shown");
        QTest::newRow("plain and accents") << QByteArray("caf\xc3\xa9 b.txt") << u"café b.txt"_qs;
        QTest::newRow("line break forges a line")
            << QByteArray("a\n    [x] /etc") << u"a\\n    [x] /etc"_qs;
        QTest::newRow("tab and return") << QByteArray("a\tb\rc") << u"a\\tb\\rc"_qs;
        QTest::newRow("escape sequence") << QByteArray("\x1b[31mred") << u"\\x1b[31mred"_qs;
        QTest::newRow("NUL-free C0 and DEL") << QByteArray("\x01\x7f") << u"\\x01\\x7f"_qs;
        QTest::newRow("C1 control as UTF-8") << QByteArray("\xc2\x9b"
                                                           "2J")
                                             << u"\\u009b2J"_qs;
        QTest::newRow("invalid bytes") << QByteArray("raw\xff\xfe") << u"raw\\xff\\xfe"_qs;
        QTest::newRow("lone C1 byte is no character") << QByteArray("\x9b") << u"\\x9b"_qs;
        QTest::newRow("overlong slash") << QByteArray("\xc0\xaf") << u"\\xc0\\xaf"_qs;
        QTest::newRow("surrogate half") << QByteArray("\xed\xa0\x80") << u"\\xed\\xa0\\x80"_qs;
        QTest::newRow("cut sequence") << QByteArray("\xe2\x82") << u"\\xe2\\x82"_qs;
        QTest::newRow("beyond U+10FFFF")
            << QByteArray("\xf4\x90\x80\x80") << u"\\xf4\\x90\\x80\\x80"_qs;
        QTest::newRow("right-to-left override")
            << QByteArray("doc\xe2\x80\xaetxt.exe") << u"doc\\u202etxt.exe"_qs;
        QTest::newRow("line separator") << QByteArray("a\xe2\x80\xa8"
                                                      "b")
                                        << u"a\\u2028b"_qs;
        QTest::newRow("backslash doubled") << QByteArray("a\\x1b") << u"a\\\\x1b"_qs;
        QTest::newRow("four-byte character") << QByteArray("\xf0\x9f\x98\x80") << u"😀"_qs;
    }
    void escapesBytes()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, shown);
        QCOMPARE(TerminalText::escapedBytes(bytes), shown);
    }

    // JSON keeps the exact name, but nothing in its text may act on a terminal.
    void jsonKeepsValuesAndStaysInert()
    {
        const QString name = QString::fromUtf8("a\n\x1b[2J\x7f\xc2\x9b\xe2\x80\xae\xe2\x80\xa8z");
        const QByteArray text = TerminalText::json(QJsonDocument(QJsonObject{{"name", name}}));
        QJsonParseError error;
        const QJsonDocument back = QJsonDocument::fromJson(text, &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
        QCOMPARE(back.object().value("name").toString(), name);
        for (const char *active : {"\x1b", "\x7f", "\xc2\x9b", "\xe2\x80\xae", "\xe2\x80\xa8"})
            QVERIFY2(!text.contains(active), text.constData());
    }
};

QTEST_GUILESS_MAIN(TestTerminalText)
#include "test_terminal_text.moc"
