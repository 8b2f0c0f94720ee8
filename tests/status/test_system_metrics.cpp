#include "StatusTestSupport.h"
#include "cleaner/core/Platform.h"
#include "cleaner/status/System.h"
#include "support/TestEnvironment.h"

#include <QDateTime>
#include <QSet>
#include <cmath>
#include <unistd.h>

using LoadInfo = System::LoadInfo;
Q_DECLARE_METATYPE(LoadInfo)

// The readings against this machine's kernel and its own tools at the same
// moment, and the readings' rules over kernel files a test writes.
class SystemMetricsTest : public QObject {
    Q_OBJECT

private slots:
    void memoryMatchesFree()
    {
        const QList<QByteArray> mem = toolOutput("free -b | sed -n 2p").simplified().split(' ');
        QCOMPARE(mem.size(), 7);
        const qint64 total = mem[1].toLongLong();
        QVERIFY(total > 0);
        // Both read the same kernel figure of usable memory.
        QCOMPARE(qint64(System::physicalMemory(System::Unit::Byte)), total);
        QCOMPARE(System::physicalMemory(System::Unit::Megabyte), double(total) / 1048576);
        // Free memory moves with everything running: within 2 % of the total.
        const double freeGB = double(mem[3].toLongLong()) / 1073741824;
        const System::MemoryUsage usage = System::memoryUsage();
        QVERIFY2(std::abs(usage.free - freeGB) < System::physicalMemory() * 0.02,
                 qPrintable(QStringLiteral("%1 against %2").arg(usage.free).arg(freeGB)));
        // Used as the panel sums it is what free calls used, give or take the
        // kernel's reclaimable parts.
        const double usedGB = usage.active + usage.inactive + usage.wired + usage.compressed;
        const double freeUsedGB = double(mem[2].toLongLong()) / 1073741824;
        QVERIFY2(std::abs(usedGB - freeUsedGB) < System::physicalMemory() * 0.1,
                 qPrintable(QStringLiteral("%1 against %2").arg(usedGB).arg(freeUsedGB)));
        // What is in use and what is free never exceed what there is.
        QVERIFY(usage.active > 0 && usage.wired > 0);
        QVERIFY(usage.free + usage.active + usage.inactive + usage.wired + usage.compressed <=
                System::physicalMemory() * 1.001);
    }

    void coresMatchNprocAndLscpu()
    {
        const int usable = toolOutput("nproc").trimmed().toInt();
        const int all = toolOutput("nproc --all").trimmed().toInt();
        QVERIFY(usable > 0);
        QVERIFY(System::logicalCores() >= usable && System::logicalCores() <= all);
        // lscpu's own count of (socket, core) pairs among online CPUs.
        QSet<QByteArray> cores;
        for (const QByteArray &line : toolOutput("lscpu -p=socket,core,online").split('\n')) {
            if (!line.isEmpty() && !line.startsWith('#') && line.endsWith(",Y"))
                cores.insert(line);
        }
        if (!cores.isEmpty())
            QCOMPARE(System::physicalCores(), int(cores.size()));
        QVERIFY(System::physicalCores() >= 1 && System::physicalCores() <= System::logicalCores());
        QCOMPARE(System::CPUPowerLimit().processorCount, double(System::logicalCores()));
    }

