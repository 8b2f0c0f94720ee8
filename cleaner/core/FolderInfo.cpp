#include "cleaner/core/FolderInfo.h"

#include "cleaner/core/Dispatch.h"
#include "cleaner/core/FileRemoval.h"
#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Platform.h"

#include <QFile>
#include <QMimeDatabase>
#include <cerrno>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

QString displayPath(const QByteArray &path)
{
    return ResourceValues::displayName(path);
}

// Diagnostics of a walk: standard output belongs to the results.
void printLine(const char *text, const QString &what)
{
    std::fprintf(stderr, "%s%s\n", text, what.toLocal8Bit().constData());
}

} // namespace

FolderInfo::FolderInfo(int findex, QString name, QString icon, qint64 size, QColor color,
                       bool isFolder, QDateTime date, QUrl url, bool isPackage,
                       QList<FolderInfoPtr> children, bool hidden, int checked, QString dbNumber)
    : findex(findex), name(std::move(name)), icon(std::move(icon)), size(size),
      color(std::move(color)), isFolder(isFolder), date(std::move(date)), url(std::move(url)),
      isPackage(isPackage), children(std::move(children)), hidden(hidden), checked(checked),
      dbNumber(std::move(dbNumber))
{}

FolderInfoPtr FolderInfo::make(int findex, QString name, QString icon, qint64 size, QColor color,
                               bool isFolder, QDateTime date, QUrl url, bool isPackage,
                               QList<FolderInfoPtr> children, bool hidden, int checked,
                               QString dbNumber)
{
    return std::make_shared<FolderInfo>(
        findex, std::move(name), std::move(icon), size, std::move(color), isFolder, std::move(date),
        std::move(url), isPackage, std::move(children), hidden, checked, std::move(dbNumber));
}

QString FolderInfo::iconName() const
{
    if (!icon.isEmpty())
        return icon;
    if (isPackage)
        return QStringLiteral("package-x-generic");
    if (isFolder)
        return QStringLiteral("folder");
    if (!dbNumber.isEmpty() || name.isEmpty())
        return QStringLiteral("NSFolder");
    static const QMimeDatabase db;
    const QMimeType type = db.mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    return type.isDefault() ? QStringLiteral("NSFolder") : type.iconName();
}

QDateTime FolderInfo::distantPast()
{
    return QDateTime(QDate(1, 1, 1), QTime(0, 0), Qt::UTC);
}

QUrl FolderInfo::urlFromPath(const QByteArray &path)
{
    return QUrl::fromEncoded(QByteArrayLiteral("file://") + path.toPercentEncoding("/"));
}

QUrl FolderInfo::urlFromPath(const QString &path)
{
    return urlFromPath(QFile::encodeName(path));
}

QString FolderInfo::absoluteString(const QUrl &url)
{
    return QString::fromLatin1(url.toEncoded());
}

QByteArray FolderInfo::pathBytes(const QUrl &url)
{
    if (!url.isLocalFile())
        return {};
    return QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
}

void FolderInfo::postProgress(const Progress &progress, const QString &path, qint64 size)
{
    if (progress)
        Dispatch::mainAsync([progress, path, size] { progress(path, size); });
}

void FolderInfo::postPercent(const ShowPercent &showPercent, float value)
{
    if (showPercent)
        Dispatch::mainAsync([showPercent, value] { showPercent(value); });
}

FolderInfoPtr FolderInfo::nodeFromValues(const ResourceValues &values, int findex, int checked)
{
    FolderInfoPtr node = make(
        findex, values.localizedName, QString(), values.fileSize.value_or(0), QColor(),
        values.isDirectory,
        values.contentModificationDate.isValid() ? values.contentModificationDate : distantPast(),
        urlFromPath(values.path), values.isPackage, {}, values.isHidden, checked, QString());
    node->identity = values.identity;
    return node;
}

