#pragma once

#include "cleaner/clean/CleanPlan.h"
#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/clean/KestalCleanProtocol.h"
#include "cleaner/core/Services.h"

#include <QHash>
#include <QMap>
#include <QPair>
#include <QRecursiveMutex>
#include <memory>

class KestalCleanManager;

// Turns what stays checked in a module's tree into a clean plan, removes each
// planned item in process where the process may, hands the rest to the
// helper one category at a time, and afterwards takes what went out of the
// tree. Runs on a global queue; the helper's reports arrive on the
// connection's thread. Both sides work under lock(), and never wait on it
// from the main thread: the tree itself is changed on the main thread.
class KestalModuleCleanService : public Services {
public:
    using FileFinder = QMap<int, QList<int>>;
    using ChildrenDeleteFinder = QMap<int, QList<QPair<int, QList<int>>>>;

    // The plan of a module's current run, and where the run stands. The main
    // thread reads them after the report that concerns them.
    static QHash<int, QList<cleanCategory>> &cleanInfoDict();
    static QHash<int, cleanStatus> &cleanStatusDict();
    // A stop of the module's run is asked for (read before every item).
    static bool stop(int moduleIndex);
    static void setStop(int moduleIndex, bool value);
    // The helper has answered since the last install failure.
    static bool &passHelpTool();
    // Requests waiting for the helper's first answer, by module.
    static QMap<int, QList<QMap<int, PathMap>>> &modelHelpTool();
    static QRecursiveMutex &lock();
    // What the scan saw of each path the module's run handed to the helper;
    // its requests carry it, so the helper can refuse an item swapped since.
    static IdentityMap &helperIdentities(int moduleIndex);

    static void analysisModule(int moduleIndex, std::shared_ptr<KestalCleanProtocol> cleanService);
    static void largeAndOldAnalysisModule(int moduleIndex,
                                          std::shared_ptr<KestalCleanProtocol> cleanService);
    static void cleanModule(int moduleIndex, std::shared_ptr<KestalCleanProtocol> cleanService);
    static void XPC(const PathMap &folder, std::shared_ptr<DeleteFilesProgressProtocol> progress,
                    operationType type, int modelIndex, int ci);
    static void
    updateModuleCategoryAndDetail(int modelIndex,
                                  const std::shared_ptr<KestalCleanManager> &cleanManager);
    static void cleanFile(int moduleIndex, const FileFinder &fileFinder,
                          const std::shared_ptr<KestalCleanManager> &cleanManager);
    static void cleanChildrenFile(int moduleIndex, const ChildrenDeleteFinder &childrenDeleteFinder,
                                  const std::shared_ptr<KestalCleanManager> &cleanManager);
    static void updateAppModuleCategory(int moduleIndex, int ci);
    static void handleStopEvent(int moduleIndex, int currentCi,
                                const QList<cleanCategory> &updateCategoryArrays,
                                const std::shared_ptr<KestalCleanManager> &cleanManager,
                                const std::shared_ptr<KestalCleanProtocol> &cleanService);
    // The module index the "Tools" heading stands before, 0 when there is none.
    static int headerModelIndex();

    // The modules whose categories their scan makes, and which keep
    // per-category results of their own.
    static bool keepsOwnCategories(int moduleIndex);
    // Ends the run: takes what went out of the tree, marks the module done and
    // reports the totals with this status.
    static void closeRun(const std::shared_ptr<KestalCleanManager> &manager, bool result,
                         int status, bool withHelper);
    // Drops every table (tests).
    static void reset();

private:
    static QList<cleanCategory> buildPlan(int moduleIndex, bool once);
    static void planAndClean(int moduleIndex, std::shared_ptr<KestalCleanProtocol> cleanService,
                             bool once);
    // A stop while requests are out: what was not sent counts as stopped.
    static void stopWithHelper(int moduleIndex, int currentIndex,
                               const std::shared_ptr<KestalCleanManager> &manager);
};
