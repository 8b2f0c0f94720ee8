#include "cleaner/finders/PictureReduction.h"

#include <QBuffer>
#include <QImageReader>
#include <csetjmp>
#include <cstdio>
#include <cstring>
#include <jpeglib.h>
#include <memory>
#include <mutex>
#include <png.h>

AreaReducer::AreaReducer(int sourceWidth, int sourceHeight, int width, int height, int scale,
                         int storedWidth, int storedHeight)
    : sourceHeight_(sourceHeight), width_(width), height_(height),
      extentWidth_(scale > 1 ? storedWidth : sourceWidth),
      extentHeight_(scale > 1 ? storedHeight : sourceHeight),
      columnStep_(quint32(std::max(scale, 1) * width)),
      rowStep_(quint32(std::max(scale, 1) * height)),
      columns_(spans(extentWidth_, std::max(scale, 1), width)),
      rows_(spans(extentHeight_, std::max(scale, 1), height)), rowSums_(size_t(width) * 4),
      sums_(size_t(width) * size_t(height) * 4)
{}

// On one scale, stored pixel f covers [f × target, (f + 1) × target), decoded
// pixel i the stored pixels from i × scale (the last one may cover fewer),
// and target pixel c covers [c × extent, (c + 1) × extent): every weight is
// a whole number and the average is exact.
std::vector<AreaReducer::Span> AreaReducer::spans(int extent, int scale, int target)
{
    std::vector<Span> result(size_t(std::max(target, 0)));
    const qint64 step = qint64(scale) * target;
    for (int c = 0; c < target; ++c) {
        const qint64 begin = qint64(c) * extent, end = qint64(c + 1) * extent;
        Span &s = result[size_t(c)];
        s.first = int(begin / step);
        s.last = int((end - 1) / step);
        s.firstW = quint32(std::min(end, qint64(s.first + 1) * step) - begin);
        s.lastW = quint32(end - std::max(begin, qint64(s.last) * step));
    }
    return result;
}

void AreaReducer::addRow(const uchar *rgba)
{
    addRowOf<4>(rgba);
}

void AreaReducer::addOpaqueRow(const uchar *rgb)
{
    addRowOf<3>(rgb);
}

template <int channels> void AreaReducer::addRowOf(const uchar *pixels)
{
    if (row_ >= sourceHeight_)
        return;
    for (int c = 0; c < width_; ++c) {
        const Span &s = columns_[size_t(c)];
        quint32 *sum = &rowSums_[size_t(c) * 4];
        const uchar *p = pixels + size_t(s.first) * channels;
        const uchar *const last = pixels + size_t(s.last) * channels;
        for (int k = 0; k < channels; ++k)
            sum[k] = s.firstW * p[k];
        if (s.last != s.first) {
            quint32 inner[channels] = {};
            p += channels;
            // Sixteen pixels at a time into as many lanes, which the compiler
            // turns into vector additions; the lanes are folded per channel.
            constexpr int block = 16 * channels;
            quint32 lanes[block] = {};
            for (; last - p >= block; p += block) {
                for (int j = 0; j < block; ++j)
                    lanes[j] += p[j];
            }
            for (int j = 0; j < block; ++j)
                inner[j % channels] += lanes[j];
            for (; p < last; p += channels) {
                for (int k = 0; k < channels; ++k)
                    inner[k] += p[k];
            }
            for (int k = 0; k < channels; ++k)
                sum[k] += columnStep_ * inner[k] + s.lastW * p[k];
        }
        if (channels == 3)
            sum[3] = 255u * quint32(extentWidth_); // opaque: the weights add up to the width
    }
    for (int r = 0; r < height_; ++r) {
        const Span &s = rows_[size_t(r)];
        if (row_ < s.first || row_ > s.last)
            continue;
        const quint64 weight = row_ == s.first ? s.firstW : row_ == s.last ? s.lastW : rowStep_;
        quint64 *sum = &sums_[size_t(r) * size_t(width_) * 4];
        for (size_t k = 0; k < rowSums_.size(); ++k)
            sum[k] += weight * rowSums_[k];
    }
    ++row_;
}

QImage AreaReducer::result() const
{
    QImage image(width_, height_, QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return image;
    const quint64 total = quint64(extentWidth_) * quint64(extentHeight_);
    for (int y = 0; y < height_; ++y) {
        QRgb *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < width_; ++x) {
            const quint64 *sum = &sums_[(size_t(y) * size_t(width_) + size_t(x)) * 4];
            const auto mean = [&](int k) { return int((sum[k] + total / 2) / total); };
            line[x] = qRgba(mean(0), mean(1), mean(2), mean(3));
        }
    }
    return image;
}

