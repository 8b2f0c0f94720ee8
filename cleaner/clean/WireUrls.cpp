#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Services.h"

// The conversions between the wire's raw path bytes and the absoluteStrings
// that key the application's path maps.
namespace Wire {

namespace {

QString urlOf(const QByteArray &path)
{
    return FolderInfo::absoluteString(FolderInfo::urlFromPath(path));
}

} // namespace

QCborMap foldersToWire(const PathMap &folders)
{
    QMap<QByteArray, QList<int>> paths;
    for (auto it = folders.begin(); it != folders.end(); ++it)
        paths.insert(Services::handleBytes(it.key()), it.value());
    return wireFromPaths(paths);
}

PathMap foldersFromWire(const QCborMap &wire)
{
    PathMap folders;
    const QMap<QByteArray, QList<int>> paths = wirePaths(wire);
    for (auto it = paths.begin(); it != paths.end(); ++it)
        folders.insert(urlOf(it.key()), it.value());
    return folders;
}

bool deliverReport(const Call &c, DeleteFilesProgressProtocol &receiver)
{
    const int module = int(c.args.last().toInteger());
    if (c.selector == QLatin1String(installFail))
        receiver.installFail(c.args.at(0).toString(), module);
    else if (c.selector == QLatin1String(processed))
        receiver.processed(urlOf(c.args.at(0).toByteArray()), c.args.at(1).toInteger(), module);
    else if (c.selector == QLatin1String(finished))
        receiver.finished(c.args.at(0).toBool(), foldersFromWire(c.args.at(1).toMap()), module);
    else
        return false;
    return true;
}

} // namespace Wire
