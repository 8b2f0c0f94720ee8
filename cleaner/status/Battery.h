#pragma once

#include <QHash>
#include <QString>
#include <QVariantMap>
#include <cstdint>
#include <optional>

// The machine's battery. open() takes one reading of it, from UPower on the
// system bus, or from /sys/class/power_supply when UPower does not answer;
// the operations then answer from that reading in the units of the battery
// registry (mAh, minutes, hundredths of a degree). Opened values are closed
// after use; a reading never changes while open.
class Battery {
public:
    static constexpr int32_t kIOReturnSuccess = 0;
    static constexpr int32_t kIOReturnStillOpen = int32_t(0xe00002cd);
    static constexpr int32_t kIOReturnNotFound = int32_t(0xe00002f0);
    static const QString IOSERVICE_BATTERY;

    enum class TemperatureUnit { Celsius, Fahrenheit, Kelvin };
    enum class Key {
        ACPowered,
        Amperage,
        CurrentCapacity,
        CycleCount,
        DesignCapacity,
        DesignCycleCount,
        FullyCharged,
        IsCharging,
        MaxCapacity,
        Temperature,
        TimeRemaining,
    };
    // The registry's name of a key ("ExternalConnected", ...).
    static QString keyName(Key key);
    using Properties = QHash<Key, QVariant>;
    struct Reading {
        Properties properties;
        double percentage = 0; // the charge the source gives beside the capacities
    };

    Battery() = default;
    // An open battery with this reading (what open() would have taken).
    explicit Battery(Reading reading) : service(1), m_reading(std::move(reading)) {}

    // 0 while closed.
    uint32_t service = 0;

    int32_t open();
    void close();

    double charge() const;
    double temperature(TemperatureUnit unit = TemperatureUnit::Celsius) const;
    int timeRemaining() const;
    QString timeRemainingFormatted() const;
    int cycleCount() const;
    int currentCapacity() const;
    int maxCapactiy() const;
    int designCapacity() const;
    int designCycleCount() const;
    bool isACPowered() const;
    bool isCharged() const;
    bool isCharging() const;

    // One battery as UPower describes it (org.freedesktop.UPower.Device's
    // properties), with UPower's OnBattery. Properties it does not give are
    // left out.
    static Reading fromUPower(const QVariantMap &device, bool onBattery);
    // The first system battery under <root>/sys/class/power_supply, or nothing.
    static std::optional<Reading> fromPowerSupply();
    // UPower's first power-supplying battery; nullopt when UPower does not
    // answer, an empty result when it answers that there is none.
    static std::optional<std::optional<Reading>> fromUPowerService();

    const Reading &reading() const { return m_reading; }

private:
    // A reading the source does not give is 0 (or false).
    int integer(Key key) const { return m_reading.properties.value(key).toInt(); }
    bool boolean(Key key) const { return m_reading.properties.value(key).toBool(); }

    Reading m_reading;
};
