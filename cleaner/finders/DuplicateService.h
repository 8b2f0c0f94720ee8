#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"
#include "cleaner/finders/IdenticalContent.h"
#include "cleaner/finders/KestalFinderScan.h"

#include <QHash>
#include <QMap>
#include <QStringList>
#include <functional>
#include <utility>

// The duplicate finder's pipeline: a walk of one folder tree keeping files
// above a size, grouping by exact size, digests of the sizes seen twice, and
// one category per set of identical files in module 6.
class DuplicateService : public Services {
public:
    enum class duplicateKind { video = 0, music = 1, image = 2, documents = 3, other = 4, all = 5 };
    using Done = std::function<void()>;

    static constexpr int moduleIndex = 6;

    // The root of the scan (the user's Downloads folder until the user picks another).
    static QString &path();
    // Lower size limit in KiB: a file must be strictly larger than size × 1024 bytes.
    static qint64 size;
    static const QStringList &Back_List();
    static const QString emptyFileName;
    static const QString emptyCateDesc;
    static QMap<duplicateKind, QList<Category>> &duplicateKindCategory();
    static std::pair<duplicateKind, QString> &currentKind();
    // Raw value to kind and translated label.
    static QMap<qint64, std::pair<duplicateKind, QString>> duplicateId();

    // The stages, in order; each polls the stop test and ends silently on a stop.
    static void scan(const Progress &progress, const ShowPercent &showPercent, const Done &done);
    static void analysisSizeAndPathData(const SizeAndPath &sizeAndPath,
                                        const MoreDoubleSize &moreDoubleSize,
                                        const Progress &progress, const ShowPercent &showPercent,
                                        const Done &done);
    static void organizeData(const MD5AndPath &md5AndPath, const Progress &progress,
                             const ShowPercent &showPercent, const Done &done);

    // The walk on its own: the files strictly above the limit by size, and
    // the sizes seen more than once. The root is listed without hidden items;
    // entries whose name holds a Back_List fragment are left out with what
    // they hold; package insides are never entered.
    static std::pair<SizeAndPath, MoreDoubleSize> walk(const QByteArray &root, qint64 limit);
    // Lower-case hexadecimal MD5; empty for data over 4,294,967,294 bytes.
    static QString dataConversionToMD5String(const QByteArray &data);
    // The categories of one set of identical files, paths in descending order.
    static Category categoryOfSet(QList<QByteArray> paths, int finder);

    // Kinds, for the review: all groups at once (done on the main thread), or one kind.
    static void fasterFilterFile(const Done &done);
    static void filterFile(duplicateKind kind);
    static duplicateKind kindOfType(const QString &typeDescription);
    // After a clean: each group's position and its size from what is left.
    static void updateCategory();

    // The configuration's check: an integer, blanks around it allowed, sign
    // allowed. True stores it as `size` (0 when it does not fit).
    static bool isPurnInt(const QString &text, qint64 *value);
    static bool saveConfiguration(const QString &text);
    static QString notIntegerMessage();

    // Whether this scan of module 6 should end: a stop, or a newer scan.
    static bool stopped(quint64 generation);
    static KestalFinderScan::Generation &generation();
    // Stores the module's categories where both the screens and the driver's
    // stop publication read them, so a stopped scan keeps what is shown.
    static void storeCategories(const QList<Category> &categories);
};
