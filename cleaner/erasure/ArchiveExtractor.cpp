#include "cleaner/erasure/ArchiveExtractor.h"

#include "cleaner/core/Descriptor.h"
#include "cleaner/erasure/SevenZipBlocks.h"
#include "cleaner/erasure/WriteBehind.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>
#include <algorithm>
#include <archive.h>
#include <archive_entry.h>
#include <atomic>
#include <cerrno>
#include <clocale>
#include <cstring>
#include <fcntl.h>
#include <locale.h>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace {

constexpr int kStepFlags = O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;
constexpr size_t kReadBlock = 1 << 20;

using Reader = std::unique_ptr<archive, decltype(&archive_read_free)>;

// Names in 7z and rar are Unicode; libarchive turns them into the locale's
// character set, so the reading thread uses UTF-8 whatever the process's
// locale is, and a name comes out as UTF-8 bytes or as an error.
class Utf8Locale {
public:
    Utf8Locale()
        : m_locale(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)),
          m_old(m_locale ? uselocale(m_locale) : nullptr)
    {}
    ~Utf8Locale()
    {
        if (m_locale) {
            uselocale(m_old);
            freelocale(m_locale);
        }
    }

private:
    locale_t m_locale;
    locale_t m_old;
};

Reader openReader(const QStringList &volumes)
{
    Reader reader(archive_read_new(), &archive_read_free);
    archive_read_support_format_7zip(reader.get());
    archive_read_support_format_rar(reader.get());
    archive_read_support_format_rar5(reader.get());
    std::vector<QByteArray> names;
    for (const QString &v : volumes)
        names.push_back(QFile::encodeName(v));
    std::vector<const char *> list;
    for (const QByteArray &n : names)
        list.push_back(n.constData());
    list.push_back(nullptr);
    if (archive_read_open_filenames(reader.get(), list.data(), kReadBlock) != ARCHIVE_OK)
        return Reader(nullptr, &archive_read_free);
    return reader;
}

QString errorOf(archive *a)
{
    const char *text = a ? archive_error_string(a) : nullptr;
    return text ? QString::fromUtf8(text) : QStringLiteral("the archive cannot be read");
}

bool speaksOfEncryption(const QString &error)
{
    return error.contains(QLatin1String("ncrypt"), Qt::CaseInsensitive) ||
           error.contains(QLatin1String("passphrase"), Qt::CaseInsensitive) ||
           error.contains(QLatin1String("password"), Qt::CaseInsensitive);
}

QList<QByteArray> stepsOf(const QByteArray &name)
{
    QList<QByteArray> steps;
    for (const QByteArray &s : name.split('/')) {
        if (!s.isEmpty() && s != ".")
            steps.append(s);
    }
    return steps;
}

// Writes entries below one folder, reached only through its descriptor;
// with a write-behind, file data is written on its thread.
class Writer {
public:
    explicit Writer(int root, WriteBehind *behind = nullptr) : m_root(root), m_behind(behind) {}

    // The folder that holds the entry, created as needed (or only found);
    // -1 with errno set when a step is no folder or is a link.
    int parentOf(const QList<QByteArray> &steps, bool create) const
    {
        Descriptor folder(::openat(m_root, ".", kStepFlags));
        for (qsizetype i = 0; folder.get() >= 0 && i + 1 < steps.size(); ++i) {
            if (create && ::mkdirat(folder.get(), steps[i].constData(), 0755) != 0 &&
                errno != EEXIST)
                return -1;
            const int next = ::openat(folder.get(), steps[i].constData(), kStepFlags);
            const int error = errno;
            folder.reset(next);
            errno = error;
        }
        return folder.release();
    }

