#pragma once

#include <QByteArray>
#include <QString>

// The machine's network traffic, from the kernel's interface counters
// (/proc/net/dev). Only the interfaces that reach other machines count:
// wired ("en*", "eth*") and wireless ("wl*"); loopback, bridges, tunnels,
// containers' virtual links and mobile modems do not.
class Reachability {
public:
    struct MonitorData {
        qint64 bytesOut = 0;
        qint64 bytesIn = 0;
        int interfaces = 0; // how many counted interfaces the kernel lists
    };
    // Bytes out and in since boot over the counted interfaces; all 0 when
    // the counters cannot be read.
    static MonitorData getMonitorDataDetail();
    // The same from the text of /proc/net/dev.
    static MonitorData parse(const QByteArray &netDev);
    static bool isCounted(const QString &interfaceName);
    // Whether the machine has an interface that counts (the design's local
    // Wi-Fi object); without one every rate is 0.
    static bool reachabilityForLocalWiFi();
};

// The upload and download rates of the dashboard: each reading divides the
// counters by the period and subtracts the previous reading, so the first
// one reports everything since boot over the period.
class NetworkRate {
public:
    explicit NetworkRate(int periodSeconds = 5) : m_period(periodSeconds) {}

    struct Rates {
        qint64 upload = 0;   // bytes per second
        qint64 download = 0; // bytes per second
    };
    Rates getData();
    // The step of getData with counters given.
    Rates next(bool reachable, const Reachability::MonitorData &data);

    qint64 totalReceive = 0;
    qint64 totalSend = 0;

private:
    int m_period;
};
