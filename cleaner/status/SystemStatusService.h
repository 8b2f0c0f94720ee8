#pragma once

#include <QString>
#include <QVariant>

// The machine's names for the dashboard.
class SystemStatusService {
public:
    struct ModelData {
        QString model;          // "MacBook Pro", "QEMU Virtual Machine"
        QString marketingModel; // the full name with size and year
    };
    // The names of System::model() in the edition's table
    // "SIMachineAttributes"; "Unknown" wherever the table has nothing.
    static ModelData getModelData();
    // The same for an identifier, from a table as read.
    static ModelData modelData(const QVariant &table, const QString &identifier);
};
