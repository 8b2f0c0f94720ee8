// Names on disk may hold line breaks, escape sequences, bidirectional
// controls and bytes that are not UTF-8: brenlow-cli must show them without
// letting them act, keep them exactly in JSON, and keep its JSON valid
// whatever the walk meets. The escaping is tested on its own and through
// the program.
#include "TestPaths.h"
#include "cli/TerminalText.h"
#include "support/CliProcess.h"
#include "support/TreeBuilder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>
#include <QtTest>

namespace {

const QByteArrayList oddNames = {
    "evil\n    [x]   1.0 GB  passwd",
    "\x1b[31mred\x1b[0m",
    "raw\xff\xfe",
    "doc\xe2\x80\xaetxt.exe",
    "c1\xc2\x9b"
    "2J",
    "back\\slash",
    "tab\there",
};

QByteArrayList sorted(QByteArrayList list)
{
    std::sort(list.begin(), list.end());
    return list;
}

} // namespace

class TestCliNames : public QObject {
    Q_OBJECT

private:
    TreeBuilder sandbox;

    QProcessEnvironment environment() const
    {
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.insert("HOME", sandbox.path("home"));
        e.insert("XDG_CONFIG_HOME", sandbox.path("home/.config"));
        e.insert("BRENLOW_ROOT", sandbox.path("root"));
        e.insert("BRENLOW_PLATFORM", "linux");
        e.insert("BRENLOW_RESOURCES", BRENLOW_TEST_SOURCE_DIR "/resources/linux");
        return e;
    }

    // System Junk's scan, run where a folder cannot be read (as "nobody"
    // when the test runs as root).
    CliProcess::Result scan(const QByteArrayList &extra)
    {
        return CliProcess::run(BRENLOW_TEST_BINARY_DIR "/bin/brenlow-cli",
                               QByteArrayList{"scan", "1"} + extra, environment(), {}, true);
    }

private slots:
    void initTestCase()
    {
        sandbox.folder("home/.cache");
        for (const QByteArray &name : oddNames)
            sandbox.fileBytes("home/.cache/" + name, 10);
        sandbox.file("home/.cache/locked/inner/deep", 5);
        sandbox.file("home/.cache/plain.bin", 3);
        sandbox.chmod("home/.cache/locked/inner", 0);
        // Roots below a folder that cannot be searched: the walk reports them.
        sandbox.folder("root/var/crash");
        sandbox.chmod("root/var", 0);
        sandbox.openToAll();
    }
    void cleanupTestCase()
    {
        sandbox.chmod("home/.cache/locked/inner", 0755);
        sandbox.chmod("root/var", 0755);
    }

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

    void jsonStaysValidAndKeepsExactNames()
    {
        const CliProcess::Result run = scan({"--json"});
        QCOMPARE(run.exitCode, 0);
        QJsonParseError error;
        const QJsonObject module = QJsonDocument::fromJson(run.out, &error).object();
        QVERIFY2(error.error == QJsonParseError::NoError, qPrintable(error.errorString()));
        QVERIFY2(run.err.contains("Error in get attribute of file"), run.err.constData());
        QByteArrayList names;
        for (const QJsonValue &c : module["categories"].toArray()) {
            if (c["title"].toString() != QLatin1String("User Cache"))
                continue;
            for (const QJsonValue &f : c["files"].toArray()) {
                // The exact bytes: base64 beside a name that is not UTF-8.
                names.append(f.toObject().contains("nameBytes")
                                 ? QByteArray::fromBase64(f["nameBytes"].toString().toLatin1())
                                 : f["name"].toString().toUtf8());
            }
        }
        QCOMPARE(sorted(names), sorted(oddNames + QByteArrayList{"locked", "plain.bin"}));
    }

    void plainOutputCannotForgeLinesOrColours()
    {
        const CliProcess::Result run = scan({});
        QCOMPARE(run.exitCode, 0);
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString text = utf8.decode(run.out);
        QVERIFY(!utf8.hasError());
        for (const QChar c : text) {
            const char16_t u = c.unicode();
            QVERIFY2(u == '\n' || (u >= 0x20 && u != 0x7f && !(u >= 0x80 && u <= 0x9f) &&
                                   !(u >= 0x2028 && u <= 0x202e)),
                     qPrintable(QString::number(u, 16)));
        }
        // One line per item of the category, each showing the escaped name,
        // and no item line that a name made up.
        const QStringList lines = text.split('\n');
        QCOMPARE(lines.filter(sandbox.path("home/.cache/")).size(), oddNames.size() + 2);
        for (const QString &line : lines) {
            if (line.startsWith(QLatin1String("    [")))
                QVERIFY2(line.contains(sandbox.path("home/.cache/")), qPrintable(line));
        }
        for (const char *shown :
             {"evil\\n    [x]   1.0 GB  passwd", "\\x1b[31mred\\x1b[0m", "raw\\xff\\xfe",
              "doc\\u202etxt.exe", "c1\\u009b2J", "back\\\\slash", "tab\\there"})
            QVERIFY2(text.contains(QString::fromUtf8(shown)), shown);
    }
};

QTEST_GUILESS_MAIN(TestCliNames)
#include "test_cli_names.moc"
