#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Reads the kernel's text files (/proc, /sys) under the root prefix, so a
// test can point every reading at a tree it wrote. A file that cannot be
// read gives an empty text; the readers turn that into their zero results.
class SystemFiles {
public:
    static QByteArray read(const QString &absolute);
    // The first line, without surrounding blanks.
    static QString firstLine(const QString &absolute);
    // The first line as a number; fallback when missing or not a number.
    static qint64 number(const QString &absolute, qint64 fallback = 0);
    // The entries of a folder, sorted; empty when it does not exist.
    static QStringList entries(const QString &absolute);
    static bool exists(const QString &absolute);
    // The numbers of a kernel CPU list ("0-3,6,8-9").
    static QList<int> cpuList(const QString &text);
};
