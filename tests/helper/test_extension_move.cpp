// The helper's move of an extension between its folder and the disabled
// place beside it: the rule, the folders it is built with, and the move.
#include "cleaner/core/FileMove.h"
#include "helper/AllowList.h"
#include "helper/ExtensionMover.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QtTest>
#include <sys/stat.h>

class TestExtensionMove : public QObject {
    Q_OBJECT

private slots:
    void toggledPath_data()
    {
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("expected"); // empty: refused
        QTest::newRow("in use") << QByteArray("/h/.config/autostart/a.desktop")
                                << QByteArray("/h/.config/autostart.disabled/a.desktop");
        QTest::newRow("off") << QByteArray("/h/.config/autostart.disabled/a.desktop")
                             << QByteArray("/h/.config/autostart/a.desktop");
        QTest::newRow("doubled slashes") << QByteArray("/h//.config/autostart/a/")
                                         << QByteArray("/h/.config/autostart.disabled/a");
        QTest::newRow("deeper") << QByteArray("/h/.config/autostart/sub/a.desktop") << QByteArray();
        QTest::newRow("the folder itself") << QByteArray("/h/.config/autostart") << QByteArray();
        QTest::newRow("beside") << QByteArray("/h/.config/autostart2/a") << QByteArray();
        QTest::newRow("climbing out")
            << QByteArray("/h/.config/autostart/../../etc/passwd") << QByteArray();
        QTest::newRow("relative") << QByteArray("h/.config/autostart/a") << QByteArray();
    }

    void toggledPath()
    {
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, expected);
        const auto target =
            FileMove::toggledPath(path, {"/h/.config/autostart", "/etc/xdg/autostart"});
        QCOMPARE(target.value_or(QByteArray()), expected);
    }

    // Built from both profiles' lists: the home's folders wait for the
    // caller's home; the system folders and applications folders are places.
    void foldersAndPlacesFromTheShippedLists()
    {
        const QList<QByteArray> &shipped = ExtensionMover::shippedFolders();
        QVERIFY(shipped.contains("~/.config/autostart"));
        QVERIFY(shipped.contains("/etc/xdg/autostart"));
        QVERIFY(shipped.contains("/Library/LaunchAgents"));
        QVERIFY(!shipped.contains("~/.config/autostart.disabled"));
        const QList<QByteArray> forUser = ExtensionMover::resolved(shipped, "/home/u");
        QVERIFY(forUser.contains("/home/u/.config/autostart"));
        QVERIFY(forUser.contains("/etc/xdg/autostart"));
        QVERIFY(
            !ExtensionMover::resolved(shipped, QByteArray()).contains("/home/u/.config/autostart"));
        for (const char *place :
             {"/opt", "/Applications", "/etc/xdg/autostart", "/etc/xdg/autostart.disabled"})
            QVERIFY2(AllowList::shippedPlaces().contains(place), place);
    }

    // The item moves as itself and comes back; nothing is replaced, and an
    // item other than the one seen is left alone.
    void movesAndRefuses()
    {
        TreeBuilder tree;
        const QByteArray folder = QFile::encodeName(tree.folder("autostart"));
        const ExtensionMover mover({folder});
        tree.file("elsewhere/target.desktop", 7);
        tree.symlink("autostart/link.desktop", tree.path("elsewhere/target.desktop"));
        const QByteArray link = folder + "/link.desktop";
        const QByteArray off = folder + ".disabled/link.desktop";

        QVERIFY(mover.move(link, {}).moved);
        struct stat st;
        QVERIFY(lstat(off.constData(), &st) == 0 && S_ISLNK(st.st_mode));
        QVERIFY(lstat(link.constData(), &st) != 0);
        QVERIFY(QFile::exists(tree.path("elsewhere/target.desktop")));
        // The disabled place is made like the folder beside it.
        struct stat made, source;
        QVERIFY(stat(QByteArray(folder + ".disabled").constData(), &made) == 0 &&
                stat(folder.constData(), &source) == 0);
        QCOMPARE(made.st_uid, source.st_uid);
        QCOMPARE(made.st_mode, source.st_mode);

        QVERIFY(mover.move(off, {}).moved);
        QVERIFY(lstat(link.constData(), &st) == 0 && S_ISLNK(st.st_mode));

        tree.file("autostart.disabled/link.desktop", 3);
        const FileMove::Result onto = mover.move(link, {});
        QVERIFY(!onto.moved);
        QVERIFY(onto.reason.contains("holds an item"));
        QCOMPARE(QFileInfo(QFile::decodeName(off)).size(), 3);
        QVERIFY(lstat(link.constData(), &st) == 0 && S_ISLNK(st.st_mode));

        tree.file("autostart/other.desktop", 1);
        ItemIdentity seen;
        seen.kind = ItemIdentity::Kind::File;
        seen.device = st.st_dev;
        seen.inode = st.st_ino; // the link's, not this file's
        QVERIFY(!mover.move(folder + "/other.desktop", seen).moved);
        QVERIFY(!mover.move(QFile::encodeName(tree.path("elsewhere/target.desktop")), {}).moved);
        QVERIFY(QFile::exists(tree.path("autostart/other.desktop")));
        QVERIFY(QFile::exists(tree.path("elsewhere/target.desktop")));
    }
};

QTEST_GUILESS_MAIN(TestExtensionMove)
#include "test_extension_move.moc"
