#pragma once

#include <QByteArrayList>
#include <QStringList>

// brenlow-cli's privacy module: the browsers' groups and records, and a
// clean of what --select names:
//   scan Privacy [--json]
//   clean Privacy [--select default|all|BROWSER/GROUP...|BROWSER/GROUP/RECORD-INDEX...]
//         [--yes] [--json]
class CliPrivacy {
public:
    // Whether the command's module argument names the privacy module.
    static bool namesPrivacy(const QByteArrayList &args);
    static int scan(const QStringList &args);
    static int clean(const QByteArrayList &args);
};