namespace {

// The root of a walk: a readable item that is not a symbolic link.
std::optional<ResourceValues> rootValues(const FolderUrl &url, QByteArray *path)
{
    const QUrl u(url.url);
    if (url.url.isEmpty() || !u.isValid() || !u.isLocalFile())
        return std::nullopt;
    *path = FolderInfo::pathBytes(u);
    // Without its trailing slash, so that a link in the last place is seen as a link.
    while (path->size() > 1 && path->endsWith('/'))
        path->chop(1);
    struct stat st;
    if (path->isEmpty())
        return std::nullopt;
    if (fstatat(AT_FDCWD, path->constData(), &st, AT_SYMLINK_NOFOLLOW) != 0) {
        // A root that is not there is no error; one that cannot be read is.
        if (errno != ENOENT && errno != ENOTDIR)
            printLine("Error in get attribute of file ", url.url);
        return std::nullopt;
    }
    if (S_ISLNK(st.st_mode))
        return std::nullopt; // a category never lists what a link points to
    return ResourceValues::fromStat(*path, st);
}

FolderInfoPtr rootNode(const FolderUrl &url, bool includeChildren, const Progress &progress,
                       const std::function<ChildrenInfo(const FolderUrl &)> &children)
{
    QByteArray path;
    const auto values = rootValues(url, &path);
    if (!values)
        return nullptr;
    FolderInfoPtr node = FolderInfo::nodeFromValues(*values, 0, url.checked);
    if (values->isDirectory && includeChildren) {
        ChildrenInfo info = children(url);
        node->children = std::move(info.children);
        node->size = info.totalSize;
    }
    // A walked folder's entries were reported one by one; reporting its sum
    // as well would count every entry twice.
    const bool walked = values->isDirectory && includeChildren;
    if (progress && !walked) {
        const QString shown = displayPath(path);
        const qint64 size = node->size;
        Dispatch::mainAsync([progress, shown, size] { progress(shown, size); });
    }
    return node;
}

} // namespace

FolderInfoPtr FolderInfo::folderInfo(const FolderUrl &url, bool includeChildren,
                                     const Progress &progress)
{
    return rootNode(url, includeChildren, progress,
                    [&](const FolderUrl &u) { return childrenOfDirectory(u, progress); });
}

FolderInfoPtr FolderInfo::filterFolderInfo(const FolderUrl &url, bool includeChildren,
                                           const Progress &progress, const WalkFilter &filter)
{
    return rootNode(url, includeChildren, progress, [&](const FolderUrl &u) {
        return filterChildrenOfDirectory(u, progress, filter);
    });
}

namespace {

// The entries of a folder as nodes: one level deep, or, with a filter, from
// any depth, an accepted folder being listed whole and not walked into.
ChildrenInfo listEntries(const FolderUrl &folderURL, const Progress &progress, int options,
                         const WalkFilter &filter)
{
    ChildrenInfo info;
    auto e = DirectoryEnumerator::create(FolderInfo::pathBytes(QUrl(folderURL.url)), options);
    if (!e)
        return info;
    while (e->next()) {
        if (!e->currentReadable()) {
            printLine("Error reading file attributes", QString());
            continue;
        }
        const ResourceValues &values = e->values();
        FolderInfoPtr node =
            FolderInfo::nodeFromValues(values, int(info.children.size()), folderURL.checked);
        if (filter && !filter(node->url, *e))
            continue; // refused: the walk goes on into it
        if (!values.fileSize)
            node->size = FolderInfo::getFolderSize(node->url);
        info.totalSize += node->size;
        if (progress) {
            const QString shown = displayPath(values.path);
            const qint64 size = node->size;
            Dispatch::mainAsync([progress, shown, size] { progress(shown, size); });
        }
        info.children.append(std::move(node));
        if (values.isDirectory)
            e->skipDescendants();
    }
    return info;
}

} // namespace

ChildrenInfo FolderInfo::childrenOfDirectory(const FolderUrl &folderURL, const Progress &progress)
{
    return listEntries(folderURL, progress,
                       DirectoryEnumerator::SkipsPackageDescendants |
                           DirectoryEnumerator::SkipsSubdirectoryDescendants,
                       nullptr);
}

ChildrenInfo FolderInfo::filterChildrenOfDirectory(const FolderUrl &folderURL,
                                                   const Progress &progress,
                                                   const WalkFilter &filter)
{
    return listEntries(folderURL, progress, DirectoryEnumerator::SkipsPackageDescendants, filter);
}

