#pragma once

// Hands the finders' scan entries to the scan driver. Called once by each
// program before its first scan.
class FinderScans {
public:
    static void registerAll();
};
