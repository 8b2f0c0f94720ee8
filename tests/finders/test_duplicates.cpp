#include "cleaner/core/AppModuleService.h"
#include "cleaner/finders/DuplicateFolderInfo.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/finders/FileHash.h"
#include "cleaner/finders/FinderScans.h"
#include "cleaner/scan/KestalService.h"
#include "support/ScanRecorder.h"
#include "support/TestEnvironment.h"
#include "support/TreeBuilder.h"

#include <QFile>
#include <QtTest>
#include <unistd.h>

namespace {

using Kind = DuplicateService::duplicateKind;

QByteArray pattern(qint64 size, char seed)
{
    QByteArray data(size, Qt::Uninitialized);
    for (qint64 i = 0; i < size; ++i)
        data[i] = char((i * 131 + seed * 7 + (i >> 12)) & 0xff);
    return data;
}

// Runs the module's scan through the driver's entry, to its end.
QList<Category> scanFolder(const QString &root, qint64 limitKiB)
{
    DuplicateService::path() = root;
    DuplicateService::size = limitKiB;
    return ScanRecorder().scanToEnd(DuplicateService::moduleIndex);
}

// Each group as its sorted list of paths below root, the groups sorted.
QList<QStringList> groupsOf(const QList<Category> &categories, const QString &root)
{
    QList<QStringList> groups;
    for (const Category &c : categories) {
        QStringList paths;
        for (const FolderInfoPtr &f : c.files)
            paths << QFile::decodeName(FolderInfo::pathBytes(f->url)).mid(root.size() + 1);
        paths.sort();
        groups << paths;
    }
    std::sort(groups.begin(), groups.end());
    return groups;
}

} // namespace

