#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QMap>
#include <QString>
#include <optional>

// Picture fingerprints that never fail: a picture that cannot be decoded
// gives a random result of the normal shape, so the finder needs no failure
// path. Stateless; any thread, several at a time.

// The row-difference hash: the picture squeezed to W × H (no aspect
// correction, orientation ignored, first frame only), made gray, and each
// pair of horizontal neighbours gives 1 when the left one is brighter.
class DHAAlgorithm {
public:
    using Result = QMap<QString, QList<qint64>>; // the one key "DHA"

    static Result grayImage(const QString &path, qint32 imageWidth, qint32 imageHeight);
    // The same from a file's bytes already read (the finder reads each file once).
    static Result grayImage(const QByteArray &contents, qint32 imageWidth, qint32 imageHeight);
    // The picture decoded and scaled to exactly width × height, premultiplied;
    // a null image when it cannot be decoded.
    static QImage reducedImage(const QByteArray &contents, qint32 width, qint32 height);
};

// A grid of average colours with EXIF orientation applied. Kept with the
// difference hash as a family member; nothing in the scan calls it.
class AHAAlgorithm {
public:
    using Grid = QMap<int, QList<int>>; // row × blockCount + column -> [r, g, b]

    static Grid block_Osx_Getblocks(const QString &path, qint16 blockCount, qint16 orientation);
    // Average red, green and blue over a box of a canvas of 4-byte pixels (r, g, b, ignored).
    static QList<int> getBlock(const uchar *bitmap, qint32 imageWidth, qint32 imageHeight,
                               qint32 boxX, qint32 boxY, qint32 boxW, qint32 boxH);
    // A zeroed canvas, or nothing (with a message on standard error).
    static std::optional<QImage> MyCreateBitmapContext(qint32 width, qint32 heigth);
    static qint32 min(qint32 one, qint32 two);
    // The smaller over the larger.
    static double getPrecent(double p1, double p2);
};
