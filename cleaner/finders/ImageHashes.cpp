#include "cleaner/finders/ImageHashes.h"

#include "cleaner/core/Fatal.h"
#include "cleaner/finders/PictureReduction.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QRandomGenerator>
#include <cstdio>

namespace {

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    return file.readAll();
}

} // namespace

QImage DHAAlgorithm::reducedImage(const QByteArray &contents, qint32 width, qint32 height)
{
    return PictureReduction::reduce(contents, width, height);
}

DHAAlgorithm::Result DHAAlgorithm::grayImage(const QString &path, qint32 imageWidth,
                                             qint32 imageHeight)
{
    return grayImage(contentsOf(path), imageWidth, imageHeight);
}

DHAAlgorithm::Result DHAAlgorithm::grayImage(const QByteArray &contents, qint32 imageWidth,
                                             qint32 imageHeight)
{
    Result result;
    QList<qint64> &vector = result[QStringLiteral("DHA")];
    if (imageWidth <= 0 || imageHeight <= 0)
        return result;
    const qint32 count = imageWidth * imageHeight;
    const QImage image = reducedImage(contents, imageWidth, imageHeight);
    if (image.isNull()) {
        // Random values 0 to 4 disagree with any real hash in about four
        // fifths of the places, so the picture joins no group.
        for (qint32 i = 0; i < count; ++i) {
            if (i % imageWidth != 0)
                vector.append(qint64(QRandomGenerator::global()->bounded(5)));
        }
        return result;
    }
    QByteArray gray(count, Qt::Uninitialized);
    for (qint32 y = 0; y < imageHeight; ++y) {
        const QRgb *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
        for (qint32 x = 0; x < imageWidth; ++x) {
            const QRgb pixel = row[x]; // premultiplied: a transparent pixel is black
            const int value =
                int(qRed(pixel) * 0.3) + int(qGreen(pixel) * 0.59) + int(qBlue(pixel) * 0.11);
            gray[y * imageWidth + x] = char(value);
        }
    }
    vector.reserve(count - imageHeight);
    for (qint32 i = 1; i < count; ++i) {
        if (i % imageWidth == 0)
            continue; // no pair across the end of a row
        vector.append(uchar(gray[i - 1]) > uchar(gray[i]) ? 1 : 0);
    }
    return result;
}

AHAAlgorithm::Grid AHAAlgorithm::block_Osx_Getblocks(const QString &path, qint16 blockCount,
                                                     qint16 orientation)
{
    if (orientation > 8)
        orientation = 0;
    PictureReduction::allowLargePictures();
    QImageReader reader(path);
    reader.setAutoTransform(false);
    const QImage image = reader.read();
    if (image.isNull()) {
        // Every key shows the last triple drawn, as the shared array always did.
        QList<int> last;
        for (int round = 0; round < 16; ++round)
            last = {int(QRandomGenerator::global()->bounded(255)),
                    int(QRandomGenerator::global()->bounded(255)),
                    int(QRandomGenerator::global()->bounded(255))};
        Grid random;
        for (int key = 0; key < 16; ++key)
            random.insert(key, last);
        return random;
    }
    const qint32 w = image.width();
    const qint32 h = image.height();
    const qint32 canvasWidth = orientation > 4 ? h : w;
    const qint32 canvasHeight = orientation > 4 ? w : h;
    std::optional<QImage> canvas = MyCreateBitmapContext(canvasWidth, canvasHeight);
    if (canvas) {
        const qreal cw = canvasWidth;
        const qreal ch = canvasHeight;
        // The orientation steps are stated with the y axis pointing up (the
        // drawing surface's origin at the bottom left); they are applied
        // between two flips that map that space onto the top-down picture.
        QTransform t;
        switch (orientation) {
        case 2:
            t.translate(cw, 0).scale(-1, 1);
            break;
        case 3:
            t.translate(cw, ch).rotateRadians(180.0);
            break;
        case 4:
            t.translate(0, ch).scale(1, -1);
            break;
        case 5:
            t.translate(cw, 0).scale(-1, 1).translate(0, ch).rotateRadians(-90.0);
            break;
        case 6:
            t.translate(0, ch).rotateRadians(-90.0);
            break;
        case 7:
            t.translate(cw, 0).scale(-1, 1).translate(cw, 0).rotateRadians(90.0);
            break;
        case 8:
            t.translate(cw, 0).rotateRadians(90.0);
            break;
        default:
            break;
        }
        const QTransform pictureUp(1, 0, 0, -1, 0, h);
        const QTransform canvasDown(1, 0, 0, -1, 0, ch);
        QPainter painter(&*canvas);
        painter.setTransform(pictureUp * t * canvasDown);
        painter.drawImage(QPointF(0, 0), image);
    }
    if (blockCount < 0)
        return Grid();
    if (blockCount == 0)
        fatalStop(QStringLiteral("a colour grid of 0 blocks"));
    if (!canvas)
        return Grid();
    const qint32 blockW = std::max(canvasWidth / blockCount, 1);
    const qint32 blockH = std::max(canvasHeight / blockCount, 1);
    Grid grid;
    for (qint32 r = 0; r < blockCount; ++r) {
        const qint32 y = min(r * blockH, canvasHeight - blockH);
        for (qint32 c = 0; c < blockCount; ++c) {
            const qint32 x = min(c * blockW, canvasWidth - blockW);
            grid.insert(r * blockCount + c, getBlock(canvas->constBits(), canvasWidth, canvasHeight,
                                                     x, y, blockW, blockH));
        }
    }
    return grid;
}

QList<int> AHAAlgorithm::getBlock(const uchar *bitmap, qint32 imageWidth, qint32 imageHeight,
                                  qint32 boxX, qint32 boxY, qint32 boxW, qint32 boxH)
{
    Q_UNUSED(imageHeight);
    const qint64 area = qint64(boxW) * boxH;
    if (area == 0)
        fatalStop(QStringLiteral("the average of an empty box"));
    qint64 red = 0, green = 0, blue = 0;
    for (qint32 y = boxY; y < boxY + boxH; ++y) {
        const uchar *pixel = bitmap + (qint64(y) * imageWidth + boxX) * 4;
        for (qint32 x = 0; x < boxW; ++x, pixel += 4) {
            red += pixel[0];
            green += pixel[1];
            blue += pixel[2];
        }
    }
    return {int(red / area), int(green / area), int(blue / area)};
}

std::optional<QImage> AHAAlgorithm::MyCreateBitmapContext(qint32 width, qint32 heigth)
{
    QImage canvas(width, heigth, QImage::Format_RGBX8888);
    if (canvas.isNull()) {
        std::fputs("Memory not allocated!", stderr);
        return std::nullopt;
    }
    canvas.fill(0);
    return canvas;
}

qint32 AHAAlgorithm::min(qint32 one, qint32 two)
{
    return one < two ? one : two;
}

double AHAAlgorithm::getPrecent(double p1, double p2)
{
    return p1 > p2 ? p2 / p1 : p1 / p2;
}
