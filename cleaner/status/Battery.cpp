#include "cleaner/status/Battery.h"

#include "cleaner/core/Platform.h"
#include "cleaner/status/SystemFiles.h"

#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <cmath>

namespace {

const QString upowerService = QStringLiteral("org.freedesktop.UPower");
const QString upowerPath = QStringLiteral("/org/freedesktop/UPower");
const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
constexpr int busTimeoutMs = 1000;

// UPower's device kinds and states.
constexpr uint upowerTypeBattery = 2;
constexpr uint upowerCharging = 1;
constexpr uint upowerFullyCharged = 4;

// Watt-hours (or micro-watt-hours) at a voltage as milliampere-hours.
int milliampereHours(double wattHours, double volts)
{
    return volts > 0 ? int(std::lround(wattHours / volts * 1000)) : 0;
}

} // namespace

const QString Battery::IOSERVICE_BATTERY = QStringLiteral("AppleSmartBattery");

QString Battery::keyName(Key key)
{
    switch (key) {
    case Key::ACPowered:
        return QStringLiteral("ExternalConnected");
    case Key::Amperage:
        return QStringLiteral("Amperage");
    case Key::CurrentCapacity:
        return QStringLiteral("CurrentCapacity");
    case Key::CycleCount:
        return QStringLiteral("CycleCount");
    case Key::DesignCapacity:
        return QStringLiteral("DesignCapacity");
    case Key::DesignCycleCount:
        return QStringLiteral("DesignCycleCount9C");
    case Key::FullyCharged:
        return QStringLiteral("FullyCharged");
    case Key::IsCharging:
        return QStringLiteral("IsCharging");
    case Key::MaxCapacity:
        return QStringLiteral("MaxCapacity");
    case Key::Temperature:
        return QStringLiteral("Temperature");
    case Key::TimeRemaining:
        break;
    }
    return QStringLiteral("TimeRemaining");
}

Battery::Reading Battery::fromUPower(const QVariantMap &device, bool onBattery)
{
    Reading r;
    Properties &p = r.properties;
    const uint state = device.value(QStringLiteral("State")).toUInt();
    const double volts = device.value(QStringLiteral("Voltage")).toDouble();
    r.percentage = device.value(QStringLiteral("Percentage")).toDouble();
    p[Key::ACPowered] = !onBattery;
    p[Key::IsCharging] = state == upowerCharging;
    p[Key::FullyCharged] = state == upowerFullyCharged;
    if (volts > 0) {
        p[Key::CurrentCapacity] =
            milliampereHours(device.value(QStringLiteral("Energy")).toDouble(), volts);
        p[Key::MaxCapacity] =
            milliampereHours(device.value(QStringLiteral("EnergyFull")).toDouble(), volts);
        p[Key::DesignCapacity] =
            milliampereHours(device.value(QStringLiteral("EnergyFullDesign")).toDouble(), volts);
        // The rate is always positive in UPower; the registry's current is
        // negative while the battery gives power.
        const int amperage =
            milliampereHours(device.value(QStringLiteral("EnergyRate")).toDouble(), volts);
        p[Key::Amperage] = state == upowerCharging ? amperage : -amperage;
    }
    const qint64 seconds = device
                               .value(state == upowerCharging ? QStringLiteral("TimeToFull")
                                                              : QStringLiteral("TimeToEmpty"))
                               .toLongLong();
    p[Key::TimeRemaining] = int(seconds / 60);
    if (device.contains(QStringLiteral("Temperature")) &&
        device.value(QStringLiteral("Temperature")).toDouble() != 0)
        p[Key::Temperature] =
            int(std::lround(device.value(QStringLiteral("Temperature")).toDouble() * 100));
    // UPower gives -1 when the battery does not count its cycles.
    const int cycles = device.value(QStringLiteral("ChargeCycles"), -1).toInt();
    if (cycles >= 0)
        p[Key::CycleCount] = cycles;
    return r;
}

