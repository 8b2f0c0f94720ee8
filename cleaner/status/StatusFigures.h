#pragma once

#include "cleaner/status/System.h"

#include <QString>
#include <optional>

// The figures of the status panel, each read fresh when asked for, so the
// panel's views and the command line show the same numbers.
class StatusFigures {
public:
    struct CPU {
        int cores = 0;
        double user = 0;      // percent of all ticks since boot
        double used = 0;      // every share but idle, percent
        double available = 0; // 100 - used
    };
    // Averages since boot, from the tick counters as they stand.
    static CPU cpu();
    static CPU cpuFrom(const System::LoadInfo &ticks, int cores);

    struct Memory {
        double total = 0, used = 0, free = 0, available = 0; // gigabytes
        System::MemoryUsage parts;
    };
    static Memory memory();

    struct Disk {
        QString name;
        qint64 capacity = 0, used = 0, available = 0; // bytes
    };
    // The first mounted volume (the system's disk); nullopt when none.
    static std::optional<Disk> disk();

    struct Battery {
        double charge = 0;
        QString timeRemaining; // "h:mm"
        int cycles = 0;
        int currentCapacity = 0, maxCapacity = 0, designCapacity = 0; // mAh
        bool charging = false, charged = false, acPowered = false;
    };
    // nullopt on a machine without a battery.
    static std::optional<Battery> battery();
};
