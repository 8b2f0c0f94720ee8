#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QtTest>
#include <sys/stat.h>

namespace {

FolderUrl rootOf(const TreeBuilder &t, const QString &relative = QString(), int checked = 0)
{
    return FolderUrl{FolderInfo::absoluteString(FolderInfo::urlFromPath(t.path(relative))),
                     QStringLiteral("Folder"), checked};
}

QStringList names(const QList<FolderInfoPtr> &nodes)
{
    QStringList list;
    for (const FolderInfoPtr &n : nodes)
        list << n->name;
    list.sort();
    return list;
}

FolderInfoPtr byName(const QList<FolderInfoPtr> &nodes, const QString &name)
{
    for (const FolderInfoPtr &n : nodes) {
        if (n->name == name)
            return n;
    }
    return nullptr;
}

} // namespace

class FolderInfoTest : public QObject {
    Q_OBJECT

private slots:
    void rootNodeWithOneLevelOrNone()
    {
        TreeBuilder t;
        t.file("root/.hidden", 5);
        t.file("root/a.txt", 10);
        t.file("root/sub/deep/x", 100);
        t.file("root/sub/y", 1000);
        t.file("root/App.app/Contents/z", 7);
        QList<QPair<QString, qint64>> progress;
        const FolderInfoPtr node = FolderInfo::folderInfo(rootOf(t, "root", 1), true,
                                                          [&](const QString &path, qint64 size) {
                                                              progress.append({path, size});
                                                          });
        QCOMPARE(names(node->children), QStringList({".hidden", "App.app", "a.txt", "sub"}));
        QCOMPARE(node->size, 1122);
        // A folder's size comes from the deep walk; a package is one item.
        const FolderInfoPtr sub = byName(node->children, "sub");
        QCOMPARE(sub->size, 1100);
        QVERIFY(sub->isFolder && sub->children.isEmpty());
        QVERIFY(byName(node->children, "App.app")->isPackage);
        for (const FolderInfoPtr &c : node->children)
            QCOMPARE(c->checked, 1);
        // Progress is posted to the main queue, one call per entry; the
        // root's sum is not posted again on top of them.
        QTRY_COMPARE(progress.size(), 4);
        qint64 reported = 0;
        for (const auto &[path, size] : std::as_const(progress))
            reported += size;
        QCOMPARE(reported, node->size);
        QVERIFY(FolderInfo::folderInfo(rootOf(t, "root"), false, {})->children.isEmpty());

        // Roots that give no node: a link, a vanished path, another scheme.
        t.symlink("link", t.path("root"));
        QVERIFY(!FolderInfo::folderInfo(rootOf(t, "link"), true, {}));
        QVERIFY(!FolderInfo::folderInfo(rootOf(t, "gone"), true, {}));
        QVERIFY(!FolderInfo::folderInfo(FolderUrl{QStringLiteral("http://example.org/"), {}, 0},
                                        true, {}));
    }

    void filesFromDirWithFilterVerdicts_data()
    {
        QTest::addColumn<int>("verdictForFolders");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("keep everything")
            << int(FilterType::NoSkip) << QStringList({"a", "b", "f1", "f2"});
        QTest::newRow("folders left out, walked")
            << int(FilterType::SkipSelf) << QStringList({"f1", "f2"});
        QTest::newRow("folders kept, not walked")
            << int(FilterType::SkipChildren) << QStringList({"a", "f1"});
        QTest::newRow("folders neither")
            << int(FilterType::SkipSelfAndChildren) << QStringList({"f1"});
    }
    void filesFromDirWithFilterVerdicts()
    {
        QFETCH(int, verdictForFolders);
        QFETCH(QStringList, expected);
        TreeBuilder t;
        t.file("r/f1", 1);
        t.file("r/.h", 1);
        t.file("r/a/b/f2", 2);
        const TypeFilter filter = [&](const ResourceValues &v, DirectoryEnumerator &) {
            return v.isDirectory ? FilterType(verdictForFolders) : FilterType::NoSkip;
        };
        float percent = 0;
        const ChildrenInfo info = FolderInfo::filesFromDirWithFilter(
            rootOf(t, "r"), {}, [&](float step) { percent += step; }, filter);
        QCOMPARE(names(info.children), expected);
        // Two visible top entries: each is a third.
        QTRY_COMPARE(percent, 2.0f / 3.0f);
    }

