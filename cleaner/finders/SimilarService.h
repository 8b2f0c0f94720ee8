#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"
#include "cleaner/finders/BKTreeService.h"
#include "cleaner/finders/KestalFinderScan.h"

#include <QByteArrayList>
#include <QHash>
#include <QMap>
#include <functional>
#include <optional>

// The similar image finder's pipeline, module 8: a walk of one folder for
// JPEG and PNG pictures, a difference hash of each on all cores, a BK tree of
// the hashes, and one category per neighbourhood of two or more pictures
// within `threshold`.
class SimilarService : public Services {
public:
    using Done = std::function<void()>;
    using Data = QHash<QByteArray, QList<qint64>>;   // path -> hash
    using Result = QMap<QByteArray, QByteArrayList>; // key picture -> its group

    static constexpr int moduleIndex = 8;

    // Greatest Hamming distance between two hashes of one group; at least 1.
    static qint64 threshold;
    // The root of the scan (the user's Pictures folder until the user picks another).
    static QString &path();
    static const QString emptyFileName;
    static const QString emptyCateDesc;
    // The thresholds the configuration offers.
    static QList<qint64> thresholdChoices();

    // The folder whose photo library keeps derivatives of every picture, and
    // the words that mark them: inside it those files are never a group's key.
    static QString picturesFolder();
    static const QStringList &derivativeWords();

    static void scan(const Progress &progress, const ShowPercent &showPercent, const Done &done);
    static void analyzingData(const Data &data, BKTreeService &bkTree, const Progress &progress,
                              const ShowPercent &showPercent, const Done &done);
    static void organizeData(const Result &result, const Progress &progress,
                             const ShowPercent &showPercent, const Done &done);
    // Renumbers the groups from 0 in list order; sizes stay as they are.
    static void updateCategory();

    // True unless the last path component holds a Back_List fragment.
    static bool similarFilter(const QByteArray &path);
    // Whether the name marks a JPEG or PNG (case-sensitive fragments).
    static bool isPictureName(const QByteArray &path);
    // A picture by name whose contents can be read.
    static bool checkPicture(const QByteArray &filePath);
    // The same test, giving the contents that proved it (read once for the hash).
    static std::optional<QByteArray> pictureContents(const QByteArray &filePath);

    // The pictures under root that the walk queues for hashing, in walk order
    // (what it found so far when the module is stopped).
    static QByteArrayList walk(const QByteArray &root);
    // The groups of a finished hashing stage, without the stop test.
    static Result groups(const Data &data, BKTreeService &bkTree);
    // One group's category: the key picture first, then the others by path.
    static Category categoryOfGroup(const QByteArray &key, QByteArrayList paths, int finder);

    static bool stopped(quint64 generation);
    static KestalFinderScan::Generation &generation();
    static void storeCategories(const QList<Category> &categories);
};
