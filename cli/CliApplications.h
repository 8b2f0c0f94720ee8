#pragma once

#include <QByteArrayList>
#include <QStringList>

// brenlow-cli's applications: the uninstaller's selection by application,
// and the extensions with their state and their switch:
//   scan Uninstaller [--json]
//   clean Uninstaller --select APP... [--yes] [--json]
//   scan Extensions [--json]
//   extensions toggle PATH
class CliApplications {
public:
    // Ticks every listed item of each named application (its shown name, its
    // file name or its path); false (with *missing) when one names none.
    static bool selectApplications(const QByteArrayList &names, QByteArray *missing);
    // Module 12's rows, each "on" or "off" (JSON: "enabled").
    static int scanExtensions(bool json);
    static int extensions(const QByteArrayList &args);
};
