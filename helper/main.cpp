#include "helper/HelperTool.h"

#include <QCoreApplication>
#include <csignal>

// brenlow-helper: the privileged half of the clean. Started by the service
// through pkexec (or the launcher the environment names), it serves one
// service on its standard input and output, and logs on standard error.
int main(int argc, char *argv[])
{
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication app(argc, argv);
    HelperTool tool;
    return app.exec();
}
