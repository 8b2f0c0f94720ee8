#include "cleaner/clean/XPCUtil.h"
#include "service/ServiceTool.h"

#include <QCoreApplication>
#include <csignal>
#include <cstdio>

// brenlow-service: the application's link to the privileged helper. Started
// by the application with the identifier it expects; serves it on standard
// input and output, and logs on standard error.
int main(int argc, char *argv[])
{
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.contains(QStringLiteral("--version"))) {
        std::printf("brenlow-service %s\n", BRENLOW_VERSION);
        return 0;
    }
    const qsizetype at = args.indexOf(QStringLiteral("--name"));
    const QString name = at >= 0 && at + 1 < args.size() ? args[at + 1] : QString();
    if (!XPCUtil::isServiceIdentifier(name)) {
        std::fprintf(stderr, "brenlow-service: no service is named \"%s\"\n", qPrintable(name));
        return 1;
    }
    ServiceTool tool;
    return app.exec();
}
