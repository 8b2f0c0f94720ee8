#pragma once

#include "cleaner/clean/KestalCleanProtocol.h"

#include <memory>

// How the privacy module is cleaned: its three browsers' cleaners in order
// (Chrome, Firefox, Safari), each reported with status 999 and its records
// and bytes, then the module as a whole (category -1, status 1, the sums),
// once its clean status is set to finished. The screen and the command line
// both run it, on a worker, after resetting the module's counters.
class PrivacyClean {
public:
    static void run(const std::shared_ptr<KestalCleanProtocol> &cleanService);
};
