#include "StatusTestSupport.h"
#include "cleaner/status/Battery.h"
#include "cleaner/status/StatusFigures.h"
#include "support/TestEnvironment.h"

#include <QDBusConnection>

// The battery from UPower's device properties and from the kernel's
// power-supply files, in the formats those sources really use.
class BatteryTest : public QObject {
    Q_OBJECT

    static void writeSupply(const QString &root, const QString &name,
                            const QList<QPair<QString, QByteArray>> &files)
    {
        for (const auto &[file, text] : files)
            writeText(root + "/sys/class/power_supply/" + name + "/" + file, text + "\n");
    }

private slots:
    void upowerDevice()
    {
        // Types as UPower puts them on the bus: d, x, u, i, b.
        const QVariantMap discharging{
            {"Type", uint(2)},     {"PowerSupply", true},          {"IsPresent", true},
            {"State", uint(2)},    {"Percentage", 63.0},           {"Energy", 31.5},
            {"EnergyFull", 50.0},  {"EnergyFullDesign", 57.0},     {"EnergyRate", 10.5},
            {"Voltage", 11.4},     {"TimeToEmpty", qint64(10800)}, {"TimeToFull", qint64(0)},
            {"Temperature", 30.1}, {"ChargeCycles", 312}};
        Battery b(Battery::fromUPower(discharging, true));
        QCOMPARE(b.currentCapacity(), 2763); // 31.5 Wh / 11.4 V
        QCOMPARE(b.maxCapactiy(), 4386);
        QCOMPARE(b.designCapacity(), 5000);
        QCOMPARE(b.reading().properties.value(Battery::Key::Amperage).toInt(), -921);
        QCOMPARE(b.charge(), 62.0); // 2763 / 4386, rounded down
        QCOMPARE(b.timeRemaining(), 180);
        QCOMPARE(b.timeRemainingFormatted(), QString("3:00"));
        QCOMPARE(b.cycleCount(), 312);
        QCOMPARE(b.temperature(), 31.0);
        QVERIFY(!b.isACPowered() && !b.isCharging() && !b.isCharged());

        // Charging: the time is the time to full; no cycle count (-1) and no
        // voltage leave those readings out and the charge at the percentage.
        QVariantMap charging = discharging;
        charging["State"] = uint(1);
        charging["TimeToFull"] = qint64(2700);
        charging["ChargeCycles"] = -1;
        charging["Voltage"] = 0.0;
        Battery c(Battery::fromUPower(charging, false));
        QVERIFY(c.isACPowered() && c.isCharging());
        QCOMPARE(c.timeRemainingFormatted(), QString("0:45"));
        QCOMPARE(c.charge(), 63.0);
        QCOMPARE(c.cycleCount(), 0);
        QVERIFY(!c.reading().properties.contains(Battery::Key::MaxCapacity));
    }

    void temperature_data()
    {
        QTest::addColumn<int>("hundredths");
        QTest::addColumn<int>("unit");
        QTest::addColumn<double>("expected");
        QTest::newRow("30.10 C rounds up")
            << 3010 << int(Battery::TemperatureUnit::Celsius) << 31.0;
        QTest::newRow("30.00 C stays") << 3000 << int(Battery::TemperatureUnit::Celsius) << 30.0;
        QTest::newRow("30.00 C in F") << 3000 << int(Battery::TemperatureUnit::Fahrenheit) << 86.0;
        QTest::newRow("30.10 C in F") << 3010 << int(Battery::TemperatureUnit::Fahrenheit) << 87.0;
        QTest::newRow("30.00 C in K") << 3000 << int(Battery::TemperatureUnit::Kelvin) << 304.0;
        QTest::newRow("below zero") << -250 << int(Battery::TemperatureUnit::Celsius) << -2.0;
    }
    void temperature()
    {
        QFETCH(int, hundredths);
        QFETCH(int, unit);
        Battery::Reading r;
        r.properties[Battery::Key::Temperature] = hundredths;
        QTEST(Battery(r).temperature(Battery::TemperatureUnit(unit)), "expected");
    }

    void sysfsChargeBattery()
    {
        TestEnvironment env;
        // A notebook's battery that counts charge, with its adapter plugged in.
        writeSupply(env.root(), "AC", {{"type", "Mains"}, {"online", "1"}});
        writeSupply(env.root(), "BAT0",
                    {{"type", "Battery"},
                     {"present", "1"},
                     {"status", "Charging"},
                     {"capacity", "80"},
                     {"charge_now", "3200000"},
                     {"charge_full", "4000000"},
                     {"charge_full_design", "4400000"},
                     {"current_now", "1600000"},
                     {"voltage_min_design", "11100000"},
                     {"cycle_count", "57"},
                     {"temp", "301"}});
        Battery b;
        QCOMPARE(b.open(), Battery::kIOReturnSuccess);
        QCOMPARE(b.open(), Battery::kIOReturnStillOpen);
        QCOMPARE(b.currentCapacity(), 3200);
        QCOMPARE(b.maxCapactiy(), 4000);
        QCOMPARE(b.designCapacity(), 4400);
        QCOMPARE(b.charge(), 80.0);
        QCOMPARE(b.timeRemainingFormatted(), QString("0:30")); // 800 mAh at 1600 mA
        QCOMPARE(b.cycleCount(), 57);
        QCOMPARE(b.temperature(), 31.0);
        QVERIFY(b.isACPowered() && b.isCharging() && !b.isCharged());
        b.close();
        QCOMPARE(b.service, 0u);
        QCOMPARE(b.currentCapacity(), 0);
    }

    void sysfsEnergyBattery()
    {
        TestEnvironment env;
        // Counted in energy; the charger is off; a mouse's battery beside it.
        writeSupply(env.root(), "ADP1", {{"type", "Mains"}, {"online", "0"}});
        writeSupply(env.root(), "hidpp_battery_0",
                    {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "5"}});
        writeSupply(env.root(), "BAT1",
                    {{"type", "Battery"},
                     {"status", "Discharging"},
                     {"capacity", "50"},
                     {"energy_now", "25000000"},
                     {"energy_full", "50000000"},
                     {"energy_full_design", "50000000"},
                     {"power_now", "12500000"},
                     {"voltage_min_design", "12500000"}});
        Battery b;
        QCOMPARE(b.open(), Battery::kIOReturnSuccess);
        QCOMPARE(b.currentCapacity(), 2000); // 25 Wh at 12.5 V
        QCOMPARE(b.charge(), 50.0);
        QCOMPARE(b.timeRemaining(), 120);
        QCOMPARE(b.reading().properties.value(Battery::Key::Amperage).toInt(), -1000);
        QVERIFY(!b.isACPowered() && !b.isCharging());
        QCOMPARE(b.cycleCount(), 0);
    }

    void noBattery_data()
    {
        QTest::addColumn<bool>("withPeripheral");
        QTest::newRow("no power supplies") << false;
        QTest::newRow("only a mouse's battery") << true;
    }
    void noBattery()
    {
        QFETCH(bool, withPeripheral);
        TestEnvironment env;
        writeSupply(env.root(), "AC", {{"type", "Mains"}, {"online", "1"}});
        if (withPeripheral)
            writeSupply(env.root(), "hid-1", {{"type", "Battery"}, {"scope", "Device"}});
        Battery b;
        QCOMPARE(b.open(), Battery::kIOReturnNotFound);
        QCOMPARE(b.service, 0u);
        QVERIFY(!StatusFigures::battery());
    }
};

QTEST_GUILESS_MAIN(BatteryTest)
#include "test_battery.moc"
