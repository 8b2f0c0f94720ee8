#include "cleaner/core/UserDefaults.h"

#include <QSettings>

namespace {

QSettings &settings()
{
    static QSettings s(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Brenlow"),
                       QStringLiteral("Brenlow"));
    return s;
}

} // namespace

QVariant UserDefaults::value(const QString &key)
{
    return settings().value(key);
}

void UserDefaults::setValue(const QString &key, const QVariant &value)
{
    settings().setValue(key, value);
}

void UserDefaults::remove(const QString &key)
{
    settings().remove(key);
}

void UserDefaults::synchronize()
{
    settings().sync();
}