    void uptimeAndLoadMatchUptime()
    {
        const QDateTime boot = QDateTime::fromString(
            QString::fromLatin1(toolOutput("uptime -s").trimmed()), "yyyy-MM-dd HH:mm:ss");
        QVERIFY(boot.isValid());
        const System::Uptime up = System::uptime();
        QVERIFY(up.hrs < 24 && up.mins < 60 && up.secs < 60);
        const qint64 seconds = ((qint64(up.days) * 24 + up.hrs) * 60 + up.mins) * 60 + up.secs;
        QVERIFY(std::abs(boot.secsTo(QDateTime::currentDateTime()) - seconds) <= 2);

        // "... load average: 1.05, 0.98, 0.90"
        const QString text = QString::fromLatin1(toolOutput("uptime"));
        const QStringList loads =
            text.mid(text.indexOf(QLatin1String("average:")) + 8).split(QLatin1Char(','));
        QCOMPARE(loads.size(), 3);
        const System::LoadAverage load = System::loadAverage();
        // The kernel recomputes every 5 seconds: close, not equal.
        QVERIFY(std::abs(load.fifteen - loads[2].trimmed().toDouble()) < 0.5);
        QVERIFY(std::abs(load.one - loads[0].trimmed().toDouble()) < 2.0);
        const System::LoadAverage factor = System::machFactor();
        QVERIFY(factor.one >= 0 && factor.one <= System::logicalCores());
    }

    void processCountsMatchPs()
    {
        const int processes = toolOutput("ps -e --no-headers | wc -l").trimmed().toInt();
        const int threads = toolOutput("ps -eL --no-headers | wc -l").trimmed().toInt();
        const System::ProcessCounts counts = System::processCounts();
        QVERIFY2(
            std::abs(counts.processCount - processes) <= 10,
            qPrintable(QStringLiteral("%1 against %2").arg(counts.processCount).arg(processes)));
        QVERIFY(std::abs(counts.threadCount - threads) <= 20);
        QVERIFY(counts.threadCount >= counts.processCount);
    }

    void usageBetween_data()
    {
        QTest::addColumn<LoadInfo>("previous");
        QTest::addColumn<LoadInfo>("now");
        QTest::addColumn<double>("total");
        QTest::addColumn<double>("user");
        QTest::addColumn<double>("idle");
        QTest::newRow("first reading")
            << LoadInfo{0, 0, 0, 0} << LoadInfo{30, 10, 50, 10} << 100.0 << 30.0 << 50.0;
        QTest::newRow("later reading")
            << LoadInfo{30, 10, 50, 10} << LoadInfo{40, 20, 70, 10} << 40.0 << 25.0 << 50.0;
        // The idle sum dropped (a CPU went offline): no wrap to 2^64.
        QTest::newRow("counter went back")
            << LoadInfo{30, 10, 500, 10} << LoadInfo{40, 20, 400, 10} << 20.0 << 50.0 << 0.0;
        QTest::newRow("above 32 bits")
            << LoadInfo{0xFFFFFFF0, 0, 0, 0} << LoadInfo{0x100000010ULL, 0, 32, 0} << 64.0 << 50.0
            << 50.0;
    }
    void usageBetween()
    {
        QFETCH(LoadInfo, previous);
        QFETCH(LoadInfo, now);
        const System::CPUUsage usage = System::usageBetween(previous, now);
        QTEST(usage.total, "total");
        QTEST(usage.user, "user");
        QTEST(usage.idle, "idle");
    }

    void noTicksBetweenReadingsIsNotANumber()
    {
        TestEnvironment env;
        TreeBuilder::write(env.root() + "/proc/stat",
                           "cpu  100 5 20 300 7 1 2 3 0 0\ncpu0 1 1 1 1\n");
        System system;
        const System::CPUUsage first = system.usageCPU();
        // iowait counts as idle; irq, softirq and steal as system.
        QCOMPARE(system.loadPrevious, (LoadInfo{100, 26, 307, 5}));
        QCOMPARE(first.total, 438.0);
        const System::CPUUsage second = system.usageCPU();
        QCOMPARE(second.total, 0.0);
        QVERIFY(std::isnan(second.user) && std::isnan(second.idle));
    }