    void folderSizes()
    {
        TreeBuilder t;
        t.file("r/a", 10);
        t.file("r/.DS_Store", 500);
        t.file("r/s/b", 20);
        t.file("r/s/x.DS_Store", 1000);
        t.file("r/Pkg.app/c", 30);
        const QUrl root = FolderInfo::urlFromPath(t.path("r"));
        QCOMPARE(FolderInfo::getFolderSize(root), 1560);
        QCOMPARE(FolderInfo::fastFolderSizeAtFSRef(t.path("r")), 60);
        QCOMPARE(FolderInfo::getFolderSize(FolderInfo::urlFromPath(t.path("r/a"))), 0);
        QCOMPARE(FolderInfo::fastFolderSizeAtFSRef(t.path("none")), 0);

        qint64 async = -1;
        FolderInfo::asyncGetFolderSize(root, [&](qint64 size) { async = size; });
        QTRY_COMPARE(async, 1560);
    }

    void deleteFileRemovesWhatTheFolderAllows()
    {
        TreeBuilder t;
        t.file("victim/inner/f", 3);
        QVERIFY(FolderInfo::deleteFile(FolderInfo::urlFromPath(t.path("victim"))));
        QVERIFY(!QFile::exists(t.path("victim")));
        QVERIFY(!FolderInfo::deleteFile(FolderInfo::urlFromPath(t.path("victim"))));

        // A link is removed as itself; what it points to stays whole.
        TreeBuilder outside;
        outside.file("kept/data", 8);
        t.symlink("link", outside.path("kept"));
        QVERIFY(FolderInfo::deleteFile(FolderInfo::urlFromPath(t.path("link"))));
        QVERIFY(QFile::exists(outside.path("kept/data")));

        // A name that is not UTF-8 is found and removed by its bytes.
        const QByteArray odd = t.fileBytes("bad-\xfe\xff", 4);
        const FolderInfoPtr parent = FolderInfo::folderInfo(rootOf(t), true, {});
        QCOMPARE(parent->children.size(), 1);
        QCOMPARE(FolderInfo::pathBytes(parent->children.first()->url), odd);
        QVERIFY(FolderInfo::deleteFile(parent->children.first()->url));
        QVERIFY(!TreeBuilder::exists(odd));
    }

    void deletableMeansWhatTheParentAllows()
    {
        if (!TestEnvironment::canDropPrivileges())
            QSKIP("no unprivileged user to test permissions with");
        TreeBuilder t;
        t.openToAll();
        t.folder("locked");
        t.file("locked/own/f", 1);
        ::chmod(QFile::encodeName(t.path("locked/own")).constData(), 0777);
        ::chmod(QFile::encodeName(t.path("locked/own/f")).constData(), 0666);
        const QByteArray lockedChild = QFile::encodeName(t.path("locked/own"));
        const QByteArray freeFile = QFile::encodeName(t.path("locked/own/f"));
        // The folder "locked" belongs to root and is not writable by others:
        // its entry cannot go, but what is inside the open folder can.
        QVERIFY(TestEnvironment::asUnprivileged([=] {
            return !FolderInfo::deleteFile(FolderInfo::urlFromPath(lockedChild)) &&
                   FolderInfo::deleteFile(FolderInfo::urlFromPath(freeFile));
        }));
        QVERIFY(TreeBuilder::exists(lockedChild));
        QVERIFY(!TreeBuilder::exists(freeFile));
    }

    void handleString_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("expected");
        auto row = [](const char *name, const char *input, const QString &expected) {
            QTest::newRow(name) << QString::fromUtf8(input) << expected;
        };
        row("escapes", "file:///tmp/My%20caf%C3%A9", QStringLiteral("/tmp/My café"));
        row("every file://", "file://file:///x", QStringLiteral("/x"));
        row("bad escape", "file:///tmp/%zz", QString());
        row("not UTF-8", "file:///tmp/%FF", QString());
    }
    void handleString()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        QCOMPARE(Services::handleString(input), expected);
    }

    void urlsKeepRawBytes()
    {
        const QByteArray raw("/tmp/a b/\xff\xfe/%41");
        const QUrl url = FolderInfo::urlFromPath(raw);
        QCOMPARE(FolderInfo::pathBytes(url), raw);
        QCOMPARE(Services::handleBytes(FolderInfo::absoluteString(url)), raw);
        QVERIFY(FolderInfo::absoluteString(url).startsWith("file:///tmp/a%20b/"));
    }
};

QTEST_GUILESS_MAIN(FolderInfoTest)
#include "test_folder_info.moc"
