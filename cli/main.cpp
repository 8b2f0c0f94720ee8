#include "cli/CliCommands.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Brenlow"));
    QCoreApplication::setOrganizationName(QStringLiteral("Brenlow"));
    // The bytes as given: a name that is not UTF-8 must reach the comparison unchanged.
    QByteArrayList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QByteArray(argv[i]));
    return CliCommands::run(arguments);
}
