#pragma once

#include "cleaner/core/ModuleTypes.h"

#include <QList>
#include <QString>
#include <QVariant>
#include <optional>
#include <utility>

// The module table: what the program can do, loaded once from the edition's
// Modules list and addressed everywhere by module index. Main thread only.
class AppModuleService {
public:
    static QList<Module> &appModules();
    // A second, pristine load that is never written: the file's own defaults.
    static const QList<Module> &initAppModules();
    // "File Name" of the bundle's info dictionary; the prefix of the resource names.
    static QString fileName();

    static void updateState(int state, int moduleIndex, int categoryIndex,
                            std::optional<int> fileIndex, std::optional<int> childrenIndex);
    static void largeAndOldFileUpdateState(int state, int moduleIndex, int categoryIndex,
                                           std::optional<int> fileIndex,
                                           std::optional<int> childrenIndex);
    static int calculateParentState(const QList<FolderInfoPtr> &files);
    static std::pair<double, int> calculateModuleSizeAndNumber(int moduleIndex);

    static QString updateModuleURL(const QString &url);
    static FolderUrl updateModuleURLFormat(const QVariant &value);
    static QList<FolderUrl> updateModuleURLsFormat(const QVariant &value);

    // The index of the first row with this title, 0 when there is none.
    static int indexOfTitle(const QString &title);
    // The left list's rows as table indices: heading rows stand before the
    // module their "listBefore" names, every other row in table order.
    static QList<int> leftListRows();
    // The left-list position of the first row with this title, 0 when none.
    static int rowOfTitle(const QString &title);

    // Parses a Modules list; a missing required key or a value of the wrong type stops the program.
    static QList<Module> parseModules(const QVariant &root);
    // Drops the loaded tables (tests, and a change of resource folder).
    static void reset();

    // Module `moduleIndex`'s categories; a row without them stops the program.
    static QList<Category> &categoriesOf(int moduleIndex);
};

// The sums of category sizes that the screens show. The class variant of
// module 6 counts its categories twice and the instance variant once; both
// are kept as they are, since screens depend on each.
class CategoryTotals {
public:
    static qint64 classTotalSize(int moduleIndex);
    static qint64 instanceTotalSize(int moduleIndex);
};
