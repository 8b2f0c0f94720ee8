#pragma once

#include <QStringList>

// The commands of brenlow-cli; each returns the process's exit status:
// 0 done, 1 bad usage or input, 2 some items failed.
class CliCommands {
public:
    static int run(const QStringList &arguments);

    static int modules(const QStringList &args);
    static int scan(const QStringList &args);

    // The module index named by an index or a title (its translation too); -1 if none.
    static int resolveModule(const QString &name);
    static int usage(const QString &reason);
};
