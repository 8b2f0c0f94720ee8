#include "cleaner/core/Bundle.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"

#include <QFileInfo>

QString Bundle::pathForResource(const QString &name, const QString &type)
{
    const QString path = Platform::resourcesPath() + QLatin1Char('/') + name +
                         (type.isEmpty() ? QString() : QLatin1Char('.') + type);
    return QFileInfo::exists(path) ? path : QString();
}

QVariantMap Bundle::infoDictionary()
{
    const QString path = pathForResource(QStringLiteral("Info"), QStringLiteral("plist"));
    if (path.isEmpty())
        return {};
    const auto value = PropertyList::fromFile(path);
    return value ? value->toMap() : QVariantMap();
}

QVariant Bundle::objectForInfoDictionaryKey(const QString &key)
{
    return infoDictionary().value(key);
}

QVariant Bundle::requiredEditionList(const QString &suffix)
{
    const QString name = AppModuleService::fileName() + suffix;
    const QString path = pathForResource(name, QStringLiteral("plist"));
    if (path.isEmpty())
        fatalStop(QStringLiteral("the resource %1.plist is missing").arg(name));
    const auto root = PropertyList::fromFile(path);
    if (!root)
        fatalStop(QStringLiteral("the resource %1 cannot be read").arg(path));
    return *root;
}