    // The errno of a failure, 0 when the entry is written.
    int write(archive *a, archive_entry *entry, const QList<QByteArray> &steps) const
    {
        Descriptor parent(parentOf(steps, true));
        if (parent.get() < 0)
            return errno;
        const char *name = steps.last().constData();
        const mode_t mode = archive_entry_perm(entry) & 0777;
        if (const char *source = archive_entry_hardlink(entry)) {
            const QList<QByteArray> from = stepsOf(source);
            Descriptor fromParent(parentOf(from, false));
            if (fromParent.get() < 0)
                return errno;
            return ::linkat(fromParent.get(), from.last().constData(), parent.get(), name, 0) == 0
                       ? 0
                       : errno;
        }
        switch (archive_entry_filetype(entry)) {
        case AE_IFDIR:
            if (::mkdirat(parent.get(), name, mode ? mode | 0700 : 0755) != 0 && errno != EEXIST)
                return errno;
            return 0;
        case AE_IFLNK:
            return ::symlinkat(archive_entry_symlink(entry), parent.get(), name) == 0 ? 0 : errno;
        default:
            break;
        }
        Descriptor file(::openat(parent.get(), name,
                                 O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC,
                                 mode ? mode | 0600 : 0644));
        if (file.get() < 0)
            return errno;
        const void *block;
        size_t size;
        la_int64_t offset;
        const qint64 length = archive_entry_size_is_set(entry) ? archive_entry_size(entry) : -1;
        std::optional<timespec> modified;
        if (archive_entry_mtime_is_set(entry))
            modified = timespec{archive_entry_mtime(entry), archive_entry_mtime_nsec(entry)};
        if (m_behind)
            m_behind->open(file.release(), steps.join('/'));
        for (;;) {
            const int r = archive_read_data_block(a, &block, &size, &offset);
            if (r == ARCHIVE_EOF)
                break;
            if (r < ARCHIVE_WARN)
                return -1; // the archive's own error
            if (m_behind) {
                if (!m_behind->append(block, size, offset))
                    return 0; // the write-behind's failure ends the extraction
                continue;
            }
            for (size_t done = 0; done < size;) {
                const ssize_t n = ::pwrite(file.get(), static_cast<const char *>(block) + done,
                                           size - done, offset + la_int64_t(done));
                if (n < 0 && errno == EINTR)
                    continue;
                if (n <= 0)
                    return n < 0 ? errno : EIO;
                done += size_t(n);
            }
        }
        if (m_behind) {
            m_behind->close(length, modified);
            return 0;
        }
        if (length >= 0)
            (void)::ftruncate(file.get(), length);
        if (modified) {
            const timespec times[2] = {*modified, *modified};
            ::futimens(file.get(), times);
        }
        return 0;
    }

private:
    int m_root;
    WriteBehind *m_behind;
};

} // namespace

QString ArchiveExtractor::entryRefusal(archive_entry *entry)
{
    const QByteArray name = archive_entry_pathname(entry);
    const char *hardlink = archive_entry_hardlink(entry);
    const int type = archive_entry_filetype(entry);
    QString why = pathRefusal(name);
    if (why.isEmpty() && hardlink)
        why = pathRefusal(hardlink);
    if (why.isEmpty() && type == AE_IFLNK && !hardlink)
        why = linkRefusal(name, archive_entry_symlink(entry));
    // A kind of 0 is an entry that does not say: it is written as a file.
    if (why.isEmpty() && type != 0 && type != AE_IFREG && type != AE_IFDIR && type != AE_IFLNK &&
        !hardlink)
        why = QStringLiteral("a device, FIFO or socket");
    return why;
}

QString ArchiveExtractor::pathRefusal(const QByteArray &name)
{
    if (name.isEmpty())
        return QStringLiteral("an entry without a name");
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(name);
    if (utf8.hasError() || name.contains('\0'))
        return QStringLiteral("a name that is not valid UTF-8");
    if (name.startsWith('/'))
        return QStringLiteral("an absolute path");
    for (const QByteArray &step : name.split('/')) {
        if (step == "..")
            return QStringLiteral("a path that climbs out with \"..\"");
    }
    if (stepsOf(name).isEmpty())
        return QStringLiteral("an entry without a name");
    return QString();
}

QString ArchiveExtractor::linkRefusal(const QByteArray &name, const QByteArray &target)
{
    if (target.isEmpty() || target.startsWith('/'))
        return QStringLiteral("a link to an absolute path");
    // Depth below the extraction folder, walking from the link's folder.
    qsizetype depth = stepsOf(name).size() - 1;
    for (const QByteArray &step : target.split('/')) {
        if (step.isEmpty() || step == ".")
            continue;
        depth += step == ".." ? -1 : 1;
        if (depth < 0)
            return QStringLiteral("a link that points out of the folder");
    }
    return QString();
}

