#include "cleaner/status/SystemFiles.h"

#include "cleaner/core/Platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

QByteArray SystemFiles::read(const QString &absolute)
{
    QFile file(Platform::systemPath(absolute));
    // Kernel files report a size of 0 or 4096: read to the end, not by size.
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return QByteArray();
    return file.readAll();
}

QString SystemFiles::firstLine(const QString &absolute)
{
    const QByteArray text = read(absolute);
    const qsizetype end = text.indexOf('\n');
    return QString::fromUtf8(end < 0 ? text : text.left(end)).trimmed();
}

qint64 SystemFiles::number(const QString &absolute, qint64 fallback)
{
    bool ok = false;
    const qint64 value = firstLine(absolute).toLongLong(&ok);
    return ok ? value : fallback;
}

QStringList SystemFiles::entries(const QString &absolute)
{
    QStringList names = QDir(Platform::systemPath(absolute))
                            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System);
    names.sort();
    return names;
}

bool SystemFiles::exists(const QString &absolute)
{
    return QFileInfo::exists(Platform::systemPath(absolute));
}

QList<int> SystemFiles::cpuList(const QString &text)
{
    QList<int> cpus;
    for (const QString &part : text.trimmed().split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList range = part.split(QLatin1Char('-'));
        bool okFirst = false, okLast = true;
        const int first = range.first().toInt(&okFirst);
        const int last = range.size() == 2 ? range.last().toInt(&okLast) : first;
        if (!okFirst || !okLast || range.size() > 2 || last < first || last - first > 65535)
            continue;
        for (int cpu = first; cpu <= last; ++cpu)
            cpus.append(cpu);
    }
    return cpus;
}
