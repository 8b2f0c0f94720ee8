#include "cleaner/status/System.h"

#include "cleaner/status/SystemFiles.h"

#include <QRegularExpression>
#include <QSet>
#include <cmath>
#include <sys/utsname.h>
#include <unistd.h>

namespace {

// A field of /proc/meminfo in bytes ("MemFree:  123 kB"); 0 when absent.
qint64 memInfo(const QByteArray &text, const QByteArray &key)
{
    for (const QByteArray &line : text.split('\n')) {
        if (!line.startsWith(QByteArray(key + ':')))
            continue;
        const QList<QByteArray> fields = line.mid(key.size() + 1).simplified().split(' ');
        bool ok = false;
        const qint64 value = fields.value(0).toLongLong(&ok);
        if (!ok)
            return 0;
        return fields.value(1) == "kB" ? value * 1024 : value;
    }
    return 0;
}

double gigabytes(qint64 bytes)
{
    return double(bytes) * 9.313225746154785e-10;
}

QList<int> onlineCpus()
{
    QList<int> cpus = SystemFiles::cpuList(
        SystemFiles::firstLine(QStringLiteral("/sys/devices/system/cpu/online")));
    if (cpus.isEmpty()) {
        // Without sysfs the CPU lines of /proc/stat name the online CPUs.
        static const QRegularExpression line(QStringLiteral("^cpu(\\d+) "),
                                             QRegularExpression::MultilineOption);
        const QString stat = QString::fromLatin1(SystemFiles::read(QStringLiteral("/proc/stat")));
        for (auto it = line.globalMatch(stat); it.hasNext();)
            cpus.append(it.next().captured(1).toInt());
    }
    return cpus;
}

QString cpuPath(int cpu, const QString &name)
{
    return QStringLiteral("/sys/devices/system/cpu/cpu%1/%2").arg(cpu).arg(name);
}

} // namespace

QString System::thermalLevelText(ThermalLevel level)
{
    switch (level) {
    case ThermalLevel::Normal:
        return QStringLiteral("Normal");
    case ThermalLevel::Danger:
        return QStringLiteral("Danger");
    case ThermalLevel::Crisis:
        return QStringLiteral("Crisis");
    case ThermalLevel::NotPublished:
        return QStringLiteral("Not Published");
    case ThermalLevel::Unknown:
        break;
    }
    return QStringLiteral("Unknown");
}

System::ThermalLevel System::thermalLevelFromNumber(int level)
{
    switch (level) {
    case 0:
        return ThermalLevel::Normal;
    case 5:
        return ThermalLevel::Danger;
    case 10:
        return ThermalLevel::Crisis;
    default:
        return ThermalLevel::Unknown;
    }
}

System::LoadInfo System::hostCPULoadInfo()
{
    // cpu  user nice system idle iowait irq softirq steal guest guest_nice
    const QByteArray stat = SystemFiles::read(QStringLiteral("/proc/stat"));
    const QByteArray line = stat.left(stat.indexOf('\n'));
    if (!line.startsWith("cpu "))
        return {0, 0, 0, 0};
    const QList<QByteArray> f = line.simplified().split(' ');
    auto at = [&f](int i) { return i < f.size() ? f[i].toULongLong() : 0ULL; };
    // Guest time is already inside user time. Waiting for I/O is idle time;
    // interrupts and time stolen by the hypervisor are the system's.
    return {at(1), at(3) + at(6) + at(7) + at(8), at(4) + at(5), at(2)};
}

System::CPUUsage System::usageBetween(const LoadInfo &previous, const LoadInfo &now)
{
    // A counter can go back: the sum over CPUs drops when one goes offline,
    // and the I/O wait count is known to step back. Such a counter adds no
    // ticks to this reading instead of wrapping to a huge number.
    LoadInfo d{};
    for (size_t i = 0; i < d.size(); ++i)
        d[i] = now[i] >= previous[i] ? now[i] - previous[i] : 0;
    CPUUsage usage;
    usage.total = double(d[0]) + double(d[1]) + double(d[2]) + double(d[3]);
    usage.user = double(d[0]) / usage.total * 100;
    usage.system = double(d[1]) / usage.total * 100;
    usage.idle = double(d[2]) / usage.total * 100;
    usage.nice = double(d[3]) / usage.total * 100;
    return usage;
}

