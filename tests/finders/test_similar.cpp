#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "cleaner/finders/BKTreeService.h"
#include "cleaner/finders/FinderScans.h"
#include "cleaner/finders/ImageHashes.h"
#include "cleaner/finders/PictureReduction.h"
#include "cleaner/finders/SimilarService.h"
#include "cleaner/scan/KestalService.h"
#include "support/ScanRecorder.h"
#include "support/TestEnvironment.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QRandomGenerator>
#include <QtTest>
#include <sys/stat.h>

namespace {

QByteArray encoded(const QImage &image, const char *format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 90);
    return bytes;
}

// A picture whose gray runs across the width: falling, rising or flat, at
// this alpha (kept straight in the file).
QImage ramp(int width, int height, int direction, int alpha = 255)
{
    QImage image(width, height, QImage::Format_ARGB32);
    for (int x = 0; x < width; ++x) {
        const int t = x * 255 / (width - 1);
        const int v = direction < 0 ? 255 - t : direction > 0 ? t : 128;
        for (int y = 0; y < height; ++y)
            image.setPixel(x, y, qRgba(v, v, v, alpha));
    }
    return image;
}

// A 9 × 8 picture whose hash has exactly `ones` ones (one a row, at the first pair).
QByteArray hashedWithOnes(int ones)
{
    QImage image = ramp(9, 8, 1);
    for (int y = 0; y < ones; ++y)
        image.setPixel(0, y, qRgb(255, 255, 255));
    return encoded(image, "PNG");
}

// An animated GIF of two 9 × 8 frames: flat gray, then falling gray.
QByteArray twoFrameGif()
{
    QByteArray gif("GIF89a");
    const auto word = [&](int v) { gif.append(char(v & 0xff)).append(char(v >> 8)); };
    word(9);
    word(8);
    gif.append("\xf3\x00\x00", 3); // a global table of 16 colours
    for (int i = 0; i < 16; ++i)
        gif.append(3, char(i * 17));
    for (const int frame : {0, 1}) {
        gif.append("\x21\xf9\x04\x00\x0a\x00\x00\x00", 8);
        gif.append('\x2c');
        word(0), word(0), word(9), word(8);
        gif.append('\x00').append('\x04'); // LZW codes of 5 bits: clear 16, end 17
        QByteArray bits;
        quint32 acc = 0;
        int used = 0;
        const auto code = [&](int c) {
            acc |= quint32(c) << used;
            for (used += 5; used >= 8; used -= 8, acc >>= 8)
                bits.append(char(acc & 0xff));
        };
        // A clear before every eight pixels keeps the code width at 5 bits.
        for (int i = 0; i < 72; ++i) {
            if (i % 8 == 0)
                code(16);
            code(frame == 0 ? 8 : 15 - i % 9);
        }
        code(17);
        if (used > 0)
            bits.append(char(acc & 0xff));
        gif.append(char(bits.size())).append(bits).append('\x00');
    }
    return gif.append('\x3b');
}

// A photograph-like picture, seeded: a gradient, a few shapes, a line.
QImage drawn(quint32 seed, int width, int height)
{
    QRandomGenerator rng(seed);
    const auto colour = [&] {
        return QColor::fromRgb(rng.bounded(256), rng.bounded(256), rng.bounded(256));
    };
    QImage image(width, height, QImage::Format_ARGB32);
    QPainter p(&image);
    QLinearGradient sky(rng.bounded(width), 0, rng.bounded(width), height);
    sky.setColorAt(0, colour());
    sky.setColorAt(1, colour());
    p.fillRect(image.rect(), sky);
    for (int s = 0; s < 6; ++s) {
        p.setBrush(colour());
        p.drawEllipse(QPointF(rng.bounded(width), rng.bounded(height)), width / 5, height / 4);
    }
    p.setPen(QPen(colour(), 5));
    p.drawLine(0, int(rng.bounded(height)), width, int(rng.bounded(height)));
    return image;
}

QString bitsOf(const QList<qint64> &vector)
{
    QString s;
    for (const qint64 v : vector)
        s += QString::number(v);
    return s;
}

