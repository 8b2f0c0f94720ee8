#include "cleaner/finders/IdenticalContent.h"

#include "cleaner/finders/FileHash.h"
#include "cleaner/finders/Md5.h"

#include <QThread>
#include <algorithm>
#include <atomic>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <mutex>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xxhash.h>

namespace {

// One file on the disk and every path that names it.
struct Inode {
    QList<QByteArray> paths;
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
            m_inodes.push_back(Inode{{f.path}});
        }
    }

    void run()
    {
        if (m_inodes.size() == 1) {
            if (m_inodes[0].paths.size() > 1)
                digestAlone(m_inodes[0]);
            return;
        }
        if (m_size <= IdenticalContent::wholeReadLimit)
            groupWhole();
        else
            groupByBlocks();
    }

private:
    void unreadable(const Inode &inode)
    {
        if (m_size < IdenticalContent::streamingSize)
            m_out.unreadable.append(inode.paths);
    }

    void addSet(const QString &digest, const std::vector<const Inode *> &members)
    {
        QList<QByteArray> paths;
        for (const Inode *inode : members)
            paths.append(inode->paths);
        m_out.sets.append({digest, paths});
    }

    static qsizetype pathCount(const std::vector<const Inode *> &members)
    {
        qsizetype n = 0;
        for (const Inode *inode : members)
            n += inode->paths.size();
        return n;
    }

    // Hard links only: the file is one, its digest is read once.
    void digestAlone(const Inode &inode)
    {
        const QString digest = FileHash::md5HashOfFileAtPath(inode.paths.first());
        if (digest.isEmpty())
            return unreadable(inode);
        m_out.sets.append({digest, inode.paths});
    }

    bool readWhole(const QByteArray &path, QByteArray &into)
    {
        const int fd = ::open(path.constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
        if (fd < 0)
            return false;
        into.resize(qsizetype(m_size));
        const bool ok = FileHash::readFully(fd, into.data(), size_t(m_size), 0);
        ::close(fd);
        return ok;
    }

    // Small files: each read once, whole; equal hashes are checked byte by byte.
    void groupWhole()
    {
        std::vector<QByteArray> contents(m_inodes.size());
        QMultiHash<quint64, size_t> byHash;
        for (size_t i = 0; i < m_inodes.size(); ++i) {
            if (m_stopped())
                return;
            if (!readWhole(m_inodes[i].paths.first(), contents[i])) {
                unreadable(m_inodes[i]);
                continue;
            }
            byHash.insert(XXH3_64bits(contents[i].constData(), size_t(m_size)), i);
        }
        for (const quint64 key : byHash.uniqueKeys()) {
            QList<size_t> candidates = byHash.values(key);
            std::sort(candidates.begin(), candidates.end());
            while (!candidates.isEmpty()) {
                const size_t first = candidates.takeFirst();
                std::vector<const Inode *> members{&m_inodes[first]};
                for (auto it = candidates.begin(); it != candidates.end();) {
                    if (contents[*it] == contents[first]) {
                        members.push_back(&m_inodes[*it]);
                        it = candidates.erase(it);
                    } else {
                        ++it;
                    }
                }
                if (pathCount(members) > 1)
                    addSet(Md5::of(contents[first].constData(), size_t(m_size)), members);
            }
        }
    }

    // Larger files: first and last blocks first, then side-by-side chunks.
    void groupByBlocks()
    {
        const qint64 block = IdenticalContent::blockSize;
        std::vector<char> buffer(size_t(2 * block));
        QMultiHash<quint64, size_t> byBlocks;
        for (size_t i = 0; i < m_inodes.size(); ++i) {
            if (m_stopped())
                return;
            const int fd =
                ::open(m_inodes[i].paths.first().constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
            const bool ok =
                fd >= 0 && FileHash::readFully(fd, buffer.data(), size_t(block), 0) &&
                FileHash::readFully(fd, buffer.data() + block, size_t(block), m_size - block);
            if (fd >= 0)
                ::close(fd);
            if (!ok) {
                unreadable(m_inodes[i]);
                continue;
            }
            byBlocks.insert(XXH3_64bits(buffer.data(), buffer.size()), i);
        }
        for (const quint64 key : byBlocks.uniqueKeys()) {
            QList<size_t> candidates = byBlocks.values(key);
            std::sort(candidates.begin(), candidates.end());
            if (candidates.size() == 1) {
                // Its own links can still make a set; no other file can.
                if (m_inodes[candidates.first()].paths.size() > 1)
                    digestAlone(m_inodes[candidates.first()]);
                continue;
            }
            if (candidates.size() > maxOpenFiles)
                digestEach(candidates);
            else
                compareSideBySide(candidates);
        }
    }

    // So many candidates that holding them all open could exhaust the
    // descriptors: each is digested alone and the sets are taken by digest.
    static constexpr qsizetype maxOpenFiles = 256;
    void digestEach(const QList<size_t> &candidates)
    {
        QHash<QString, std::vector<const Inode *>> byDigest;
        for (const size_t i : candidates) {
            if (m_stopped())
                return;
            const QString digest = FileHash::md5HashOfFileAtPath(m_inodes[i].paths.first());
            if (!digest.isEmpty())
                byDigest[digest].push_back(&m_inodes[i]);
            else
                unreadable(m_inodes[i]);
        }
        for (auto it = byDigest.cbegin(); it != byDigest.cend(); ++it) {
            if (pathCount(it.value()) > 1)
                addSet(it.key(), it.value());
        }
    }

    struct Open {
        const Inode *inode;
        int fd;
        std::vector<char> chunk;
    };
    struct Set {
        std::vector<Open *> members;
        std::unique_ptr<Md5> md5;
    };

    void compareSideBySide(const QList<size_t> &candidates)
    {
        std::vector<std::unique_ptr<Open>> files;
        Set start{{}, std::make_unique<Md5>()};
        for (const size_t i : candidates) {
            const int fd = FileHash::openForReading(m_inodes[i].paths.first());
            if (fd < 0) {
                unreadable(m_inodes[i]);
                continue;
            }
            files.push_back(std::make_unique<Open>(Open{&m_inodes[i], fd, {}}));
            start.members.push_back(files.back().get());
        }
        std::vector<Set> sets;
        sets.push_back(std::move(start));
        const size_t chunk = FileHash::chunkSize;
        for (qint64 offset = 0; offset < m_size && !sets.empty(); offset += qint64(chunk)) {
            if (m_stopped())
                break;
            const size_t length = size_t(std::min<qint64>(qint64(chunk), m_size - offset));
            std::vector<Set> next;
            for (Set &set : sets) {
                std::vector<Open *> read;
                for (Open *f : set.members) {
                    f->chunk.resize(length);
                    if (FileHash::readFully(f->fd, f->chunk.data(), length, offset))
                        read.push_back(f);
                    else
                        unreadable(*f->inode);
                }
                // Split by content; every part carries the digest so far.
                std::vector<Set> parts;
                for (Open *f : read) {
                    auto same = std::find_if(parts.begin(), parts.end(), [&](const Set &p) {
                        return std::memcmp(p.members.front()->chunk.data(), f->chunk.data(),
                                           length) == 0;
                    });
                    if (same != parts.end()) {
                        same->members.push_back(f);
                        continue;
                    }
                    parts.push_back(Set{{f},
                                        parts.empty() ? std::move(set.md5)
                                                      : std::make_unique<Md5>(*parts.front().md5)});
                }
                for (Set &part : parts) {
                    std::vector<const Inode *> inodes;
                    for (Open *f : part.members)
                        inodes.push_back(f->inode);
                    if (pathCount(inodes) < 2)
                        continue;
                    part.md5->update(part.members.front()->chunk.data(), length);
                    next.push_back(std::move(part));
                }
            }
            sets = std::move(next);
        }
        if (!m_stopped()) {
            for (Set &set : sets) {
                std::vector<const Inode *> inodes;
                for (Open *f : set.members)
                    inodes.push_back(f->inode);
                addSet(set.md5->hexDigest(), inodes);
            }
        }
        for (const auto &f : files)
            ::close(f->fd);
    }

    qint64 m_size;
    const IdenticalContent::StopTest &m_stopped;
    SizeResult &m_out;
    std::vector<Inode> m_inodes;
};

} // namespace

