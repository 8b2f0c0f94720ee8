#include "cleaner/core/Fatal.h"

#include <cstdio>
#include <cstdlib>

void fatalStop(const QString &reason)
{
    std::fprintf(stderr, "Brenlow: fatal: %s\n", reason.toLocal8Bit().constData());
    std::fflush(stderr);
    std::abort();
}
