#include "cleaner/finders/DuplicateService.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/DirectoryEnumerator.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/KestalFinderScan.h"
#include "cleaner/finders/Md5.h"
#include "cleaner/finders/SharedWork.h"
#include "cleaner/scan/KestalService.h"

#include <QFile>
#include <QMimeDatabase>
#include <QMutex>
#include <QScopeGuard>
#include <QtConcurrent/QtConcurrentMap>
#include <algorithm>
#include <cstring>
#include <optional>

namespace {

// The generation of the scan running on this thread: its later stages stay
// silenced by a newer scan that started in between.
thread_local std::optional<quint64> t_scanGeneration;

quint64 currentGeneration()
{
    return t_scanGeneration.value_or(DuplicateService::generation().current());
}

struct TopEntry {
    QByteArray path;
    bool isDirectory = false;
    bool isRegularFile = false;
    qint64 size = 0;
    dev_t device = 0;
    ino_t inode = 0;
};

bool barred(const char *name)
{
    static const std::vector<QByteArray> fragments = [] {
        std::vector<QByteArray> list;
        for (const QString &fragment : DuplicateService::Back_List())
            list.push_back(fragment.toUtf8());
        return list;
    }();
    for (const QByteArray &fragment : fragments) {
        if (std::strstr(name, fragment.constData()))
            return true;
    }
    return false;
}

const char *lastComponent(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    return path.constData() + slash + 1;
}

// The MIME database's description of a name, by its extension: reading each
// group's content for its type would cost more than finding the group. One
// lookup an extension: the database compiles its wildcard patterns on every
// lookup, which cost more than the rest of the collating.
QString typeDescription(const QString &name)
{
    static const QMimeDatabase mimeTypes;
    static QMutex lock;
    static QHash<QString, QString> byExtension;
    const qsizetype dot = name.indexOf(QLatin1Char('.'), 1);
    const QString key = dot < 0 ? QString() : name.mid(dot).toLower();
    if (!key.isEmpty()) {
        QMutexLocker locked(&lock);
        const auto it = byExtension.constFind(key);
        if (it != byExtension.constEnd())
            return *it;
    }
    const QMimeType type = mimeTypes.mimeTypeForFile(name, QMimeDatabase::MatchExtension);
    const QString description = type.isDefault() ? QString() : type.comment();
    if (!key.isEmpty()) {
        QMutexLocker locked(&lock);
        byExtension.insert(key, description);
    }
    return description;
}

void post(quint64 generation, Dispatch::Work work)
{
    Dispatch::mainAsync([generation, work = std::move(work)] {
        if (!DuplicateService::stopped(generation))
            work();
    });
}

// One walker's share of the result; the shares are merged at the end.
struct WalkShare {
    SizeAndPath sizeAndPath;
    // The folders held open, one a depth, each with its path: a folder's
    // files can come before and after those of its subfolders.
    std::vector<std::pair<QByteArray, std::shared_ptr<const OpenFolder>>> folders;

    void save(const DirectoryEnumerator &e)
    {
        const QByteArray &path = e.path();
        const qsizetype slash = path.lastIndexOf('/');
        const size_t depth = size_t(e.level());
        if (folders.size() < depth)
            folders.resize(depth);
        auto &[folderPath, folder] = folders[depth - 1];
        if (folderPath.size() != slash ||
            std::memcmp(folderPath.constData(), path.constData(), size_t(slash)) != 0) {
            folderPath = path.left(slash);
            folder = OpenFolder::hold(e.folderDescriptor());
        }
        const struct stat &st = e.stat();
        sizeAndPath[qint64(st.st_size)].append(WalkedFile{path, st.st_dev, st.st_ino, folder});
    }
};

void walkFolder(const QByteArray &folder, qint64 limit, quint64 generation, WalkShare &share)
{
    auto e = DirectoryEnumerator::create(folder, DirectoryEnumerator::SkipsPackageDescendants |
                                                     DirectoryEnumerator::SkipsHiddenFiles);
    unsigned count = 0;
    while (e && e->next()) {
        if ((++count & 255) == 0 && DuplicateService::stopped(generation))
            return;
        if (barred(lastComponent(e->path()))) {
            e->skipDescendants();
            continue;
        }
        if (!e->currentReadable())
            continue;
        const struct stat &st = e->stat();
        if (S_ISREG(st.st_mode) && qint64(st.st_size) > limit)
            share.save(*e);
    }
}

} // namespace

qint64 DuplicateService::size = 512;
const QString DuplicateService::emptyFileName = QStringLiteral("Not the same file");
const QString DuplicateService::emptyCateDesc =
    QStringLiteral("There are no files available for duplication");

QString &DuplicateService::path()
{
    static QString root = Platform::homeDirectory() + QStringLiteral("/Downloads");
    return root;
}

const QStringList &DuplicateService::Back_List()
{
    static const QStringList list{QStringLiteral("Applications"), QStringLiteral(".app"),
                                  QStringLiteral(".framework"),   QStringLiteral(".dSYM"),
                                  QStringLiteral(".pptheme"),     QStringLiteral(".xcassets")};
    return list;
}

