#include "cleaner/finders/SimilarService.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/DirectoryEnumerator.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/ResourceValues.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/finders/ImageHashes.h"
#include "cleaner/finders/SharedWork.h"
#include "cleaner/finders/SimilarFolderInfo.h"
#include "cleaner/scan/KestalService.h"

#include <QFile>
#include <QMimeDatabase>
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Hashed = QList<std::pair<QByteArray, QList<qint64>>>;

void post(quint64 generation, Dispatch::Work work)
{
    Dispatch::mainAsync([generation, work = std::move(work)] {
        if (!SimilarService::stopped(generation))
            work();
    });
}

QString urlString(const QByteArray &path)
{
    return FolderInfo::absoluteString(FolderInfo::urlFromPath(path));
}

// A picture's node; `fallback` names it when its values cannot be read.
FolderInfoPtr pictureNode(const QByteArray &path, int findex, const QString &fallback)
{
    const std::optional<ResourceValues> values = ResourceValues::read(path);
    if (!values)
        return FolderInfo::make(findex, fallback, QString(), 0, QColor(), false,
                                QDateTime::currentDateTime(), FolderInfo::urlFromPath(path), false,
                                {}, false, 0, QString());
    FolderInfoPtr node = FolderInfo::nodeFromValues(*values, findex, 0);
    if (node->name.isEmpty())
        node->name = fallback;
    if (!values->contentModificationDate.isValid())
        node->date = QDateTime::currentDateTime();
    node->isFolder = false;
    node->isPackage = false;
    node->hidden = false;
    return node;
}

} // namespace

qint64 SimilarService::threshold = 3;
const QString SimilarService::emptyFileName = QStringLiteral("Not the same file");
const QString SimilarService::emptyCateDesc =
    QStringLiteral("There are no files available for deduplication");

QString &SimilarService::path()
{
    static QString root = picturesFolder();
    return root;
}

QList<qint64> SimilarService::thresholdChoices()
{
    return {1, 2, 3, 4, 5, 6, 8, 10};
}

QString SimilarService::picturesFolder()
{
    return Platform::homeDirectory() + QStringLiteral("/Pictures");
}

const QStringList &SimilarService::derivativeWords()
{
    // macOS Photos keeps unadjusted renderings and thumbnails in its library;
    // on Linux the photo managers' thumbnail folders and darktable's default
    // export folder beside the originals play that part.
    static const QStringList macos{QStringLiteral("UNADJUSTEDNONRAW"), QStringLiteral("thumb")};
    static const QStringList freedesktop{QStringLiteral("thumb"),
                                         QStringLiteral("darktable_exported")};
    return Platform::isMacOS() ? macos : freedesktop;
}

KestalFinderScan::Generation &SimilarService::generation()
{
    static KestalFinderScan::Generation g;
    return g;
}

bool SimilarService::stopped(quint64 g)
{
    return generation().stopped(g, moduleIndex);
}

void SimilarService::storeCategories(const QList<Category> &categories)
{
    KestalFinderScan::storeCategories(moduleIndex, categories);
}

bool SimilarService::similarFilter(const QByteArray &path)
{
    const QByteArray name = ResourceValues::lastComponent(path);
    for (const QString &fragment : DuplicateService::Back_List()) {
        if (name.contains(fragment.toUtf8()))
            return false;
    }
    return true;
}

bool SimilarService::isPictureName(const QByteArray &path)
{
    static const QByteArrayList extensions{".JPG", ".JPEG", ".jpeg", ".jpg", ".PNG", ".png"};
    const QByteArray name = ResourceValues::lastComponent(path);
    return std::any_of(extensions.cbegin(), extensions.cend(),
                       [&](const QByteArray &e) { return name.contains(e); });
}

