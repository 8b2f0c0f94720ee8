#include "cleaner/erasure/ShredService.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/DirectoryEnumerator.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ResourceValues.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalService.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <sys/stat.h>

namespace {

constexpr int kShredded = 1;

// A path as the list keeps it: a file URL made a path, "." and ".." steps
// and a trailing slash gone.
QString plainPath(const QString &url)
{
    const QString path =
        url.startsWith(QLatin1String("file://")) ? Services::handleString(url) : url;
    return path.isEmpty() ? path : QDir::cleanPath(path);
}

// lstat semantics: a link is an item of its own, never what it points to.
std::optional<struct stat> itemStat(const QString &path)
{
    struct stat st;
    if (::lstat(QFile::encodeName(path).constData(), &st) != 0)
        return std::nullopt;
    return st;
}

bool isFolder(const QString &path)
{
    const auto st = itemStat(path);
    return st && S_ISDIR(st->st_mode);
}

} // namespace

QSet<QString> &ShredService::shred()
{
    static QSet<QString> paths;
    return paths;
}

QSet<QString> &ShredService::shredFile()
{
    static QSet<QString> paths;
    return paths;
}

QHash<QString, QSet<QString>> &ShredService::shredDict()
{
    static QHash<QString, QSet<QString>> folders;
    return folders;
}

QHash<QString, qint64> &ShredService::shredFilePathAndSize()
{
    static QHash<QString, qint64> sizes;
    return sizes;
}

QMap<QString, QList<int>> &ShredService::shredFileStatus()
{
    static QMap<QString, QList<int>> map;
    return map;
}

QMap<QString, int> &ShredService::shredFailures()
{
    static QMap<QString, int> failures;
    return failures;
}

void ShredService::reset()
{
    shred().clear();
    shredFile().clear();
    shredDict().clear();
    shredFilePathAndSize().clear();
    shredFileStatus().clear();
    shredFailures().clear();
}

bool ShredService::isContains(const QString &path)
{
    // On the plain text of the paths, so "/a/bc" and "/a/b" collide as well.
    const auto collides = [&path](const QString &other) {
        return path.contains(other) || other.contains(path);
    };
    const QList<QString> keys = shredDict().keys();
    return std::any_of(shredFile().begin(), shredFile().end(), collides) ||
           std::any_of(keys.begin(), keys.end(), collides);
}

std::pair<bool, QString> ShredService::addFileOrDict(const QString &url)
{
    const QString path = plainPath(url);
    const bool listed =
        shredFile().contains(path) ||
        std::any_of(shredDict().begin(), shredDict().end(),
                    [&path](const QSet<QString> &files) { return files.contains(path); });
    if (listed)
        return {false, getLocalizedString(QStringLiteral("shred_sameFile_text"))};
    const auto st = path.isEmpty() ? std::nullopt : itemStat(path);
    if (!st)
        return {false, url + QStringLiteral(" isn't exist")};
    const bool folder = S_ISDIR(st->st_mode);
    if (folder && isContains(path)) {
        return {false,
                AppModuleService::fileName() +
                    QStringLiteral(" can't shred the folder as its superordinate/subordinate "
                                   "folder has been already seleted")};
    }
    shredFile().insert(path);
    QList<Category> &list = AppModuleService::categoriesOf(moduleIndex);
    list.append(getCateogry(path));
    list.last().files.first()->findex = int(list.size() - 1);
    if (folder) {
        QSet<QString> &files = shredDict()[path];
        auto walk = DirectoryEnumerator::create(QFile::encodeName(path));
        while (walk && walk->next()) {
            if (!walk->isDirectory())
                files.insert(QFile::decodeName(walk->path()));
        }
    }
    return {true, QString()};
}

Category ShredService::getCateogry(const QString &path)
{
    const bool folder = isFolder(path);
    Category c;
    c.title = path.section(QLatin1Char('/'), -1);
    c.type = folder ? QStringLiteral("folder") : QStringLiteral("file");
    c.image = folder ? QStringLiteral("Folder") : QString();
    c.state = 1;
    c.url.url = FolderInfo::absoluteString(FolderInfo::urlFromPath(path));
    const QByteArray bytes = QFile::encodeName(path);
    if (const auto values = ResourceValues::read(bytes)) {
        c.files = {FolderInfo::nodeFromValues(*values, 0, 1)};
        c.files.first()->size = getSize(path);
    } else {
        c.files = {FolderInfo::make(0, c.title, QString(), 0, QColor(), folder,
                                    FolderInfo::distantPast(), FolderInfo::urlFromPath(path), false,
                                    {}, false, 1, QString())};
    }
    c.size = c.files.first()->size;
    return c;
}

QString ShredService::pathOf(const Category &category)
{
    return category.files.isEmpty()
               ? QString()
               : QFile::decodeName(FolderInfo::pathBytes(category.files.first()->url));
}

qint64 ShredService::getSize(const QString &url)
{
    const QString path = plainPath(url);
    const auto st = itemStat(path);
    if (!st)
        return 0;
    if (S_ISDIR(st->st_mode))
        return FolderInfo::getFolderSize(FolderInfo::urlFromPath(path));
    return S_ISREG(st->st_mode) ? qint64(st->st_size) : 0;
}