QMap<DuplicateService::duplicateKind, QList<Category>> &DuplicateService::duplicateKindCategory()
{
    static QMap<duplicateKind, QList<Category>> map;
    return map;
}

std::pair<DuplicateService::duplicateKind, QString> &DuplicateService::currentKind()
{
    static std::pair<duplicateKind, QString> kind{duplicateKind::other, QStringLiteral("other")};
    return kind;
}

QMap<qint64, std::pair<DuplicateService::duplicateKind, QString>> DuplicateService::duplicateId()
{
    return {{0, {duplicateKind::video, getLocalizedString(QStringLiteral("Videos "))}},
            {1, {duplicateKind::music, getLocalizedString(QStringLiteral("Music "))}},
            {2, {duplicateKind::image, getLocalizedString(QStringLiteral("Images "))}},
            {3, {duplicateKind::documents, getLocalizedString(QStringLiteral("Documents "))}},
            {4, {duplicateKind::other, getLocalizedString(QStringLiteral("Others"))}},
            {5, {duplicateKind::all, getLocalizedString(QStringLiteral("All"))}}};
}

KestalFinderScan::Generation &DuplicateService::generation()
{
    static KestalFinderScan::Generation g;
    return g;
}

bool DuplicateService::stopped(quint64 g)
{
    return generation().stopped(g, moduleIndex);
}

void DuplicateService::storeCategories(const QList<Category> &categories)
{
    KestalFinderScan::storeCategories(moduleIndex, categories);
}

std::pair<SizeAndPath, MoreDoubleSize> DuplicateService::walk(const QByteArray &root, qint64 limit)
{
    const quint64 generation = currentGeneration();
    QList<TopEntry> top;
    if (auto e =
            DirectoryEnumerator::create(root, DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                                  DirectoryEnumerator::SkipsHiddenFiles)) {
        while (e->next()) {
            if (!e->currentReadable())
                continue;
            const struct stat &st = e->stat();
            top.append(TopEntry{e->path(), S_ISDIR(st.st_mode), S_ISREG(st.st_mode),
                                qint64(st.st_size), st.st_dev, st.st_ino});
        }
    }
    // The top-level entries are shared out among the cores.
    std::vector<WalkShare> shares = shareOut<WalkShare>(
        size_t(top.size()),
        [&](size_t i, WalkShare &share) {
            const TopEntry &entry = top[qsizetype(i)];
            // A package at the top is no more entered than one deeper down.
            if (barred(lastComponent(entry.path)) ||
                (entry.isDirectory && ResourceValues::isPackageName(lastComponent(entry.path))))
                return;
            if (entry.isDirectory)
                walkFolder(entry.path, limit, generation, share);
            else if (entry.isRegularFile && entry.size > limit)
                share.sizeAndPath[entry.size].append(
                    WalkedFile{entry.path, entry.device, entry.inode, nullptr});
        },
        [generation] { return stopped(generation); });

    SizeAndPath sizeAndPath = std::move(shares[0].sizeAndPath);
    for (size_t t = 1; t < shares.size(); ++t) {
        for (auto it = shares[t].sizeAndPath.begin(); it != shares[t].sizeAndPath.end(); ++it)
            sizeAndPath[it.key()].append(std::move(it.value()));
    }
    MoreDoubleSize moreDoubleSize;
    for (auto it = sizeAndPath.cbegin(); it != sizeAndPath.cend(); ++it) {
        if (it.value().size() > 1)
            moreDoubleSize.insert(it.key());
    }
    return {std::move(sizeAndPath), std::move(moreDoubleSize)};
}

void DuplicateService::scan(const Progress &progress, const ShowPercent &showPercent,
                            const Done &done)
{
    const quint64 generation = DuplicateService::generation().current();
    t_scanGeneration = generation;
    const auto forget = qScopeGuard([] { t_scanGeneration.reset(); });
    qint64 limit = 0;
    if (__builtin_mul_overflow(size, qint64(1024), &limit))
        fatalStop(QStringLiteral("the duplicate size limit %1 KiB overflows").arg(size));
    const QByteArray root = QFile::encodeName(path());

    // The top level's entries are what the progress names as the walk goes.
    bool any = false;
    if (auto e =
            DirectoryEnumerator::create(root, DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                                  DirectoryEnumerator::SkipsHiddenFiles)) {
        QStringList names;
        while (e->next())
            names << FolderInfo::absoluteString(FolderInfo::urlFromPath(e->path()));
        any = !names.isEmpty();
        if (any && showPercent)
            post(generation, [showPercent] { showPercent(1.0f / 3.0f); });
        if (progress && any)
            post(generation, [progress, names] {
                for (const QString &name : names)
                    progress(name, 0);
            });
    }
    auto [sizeAndPath, moreDoubleSize] = walk(root, limit);
    if (stopped(generation))
        return;
    post(generation, [progress, showPercent] {
        if (progress)
            progress(getLocalizedString(QStringLiteral("Analyzing Data")), 0);
        if (showPercent)
            showPercent(1.0f / 3.0f);
    });
    analysisSizeAndPathData(sizeAndPath, moreDoubleSize, progress, showPercent, done);
}

