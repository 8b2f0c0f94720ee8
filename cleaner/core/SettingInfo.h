#pragma once

#include <QHash>
#include <QString>

// The edition's small list of build settings (support and install links).
class SettingInfo {
public:
    static const QHash<QString, QString> &AllSettings();
    // The value for a key; a key without a value gives an empty string.
    static QString valueOf(const QString &key);
    static void reset();
};
