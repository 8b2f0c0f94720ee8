#include "cleaner/applications/UninstallFolderInfo.h"

#include "cleaner/applications/ApplicationPlaces.h"
#include "cleaner/applications/PackageFiles.h"
#include "cleaner/scan/UninstallService.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>

namespace {

bool exists(const QByteArray &path)
{
    struct stat st;
    return lstat(path.constData(), &st) == 0;
}

template <typename Test> UninstallFolderInfo::PathSet matchChildren(const QString &path, Test test)
{
    UninstallFolderInfo::PathSet found;
    auto e = DirectoryEnumerator::create(QFile::encodeName(path),
                                         DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                             DirectoryEnumerator::SkipsPackageDescendants |
                                             DirectoryEnumerator::SkipsHiddenFiles);
    while (e && e->next()) {
        const QString name = ResourceValues::displayName(ResourceValues::lastComponent(e->path()));
        if (test(name) && exists(e->path()))
            found.insert(e->path());
    }
    return found;
}

// Whether the path is one of the places searched, or holds one: an
// application named like such a folder ("autostart", "Preferences") would
// otherwise take every application's files that the folder holds.
bool holdsPlaces(const QString &path)
{
    const QString folder = QDir::cleanPath(path);
    const QStringList places =
        ApplicationPlaces::libraryPaths() + ApplicationPlaces::applicationFolders();
    for (const QString &place : places) {
        const QString clean = QDir::cleanPath(place);
        if (clean == folder || clean.startsWith(folder + QLatin1Char('/')))
            return true;
    }
    return false;
}

Qt::CaseSensitivity nameCase()
{
    return ApplicationPlaces::namesIgnoreCase() ? Qt::CaseInsensitive : Qt::CaseSensitive;
}

} // namespace

QStringList UninstallFolderInfo::getAppPaths()
{
    return getAppPaths(PackageFiles::load());
}

QStringList UninstallFolderInfo::getAppPaths(const PackageFiles &packages)
{
    QStringList paths;
    for (const QString &folder : ApplicationPlaces::applicationFolders()) {
        auto e = DirectoryEnumerator::create(QFile::encodeName(folder),
                                             DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                                 DirectoryEnumerator::SkipsPackageDescendants |
                                                 DirectoryEnumerator::SkipsHiddenFiles);
        while (e && e->next()) {
            const QString name =
                ResourceValues::displayName(ResourceValues::lastComponent(e->path()));
            const QString path = QFile::decodeName(e->path());
            // A link is no application of its own; whatever it points to is elsewhere.
            if (!e->currentReadable() || S_ISLNK(e->stat().st_mode) ||
                UninstallService::BLACK_LIST.contains(name) ||
                !ApplicationPlaces::isApplicationEntry(name, e->isDirectory()) ||
                packages.owns(path))
                continue;
            paths << path;
        }
    }
    return paths;
}

QStringList UninstallFolderInfo::getLibraryPaths()
{
    return ApplicationPlaces::libraryPaths();
}

UninstallFolderInfo::PathSet UninstallFolderInfo::getChromeInfoList()
{
    PathSet found;
    for (const QString &path : ApplicationPlaces::chromeLeftovers()) {
        const QByteArray bytes = QFile::encodeName(path);
        if (exists(bytes))
            found.insert(bytes);
    }
    return found;
}

UninstallFolderInfo::PathSet UninstallFolderInfo::matchesForFileName(const QString &fileName,
                                                                     const QString &path,
                                                                     bool equalORContain)
{
    const QString dotted = fileName + QLatin1Char('.');
    return matchChildren(path, [&](const QString &name) {
        return equalORContain ? name.compare(fileName, nameCase()) == 0
                              : name.contains(dotted, nameCase());
    });
}

UninstallFolderInfo::PathSet UninstallFolderInfo::extraMatchesForFileName(const QString &fileName,
                                                                          const QString &path)
{
    return matchChildren(path,
                         [&](const QString &name) { return name.contains(fileName, nameCase()); });
}

