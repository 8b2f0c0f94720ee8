#include "helper/MountTable.h"

#include <QFile>

namespace {

QByteArray unescapeMountField(const QByteArray &field)
{
    QByteArray out;
    for (qsizetype i = 0; i < field.size(); ++i) {
        const auto octal = [&](qsizetype k) { return field.at(k) >= '0' && field.at(k) <= '7'; };
        if (field.at(i) == '\\' && i + 3 < field.size() && octal(i + 1) && octal(i + 2) &&
            octal(i + 3)) {
            out += char(((field.at(i + 1) - '0') << 6) | ((field.at(i + 2) - '0') << 3) |
                        (field.at(i + 3) - '0'));
            i += 3;
        } else {
            out += field.at(i);
        }
    }
    return out;
}

} // namespace

QList<MountEntry> MountTable::parse(const QByteArray &mountinfo)
{
    // "36 35 98:0 /root /mnt rw,noatime master:1 - ext3 /dev/sda3 rw,errors=continue":
    // the fifth field is the mount point, the sixth its options; after the
    // "-" come the type, the source and the file system's options.
    QList<MountEntry> entries;
    for (const QByteArray &line : mountinfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        const qsizetype dash = fields.indexOf("-");
        if (dash < 6 || !fields.at(4).startsWith('/'))
            continue;
        MountEntry e;
        e.mountPoint = unescapeMountField(fields.at(4));
        e.readOnly = fields.at(5).split(',').contains("ro");
        e.fileSystemType = fields.value(dash + 1);
        e.source = unescapeMountField(fields.value(dash + 2));
        e.superOptions = fields.value(dash + 3);
        entries.append(e);
    }
    return entries;
}

QList<MountEntry> MountTable::current()
{
    QFile table(QStringLiteral("/proc/self/mountinfo"));
    return parse(table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray());
}

std::optional<MountEntry> MountTable::at(const QList<MountEntry> &table, const QByteArray &point)
{
    for (qsizetype i = table.size() - 1; i >= 0; --i) {
        if (table.at(i).mountPoint == point)
            return table.at(i);
    }
    return std::nullopt;
}