QList<qint64> prefixOnes(int ones)
{
    QList<qint64> v(64, 0);
    std::fill(v.begin(), v.begin() + ones, 1);
    return v;
}

// Runs the module's scan of root through the scan driver, to its end.
QList<Category> scanSimilar(const QString &root)
{
    SimilarService::path() = root;
    return ScanRecorder().scanToEnd(SimilarService::moduleIndex, 120000);
}

} // namespace

class Similar : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { FinderScans::registerAll(); }

    void hashEdgeCases_data()
    {
        QTest::addColumn<QByteArray>("contents");
        QTest::addColumn<int>("width");
        QTest::addColumn<QString>("expected");
        const QString zeros(64, '0'), ones(64, '1');
        QTest::newRow("uniform") << encoded(ramp(90, 80, 0), "PNG") << 9 << zeros;
        QTest::newRow("falling") << encoded(ramp(90, 80, -1), "PNG") << 9 << ones;
        QTest::newRow("rising") << encoded(ramp(90, 80, 1), "PNG") << 9 << zeros;
        QTest::newRow("falling JPEG decoded reduced")
            << encoded(ramp(1600, 1200, -1), "JPEG") << 9 << ones;
        QTest::newRow("transparent falling") << encoded(ramp(9, 8, -1, 0), "PNG") << 9 << zeros;
        QTest::newRow("W = 1") << encoded(ramp(90, 80, -1), "PNG") << 1 << QString();
        QTest::newRow("first frame of an animation") << twoFrameGif() << 9 << zeros;
        QTest::newRow("no image") << QByteArray("not a picture") << 9 << QString("random");
    }
    void hashEdgeCases()
    {
        QFETCH(QByteArray, contents);
        QFETCH(int, width);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        QFile file(dir.filePath("picture.png"));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
        file.close();
        const auto hash = [&] { return DHAAlgorithm::grayImage(file.fileName(), width, 8); };
        const DHAAlgorithm::Result result = hash();
        QCOMPARE(result.keys(), QStringList{"DHA"});
        const QList<qint64> vector = result.value("DHA");
        if (expected != "random") {
            QCOMPARE(bitsOf(vector), expected);
            return;
        }
        QCOMPARE(vector.size(), 64);
        QVERIFY(
            std::all_of(vector.cbegin(), vector.cend(), [](qint64 v) { return v >= 0 && v <= 4; }));
        QVERIFY(hash().value("DHA") != vector);
    }

    // The direct JPEG and PNG decoders reduce exactly as Qt's readers do.
    void directDecodersMatchQt_data()
    {
        QTest::addColumn<QByteArray>("contents");
        const QImage photo = drawn(7, 1000, 752);
        QImage translucent = photo.convertToFormat(QImage::Format_ARGB32);
        for (int y = 0; y < translucent.height(); ++y) {
            QRgb *row = reinterpret_cast<QRgb *>(translucent.scanLine(y));
            for (int x = 0; x < translucent.width(); ++x)
                row[x] = (row[x] & 0xffffff) | uint((x + y) % 256) << 24;
        }
        QTest::newRow("JPEG at 1/8") << encoded(photo, "JPEG");
        QTest::newRow("small JPEG whole") << encoded(photo.scaled(100, 80), "JPEG");
        QTest::newRow("grey JPEG")
            << encoded(photo.convertToFormat(QImage::Format_Grayscale8), "JPEG");
        QTest::newRow("RGB PNG") << encoded(photo.convertToFormat(QImage::Format_RGB32), "PNG");
        QTest::newRow("translucent PNG") << encoded(translucent, "PNG");
        QTest::newRow("palette PNG")
            << encoded(photo.convertToFormat(QImage::Format_Indexed8), "PNG");
        QTest::newRow("grey PNG") << encoded(photo.convertToFormat(QImage::Format_Grayscale8),
                                             "PNG");
        QTest::newRow("PNG smaller than the hash") << encoded(photo.scaled(5, 3), "PNG");
    }
    void directDecodersMatchQt()
    {
        QFETCH(QByteArray, contents);
        const QImage general = PictureReduction::reduceGeneral(contents, 9, 8);
        const QImage direct = PictureReduction::reduceDirect(contents, 9, 8);
        QVERIFY(!general.isNull() && !direct.isNull());
        QCOMPARE(direct, general);
    }

    // Each target pixel is the exact mean of the area it covers, rounded.
    void areaAverage_data()
    {
        QTest::addColumn<QList<int>>("source"); // one row of grey values
        QTest::addColumn<int>("scale");         // decoded at 1/scale of the stored width
        QTest::addColumn<int>("stored");
        QTest::addColumn<int>("width");
        QTest::addColumn<QList<int>>("expected");
        QTest::newRow("halves round up") << QList<int>{0, 255} << 1 << 0 << 1 << QList<int>{128};
        QTest::newRow("fractional edges")
            << QList<int>{0, 90, 180} << 1 << 0 << 2 << QList<int>{30, 150};
        QTest::newRow("enlarged") << QList<int>{10, 20} << 1 << 0 << 4
                                  << QList<int>{10, 10, 20, 20};
        QTest::newRow("uneven shares")
            << QList<int>{255, 0, 0, 0, 0, 0, 0} << 1 << 0 << 3 << QList<int>{109, 0, 0};
        QTest::newRow("last decoded pixel covers less")
            << QList<int>{100, 100, 200} << 2 << 5 << 1 << QList<int>{120};
    }
    void areaAverage()
    {
        QFETCH(QList<int>, source);
        QFETCH(int, scale);
        QFETCH(int, stored);
        QFETCH(int, width);
        QFETCH(QList<int>, expected);
        QByteArray row;
        for (const int v : source)
            row.append(char(v)).append(char(v)).append(char(v)).append(char(255));
        AreaReducer reducer(int(source.size()), 1, width, 1, scale, stored, scale);
        reducer.addRow(reinterpret_cast<const uchar *>(row.constData()));
        const QImage result = reducer.result();
        QList<int> reds;
        for (int x = 0; x < width; ++x)
            reds << qRed(result.pixel(x, 0));
        QCOMPARE(reds, expected);
    }

    // Orientation 2 mirrors the picture: the left and right halves swap.
    void colourGridFollowsOrientation()
    {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter(&image).fillRect(20, 0, 20, 20, Qt::blue);
        QTemporaryDir dir;
        const QString path = dir.filePath("grid.png");
        QVERIFY(image.save(path));
        const QList<int> red{255, 0, 0}, blue{0, 0, 255};
        QCOMPARE(AHAAlgorithm::block_Osx_Getblocks(path, 2, 1),
                 (AHAAlgorithm::Grid{{0, red}, {1, blue}, {2, red}, {3, blue}}));
        QCOMPARE(AHAAlgorithm::block_Osx_Getblocks(path, 2, 2),
                 (AHAAlgorithm::Grid{{0, blue}, {1, red}, {2, blue}, {3, red}}));
        QCOMPARE(AHAAlgorithm::block_Osx_Getblocks(dir.filePath("none.png"), 3, 1).size(), 16);
    }

    // Entries are "name=k", a vector of k leading ones (distance |k1 - k2|);
    // each query lists what it took, sorted.
    void treeGroups_data()
    {
        QTest::addColumn<QStringList>("adds");
        QTest::addColumn<QStringList>("queries");
        QTest::addColumn<QStringList>("taken");
        QTest::newRow("same vector")
            << QStringList{"a=0", "b=0"} << QStringList{"a"} << QStringList{"a,b"};
        QTest::newRow("equal and substring names dropped")
            << QStringList{"/p/a.jpg=0", "/p/a.jpg=0", "a.jpg=0", "/p/a.jpg.png=0"}
            << QStringList{"/p/a.jpg"} << QStringList{"/p/a.jpg,/p/a.jpg.png"};
        QTest::newRow("lone picture") << QStringList{"a=5"} << QStringList{"a"} << QStringList{"a"};
        QTest::newRow("at the threshold")
            << QStringList{"a=0", "b=3"} << QStringList{"a", "b"} << QStringList{"a,b", ""};
        QTest::newRow("past the threshold")
            << QStringList{"a=0", "b=4"} << QStringList{"a", "b"} << QStringList{"a", "b"};
        QTest::newRow("B first takes A, B, C")
            << QStringList{"A=0", "B=3", "C=6"} << QStringList{"B", "A", "C"}
            << QStringList{"A,B,C", "", ""};
        QTest::newRow("A first leaves C")
            << QStringList{"A=0", "B=3", "C=6"} << QStringList{"A", "C"} << QStringList{"A,B", "C"};
    }
    void treeGroups()
    {
        QFETCH(QStringList, adds);
        QFETCH(QStringList, queries);
        QFETCH(QStringList, taken);
        BKTreeService tree;
        QHash<QString, QList<qint64>> vectors;
        for (const QString &add : adds) {
            const QString name = add.section('=', 0, 0);
            vectors.insert(name, prefixOnes(add.section('=', 1).toInt()));
            tree.insert(vectors.value(name), name.toUtf8());
        }
        QStringList got;
        for (const QString &q : queries) {
            QSet<QByteArray> results;
            tree.root->query(vectors.value(q), q.toUtf8(), 3, results);
            QStringList names;
            for (const QByteArray &r : results)
                names << QString::fromUtf8(r);
            names.sort();
            got << names.join(',');
        }
        QCOMPARE(got, taken);
        QCOMPARE(tree.count, 0);
    }

    void treeFaultsStop()
    {
        QVERIFY(TestEnvironment::endsInFatalStop([] {
            BKTreeService tree;
            tree.insert(prefixOnes(0), "a");
            QSet<QByteArray> results;
            tree.root->query(prefixOnes(0), "a", 0, results);
        }));
        QVERIFY(TestEnvironment::endsInFatalStop([] {
            BKTreeService tree;
            tree.insert(prefixOnes(0), "a");
            tree.insert(QList<qint64>(8, 0), "b");
        }));
    }

    void checkPicture_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("passes");
        QTest::newRow("jpg") << "a.jpg" << true;
        QTest::newRow("inside the name") << "a.jpg.txt" << true;
        QTest::newRow("png.bak") << "photo.png.bak" << true;
        QTest::newRow("mixed case") << "a.Jpg" << false;
        QTest::newRow("gif") << "a.gif" << false;
        QTest::newRow("folder") << "album.png/" << false;
        QTest::newRow("pipe") << "pipe.png|" << false;
    }
    void checkPicture()
    {
        QFETCH(QString, name);
        QFETCH(bool, passes);
        QTemporaryDir dir;
        // A last '/' makes a folder, a last '|' a pipe, of the name before it.
        const QChar kind = name.back();
        const QString path = dir.filePath(kind == '/' || kind == '|' ? name.chopped(1) : name);
        const QByteArray bytes = QFile::encodeName(path);
        if (kind == '/')
            QVERIFY(QDir().mkpath(path));
        else if (kind == '|')
            QCOMPARE(::mkfifo(bytes.constData(), 0600), 0);
        else
            QVERIFY(QFile(path).open(QIODevice::WriteOnly));
        QCOMPARE(SimilarService::checkPicture(bytes), passes);
    }

    // Files are "path=picture" under the root (a folder of the home); the
    // groups are listed key first, then by path.
    void scanGroups_data()
    {
        QTest::addColumn<QString>("root");
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QList<QStringList>>("groups");
        QTest::newRow("identical pair")
            << "Elsewhere" << QStringList{"a/one.png=0", "b/copy.png=0", "c/other.png=falling"}
            << QList<QStringList>{{"a/one.png", "b/copy.png"}};
        QTest::newRow("distance 3") << "Elsewhere" << QStringList{"x.png=0", "y.png=3"}
                                    << QList<QStringList>{{"x.png", "y.png"}};
        QTest::newRow("distance 4")
            << "Elsewhere" << QStringList{"x.png=0", "y.png=4"} << QList<QStringList>{};
        QTest::newRow("names by case-sensitive fragment")
            << "Elsewhere" << QStringList{"a.Jpg=0", "b.gif=0", "c.jpg.txt=0", "d.png=0"}
            << QList<QStringList>{{"c.jpg.txt", "d.png"}};
        QTest::newRow("Back_List")
            << "Elsewhere"
            << QStringList{"Applications Backup/x.png=0", "keep/y.png=0", "keep/z.png=0"}
            << QList<QStringList>{{"keep/y.png", "keep/z.png"}};
        QTest::newRow("substring of the key dropped")
            << "Elsewhere" << QStringList{"p/a.jpg=0", "p/a.jpg.jpg=0", "p/b.jpg=0"}
            << QList<QStringList>{{"p/a.jpg", "p/b.jpg"}};
        QTest::newRow("thumbnail in Pictures is no key")
            << "Pictures/Trip" << QStringList{"thumbnails/x.png=0", "z.png=0"}
            << QList<QStringList>{{"z.png", "thumbnails/x.png"}};
        QTest::newRow("thumbnail elsewhere is a key")
            << "Elsewhere" << QStringList{"thumbnails/x.png=0", "z.png=0"}
            << QList<QStringList>{{"thumbnails/x.png", "z.png"}};
        QTest::newRow("empty root") << "Elsewhere" << QStringList{} << QList<QStringList>{};
    }
    void scanGroups()
    {
        QFETCH(QString, root);
        QFETCH(QStringList, files);
        QFETCH(QList<QStringList>, groups);
        TestEnvironment env;
        const QString top = Platform::homeDirectory() + '/' + root;
        QVERIFY(QDir().mkpath(top));
        for (const QString &f : files) {
            const QString path = top + '/' + f.section('=', 0, 0);
            const QString kind = f.section('=', 1);
            QDir().mkpath(QFileInfo(path).path());
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(kind == "falling" ? encoded(ramp(9, 8, -1), "PNG")
                                         : hashedWithOnes(kind.toInt()));
        }
        const QList<Category> categories = scanSimilar(top);
        QList<QStringList> got;
        for (const Category &c : categories) {
            QStringList paths;
            for (const FolderInfoPtr &f : c.files)
                paths << QFile::decodeName(FolderInfo::pathBytes(f->url)).mid(top.size() + 1);
            if (!c.files.first()->url.isEmpty())
                got << paths;
        }
        QCOMPARE(got, groups);
        if (groups.isEmpty()) {
            QCOMPARE(categories.size(), 1);
            QCOMPARE(categories.first().description, SimilarService::emptyCateDesc);
        } else {
            QCOMPARE(categories.first().description,
                     QString("%1 Item Files").arg(groups.first().size()));
            QCOMPARE(categories.first().size,
                     QFileInfo(top + '/' + groups.first().first()).size() * groups.first().size());
        }
    }

    // A stop while pictures are hashed keeps the groups found before.
    void stopKeepsEarlierCategories()
    {
        TestEnvironment env;
        const QString top = Platform::homeDirectory() + "/Pictures";
        QVERIFY(QDir().mkpath(top));
        for (int i = 0; i < 20; ++i) {
            QFile file(top + QString("/p%1.png").arg(i));
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(hashedWithOnes(0));
        }
        Category earlier;
        earlier.title = "earlier group";
        SimilarService::storeCategories({earlier});
        bool finished = false;
        KestalService::scan(
            SimilarService::moduleIndex,
            [](const QString &, qint64) { KestalService::stopScan(SimilarService::moduleIndex); },
            {}, [&](int) { finished = true; });
        QTRY_VERIFY_WITH_TIMEOUT(!KestalService::scanTimer().contains(SimilarService::moduleIndex),
                                 10000);
        const QList<Category> kept = AppModuleService::categoriesOf(SimilarService::moduleIndex);
        QCOMPARE(kept.size(), 1);
        QCOMPARE(kept.first().title, QString("earlier group"));
        QVERIFY(!finished);
        // The stopped hashing ends before the tree it reads goes.
        QThreadPool::globalInstance()->waitForDone();
    }
};

QTEST_GUILESS_MAIN(Similar)
#include "test_similar.moc"