UninstallFolderInfo::PathSet UninstallFolderInfo::matchAppInfoList(const QString &appPath,
                                                                   const QString &appName)
{
    return matchAppInfoList(appPath, appName, PackageFiles::load());
}

UninstallFolderInfo::PathSet UninstallFolderInfo::matchAppInfoList(const QString &appPath,
                                                                   const QString &appName,
                                                                   const PackageFiles &packages)
{
    QString folder = appPath;
    while (folder.size() > 1 && folder.endsWith(QLatin1Char('/')))
        folder.chop(1);
    const auto bundle = ApplicationPlaces::bundleInfo(folder + QLatin1Char('/') + appName);
    if (!bundle)
        return {};
    QStringList names;
    if (!bundle->identifier.isEmpty())
        names << bundle->identifier;
    names << ApplicationPlaces::searchName(appName);

    PathSet found;
    const QStringList libraries = getLibraryPaths();
    for (const QString &name : std::as_const(names)) {
        // A name holding one fragment and not another gets both kinds of
        // matching; the set drops the repeats.
        for (const QString &fragment : UninstallService::WHITE_LIST) {
            for (const QString &library : libraries) {
                if (name.contains(fragment))
                    found.unite(matchesForFileName(name, library, false));
                else if (library.endsWith(QLatin1String("/Shared")))
                    found.unite(extraMatchesForFileName(name, library));
                else
                    found.unite(matchesForFileName(name, library, true));
            }
        }
    }
    // The entry that launches the application goes with it.
    if (!bundle->desktopEntry.isEmpty())
        found.insert(QFile::encodeName(bundle->desktopEntry));
    for (auto it = found.begin(); it != found.end();) {
        if (packages.owns(QFile::decodeName(*it)) || holdsPlaces(QFile::decodeName(*it)))
            it = found.erase(it);
        else
            ++it;
    }
    return found;
}

FolderInfoPtr UninstallFolderInfo::uninstallNode(const QByteArray &path, int findex)
{
    const auto values = ResourceValues::read(path);
    if (!values)
        return make(findex, QStringLiteral("no name"), QStringLiteral("App_Cache"), 0, QColor(),
                    true, QDateTime::currentDateTime(), urlFromPath(path), false, {}, false, 0,
                    QString());
    const QUrl url = urlFromPath(path);
    const qint64 size = values->isDirectory ? getFolderSize(url) : values->fileSize.value_or(0);
    FolderInfoPtr node =
        make(findex, values->localizedName, QString(), size, QColor(), true,
             values->contentModificationDate.isValid() ? values->contentModificationDate
                                                       : QDateTime::currentDateTime(),
             url, false, {}, false, 0, QString());
    node->identity = values->identity;
    return node;
}

Category UninstallFolderInfo::applicationCategory(const QString &appPath,
                                                  const QList<QByteArray> &matches)
{
    Category c;
    const auto bundle = ApplicationPlaces::bundleInfo(appPath);
    c.title =
        bundle ? bundle->shownName : ApplicationPlaces::searchName(QFileInfo(appPath).fileName());
    c.image = QStringLiteral("App_Cache");
    c.url = FolderUrl{QString(), QStringLiteral("app"), 0};
    c.type = QStringLiteral("Folder");
    QList<QByteArray> paths{QFile::encodeName(appPath)};
    for (const QByteArray &p : matches)
        if (!paths.contains(p))
            paths << p;
    for (const QByteArray &p : std::as_const(paths)) {
        FolderInfoPtr node = uninstallNode(p, int(c.files.size()));
        c.size += node->size;
        c.files << node;
    }
    // The application's own item shows the application's own picture.
    if (bundle && !bundle->icon.isEmpty())
        c.files.first()->icon = bundle->icon;
    return c;
}
