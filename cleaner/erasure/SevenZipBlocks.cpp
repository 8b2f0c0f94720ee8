#include "cleaner/erasure/SevenZipBlocks.h"

#include <QFile>
#include <QtEndian>
#include <cstdlib>
#include <lzma.h>

namespace {

// The header's property numbers.
enum Property : quint8 {
    kEnd = 0x00,
    kHeader = 0x01,
    kArchiveProperties = 0x02,
    kAdditionalStreamsInfo = 0x03,
    kMainStreamsInfo = 0x04,
    kFilesInfo = 0x05,
    kPackInfo = 0x06,
    kUnpackInfo = 0x07,
    kSubStreamsInfo = 0x08,
    kSize = 0x09,
    kCrc = 0x0A,
    kFolder = 0x0B,
    kCodersUnpackSize = 0x0C,
    kNumUnpackStream = 0x0D,
    kEmptyStream = 0x0E,
    kEncodedHeader = 0x17,
};

// Bounds that no real archive's header reaches; past them it is damaged (or
// is one this reads no further, and the archive gets one reader).
constexpr quint64 kMaxHeader = quint64(64) << 20;
constexpr quint64 kMaxStreams = 64; // of the coders of one block, as 7-Zip allows

// A cursor over header bytes; any read past the end, or any count past the
// bounds, leaves it failed and reading zeros.
class Cursor {
public:
    explicit Cursor(const QByteArray &bytes) : m_bytes(bytes) {}

    bool ok() const { return m_ok; }
    void fail() { m_ok = false; }

    quint8 byte()
    {
        if (m_at >= m_bytes.size()) {
            m_ok = false;
            return 0;
        }
        return quint8(m_bytes[m_at++]);
    }

    // The format's variable-length number: the first byte's leading one bits
    // say how many bytes follow, its other bits are the highest.
    quint64 number()
    {
        const quint8 first = byte();
        quint64 value = 0;
        for (int i = 0; i < 8; ++i) {
            const quint8 mask = quint8(0x80 >> i);
            if (!(first & mask))
                return value | (quint64(first & (mask - 1)) << (8 * i));
            value |= quint64(byte()) << (8 * i);
        }
        return value;
    }

    // A count of what follows: at most one thing a bit of what is left, so
    // that a damaged count never makes a long loop or a large list.
    quint64 count()
    {
        const quint64 n = number();
        if (n > quint64(m_bytes.size() - m_at) * 8)
            m_ok = false;
        return m_ok ? n : 0;
    }

    QByteArray take(quint64 n)
    {
        if (n > quint64(m_bytes.size() - m_at)) {
            m_ok = false;
            m_at = m_bytes.size();
            return {};
        }
        const QByteArray part = m_bytes.mid(m_at, qsizetype(n));
        m_at += qsizetype(n);
        return part;
    }

    void skip(quint64 n) { take(n); }

    QList<bool> bits(quint64 n)
    {
        QList<bool> v;
        quint8 b = 0;
        for (quint64 i = 0; i < n && m_ok; ++i) {
            if (i % 8 == 0)
                b = byte();
            v.append(b & (0x80 >> (i % 8)));
        }
        return v;
    }

