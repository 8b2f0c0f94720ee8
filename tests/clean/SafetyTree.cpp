#include "SafetyTree.h"

#include "cleaner/core/FileRemoval.h"
#include "support/TreeBuilder.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

bool SafetyArea::clearImmutable(const QByteArray &path)
{
    return TreeBuilder::setImmutable(path, false);
}

SafetyArea::SafetyArea(const QByteArray &parent)
{
    // Another run's last case may take the parent away between the two steps.
    for (int attempt = 0; attempt < 3 && m_path.isEmpty() && !parent.isEmpty(); ++attempt) {
        QByteArray templ = parent + "/XXXXXX";
        if (QDir().mkpath(QFile::decodeName(parent)) && mkdtemp(templ.data()))
            m_path = templ;
    }
}

SafetyArea::~SafetyArea()
{
    if (m_path.isEmpty())
        return;
    FileRemoval::removeItem(m_path);
    ::rmdir(m_path.left(m_path.lastIndexOf('/')).constData()); // the last case's
}

void SafetyArea::unlock(const QByteArray &path)
{
    struct stat st;
    if (lstat(path.constData(), &st) != 0 || S_ISLNK(st.st_mode))
        return;
    if (!S_ISDIR(st.st_mode)) {
        if (geteuid() == 0)
            TreeBuilder::setImmutable(path, false);
        return;
    }
    ::chmod(path.constData(), 0755);
    DIR *dir = opendir(path.constData());
    if (!dir)
        return;
    QList<QByteArray> names;
    while (const dirent *ent = readdir(dir)) {
        if (qstrcmp(ent->d_name, ".") && qstrcmp(ent->d_name, ".."))
            names.append(ent->d_name);
    }
    closedir(dir);
    for (const QByteArray &name : std::as_const(names))
        unlock(path + '/' + name);
}

QByteArray SafetyTree::oddName(int i)
{
    static const QList<QByteArray> names = {
        "a",         "b c",   "caf\xc3\xa9", "raw\xff\xfe",      "%41",    "x%20y",
        "new\nline", " lead", "dot.ext",     "\xc3\xbc\xc3\x9f", "tab\tx", "%2F"};
    return names[int(rng.bounded(quint32(names.size())))] + QByteArray::number(i);
}

QByteArray SafetyTree::pick(const QList<QByteArray> &from)
{
    return from.isEmpty() ? QByteArray() : from[int(rng.bounded(quint32(from.size())))];
}

QByteArray SafetyTree::folder(const QByteArray &path)
{
    // The parents of a fixed layout are plain names; a random name may not
    // decode, so the last step is made from the bytes themselves.
    const qsizetype slash = path.lastIndexOf('/');
    struct stat st;
    if (slash > 0 && lstat(path.left(slash).constData(), &st) != 0)
        QDir().mkpath(QFile::decodeName(path.left(slash)));
    ::mkdir(path.constData(), 0755);
    (buildingOutside ? outside : inside).folders.append(path);
    return path;
}

QByteArray SafetyTree::file(const QByteArray &path, bool plain)
{
    const int fd = ::open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0)
        return {};
    const qsizetype size = rng.bounded(4) == 0 ? 0 : qsizetype(rng.bounded(4096)) + 1;
    QList<quint32> words((size + 3) / 4);
    rng.fillRange(words.data(), words.size());
    if (::write(fd, words.constData(), size_t(size)) != size)
        qFatal("a short write while building a tree");
    ::close(fd);
    if (!plain && rng.bounded(12) == 0)
        ::chmod(path.constData(), 0);
    (buildingOutside ? outside : inside).files.append(path);
    return path;
}

void SafetyTree::link(const QByteArray &path)
{
    const Pool &pool = rng.bounded(2) ? inside : outside;
    switch (rng.bounded(5)) {
    case 0: // a dangling link
        ::symlink(QByteArray(path + ".missing").constData(), path.constData());
        return;
    case 1: // a hard link to a file
        if (const QByteArray target = pick(pool.files); !target.isEmpty())
            ::link(target.constData(), path.constData());
        return;
    case 2:
        if (const QByteArray target = pick(pool.folders); !target.isEmpty())
            ::symlink(target.constData(), path.constData());
        return;
    default:
        if (const QByteArray target = pick(pool.files); !target.isEmpty())
            ::symlink(target.constData(), path.constData());
        return;
    }
}

void SafetyTree::populate(const QByteArray &path, int depth)
{
    folder(path);
    const int count = 1 + int(rng.bounded(4));
    for (int i = 0; i < count; ++i) {
        const QByteArray entry = path + '/' + oddName(i);
        const quint32 kind = rng.bounded(10);
        if (kind < 5 || (kind < 7 && depth >= 3)) {
            file(entry);
        } else if (kind < 7) {
            populate(entry, depth + 1);
            if (rng.bounded(10) == 0)
                ::chmod(entry.constData(), 0); // unreadable, and its items too
        } else {
            link(entry);
        }
    }
}

void SafetyTree::setBuildingOutside(bool on)
{
    buildingOutside = on;
}

void SafetyTree::makeSomeImmutable()
{
    if (geteuid() != 0)
        return;
    const int count = int(rng.bounded(3));
    for (int i = 0; i < count; ++i) {
        const QByteArray target = pick(rng.bounded(3) ? inside.files : outside.files);
        struct stat st;
        if (target.isEmpty() || lstat(target.constData(), &st) != 0)
            continue;
        // A file system without the flag answers EOPNOTSUPP or ENOTTY: no
        // immutable entries then.
        if (TreeBuilder::setImmutable(target, true))
            immutable.insert({st.st_dev, st.st_ino});
        else if (errno == EOPNOTSUPP || errno == ENOTTY)
            return;
    }
}
