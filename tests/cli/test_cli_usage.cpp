#include "TestPaths.h"
#include "support/CliProcess.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString bin = QStringLiteral(BRENLOW_TEST_BINARY_DIR);

// The one version, as the build's project line states it.
QString projectVersion()
{
    QFile file(QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/CMakeLists.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression line(QStringLiteral("project\\(Brenlow VERSION ([0-9.]+)"));
    return line.match(QString::fromUtf8(file.readAll())).captured(1);
}

} // namespace

// brenlow-cli's conventions as a user meets them: help, version, one-line
// usage errors, and the shell completion that ships with it.
class CliUsageTest : public QObject {
    Q_OBJECT

private slots:
    void helpAndUsageErrors_data()
    {
        QTest::addColumn<QByteArrayList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("expected"); // in standard output, or the error line

        QTest::newRow("help") << QByteArrayList{"--help"} << 0 << "Usage: brenlow-cli COMMAND";
        QTest::newRow("-h after a command")
            << QByteArrayList{"clean", "-h"} << 0 << "--select PATH...";
        QTest::newRow("a command's help before its module")
            << QByteArrayList{"scan", "--help", "System Junk"} << 0 << "--min-size KIB";
        QTest::newRow("unknown option first")
            << QByteArrayList{"--frobnicate"} << 1 << "unknown option \"--frobnicate\"";
        QTest::newRow("unknown option of a command")
            << QByteArrayList{"clean", "Trash Bin", "--force"} << 1
            << "clean: unknown option \"--force\"";
        QTest::newRow("another command's option")
            << QByteArrayList{"status", "--yes"} << 1 << "status: unknown option \"--yes\"";
        QTest::newRow("an option's value may start with a dash")
            << QByteArrayList{"scan", "Duplicates", "--path", "-no-such-folder"} << 1
            << "--path: \"-no-such-folder\" is not a folder";
        QTest::newRow("no command") << QByteArrayList{} << 1 << "no command given";
        QTest::newRow("unknown command")
            << QByteArrayList{"sweep"} << 1 << "unknown command \"sweep\"";
        QTest::newRow("unknown module")
            << QByteArrayList{"scan", "No Such Module"} << 1 << "No Such Module";
        QTest::newRow("module index out of range") << QByteArrayList{"scan", "99"} << 1 << "99";
        QTest::newRow("heading row") << QByteArrayList{"scan", "13"} << 1 << "13";
        QTest::newRow("watch without seconds")
            << QByteArrayList{"status", "--watch"} << 1 << "--watch";
        QTest::newRow("watch zero seconds")
            << QByteArrayList{"status", "--watch", "0"} << 1 << "--watch";
        QTest::newRow("watch not a number")
            << QByteArrayList{"status", "--watch", "soon"} << 1 << "--watch";
        QTest::newRow("size not an integer")
            << QByteArrayList{"scan", "Duplicates", "--min-size", "1.5"} << 1 << "--min-size: ";
        QTest::newRow("finder option of another module")
            << QByteArrayList{"scan", "Trash Bin", "--min-size", "4"} << 1
            << "--path is an option of the duplicate and similar image finders";
        QTest::newRow("option without its value")
            << QByteArrayList{"scan", "Duplicates", "--path"} << 1 << "--path needs a value";
        QTest::newRow("threshold 0") << QByteArrayList{"scan", "Similar Images", "--threshold", "0"}
                                     << 1 << "--threshold: \"0\" is not a whole number";
        QTest::newRow("threshold of duplicates")
            << QByteArrayList{"scan", "Duplicates", "--threshold", "2"} << 1
            << "--threshold of the similar one";
        QTest::newRow("size of similar")
            << QByteArrayList{"scan", "Similar Images", "--min-size", "2"} << 1
            << "--threshold of the similar one";
    }
    void helpAndUsageErrors()
    {
        QFETCH(QByteArrayList, args);
        QFETCH(int, exitCode);
        QFETCH(QString, expected);
        // Each in a world of its own: a module name is looked up in its list.
        TestEnvironment world(QStringLiteral("linux"));
        const CliProcess::Result r = CliProcess::run(world, args);
        const QString out = QString::fromUtf8(r.out), err = QString::fromUtf8(r.err);
        QCOMPARE(r.exitCode, exitCode);
        if (exitCode == 0) {
            QVERIFY2(out.contains(expected), qPrintable(out));
            QVERIFY(out.contains("Exit status:"));
            QVERIFY(err.isEmpty());
        } else {
            // One line on standard error, naming the program and the fault.
            QVERIFY(out.isEmpty());
            QCOMPARE(err.count('\n'), 1);
            QVERIFY2(err.startsWith("brenlow-cli: ") && err.contains(expected), qPrintable(err));
        }
    }

