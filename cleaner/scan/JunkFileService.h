#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"

// The plain folder scan of a category, and the filters and walks of the
// typed junk categories.
class JunkFileService : public Services {
public:
    // Fills c.files and c.size from the category's `url`, or else its `urls`.
    static void scanFolder(Category &category, const Progress &progress,
                           const ShowPercent &showPercent, const WalkFilter &filter);
};
