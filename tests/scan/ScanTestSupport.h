#pragma once

// Categories for the scanners to fill, and what they listed, as names.
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"

#include <QDir>
#include <QFile>
#include <QTest>

namespace ScanTest {

// A category of this type over these root folders.
inline Category categoryOf(const QString &type, const QStringList &roots = {}, int state = 0)
{
    Category c;
    c.title = type;
    c.type = type;
    c.state = state;
    for (const QString &root : roots)
        c.urls.append(FolderUrl{FolderInfo::absoluteString(FolderInfo::urlFromPath(root))});
    return c;
}

// The same with one root given as the category's own url.
inline Category categoryAt(const QString &type, const QString &root, int state = 0)
{
    Category c = categoryOf(type, {}, state);
    c.url.url = FolderInfo::absoluteString(FolderInfo::urlFromPath(root)) + QLatin1Char('/');
    return c;
}

inline QStringList names(const QList<FolderInfoPtr> &nodes)
{
    QStringList out;
    for (const FolderInfoPtr &n : nodes)
        out << n->name;
    out.sort();
    return out;
}

// The nodes' paths below root, sorted.
inline QStringList relativePaths(const QList<FolderInfoPtr> &files, const QString &root)
{
    QStringList paths;
    for (const FolderInfoPtr &f : files)
        paths << QFile::decodeName(FolderInfo::pathBytes(f->url)).mid(root.size() + 1);
    paths.sort();
    return paths;
}

} // namespace ScanTest
