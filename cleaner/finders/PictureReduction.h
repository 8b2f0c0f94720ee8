#pragma once

#include <QByteArray>
#include <QImage>
#include <vector>

// Squeezes a picture to a few pixels by an exact area average: each target
// pixel is the mean of the source area it covers, fractional edges weighted,
// rounded to the nearest value. Rows are fed one at a time, so a large
// picture never has to be held whole.
class AreaReducer {
public:
    // A source decoded at 1/scale of a stored picture has its last column
    // and row cover only what is left of the stored size; they weigh that much.
    AreaReducer(int sourceWidth, int sourceHeight, int width, int height, int scale = 1,
                int storedWidth = 0, int storedHeight = 0);
    // One source row of premultiplied pixels, bytes in the order r, g, b, a.
    // Rows come top to bottom, each once.
    void addRow(const uchar *rgba);
    // The same for an opaque row of r, g, b bytes.
    void addOpaqueRow(const uchar *rgb);
    // The reduced picture, premultiplied ARGB.
    QImage result() const;

private:
    struct Span {
        int first, last;       // source columns (or rows) touching the target one
        quint32 firstW, lastW; // their weights; the ones between weigh the full step
    };
    static std::vector<Span> spans(int extent, int scale, int target);
    template <int channels> void addRowOf(const uchar *pixels);

    int sourceHeight_, width_, height_, extentWidth_, extentHeight_;
    quint32 columnStep_, rowStep_; // the weight of a whole decoded pixel
    int row_ = 0;
    std::vector<Span> columns_, rows_;
    std::vector<quint32> rowSums_; // per target column and channel, the current row
    std::vector<quint64> sums_;    // per target pixel and channel
};

// Decodes a picture's bytes straight into its reduced form: JPEG through
// libjpeg at the smallest DCT scale that keeps `floor` times the target size,
// 8-bit PNG through libpng row by row, anything else through Qt's readers.
// Orientation metadata is ignored and only the first frame counts.
namespace PictureReduction {

constexpr int floor = 8;

// A null image when the bytes are no picture.
QImage reduce(const QByteArray &contents, int width, int height);
// The direct decoders alone: a null image for what they leave to Qt.
QImage reduceDirect(const QByteArray &contents, int width, int height);
// The same through Qt's readers only (the fallback, and the reference the
// direct decoders are held to).
QImage reduceGeneral(const QByteArray &contents, int width, int height);
// Lifts Qt's limit on decoded size, once for the process.
void allowLargePictures();

} // namespace PictureReduction
