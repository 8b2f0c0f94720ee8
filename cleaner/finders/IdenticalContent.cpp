#include "cleaner/finders/IdenticalContent.h"

#include "cleaner/finders/FileHash.h"
#include "cleaner/finders/Md5.h"
#include "cleaner/finders/SharedWork.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <unistd.h>
#include <vector>
#include <xxhash.h>

namespace {

// One file on the disk, every path that names it, and the open folder of the first.
struct Inode {
    QList<QByteArray> paths;
    std::shared_ptr<const OpenFolder> folder;
};

struct SizeResult {
    QList<std::pair<QString, QList<QByteArray>>> sets;
    QList<QByteArray> unreadable; // digested as empty data
};

class SizeGroup {
public:
    SizeGroup(qint64 size, const QList<WalkedFile> &files,
              const IdenticalContent::StopTest &stopped, SizeResult &out)
        : m_size(size), m_stopped(stopped), m_out(out)
    {
        QHash<QPair<quint64, quint64>, int> seen;
        for (const WalkedFile &f : files) {
            const QPair<quint64, quint64> key(quint64(f.device), quint64(f.inode));
            const auto it = seen.constFind(key);
            if (it != seen.constEnd()) {
                m_inodes[size_t(*it)].paths.append(f.path);
                continue;
            }
            seen.insert(key, int(m_inodes.size()));
            m_inodes.push_back(Inode{{f.path}, f.folder});
        }
    }

    void run()
    {
        if (m_inodes.size() == 1) {
            if (m_inodes[0].paths.size() > 1)
                linksAlone(m_inodes[0]);
            return;
        }
        groupByBlocks();
    }

private:
    // An open candidate: its file, the whole of it when the first look read
    // it whole, and the chunk read last.
    struct Open {
        Open(const Inode *inode, int fd) : inode(inode), fd(fd) {}
        Open(const Open &) = delete;
        const Inode *inode;
        int fd;
        std::vector<char> whole;
        char *chunk = nullptr;
        ~Open()
        {
            if (fd >= 0)
                ::close(fd);
        }
    };
    using Set = std::vector<Open *>;

    void unreadable(const Inode &inode)
    {
        if (m_size < IdenticalContent::streamingSize)
            m_out.unreadable.append(inode.paths);
    }

    static qsizetype pathCount(const std::vector<Open *> &members)
    {
        qsizetype n = 0;
        for (const Open *f : members)
            n += f->inode->paths.size();
        return n;
    }

    // Large files are read far: the kernel is told to read ahead.
    int openFile(const Inode &inode) const
    {
        const int fd = OpenFolder::openFile(inode.folder.get(), inode.paths.first());
        if (fd >= 0 && m_size >= qint64(FileHash::chunkSize))
            posix_fadvise(fd, 0, 0, POSIX_FADV_SEQUENTIAL);
        return fd;
    }

    // Hard links only: the paths are one file, identical without a
    // comparison; its first block says whether it can be read.
    void linksAlone(const Inode &inode)
    {
        const int fd = openFile(inode);
        char block[IdenticalContent::blockSize];
        const size_t length = size_t(std::min(m_size, qint64(sizeof block)));
        const bool ok = fd >= 0 && FileHash::readFully(fd, block, length, 0);
        if (fd >= 0)
            ::close(fd);
        if (!ok)
            return unreadable(inode);
        m_out.sets.append({setKey(), inode.paths});
    }

    QString setKey() { return QStringLiteral("%1/%2").arg(m_size).arg(m_sets++); }

    // The first look: a small file whole, a larger one its first and last
    // blocks. Files stay open for the comparison that may follow.
    void groupByBlocks()
    {
        const qint64 block = IdenticalContent::blockSize;
        // Small files are told apart by their first block alone: reading
        // more of each costs more than comparing the few that agree.
        const size_t head = size_t(std::min(m_size, block));
        const bool tail = m_size > IdenticalContent::tailFrom;
        std::vector<char> buffer(head + (tail ? size_t(block) : 0));
        std::vector<std::unique_ptr<Open>> files;
        QMultiHash<quint64, Open *> byBlocks;
        for (const Inode &inode : m_inodes) {
            if (m_stopped())
                return;
            auto f = std::make_unique<Open>(&inode, openFile(inode));
            const bool ok = f->fd >= 0 && FileHash::readFully(f->fd, buffer.data(), head, 0) &&
                            (!tail || FileHash::readFully(f->fd, buffer.data() + head,
                                                          size_t(block), m_size - block));
            if (!ok) {
                unreadable(inode);
                continue;
            }
            byBlocks.insert(XXH3_64bits(buffer.data(), buffer.size()), f.get());
            // A file read whole is not read again.
            if (qint64(head) == m_size)
                f->whole.assign(buffer.begin(), buffer.begin() + qsizetype(head));
            files.push_back(std::move(f));
            // Past a few hundred candidates the descriptors are given back;
            // the comparison opens them again.
            if (files.size() > maxOpenFiles) {
                ::close(files.back()->fd);
                files.back()->fd = -1;
            }
        }
        for (const quint64 key : byBlocks.uniqueKeys()) {
            std::vector<Open *> candidates;
            for (Open *f : byBlocks.values(key))
                candidates.push_back(f);
            if (candidates.size() == 1) {
                // Its own links can still make a set; no other file can.
                if (candidates.front()->inode->paths.size() > 1)
                    linksAlone(*candidates.front()->inode);
                continue;
            }
            std::sort(candidates.begin(), candidates.end());
            if (candidates.size() > maxOpenFiles)
                digestEach(candidates);
            else
                compareSideBySide(candidates);
        }
    }

