#pragma once

#include "cleaner/finders/KestalFinderScan.h"

#include <functional>

// The duplicate finder's scan entry, with the status table and watchdog of
// the scan driver.
class KestalDuplicateService : public KestalFinderScan {
public:
    static void scanDupliate(Progress progress, ShowPercent showPercent,
                             std::function<void()> done);
};
