// Unpacking 7z and rar archives: the real rar archives of the test data, 7z
// archives written here with the entries an attacker would choose, and the
// encrypted ones through 7-Zip with the password on its standard input.

#include "LoopMount.h"
#include "SevenZipTool.h"
#include "TestPaths.h"
#include "cleaner/erasure/KestalDecompressionService.h"
#include "support/TreeBuilder.h"

#include <QDirIterator>
#include <QProcess>
#include <QTest>
#include <archive.h>
#include <archive_entry.h>
#include <sys/stat.h>
#include <unistd.h>

using Result = ArchiveExtractor::Result;
Q_DECLARE_METATYPE(Result)

namespace {

const QString rarData = QStringLiteral(BRENLOW_TEST_SOURCE_DIR "/../shared/testdata/rar");

// A link's own text, unresolved.
QString linkText(const QString &path)
{
    char target[4096];
    const ssize_t n = ::readlink(QFile::encodeName(path).constData(), target, sizeof target);
    return QFile::decodeName(QByteArray(target, std::max<ssize_t>(0, n)));
}

// Every item below a folder: "path=size" for a file, "path->target" for a
// link, "path/" for a folder.
QStringList treeOf(const QString &root)
{
    QStringList items;
    QDirIterator it(root, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString rel = path.mid(root.size() + 1);
        const QFileInfo info(path);
        if (info.isSymLink())
            items.append(rel + QStringLiteral("->") + linkText(path));
        else if (info.isDir())
            items.append(rel + QLatin1Char('/'));
        else
            items.append(rel + QLatin1Char('=') + QString::number(info.size()));
    }
    items.sort();
    return items;
}

// One entry of an archive written here: a name, its kind, and its data or
// link target.
struct Entry {
    QByteArray name;
    mode_t type = AE_IFREG;
    QByteArray data;
};

void write7z(const QString &path, const QList<Entry> &entries)
{
    archive *a = archive_write_new();
    archive_write_set_format_7zip(a);
    archive_write_open_filename(a, QFile::encodeName(path).constData());
    for (const Entry &e : entries) {
        archive_entry *entry = archive_entry_new();
        archive_entry_copy_pathname(entry, e.name.constData());
        archive_entry_set_filetype(entry, e.type);
        archive_entry_set_perm(entry, 0644);
        if (e.type == AE_IFLNK)
            archive_entry_copy_symlink(entry, e.data.constData());
        if (e.type == AE_IFREG)
            archive_entry_set_size(entry, e.data.size());
        archive_write_header(a, entry);
        if (e.type == AE_IFREG)
            archive_write_data(a, e.data.constData(), size_t(e.data.size()));
        archive_entry_free(entry);
    }
    archive_write_close(a);
    archive_write_free(a);
}

} // namespace