    // So many candidates that holding them all open could exhaust the
    // descriptors: each is digested alone and the sets are taken by digest.
    static constexpr size_t maxOpenFiles = 256;
    static constexpr size_t compareBudget = 64 << 20;
    void digestEach(const std::vector<Open *> &candidates)
    {
        QHash<QString, std::vector<Open *>> byDigest;
        for (Open *f : candidates) {
            if (m_stopped())
                return;
            const QString digest = FileHash::md5HashOfFileAtPath(f->inode->paths.first());
            if (!digest.isEmpty())
                byDigest[digest].push_back(f);
            else
                unreadable(*f->inode);
        }
        for (auto it = byDigest.cbegin(); it != byDigest.cend(); ++it) {
            if (pathCount(it.value()) > 1)
                addSet(it.key(), it.value());
        }
    }

    void addSet(const QString &digest, const std::vector<Open *> &members)
    {
        QList<QByteArray> paths;
        for (const Open *f : members)
            paths.append(f->inode->paths);
        m_out.sets.append({digest, paths});
    }

    // Reads the candidates side by side, a chunk at a time, splitting them
    // wherever their bytes differ: what is left together at the end is
    // byte for byte the same.
    void compareSideBySide(const std::vector<Open *> &candidates)
    {
        Set start;
        for (Open *f : candidates) {
            if (f->fd < 0)
                f->fd = openFile(*f->inode);
            if (f->fd < 0)
                unreadable(*f->inode);
            else
                start.push_back(f);
        }
        // One chunk a candidate side by side in a buffer kept by the thread:
        // fresh memory for every file cost more in page faults than the reads.
        // Many candidates read smaller chunks, so the buffer stays bounded.
        const size_t chunk = std::max<size_t>(
            size_t(IdenticalContent::blockSize),
            std::min(FileHash::chunkSize, compareBudget / std::max<size_t>(start.size(), 1)) &
                ~size_t(IdenticalContent::blockSize - 1));
        thread_local std::unique_ptr<char[]> arena;
        thread_local size_t arenaSize = 0;
        const size_t needed = chunk * start.size();
        if (arenaSize < needed) {
            arena.reset(new char[needed]);
            arenaSize = needed;
        }
        for (size_t i = 0; i < start.size(); ++i)
            start[i]->chunk = arena.get() + i * chunk;
        std::vector<Set> sets;
        sets.push_back(std::move(start));
        for (qint64 offset = 0; offset < m_size && !sets.empty(); offset += qint64(chunk)) {
            if (m_stopped())
                return;
            const size_t length = size_t(std::min<qint64>(qint64(chunk), m_size - offset));
            std::vector<Set> next;
            for (Set &set : sets) {
                std::vector<Set> parts;
                for (Open *f : set) {
                    const bool held = offset == 0 && f->whole.size() == length;
                    if (held)
                        f->chunk = f->whole.data();
                    else if (!FileHash::readFully(f->fd, f->chunk, length, offset)) {
                        unreadable(*f->inode);
                        continue;
                    }
                    auto same = std::find_if(parts.begin(), parts.end(), [&](const Set &p) {
                        return std::memcmp(p.front()->chunk, f->chunk, length) == 0;
                    });
                    if (same != parts.end())
                        same->push_back(f);
                    else
                        parts.push_back(Set{f});
                }
                for (Set &part : parts) {
                    if (pathCount(part) > 1)
                        next.push_back(std::move(part));
                }
            }
            sets = std::move(next);
        }
        for (const Set &set : sets)
            addSet(setKey(), set);
    }

    qint64 m_size;
    const IdenticalContent::StopTest &m_stopped;
    SizeResult &m_out;
    std::vector<Inode> m_inodes;
    int m_sets = 0;
};

} // namespace

QString IdenticalContent::emptyDigest()
{
    return Md5::of("", 0);
}

MD5AndPath IdenticalContent::group(const SizeAndPath &sizeAndPath, const MoreDoubleSize &sizes,
                                   const StopTest &stopped)
{
    // The biggest work first, so the cores finish together.
    std::vector<qint64> order(sizes.begin(), sizes.end());
    std::sort(order.begin(), order.end(), [&](qint64 a, qint64 b) {
        const qint64 wa = a * sizeAndPath.value(a).size(), wb = b * sizeAndPath.value(b).size();
        return wa != wb ? wa > wb : a > b;
    });
    const std::vector<SizeResult> results = shareOut<SizeResult>(
        order.size(),
        [&](size_t i, SizeResult &out) {
            const auto it = sizeAndPath.constFind(order[i]);
            if (it != sizeAndPath.constEnd() && it->size() > 1)
                SizeGroup(order[i], *it, stopped, out).run();
        },
        stopped);

    MD5AndPath md5AndPath;
    QList<QByteArray> unreadable;
    for (const SizeResult &r : results) {
        for (auto &[digest, paths] : r.sets)
            md5AndPath.insert(digest, paths);
        unreadable.append(r.unreadable);
    }
    if (!unreadable.isEmpty())
        md5AndPath.insert(emptyDigest(), unreadable);
    return md5AndPath;
}
