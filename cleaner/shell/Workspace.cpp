#include "cleaner/shell/Workspace.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCallWatcher>
#include <QDBusReply>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace {

const QString fileManagerService = QStringLiteral("org.freedesktop.FileManager1");

Workspace::Opener &opener()
{
    static Workspace::Opener instance;
    return instance;
}

bool existsOrIsLink(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() || info.isSymLink();
}

// The item itself, or, when the user removed it since it was listed, the
// nearest folder above it that is still there.
QString nearestExisting(const QString &path)
{
    QString existing = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    while (!existsOrIsLink(existing) && existing != QDir::rootPath())
        existing = QFileInfo(existing).absolutePath();
    return existing;
}

bool fileManagerOnBus(const QDBusConnection &bus)
{
    QDBusConnectionInterface *daemon = bus.interface();
    if (!bus.isConnected() || !daemon)
        return false;
    if (daemon->isServiceRegistered(fileManagerService).value())
        return true;
    // The bus starts a file manager on the first call when one is installed.
    const QDBusReply<QStringList> activatable =
        daemon->call(QStringLiteral("ListActivatableNames"));
    return activatable.isValid() && activatable.value().contains(fileManagerService);
}

} // namespace

bool Workspace::openURL(const QUrl &url)
{
    if (!url.isValid() || url.isEmpty())
        return false;
    if (opener())
        return opener()(url);
    if (QDesktopServices::openUrl(url))
        return true;
    // A session without the desktop's services (no platform support for
    // them) still has the freedesktop opener.
    return QProcess::startDetached(QStringLiteral("xdg-open"), {url.toString(QUrl::FullyEncoded)});
}

bool Workspace::selectFile(const QString &path)
{
    if (path.isEmpty())
        return false;
    const QString item = nearestExisting(path);
    const QUrl folder = QUrl::fromLocalFile(QFileInfo(item).absolutePath());
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!fileManagerOnBus(bus))
        return openURL(folder);

    QDBusMessage call = QDBusMessage::createMethodCall(
        fileManagerService, QStringLiteral("/org/freedesktop/FileManager1"), fileManagerService,
        QStringLiteral("ShowItems"));
    call << QStringList{QUrl::fromLocalFile(item).toString(QUrl::FullyEncoded)} << QString();
    // The answer may take a while (the bus may have to start the file
    // manager first): the screen goes on, and a failure opens the folder.
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [folder](QDBusPendingCallWatcher *done) {
                         if (done->isError())
                             openURL(folder);
                         done->deleteLater();
                     });
    return true;
}

void Workspace::setOpenerForTesting(Opener replacement)
{
    opener() = std::move(replacement);
}
