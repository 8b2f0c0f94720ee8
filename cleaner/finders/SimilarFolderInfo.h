#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"

#include <QVariant>

// The similar image finder's nodes: the placeholder when no group was found.
class SimilarFolderInfo : public FolderInfo {
public:
    static Category emptyCategory();
    // The integers a value holds (a list of numbers), as a plain list.
    static QList<qint64> getOsxBlock(const QVariant &value);
};
