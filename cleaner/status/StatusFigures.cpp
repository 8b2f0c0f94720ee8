#include "cleaner/status/StatusFigures.h"

#include "cleaner/status/Battery.h"
#include "cleaner/status/VolumeInfo.h"

StatusFigures::CPU StatusFigures::cpuFrom(const System::LoadInfo &ticks, int cores)
{
    CPU cpu;
    cpu.cores = cores;
    const double total = double(ticks[0]) + double(ticks[1]) + double(ticks[2]) + double(ticks[3]);
    if (total <= 0)
        return cpu; // nothing read: 0 rather than the NaN of 0 over 0
    cpu.user = double(ticks[0]) / total * 100;
    cpu.used = (total - double(ticks[2])) / total * 100;
    cpu.available = 100 - cpu.used;
    return cpu;
}

StatusFigures::CPU StatusFigures::cpu()
{
    return cpuFrom(System::hostCPULoadInfo(), System::logicalCores());
}

StatusFigures::Memory StatusFigures::memory()
{
    Memory m;
    m.parts = System::memoryUsage();
    m.total = System::physicalMemory();
    m.used = m.parts.wired + m.parts.active + m.parts.inactive + m.parts.compressed;
    m.free = m.parts.free;
    m.available = std::max(0.0, m.total - m.used);
    return m;
}

std::optional<StatusFigures::Disk> StatusFigures::disk()
{
    const QList<VolumeInfo> volumes = VolumeInfo::mountedVolumes();
    if (volumes.isEmpty())
        return std::nullopt;
    const VolumeInfo &v = volumes.first();
    return Disk{v.name.value_or(QString()), v.capacity, v.capacity - v.available, v.available};
}

std::optional<StatusFigures::Battery> StatusFigures::battery()
{
    ::Battery b;
    if (b.open() != ::Battery::kIOReturnSuccess)
        return std::nullopt;
    Battery f{b.charge(),      b.timeRemainingFormatted(), b.cycleCount(), b.currentCapacity(),
              b.maxCapactiy(), b.designCapacity(),         b.isCharging(), b.isCharged(),
              b.isACPowered()};
    b.close();
    return f;
}
