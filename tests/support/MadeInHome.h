#pragma once

#include <QDir>
#include <QFileInfo>
#include <QStringList>

// What a test makes in the real home (where the helper acts for its
// caller), taken away when the test ends, pass or fail, with the folders it
// had to make for it.
struct MadeInHome {
    QStringList items;
    QStringList folders; // made by the test, removed when empty, deepest first

    MadeInHome() = default;
    MadeInHome(const MadeInHome &) = delete;
    MadeInHome &operator=(const MadeInHome &) = delete;
    ~MadeInHome()
    {
        for (const QString &item : std::as_const(items)) {
            const QFileInfo info(item);
            if (info.isDir() && !info.isSymLink())
                QDir(item).removeRecursively();
            else
                QFile::remove(item);
        }
        for (const QString &folder : std::as_const(folders))
            QDir().rmdir(folder);
    }
    // Makes a folder and remembers each missing one on the way to it.
    void makeFolder(const QString &path)
    {
        QStringList missing;
        for (QString p = path; !QFileInfo::exists(p); p = QFileInfo(p).path())
            missing << p;
        QDir().mkpath(path);
        folders += missing;
    }
    // A folder that a move may make: removed at the end when it is empty.
    void mayMake(const QString &path)
    {
        if (!QFileInfo::exists(path))
            folders.prepend(path);
    }
};
