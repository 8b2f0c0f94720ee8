#include "cleaner/core/SettingInfo.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Bundle.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/PropertyList.h"

#include <optional>

namespace {

std::optional<QHash<QString, QString>> g_settings;

} // namespace

const QHash<QString, QString> &SettingInfo::AllSettings()
{
    if (!g_settings) {
        const QString name = AppModuleService::fileName() + QStringLiteral("Setting");
        const QString path = Bundle::pathForResource(name, QStringLiteral("plist"));
        if (path.isEmpty())
            fatalStop(QStringLiteral("the resource %1.plist is missing").arg(name));
        const auto root = PropertyList::fromFile(path);
        if (!root || root->typeId() != QMetaType::QVariantMap)
            fatalStop(QStringLiteral("the resource %1 cannot be read").arg(path));
        QHash<QString, QString> values;
        const QVariantMap map = root->toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            values.insert(it.key(), it.value().toString());
        g_settings = std::move(values);
    }
    return *g_settings;
}

QString SettingInfo::valueOf(const QString &key)
{
    return AllSettings().value(key);
}

void SettingInfo::reset()
{
    g_settings.reset();
}
