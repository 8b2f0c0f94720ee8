// The one removal routine: it takes exactly the item the scan saw, follows no
// link on the way or below, and leaves whatever changed since the scan.

#include "cleaner/core/FileRemoval.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QtTest>
#include <sys/stat.h>
#include <unistd.h>

namespace {

ItemIdentity identityOf(const QString &path)
{
    struct stat st;
    if (lstat(QFile::encodeName(path).constData(), &st) != 0)
        return {};
    return ItemIdentity::fromStat(st);
}

// What happens to the listed item "home/item" between the scan and the clean.
enum class Change {
    None,
    FileReplacedByFile,
    FileReplacedByFolder,
    FolderReplacedByLink,
    ParentReplacedByLink,
    Vanished,
};

} // namespace

Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(FileRemoval::Outcome)

class FileRemovalTest : public QObject {
    Q_OBJECT

private slots:
    void takesOnlyWhatTheScanSaw_data()
    {
        QTest::addColumn<bool>("folder");
        QTest::addColumn<Change>("change");
        QTest::addColumn<FileRemoval::Outcome>("outcome");
        using O = FileRemoval::Outcome;
        QTest::newRow("file as scanned") << false << Change::None << O::Removed;
        QTest::newRow("folder as scanned") << true << Change::None << O::Removed;
        QTest::newRow("another file moved in") << false << Change::FileReplacedByFile << O::Changed;
        QTest::newRow("file became a folder")
            << false << Change::FileReplacedByFolder << O::Changed;
        QTest::newRow("folder became a link") << true << Change::FolderReplacedByLink << O::Changed;
        QTest::newRow("parent became a link")
            << true << Change::ParentReplacedByLink << O::BlockedStep;
        QTest::newRow("item vanished") << false << Change::Vanished << O::Vanished;
    }

    void takesOnlyWhatTheScanSaw()
    {
        QFETCH(bool, folder);
        QFETCH(Change, change);
        QFETCH(FileRemoval::Outcome, outcome);
        TreeBuilder t;
        // Outside the listed tree, with the same names, so that a removal led
        // astray would find something to take.
        t.file("outside/item/inner", 7);
        t.file("outside/home/item/inner", 7);
        const QString item = folder ? t.folder("home/item") : t.file("home/item", 5);
        if (folder)
            t.file("home/item/inner", 3);
        const ItemIdentity scanned = identityOf(item);

        switch (change) {
        case Change::None:
            break;
        case Change::FileReplacedByFile:
            t.file("home/newcomer", 9);
            QVERIFY(::rename(QFile::encodeName(t.path("home/newcomer")).constData(),
                             QFile::encodeName(item).constData()) == 0);
            break;
        case Change::FileReplacedByFolder:
            QVERIFY(QFile::remove(item));
            t.file("home/item/unseen", 4);
            break;
        case Change::FolderReplacedByLink:
            TreeBuilder::makeRemovable(item);
            FileRemoval::removeItem(QFile::encodeName(item));
            t.symlink("home/item", t.path("outside/item"));
            break;
        case Change::ParentReplacedByLink:
            QVERIFY(::rename(QFile::encodeName(t.path("home")).constData(),
                             QFile::encodeName(t.path("moved-home")).constData()) == 0);
            t.symlink("home", t.path("outside/home"));
            break;
        case Change::Vanished:
            QVERIFY(QFile::remove(item));
            break;
        }

        const FileRemoval::Result result =
            FileRemoval::removeListed(QFile::encodeName(item), scanned);
        QCOMPARE(result.outcome, outcome);
        QCOMPARE(result.removed(), outcome == FileRemoval::Outcome::Removed);
        if (outcome != FileRemoval::Outcome::Removed)
            QVERIFY(!result.reason().isEmpty());
        // Nothing outside the item is ever touched.
        QVERIFY(TreeBuilder::exists(t.path("outside/item/inner")));
        QVERIFY(TreeBuilder::exists(t.path("outside/home/item/inner")));
        if (change == Change::FileReplacedByFolder)
            QVERIFY(TreeBuilder::exists(t.path("home/item/unseen")));
        if (change == Change::FileReplacedByFile)
            QCOMPARE(QFileInfo(item).size(), 9);
        if (change == Change::None)
            QVERIFY(!TreeBuilder::exists(item));
    }

    void linksGoAsThemselves()
    {
        TreeBuilder t;
        t.file("outside/kept", 8);
        t.file("listed/own", 2);
        t.symlink("listed/to-outside", t.path("outside"));
        t.symlink("listed/to-file", t.path("outside/kept"));
        t.symlink("alone", t.path("outside"));
        t.symlink("dangling", t.path("nowhere"));
        for (const char *name : {"listed", "alone", "dangling"}) {
            const QString path = t.path(QLatin1String(name));
            QVERIFY(FileRemoval::removeListed(QFile::encodeName(path), identityOf(path)).removed());
            QVERIFY(!TreeBuilder::exists(path));
        }
        QVERIFY(TreeBuilder::exists(t.path("outside/kept")));
        QCOMPARE(QFileInfo(t.path("outside/kept")).size(), 8);
    }

    void refusesWhatNoScanRecorded_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<FileRemoval::Outcome>("outcome");
        using O = FileRemoval::Outcome;
        QTest::newRow("root") << QByteArray("/") << O::Invalid;
        QTest::newRow("relative") << QByteArray("relative/path") << O::Invalid;
        QTest::newRow("dot dot") << QByteArray("/tmp/../etc") << O::Invalid;
        QTest::newRow("NUL") << QByteArray("/tmp/a\0b", 8) << O::Invalid;
        QTest::newRow("no record") << QByteArray("/tmp") << O::Changed;
    }

    void refusesWhatNoScanRecorded()
    {
        QFETCH(QByteArray, path);
        QFETCH(FileRemoval::Outcome, outcome);
        QCOMPARE(FileRemoval::removeListed(path, ItemIdentity()).outcome, outcome);
        QVERIFY(TreeBuilder::exists(QStringLiteral("/tmp")));
    }

    void normalizesOnlyHarmlessSpellings()
    {
        QCOMPARE(FileRemoval::normalized("//a///b/"), std::optional<QByteArray>("/a/b"));
        QCOMPARE(FileRemoval::normalized("/"), std::optional<QByteArray>("/"));
        QCOMPARE(FileRemoval::normalized("/a/./b"), std::nullopt);
    }

    // An unprivileged process is told when more rights could do it, so that
    // the clean hands the item to the helper and nothing else.
    void asksForPrivilegeOnlyForRights()
    {
        if (geteuid() != 0)
            QSKIP("needs root to drop to an unprivileged user");
        TreeBuilder t;
        t.openToAll();
        t.file("locked/item", 3);
        const QString item = t.path("locked/item");
        const ItemIdentity scanned = identityOf(item);
        // "nobody" may search the folder but not write it.
        QVERIFY(TestEnvironment::asUnprivileged([&] {
            return FileRemoval::removeListed(QFile::encodeName(item), scanned).needsPrivilege();
        }));
        QVERIFY(TreeBuilder::exists(item));
    }
};

QTEST_GUILESS_MAIN(FileRemovalTest)
#include "test_file_removal.moc"
