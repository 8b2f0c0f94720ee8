#pragma once

// Helpers of the status tests: what a system tool says; kernel files are
// written under a test root with TreeBuilder::write.
#include "support/TreeBuilder.h"

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
