#include "cleaner/scan/ScanDispatch.h"

#include "cleaner/scan/JunkFileService.h"

void ScanDispatch::scan(Category &c, const Progress &progress, const ShowPercent &showPercent)
{
    // The typed scanners ("System_Cache", "Localization", "Photo", "TrashBin",
    // "Mail", "iTunes", "App_Cache") take their places here as they arrive;
    // until then their categories scan as plain folders.
    JunkFileService::scanFolder(c, progress, showPercent, nullptr);
}
