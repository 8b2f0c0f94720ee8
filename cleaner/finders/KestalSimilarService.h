#pragma once

#include "cleaner/finders/KestalFinderScan.h"

#include <functional>

// The similar image finder's scan entry, with the status table and watchdog
// of the scan driver.
class KestalSimilarService : public KestalFinderScan {
public:
    static void scanSimilar(Progress progress, ShowPercent showPercent, std::function<void()> done);
};