std::optional<Battery::Reading> Battery::fromPowerSupply()
{
    const QString base = QStringLiteral("/sys/class/power_supply/");
    QString battery;
    bool acOnline = false;
    for (const QString &name : SystemFiles::entries(base)) {
        const QString dir = base + name + QLatin1Char('/');
        const QString type = SystemFiles::firstLine(dir + QStringLiteral("type"));
        if (type == QLatin1String("Mains") || type == QLatin1String("USB"))
            acOnline = acOnline || SystemFiles::number(dir + QStringLiteral("online")) == 1;
        // A mouse's or headset's battery says "Device"; the machine's says
        // "System" or nothing.
        else if (type == QLatin1String("Battery") && battery.isEmpty() &&
                 SystemFiles::firstLine(dir + QStringLiteral("scope")) != QLatin1String("Device") &&
                 SystemFiles::number(dir + QStringLiteral("present"), 1) == 1)
            battery = dir;
    }
    if (battery.isEmpty())
        return std::nullopt;
    auto value = [&battery](const char *name) {
        return SystemFiles::number(battery + QLatin1String(name), -1);
    };
    Reading r;
    Properties &p = r.properties;
    const QString status = SystemFiles::firstLine(battery + QStringLiteral("status"));
    const bool charging = status == QLatin1String("Charging");
    r.percentage = double(std::max<qint64>(0, value("capacity")));
    p[Key::ACPowered] = acOnline || charging;
    p[Key::IsCharging] = charging;
    p[Key::FullyCharged] = status == QLatin1String("Full");
    // Batteries count in charge (µAh, current in µA) or in energy (µWh,
    // power in µW, turned into charge at the design voltage).
    const bool byCharge = value("charge_full") >= 0;
    qint64 volts = value("voltage_min_design");
    if (volts <= 0)
        volts = value("voltage_now");
    auto mAh = [&](const char *charge, const char *energy) -> std::optional<int> {
        if (byCharge && value(charge) >= 0)
            return int(value(charge) / 1000);
        if (!byCharge && value(energy) >= 0 && volts > 0)
            return milliampereHours(double(value(energy)), double(volts));
        return std::nullopt;
    };
    const auto now = mAh("charge_now", "energy_now");
    const auto full = mAh("charge_full", "energy_full");
    const auto design = mAh("charge_full_design", "energy_full_design");
    const auto flow = mAh("current_now", "power_now");
    if (now)
        p[Key::CurrentCapacity] = *now;
    if (full)
        p[Key::MaxCapacity] = *full;
    if (design)
        p[Key::DesignCapacity] = *design;
    if (flow) {
        const int current = std::abs(*flow);
        p[Key::Amperage] = charging ? current : -current;
        if (current > 0 && now && full)
            p[Key::TimeRemaining] = int((charging ? *full - *now : *now) * 60 / current);
    }
    if (!p.contains(Key::TimeRemaining))
        p[Key::TimeRemaining] = 0;
    if (value("cycle_count") > 0)
        p[Key::CycleCount] = int(value("cycle_count"));
    // Tenths of a degree.
    if (const qint64 temp = SystemFiles::number(battery + QStringLiteral("temp"), INT_MIN);
        temp != INT_MIN)
        p[Key::Temperature] = int(temp * 10);
    return r;
}

std::optional<std::optional<Battery::Reading>> Battery::fromUPowerService()
{
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected())
        return std::nullopt;
    QDBusInterface upower(upowerService, upowerPath, upowerService, bus);
    upower.setTimeout(busTimeoutMs);
    const QDBusReply<QList<QDBusObjectPath>> devices =
        upower.call(QStringLiteral("EnumerateDevices"));
    if (!devices.isValid())
        return std::nullopt;
    QDBusInterface rootProperties(upowerService, upowerPath, propertiesInterface, bus);
    rootProperties.setTimeout(busTimeoutMs);
    const QDBusReply<QDBusVariant> onBattery =
        rootProperties.call(QStringLiteral("Get"), upowerService, QStringLiteral("OnBattery"));
    for (const QDBusObjectPath &path : devices.value()) {
        QDBusInterface properties(upowerService, path.path(), propertiesInterface, bus);
        properties.setTimeout(busTimeoutMs);
        const QDBusReply<QVariantMap> all =
            properties.call(QStringLiteral("GetAll"), upowerService + QStringLiteral(".Device"));
        if (!all.isValid())
            continue;
        const QVariantMap device = all.value();
        if (device.value(QStringLiteral("Type")).toUInt() == upowerTypeBattery &&
            device.value(QStringLiteral("PowerSupply")).toBool() &&
            device.value(QStringLiteral("IsPresent"), true).toBool())
            return std::optional<Reading>(
                fromUPower(device, onBattery.isValid() && onBattery.value().variant().toBool()));
    }
    return std::optional<Reading>();
}

int32_t Battery::open()
{
    if (service != 0)
        return kIOReturnStillOpen;
    // A test's root stands for a whole machine, which a system bus cannot be.
    std::optional<std::optional<Reading>> reading;
    if (Platform::root().isEmpty())
        reading = fromUPowerService();
    if (!reading)
        reading = fromPowerSupply();
    if (!*reading)
        return kIOReturnNotFound;
    m_reading = **reading;
    service = 1;
    return kIOReturnSuccess;
}

void Battery::close()
{
    m_reading = Reading();
    service = 0;
}

double Battery::charge() const
{
    const int max = integer(Key::MaxCapacity);
    if (max <= 0)
        return std::floor(m_reading.percentage);
    return std::floor(double(integer(Key::CurrentCapacity)) / max * 100);
}

double Battery::temperature(TemperatureUnit unit) const
{
    double degrees = integer(Key::Temperature) / 100.0;
    if (unit == TemperatureUnit::Fahrenheit)
        degrees = degrees * 1.8 + 32;
    else if (unit == TemperatureUnit::Kelvin)
        degrees += 273.15;
    // Rounding is up, but a whole degree that the binary fractions of 1.8
    // or 273.15 push a hair above itself stays that degree.
    return std::ceil(degrees - 1e-9);
}

int Battery::timeRemaining() const
{
    return integer(Key::TimeRemaining);
}

QString Battery::timeRemainingFormatted() const
{
    const int minutes = timeRemaining();
    return QString::asprintf("%d:%02d", minutes / 60, minutes % 60);
}

int Battery::cycleCount() const
{
    return integer(Key::CycleCount);
}

int Battery::currentCapacity() const
{
    return integer(Key::CurrentCapacity);
}

int Battery::maxCapactiy() const
{
    return integer(Key::MaxCapacity);
}

int Battery::designCapacity() const
{
    return integer(Key::DesignCapacity);
}

int Battery::designCycleCount() const
{
    return integer(Key::DesignCycleCount);
}

bool Battery::isACPowered() const
{
    return boolean(Key::ACPowered);
}

bool Battery::isCharged() const
{
    return boolean(Key::FullyCharged);
}

bool Battery::isCharging() const
{
    return boolean(Key::IsCharging);
}
