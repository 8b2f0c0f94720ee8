#pragma once

// Helpers of the status tests: what a system tool says, and kernel files
// written under a test root.
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QtTest>

// The standard output of a shell command line, as the test machine runs it.
inline QByteArray toolOutput(const QString &commandLine)
{
    QProcess p;
    p.start(QStringLiteral("sh"), {QStringLiteral("-c"), commandLine});
    if (!p.waitForFinished(30000) || p.exitCode() != 0)
        return QByteArray();
    return p.readAllStandardOutput();
}

inline void writeText(const QString &path, const QByteArray &text)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(text);
}