    void thermalZones_data()
    {
        QTest::addColumn<QByteArray>("temp"); // of the second zone; the first is cool
        QTest::addColumn<QString>("level");
        QTest::newRow("below every trip") << QByteArray("45000\n") << "Normal";
        QTest::newRow("at the passive trip") << QByteArray("80000\n") << "Danger";
        QTest::newRow("above the critical trip") << QByteArray("105000\n") << "Crisis";
        QTest::newRow("unreadable zone") << QByteArray("") << "Normal";
    }
    void thermalZones()
    {
        QFETCH(QByteArray, temp);
        TestEnvironment env;
        QCOMPARE(System::thermalLevel(), System::ThermalLevel::NotPublished);
        const QString zones = env.root() + "/sys/class/thermal/";
        TreeBuilder::write(zones + "thermal_zone0/temp", "40000\n");
        TreeBuilder::write(zones + "thermal_zone1/temp", temp);
        TreeBuilder::write(zones + "thermal_zone1/trip_point_0_type", "passive\n");
        TreeBuilder::write(zones + "thermal_zone1/trip_point_0_temp", "80000\n");
        TreeBuilder::write(zones + "thermal_zone1/trip_point_1_type", "critical\n");
        TreeBuilder::write(zones + "thermal_zone1/trip_point_1_temp", "100000\n");
        TreeBuilder::write(zones + "cooling_device0/type", "Processor\n");
        QTEST(System::thermalLevelText(System::thermalLevel()), "level");
    }

    void topologyMemoryAndLimitsFromKernelFiles()
    {
        TestEnvironment env;
        const QString cpu = env.root() + "/sys/devices/system/cpu/";
        TreeBuilder::write(cpu + "online", "0-3\n");
        // Two cores of two threads each.
        for (int i = 0; i < 4; ++i) {
            TreeBuilder::write(cpu + QString("cpu%1/topology/physical_package_id").arg(i), "0\n");
            TreeBuilder::write(cpu + QString("cpu%1/topology/core_id").arg(i),
                               QByteArray::number(i / 2));
        }
        TreeBuilder::write(cpu + "cpu0/cpufreq/scaling_max_freq", "2400000\n");
        TreeBuilder::write(cpu + "cpu0/cpufreq/cpuinfo_max_freq", "3200000\n");
        TreeBuilder::write(env.root() + "/proc/meminfo",
                           "MemTotal:        8388608 kB\nMemFree:         2097152 kB\n"
                           "Active:          9999999 kB\nActive(anon):    1048576 kB\n"
                           "Active(file):    7777777 kB\nInactive(anon):   524288 kB\n"
                           "Unevictable:       65536 kB\nSUnreclaim:       131072 kB\n"
                           "KernelStack:       32768 kB\nPageTables:        32768 kB\n"
                           "Zswap:             262144 kB\n");
        TreeBuilder::write(env.root() + "/sys/class/dmi/id/product_name", "VirtualBox\n");
        QCOMPARE(System::logicalCores(), 4);
        QCOMPARE(System::physicalCores(), 2);
        QCOMPARE(System::CPUPowerLimit().processorSpeed, 75.0);
        QCOMPARE(System::physicalMemory(), 8.0);
        const System::MemoryUsage m = System::memoryUsage();
        QCOMPARE(m.free, 2.0);
        QCOMPARE(m.active, 1.0);
        QCOMPARE(m.inactive, 0.5);
        QCOMPARE(m.wired, 0.25);
        QCOMPARE(m.compressed, 0.25);
        QCOMPARE(System::model(), QString("VirtualBox"));
    }

    void missingKernelFilesGiveZeros()
    {
        TestEnvironment env;
        System system;
        QCOMPARE(system.usageCPU().total, 0.0);
        QCOMPARE(System::physicalMemory(), 0.0);
        QCOMPARE(System::memoryUsage().free, 0.0);
        QCOMPARE(System::logicalCores(), 0);
        QCOMPARE(System::uptime().days + System::uptime().secs, 0);
        QCOMPARE(System::processCounts().threadCount, 0);
        QCOMPARE(System::CPUPowerLimit().processorSpeed, 0.0);
        QCOMPARE(System::model(), QString());
    }
};

QTEST_GUILESS_MAIN(SystemMetricsTest)
#include "test_system_metrics.moc"
