#pragma once

#include <QByteArray>
#include <QList>
#include <QRandomGenerator>
#include <QSet>
#include <sys/types.h>
#include <utility>

// A private folder for one case, removed with everything in it at the end
// (its owner unlocks what needs it first).
class SafetyArea {
public:
    // Made inside `parent` (created as needed); empty path() when that fails.
    explicit SafetyArea(const QByteArray &parent);
    ~SafetyArea();
    SafetyArea(const SafetyArea &) = delete;
    SafetyArea &operator=(const SafetyArea &) = delete;

    const QByteArray &path() const { return m_path; }
    // Gives back every right and clears the immutable flag below a path.
    static void unlock(const QByteArray &path);
    static bool clearImmutable(const QByteArray &path);

private:
    QByteArray m_path;
};

// Builds random trees: files of random sizes and bytes, nested folders,
// symbolic links to files and folders inside and outside the tree and
// dangling ones, hard links, odd names, unreadable entries and (for root,
// where the file system allows it) immutable files.
class SafetyTree {
public:
    explicit SafetyTree(QRandomGenerator &rng) : rng(rng) {}

    // Fills a folder (created as needed) with random entries to `depth`.
    void populate(const QByteArray &folder, int depth);
    // A file of random size and bytes; `plain` keeps it readable.
    QByteArray file(const QByteArray &path, bool plain = false);
    QByteArray folder(const QByteArray &path);
    // Entries made while on count as outside the tree (links point there too).
    void setBuildingOutside(bool on);
    // Makes a few of the files built so far immutable (root only; nothing
    // where the file system has no such flag).
    void makeSomeImmutable();

    // A name from the odd-name pool, made unique by `i`.
    QByteArray oddName(int i);

    // Immutable inodes, by device and inode number.
    QSet<std::pair<dev_t, ino_t>> immutable;

private:
    struct Pool {
        QList<QByteArray> files, folders;
    };
    void link(const QByteArray &path);
    QByteArray pick(const QList<QByteArray> &from);

    QRandomGenerator &rng;
    Pool inside, outside;
    bool buildingOutside = false;
};
