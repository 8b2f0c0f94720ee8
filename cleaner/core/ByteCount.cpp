#include "cleaner/core/ByteCount.h"

#include "cleaner/core/SwitchLanguageService.h"

#include <QLocale>
#include <array>
#include <cmath>

namespace {

QLocale interfaceLocale()
{
    return QLocale(SwitchLanguageService::getCurrentLanguage());
}

} // namespace

QString ByteCount::string(qint64 bytes)
{
    static constexpr std::array<const char *, 6> units = {"kB", "MB", "GB", "TB", "PB", "EB"};
    const QLocale locale = interfaceLocale();
    const quint64 magnitude = bytes < 0 ? 0 - quint64(bytes) : quint64(bytes);
    if (magnitude == 1)
        return getLocalizedString(QStringLiteral("1 byte"));
    if (magnitude < 1000)
        return getLocalizedString(QStringLiteral("%1 bytes")).arg(locale.toString(bytes));
    double value = double(magnitude) / 1000.0;
    size_t unit = 0;
    // Rounded to one decimal, 999.96 kB would read "1000.0 kB": it is 1.0 MB.
    while (std::round(value * 10.0) >= 10000.0 && unit + 1 < units.size()) {
        value /= 1000.0;
        ++unit;
    }
    const QString number = locale.toString(std::round(value * 10.0) / 10.0, 'f', 1);
    return (bytes < 0 ? locale.negativeSign() : QString()) + number + QLatin1Char(' ') +
           QLatin1String(units[unit]);
}

QString ByteCount::itemsAndSize(qint64 items, qint64 bytes)
{
    const QString count =
        items == 1
            ? getLocalizedString(QStringLiteral("1 item"))
            : getLocalizedString(QStringLiteral("%1 items")).arg(interfaceLocale().toString(items));
    return count + QStringLiteral(", ") + string(bytes);
}

QString ByteCount::removalSummary(qint64 items, qint64 bytes)
{
    return getLocalizedString(QStringLiteral("To be removed: %1")).arg(itemsAndSize(items, bytes));
}