void PictureReduction::allowLargePictures()
{
    // Qt refuses full decodes above 128 MB; photographs of 50 megapixels
    // and more are ordinary.
    static std::once_flag once;
    std::call_once(once, [] { QImageReader::setAllocationLimit(1024); });
}

namespace {

// The DCT scale of a JPEG: 1/8, 1/4 or 1/2 as long as the decoded picture
// keeps `floor` times the target's width and height, else whole.
int jpegDenominator(int sourceWidth, int sourceHeight, int width, int height)
{
    for (const int d : {8, 4, 2}) {
        if (sourceWidth / d >= PictureReduction::floor * width &&
            sourceHeight / d >= PictureReduction::floor * height)
            return d;
    }
    return 1;
}

// Qt's rounding of a premultiplied channel, so both paths agree.
inline uchar premultiplied(uint value, uint alpha)
{
    const uint t = value * alpha;
    return uchar((t + (t >> 8) + 0x80) >> 8);
}

struct JpegFailure {
    jpeg_error_mgr manager;
    std::jmp_buf jump;
};

[[noreturn]] void jpegFail(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<JpegFailure *>(info->err)->jump, 1);
}

void jpegQuiet(j_common_ptr) {}

// The reducer fed with the whole picture, or nothing when libjpeg cannot
// take it here (colour models Qt converts itself, damaged data): the caller
// then asks Qt. No object with a destructor lives across the jump.
AreaReducer *jpegReduced(const QByteArray &contents, int width, int height)
{
    jpeg_decompress_struct info;
    JpegFailure failure;
    info.err = jpeg_std_error(&failure.manager);
    failure.manager.error_exit = jpegFail;
    failure.manager.output_message = jpegQuiet;
    AreaReducer *volatile reducer = nullptr;
    if (setjmp(failure.jump)) {
        delete reducer;
        jpeg_destroy_decompress(&info);
        return nullptr;
    }
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, reinterpret_cast<const uchar *>(contents.constData()),
                 static_cast<unsigned long>(contents.size()));
    jpeg_read_header(&info, TRUE);
    if (info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK) {
        jpeg_destroy_decompress(&info);
        return nullptr;
    }
    info.out_color_space = JCS_EXT_RGBA;
    info.dct_method = JDCT_ISLOW;
    info.do_fancy_upsampling = TRUE;
    info.scale_num = 1;
    info.scale_denom =
        unsigned(jpegDenominator(int(info.image_width), int(info.image_height), width, height));
    jpeg_start_decompress(&info);
    reducer = new AreaReducer(int(info.output_width), int(info.output_height), width, height,
                              int(info.scale_denom), int(info.image_width), int(info.image_height));
    JSAMPARRAY row = (*info.mem->alloc_sarray)(reinterpret_cast<j_common_ptr>(&info), JPOOL_IMAGE,
                                               info.output_width * 4, 1);
    while (info.output_scanline < info.output_height) {
        jpeg_read_scanlines(&info, row, 1);
        reducer->addRow(row[0]);
    }
    // The rest of the file (markers after the image) does not matter.
    jpeg_destroy_decompress(&info);
    return reducer;
}

struct PngSource {
    const uchar *data;
    size_t size, at;
};

void pngRead(png_structp png, png_bytep out, size_t count)
{
    auto *source = static_cast<PngSource *>(png_get_io_ptr(png));
    if (source->size - source->at < count)
        png_error(png, "truncated");
    std::memcpy(out, source->data + source->at, count);
    source->at += count;
}