void ShredService::shred(std::shared_ptr<DeleteFilesProgressProtocol> delegate)
{
    shredFileStatus().clear();
    shred().clear();
    shredFilePathAndSize().clear();
    shredFailures().clear();
    int finder = 0;
    const auto plan = [&finder](const QString &path) {
        shred().insert(path);
        shredFileStatus().insert(path, {finder++, 0});
        shredFilePathAndSize().insert(path, getSize(path));
    };
    for (const Category &c : AppModuleService::categoriesOf(moduleIndex)) {
        const QString path = pathOf(c);
        if (c.state != 1 || !shredFile().contains(path))
            continue;
        if (shredDict().contains(path)) {
            QList<QString> files = shredDict().value(path).values();
            std::sort(files.begin(), files.end());
            for (const QString &file : std::as_const(files))
                plan(file);
        } else {
            plan(path);
        }
    }
    KestalService::cleanningCompletedStatus()[moduleIndex].clear();

    QMap<QString, QList<int>> folder;
    for (auto it = shredFileStatus().begin(); it != shredFileStatus().end(); ++it)
        folder.insert(FolderInfo::absoluteString(FolderInfo::urlFromPath(it.key())), it.value());
    if (folder.isEmpty()) {
        // Empty folders only: no overwrite to ask for, and no helper to bring up.
        Dispatch::mainAsync([delegate] { reportNothing(delegate); });
        return;
    }
    sendToHelper(folder, std::move(delegate));
}

QMap<QString, QList<int>> ShredService::allFailed(int status)
{
    QMap<QString, QList<int>> failed;
    for (auto it = shredFileStatus().begin(); it != shredFileStatus().end(); ++it) {
        QList<int> entry = it.value();
        entry.last() = status;
        failed.insert(it.key(), entry);
    }
    return failed;
}

std::pair<qint64, int> ShredService::shredDone(const QMap<QString, QList<int>> &file)
{
    QHash<QString, int> statusOf;
    qint64 size = 0;
    int number = 0;
    for (auto it = file.begin(); it != file.end(); ++it) {
        const QString path = plainPath(it.key());
        const int status = it.value().isEmpty() ? 0 : it.value().last();
        statusOf.insert(path, status);
        if (status == kShredded) {
            shred().remove(path);
            size += shredFilePathAndSize().value(path);
            ++number;
        } else {
            shredFailures().insert(path, status);
        }
    }

    QList<Category> &list = AppModuleService::categoriesOf(moduleIndex);
    QStringList emptied;
    for (qsizetype row = list.size() - 1; row >= 0; --row) {
        const QString path = pathOf(list.at(row));
        bool gone = false;
        if (shredDict().contains(path)) {
            QSet<QString> &files = shredDict()[path];
            QSet<QString> done;
            for (const QString &f : std::as_const(files)) {
                if (f.contains(path) && statusOf.value(f) == kShredded)
                    done.insert(f);
            }
            gone = !files.isEmpty() && done.size() == files.size();
            files.subtract(done);
            if (gone) {
                emptied.append(FolderInfo::absoluteString(FolderInfo::urlFromPath(path)));
                shredDict().remove(path);
            } else if (!done.isEmpty()) {
                list[row].files.first()->size = getSize(path);
                list[row].size = list[row].files.first()->size;
            }
        } else {
            gone = statusOf.value(path) == kShredded;
        }
        if (gone) {
            shredFile().remove(path);
            list.removeAt(row);
        }
    }
    for (qsizetype row = 0; row < list.size(); ++row)
        list[row].files.first()->findex = int(row);
    cleanDirectory(emptied);
    return {size, number};
}

void ShredService::remove(const QList<int> &removeRow)
{
    QList<int> rows = removeRow;
    std::sort(rows.begin(), rows.end(), std::greater<int>());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    QList<Category> &list = AppModuleService::categoriesOf(moduleIndex);
    for (const int row : std::as_const(rows)) {
        if (row < 0 || row >= list.size())
            continue;
        const QString path = pathOf(list.at(row));
        shredDict().remove(path);
        shredFile().remove(path);
        list.removeAt(row);
    }
    for (qsizetype row = 0; row < list.size(); ++row)
        list[row].files.first()->findex = int(row);
}

void ShredService::cleanDirectory(const QStringList &cleanDict)
{
    for (const QString &url : cleanDict) {
        const QString root = plainPath(url);
        if (root.isEmpty() || !isFolder(root))
            continue;
        // Deepest first, so that each folder is empty when its turn comes;
        // rmdir takes nothing but an empty folder, and links are not followed.
        QStringList folders;
        auto walk = DirectoryEnumerator::create(QFile::encodeName(root));
        while (walk && walk->next()) {
            if (walk->isDirectory())
                folders.append(QFile::decodeName(walk->path()));
        }
        std::sort(folders.begin(), folders.end(),
                  [](const QString &a, const QString &b) { return a.size() > b.size(); });
        folders.append(root);
        for (const QString &folder : std::as_const(folders))
            ::rmdir(QFile::encodeName(folder).constData());
    }
}