ChildrenInfo FolderInfo::filesFromDirWithFilter(const FolderUrl &folderURL,
                                                const Progress &progress,
                                                const ShowPercent &showPercent,
                                                const TypeFilter &filter)
{
    ChildrenInfo info;
    const QByteArray root = pathBytes(QUrl(folderURL.url));

    int topCount = -1;
    if (auto top = DirectoryEnumerator::create(
            root, DirectoryEnumerator::SkipsPackageDescendants |
                      DirectoryEnumerator::SkipsSubdirectoryDescendants |
                      DirectoryEnumerator::SkipsHiddenFiles)) {
        topCount = 0;
        while (top->next())
            ++topCount;
    }
    const float step = topCount < 0 ? 0.5f : 1.0f / float(topCount + 1);

    auto e = DirectoryEnumerator::create(root, DirectoryEnumerator::SkipsPackageDescendants |
                                                   DirectoryEnumerator::SkipsHiddenFiles);
    qint64 pending = 0;
    while (e && e->next()) {
        if (!e->currentReadable()) {
            printLine("Error reading file attributes from ", displayPath(e->path()));
            continue;
        }
        if (e->level() == 1)
            postPercent(showPercent, step);
        const ResourceValues &values = e->values();
        const FilterType verdict = filter ? filter(values, *e) : FilterType::NoSkip;
        if (verdict == FilterType::SkipChildren || verdict == FilterType::SkipSelfAndChildren)
            e->skipDescendants();
        if (verdict == FilterType::SkipSelf || verdict == FilterType::SkipSelfAndChildren)
            continue;
        const qint64 size = values.fileSize.value_or(0);
        info.totalSize += size;
        pending += size;
        // Deep entries only add to the pending sum, so a deep tree cannot
        // flood the main queue with progress calls.
        if (e->level() < 5) {
            postProgress(progress, displayPath(values.path), pending);
            pending = 0;
        }
        FolderInfoPtr node = nodeFromValues(values, int(info.children.size()), folderURL.checked);
        node->color = QColor(Qt::black);
        info.children.append(std::move(node));
    }
    if (pending > 0)
        postProgress(progress, QString(), pending);
    return info;
}

qint64 FolderInfo::getFolderSize(const QUrl &url)
{
    const QByteArray path = pathBytes(url);
    struct stat st;
    if (path.isEmpty() || fstatat(AT_FDCWD, path.constData(), &st, AT_SYMLINK_NOFOLLOW) != 0 ||
        !S_ISDIR(st.st_mode))
        return 0;
    qint64 total = 0;
    auto e = DirectoryEnumerator::create(path);
    while (e && e->next())
        total += e->fileSize().value_or(0);
    return total;
}

namespace {

qint64 fastSize(int dirFd)
{
    DIR *dir = fdopendir(dirFd);
    if (!dir) {
        close(dirFd);
        return 0;
    }
    qint64 total = 0;
    while (struct dirent *ent = readdir(dir)) {
        const char *name = ent->d_name;
        if (name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0)))
            continue;
        if (strstr(name, ".DS_Store"))
            continue;
        struct stat st;
        if (fstatat(dirfd(dir), name, &st, AT_SYMLINK_NOFOLLOW) != 0)
            continue;
        if (S_ISDIR(st.st_mode)) {
            const int fd =
                openat(dirfd(dir), name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
            if (fd >= 0)
                total += fastSize(fd);
        } else {
            total += qint64(st.st_size);
        }
    }
    closedir(dir);
    return total;
}

} // namespace

qint64 FolderInfo::fastFolderSizeAtFSRef(const QString &theFilePath)
{
    const int fd = open(QFile::encodeName(theFilePath).constData(),
                        O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    return fd < 0 ? 0 : fastSize(fd);
}

QHash<QString, qint64>
FolderInfo::getFolderUsageWithFilter(const QUrl &url,
                                     const std::function<bool(const QString &)> &filter)
{
    QHash<QString, qint64> usage;
    auto e = DirectoryEnumerator::create(pathBytes(url),
                                         DirectoryEnumerator::SkipsSubdirectoryDescendants);
    while (e && e->next()) {
        const ResourceValues &values = e->values();
        if (filter && filter(values.localizedName))
            continue;
        usage.insert(values.localizedName, values.isDirectory
                                               ? getFolderSize(urlFromPath(values.path))
                                               : values.fileSize.value_or(0));
    }
    return usage;
}

void FolderInfo::asyncGetFolderSize(const QUrl &url, std::function<void(qint64)> doneCalculating)
{
    Dispatch::globalAsync([url, done = std::move(doneCalculating)] {
        const qint64 size = getFolderSize(url);
        Dispatch::mainAsync([done, size] { done(size); });
    });
}

void FolderInfo::asyncGetFolderUsageWithFilter(
    const QUrl &url, std::function<bool(const QString &)> filter,
    std::function<void(QHash<QString, qint64>)> doneCalculating)
{
    Dispatch::globalAsync([url, filter = std::move(filter), done = std::move(doneCalculating)] {
        auto usage = getFolderUsageWithFilter(url, filter);
        Dispatch::mainAsync([done, usage = std::move(usage)] { done(usage); });
    });
}

QString FolderInfo::getUserHomeDirectory()
{
    return Platform::homeDirectory();
}

bool FolderInfo::deleteFile(const QUrl &url)
{
    return FileRemoval::removeItem(pathBytes(url)).removed();
}

FileRemoval::Result FolderInfo::deleteFile(const QByteArray &path, const ItemIdentity &expected)
{
    return FileRemoval::removeListed(path, expected);
}
