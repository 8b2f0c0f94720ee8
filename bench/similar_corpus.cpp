// Generates the similar image finder's benchmark corpus, seeded, so every
// run measures the same pictures: photograph-like pictures of 12 megapixels
// (a gradient, shapes, text, and on the JPEG ones grain), and for a fifth of
// them a near-copy made one of five ways.
//
//   brenlow-bench-similar-corpus DIR [COUNT]
//
// DIR/jpeg and DIR/png hold the originals (four JPEGs to one PNG), DIR/copies
// the near-copies, DIR/pairs.tsv one "original<TAB>copy<TAB>kind" line each.
// A finished corpus holds DIR/.complete. A run that was stopped goes on where
// it stopped: each picture is written under a temporary name and renamed, and
// pictures already there are kept.
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QRandomGenerator>
#include <QTextStream>
#include <QtConcurrent/QtConcurrentMap>
#include <algorithm>
#include <cstdio>
#include <numeric>

namespace {

constexpr int width = 4000, height = 3000; // 12 megapixels
const char *const copyKinds[] = {"half", "q60", "convert", "bright", "caption"};

QColor randomColor(QRandomGenerator &rng, int alpha = 255)
{
    return QColor(int(rng.bounded(256)), int(rng.bounded(256)), int(rng.bounded(256)), alpha);
}

QImage draw(quint32 seed, bool grain)
{
    QRandomGenerator rng(seed);
    QImage image(width, height, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(QPointF(rng.bounded(width), 0), QPointF(rng.bounded(width), height));
    sky.setColorAt(0, randomColor(rng));
    sky.setColorAt(1, randomColor(rng));
    p.fillRect(image.rect(), sky);
    const int shapes = 6 + int(rng.bounded(14));
    for (int s = 0; s < shapes; ++s) {
        p.setPen(QPen(randomColor(rng), 4 + rng.bounded(40)));
        p.setBrush(randomColor(rng, 120 + int(rng.bounded(136))));
        const QRectF box(rng.bounded(width) - 500, rng.bounded(height) - 500,
                         300 + rng.bounded(2000), 300 + rng.bounded(1500));
        switch (rng.bounded(3)) {
        case 0:
            p.drawEllipse(box);
            break;
        case 1:
            p.drawRect(box);
            break;
        default: {
            QPainterPath path(box.topLeft());
            for (int k = 0; k < 4; ++k)
                path.lineTo(rng.bounded(width), rng.bounded(height));
            p.drawPath(path);
        }
        }
    }
    QFont font;
    font.setPixelSize(80 + int(rng.bounded(200)));
    p.setFont(font);
    p.setPen(randomColor(rng));
    p.drawText(QPointF(rng.bounded(width / 2), 300 + rng.bounded(height - 300)),
               QStringLiteral("Picture %1").arg(seed));
    p.end();
    if (grain) {
        // Sensor-like grain: a little noise on every channel.
        quint32 x = seed * 2654435761u + 1;
        for (int y = 0; y < height; ++y) {
            QRgb *row = reinterpret_cast<QRgb *>(image.scanLine(y));
            for (int i = 0; i < width; ++i) {
                x ^= x << 13, x ^= x >> 17, x ^= x << 5;
                const int n = int(x & 15) - 7;
                const auto c = [n](int v) { return std::clamp(v + n, 0, 255); };
                row[i] = qRgb(c(qRed(row[i])), c(qGreen(row[i])), c(qBlue(row[i])));
            }
        }
    }
    return image;
}

QImage nearCopy(const QImage &original, const QString &kind)
{
    if (kind == QLatin1String("half"))
        return original.scaled(width / 2, height / 2, Qt::IgnoreAspectRatio,
                               Qt::SmoothTransformation);
    QImage copy = original;
    if (kind == QLatin1String("bright")) {
        for (int y = 0; y < height; ++y) {
            QRgb *row = reinterpret_cast<QRgb *>(copy.scanLine(y));
            for (int i = 0; i < width; ++i) {
                const auto c = [](int v) { return std::min(255, v * 105 / 100); };
                row[i] = qRgb(c(qRed(row[i])), c(qGreen(row[i])), c(qBlue(row[i])));
            }
        }
    } else if (kind == QLatin1String("caption")) {
        QPainter p(&copy);
        QFont font;
        font.setPixelSize(90);
        p.setFont(font);
        p.setPen(Qt::white);
        p.drawText(QPointF(120, height - 120), QStringLiteral("Summer 2026"));
    }
    return copy;
}

bool save(const QImage &image, const QString &path, int quality)
{
    // PNG at a light compression: the corpus is made once, and read many times.
    const bool png = path.endsWith(QLatin1String(".png"));
    const QString part = path + QStringLiteral(".part");
    return image.save(part, png ? "PNG" : "JPEG", png ? 80 : quality) && QFile::rename(part, path);
}

} // namespace

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    if (argc < 2) {
        std::fputs("usage: brenlow-bench-similar-corpus DIR [COUNT]\n", stderr);
        return 1;
    }
    const QString dir = QFile::decodeName(argv[1]);
    const int count = argc > 2 ? std::atoi(argv[2]) : 2000;
    for (const char *sub : {"jpeg", "png", "copies"})
        QDir().mkpath(dir + '/' + QLatin1String(sub));
    QList<int> indices(count);
    std::iota(indices.begin(), indices.end(), 0);
    const QStringList pairs = QtConcurrent::blockingMapped(indices, [&](int i) -> QString {
        const bool jpeg = i % 5 != 4;
        const QString ext = jpeg ? QStringLiteral("jpg") : QStringLiteral("png");
        const QString original = QStringLiteral("%1/%2/p%3.%4")
                                     .arg(dir, jpeg ? "jpeg" : "png")
                                     .arg(i, 4, 10, QChar('0'))
                                     .arg(ext);
        // A fifth of the pictures get a near-copy, as many JPEGs as PNGs,
        // the five kinds in turn.
        const bool copied = i % 10 == 2 || i % 10 == 9;
        QImage image;
        if (!QFile::exists(original)) {
            image = draw(quint32(7919 * i + 13), jpeg);
            if (!save(image, original, 90))
                qFatal("cannot write %s", qPrintable(original));
        }
        if (!copied)
            return QString();
        const QString kind = QLatin1String(copyKinds[(i / 10 * 2 + (i % 10 == 9)) % 5]);
        QString copyExt = ext;
        if (kind == QLatin1String("convert"))
            copyExt = jpeg ? QStringLiteral("png") : QStringLiteral("jpg");
        if (kind == QLatin1String("q60"))
            copyExt = QStringLiteral("jpg");
        const QString copy = QStringLiteral("%1/copies/p%2-%3.%4")
                                 .arg(dir)
                                 .arg(i, 4, 10, QChar('0'))
                                 .arg(kind, copyExt);
        if (!QFile::exists(copy)) {
            if (image.isNull())
                image = draw(quint32(7919 * i + 13), jpeg);
            if (!save(nearCopy(image, kind), copy, kind == QLatin1String("q60") ? 60 : 90))
                qFatal("cannot write %s", qPrintable(copy));
        }
        std::fprintf(stderr, "\r%d", i);
        return original + '\t' + copy + '\t' + kind;
    });
    QFile list(dir + QStringLiteral("/pairs.tsv"));
    if (!list.open(QIODevice::WriteOnly))
        return 1;
    QTextStream out(&list);
    for (const QString &line : pairs) {
        if (!line.isEmpty())
            out << line << '\n';
    }
    out.flush();
    QFile(dir + QStringLiteral("/.complete")).open(QIODevice::WriteOnly);
    return 0;
}