System::CPUUsage System::usageCPU()
{
    const LoadInfo now = hostCPULoadInfo();
    const CPUUsage usage = usageBetween(loadPrevious, now);
    loadPrevious = now;
    return usage;
}

int64_t System::pageSize()
{
    static const int64_t size = sysconf(_SC_PAGESIZE);
    return size;
}

System::MemoryUsage System::memoryUsage()
{
    const QByteArray m = SystemFiles::read(QStringLiteral("/proc/meminfo"));
    MemoryUsage usage;
    usage.free = gigabytes(memInfo(m, "MemFree"));
    // Programs' own pages only: the file cache is handed back on demand, so
    // it is neither used nor lost (as free(1) counts it).
    usage.active = gigabytes(memInfo(m, "Active(anon)"));
    usage.inactive = gigabytes(memInfo(m, "Inactive(anon)"));
    // Memory the kernel cannot page out: locked pages, its own unreclaimable
    // tables and stacks.
    usage.wired = gigabytes(memInfo(m, "Unevictable") + memInfo(m, "SUnreclaim") +
                            memInfo(m, "KernelStack") + memInfo(m, "PageTables"));
    usage.compressed = gigabytes(memInfo(m, "Zswap"));
    return usage;
}

double System::physicalMemory(Unit unit)
{
    const qint64 total = memInfo(SystemFiles::read(QStringLiteral("/proc/meminfo")), "MemTotal");
    return double(total) / double(static_cast<int64_t>(unit));
}

int System::logicalCores()
{
    return int(onlineCpus().size());
}

int System::physicalCores()
{
    QSet<QString> cores;
    for (int cpu : onlineCpus()) {
        const QString package =
            SystemFiles::firstLine(cpuPath(cpu, QStringLiteral("topology/physical_package_id")));
        const QString core =
            SystemFiles::firstLine(cpuPath(cpu, QStringLiteral("topology/core_id")));
        // Without topology every CPU counts as a core of its own.
        cores.insert(core.isEmpty() ? QString::number(cpu) : package + QLatin1Char(':') + core);
    }
    return int(cores.size());
}

QString System::model()
{
    const QString product =
        SystemFiles::firstLine(QStringLiteral("/sys/class/dmi/id/product_name"));
    if (!product.isEmpty())
        return product;
    // Boards without DMI (ARM) name themselves in the device tree, NUL-ended.
    QByteArray tree = SystemFiles::read(QStringLiteral("/proc/device-tree/model"));
    return QString::fromUtf8(tree.left(tree.indexOf('\0'))).trimmed();
}

QString System::platform()
{
    return uname().machine;
}

System::Uname System::uname()
{
    utsname u{};
    if (::uname(&u) != 0)
        return {};
    return {QString::fromLocal8Bit(u.sysname), QString::fromLocal8Bit(u.nodename),
            QString::fromLocal8Bit(u.release), QString::fromLocal8Bit(u.version),
            QString::fromLocal8Bit(u.machine)};
}

System::LoadAverage System::loadAverage(LOAD_AVG type)
{
    // The kernel keeps one set of load averages; both kinds read it.
    Q_UNUSED(type);
    const QList<QByteArray> f =
        SystemFiles::read(QStringLiteral("/proc/loadavg")).simplified().split(' ');
    return {f.value(0).toDouble(), f.value(1).toDouble(), f.value(2).toDouble()};
}

System::LoadAverage System::machFactor()
{
    const LoadAverage load = loadAverage();
    const double cores = logicalCores();
    return {std::max(0.0, cores - load.one), std::max(0.0, cores - load.five),
            std::max(0.0, cores - load.fifteen)};
}

