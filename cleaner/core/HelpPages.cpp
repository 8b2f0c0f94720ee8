#include "cleaner/core/HelpPages.h"

#include "cleaner/core/Platform.h"
#include "cleaner/core/SettingInfo.h"

#include <QDir>
#include <QFileInfo>
#include <QTextStream>

QString HelpPages::folder()
{
    return Platform::resourcesPath() + QStringLiteral("/help");
}

QUrl HelpPages::pageURL(const QString &value, const QString &language)
{
    if (value.isEmpty())
        return {};
    const QUrl address(value);
    if (!address.scheme().isEmpty())
        return address;
    // A page name never climbs out of the help folder.
    const QString name = QDir::cleanPath(value);
    if (name.startsWith(QLatin1Char('/')) || name.startsWith(QLatin1String("..")))
        return {};
    for (const QString &candidate : {language, QStringLiteral("en")}) {
        const QString path = folder() + QLatin1Char('/') + candidate + QLatin1Char('/') + name;
        if (!candidate.isEmpty() && QFileInfo(path).isFile())
            return QUrl::fromLocalFile(path);
    }
    QTextStream(stderr) << "Brenlow: no help page \"" << value << "\" under " << folder()
                        << Qt::endl;
    return {};
}

QUrl HelpPages::linkURL(const QString &key, const QString &language)
{
    return pageURL(SettingInfo::valueOf(key), language);
}
