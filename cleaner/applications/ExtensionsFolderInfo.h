#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Services.h"
#include "cleaner/scan/KestalService.h"

#include <QByteArrayList>

// The extensions module, 12: its categories are folders of the module list,
// each listed with its disabled place beside it ("<folder>.disabled"), and
// the category scan lists both. A row is in use when it lies in the folder,
// off when it lies in the disabled place; the helper moves it between them.
class ExtensionsFolderInfo : public FolderInfo {
public:
    static constexpr int moduleIndex = 12;

    // Whether the item lies in a folder of use (not in a disabled place).
    static bool isEnabled(const QUrl &url);
    // The folders of use the module list names (normalised, absolute).
    static QByteArrayList configuredFolders();
};

// The module's services hold nothing of their own: the category scan of the
// driver finds the items.
class KestalExtensionsServices : public KestalService {};
class ExtensionService : public Services {};
