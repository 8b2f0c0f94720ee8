// Where a 7z's blocks begin, read from its header, against 7-Zip's own
// listing of the same archives; and a 7z of several blocks unpacked by two
// readers at once gives the tree one reader gives.

#include "SevenZipTool.h"
#include "cleaner/erasure/ArchiveExtractor.h"
#include "cleaner/erasure/SevenZipBlocks.h"
#include "support/TreeBuilder.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QRandomGenerator>
#include <QTest>
#include <QtEndian>
#include <lzma.h>

namespace {

// The entries where 7-Zip's listing starts a new block, and how many entries
// it lists, in the archive's order.
std::pair<QList<int>, int> listedBlocks(const QString &archive)
{
    const QByteArray listing =
        sevenZip({QStringLiteral("l"), QStringLiteral("-slt"), archive}, QStringLiteral("/"))
            .value_or(QByteArray());
    const QList<QByteArray> records = listing.mid(listing.indexOf("----------")).split('\n');
    QList<int> starts;
    int entries = -1;
    QByteArray lastBlock;
    for (const QByteArray &line : records) {
        if (line.startsWith("Path = "))
            ++entries;
        if (line.startsWith("Block = ") && line.size() > 8 && line != lastBlock) {
            starts.append(entries);
            lastBlock = line;
        }
    }
    return {starts, entries + 1};
}

// Every file's path, size and digest, every folder's path.
QStringList contentsOf(const QString &root)
{
    QStringList items;
    QDirIterator it(root, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        QFile f(path);
        const QString rel = path.mid(root.size());
        if (QFileInfo(path).isDir() || !f.open(QIODevice::ReadOnly)) {
            items.append(rel + QLatin1Char('/'));
            continue;
        }
        items.append(rel + QLatin1Char('=') +
                     QCryptographicHash::hash(f.readAll(), QCryptographicHash::Sha1).toHex());
    }
    items.sort();
    return items;
}

// Folders, empty files and files of compressible and random bytes.
void fillSource(TreeBuilder &tree)
{
    QRandomGenerator random(7);
    for (int i = 0; i < 9; ++i) {
        QByteArray data(int(random.bounded(20000, 300000)), 'x');
        for (qsizetype at = 0; at < data.size(); at += 7)
            data[at] = char(random.bounded(i % 2 ? 256 : 4));
        QFile f(tree.path(QStringLiteral("src/d%1/f%2.bin").arg(i % 3).arg(i)));
        QDir().mkpath(QFileInfo(f).path());
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(data);
    }
    tree.file(QStringLiteral("src/empty.txt"), 0);
    tree.folder(QStringLiteral("src/d1/nothing"));
}

} // namespace

class TestSevenZipBlocks : public QObject {
    Q_OBJECT

private slots:
    void blocksAsSevenZipListsThem_data()
    {
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<bool>("read");
        QTest::newRow("two files a block, packed header") << QStringList{"-ms=2f"} << true;
        QTest::newRow("two files a block, plain header")
            << QStringList{"-ms=2f", "-mhc=off"} << true;
        QTest::newRow("one block") << QStringList{"-ms=on"} << true;
        QTest::newRow("a block a file, stored") << QStringList{"-mx=0"} << true;
        QTest::newRow("LZMA2 in four threads")
            << QStringList{"-m0=lzma2", "-mmt=4", "-ms=100k"} << true;
        QTest::newRow("encrypted header") << QStringList{"-ms=2f", "-pword", "-mhe=on"} << false;
    }
    void blocksAsSevenZipListsThem()
    {
        QFETCH(QStringList, options);
        QFETCH(bool, read);
        TreeBuilder tree;
        fillSource(tree);
        QVERIFY(sevenZip(QStringList{"a", "-bso1", "../a.7z", "."} + options, tree.path("src")));
        const SevenZipBlocks blocks = SevenZipBlocks::of(tree.path("a.7z"));
        if (!read) {
            QVERIFY(blocks.firstEntry.isEmpty());
            QCOMPARE(blocks.entries, 0);
            return;
        }
        const auto [starts, entries] = listedBlocks(tree.path("a.7z"));
        QVERIFY(!starts.isEmpty());
        QCOMPARE(blocks.firstEntry, starts);
        QCOMPARE(blocks.entries, entries);
        QCOMPARE(blocks.size.size(), starts.size());
    }

