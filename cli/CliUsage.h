#pragma once

#include <QByteArrayList>
#include <QString>

// brenlow-cli's own conventions: the help of the program and of each
// command, the options each command knows, and --version, which also
// names the service and the helper the program would use.
class CliUsage {
public:
    // The help of one command ("" for the program's), as printed by --help.
    static QString help(const QByteArray &command = {});
    // Whether arguments ask for help (-h or --help anywhere).
    static bool asksForHelp(const QByteArrayList &arguments);
    // The first option that the command does not know, escaped for the
    // terminal; "" when all are known or the command is not one of these.
    static QString unknownOption(const QByteArray &command, const QByteArrayList &args);
    // Prints the version of this program, and of the service and helper it
    // finds, with where they are.
    static int version();
};