std::optional<QByteArray> SimilarService::pictureContents(const QByteArray &filePath)
{
    if (!isPictureName(filePath))
        return std::nullopt;
    // Not blocking, so a pipe that carries a picture's name cannot hold the
    // scan; only a regular file (or a link to one) has contents to read.
    const int fd = ::open(filePath.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (fd < 0)
        return std::nullopt;
    struct stat st;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return std::nullopt;
    }
    QFile file;
    if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        return std::nullopt;
    }
    QByteArray contents = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return contents;
}

bool SimilarService::checkPicture(const QByteArray &filePath)
{
    return pictureContents(filePath).has_value();
}

QByteArrayList SimilarService::walk(const QByteArray &root)
{
    QByteArrayList pictures;
    auto top = DirectoryEnumerator::create(root, DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                                     DirectoryEnumerator::SkipsHiddenFiles);
    while (top && top->next()) {
        const QByteArray entry = top->path();
        if (!similarFilter(entry))
            continue;
        // A package at the top is no more entered than one deeper down.
        if (top->isDirectory()) {
            if (ResourceValues::isPackageName(ResourceValues::lastComponent(entry)))
                continue;
            auto e =
                DirectoryEnumerator::create(entry, DirectoryEnumerator::SkipsPackageDescendants |
                                                       DirectoryEnumerator::SkipsHiddenFiles);
            if (e) {
                unsigned count = 0;
                while (e->next()) {
                    if ((++count & 255) == 0 && KestalService::judgeStopScan(moduleIndex))
                        return pictures;
                    if (!similarFilter(e->path())) {
                        e->skipDescendants();
                        continue;
                    }
                    if (!e->isDirectory() && isPictureName(e->path()))
                        pictures.append(e->path());
                }
                continue;
            }
        }
        if (isPictureName(entry))
            pictures.append(entry);
    }
    return pictures;
}

void SimilarService::scan(const Progress &progress, const ShowPercent &showPercent,
                          const Done &done)
{
    const quint64 generation = SimilarService::generation().current();
    const QByteArray root = QFile::encodeName(path());
    qsizetype topCount = 0;
    if (auto e =
            DirectoryEnumerator::create(root, DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                                  DirectoryEnumerator::SkipsHiddenFiles)) {
        QStringList names;
        while (e->next())
            names << urlString(e->path());
        topCount = names.size();
        if (progress && !names.isEmpty())
            post(generation, [progress, names] {
                for (const QString &name : names)
                    progress(name, 0);
            });
    }
    const float total = float(topCount) + 2.0f;
    const QByteArrayList pictures = walk(root);
    if (stopped(generation))
        return;
    // The walk's share of the bar is spent picture by picture, where the time goes.
    const float step = pictures.isEmpty() ? 0.0f : float(topCount) / total / float(pictures.size());
    if (pictures.isEmpty() && topCount > 0 && showPercent)
        post(generation, [showPercent, total, topCount] { showPercent(float(topCount) / total); });

    // Decoding is the whole cost: every core hashes; each keeps its own list.
    const std::vector<Hashed> shares = shareOut<Hashed>(
        size_t(pictures.size()),
        [&](size_t i, Hashed &hashed) {
            const QByteArray &picture = pictures[qsizetype(i)];
            if (const std::optional<QByteArray> contents = pictureContents(picture)) {
                DHAAlgorithm::Result dha = DHAAlgorithm::grayImage(*contents, 9, 8);
                if (const auto it = dha.constFind(QStringLiteral("DHA")); it != dha.constEnd())
                    hashed.append({picture, *it});
            }
            post(generation, [progress, showPercent, step, shown = urlString(picture)] {
                if (progress)
                    progress(shown, 0);
                if (showPercent)
                    showPercent(step);
            });
        },
        [generation] { return stopped(generation); });
    if (stopped(generation))
        return;

    // The tree is built on this one thread, in path order, so that two scans
    // of the same folder group alike.
    Hashed all;
    for (const Hashed &share : shares)
        all.append(share);
    std::sort(all.begin(), all.end(),
              [](const auto &a, const auto &b) { return a.first < b.first; });
    Data data;
    BKTreeService bkTree;
    for (const auto &[picture, vector] : std::as_const(all)) {
        data.insert(picture, vector);
        bkTree.insert(vector, picture);
    }
    post(generation, [progress, showPercent, total] {
        if (progress)
            progress(getLocalizedString(QStringLiteral("Analyzing Data")), 0);
        if (showPercent)
            showPercent(1.0f / total);
    });
    analyzingData(data, bkTree, progress, showPercent, done);
}

