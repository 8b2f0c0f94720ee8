#pragma once

#include "cleaner/scan/KestalService.h"

#include <QDateTime>
#include <functional>

// The large and old files finder, module 7: one walk of the home, its files
// sorted into four fixed categories by size and by age. A file in a size
// category and an age category is one node in both.
class KestalLargeAndOldFileServices : public KestalService {
public:
    enum Kind { Over100M = 0, Over5M = 1, LessThanYear = 2, LessThanMonth = 3 };
    static constexpr int moduleIndex = 7;
    static constexpr qint64 over100M = 104857600;
    static constexpr qint64 over5M = 5242880;
    static constexpr qint64 yearSeconds = 31536000;
    static constexpr qint64 monthSeconds = 2592000;

    using Filter = std::function<FilterType(const ResourceValues &)>;

    static void scanLargeAndOldFile(Progress progress, ShowPercent showPercent,
                                    std::function<void()> done);
    static QList<Category> getLargeAndOldFileInfoList(QList<Category> categories,
                                                      const Progress &progress,
                                                      const ShowPercent &showPercent,
                                                      const Filter &filter);
    // After a clean: drops the files that are gone and sorts the rest again.
    static void filterInfoList();

    // Puts one file into its age category and its size category, if any.
    static void bin(QList<Category> &categories, const FolderInfoPtr &file,
                    const QDateTime &yearAgo, const QDateTime &monthAgo);
};
