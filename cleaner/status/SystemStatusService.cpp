#include "cleaner/status/SystemStatusService.h"

#include "cleaner/core/Bundle.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/status/System.h"

SystemStatusService::ModelData SystemStatusService::modelData(const QVariant &table,
                                                              const QString &identifier)
{
    const QVariantMap names =
        table.toMap().value(identifier).toMap().value(QStringLiteral("_LOCALIZABLE_")).toMap();
    auto text = [&names](const QString &key) {
        const QString value = names.value(key).toString();
        return value.isEmpty() ? QStringLiteral("Unknown") : value;
    };
    return {text(QStringLiteral("model")), text(QStringLiteral("marketingModel"))};
}

SystemStatusService::ModelData SystemStatusService::getModelData()
{
    const QString path =
        Bundle::pathForResource(QStringLiteral("SIMachineAttributes"), QStringLiteral("plist"));
    const std::optional<QVariant> table =
        path.isEmpty() ? std::nullopt : PropertyList::fromFile(path);
    return modelData(table.value_or(QVariant()), System::model());
}
