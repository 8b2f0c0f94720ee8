#pragma once

#include <QList>
#include <QString>

// The CPU types, with the values the Mach headers give them.
constexpr qint32 CPU_ARCH_ABI64 = 0x01000000;
constexpr qint32 CPU_TYPE_ANY = -1;
constexpr qint32 CPU_TYPE_X86 = 7;
constexpr qint32 CPU_TYPE_I386 = CPU_TYPE_X86;
constexpr qint32 CPU_TYPE_X86_64 = CPU_TYPE_X86 | CPU_ARCH_ABI64;
constexpr qint32 CPU_TYPE_ARM = 12;
constexpr qint32 CPU_TYPE_ARM64 = CPU_TYPE_ARM | CPU_ARCH_ABI64;
constexpr qint32 CPU_TYPE_POWERPC = 18;
constexpr qint32 CPU_TYPE_POWERPC64 = CPU_TYPE_POWERPC | CPU_ARCH_ABI64;

struct ProcessInfo {
    int pid = 0;
    int ppid = 0;
    int pgid = 0;
    int uid = 0;
    QString command;
    qint32 arch = -1;
    // The state as the process table numbers it: 1 being created, 2 runnable,
    // 3 sleeping, 4 stopped, 5 zombie.
    qint32 status = 0;
};

// The system's processes, read from /proc (under the system root). No part
// of the program calls it yet; it stands ready for a check of running
// applications.
class ProcessAPI {
public:
    // Every process that can be read; an empty list when /proc cannot.
    static QList<ProcessInfo> list();
    // The CPU type of the process's program, from its ELF header; -1 when
    // the program cannot be read (another user's, without privileges).
    static qint32 arch(int pid);
    // The CPU type an ELF header names; -1 for anything else.
    static qint32 archOfElfHeader(const QByteArray &header);
};