    // Digests: a byte that, when set, says all n are there, else a bit for
    // each; then four bytes for each that is there.
    QList<bool> digests(quint64 n)
    {
        const bool all = byte();
        if (all && n > quint64(m_bytes.size() - m_at) / 4) {
            m_ok = false;
            return {};
        }
        const QList<bool> there = all ? QList<bool>(qsizetype(n), true) : bits(n);
        for (bool d : there) {
            if (d)
                skip(4);
        }
        return there;
    }

private:
    const QByteArray &m_bytes;
    qsizetype m_at = 0;
    bool m_ok = true;
};

struct Folder {
    QByteArray method; // the first coder's, and its properties
    QByteArray properties;
    int coders = 0;
    quint64 size = 0;          // of its final output
    qsizetype finalOutput = 0; // the output no coder reads
    bool hasDigest = false;
    quint64 streams = 1; // the entries' data streams it holds
};

struct Streams {
    quint64 packPos = 0;
    QList<quint64> packSizes;
    QList<Folder> folders;
};

Folder readFolder(Cursor &c, quint64 &outputs)
{
    Folder f;
    const quint64 coders = c.count();
    quint64 ins = 0;
    outputs = 0;
    for (quint64 i = 0; i < coders && c.ok(); ++i) {
        const quint8 flags = c.byte();
        if (flags & 0x80) // alternative methods: not written by any 7-Zip since 2005
            c.fail();
        const QByteArray id = c.take(flags & 0x0F);
        quint64 in = 1, out = 1;
        if (flags & 0x10) {
            in = c.count();
            out = c.count();
        }
        if (ins + in > kMaxStreams || outputs + out > kMaxStreams)
            c.fail();
        QByteArray properties;
        if (flags & 0x20)
            properties = c.take(c.count());
        if (i == 0) {
            f.method = id;
            f.properties = properties;
        }
        ins += in;
        outputs += out;
    }
    f.coders = int(coders);
    if (outputs == 0 || !c.ok())
        return c.fail(), f;
    const quint64 pairs = outputs - 1;
    QList<bool> bound(qsizetype(c.ok() ? outputs : 0), false);
    for (quint64 i = 0; i < pairs && c.ok(); ++i) {
        c.number();
        const quint64 out = c.number();
        if (out < outputs)
            bound[qsizetype(out)] = true;
    }
    if (ins < pairs)
        c.fail();
    const quint64 packed = ins - pairs;
    if (packed > 1) {
        for (quint64 i = 0; i < packed && c.ok(); ++i)
            c.number();
    }
    f.finalOutput = bound.indexOf(false);
    return f;
}

void readUnpackInfo(Cursor &c, Streams &s)
{
    if (c.byte() != kFolder)
        return c.fail();
    const quint64 n = c.count();
    if (c.byte() != 0) // folders inline, never "external"
        return c.fail();
    QList<quint64> outputs;
    for (quint64 i = 0; i < n && c.ok(); ++i) {
        quint64 out = 0;
        s.folders.append(readFolder(c, out));
        outputs.append(out);
    }
    if (c.byte() != kCodersUnpackSize)
        return c.fail();
    for (qsizetype i = 0; i < s.folders.size() && c.ok(); ++i) {
        const quint64 last = quint64(s.folders[i].finalOutput);
        for (quint64 o = 0; o < outputs[i] && c.ok(); ++o) {
            const quint64 size = c.number();
            if (o == last)
                s.folders[i].size = size;
        }
    }
    for (quint8 id = c.byte(); id != kEnd && c.ok(); id = c.byte()) {
        if (id != kCrc)
            return c.fail();
        const QList<bool> there = c.digests(quint64(s.folders.size()));
        for (qsizetype i = 0; i < there.size() && i < s.folders.size(); ++i)
            s.folders[i].hasDigest = there[i];
    }
}

void readSubStreams(Cursor &c, Streams &s)
{
    quint8 id = c.byte();
    if (id == kNumUnpackStream) {
        for (Folder &f : s.folders)
            f.streams = c.count();
        id = c.byte();
    }
    if (id == kSize) {
        for (const Folder &f : std::as_const(s.folders)) {
            for (quint64 i = 1; i < f.streams && c.ok(); ++i)
                c.number();
        }
        id = c.byte();
    }
    for (; id != kEnd && c.ok(); id = c.byte()) {
        if (id != kCrc)
            return c.fail();
        quint64 unknown = 0;
        for (const Folder &f : std::as_const(s.folders))
            unknown += f.streams == 1 && f.hasDigest ? 0 : f.streams;
        c.digests(unknown);
    }
}

Streams readStreams(Cursor &c)
{
    Streams s;
    for (quint8 id = c.byte(); id != kEnd && c.ok(); id = c.byte()) {
        if (id == kPackInfo) {
            s.packPos = c.number();
            const quint64 n = c.count();
            for (quint8 p = c.byte(); p != kEnd && c.ok(); p = c.byte()) {
                if (p == kSize) {
                    for (quint64 i = 0; i < n && c.ok(); ++i)
                        s.packSizes.append(c.number());
                } else if (p == kCrc) {
                    c.digests(n);
                } else {
                    c.fail();
                }
            }
        } else if (id == kUnpackInfo) {
            readUnpackInfo(c, s);
        } else if (id == kSubStreamsInfo) {
            readSubStreams(c, s);
        } else {
            c.fail();
        }
    }
    return s;
}

// The header a packed header stands for: the one stream of its one folder.
QByteArray unpackHeader(QFile &file, const Streams &s)
{
    if (s.folders.size() != 1 || s.folders[0].coders != 1 || s.packSizes.size() != 1 ||
        s.folders[0].size > kMaxHeader || s.packSizes[0] > kMaxHeader ||
        !file.seek(qint64(32 + s.packPos)))
        return {};
    const QByteArray packed = file.read(qint64(s.packSizes[0]));
    const Folder &f = s.folders[0];
    if (quint64(packed.size()) != s.packSizes[0])
        return {};
    if (f.method == QByteArray("\x00", 1))
        return f.size == quint64(packed.size()) ? packed : QByteArray();
    lzma_filter filters[2] = {{LZMA_VLI_UNKNOWN, nullptr}, {LZMA_VLI_UNKNOWN, nullptr}};
    if (f.method == QByteArray("\x03\x01\x01", 3))
        filters[0].id = LZMA_FILTER_LZMA1;
    else if (f.method == QByteArray("\x21", 1))
        filters[0].id = LZMA_FILTER_LZMA2;
    else
        return {}; // encrypted, or a method only libarchive reads here
    if (lzma_properties_decode(&filters[0], nullptr,
                               reinterpret_cast<const uint8_t *>(f.properties.constData()),
                               size_t(f.properties.size())) != LZMA_OK)
        return {};
    lzma_stream z = LZMA_STREAM_INIT;
    const lzma_ret started = lzma_raw_decoder(&z, filters);
    std::free(filters[0].options);
    if (started != LZMA_OK)
        return {};
    QByteArray header(qsizetype(f.size), Qt::Uninitialized);
    z.next_in = reinterpret_cast<const uint8_t *>(packed.constData());
    z.avail_in = size_t(packed.size());
    z.next_out = reinterpret_cast<uint8_t *>(header.data());
    z.avail_out = size_t(header.size());
    // A raw LZMA stream need not mark its end: it ends when the size is out.
    while (z.avail_out > 0) {
        const size_t before = z.avail_out + z.avail_in;
        const lzma_ret r = lzma_code(&z, LZMA_RUN);
        if ((r != LZMA_OK && r != LZMA_STREAM_END) || z.avail_out + z.avail_in == before)
            break;
    }
    const bool whole = z.avail_out == 0;
    lzma_end(&z);
    return whole ? header : QByteArray();
}

SevenZipBlocks readHeader(Cursor &c)
{
    SevenZipBlocks blocks;
    quint8 id = c.byte();
    if (id == kArchiveProperties) {
        while (c.ok() && c.byte() != kEnd)
            c.skip(c.number());
        id = c.byte();
    }
    if (id == kAdditionalStreamsInfo) {
        readStreams(c);
        id = c.byte();
    }
    Streams main;
    if (id == kMainStreamsInfo) {
        main = readStreams(c);
        id = c.byte();
    }
    QList<bool> empty;
    quint64 files = 0;
    if (id == kFilesInfo) {
        files = c.count();
        for (quint8 p = c.byte(); p != kEnd && c.ok(); p = c.byte()) {
            const quint64 size = c.number();
            if (p != kEmptyStream) {
                c.skip(size);
                continue;
            }
            const QByteArray bits = c.take(size);
            Cursor v(bits);
            empty = v.bits(files);
            if (!v.ok())
                c.fail();
        }
    }
    if (!c.ok())
        return {};
    // The entries with data fill the blocks in turn.
    qsizetype folder = -1;
    quint64 left = 0;
    for (quint64 i = 0; i < files; ++i) {
        if (i < quint64(empty.size()) && empty[qsizetype(i)])
            continue;
        while (left == 0 && ++folder < main.folders.size())
            left = main.folders[folder].streams;
        if (folder >= main.folders.size())
            return {}; // more data than blocks: not a header this reads right
        if (left == main.folders[folder].streams) {
            blocks.firstEntry.append(int(i));
            blocks.size.append(qint64(main.folders[folder].size));
        }
        --left;
    }
    blocks.entries = int(files);
    return blocks;
}

} // namespace