    // A header that is cut, changed or not a 7z's gives no blocks, never a
    // wrong answer.
    void damagedHeader_data()
    {
        QTest::addColumn<qint64>("at"); // from the end, or the size to cut to
        QTest::addColumn<bool>("cut");
        QTest::newRow("a byte of the header changed") << qint64(-5) << false;
        QTest::newRow("the signature changed") << qint64(0) << false;
        QTest::newRow("cut before the header") << qint64(100) << true;
    }
    void damagedHeader()
    {
        QFETCH(qint64, at);
        QFETCH(bool, cut);
        TreeBuilder tree;
        fillSource(tree);
        QVERIFY(sevenZip({"a", "-bso1", "-ms=2f", "../a.7z", "."}, tree.path("src")));
        QFile f(tree.path("a.7z"));
        QVERIFY(f.open(QIODevice::ReadWrite));
        if (cut) {
            QVERIFY(f.resize(at));
        } else {
            QVERIFY(f.seek(at < 0 ? f.size() + at : at));
            const char old = f.peek(1).at(0);
            f.putChar(char(~old));
        }
        f.close();
        const SevenZipBlocks blocks = SevenZipBlocks::of(tree.path("a.7z"));
        QVERIFY(blocks.firstEntry.isEmpty());
        QCOMPARE(blocks.entries, 0);
    }

    // Every byte of a plain header set to a hostile value, its checksum made
    // right again: the reading ends, and what it gives is in order and
    // inside the archive's entries (under the sanitizers, without a fault).
    void hostileHeaderBytes()
    {
        TreeBuilder tree;
        fillSource(tree);
        QVERIFY(sevenZip({"a", "-bso1", "-ms=2f", "-mhc=off", "../a.7z", "."}, tree.path("src")));
        QFile f(tree.path("a.7z"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        const QByteArray original = f.readAll();
        f.close();
        const auto le = [&original](int at) {
            return qsizetype(qFromLittleEndian<quint64>(original.constData() + at));
        };
        const qsizetype start = 32 + le(12), size = le(20);
        QVERIFY(start + size == original.size());
        const QString changed = tree.path("changed.7z");
        int read = 0;
        for (qsizetype at = start; at < start + size; ++at) {
            for (char value : {char(0x00), char(0x7F), char(0xFF)}) {
                QByteArray bytes = original;
                bytes[at] = value;
                const QByteArray header = bytes.mid(start, size);
                const quint32 crc = lzma_crc32(
                    reinterpret_cast<const uint8_t *>(header.constData()), size_t(size), 0);
                qToLittleEndian(crc, bytes.data() + 28);
                QFile out(changed);
                QVERIFY(out.open(QIODevice::WriteOnly | QIODevice::Truncate));
                out.write(bytes);
                out.close();
                const SevenZipBlocks blocks = SevenZipBlocks::of(changed);
                read += blocks.firstEntry.isEmpty() ? 0 : 1;
                QCOMPARE(blocks.size.size(), blocks.firstEntry.size());
                for (qsizetype b = 0; b < blocks.firstEntry.size(); ++b) {
                    QVERIFY(blocks.firstEntry[b] < blocks.entries);
                    QVERIFY(b == 0 || blocks.firstEntry[b] > blocks.firstEntry[b - 1]);
                }
            }
        }
        QVERIFY(read > 0); // names and times can change without changing the blocks
    }

    // Two readers, each entering the archive at a block, and one reader
    // write the same files with the same bytes.
    void twoReadersUnpackWhatOneDoes()
    {
        TreeBuilder tree;
        fillSource(tree);
        QVERIFY(sevenZip({"a", "-bso1", "-ms=2f", "../a.7z", "."}, tree.path("src")));
        QVERIFY(SevenZipBlocks::of(tree.path("a.7z")).firstEntry.size() > 2);
        const QStringList source = contentsOf(tree.path("src"));
        for (int workers : {1, 2}) {
            const QString out = tree.folder(QStringLiteral("out%1").arg(workers));
            double last = 0; // a fraction of what was read, never past the whole
            const auto outcome = ArchiveExtractor::extract(
                tree.path("a.7z"), out,
                [&last](double f) {
                    last = f;
                    return true;
                },
                workers);
            QVERIFY2(outcome.result == ArchiveExtractor::Result::Done, qPrintable(outcome.detail));
            QCOMPARE(contentsOf(out), source);
            QVERIFY(last >= 0 && last <= 1.0);
        }
    }
};

QTEST_GUILESS_MAIN(TestSevenZipBlocks)
#include "test_seven_zip_blocks.moc"
