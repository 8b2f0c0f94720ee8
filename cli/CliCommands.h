#pragma once

#include "cleaner/core/ModuleTypes.h"

#include <QStringList>
#include <optional>

// The commands of brenlow-cli; each returns the process's exit status:
// 0 done, 1 bad usage or input, 2 some items failed.
class CliCommands {
public:
    static int run(const QStringList &arguments);

    static int modules(const QStringList &args);
    static int scan(const QStringList &args);
    static int clean(const QStringList &args);

    // The module index named by an index or a title (its translation too); -1 if none.
    static int resolveModule(const QString &name);
    static int usage(const QString &reason);

    static void printOut(const QString &text);
    static QString sizeText(qint64 bytes);
    // Runs a module's scan to its end; false when the module has no categories.
    static bool runScan(int module);
    // Prints a finished clean's categories and failures; the exit status.
    static int printCleanResult(int module, int runStatus, bool json);
    // A category's title, size and files, one line each.
    static void printCategory(const Category &category);
    // Prints a scanned module, as text or JSON.
    static int printModule(int module, bool json);

    // The finders (modules whose scan is their own).
    struct FinderOptions {
        std::optional<QString> path;
        std::optional<qint64> minSize;
    };
    // Takes --path DIR and --min-size KIB out of args.
    static bool takeFinderOptions(QStringList &args, FinderOptions *options, QString *error);
    static bool applyFinderOptions(int module, const FinderOptions &options, QString *error);
    static bool runFinderScan(int module);
    // Ticks the listed files; false (with *missing) when a path was not listed.
    static bool selectFinderPaths(int module, const QList<QByteArray> &paths, QString *missing);
    // Brings the finder's lists up to date after a clean.
    static void afterFinderClean(int module);
};
