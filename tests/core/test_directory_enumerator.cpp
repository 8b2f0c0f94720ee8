#include "cleaner/core/DirectoryEnumerator.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QtTest>
#include <cerrno>

namespace {

// Every item of a walk as "relative path@level".
QStringList walk(const TreeBuilder &tree, int options,
                 const std::function<void(DirectoryEnumerator &)> &each = {})
{
    QStringList items;
    auto e = DirectoryEnumerator::create(QFile::encodeName(tree.root()), options);
    if (!e)
        return {QStringLiteral("<none>")};
    const qsizetype prefix = QFile::encodeName(tree.root()).size() + 1;
    while (e->next()) {
        items << QString::fromUtf8(e->path().mid(prefix)) + QLatin1Char('@') +
                     QString::number(e->level());
        if (each)
            each(*e);
    }
    items.sort();
    return items;
}

} // namespace

class DirectoryEnumeratorTest : public QObject {
    Q_OBJECT

private slots:
    void levelsAndSkipDescendants()
    {
        TreeBuilder t;
        t.file("a/b/c/deep", 1);
        t.file("a/b/leaf", 1);
        t.file("a/x", 1);
        t.file("top", 1);
        QCOMPARE(walk(t, DirectoryEnumerator::NoOptions),
                 QStringList(
                     {"a/b/c/deep@4", "a/b/c@3", "a/b/leaf@3", "a/b@2", "a/x@2", "a@1", "top@1"}));
        // skipDescendants keeps the walk out of the item returned last only.
        QCOMPARE(walk(t, DirectoryEnumerator::NoOptions,
                      [](DirectoryEnumerator &e) {
                          if (e.path().endsWith("/a/b"))
                              e.skipDescendants();
                      }),
                 QStringList({"a/b@2", "a/x@2", "a@1", "top@1"}));
    }

    void options_data()
    {
        QTest::addColumn<int>("options");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("none") << int(DirectoryEnumerator::NoOptions)
                              << QStringList({".hid/in@2", ".hid@1", "Tool.app/Contents/bin@3",
                                              "Tool.app/Contents@2", "Tool.app@1", "d/f@2", "d@1"});
        QTest::newRow("hidden") << int(DirectoryEnumerator::SkipsHiddenFiles)
                                << QStringList({"Tool.app/Contents/bin@3", "Tool.app/Contents@2",
                                                "Tool.app@1", "d/f@2", "d@1"});
        QTest::newRow("packages") << int(DirectoryEnumerator::SkipsPackageDescendants)
                                  << QStringList(
                                         {".hid/in@2", ".hid@1", "Tool.app@1", "d/f@2", "d@1"});
        QTest::newRow("subdirectories") << int(DirectoryEnumerator::SkipsSubdirectoryDescendants)
                                        << QStringList({".hid@1", "Tool.app@1", "d@1"});
        QTest::newRow("all three") << int(DirectoryEnumerator::SkipsHiddenFiles |
                                          DirectoryEnumerator::SkipsPackageDescendants |
                                          DirectoryEnumerator::SkipsSubdirectoryDescendants)
                                   << QStringList({"Tool.app@1", "d@1"});
    }
    void options()
    {
        QFETCH(int, options);
        QFETCH(QStringList, expected);
        TreeBuilder t;
        t.file(".hid/in", 3);
        t.file("Tool.app/Contents/bin", 5);
        t.file("d/f", 7);
        QCOMPARE(walk(t, options), expected);
    }

    void linksAreItemsNeverFollowed()
    {
        TreeBuilder outside;
        outside.file("secret/inner", 9);
        TreeBuilder t;
        t.symlink("link", outside.path("secret"));
        t.file("real", 2);
        QCOMPARE(walk(t, 0,
                      [&](DirectoryEnumerator &e) {
                          if (e.path().endsWith("/link")) {
                              QVERIFY(e.values().isSymbolicLink);
                              QVERIFY(!e.isDirectory());
                          }
                      }),
                 QStringList({"link@1", "real@1"}));
        QVERIFY(!DirectoryEnumerator::create(QFile::encodeName(t.path("link"))));
        QVERIFY(!DirectoryEnumerator::create(QFile::encodeName(t.path("missing"))));
        QVERIFY(!DirectoryEnumerator::create(QFile::encodeName(t.path("real"))));
    }

    void valuesOfAnItem()
    {
        TreeBuilder t;
        const QDateTime when(QDate(2020, 5, 17), QTime(8, 30), Qt::UTC);
        t.file("notes.txt", 1234, when);
        t.folder("Pics.photoslibrary");
        auto e = DirectoryEnumerator::create(QFile::encodeName(t.root()));
        QHash<QString, ResourceValues> byName;
        while (e->next())
            byName.insert(e->values().localizedName, e->values());
        const ResourceValues file = byName.value("notes.txt");
        QCOMPARE(file.fileSize, 1234);
        QVERIFY(file.isRegularFile);
        QCOMPARE(file.contentModificationDate, when);
        QCOMPARE(file.typeIdentifier(), QStringLiteral("text/plain"));
        const ResourceValues lib = byName.value("Pics.photoslibrary");
        QVERIFY(lib.isDirectory && lib.isPackage);
        QVERIFY(!lib.fileSize);
    }

    // An unreadable folder is listed but not entered; the handler hears of each
    // folder that cannot be opened, the root included, and its false ends the walk.
    void unreadableFoldersAreListedAndReported()
    {
        if (!TestEnvironment::canDropPrivileges())
            QSKIP("no unprivileged user to test permissions with");
        TreeBuilder t;
        t.openToAll();
        for (const QString folder : {"one", "two"}) {
            t.file(folder + "/inside", 4);
            t.chmod(folder, 0000);
        }
        t.file("open/inside", 4);
        const QByteArray root = QFile::encodeName(t.root());
        const bool ok = TestEnvironment::asUnprivileged([root] {
            QStringList errors, seen;
            int itemsAfterError = 0;
            auto walk = [&](const QByteArray &from, bool goOn) {
                errors.clear();
                seen.clear();
                auto e = DirectoryEnumerator::create(from, DirectoryEnumerator::NoOptions,
                                                     [&](const DirectoryEnumerator::Error &error) {
                                                         errors << error.localizedDescription;
                                                         itemsAfterError = 0;
                                                         return goOn && error.code == EACCES;
                                                     });
                while (e && e->next()) {
                    ++itemsAfterError;
                    seen << QString::fromUtf8(e->path().mid(root.size() + 1));
                }
                seen.sort();
                return e != nullptr;
            };
            walk(root, true);
            const bool goesOn =
                seen == QStringList({"one", "open", "open/inside", "two"}) && errors.size() == 2;
            walk(root, false);
            const bool stops = errors.size() == 1 && itemsAfterError == 0;
            const bool rootTold = !walk(root + "/one", true) && errors.size() == 1;
            return goesOn && stops && rootTold;
        });
        t.chmod("one", 0755);
        t.chmod("two", 0755);
        QVERIFY(ok);
    }
};

QTEST_GUILESS_MAIN(DirectoryEnumeratorTest)
#include "test_directory_enumerator.moc"
