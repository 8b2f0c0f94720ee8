#include "StatusTestSupport.h"
#include "cleaner/core/Platform.h"
#include "cleaner/status/Battery.h"
#include "cleaner/status/Reachability.h"
#include "cleaner/status/StatusFigures.h"
#include "cleaner/status/SystemStatusService.h"
#include "cleaner/status/VolumeInfo.h"
#include "support/TestEnvironment.h"

// The dashboard's volumes, network rates, machine names and battery, against
// this machine's df and /proc/net/dev, and against kernel files a test writes
// and UPower's device properties, in the formats those sources really use.
class DashboardDataTest : public QObject {
    Q_OBJECT

    static void writeSupply(const QString &root, const QString &name,
                            const QList<QPair<QString, QByteArray>> &files)
    {
        for (const auto &[file, text] : files)
            TreeBuilder::write(root + "/sys/class/power_supply/" + name + "/" + file, text + "\n");
    }

private slots:
    void volumesMatchDf()
    {
        const QList<VolumeInfo> volumes = VolumeInfo::mountedVolumes();
        QVERIFY(!volumes.isEmpty());
        QCOMPARE(volumes.first().path, QString("/"));
        for (const VolumeInfo &v : volumes) {
            // Each one as df sees its mount point, within what a build
            // running beside the test writes meanwhile.
            const QList<QByteArray> df =
                toolOutput("df -B1 --output=size,avail '" + v.path + "' | tail -1")
                    .simplified()
                    .split(' ');
            QCOMPARE(df.size(), 2);
            QCOMPARE(v.capacity, df[0].toLongLong());
            QVERIFY2(std::abs(v.available - df[1].toLongLong()) < 256 * 1024 * 1024,
                     qPrintable(v.path));
            QVERIFY(v.volumeType && !v.volumeType->isEmpty() && v.name);
        }
        // No kernel or memory file systems, each file system once.
        QSet<QString> paths;
        for (const VolumeInfo &v : volumes) {
            QVERIFY2(*v.volumeType != "proc" && *v.volumeType != "sysfs" &&
                         *v.volumeType != "tmpfs",
                     qPrintable(v.path));
            QVERIFY(!paths.contains(v.path));
            paths.insert(v.path);
        }
        const std::optional<StatusFigures::Disk> disk = StatusFigures::disk();
        QVERIFY(disk);
        QCOMPARE(disk->used + disk->available, disk->capacity);
    }

    void userVolumes_data()
    {
        QTest::addColumn<QString>("mountPoint");
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("device");
        QTest::addColumn<bool>("shown");
        const auto row = [](const char *name, const char *mountPoint, const char *type,
                            const char *device, bool shown) {
            QTest::newRow(name) << QString(mountPoint) << QString(type) << QString(device) << shown;
        };
        row("system disk on overlay", "/", "overlay", "overlay", true);
        row("data disk", "/data", "ext4", "/dev/sdb1", true);
        row("network share", "/mnt/nas", "nfs4", "nas:/export", true);
        row("zfs dataset", "/tank", "zfs", "tank/data", true);
        row("zfs snapshot", "/tank/.zfs/snapshot/a", "zfs", "tank/data@a", false);
        row("btrfs snapshot", "/.snapshots/5/snapshot", "btrfs", "/dev/sda2", false);
        row("snap package", "/snap/core/1", "squashfs", "/dev/loop3", false);
        row("kernel", "/proc", "proc", "proc", false);
        row("memory", "/run", "tmpfs", "tmpfs", false);
        row("container layer", "/var/lib/docker/x", "overlay", "overlay", false);
    }
    void userVolumes()
    {
        QFETCH(QString, mountPoint);
        QFETCH(QString, type);
        QFETCH(QString, device);
        MountedVolume v;
        v.path = mountPoint;
        v.fileSystemType = type;
        v.device = device;
        v.mountRoot = "/";
        QTEST(VolumeInfo::isUserVolume(v), "shown");
    }

    void volumesFromMountTable()
    {
        TestEnvironment env;
        QDir().mkpath(env.root() + "/media/user/STICK");
        QDir().mkpath(env.root() + "/home");
        TreeBuilder::write(env.root() + "/proc/self/mountinfo",
                           "30 22 8:17 / /media/user/STICK rw - vfat /dev/sdb1 rw\n"
                           "22 1 8:1 / / rw - ext4 /dev/sda1 rw\n"
                           "23 22 0:5 / /proc rw - proc proc rw\n"
                           // The same file system again, bound elsewhere.
                           "24 22 8:1 /home /home rw - ext4 /dev/sda1 rw\n"
                           "25 22 8:40 / /gone rw - ext4 /dev/sdc1 rw\n");
        TreeBuilder::write(env.root() + "/sys/block/sdb/removable", "1\n");
        TreeBuilder::write(env.root() + "/sys/block/sdb/sdb1/partition", "1\n");
        const QList<VolumeInfo> volumes = VolumeInfo::mountedVolumes();
        QCOMPARE(volumes.size(), 2); // the folder of /gone does not exist
        QCOMPARE(volumes[0].path, env.root());
        QCOMPARE(volumes[1].path, env.root() + "/media/user/STICK");
        QCOMPARE(volumes[1].name, std::optional<QString>("STICK"));
        QVERIFY(volumes[1].removable && !volumes[0].removable);
        QCOMPARE(volumes[1].image, std::optional<QString>("drive-removable-media"));
        QCOMPARE(VolumeInfo::volumes.size(), 2);
    }