SevenZipBlocks SevenZipBlocks::of(const QString &archive)
{
    QFile file(archive);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray start = file.read(32);
    if (start.size() != 32 || !start.startsWith(QByteArray("7z\xBC\xAF\x27\x1C", 6)))
        return {};
    const auto at = [&start](int offset) { return start.constData() + offset; };
    const quint64 offset = qFromLittleEndian<quint64>(at(12));
    const quint64 size = qFromLittleEndian<quint64>(at(20));
    if (size == 0 || size > kMaxHeader || !file.seek(qint64(32 + offset)))
        return {};
    QByteArray header = file.read(qint64(size));
    if (quint64(header.size()) != size ||
        lzma_crc32(reinterpret_cast<const uint8_t *>(header.constData()), size_t(size), 0) !=
            qFromLittleEndian<quint32>(at(28)))
        return {};
    // A packed header unpacks to the header (7-Zip packs it once).
    for (int depth = 0; depth < 2 && !header.isEmpty() && header[0] == char(kEncodedHeader);
         ++depth) {
        Cursor c(header);
        c.byte();
        const Streams s = readStreams(c);
        header = c.ok() ? unpackHeader(file, s) : QByteArray();
    }
    if (header.isEmpty() || header[0] != char(kHeader))
        return {};
    Cursor c(header);
    c.byte();
    return readHeader(c);
}
