#pragma once

// 7-Zip run as a user runs it, for the archive tests.
#include <QProcess>
#include <QStringList>
#include <optional>

// What `7zz ARGS` printed in `folder`, given `input` on its standard input
// (the password it asks for); nothing when it failed.
inline std::optional<QByteArray> sevenZip(const QStringList &args, const QString &folder,
                                          const QByteArray &input = {})
{
    QProcess p;
    p.setWorkingDirectory(folder);
    p.start(QStringLiteral("7zz"), args);
    p.write(input);
    p.closeWriteChannel();
    if (!p.waitForFinished(60000) || p.exitCode() != 0)
        return std::nullopt;
    return p.readAllStandardOutput();
}
