#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <cstdint>

// The machine's CPU, memory, load, processes and uptime, read from the
// kernel each time they are asked for. The only state is the CPU reading of
// the previous usageCPU(), so a caller keeps one value for its whole life.
struct System {
    enum class Unit : int64_t {
        Byte = 1,
        Kilobyte = 1024,
        Megabyte = 1048576,
        Gigabyte = 1073741824,
    };
    enum class LOAD_AVG { SHORT, LONG };
    enum class ThermalLevel { Normal, Danger, Crisis, NotPublished, Unknown };
    static QString thermalLevelText(ThermalLevel level);
    // The kernel's warning level as a number: 0 Normal, 5 Danger, 10
    // Crisis, anything else Unknown.
    static ThermalLevel thermalLevelFromNumber(int level);

    // CPU ticks in the order user, system, idle, nice.
    using LoadInfo = std::array<uint64_t, 4>;
    LoadInfo loadPrevious{0, 0, 0, 0};

    struct CPUUsage {
        double system = 0, user = 0, idle = 0, nice = 0;
        double total = 0; // ticks between the two readings; 0 makes the shares NaN
    };
    // The shares of the ticks since the previous call (since boot at the first).
    CPUUsage usageCPU();
    // The same from two readings, as usageCPU does it.
    static CPUUsage usageBetween(const LoadInfo &previous, const LoadInfo &now);
    // The ticks since boot, from the first line of /proc/stat.
    static LoadInfo hostCPULoadInfo();

    struct MemoryUsage {
        double free = 0, active = 0, inactive = 0, wired = 0, compressed = 0; // gigabytes
    };
    static MemoryUsage memoryUsage();
    static double physicalMemory(Unit unit = Unit::Gigabyte);
    static int logicalCores();
    static int physicalCores();
    // The firmware's identifier of the machine ("" when it has none).
    static QString model();
    static QString platform();

    struct Uname {
        QString sysname, nodename, release, version, machine;
    };
    static Uname uname();

    struct LoadAverage {
        double one = 0, five = 0, fifteen = 0;
    };
    static LoadAverage loadAverage(LOAD_AVG type = LOAD_AVG::LONG);
    // How much processing power is free for each load average: cores minus
    // load, never below 0.
    static LoadAverage machFactor();

    struct ProcessCounts {
        int processCount = 0, threadCount = 0;
    };
    static ProcessCounts processCounts();

    struct Uptime {
        int days = 0, hrs = 0, mins = 0, secs = 0;
    };
    static Uptime uptime();

    static ThermalLevel thermalLevel();

    struct PowerLimit {
        double processorSpeed = 0, processorCount = 0, schedulerTime = 0;
    };
    static PowerLimit CPUPowerLimit();

    // Bytes of one memory page.
    static int64_t pageSize();
};
