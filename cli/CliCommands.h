#pragma once

#include "cleaner/core/ModuleTypes.h"

#include <QByteArrayList>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <optional>

// The commands of brenlow-cli; each returns the process's exit status:
// 0 done, 1 bad usage or input, 2 some items failed. Arguments arrive as the
// bytes of argv, so a PATH names exactly the file it was typed for.
class CliCommands {
public:
    static int run(const QByteArrayList &arguments);

    static int modules(const QStringList &args);
    static int scan(const QStringList &args);
    static int clean(const QByteArrayList &args);
    static int status(const QStringList &args);

    // The module index named by an index or a title (its translation too); -1 if none.
    static int resolveModule(const QString &name);
    static int usage(const QString &reason);

    static void printOut(const QString &text);
    static void printJson(const QJsonDocument &document);
    static QString sizeText(qint64 bytes);
    // Runs a module's scan to its end; false when the module has no categories.
    static bool runScan(int module);
    // The child modules that module 0's categories name, in their order
    // (empty when module 0 is no Auto Cleanup).
    static QList<int> autoCleanupChildren();
    // Runs Auto Cleanup's scan, every child at once, to its end.
    static void runAutoCleanupScan(const QList<int> &children);
    // A category's title, size and files, one line each.
    static void printCategory(const Category &category);

    // A finished clean of one module: its categories, failures and totals
    // as a record, and whether anything failed.
    struct CleanReport {
        QJsonObject record;
        bool failed;
    };
    static CleanReport cleanReport(int module, int runStatus);
    // The record's categories and failures as lines, names escaped.
    static void printCleanReport(const QJsonObject &record);

    struct CleanOptions {
        int module = -1;
        QString select = QStringLiteral("default"); // default, all, or paths
        QByteArrayList paths;                       // absolute, as raw bytes
        QByteArrayList names;                       // as typed (applications)
        bool yes = false;
        bool json = false;
    };
    // Applies the selection to the scanned trees of these modules; false
    // (with *missing) when a PATH names nothing any of them listed.
    static bool applySelection(const CleanOptions &o, const QList<int> &modules,
                               QByteArray *missing);
    // Asks before a clean of this many items and bytes; true to go on.
    static bool confirmed(int number, double size);
    // The Auto Cleanup clean: every child with something selected, in turn.
    static int cleanAutoCleanup(const CleanOptions &o, const QList<int> &children);

    // The finders (modules whose scan is their own).
    struct FinderOptions {
        std::optional<QString> path;
        std::optional<qint64> minSize;
        std::optional<qint64> threshold;
    };
    // Takes --path DIR, --min-size KIB and --threshold N out of args.
    static bool takeFinderOptions(QStringList &args, FinderOptions *options, QString *error);
    static bool applyFinderOptions(int module, const FinderOptions &options, QString *error);
    static bool runFinderScan(int module);
    // Ticks the listed files; false (with *missing) when a path was not listed.
    static bool selectFinderPaths(int module, const QByteArrayList &paths, QByteArray *missing);
    // Brings the finder's lists up to date after a clean.
    static void afterFinderClean(int module);
};
