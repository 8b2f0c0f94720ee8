#include "cleaner/applications/PackageFiles.h"

#include "cleaner/core/Platform.h"

#include <QDir>
#include <QFile>

PackageFiles PackageFiles::load()
{
    PackageFiles files;
    const QDir lists(Platform::systemPath(QStringLiteral("/var/lib/dpkg/info")));
    for (const QString &name : lists.entryList({QStringLiteral("*.list")}, QDir::Files)) {
        QFile list(lists.filePath(name));
        if (!list.open(QIODevice::ReadOnly))
            continue;
        for (QByteArray line : list.readAll().split('\n')) {
            while (line.size() > 1 && line.endsWith('/'))
                line.chop(1);
            if (line.startsWith('/'))
                files.m_paths.insert(line);
        }
    }
    return files;
}

bool PackageFiles::owns(const QString &path) const
{
    if (m_paths.isEmpty())
        return false;
    // The lists name the system's own paths, without a test root.
    QString system = path;
    const QString root = Platform::root();
    if (!root.isEmpty()) {
        if (!system.startsWith(root + QLatin1Char('/')))
            return false;
        system = system.mid(root.size());
    }
    QByteArray bytes = QFile::encodeName(QDir::cleanPath(system));
    return m_paths.contains(bytes);
}