    void versionNamesTheServiceAndHelperInUse()
    {
        const QString version = projectVersion();
        QVERIFY(!version.isEmpty());
        const QString service = QDir(bin + "/libexec/brenlow").canonicalPath() + "/brenlow-service";
        CliProcess::Result r = CliProcess::run(CliProcess::program(), {"--version"},
                                               QProcessEnvironment::systemEnvironment());
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(QString::fromUtf8(r.out),
                 QStringLiteral("brenlow-cli %1\nbrenlow-service %1 %2\nbrenlow-helper %1\n")
                     .arg(version, service));

        // A service with no helper beside it says so rather than a version.
        QTemporaryDir lonely;
        QVERIFY(QFile::copy(service, lonely.filePath("brenlow-service")));
        QVERIFY(QFile::setPermissions(lonely.filePath("brenlow-service"),
                                      QFile::ReadOwner | QFile::ExeOwner));
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("BRENLOW_SERVICE_PATH", lonely.filePath("brenlow-service"));
        r = CliProcess::run(CliProcess::program(), {"-V"}, env);
        QCOMPARE(r.exitCode, 0);
        QVERIFY2(r.out.endsWith("brenlow-helper not found\n"), r.out.constData());
    }

    void bashCompletion_data()
    {
        QTest::addColumn<QStringList>("words"); // the last is the word being completed
        QTest::addColumn<QStringList>("offered");

        QTest::newRow("command") << QStringList{"cl"} << QStringList{"clean"};
        QTest::newRow("module title with a space")
            << QStringList{"scan", "System J"} << QStringList{"System\\ Junk"};
        QTest::newRow("module after an option")
            << QStringList{"clean", "--yes", "Trash"} << QStringList{"Trash\\ Bin"};
        QTest::newRow("no second module")
            << QStringList{"scan", "Trash Bin", "Sys"} << QStringList{};
        QTest::newRow("options of the command")
            << QStringList{"status", "--"} << QStringList{"--json", "--watch", "--help"};
        QTest::newRow("selection keywords")
            << QStringList{"clean", "Trash Bin", "--select", "al"} << QStringList{"all"};
    }
    void bashCompletion()
    {
        QFETCH(QStringList, words);
        QFETCH(QStringList, offered);
        QString quoted;
        for (const QString &w : words)
            quoted += " '" + w + "'";
        // File names are offered too, from a folder with none.
        QTemporaryDir empty;
        const QString script =
            QStringLiteral("cd '%1'; source '" BRENLOW_TEST_SOURCE_DIR "/resources/completion/"
                           "brenlow-cli.bash'\nCOMP_WORDS=(brenlow-cli%2); COMP_CWORD=%3\n"
                           "_brenlow_cli; printf '%s\\n' \"${COMPREPLY[@]}\"\n")
                .arg(empty.path(), quoted)
                .arg(words.size());
        // The completion asks the program on PATH, as an installed one does.
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("PATH", bin + "/bin:" + env.value("PATH"));
        const CliProcess::Result r = CliProcess::run("bash", {"-c", script.toUtf8()}, env);
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(QString::fromUtf8(r.out).split('\n', Qt::SkipEmptyParts), offered);
    }
};

QTEST_GUILESS_MAIN(CliUsageTest)
#include "test_cli_usage.moc"
