// brenlow-cli cleans Auto Cleanup as the window does: each child module
// with something selected, in turn, and exactly what was selected.
#include "CleanTestSupport.h"
#include "support/CliProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace CleanTest;

namespace {

// The paths of the ticked nodes of a category (a partly ticked node gives
// its ticked children).
void tickedPaths(const QJsonArray &files, QByteArrayList *out)
{
    for (const QJsonValue &f : files) {
        const int checked = f["checked"].toInt();
        if (checked == 1)
            out->append(FolderInfo::pathBytes(QUrl(f["url"].toString())));
        else if (checked == -1)
            tickedPaths(f["children"].toArray(), out);
    }
}

QStringList childTitles(const QJsonObject &cleaned)
{
    QStringList titles;
    for (const QJsonValue &child : cleaned["children"].toArray())
        titles.append(child["module"].toString());
    return titles;
}

} // namespace

class TestCliAutoCleanup : public QObject {
    Q_OBJECT

private:
    TreeBuilder *sandbox = nullptr;

    CliProcess::Result cli(const QByteArrayList &args, const QByteArray &input = {},
                           bool asNobody = false)
    {
        QProcessEnvironment e = cliEnvironment(
            *sandbox, QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/resources/linux"), QString());
        e.insert("XDG_CONFIG_HOME", sandbox->path("home/.config"));
        return CliProcess::run(cliProgram, args, e, input, asNobody);
    }

    // What a scan lists and ticks by default, child by child, for rows whose
    // box is on; `found` gets each child's title and the size it found.
    QMap<QString, QByteArrayList> ticked(QStringList *found = nullptr)
    {
        const CliProcess::Result scan = cli({"scan", "Auto Cleanup", "--json"});
        const QJsonObject whole = QJsonDocument::fromJson(scan.out).object();
        const QJsonArray rows = whole["categories"].toArray();
        QMap<QString, QByteArrayList> out;
        const QJsonArray children = whole["children"].toArray();
        for (qsizetype n = 0; n < children.size(); ++n) {
            QByteArrayList paths;
            qint64 size = 0;
            for (const QJsonValue &c : children[n]["categories"].toArray()) {
                size += c["size"].toInteger();
                if (rows[n]["state"].toInt() != 0 && c["state"].toInt() != 0)
                    tickedPaths(c["files"].toArray(), &paths);
            }
            if (found)
                found->append(children[n]["title"].toString() + '=' + QString::number(size));
            if (!paths.isEmpty())
                out.insert(children[n]["title"].toString(), paths);
        }
        return out;
    }

    QMap<QByteArray, QByteArray> diskNow() const
    {
        return without(snapshot(sandbox->root()), sandbox->root());
    }

private slots:
    void init()
    {
        sandbox = new TreeBuilder;
        sandbox->file("home/.cache/pip/http/blob", 5);
        sandbox->file("home/.cache/thumbnails/large/b.png", 6);
        sandbox->file("home/.cache/evolution/mail/1a2b/folders/INBOX/cur/ab/9", 7);
        // The mail store's own files, which Mail Trash never lists.
        sandbox->file("home/.cache/evolution/mail/1a2b/folders.db", 40);
        sandbox->file("home/.cache/evolution/mail/trash-note", 1);
        sandbox->file("home/.local/share/Trash/files/old.txt", 8);
        sandbox->file("home/.local/share/Trash/info/old.txt.trashinfo", 20);
        sandbox->file("home/keep.txt", 4);
        sandbox->folder("root");
    }
    void cleanup()
    {
        TreeBuilder::makeRemovable(sandbox->root());
        delete sandbox;
    }

    // The scan finds each child's own; the clean's default selection is the
    // scan's own ticks and the rows' own boxes.
    void cleansEveryTickedChildInTurn()
    {
        QStringList found;
        const QMap<QString, QByteArrayList> expected = ticked(&found);
        QCOMPARE(found, QStringList({"System Junk=5", "Photo Cache=6", "Mail Trash=7",
                                     "Trash Bin=28", "iTunes Junk=0"}));
        // Mail Trash lists its cache but does not tick it by default.
        QCOMPARE(expected.keys(), QStringList({"Photo Cache", "System Junk", "Trash Bin"}));
        QByteArrayList gone;
        for (const QByteArrayList &paths : expected)
            gone += paths;
        const QMap<QByteArray, QByteArray> before = diskNow();

        const CliProcess::Result run = cli({"clean", "Auto Cleanup", "--yes", "--json"});
        QCOMPARE(run.exitCode, 0);
        const QJsonObject cleaned = QJsonDocument::fromJson(run.out).object();
        // Row order, not name order.
        QCOMPARE(childTitles(cleaned), QStringList({"System Junk", "Photo Cache", "Trash Bin"}));
        QCOMPARE(cleaned["number"].toInt(), gone.size());
        QCOMPARE(diskNow(), without(before, sandbox->root(), gone));
        QVERIFY(existsOnDisk(sandbox->pathBytes("home/.cache/evolution/mail/1a2b/folders")));
    }

    void pathsSelectAcrossChildren()
    {
        const QMap<QString, QByteArrayList> listed = ticked();
        const QByteArrayList chosen = {listed.value("Photo Cache").value(0),
                                       listed.value("Trash Bin").value(0)};
        QVERIFY(!chosen.contains(QByteArray()));
        const QMap<QByteArray, QByteArray> before = diskNow();
        const CliProcess::Result run =
            cli(QByteArrayList{"clean", "Auto Cleanup", "--json", "--yes", "--select"} + chosen);
        QCOMPARE(run.exitCode, 0);
        const QJsonObject cleaned = QJsonDocument::fromJson(run.out).object();
        QCOMPARE(childTitles(cleaned), QStringList({"Photo Cache", "Trash Bin"}));
        QCOMPARE(diskNow(), without(before, sandbox->root(), chosen));
    }

    void refusesWithoutConsent_data()
    {
        QTest::addColumn<QByteArray>("select"); // under the sandbox
        QTest::addColumn<QByteArray>("input");
        QTest::newRow("not confirmed") << QByteArray() << QByteArray("n\n");
        QTest::newRow("path not listed") << QByteArray("home/keep.txt") << QByteArray();
    }
    void refusesWithoutConsent()
    {
        QFETCH(QByteArray, select);
        QFETCH(QByteArray, input);
        int count = 0;
        for (const QByteArrayList &paths : ticked())
            count += int(paths.size());
        const QMap<QByteArray, QByteArray> before = diskNow();
        QByteArrayList args{"clean", "Auto Cleanup"};
        if (!select.isEmpty())
            args << "--select" << sandbox->pathBytes(select);
        const CliProcess::Result run = cli(args, input);
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(diskNow(), before);
        // One question for the whole run, with its total.
        if (!input.isEmpty())
            QCOMPARE(run.err.count(QByteArray(QByteArray::number(count) + " items,")), 1);
    }

    // An item that cannot go fails its child; the other children still run.
    void aFailedChildEndsWithStatusTwo()
    {
        if (geteuid() == 0 && !TestEnvironment::canDropPrivileges())
            QSKIP("no unprivileged user to run as");
        sandbox->file("home/.local/share/Trash/files/locked/inner", 1);
        sandbox->chmod("home/.local/share/Trash/files/locked", 0555);
        sandbox->openToAll();
        if (geteuid() == 0)
            QCOMPARE(QProcess::execute("chown", {"-R", "nobody", sandbox->path("home")}), 0);
        const CliProcess::Result run = cli({"clean", "Auto Cleanup", "--yes", "--json"}, {}, true);
        QCOMPARE(run.exitCode, 2);
        const QJsonObject cleaned = QJsonDocument::fromJson(run.out).object();
        QCOMPARE(childTitles(cleaned), QStringList({"System Junk", "Photo Cache", "Trash Bin"}));
        const QJsonArray failures = cleaned["children"][2]["failures"].toArray();
        QCOMPARE(failures.size(), 1);
        QCOMPARE(failures[0]["path"].toString(),
                 sandbox->path("home/.local/share/Trash/files/locked"));
        QVERIFY(!existsOnDisk(sandbox->pathBytes("home/.cache/pip")));
    }
};

QTEST_GUILESS_MAIN(TestCliAutoCleanup)
#include "test_cli_autocleanup.moc"