class Duplicates : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { FinderScans::registerAll(); }

    void sizeLimitIsStrict_data()
    {
        QTest::addColumn<qint64>("limitKiB");
        QTest::addColumn<qint64>("size");
        QTest::addColumn<bool>("grouped");
        QTest::newRow("512 KiB exactly") << qint64(512) << qint64(512 * 1024) << false;
        QTest::newRow("512 KiB and a byte") << qint64(512) << qint64(512 * 1024 + 1) << true;
        QTest::newRow("empty under 0") << qint64(0) << qint64(0) << false;
        QTest::newRow("one byte under 0") << qint64(0) << qint64(1) << true;
    }
    void sizeLimitIsStrict()
    {
        QFETCH(qint64, limitKiB);
        QFETCH(qint64, size);
        QFETCH(bool, grouped);
        TestEnvironment env;
        TreeBuilder tree;
        tree.file("a/one", size);
        tree.file("b/two", size);
        QCOMPARE(scanFolder(tree.root(), limitKiB).size(), grouped ? 1 : 0);
    }

    // What the walk never sees, and what it sees as one group.
    void walkSkipsBarredHiddenAndPackages()
    {
        TestEnvironment env;
        TreeBuilder tree;
        for (const char *skipped :
             {"My.app notes.txt", "Applications Backup/x", "sub/Tools.framework/y", ".hidden",
              "sub/.secret/z", "Thing.bundle/inner", "sub/Other.plugin/w"})
            tree.file(QString::fromUtf8(skipped), 3000);
        tree.file("kept/one", 3000);
        tree.file("kept/deeper/two", 3000);
        const QList<QStringList> kept{{"kept/deeper/two", "kept/one"}};
        QCOMPARE(groupsOf(scanFolder(tree.root(), 0), tree.root()), kept);
    }

    // Same size, other bytes anywhere (first, middle, last block) stays
    // apart; copies and hard links are one group, in descending path order.
    void groupsAreExactlyTheIdenticalFiles()
    {
        TestEnvironment env;
        TreeBuilder tree;
        const QString r = tree.root();
        const qint64 big = 300000;
        const QByteArray data = pattern(big, 1);
        for (const char *p : {"a/x", "b/x", "c/y"})
            TreeBuilder::write(r + '/' + p, data);
        QByteArray last = data, middle = data, first = data;
        last[big - 1] = char(last[big - 1] ^ 1);
        middle[big / 2] = char(middle[big / 2] ^ 1);
        first[0] = char(first[0] ^ 1);
        TreeBuilder::write(r + "/d/last", last);
        TreeBuilder::write(r + "/d/middle", middle);
        TreeBuilder::write(r + "/d/first", first);
        TreeBuilder::write(r + "/e/small1", pattern(100, 2));
        TreeBuilder::write(r + "/e/small2", pattern(100, 3));
        TreeBuilder::write(r + "/f/single", pattern(5000, 4));
        QVERIFY(QDir().mkpath(r + "/g"));
        QCOMPARE(::link(QFile::encodeName(r + "/f/single"), QFile::encodeName(r + "/g/link")), 0);
        TreeBuilder::write(r + "/h/twin", middle);

        const QList<Category> categories = scanFolder(r, 0);
        QCOMPARE(groupsOf(categories, r),
                 (QList<QStringList>{
                     {"a/x", "b/x", "c/y"}, {"d/middle", "h/twin"}, {"f/single", "g/link"}}));
        const Category &three = categories.first();
        QCOMPARE(three.files.size(), 3);
        QCOMPARE(three.size, 3 * big);
        QCOMPARE(three.files[0]->url.path(), r + "/c/y");
        QCOMPARE(three.files[2]->url.path(), r + "/a/x");
        for (const FolderInfoPtr &f : three.files) {
            QCOMPARE(f->checked, 0);
            QVERIFY(f->identity.isKnown());
        }
    }

    // Files are opened by name from their folder, held open since the walk:
    // the same names at every depth, and a folder's files listed both before
    // and after its subfolders', must each be read from their own folder.
    void sameNamesInNestedFolders()
    {
        TestEnvironment env;
        TreeBuilder tree;
        const QString r = tree.root();
        QList<QStringList> expected;
        for (int i = 0; i < 40; ++i) {
            const QString n = QStringLiteral("x%1").arg(i);
            for (const char *folder : {"p/", "p/q/r/", "p/s/"})
                TreeBuilder::write(r + '/' + folder + n, pattern(700 + i, 1));
            for (const char *folder : {"p/q/", "p/t/"})
                TreeBuilder::write(r + '/' + folder + n, pattern(700 + i, 2));
            expected << QStringList{"p/q/r/" + n, "p/s/" + n, "p/" + n}
                     << QStringList{"p/q/" + n, "p/t/" + n};
        }
        std::sort(expected.begin(), expected.end());
        QCOMPARE(groupsOf(scanFolder(r, 0), r), expected);
    }

    void streamingBorderGivesTheSameDigest_data()
    {
        QTest::addColumn<qint64>("size");
        QTest::newRow("one byte under 30 MiB") << qint64(31457279);
        QTest::newRow("30 MiB") << qint64(31457280);
    }
    void streamingBorderGivesTheSameDigest()
    {
        QFETCH(qint64, size);
        TestEnvironment env;
        TreeBuilder tree;
        const QByteArray data = pattern(size, 5);
        const QByteArray a = QFile::encodeName(TreeBuilder::write(tree.path("a"), data));
        TreeBuilder::write(tree.path("b"), data);
        QCOMPARE(FileHash::md5HashOfFileAtPath(a),
                 DuplicateService::dataConversionToMD5String(data));
        const QList<Category> categories = scanFolder(tree.root(), 0);
        QCOMPARE(categories.size(), 1);
        QCOMPARE(categories.first().size, 2 * size);
    }

    // Real files typed by the shared MIME database sort into the five kinds.
    void kindsOfRealFiles_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("kind");
        QTest::newRow("mkv") << "clip.mkv" << int(Kind::video);
        QTest::newRow("mp4") << "clip.mp4" << int(Kind::video);
        QTest::newRow("flac") << "song.flac" << int(Kind::music);
        QTest::newRow("webp") << "photo.webp" << int(Kind::image);
        QTest::newRow("pdf") << "paper.pdf" << int(Kind::documents);
        QTest::newRow("ods") << "sheet.ods" << int(Kind::documents);
        QTest::newRow("no extension") << "blob" << int(Kind::other);
    }
    void kindsOfRealFiles()
    {
        QFETCH(QString, name);
        QFETCH(int, kind);
        TestEnvironment env;
        TreeBuilder tree;
        const QByteArray a = QFile::encodeName(tree.file("a/" + name, 10));
        const QByteArray b = QFile::encodeName(tree.file("b/" + name, 10));
        const Category c = DuplicateService::categoryOfSet({a, b}, 0);
        QCOMPARE(int(DuplicateService::kindOfType(c.type)), kind);
    }

    // The review's kinds: every group under "all", its kind's list, and the
    // empty category where a kind has none; a clean's leftovers renumbered.
    void reviewKindsAndUpdate()
    {
        TestEnvironment env;
        TreeBuilder tree;
        for (const char *p : {"a/m.mp3", "b/m.mp3", "a/v.mkv", "b/v.mkv", "c/v.mkv"})
            tree.file(p, QByteArray(p).endsWith("mp3") ? 900 : 1200);
        QCOMPARE(scanFolder(tree.root(), 0).size(), 2);
        bool done = false;
        DuplicateService::fasterFilterFile([&] { done = true; });
        QTRY_VERIFY(done);
        auto &kinds = DuplicateService::duplicateKindCategory();
        QCOMPARE(kinds.value(Kind::all).size(), 2);
        QCOMPARE(kinds.value(Kind::video).size(), 1);
        QCOMPARE(kinds.value(Kind::music).size(), 1);
        const QList<Category> noImages = kinds.value(Kind::image);
        QCOMPARE(noImages.size(), 1);
        QCOMPARE(noImages.first().files.first()->name, DuplicateService::emptyFileName);
        DuplicateService::filterFile(Kind::music);
        QCOMPARE(kinds.value(Kind::music).first().files.first()->size, qint64(900));

        QList<Category> &categories = AppModuleService::categoriesOf(DuplicateService::moduleIndex);
        std::swap(categories[0], categories[1]);
        categories[0].files.removeLast();
        DuplicateService::updateCategory();
        QCOMPARE(categories[0].finder, 0);
        QCOMPARE(categories[1].finder, 1);
        QCOMPARE(categories[0].size, categories[0].files.size() * categories[0].files[0]->size);
    }

    // A stopped scan leaves the result of the one before it on show.
    void stopKeepsTheEarlierResult()
    {
        TestEnvironment env;
        TreeBuilder tree;
        tree.file("a/x", 5000);
        tree.file("b/x", 5000);
        QCOMPARE(scanFolder(tree.root(), 0).size(), 1);
        for (int i = 0; i < 200; ++i)
            tree.file(QStringLiteral("more%1/y").arg(i), 7000);
        bool finished = false;
        KestalService::scan(DuplicateService::moduleIndex, {}, {}, [&](int) { finished = true; });
        KestalService::stopScan(DuplicateService::moduleIndex);
        // The watchdog publishes what the stopped scan keeps, then goes.
        QTRY_VERIFY(!KestalService::scanTimer().contains(DuplicateService::moduleIndex));
        const QList<QStringList> earlier{{"a/x", "b/x"}};
        QCOMPARE(
            groupsOf(AppModuleService::categoriesOf(DuplicateService::moduleIndex), tree.root()),
            earlier);
        QVERIFY(!finished);
    }

    // Between the walk and the digests a file goes and another shrinks: the
    // rest still make their group, and nothing is taken for what changed.
    void filesThatVanishBetweenStages()
    {
        TestEnvironment env;
        TreeBuilder tree;
        const QString r = tree.root();
        for (const char *p : {"a", "b", "c", "d"})
            TreeBuilder::write(r + '/' + p, pattern(200000, 6));
        auto [sizeAndPath, sizes] = DuplicateService::walk(QFile::encodeName(r), 0);
        QFile::remove(r + "/c");
        QFile::resize(r + "/d", 100);
        const MD5AndPath found = IdenticalContent::group(sizeAndPath, sizes, [] { return false; });
        // What can no longer be read counts as no data, as any unreadable file.
        QStringList same, unreadable;
        for (auto it = found.cbegin(); it != found.cend(); ++it) {
            for (const QByteArray &p : it.value())
                (it.key() == IdenticalContent::emptyDigest() ? unreadable : same)
                    << QFile::decodeName(p).mid(r.size() + 1);
        }
        same.sort();
        unreadable.sort();
        QCOMPARE(same, (QStringList{"a", "b"}));
        QCOMPARE(unreadable, (QStringList{"c", "d"}));
        // A copy gone after the digests is listed by name, with nothing to remove.
        const Category c = DuplicateService::categoryOfSet(
            {QFile::encodeName(r + "/a"), QFile::encodeName(r + "/c")}, 0);
        QVERIFY(!c.files.first()->identity.isKnown());
        QCOMPARE(c.files.first()->name, QStringLiteral("file"));
    }

    // Unreadable files below 30 MiB share the digest of no data, whatever
    // their sizes; an unreadable root is an empty tree.
    void unreadableFilesAndRoot()
    {
        if (!TestEnvironment::canDropPrivileges())
            QSKIP("no unprivileged user to run as");
        TestEnvironment env;
        TreeBuilder tree;
        tree.file("open/a", 4000);
        tree.file("open/b", 4000);
        tree.file("locked/c", 4000);
        tree.file("locked/d", 9000);
        tree.file("locked/e", 9000);
        tree.openToAll();
        tree.chmod("locked/c", 0);
        tree.chmod("locked/d", 0);
        tree.chmod("locked/e", 0);
        TreeBuilder lockedRoot;
        lockedRoot.file("inside/a", 10);
        lockedRoot.file("inside/b", 10);
        lockedRoot.chmod(".", 0);
        KestalService::scanStatus(); // the tables load before the child drops its rights
        const QByteArray root = QFile::encodeName(tree.root());
        const QByteArray closed = QFile::encodeName(lockedRoot.root());
        QVERIFY(TestEnvironment::asUnprivileged([&] {
            auto [sizeAndPath, sizes] = DuplicateService::walk(root, 0);
            const MD5AndPath found =
                IdenticalContent::group(sizeAndPath, sizes, [] { return false; });
            const QList<QList<QByteArray>> empty = found.values(IdenticalContent::emptyDigest());
            return found.size() == 2 && empty.size() == 1 && empty.first().size() == 3 &&
                   DuplicateService::walk(closed, 0).first.isEmpty();
        }));
        lockedRoot.chmod(".", 0755);
    }

    void namesThatAreNotUtf8()
    {
        TestEnvironment env;
        TreeBuilder tree;
        const QByteArray a = tree.fileBytes("caf\xe9.bin", 2000);
        const QByteArray b = tree.fileBytes("\xff\xfe.bin", 2000);
        const QList<Category> categories = scanFolder(tree.root(), 0);
        QCOMPARE(categories.size(), 1);
        QCOMPARE(FolderInfo::pathBytes(categories.first().files[0]->url), a);
        QCOMPARE(FolderInfo::pathBytes(categories.first().files[1]->url), b);
    }

    void configurationTakesIntegersOnly_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<qint64>("size");
        QTest::newRow("plain") << "2048" << true << qint64(2048);
        QTest::newRow("blanks around") << " 7 \n" << true << qint64(7);
        QTest::newRow("negative") << "-3" << true << qint64(-3);
        QTest::newRow("too large") << "99999999999999999999" << true << qint64(0);
        QTest::newRow("fraction") << "1.5" << false << qint64(512);
        QTest::newRow("words") << "12 kb" << false << qint64(512);
        QTest::newRow("nothing") << "" << false << qint64(512);
    }
    void configurationTakesIntegersOnly()
    {
        QFETCH(QString, text);
        QFETCH(bool, accepted);
        QFETCH(qint64, size);
        DuplicateService::size = 512;
        QCOMPARE(DuplicateService::saveConfiguration(text), accepted);
        QCOMPARE(DuplicateService::size, size);
    }
};

QTEST_GUILESS_MAIN(Duplicates)
#include "test_duplicates.moc"