QStringList ArchiveExtractor::volumesOf(const QString &archive)
{
    const QFileInfo info(archive);
    const QString folder = info.absolutePath() + QLatin1Char('/');
    static const QRegularExpression part(QStringLiteral("^(.*\\.part)(\\d+)(\\.rar)$"),
                                         QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = part.match(info.fileName());
    QStringList volumes;
    if (m.hasMatch()) {
        const qsizetype width = m.captured(2).size();
        for (int n = 1;; ++n) {
            const QString v = folder + m.captured(1) +
                              QStringLiteral("%1").arg(n, int(width), 10, QLatin1Char('0')) +
                              m.captured(3);
            if (!QFileInfo::exists(v))
                break;
            volumes.append(v);
        }
    } else if (info.suffix().compare(QLatin1String("rar"), Qt::CaseInsensitive) == 0) {
        volumes.append(info.absoluteFilePath());
        const QString stem = folder + info.completeBaseName() + QStringLiteral(".r");
        for (int n = 0;
             QFileInfo::exists(stem + QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0'))); ++n)
            volumes.append(stem + QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')));
    }
    if (volumes.isEmpty() || !volumes.contains(info.absoluteFilePath()))
        volumes = {info.absoluteFilePath()};
    return volumes;
}

namespace {

// The list of entries, or its first entry only.
ArchiveExtractor::Listing readList(const QString &archive, bool firstOnly)
{
    Utf8Locale utf8;
    ArchiveExtractor::Listing listing;
    Reader reader = openReader(ArchiveExtractor::volumesOf(archive));
    if (!reader) {
        listing.error = QStringLiteral("the archive cannot be opened");
        return listing;
    }
    archive_entry *entry;
    int r;
    while ((r = archive_read_next_header(reader.get(), &entry)) == ARCHIVE_OK ||
           r == ARCHIVE_WARN) {
        if (archive_entry_is_encrypted(entry))
            listing.encrypted = true;
        if (listing.refusal.isEmpty())
            listing.refusal = ArchiveExtractor::entryRefusal(entry);
        if (firstOnly) {
            r = ARCHIVE_EOF;
            break;
        }
        archive_read_data_skip(reader.get());
    }
    listing.readable = r == ARCHIVE_EOF;
    if (!listing.readable) {
        listing.error = errorOf(reader.get());
        listing.encrypted = listing.encrypted || speaksOfEncryption(listing.error);
    }
    return listing;
}

// A rar 5 number: seven bits a byte, the high bit says that more follow.
bool readVint(const QByteArray &bytes, qsizetype &at, quint64 &value)
{
    value = 0;
    for (int shift = 0; at < bytes.size() && shift < 64; shift += 7) {
        const auto byte = quint8(bytes[at++]);
        value |= quint64(byte & 0x7f) << shift;
        if (!(byte & 0x80))
            return true;
    }
    return false;
}

} // namespace

ArchiveExtractor::Listing ArchiveExtractor::inspect(const QString &archive)
{
    return readList(archive, false);
}

bool ArchiveExtractor::needsPassword(const QString &archive)
{
    return readList(archive, isSolidRar(volumesOf(archive).first())).encrypted;
}

bool ArchiveExtractor::isSolidRar(const QString &archive)
{
    QFile file(archive);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(64);
    static const QByteArray rar4("Rar!\x1a\x07\x00", 7);
    static const QByteArray rar5("Rar!\x1a\x07\x01\x00", 8);
    if (head.startsWith(rar4)) {
        // The main header follows the mark: crc (2), type 0x73, flags (2).
        return head.size() >= 12 && quint8(head[9]) == 0x73 && (quint8(head[10]) & 0x08);
    }
    if (!head.startsWith(rar5))
        return false;
    // crc (4), then size, type, flags, the optional extra and data sizes,
    // and for the main header (type 1) the archive's flags: 4 is solid.
    qsizetype at = 12;
    quint64 size, type, flags, skipped, archiveFlags;
    if (!readVint(head, at, size) || !readVint(head, at, type) || type != 1 ||
        !readVint(head, at, flags))
        return false;
    if ((flags & 0x1) && !readVint(head, at, skipped))
        return false;
    if ((flags & 0x2) && !readVint(head, at, skipped))
        return false;
    return readVint(head, at, archiveFlags) && (archiveFlags & 0x4);
}

namespace {

using Outcome = ArchiveExtractor::Outcome;
using Result = ArchiveExtractor::Result;

// Why a header could not be read.
Outcome headerFailure(archive *a, int entries)
{
    const QString error = errorOf(a);
    return {speaksOfEncryption(error) ? Result::NeedsPassword : Result::Damaged, error, entries};
}

// What became of one entry: written, skipped for safety (with the reason),
// or an outcome that ends the extraction.
struct EntryFate {
    bool written = false;
    QString refused;
    std::optional<Outcome> end;
};

EntryFate unpackEntry(archive *a, archive_entry *entry, const Writer &writer)
{
    EntryFate fate;
    const QByteArray name = archive_entry_pathname(entry);
    const QString why = ArchiveExtractor::entryRefusal(entry);
    if (why.isEmpty() && archive_entry_is_data_encrypted(entry)) {
        fate.end = Outcome{Result::NeedsPassword, QStringLiteral("encrypted entries"), 0};
        return fate;
    }
    if (!why.isEmpty()) {
        fate.refused = QString::fromUtf8(name.toPercentEncoding("/ ")) + QStringLiteral(": ") + why;
        archive_read_data_skip(a);
        return fate;
    }
    const int error = writer.write(a, entry, stepsOf(name));
    if (error == ELOOP || error == ENOTDIR || error == EEXIST) {
        // A step of its path is a link or a file: the entry would land
        // elsewhere than its name says.
        fate.refused = QString::fromUtf8(name) + QStringLiteral(": its folder is a link or a file");
    } else if (error == ENOSPC || error == EDQUOT) {
        fate.end = Outcome{Result::NoSpace, QString::fromLocal8Bit(std::strerror(error)), 0};
    } else if (error < 0) {
        fate.end = headerFailure(a, 0);
    } else if (error > 0) {
        fate.end = Outcome{Result::Failed,
                           QString::fromUtf8(name) + QStringLiteral(": ") +
                               QString::fromLocal8Bit(std::strerror(error)),
                           0};
    } else {
        fate.written = true;
    }
    return fate;
}

// Runs of entries, [first, end), that readers can take one at a time.
using Stretches = std::vector<std::pair<int, int>>;

// A 7z in two runs that each start a block, as near its middle as the blocks
// allow; none for a 7z of one block.
Stretches halvesOf(const SevenZipBlocks &blocks)
{
    if (blocks.firstEntry.size() < 2)
        return {};
    qint64 total = 0;
    for (qint64 size : blocks.size)
        total += size;
    qsizetype cut = 1;
    for (qint64 sum = blocks.size[0]; cut + 1 < blocks.size.size(); ++cut) {
        const qint64 next = sum + blocks.size[cut];
        if (std::abs(total - 2 * next) >= std::abs(total - 2 * sum))
            break;
        sum = next;
    }
    const int middle = blocks.firstEntry[cut];
    return {{0, middle}, {middle, blocks.entries}};
}

// How several readers can share an archive at once, or none: one volume,
// at least two files, and nothing whose result could depend on the order the
// entries are written in (no link, device, encrypted or refused entry, no
// name given twice, no file where another entry needs a folder). A rar that
// is not solid gives each entry to the next free reader, skipping an entry
// being a seek there; a 7z can only be entered at a block's start, so it is
// cut in two at a block.
Stretches parallelStretches(const QStringList &volumes)
{
    if (volumes.size() != 1 || ArchiveExtractor::isSolidRar(volumes.first()))
        return {};
    Reader reader = openReader(volumes);
    if (!reader)
        return {};
    std::set<QByteArray> files, folders;
    int entries = 0, regular = 0, format = 0;
    archive_entry *entry;
    int r;
    while ((r = archive_read_next_header(reader.get(), &entry)) == ARCHIVE_OK) {
        format = archive_format(reader.get()) & ARCHIVE_FORMAT_BASE_MASK;
        if (format != ARCHIVE_FORMAT_RAR && format != ARCHIVE_FORMAT_RAR_V5 &&
            format != ARCHIVE_FORMAT_7ZIP)
            return {};
        const int type = archive_entry_filetype(entry);
        if (archive_entry_is_encrypted(entry) || archive_entry_hardlink(entry) ||
            (type != 0 && type != AE_IFREG && type != AE_IFDIR) ||
            !ArchiveExtractor::entryRefusal(entry).isEmpty())
            return {};
        const QList<QByteArray> steps = stepsOf(archive_entry_pathname(entry));
        QByteArray path;
        for (qsizetype i = 0; i < steps.size(); ++i) {
            path += (i ? "/" : "") + steps[i];
            if (i + 1 < steps.size() || type == AE_IFDIR)
                folders.insert(path);
        }
        if (type != AE_IFDIR) {
            if (!files.insert(path).second)
                return {};
            ++regular;
        }
        ++entries;
        if (archive_read_data_skip(reader.get()) != ARCHIVE_OK)
            return {};
    }
    if (r != ARCHIVE_EOF || regular < 2)
        return {};
    for (const QByteArray &file : files) {
        if (folders.count(file))
            return {};
    }
    if (format == ARCHIVE_FORMAT_7ZIP) {
        const SevenZipBlocks blocks = SevenZipBlocks::of(volumes.first());
        // A header read otherwise than libarchive reads it is not split.
        return blocks.entries == entries ? halvesOf(blocks) : Stretches();
    }
    Stretches each;
    for (int i = 0; i < entries; ++i)
        each.emplace_back(i, i + 1);
    return each;
}

// Several readers over the same archive, each taking the next stretch no
// one has taken and skipping to it; the first failure stops them all.
class ParallelUnpack {
public:
    ParallelUnpack(const QStringList &volumes, Stretches stretches, qint64 total,
                   const Writer &writer, const ArchiveExtractor::Progress &progress)
        : m_volumes(volumes), m_stretches(std::move(stretches)), m_total(total), m_writer(writer),
          m_progress(progress)
    {}

    Outcome run(int workers)
    {
        std::vector<std::thread> threads;
        for (int i = 0; i < workers; ++i)
            threads.emplace_back([this] { work(); });
        for (std::thread &t : threads)
            t.join();
        Outcome outcome =
            m_end.value_or(m_refused.isEmpty() ? Outcome{Result::Done, QString(), 0}
                                               : Outcome{Result::Unsafe, m_refused, 0});
        outcome.entries = m_written;
        return outcome;
    }

private:
    void work()
    {
        Utf8Locale utf8;
        Reader reader = openReader(m_volumes);
        if (!reader)
            return finish(
                Outcome{Result::Failed, QStringLiteral("the archive cannot be opened"), 0});
        archive_entry *entry = nullptr;
        int at = -1; // the entry whose header was read last
        for (size_t taken = m_next++; taken < m_stretches.size() && !m_stop; taken = m_next++) {
            const auto [first, end] = m_stretches[taken];
            for (int next = first; next < end && !m_stop; ++next) {
                while (at < next) {
                    if (at >= 0 && entry)
                        archive_read_data_skip(reader.get());
                    entry = nullptr;
                    const int r = archive_read_next_header(reader.get(), &entry);
                    if (r == ARCHIVE_EOF)
                        return finish(Outcome{Result::Damaged, errorOf(nullptr), 0});
                    if (r < ARCHIVE_WARN)
                        return finish(headerFailure(reader.get(), 0));
                    ++at;
                }
                const qint64 before = archive_filter_bytes(reader.get(), -1);
                EntryFate fate = unpackEntry(reader.get(), entry, m_writer);
                entry = nullptr; // its data is read or skipped
                if (fate.end)
                    return finish(*fate.end);
                std::lock_guard lock(m_mutex);
                if (m_refused.isEmpty())
                    m_refused = fate.refused;
                if (!fate.written)
                    continue;
                ++m_written;
                // The compressed bytes of the entries written, whichever reader
                // wrote them (what a reader skips is not counted; a reader that
                // went back to a block's start reads as nothing).
                m_read += std::max<qint64>(0, archive_filter_bytes(reader.get(), -1) - before);
                if (m_progress && m_total > 0 &&
                    !m_progress(std::min(1.0, double(m_read) / double(m_total)))) {
                    if (!m_end)
                        m_end = Outcome{Result::Failed, QStringLiteral("stopped"), 0};
                    m_stop = true;
                }
            }
        }
    }

    void finish(const Outcome &outcome)
    {
        std::lock_guard lock(m_mutex);
        if (!m_end)
            m_end = outcome;
        m_stop = true;
    }

    const QStringList &m_volumes;
    const Stretches m_stretches;
    const qint64 m_total;
    const Writer &m_writer;
    const ArchiveExtractor::Progress &m_progress;
    std::atomic<size_t> m_next{0};
    std::atomic<bool> m_stop{false};
    std::mutex m_mutex; // guards what follows
    std::optional<Outcome> m_end;
    QString m_refused;
    int m_written = 0;
    qint64 m_read = 0;
};

} // namespace

ArchiveExtractor::Outcome ArchiveExtractor::extract(const QString &archive, const QString &target,
                                                    const Progress &progress, int workers)
{
    Utf8Locale utf8;
    const QStringList volumes = volumesOf(archive);
    qint64 total = 0;
    for (const QString &v : volumes)
        total += QFileInfo(v).size();
    Reader reader = openReader(volumes);
    if (!reader)
        return {Result::Failed, QStringLiteral("the archive cannot be opened"), 0};
    Descriptor root(::open(QFile::encodeName(target).constData(),
                           O_PATH | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (root.get() < 0)
        return {Result::Failed, QString::fromLocal8Bit(std::strerror(errno)), 0};
    if (workers <= 0)
        workers = int(std::clamp(std::thread::hardware_concurrency(), 1u, 2u));
    if (workers > 1) {
        if (Stretches stretches = parallelStretches(volumes); !stretches.empty()) {
            const Writer writer(root.get());
            return ParallelUnpack(volumes, std::move(stretches), total, writer, progress)
                .run(workers);
        }
    }
    // One reader: with a second core, writing goes on beside the decompression.
    std::optional<WriteBehind> behind;
    if (workers > 1)
        behind.emplace();
    const Writer writer(root.get(), behind ? &*behind : nullptr);
    // The first write that failed, once every queued write is done.
    const auto writeFailure = [&behind](int entries) -> std::optional<Outcome> {
        const WriteBehind::Failure f = behind ? behind->finish() : WriteBehind::Failure{};
        if (!f.error)
            return std::nullopt;
        const QString why = QString::fromLocal8Bit(std::strerror(f.error));
        if (f.error == ENOSPC || f.error == EDQUOT)
            return Outcome{Result::NoSpace, why, entries};
        return Outcome{Result::Failed, QString::fromUtf8(f.name) + QStringLiteral(": ") + why,
                       entries};
    };

    Outcome outcome;
    QString refused; // the first entry skipped for safety
    archive_entry *entry;
    for (;;) {
        const int r = archive_read_next_header(reader.get(), &entry);
        if (r == ARCHIVE_EOF)
            break;
        if (r < ARCHIVE_WARN)
            return headerFailure(reader.get(), outcome.entries);
        EntryFate fate = unpackEntry(reader.get(), entry, writer);
        if (fate.end) {
            fate.end->entries = outcome.entries;
            return *fate.end;
        }
        if (refused.isEmpty())
            refused = fate.refused;
        if (!fate.written)
            continue;
        ++outcome.entries;
        if (behind && behind->failed())
            return *writeFailure(outcome.entries);
        const double read = double(archive_filter_bytes(reader.get(), -1));
        if (progress && total > 0 && !progress(std::min(1.0, read / double(total))))
            return {Result::Failed, QStringLiteral("stopped"), outcome.entries};
    }
    if (const std::optional<Outcome> failure = writeFailure(outcome.entries))
        return *failure;
    if (!refused.isEmpty())
        return {Result::Unsafe, refused, outcome.entries};
    return {Result::Done, QString(), outcome.entries};
}
