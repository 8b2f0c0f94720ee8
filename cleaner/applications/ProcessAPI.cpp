#include "cleaner/applications/ProcessAPI.h"

#include "cleaner/core/Platform.h"

#include <QDir>
#include <QFile>

namespace {

QString procPath(int pid, const char *entry)
{
    return Platform::systemPath(QStringLiteral("/proc/%1/").arg(pid)) + QLatin1String(entry);
}

qint32 statusOf(char state)
{
    switch (state) {
    case 'R':
        return 2;
    case 'S':
    case 'D':
    case 'I':
    case 'W':
        return 3;
    case 'T':
    case 't':
        return 4;
    case 'Z':
    case 'X':
        return 5;
    default:
        return 1;
    }
}

} // namespace

qint32 ProcessAPI::archOfElfHeader(const QByteArray &header)
{
    if (header.size() < 20 || !header.startsWith("\x7f"
                                                 "ELF"))
        return -1;
    const bool bigEndian = header.at(5) == 2;
    const uchar lo = uchar(header.at(bigEndian ? 19 : 18));
    const uchar hi = uchar(header.at(bigEndian ? 18 : 19));
    switch (lo | (hi << 8)) {
    case 3: // EM_386
        return CPU_TYPE_I386;
    case 62: // EM_X86_64
        return CPU_TYPE_X86_64;
    case 40: // EM_ARM
        return CPU_TYPE_ARM;
    case 183: // EM_AARCH64
        return CPU_TYPE_ARM64;
    case 20: // EM_PPC
        return CPU_TYPE_POWERPC;
    case 21: // EM_PPC64
        return CPU_TYPE_POWERPC64;
    default:
        return -1;
    }
}

qint32 ProcessAPI::arch(int pid)
{
    QFile exe(procPath(pid, "exe"));
    if (!exe.open(QIODevice::ReadOnly))
        return -1;
    return archOfElfHeader(exe.read(20));
}

QList<ProcessInfo> ProcessAPI::list()
{
    QList<ProcessInfo> processes;
    const QDir proc(Platform::systemPath(QStringLiteral("/proc")));
    for (const QString &name : proc.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isPid = false;
        const int pid = name.toInt(&isPid);
        if (!isPid)
            continue;
        QFile statFile(procPath(pid, "stat"));
        if (!statFile.open(QIODevice::ReadOnly))
            continue; // the process ended meanwhile
        const QByteArray stat = statFile.readAll();
        // "pid (command) state ppid pgrp ...": the command may hold blanks and ")".
        const qsizetype open = stat.indexOf('(');
        const qsizetype close = stat.lastIndexOf(')');
        if (open < 0 || close < open)
            continue;
        const QList<QByteArray> fields = stat.mid(close + 2).split(' ');
        if (fields.size() < 3)
            continue;
        ProcessInfo info;
        info.pid = pid;
        info.command = QString::fromUtf8(stat.mid(open + 1, close - open - 1));
        info.status = fields[0].isEmpty() ? 0 : statusOf(fields[0].at(0));
        info.ppid = fields[1].toInt();
        info.pgid = fields[2].toInt();
        QFile status(procPath(pid, "status"));
        if (status.open(QIODevice::ReadOnly)) {
            for (const QByteArray &line : status.readAll().split('\n'))
                if (line.startsWith("Uid:"))
                    info.uid = line.mid(4).simplified().split(' ').value(0).toInt();
        }
        info.arch = arch(pid);
        processes << info;
    }
    return processes;
}
