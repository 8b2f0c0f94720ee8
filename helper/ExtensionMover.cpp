#include "helper/ExtensionMover.h"

#include "cleaner/core/FileRemoval.h"
#include "helper/AllowList.h"
#include "helper/HelperLog.h"

namespace {

// Written at build time from the extensions module of both profiles' lists.
const char *const kShippedFolders[] = {
#include "shipped-extensions-linux.inc"
#include "shipped-extensions-macos.inc"
    nullptr,
};

} // namespace

const QList<QByteArray> &ExtensionMover::shippedFolders()
{
    static const QList<QByteArray> folders = [] {
        QList<QByteArray> list;
        for (const char *const *f = kShippedFolders; *f; ++f)
            list << QByteArray(*f);
        return list;
    }();
    return folders;
}

QList<QByteArray> ExtensionMover::resolved(const QList<QByteArray> &folders, const QByteArray &home)
{
    QList<QByteArray> out;
    for (const QByteArray &folder : folders) {
        QByteArray path = folder;
        if (path.startsWith("~/")) {
            if (home.isEmpty())
                continue;
            path = home + path.mid(1);
        }
        if (const auto clean = FileRemoval::normalized(path); clean && *clean != "/")
            out << *clean;
    }
    return out;
}

ExtensionMover ExtensionMover::forCaller()
{
    const std::optional<uid_t> caller = AllowList::callerUid();
    return ExtensionMover(
        resolved(shippedFolders(), caller ? AllowList::homeOf(*caller) : QByteArray()));
}

ExtensionMover::ExtensionMover(QList<QByteArray> folders) : m_folders(std::move(folders)) {}

FileMove::Result ExtensionMover::move(const QByteArray &path, const ItemIdentity &expected) const
{
    const std::optional<QByteArray> target = FileMove::toggledPath(path, m_folders);
    FileMove::Result result;
    if (!target)
        result.reason = QStringLiteral("it lies in none of the extension folders");
    else
        result = FileMove::move(path, *target, expected);
    if (result.moved)
        logLine(QStringLiteral("moved %1 to %2").arg(loggable(path), loggable(*target)));
    else
        logLine(QStringLiteral("refused to move %1: %2").arg(loggable(path), result.reason));
    return result;
}
