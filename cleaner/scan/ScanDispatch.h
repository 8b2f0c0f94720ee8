#pragma once

#include "cleaner/core/ModuleTypes.h"

// Picks the scanner of a category by its type, in the order the scan driver
// tests them; every type it does not name is a plain folder scan.
class ScanDispatch {
public:
    static void scan(Category &c, const Progress &progress, const ShowPercent &showPercent);
};
