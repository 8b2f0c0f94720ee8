#include "cleaner/status/Reachability.h"

#include "cleaner/status/SystemFiles.h"

#include <QList>

Reachability::MonitorData Reachability::parse(const QByteArray &netDev)
{
    MonitorData data;
    // "  eth0: rx_bytes rx_packets ... (8 fields) tx_bytes ..."; two header lines.
    for (const QByteArray &line : netDev.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon < 0)
            continue;
        const QString name = QString::fromLatin1(line.left(colon).trimmed());
        if (!isCounted(name))
            continue;
        const QList<QByteArray> f = line.mid(colon + 1).simplified().split(' ');
        if (f.size() < 9)
            continue;
        data.bytesIn += f[0].toLongLong();
        data.bytesOut += f[8].toLongLong();
        ++data.interfaces;
    }
    return data;
}

bool Reachability::isCounted(const QString &name)
{
    return name.startsWith(QLatin1String("en")) || name.startsWith(QLatin1String("eth")) ||
           name.startsWith(QLatin1String("wl"));
}

Reachability::MonitorData Reachability::getMonitorDataDetail()
{
    return parse(SystemFiles::read(QStringLiteral("/proc/net/dev")));
}

bool Reachability::reachabilityForLocalWiFi()
{
    return getMonitorDataDetail().interfaces > 0;
}

NetworkRate::Rates NetworkRate::getData()
{
    const Reachability::MonitorData data = Reachability::getMonitorDataDetail();
    return next(data.interfaces > 0, data);
}

NetworkRate::Rates NetworkRate::next(bool reachable, const Reachability::MonitorData &data)
{
    if (totalReceive > 0x3fffffffffffffff)
        totalReceive = 0;
    if (totalSend > 0x3fffffffffffffff)
        totalSend = 0;
    if (!reachable)
        return {};
    const qint64 send = data.bytesOut / m_period;
    const qint64 receive = data.bytesIn / m_period;
    // A counter that went back (an interface gone) shows as no traffic
    // rather than a negative rate.
    const Rates rates{std::max<qint64>(0, send - totalSend),
                      std::max<qint64>(0, receive - totalReceive)};
    totalSend = send;
    totalReceive = receive;
    return rates;
}