[[noreturn]] void pngFail(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void pngQuiet(png_structp, png_const_charp) {}

// As jpegReduced, for 8-bit PNGs that are not interlaced; the others
// (16-bit channels, grey with a transparent colour, interlacing) go to Qt.
AreaReducer *pngReduced(const QByteArray &contents, int width, int height)
{
    if (!contents.startsWith("\x89PNG\r\n\x1a\n"))
        return nullptr;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, pngFail, pngQuiet);
    if (!png)
        return nullptr;
    png_infop pngInfo = png_create_info_struct(png);
    AreaReducer *volatile reducer = nullptr;
    uchar *volatile row = nullptr;
    PngSource source{reinterpret_cast<const uchar *>(contents.constData()), size_t(contents.size()),
                     0};
    if (!pngInfo || setjmp(png_jmpbuf(png))) {
        delete reducer;
        delete[] row;
        png_destroy_read_struct(&png, pngInfo ? &pngInfo : nullptr, nullptr);
        return nullptr;
    }
    png_set_read_fn(png, &source, pngRead);
    png_read_info(png, pngInfo);
    const png_uint_32 w = png_get_image_width(png, pngInfo);
    const png_uint_32 h = png_get_image_height(png, pngInfo);
    const int depth = png_get_bit_depth(png, pngInfo);
    const int type = png_get_color_type(png, pngInfo);
    const bool transparentColour = png_get_valid(png, pngInfo, PNG_INFO_tRNS);
    // Stream checksums are not verified: a flipped bit changes a pixel, not
    // the picture, and skipping them saves an eighth of the time.
#ifdef PNG_IGNORE_ADLER32
    png_set_option(png, PNG_IGNORE_ADLER32, PNG_OPTION_ON);
#endif
    if (png_get_interlace_type(png, pngInfo) != PNG_INTERLACE_NONE ||
        (depth != 8 && type != PNG_COLOR_TYPE_PALETTE) ||
        (transparentColour && type != PNG_COLOR_TYPE_PALETTE)) {
        png_destroy_read_struct(&png, &pngInfo, nullptr);
        return nullptr;
    }
    if (type == PNG_COLOR_TYPE_PALETTE)
        png_set_palette_to_rgb(png);
    if (transparentColour)
        png_set_tRNS_to_alpha(png);
    if (type == PNG_COLOR_TYPE_GRAY || type == PNG_COLOR_TYPE_GRAY_ALPHA)
        png_set_gray_to_rgb(png);
    png_read_update_info(png, pngInfo);
    const bool alpha = (type & PNG_COLOR_MASK_ALPHA) || transparentColour;
    const size_t channels = alpha ? 4 : 3;
    if (png_get_rowbytes(png, pngInfo) != size_t(w) * channels)
        png_error(png, "unexpected row layout");
    row = new uchar[size_t(w) * channels];
    reducer = new AreaReducer(int(w), int(h), width, height);
    for (png_uint_32 y = 0; y < h; ++y) {
        png_read_row(png, row, nullptr);
        if (alpha) {
            for (uchar *p = row; p < row + size_t(w) * 4; p += 4) {
                for (int k = 0; k < 3; ++k)
                    p[k] = premultiplied(p[k], p[3]);
            }
            reducer->addRow(row);
        } else {
            reducer->addOpaqueRow(row);
        }
    }
    delete[] row;
    png_destroy_read_struct(&png, &pngInfo, nullptr);
    return reducer;
}

} // namespace

QImage PictureReduction::reduce(const QByteArray &contents, int width, int height)
{
    const QImage direct = reduceDirect(contents, width, height);
    return direct.isNull() ? reduceGeneral(contents, width, height) : direct;
}

QImage PictureReduction::reduceDirect(const QByteArray &contents, int width, int height)
{
    if (width <= 0 || height <= 0)
        return QImage();
    std::unique_ptr<AreaReducer> reducer(contents.startsWith("\xff\xd8")
                                             ? jpegReduced(contents, width, height)
                                             : pngReduced(contents, width, height));
    return reducer ? reducer->result() : QImage();
}

QImage PictureReduction::reduceGeneral(const QByteArray &contents, int width, int height)
{
    if (width <= 0 || height <= 0)
        return QImage();
    PictureReduction::allowLargePictures();
    QBuffer buffer;
    buffer.setData(contents);
    if (!buffer.open(QIODevice::ReadOnly))
        return QImage();
    QImageReader reader(&buffer);
    reader.setAutoTransform(false); // orientation metadata is ignored
    reader.setQuality(100);
    const QSize full = reader.size();
    if (reader.format() == "jpeg" && full.isValid()) {
        const int d = jpegDenominator(full.width(), full.height(), width, height);
        // Rounded down, so Qt asks libjpeg for exactly this scale.
        reader.setScaledSize(full / d);
    }
    QImage image = reader.read(); // the first frame only
    if (image.isNull())
        return image;
    image.convertTo(QImage::Format_RGBA8888_Premultiplied);
    AreaReducer reducer(image.width(), image.height(), width, height);
    for (int y = 0; y < image.height(); ++y)
        reducer.addRow(image.constScanLine(y));
    return reducer.result();
}
