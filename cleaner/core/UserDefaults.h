#pragma once

#include <QString>
#include <QVariant>

// The user's persistent settings (the interface language, the first-launch mark).
class UserDefaults {
public:
    static QVariant value(const QString &key);
    static void setValue(const QString &key, const QVariant &value);
    static void remove(const QString &key);
    static void synchronize();
};
