#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Services.h"

#include <QByteArray>

// Which of the home's entries the large and old files walk takes.
class LargeAndOldFileService : public Services {
public:
    // Takes files above 5 MiB or last changed more than 30 days ago, and zip
    // files whole; leaves folders out but walks into them; keeps out of the
    // user's library folder altogether.
    static FilterType largeAndOldFileFilter(const ResourceValues &props);
    // The folder of applications' own data in the home, which the walk never
    // enters: ~/Library on macOS, ~/snap on Linux.
    static QByteArray libraryFolder();
};

// The nodes of the large and old files module; nothing of their own.
class LargeAndOldFileFolderInfo : public FolderInfo {};