void DuplicateService::analysisSizeAndPathData(const SizeAndPath &sizeAndPath,
                                               const MoreDoubleSize &moreDoubleSize,
                                               const Progress &progress,
                                               const ShowPercent &showPercent, const Done &done)
{
    const quint64 generation = currentGeneration();
    const MD5AndPath md5AndPath = IdenticalContent::group(
        sizeAndPath, moreDoubleSize, [generation] { return stopped(generation); });
    if (stopped(generation))
        return;
    post(generation, [progress] {
        if (progress)
            progress(getLocalizedString(QStringLiteral("Collating data")), 0);
    });
    organizeData(md5AndPath, progress, showPercent, done);
}

QString DuplicateService::dataConversionToMD5String(const QByteArray &data)
{
    if (quint64(data.size()) > 4294967294ULL)
        return QString();
    return Md5::of(data.constData(), size_t(data.size()));
}

Category DuplicateService::categoryOfSet(QList<QByteArray> paths, int finder)
{
    QList<std::pair<QString, QByteArray>> byUrl;
    for (const QByteArray &p : paths)
        byUrl.append({FolderInfo::absoluteString(FolderInfo::urlFromPath(p)), p});
    std::sort(byUrl.begin(), byUrl.end(),
              [](const auto &a, const auto &b) { return a.first > b.first; });

    const QString fallbackName = QStringLiteral("file");
    Category c;
    c.image = QStringLiteral("App_Cache");
    c.url = FolderUrl{QString(), QStringLiteral("Folder"), 0};
    c.type = QStringLiteral("other");
    c.title = fallbackName;
    c.finder = finder;
    for (const auto &[url, p] : std::as_const(byUrl)) {
        const int findex = int(c.files.size());
        FolderInfoPtr node;
        if (const std::optional<ResourceValues> values = ResourceValues::read(p)) {
            node = FolderInfo::nodeFromValues(*values, findex, 0);
            if (node->name.isEmpty())
                node->name = fallbackName;
            if (!values->contentModificationDate.isValid())
                node->date = QDateTime::currentDateTime();
            node->isFolder = false;
            node->isPackage = false;
            node->hidden = false;
        } else {
            node = FolderInfo::make(findex, fallbackName, QString(), 0, QColor(), false,
                                    QDateTime::currentDateTime(), FolderInfo::urlFromPath(p), false,
                                    {}, false, 0, QString());
        }
        if (findex == 0) {
            c.title = node->name;
            const QString type = typeDescription(node->name);
            if (!type.isEmpty())
                c.type = type;
        }
        c.files.append(std::move(node));
    }
    c.size = c.files.isEmpty() ? 0 : c.files.size() * c.files.first()->size;
    return c;
}

void DuplicateService::organizeData(const MD5AndPath &md5AndPath, const Progress &progress,
                                    const ShowPercent &showPercent, const Done &done)
{
    Q_UNUSED(showPercent);
    const quint64 generation = currentGeneration();
    // The earlier result stays on show until here.
    post(generation, [] { storeCategories({}); });

    QList<QList<QByteArray>> sets;
    for (auto it = md5AndPath.cbegin(); it != md5AndPath.cend(); ++it) {
        if (it.value().size() >= 2)
            sets.append(it.value());
    }
    // Each group's files are read for their display values on all cores.
    QList<Category> categories =
        QtConcurrent::blockingMapped(sets, [generation](const QList<QByteArray> &paths) {
            return stopped(generation) ? Category() : categoryOfSet(paths, 0);
        });
    if (stopped(generation))
        return;
    // The digests come in no useful order: the biggest groups lead.
    std::sort(categories.begin(), categories.end(), [](const Category &a, const Category &b) {
        if (a.size != b.size)
            return a.size > b.size;
        return FolderInfo::absoluteString(a.files.first()->url) >
               FolderInfo::absoluteString(b.files.first()->url);
    });
    // Posted in batches, so a large result neither floods the main queue nor
    // appears only at the end.
    constexpr qsizetype batch = 256;
    for (qsizetype start = 0; start < categories.size(); start += batch) {
        QList<Category> part = categories.mid(start, batch);
        qint64 found = 0;
        for (qsizetype i = 0; i < part.size(); ++i) {
            part[i].finder = int(start + i);
            found += part[i].size;
        }
        post(generation, [part = std::move(part), found, progress] {
            QList<Category> shown =
                AppModuleService::appModules()[moduleIndex].categories.value_or(QList<Category>());
            shown.append(part);
            storeCategories(shown);
            if (progress)
                progress(getLocalizedString(QStringLiteral("Collating data")), found);
        });
    }
    post(generation, [done] {
        if (done)
            done();
    });
}
