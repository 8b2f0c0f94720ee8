#include "cli/CliCommands.h"

#include <QCoreApplication>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Brenlow"));
    QCoreApplication::setOrganizationName(QStringLiteral("Brenlow"));
    return CliCommands::run(app.arguments().mid(1));
}