    void networkMatchesProcNetDev()
    {
        const Reachability::MonitorData data = Reachability::getMonitorDataDetail();
        // The kernel's own table, summed by awk over the counted interfaces.
        const QList<QByteArray> sums =
            toolOutput("awk -F'[: ]+' 'NR>2 { sub(/^ +/, \"\"); split($0, f, /[: ]+/);"
                       " if (f[1] ~ /^(en|eth|wl)/) { i += f[2]; o += f[10]; n++ } }"
                       " END { print i+0, o+0, n+0 }' /proc/net/dev")
                .simplified()
                .split(' ');
        QCOMPARE(sums.size(), 3);
        QCOMPARE(data.interfaces, sums[2].toInt());
        QVERIFY(std::abs(data.bytesIn - sums[0].toLongLong()) < 1024 * 1024);
        QVERIFY(std::abs(data.bytesOut - sums[1].toLongLong()) < 1024 * 1024);
        QCOMPARE(Reachability::reachabilityForLocalWiFi(), data.interfaces > 0);
    }

    void networkRates_data()
    {
        QTest::addColumn<QByteArray>("netDev");
        QTest::addColumn<qint64>("firstDownload");
        QTest::addColumn<qint64>("firstUpload");
        const QByteArray header = "Inter-|   Receive |  Transmit\n face |bytes packets|bytes\n";
        QTest::newRow("loopback only: no network")
            << header + "    lo: 5000 10 0 0 0 0 0 0 5000 10 0 0 0 0 0 0\n"
            << qint64(0) << qint64(0);
        QTest::newRow("no interfaces at all") << QByteArray() << qint64(0) << qint64(0);
        QTest::newRow("wired and wireless, bridges left out")
            << header + "  eth0: 1000 1 0 0 0 0 0 0 500 1 0 0 0 0 0 0\n"
                        "wlp2s0: 4000 1 0 0 0 0 0 0 1500 1 0 0 0 0 0 0\n"
                        "docker0: 90000 1 0 0 0 0 0 0 90000 1 0 0 0 0 0 0\n"
                        "wwan0: 90000 1 0 0 0 0 0 0 90000 1 0 0 0 0 0 0\n"
            << qint64(1000) << qint64(400);
    }
    void networkRates()
    {
        QFETCH(QByteArray, netDev);
        TestEnvironment env;
        TreeBuilder::write(env.root() + "/proc/net/dev", netDev);
        NetworkRate rate(5);
        // The first reading is everything since boot over the period.
        const NetworkRate::Rates first = rate.getData();
        QTEST(first.download, "firstDownload");
        QTEST(first.upload, "firstUpload");
        // Nothing moved since: 0 both ways.
        const NetworkRate::Rates second = rate.getData();
        QCOMPARE(second.download, 0);
        QCOMPARE(second.upload, 0);
    }

    void networkRateSteps()
    {
        NetworkRate rate(5);
        Reachability::MonitorData d{5000, 10000, 1};
        QCOMPARE(rate.next(true, d).download, 2000);
        d.bytesIn = 15000;
        QCOMPARE(rate.next(true, d).download, 1000);
        // Counters that went back (an interface gone) show no traffic.
        d.bytesIn = 100;
        QCOMPARE(rate.next(true, d).download, 0);
        QCOMPARE(rate.totalReceive, 20);
        // Totals beyond 2^62 start over; no reachability reads nothing.
        rate.totalSend = 0x4000000000000000;
        QCOMPARE(rate.next(false, d).upload, 0);
        QCOMPARE(rate.totalSend, 0);
    }

    void modelNames_data()
    {
        QTest::addColumn<QByteArray>("product");
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("marketing");
        QTest::newRow("in the table")
            << QByteArray("Standard PC (Q35 + ICH9, 2009)\n") << "QEMU Virtual Machine"
            << "QEMU Virtual Machine (Q35 chipset)";
        QTest::newRow("not in the table") << QByteArray("Frobnitz 3000\n") << "Unknown"
                                          << "Unknown";
        QTest::newRow("no firmware name") << QByteArray() << "Unknown"
                                          << "Unknown";
        QTest::newRow("no table") << QByteArray("VirtualBox\n") << "Unknown"
                                  << "Unknown";
    }
    void modelNames()
    {
        QFETCH(QByteArray, product);
        TestEnvironment env;
        if (!product.isEmpty())
            TreeBuilder::write(env.root() + "/sys/class/dmi/id/product_name", product);
        if (QByteArray(QTest::currentDataTag()) == "no table")
            QFile::remove(env.resources() + "/SIMachineAttributes.plist");
        const SystemStatusService::ModelData names = SystemStatusService::getModelData();
        QTEST(names.model, "model");
        QTEST(names.marketingModel, "marketing");
        // An entry without its names block is as good as none.
        const QVariantMap table{{"VirtualBox", QVariantMap{{"model", "VirtualBox"}}}};
        QCOMPARE(SystemStatusService::modelData(table, "VirtualBox").marketingModel,
                 QString("Unknown"));
    }

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

QTEST_GUILESS_MAIN(DashboardDataTest)
#include "test_dashboard_data.moc"