QString IdenticalContent::emptyDigest()
{
    return Md5::of("", 0);
}

MD5AndPath IdenticalContent::group(const SizeAndPath &sizeAndPath, const MoreDoubleSize &sizes,
                                   const StopTest &stopped, int threads)
{
    // The biggest work first, so the cores finish together.
    std::vector<qint64> order(sizes.begin(), sizes.end());
    std::sort(order.begin(), order.end(), [&](qint64 a, qint64 b) {
        const qint64 wa = a * sizeAndPath.value(a).size(), wb = b * sizeAndPath.value(b).size();
        return wa != wb ? wa > wb : a > b;
    });
    if (threads <= 0)
        threads = std::max(2, QThread::idealThreadCount());
    threads = int(std::min<size_t>(size_t(threads), std::max<size_t>(order.size(), 1)));

    std::atomic<size_t> nextIndex{0};
    std::vector<SizeResult> results(static_cast<size_t>(threads));
    const auto work = [&](SizeResult &out) {
        for (size_t i = nextIndex++; i < order.size(); i = nextIndex++) {
            if (stopped())
                return;
            const auto it = sizeAndPath.constFind(order[i]);
            if (it != sizeAndPath.constEnd() && it->size() > 1)
                SizeGroup(order[i], *it, stopped, out).run();
        }
    };
    std::vector<std::thread> pool;
    for (int t = 1; t < threads; ++t)
        pool.emplace_back(work, std::ref(results[size_t(t)]));
    work(results[0]);
    for (std::thread &t : pool)
        t.join();

    MD5AndPath md5AndPath;
    QList<QByteArray> unreadable;
    for (SizeResult &r : results) {
        for (auto &[digest, paths] : r.sets)
            md5AndPath.insert(digest, paths);
        unreadable.append(r.unreadable);
    }
    if (!unreadable.isEmpty())
        md5AndPath.insert(emptyDigest(), unreadable);
    return md5AndPath;
}
