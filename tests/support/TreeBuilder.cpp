#include "TreeBuilder.h"

#include "cleaner/core/FileRemoval.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <linux/fs.h>
#include <pwd.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

TreeBuilder::TreeBuilder() : TreeBuilder(Place::Temporary) {}

TreeBuilder::TreeBuilder(Place place)
{
    if (place == Place::RealHome) {
        m_container = realHome() + QStringLiteral("/.cache/brenlow-tests");
        QDir().mkpath(m_container);
        m_dir = std::make_unique<QTemporaryDir>(m_container + QStringLiteral("/XXXXXX"));
    } else {
        m_dir = std::make_unique<QTemporaryDir>();
    }
    if (!m_dir->isValid())
        qFatal("cannot create a tree: %s", qPrintable(m_dir->errorString()));
    m_root = m_dir->path();
}

TreeBuilder::~TreeBuilder()
{
    // Names of raw bytes and locked folders are beyond QTemporaryDir's clean-up.
    if (m_dir) {
        makeRemovable(m_root);
        FileRemoval::removeItem(QFile::encodeName(m_root));
    }
    if (!m_container.isEmpty())
        ::rmdir(QFile::encodeName(m_container).constData()); // fails while other trees live
}

QString TreeBuilder::realHome()
{
    const passwd *pw = getpwuid(getuid());
    if (!pw || !pw->pw_dir)
        qFatal("the user running the tests has no entry in the password database");
    return QFile::decodeName(pw->pw_dir);
}

TreeBuilder::TreeBuilder(const QString &existingRoot) : m_root(existingRoot)
{
    QDir().mkpath(m_root);
}

QString TreeBuilder::path(const QString &relative) const
{
    return relative.isEmpty() ? m_root : m_root + QLatin1Char('/') + relative;
}

QByteArray TreeBuilder::pathBytes(const QByteArray &relative) const
{
    return QFile::encodeName(m_root) + '/' + relative;
}

QString TreeBuilder::file(const QString &relative, qint64 size, const QDateTime &modified)
{
    const QString p = path(relative);
    QDir().mkpath(QFileInfo(p).path());
    QFile f(p);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("cannot create %s", qPrintable(p));
    const QByteArray chunk(qMin<qint64>(size, 65536), 'b');
    for (qint64 left = size; left > 0; left -= chunk.size())
        f.write(chunk.constData(), qMin<qint64>(left, chunk.size()));
    f.close();
    if (modified.isValid()) {
        const qint64 ms = modified.toMSecsSinceEpoch();
        const struct timespec times[2] = {{ms / 1000, (ms % 1000) * 1000000},
                                          {ms / 1000, (ms % 1000) * 1000000}};
        utimensat(AT_FDCWD, QFile::encodeName(p).constData(), times, 0);
    }
    return p;
}

QString TreeBuilder::write(const QString &path, const QByteArray &data)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate) || f.write(data) != data.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

bool TreeBuilder::exists(const QByteArray &path)
{
    struct stat st;
    return lstat(path.constData(), &st) == 0;
}

bool TreeBuilder::exists(const QString &path)
{
    return exists(QFile::encodeName(path));
}

QByteArray TreeBuilder::fileBytes(const QByteArray &relative, qint64 size)
{
    const QByteArray p = pathBytes(relative);
    const int fd = ::open(p.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (fd < 0)
        qFatal("cannot create a file with a raw name");
    const QByteArray data(size, 'r');
    if (size > 0 && ::write(fd, data.constData(), size_t(size)) != size)
        qFatal("short write");
    ::close(fd);
    return p;
}

QString TreeBuilder::folder(const QString &relative)
{
    const QString p = path(relative);
    QDir().mkpath(p);
    return p;
}

QString TreeBuilder::symlink(const QString &relative, const QString &target)
{
    const QString p = path(relative);
    QDir().mkpath(QFileInfo(p).path());
    if (::symlink(QFile::encodeName(target).constData(), QFile::encodeName(p).constData()) != 0)
        qFatal("cannot create a link");
    return p;
}

void TreeBuilder::chmod(const QString &relative, int mode)
{
    ::chmod(QFile::encodeName(path(relative)).constData(), mode_t(mode));
}

QString TreeBuilder::url(const QString &relative) const
{
    const QString p = path(relative);
    return QStringLiteral("file://") + p + (QFileInfo(p).isDir() ? QStringLiteral("/") : QString());
}

void TreeBuilder::makeRemovable(const QString &root)
{
    ::chmod(QFile::encodeName(root).constData(), 0755);
    QDirIterator it(root, QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System,
                    QDirIterator::Subdirectories);
    while (it.hasNext())
        ::chmod(QFile::encodeName(it.next()).constData(), 0755);
}

void TreeBuilder::openToAll()
{
    ::chmod(QFile::encodeName(m_root).constData(), 0755);
}

bool TreeBuilder::setImmutable(const QByteArray &path, bool on)
{
    const int fd = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
    if (fd < 0)
        return false;
    int flags = 0;
    bool ok = ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    if (ok && bool(flags & FS_IMMUTABLE_FL) != on) {
        flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
        ok = ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    }
    ::close(fd);
    return ok;
}