class TestArchives : public QObject {
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!QFileInfo::exists(rarData))
            QSKIP("the rar test data is not beside the checkout");
    }

    // Every rar of the test data unpacks whole, or fails with the reason.
    void testData_data()
    {
        QTest::addColumn<QString>("archive");
        QTest::addColumn<Result>("result");
        QTest::addColumn<QStringList>("tree");
        const QString html = QStringLiteral("LibarchiveAddingTest.html=20111");
        QTest::newRow("rar 2.9 with links and folders")
            << "test_read_format_rar.rar" << Result::Done
            << QStringList{"test.txt=20", "testdir/", "testdir/test.txt=20", "testemptydir/",
                           "testlink->test.txt"};
        QTest::newRow("rar 4 compressed")
            << "test_read_format_rar_compress_normal.rar" << Result::Done
            << QStringList{html,
                           "testdir/",
                           "testdir/" + html,
                           "testdir/test.txt=20",
                           "testemptydir/",
                           "testlink->LibarchiveAddingTest.html"};
        QTest::newRow("rar 4 three volumes")
            << "test_rar_multivolume_single_file.part1.rar" << Result::Done << QStringList{html};
        QTest::newRow("rar 5 stored") << "test_read_format_rar5_stored.rar" << Result::Done
                                      << QStringList{"helloworld.txt=29"};
        QTest::newRow("rar 5 compressed") << "test_read_format_rar5_compressed.rar" << Result::Done
                                          << QStringList{"test.bin=1200"};
        QTest::newRow("rar 5 several files")
            << "test_read_format_rar5_multiple_files.rar" << Result::Done
            << QStringList{"test1.bin=4096", "test2.bin=4096", "test3.bin=4096", "test4.bin=4096"};
        // Its encrypted entries are not marked so: they read as damaged data.
        QTest::newRow("rar 5 encrypted entries")
            << "test_read_format_rar5_encrypted.rar" << Result::Damaged << QStringList();
        QTest::newRow("rar 5 solid")
            << "test_read_format_rar5_solid.rar" << Result::Done
            << QStringList{"test.bin=1200",  "test1.bin=4096", "test2.bin=4096", "test3.bin=4096",
                           "test4.bin=4096", "test5.bin=4096", "test6.bin=4096"};
        QTest::newRow("rar 5 links inside")
            << "test_read_format_rar5_symlink.rar" << Result::Done
            << QStringList{"dir/", "dirlink->dir", "file.txt=5", "symlink.txt->file.txt"};
        QTest::newRow("rar 5 unicode names, hard link")
            << "test_read_format_rar5_unicode.rar" << Result::Done
            << QStringList{"Ⓗⓐⓡⓓ Ⓛⓘⓝⓚ.txt=13", "𝒮𝓎𝓂𝒷𝑜𝓁𝒾𝒸 𝐿𝒾𝓃𝓀.txt->👋🌎.txt", "👋🌎.txt=13"};
        QTest::newRow("rar unicode names")
            << "test_read_format_rar_unicode.rar" << Result::Done
            << QStringList{"abcdefghijklmnopqrsテスト.txt=16",
                           "表だよ/",
                           "表だよ/ファイル->漢字長いファイル名long-filename-in-漢字.txt",
                           "表だよ/新しいフォルダ/",
                           "表だよ/新しいフォルダ/新規テキスト ドキュメント.txt=0",
                           "表だよ/漢字長いファイル名long-filename-in-漢字.txt=5"};
        QTest::newRow("rar 5 eight volumes")
            << "test_read_format_rar5_multiarchive.part01.rar" << Result::Done << QStringList();
        for (const char *damaged : {"rar5_truncated_huff", "rar5_bad_tables",
                                    "rar5_distance_overflow", "rar5_leftshift1"})
            QTest::newRow(damaged) << QStringLiteral("test_read_format_%1.rar").arg(damaged)
                                   << Result::Damaged << QStringList();
        for (const char *locked :
             {"rar4_encrypted", "rar4_encrypted_filenames", "rar5_encrypted_filenames",
              "rar_encryption_data", "rar_encryption_header"})
            QTest::newRow(locked) << QStringLiteral("test_read_format_%1.rar").arg(locked)
                                  << Result::NeedsPassword << QStringList();
    }
    void testData()
    {
        QFETCH(QString, archive);
        QFETCH(Result, result);
        QFETCH(QStringList, tree);
        TreeBuilder out;
        const QString target = out.folder(QStringLiteral("x"));
        const QString path = rarData + QLatin1Char('/') + archive;
        double last = 0;
        QList<double> steps;
        const auto outcome = KestalDecompressionService::uncompressionRAR(
            QString(), path, target, [&](const QString &, double p) { steps.append(p); });
        QVERIFY2(outcome.result == result,
                 qPrintable(KestalDecompressionService::describe(outcome)));
        QCOMPARE(steps.last(), result == Result::Done ? 1.0 : -1.0);
        for (const double p : std::as_const(steps).first(steps.size() - 1)) {
            QVERIFY(p >= last && p < 1.0);
            last = p;
        }
        if (result == Result::Done && !tree.isEmpty())
            QCOMPARE(treeOf(target), tree);
        if (result == Result::Done && tree.isEmpty())
            QVERIFY(outcome.entries > 0);
        if (result == Result::Done) { // one reader gives the same as several
            const QString one = out.folder(QStringLiteral("x1"));
            QCOMPARE(ArchiveExtractor::extract(path, one, {}, 1).entries, outcome.entries);
            QCOMPARE(treeOf(one), treeOf(target));
            for (QDirIterator it(one, QDir::Files, QDirIterator::Subdirectories); it.hasNext();) {
                QFile a(it.next()), b(target + it.filePath().mid(one.size()));
                QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
                QCOMPARE(a.readAll(), b.readAll());
            }
        }
        QCOMPARE(KestalDecompressionService::isPasswordProtected(path),
                 result == Result::NeedsPassword);
        QCOMPARE(ArchiveExtractor::isSolidRar(path), archive.contains(QLatin1String("solid")));
        QCOMPARE(treeOf(out.root()).filter(QRegularExpression("^[^x]")), QStringList());
    }

    // Entries chosen to write elsewhere are refused, the rest is unpacked,
    // and nothing appears outside the target.
    void hostileEntries_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<int>("type");
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("absolute path")
            << QByteArray("/tmp/brenlow-escape") << int(AE_IFREG) << QByteArray("x");
        QTest::newRow("climbing path")
            << QByteArray("a/../../escape") << int(AE_IFREG) << QByteArray("x");
        QTest::newRow("link out by ..")
            << QByteArray("a/out") << int(AE_IFLNK) << QByteArray("../../outside");
        QTest::newRow("link to an absolute path")
            << QByteArray("abs") << int(AE_IFLNK) << QByteArray("/etc");
        QTest::newRow("FIFO") << QByteArray("pipe") << int(AE_IFIFO) << QByteArray();
        QTest::newRow("device") << QByteArray("dev") << int(AE_IFCHR) << QByteArray();
    }
    void hostileEntries()
    {
        QFETCH(QByteArray, name);
        QFETCH(int, type);
        QFETCH(QByteArray, data);
        TreeBuilder tree;
        const QString archive = tree.path(QStringLiteral("in/h.7z"));
        QDir().mkpath(tree.path(QStringLiteral("in")));
        write7z(archive, {{"a/first.txt", AE_IFREG, "first"},
                          {name, mode_t(type), data},
                          {"last.txt", AE_IFREG, "last"}});
        const QString target = tree.folder(QStringLiteral("in/out"));
        const QStringList before = treeOf(tree.root());
        const auto outcome = KestalDecompressionService::extract(archive, target, QString(), {});
        QCOMPARE(outcome.result, Result::Unsafe);
        QCOMPARE(treeOf(target), QStringList({"a/", "a/first.txt=5", "last.txt=4"}));
        QCOMPARE(treeOf(tree.root()).size(), before.size() + 3);
        QVERIFY(!QFileInfo::exists(QStringLiteral("/tmp/brenlow-escape")));
    }

    // Names and link targets, as bytes: only what stays inside is taken.
    // (7z stores names as UTF-16, so bytes that are not UTF-8 come only from
    // rar and cannot be made here.)
    void entryNames_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("linkTarget"); // empty: no link
        QTest::addColumn<bool>("taken");
        QTest::newRow("plain") << QByteArray("a/b.txt") << QByteArray() << true;
        QTest::newRow("dots in a name") << QByteArray("a/..b/c..") << QByteArray() << true;
        QTest::newRow("dot steps") << QByteArray("./a/./b") << QByteArray() << true;
        QTest::newRow("not UTF-8") << QByteArray("a/\xff\xfe.txt") << QByteArray() << false;
        QTest::newRow("climbs") << QByteArray("a/../../b") << QByteArray() << false;
        QTest::newRow("absolute") << QByteArray("/etc/x") << QByteArray() << false;
        QTest::newRow("only dots") << QByteArray("./.") << QByteArray() << false;
        QTest::newRow("link up, inside") << QByteArray("a/b/l") << QByteArray("../../x") << true;
        QTest::newRow("link up, out") << QByteArray("a/l") << QByteArray("../../x") << false;
        QTest::newRow("link out and back") << QByteArray("l") << QByteArray("../out/x") << false;
        QTest::newRow("link absolute") << QByteArray("l") << QByteArray("/x") << false;
    }
    void entryNames()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, linkTarget);
        QFETCH(bool, taken);
        QString why = ArchiveExtractor::pathRefusal(name);
        if (why.isEmpty() && !linkTarget.isEmpty())
            why = ArchiveExtractor::linkRefusal(name, linkTarget);
        QCOMPARE(why.isEmpty(), taken);
    }

    // A link inside, then a file through it: the file would land where the
    // link points, so it is refused.
    void fileThroughALink()
    {
        TreeBuilder tree;
        const QString archive = tree.path(QStringLiteral("l.7z"));
        write7z(archive,
                {{"dir", AE_IFDIR, {}}, {"ln", AE_IFLNK, "dir"}, {"ln/f.txt", AE_IFREG, "x"}});
        const QString target = tree.folder(QStringLiteral("out"));
        QCOMPARE(KestalDecompressionService::extract(archive, target, QString(), {}).result,
                 Result::Unsafe);
        QCOMPARE(treeOf(target), QStringList({"dir/", "ln->dir"}));
    }

    // A 7z whose list and data are encrypted: 7-Zip unpacks it with the
    // password on its standard input; a wrong one or none fails clearly.
    void encrypted7z_data()
    {
        QTest::addColumn<QString>("password");
        QTest::addColumn<Result>("result");
        QTest::newRow("right password") << "s3cret pass" << Result::Done;
        QTest::newRow("wrong password") << "nope" << Result::WrongPassword;
        QTest::newRow("no password") << "" << Result::NeedsPassword;
    }
    void encrypted7z()
    {
        QFETCH(QString, password);
        QFETCH(Result, result);
        TreeBuilder tree;
        tree.file(QStringLiteral("src/doc.txt"), 3000);
        tree.file(QStringLiteral("src/sub/more.bin"), 70000);
        QVERIFY(sevenZip({"a", "-p", "-mhe=on", "../enc.7z", "."}, tree.path("src"),
                         "s3cret pass\ns3cret pass\n"));
        const QString target = tree.folder(QStringLiteral("out"));
        const auto outcome =
            KestalDecompressionService::extract(tree.path("enc.7z"), target, password, {});
        QVERIFY2(outcome.result == result,
                 qPrintable(KestalDecompressionService::describe(outcome)));
        QCOMPARE(treeOf(target), result == Result::Done
                                     ? QStringList({"doc.txt=3000", "sub/", "sub/more.bin=70000"})
                                     : QStringList());
    }

    // A 7z cut short fails as damaged.
    void truncated7z()
    {
        TreeBuilder tree;
        tree.file(QStringLiteral("src/big.bin"), 400000);
        QVERIFY(sevenZip({"a", "-mx=1", "../t.7z", "."}, tree.path("src")));
        QFile::resize(tree.path("t.7z"), QFileInfo(tree.path("t.7z")).size() / 2);
        const auto outcome = KestalDecompressionService::extract(tree.path("t.7z"),
                                                                 tree.folder("out"), QString(), {});
        QVERIFY(outcome.result == Result::Damaged || outcome.result == Result::Failed);
    }

    // A disk that fills: the run ends with the reason, and what was written
    // stays inside the target. Mounts a small file system; only when asked to.
    void diskFills()
    {
        if (const QString why = LoopMount::unavailable(); !why.isEmpty())
            QSKIP(qPrintable(why));
        LoopMount fs(QStringLiteral("8M"));
        if (!fs.mounted())
            QSKIP("no loop device could be attached here");
        TreeBuilder tree;
        QList<Entry> entries;
        for (int i = 0; i < 6; ++i)
            entries.append(
                {"part" + QByteArray::number(i), AE_IFREG, QByteArray(3 << 20, char('a' + i))});
        write7z(tree.path("big.7z"), entries);
        const QString target = fs.mountPoint + QStringLiteral("/big");
        QVERIFY(QDir().mkdir(target));
        const auto outcome =
            KestalDecompressionService::extract(tree.path("big.7z"), target, QString(), {});
        QCOMPARE(outcome.result, Result::NoSpace);
        QCOMPARE(QDir(fs.mountPoint).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList({"big", "lost+found"}));
    }

    // The folder an archive unpacks into.
    void targetFolder_data()
    {
        QTest::addColumn<QString>("archive");
        QTest::addColumn<QStringList>("existing");
        QTest::addColumn<QString>("target");
        QTest::newRow("free name") << "x.rar" << QStringList() << "x";
        QTest::newRow("x and x 1 taken") << "x.rar" << QStringList{"x", "x 1"} << "x 2";
        QTest::newRow("volume name") << "x.part1.rar" << QStringList() << "x.part1";
        QTest::newRow("every .rar goes") << "a.rar.rar" << QStringList() << "a";
        QTest::newRow("7z") << "y.7z" << QStringList{"y"} << "y 1";
    }
    void targetFolder()
    {
        QFETCH(QString, archive);
        QFETCH(QStringList, existing);
        QFETCH(QString, target);
        TreeBuilder tree;
        for (const QString &name : std::as_const(existing))
            tree.folder(name);
        QCOMPARE(KestalDecompressionService::targetFolder(tree.path(archive)), tree.path(target));
    }
};

QTEST_GUILESS_MAIN(TestArchives)
#include "test_archives.moc"
