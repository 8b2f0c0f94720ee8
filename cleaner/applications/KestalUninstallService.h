#pragma once

#include "cleaner/scan/KestalService.h"

#include <QUrl>

// The uninstaller's entry to the scan driver, and the look at one
// application that the Trash watch asks for.
class KestalUninstallService : public KestalService {
public:
    static void scanUninstall(Progress progress, ShowPercent showPercent,
                              std::function<void()> done);
    // The application at url (anywhere, not only in the applications
    // folders) with its leftovers, as one category.
    static Category scanSingleApp(const QUrl &url);
    // Hands scanUninstall to the driver for module 9; once per program.
    static void registerWithScanDriver();
};