System::ProcessCounts System::processCounts()
{
    ProcessCounts counts;
    for (const QString &name : SystemFiles::entries(QStringLiteral("/proc"))) {
        bool isPid = false;
        name.toInt(&isPid);
        counts.processCount += isPid;
    }
    // "running/total": the total counts every thread the scheduler knows.
    const QList<QByteArray> f =
        SystemFiles::read(QStringLiteral("/proc/loadavg")).simplified().split(' ');
    counts.threadCount = f.value(3).mid(f.value(3).indexOf('/') + 1).toInt();
    return counts;
}

System::Uptime System::uptime()
{
    const qint64 seconds = qint64(SystemFiles::read(QStringLiteral("/proc/uptime"))
                                      .simplified()
                                      .split(' ')
                                      .value(0)
                                      .toDouble());
    return {int(seconds / 86400), int(seconds / 3600 % 24), int(seconds / 60 % 60),
            int(seconds % 60)};
}

System::ThermalLevel System::thermalLevel()
{
    // Each zone against its own trip points: at a critical trip the machine
    // is about to be stopped, at a hot or passive one it is slowed down.
    const QString base = QStringLiteral("/sys/class/thermal/");
    bool published = false;
    int level = 0;
    for (const QString &zone : SystemFiles::entries(base)) {
        if (!zone.startsWith(QLatin1String("thermal_zone")))
            continue;
        const QString dir = base + zone + QLatin1Char('/');
        bool ok = false;
        const qint64 temp = SystemFiles::firstLine(dir + QStringLiteral("temp")).toLongLong(&ok);
        if (!ok)
            continue;
        published = true;
        for (int trip = 0;; ++trip) {
            const QString prefix = dir + QStringLiteral("trip_point_%1_").arg(trip);
            const QString type = SystemFiles::firstLine(prefix + QStringLiteral("type"));
            if (type.isEmpty())
                break;
            const qint64 limit = SystemFiles::number(prefix + QStringLiteral("temp"), 0);
            if (limit <= 0 || temp < limit)
                continue;
            if (type == QLatin1String("critical"))
                level = std::max(level, 10);
            else if (type == QLatin1String("hot") || type == QLatin1String("passive"))
                level = std::max(level, 5);
        }
    }
    return published ? thermalLevelFromNumber(level) : ThermalLevel::NotPublished;
}

System::PowerLimit System::CPUPowerLimit()
{
    PowerLimit limit;
    const QList<int> cpus = onlineCpus();
    limit.processorCount = double(cpus.size());
    // The speed limit: the highest allowed frequency against the highest the
    // CPU can run, in percent. No frequency scaling leaves it at 0.
    if (!cpus.isEmpty()) {
        const qint64 allowed =
            SystemFiles::number(cpuPath(cpus.first(), QStringLiteral("cpufreq/scaling_max_freq")));
        const qint64 top =
            SystemFiles::number(cpuPath(cpus.first(), QStringLiteral("cpufreq/cpuinfo_max_freq")));
        if (allowed > 0 && top > 0)
            limit.processorSpeed = std::round(double(allowed) * 100 / double(top));
    }
    // The scheduler limit: this program's cgroup quota ("max" is no limit).
    const QString cgroup = SystemFiles::firstLine(QStringLiteral("/proc/self/cgroup"));
    if (cgroup.startsWith(QLatin1String("0::"))) {
        const QStringList max = SystemFiles::firstLine(QStringLiteral("/sys/fs/cgroup") +
                                                       cgroup.mid(3) + QStringLiteral("/cpu.max"))
                                    .split(QLatin1Char(' '));
        if (max.size() == 2 && max[0] == QLatin1String("max"))
            limit.schedulerTime = 100;
        else if (max.size() == 2 && max[1].toDouble() > 0)
            limit.schedulerTime = max[0].toDouble() * 100 / max[1].toDouble();
    }
    return limit;
}
