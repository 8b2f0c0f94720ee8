#include "helper/HelperTool.h"

#include <QCoreApplication>
#include <csignal>
#include <cstdio>
#include <cstring>

// brenlow-helper: the privileged half of the clean. Started by the service
// through pkexec (or the launcher the environment names), it serves one
// service on its standard input and output, and logs on standard error.
int main(int argc, char *argv[])
{
    std::signal(SIGPIPE, SIG_IGN);
    // The service reads the version of the helper beside it without privilege.
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::printf("brenlow-helper %s\n", BRENLOW_VERSION);
        return 0;
    }
    QCoreApplication app(argc, argv);
    HelperTool tool;
    return app.exec();
}
