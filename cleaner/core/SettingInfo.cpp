#include "cleaner/core/SettingInfo.h"

#include "cleaner/core/Bundle.h"
#include "cleaner/core/Fatal.h"

#include <optional>

namespace {

std::optional<QHash<QString, QString>> g_settings;

} // namespace

const QHash<QString, QString> &SettingInfo::AllSettings()
{
    if (!g_settings) {
        const QVariant root = Bundle::requiredEditionList(QStringLiteral("Setting"));
        if (root.typeId() != QMetaType::QVariantMap)
            fatalStop(QStringLiteral("the edition's Setting list is not a dictionary"));
        QHash<QString, QString> values;
        const QVariantMap map = root.toMap();
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
