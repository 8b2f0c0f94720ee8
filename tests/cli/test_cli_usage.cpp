#include "TestPaths.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString bin = QStringLiteral(BRENLOW_TEST_BINARY_DIR);

struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

Run run(const QString &program, const QStringList &args,
        const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
{
    QProcess p;
    p.setProcessEnvironment(env);
    p.start(program, args);
    if (!p.waitForFinished(60000))
        qFatal("%s did not finish", qPrintable(program));
    return Run{p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1,
               QString::fromUtf8(p.readAllStandardOutput()),
               QString::fromUtf8(p.readAllStandardError())};
}

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
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("expected"); // in standard output, or the error line

        QTest::newRow("help") << QStringList{"--help"} << 0 << "Usage: brenlow-cli COMMAND";
        QTest::newRow("-h after a command")
            << QStringList{"clean", "-h"} << 0 << "--select PATH...";
        QTest::newRow("a command's help before its module")
            << QStringList{"scan", "--help", "System Junk"} << 0 << "--min-size KIB";
        QTest::newRow("unknown option first")
            << QStringList{"--frobnicate"} << 1 << "unknown option \"--frobnicate\"";
        QTest::newRow("unknown option of a command") << QStringList{"clean", "Trash Bin", "--force"}
                                                     << 1 << "clean: unknown option \"--force\"";
        QTest::newRow("another command's option")
            << QStringList{"status", "--yes"} << 1 << "status: unknown option \"--yes\"";
        QTest::newRow("an option's value may start with a dash")
            << QStringList{"scan", "Duplicates", "--path", "-no-such-folder"} << 1
            << "--path: \"-no-such-folder\" is not a folder";
        QTest::newRow("no command") << QStringList{} << 1 << "no command given";
        QTest::newRow("unknown command")
            << QStringList{"sweep"} << 1 << "unknown command \"sweep\"";
    }
    void helpAndUsageErrors()
    {
        QFETCH(QStringList, args);
        QFETCH(int, exitCode);
        QFETCH(QString, expected);
        const Run r = run(bin + "/bin/brenlow-cli", args);
        QCOMPARE(r.exitCode, exitCode);
        if (exitCode == 0) {
            QVERIFY2(r.out.contains(expected), qPrintable(r.out));
            QVERIFY(r.out.contains("Exit status:"));
            QVERIFY(r.err.isEmpty());
        } else {
            // One line on standard error, naming the program and the fault.
            QVERIFY(r.out.isEmpty());
            QCOMPARE(r.err.count('\n'), 1);
            QVERIFY2(r.err.startsWith("brenlow-cli: ") && r.err.contains(expected),
                     qPrintable(r.err));
        }
    }

    void versionNamesTheServiceAndHelperInUse()
    {
        const QString version = projectVersion();
        QVERIFY(!version.isEmpty());
        const QString service = QDir(bin + "/libexec/brenlow").canonicalPath() + "/brenlow-service";
        Run r = run(bin + "/bin/brenlow-cli", {"--version"});
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.out, QStringLiteral("brenlow-cli %1\nbrenlow-service %1 %2\nbrenlow-helper %1\n")
                            .arg(version, service));

        // A service with no helper beside it says so rather than a version.
        QTemporaryDir lonely;
        QVERIFY(QFile::copy(service, lonely.filePath("brenlow-service")));
        QVERIFY(QFile::setPermissions(lonely.filePath("brenlow-service"),
                                      QFile::ReadOwner | QFile::ExeOwner));
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert("BRENLOW_SERVICE_PATH", lonely.filePath("brenlow-service"));
        r = run(bin + "/bin/brenlow-cli", {"-V"}, env);
        QCOMPARE(r.exitCode, 0);
        QVERIFY2(r.out.endsWith("brenlow-helper not found\n"), qPrintable(r.out));
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
        const Run r = run("bash", {"-c", script}, env);
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.out.split('\n', Qt::SkipEmptyParts), offered);
    }
};

QTEST_GUILESS_MAIN(CliUsageTest)
#include "test_cli_usage.moc"
