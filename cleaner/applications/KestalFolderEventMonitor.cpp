#include "cleaner/applications/KestalFolderEventMonitor.h"

#include "cleaner/applications/ApplicationPlaces.h"
#include "cleaner/applications/KestalUninstallService.h"
#include "cleaner/core/DirectoryEnumerator.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <sys/stat.h>

namespace {

KestalFolderEventMonitor::Offer &offerHandler()
{
    static KestalFolderEventMonitor::Offer offer;
    return offer;
}

bool exists(const QByteArray &path)
{
    struct stat st;
    return lstat(path.constData(), &st) == 0;
}

} // namespace

QSet<QByteArray> &KestalFolderEventMonitor::whiteList()
{
    static QSet<QByteArray> list;
    return list;
}

QSet<QByteArray> &KestalFolderEventMonitor::newAppList()
{
    static QSet<QByteArray> list;
    return list;
}

void KestalFolderEventMonitor::setOffer(Offer offer)
{
    offerHandler() = std::move(offer);
}

KestalFolderEventMonitor::KestalFolderEventMonitor(const QString &trash) : trashPath(trash)
{
    m_coalesce.setSingleShot(true);
    m_coalesce.setInterval(0);
    connect(&m_coalesce, &QTimer::timeout, this, &KestalFolderEventMonitor::folderChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_coalesce,
            qOverload<>(&QTimer::start));
    // What lies in the Trash now is never offered.
    m_listing = applicationInDirectory(trash);
    whiteList() = m_listing;
    startWatchStream();
}

KestalFolderEventMonitor::~KestalFolderEventMonitor()
{
    stopWatchStream();
}

QSet<QByteArray> KestalFolderEventMonitor::applicationInDirectory(const QString &directroy)
{
    QSet<QByteArray> apps;
    // Deep on macOS (a bundle's insides are never entered), the top level of
    // the freedesktop Trash on Linux.
    const int options =
        DirectoryEnumerator::SkipsPackageDescendants | DirectoryEnumerator::SkipsHiddenFiles |
        (Platform::isMacOS() ? 0 : DirectoryEnumerator::SkipsSubdirectoryDescendants);
    auto e = DirectoryEnumerator::create(QFile::encodeName(directroy), options);
    while (e && e->next()) {
        if (ApplicationPlaces::isTrashedApplication(QFile::decodeName(e->path()), e->isDirectory()))
            apps.insert(e->path());
    }
    return apps;
}

void KestalFolderEventMonitor::startWatchStream()
{
    m_running = true;
    armWatch();
}

void KestalFolderEventMonitor::stopWatchStream()
{
    m_running = false;
    m_coalesce.stop();
    if (!m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.directories());
}

// Watches the Trash, or while it does not exist yet the nearest folder above
// it, so its making is seen too. A failed watch leaves the monitor silent.
void KestalFolderEventMonitor::armWatch()
{
    if (!m_running || !trashPath)
        return;
    QString folder = *trashPath;
    while (!QFileInfo(folder).isDir() && folder.count(QLatin1Char('/')) > 1)
        folder = QFileInfo(folder).path();
    if (m_watcher.directories() == QStringList{folder})
        return;
    if (!m_watcher.directories().isEmpty())
        m_watcher.removePaths(m_watcher.directories());
    m_watcher.addPath(folder);
}

void KestalFolderEventMonitor::folderChanged()
{
    armWatch();
    const QSet<QByteArray> now = applicationInDirectory(*trashPath);
    QList<QByteArray> changed;
    for (const QByteArray &p : now)
        if (!m_listing.contains(p))
            changed << p;
    for (const QByteArray &p : std::as_const(m_listing))
        if (!now.contains(p))
            changed << p;
    m_listing = now;
    std::sort(changed.begin(), changed.end());
    handleEvents(changed);
}

void KestalFolderEventMonitor::handleEvents(const QList<QByteArray> &paths)
{
    for (const QByteArray &path : paths) {
        const QString text = QFile::decodeName(path);
        // Only applications count, and nothing inside one.
        if (Platform::isMacOS() ? QFileInfo(text).suffix() != QLatin1String("app")
                                : QFileInfo(text).path() != *trashPath)
            continue;
        if (text.contains(QLatin1String(".app/Contents/")))
            continue;
        checkAppWhetherInWhiteList(path);
    }
}

void KestalFolderEventMonitor::checkAppWhetherInWhiteList(const QByteArray &app)
{
    QByteArray key = app;
    while (key.size() > 1 && key.endsWith('/'))
        key.chop(1);
    // A second event for an application (its leaving) clears it.
    if (whiteList().remove(key))
        return;
    if (!exists(key))
        return;
    // The program does not offer to remove itself.
    if (ResourceValues::lastComponent(key).contains("Brenlow"))
        return;
    // One offer for the burst of events of one move.
    whiteList().insert(key);
    Dispatch::globalAsync([key] {
        const Category application =
            KestalUninstallService::scanSingleApp(FolderInfo::urlFromPath(key));
        Dispatch::mainAsync([application] {
            if (offerHandler())
                offerHandler()(application);
        });
    });
}
