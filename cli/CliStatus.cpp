#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/status/Reachability.h"
#include "cleaner/status/StatusFigures.h"
#include "cli/CliCommands.h"
#include "cli/TerminalText.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QJsonObject>
#include <QThread>
#include <optional>

namespace {

struct Report {
    StatusFigures::CPU cpu;
    std::optional<double> cpuNow; // percent used since the previous report
    StatusFigures::Memory memory;
    std::optional<StatusFigures::Disk> disk;
    std::optional<StatusFigures::Battery> battery;
    NetworkRate::Rates network;
};

QString tr(const char *key)
{
    return getLocalizedString(QLatin1String(key));
}

QJsonObject json(const Report &r)
{
    QJsonObject cpu{{"cores", r.cpu.cores},
                    {"user", r.cpu.user},
                    {"used", r.cpu.used},
                    {"available", r.cpu.available}};
    if (r.cpuNow)
        cpu.insert("usedNow", *r.cpuNow);
    const QJsonObject memory{{"total", r.memory.total},
                             {"used", r.memory.used},
                             {"free", r.memory.free},
                             {"available", r.memory.available}};
    QJsonValue disk;
    if (r.disk)
        disk = QJsonObject{{"name", r.disk->name},
                           {"capacity", r.disk->capacity},
                           {"used", r.disk->used},
                           {"available", r.disk->available}};
    QJsonValue battery;
    if (r.battery)
        battery = QJsonObject{{"charge", r.battery->charge},
                              {"timeRemaining", r.battery->timeRemaining},
                              {"cycleCount", r.battery->cycles},
                              {"currentCapacity", r.battery->currentCapacity},
                              {"maxCapacity", r.battery->maxCapacity},
                              {"designCapacity", r.battery->designCapacity},
                              {"isCharging", r.battery->charging},
                              {"isCharged", r.battery->charged},
                              {"isACPowered", r.battery->acPowered}};
    const QJsonObject network{{"upload", r.network.upload}, {"download", r.network.download}};
    return {{"cpu", cpu},
            {"memory", memory},
            {"disk", disk},
            {"battery", battery},
            {"network", network}};
}

QString text(const Report &r)
{
    QString out;
    out += QStringLiteral("%1  %2%3  %4 %5%  %6 %7%  %8 %9%")
               .arg(tr("CPU"), -8)
               .arg(r.cpu.cores)
               .arg(tr(" Cores"))
               .arg(tr("Used"))
               .arg(QString::asprintf("%.1f", r.cpu.used))
               .arg(tr("User"))
               .arg(QString::asprintf("%.1f", r.cpu.user))
               .arg(tr("Available"))
               .arg(QString::asprintf("%.1f", r.cpu.available));
    if (r.cpuNow)
        out += QStringLiteral("  %1 %2%").arg(tr("Now"), QString::asprintf("%.1f", *r.cpuNow));
    out += QStringLiteral("\n%1  %2 %3 GB  %4 %5 GB  %6 %7 GB\n")
               .arg(tr("Memory"), -8)
               .arg(tr("Used"), QString::asprintf("%.2f", r.memory.used))
               .arg(tr("Free"), QString::asprintf("%.2f", r.memory.free))
               .arg(tr("Available"), QString::asprintf("%.2f", r.memory.available));
    out += QStringLiteral("%1  ").arg(tr("Disk"), -8);
    if (r.disk)
        out += QStringLiteral("%1  %2 %3  %4 %5\n")
                   .arg(TerminalText::escaped(r.disk->name), tr("Used"),
                        CliCommands::sizeText(r.disk->used), tr("Available"),
                        CliCommands::sizeText(r.disk->available));
    else
        out += QStringLiteral("-\n");
    out += QStringLiteral("%1  ").arg(tr("Battery"), -8);
    if (r.battery)
        out += QStringLiteral("%1%  %2  %3 %4  %5 / %6 mAh%7\n")
                   .arg(r.battery->charge)
                   .arg(r.battery->timeRemaining, tr("Charge Cycles"))
                   .arg(r.battery->cycles)
                   .arg(r.battery->currentCapacity)
                   .arg(r.battery->maxCapacity)
                   .arg(r.battery->charging ? QStringLiteral("  ") + tr("Charging") : QString());
    else
        out += tr("No Battery Service Found") + QLatin1Char('\n');
    out += QStringLiteral("%1  %2 %3/s  %4 %5/s\n")
               .arg(tr("Network"), -8)
               .arg(tr("Upload"), CliCommands::sizeText(r.network.upload), tr("Download"),
                    CliCommands::sizeText(r.network.download));
    return out;
}

Report read(System &system, NetworkRate &rate, bool withNow)
{
    Report r;
    r.cpu = StatusFigures::cpu();
    const System::CPUUsage now = system.usageCPU();
    if (withNow && now.total > 0)
        r.cpuNow = 100 - now.idle;
    r.memory = StatusFigures::memory();
    r.disk = StatusFigures::disk();
    r.battery = StatusFigures::battery();
    r.network = rate.getData();
    return r;
}

} // namespace

int CliCommands::status(const QStringList &args)
{
    bool json = false;
    int watch = 0;
    for (qsizetype i = 0; i < args.size(); ++i) {
        if (args[i] == QLatin1String("--json")) {
            json = true;
        } else if (args[i] == QLatin1String("--watch")) {
            bool ok = false;
            watch = args.value(i + 1).toInt(&ok);
            if (!ok || watch < 1 || watch > 86400)
                return usage(QStringLiteral("--watch needs a number of seconds from 1 to 86400"));
            ++i;
        } else {
            return usage(
                QStringLiteral("unknown option \"%1\"").arg(TerminalText::escaped(args[i])));
        }
    }
    // The network rate is the traffic over the period: a first reading
    // primes the counters and the figures follow one period later.
    const int period = watch > 0 ? watch : 1;
    System system;
    NetworkRate rate(period);
    read(system, rate, false);
    for (;;) {
        QThread::sleep(period);
        const Report report = read(system, rate, watch > 0);
        // Under --watch, one document after another (as jq reads them).
        if (json)
            printJson(QJsonDocument(::json(report)));
        else
            printOut(text(report) + (watch > 0 ? QStringLiteral("\n") : QString()));
        std::fflush(stdout);
        if (watch == 0)
            return 0;
    }
}