SimilarService::Result SimilarService::groups(const Data &data, BKTreeService &bkTree)
{
    QByteArrayList keys = data.keys();
    std::sort(keys.begin(), keys.end());
    const bool inPictures = path().contains(picturesFolder());
    const QStringList &words = derivativeWords();
    Result result;
    for (const QByteArray &key : std::as_const(keys)) {
        // A derivative never leads a group, but stays in the tree and may
        // still join another picture's group.
        if (inPictures && std::any_of(words.cbegin(), words.cend(),
                                      [&](const QString &w) { return key.contains(w.toUtf8()); }))
            continue;
        if (!bkTree.root)
            continue;
        QSet<QByteArray> results;
        bkTree.root->query(data.value(key), key, threshold, results);
        if (results.size() > 1)
            result.insert(key, QByteArrayList(results.cbegin(), results.cend()));
    }
    return result;
}

void SimilarService::analyzingData(const Data &data, BKTreeService &bkTree,
                                   const Progress &progress, const ShowPercent &showPercent,
                                   const Done &done)
{
    const quint64 generation = SimilarService::generation().current();
    if (stopped(generation))
        return;
    const Result result = groups(data, bkTree);
    if (stopped(generation))
        return;
    post(generation, [progress] {
        if (progress)
            progress(getLocalizedString(QStringLiteral("Organize Data")), 0);
    });
    organizeData(result, progress, showPercent, done);
}

Category SimilarService::categoryOfGroup(const QByteArray &key, QByteArrayList paths, int finder)
{
    Category c;
    c.image = QStringLiteral("App_Cache");
    c.url = FolderUrl{QString(), QStringLiteral("Folder"), 0};
    c.finder = finder;
    c.files.append(pictureNode(key, 0, QStringLiteral("fileName")));
    std::sort(paths.begin(), paths.end());
    for (const QByteArray &p : std::as_const(paths)) {
        // Drops the key itself, and any path that merely holds the key inside it.
        if (p.contains(key))
            continue;
        c.files.append(pictureNode(p, int(c.files.size()), QStringLiteral("file")));
    }
    for (const FolderInfoPtr &f : std::as_const(c.files))
        c.size += f->size;
    c.title = c.files.first()->name;
    static const QMimeDatabase mimeTypes;
    const QMimeType type =
        mimeTypes.mimeTypeForFile(QFile::decodeName(key), QMimeDatabase::MatchExtension);
    c.type = type.isDefault() ? QStringLiteral("Picture") : type.comment();
    c.description = QString::number(c.files.size()) + QStringLiteral(" Item Files");
    return c;
}

void SimilarService::organizeData(const Result &result, const Progress &progress,
                                  const ShowPercent &showPercent, const Done &done)
{
    Q_UNUSED(showPercent);
    const quint64 generation = SimilarService::generation().current();
    post(generation, [] { storeCategories({}); });
    QList<Category> categories;
    qint64 found = 0;
    for (auto it = result.cbegin(); it != result.cend(); ++it) {
        if (stopped(generation))
            return;
        categories.append(categoryOfGroup(it.key(), it.value(), int(categories.size())));
        found += categories.last().size;
    }
    if (result.isEmpty())
        categories.append(SimilarFolderInfo::emptyCategory());
    post(generation, [categories, found, progress, done] {
        storeCategories(categories);
        if (progress)
            progress(getLocalizedString(QStringLiteral("Scan Done")), found);
        if (done)
            done();
    });
}

void SimilarService::updateCategory()
{
    QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
    for (int i = 0; i < categories.size(); ++i)
        categories[i].finder = i;
}
