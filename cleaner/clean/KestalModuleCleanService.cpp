#include "cleaner/clean/KestalModuleCleanService.h"

#include "cleaner/clean/KestalCleanManager.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/scan/KestalService.h"

#include <QMutex>
#include <QSet>
#include <algorithm>

namespace {

struct Tables {
    QHash<int, QList<cleanCategory>> cleanInfoDict;
    QHash<int, cleanStatus> cleanStatusDict;
    QHash<int, bool> stop;
    bool passHelpTool = false;
    QMap<int, QList<QMap<int, PathMap>>> modelHelpTool;
    // What the scan saw of every path a run hands to the helper, by module.
    QHash<int, IdentityMap> helperIdentities;
};

Tables g_tables;
QRecursiveMutex g_lock;
QMutex g_stopLock; // a leaf lock: the main thread may take it, and never waits for more

using ManagerPtr = std::shared_ptr<KestalCleanManager>;

// The status array of a path map entry: category, finder(s), and a slot.
QList<int> slotArray(int ci, int finder, std::optional<int> childFinder)
{
    return childFinder ? QList<int>{ci, finder, *childFinder, 0} : QList<int>{ci, finder, 0};
}

bool isRemoved(int status)
{
    return status == 1 || status == 999;
}

void storeTriple(int moduleIndex, int ci, const CleanTriple &triple)
{
    Dispatch::mainSync(
        [=] { KestalService::cleanningCompletedStatus()[moduleIndex].insert(ci, triple); });
}

} // namespace

QHash<int, QList<cleanCategory>> &KestalModuleCleanService::cleanInfoDict()
{
    return g_tables.cleanInfoDict;
}

QHash<int, cleanStatus> &KestalModuleCleanService::cleanStatusDict()
{
    return g_tables.cleanStatusDict;
}

bool KestalModuleCleanService::stop(int moduleIndex)
{
    QMutexLocker lock(&g_stopLock);
    return g_tables.stop.value(moduleIndex);
}

void KestalModuleCleanService::setStop(int moduleIndex, bool value)
{
    QMutexLocker lock(&g_stopLock);
    g_tables.stop.insert(moduleIndex, value);
}

bool &KestalModuleCleanService::passHelpTool()
{
    return g_tables.passHelpTool;
}

QMap<int, QList<QMap<int, PathMap>>> &KestalModuleCleanService::modelHelpTool()
{
    return g_tables.modelHelpTool;
}

IdentityMap &KestalModuleCleanService::helperIdentities(int moduleIndex)
{
    return g_tables.helperIdentities[moduleIndex];
}

QRecursiveMutex &KestalModuleCleanService::lock()
{
    return g_lock;
}

void KestalModuleCleanService::reset()
{
    QMutexLocker lock(&g_lock);
    QMutexLocker stopLock(&g_stopLock);
    g_tables = Tables();
}

bool KestalModuleCleanService::keepsOwnCategories(int moduleIndex)
{
    return moduleIndex == 6 || moduleIndex == 8 || moduleIndex == 9 || moduleIndex == 10;
}

int KestalModuleCleanService::headerModelIndex()
{
    int index = 0;
    Dispatch::mainSync([&] {
        const QList<Module> &modules = AppModuleService::appModules();
        for (const Module &m : modules) {
            if (m.title == QLatin1String("Tools")) {
                index = m.listBefore.value_or(0);
                break;
            }
        }
    });
    return index;
}

namespace {

// The plan's entry for a node the user left ticked (checked 1) or partly
// ticked (-1). A container is never removed itself: ticking it takes its
// listed children. A partly ticked node takes its ticked children. With no
// child to take, no entry: one without children would stand for the whole
// folder.
std::optional<cleanFolder> plannedEntry(const FolderInfoPtr &node)
{
    if (node->checked == 1 && !node->isContainer)
        return cleanFolder::of(node);
    if (node->checked != 1 && node->checked != -1)
        return std::nullopt;
    cleanFolder parent = cleanFolder::of(node);
    for (const FolderInfoPtr &child : node->children) {
        if (node->checked == 1 || child->checked == 1)
            parent.children.append(cleanFolder::of(child));
    }
    if (parent.children.isEmpty())
        return std::nullopt;
    return parent;
}

} // namespace

QList<cleanCategory> KestalModuleCleanService::buildPlan(int moduleIndex, bool once)
{
    QList<cleanCategory> plan;
    Dispatch::mainSync([&] {
        const QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
        QSet<int> seen;
        for (qsizetype i = 0; i < categories.size(); ++i) {
            const Category &c = categories[i];
            // The shipped lists name no finder; a category's own position is
            // what a finder holds wherever one is set.
            cleanCategory entry{{}, c.finder.value_or(int(i))};
            for (const FolderInfoPtr &node : c.state == 0 ? QList<FolderInfoPtr>() : c.files) {
                std::optional<cleanFolder> planned = plannedEntry(node);
                if (!planned)
                    continue;
                if (once && planned->children.isEmpty()) {
                    if (seen.contains(node->findex))
                        continue;
                    seen.insert(node->findex);
                }
                entry.folders.append(std::move(*planned));
            }
            plan.append(entry);
        }
    });
    return plan;
}

void KestalModuleCleanService::planAndClean(int moduleIndex,
                                            std::shared_ptr<KestalCleanProtocol> cleanService,
                                            bool once)
{
    if (Dispatch::isMainThread()) {
        // The clean waits on the main thread at times; it must not run there.
        Dispatch::globalAsync([=] { planAndClean(moduleIndex, cleanService, once); });
        return;
    }
    QList<cleanCategory> plan = buildPlan(moduleIndex, once);
    QMutexLocker lock(&g_lock);
    if (cleanStatusDict().value(moduleIndex) == cleanStatus::cleanning)
        return; // the running plan stays
    cleanInfoDict().insert(moduleIndex, plan);
    cleanModule(moduleIndex, std::move(cleanService));
}

void KestalModuleCleanService::analysisModule(int moduleIndex,
                                              std::shared_ptr<KestalCleanProtocol> cleanService)
{
    planAndClean(moduleIndex, std::move(cleanService), false);
}

// A file listed both as large and as old is planned, removed and counted once.
void KestalModuleCleanService::largeAndOldAnalysisModule(
    int moduleIndex, std::shared_ptr<KestalCleanProtocol> cleanService)
{
    planAndClean(moduleIndex, std::move(cleanService), true);
}

void KestalModuleCleanService::cleanModule(int moduleIndex,
                                           std::shared_ptr<KestalCleanProtocol> cleanService)
{
    if (Dispatch::isMainThread()) {
        Dispatch::globalAsync([=] { cleanModule(moduleIndex, cleanService); });
        return;
    }
    QMutexLocker lock(&g_lock);
    if (cleanStatusDict().value(moduleIndex) == cleanStatus::cleanning)
        return;
    modelHelpTool().remove(moduleIndex);
    cleanStatusDict().insert(moduleIndex, cleanStatus::cleanning);
    const auto manager = std::make_shared<KestalCleanManager>(moduleIndex, cleanService);
    // The plan holds one entry per category of the module.
    manager->categoryCount = int(cleanInfoDict().value(moduleIndex).size());
    helperIdentities(moduleIndex).clear();
    const bool ownCategories = keepsOwnCategories(moduleIndex);
    if (ownCategories)
        Dispatch::mainSync([=] { KestalService::cleanningCompletedStatus()[moduleIndex].clear(); });

    const int count = int(cleanInfoDict().value(moduleIndex).size());
    bool allDoneInProcess = true;
    bool anyToHelper = false;
    for (int index = 0; index < count; ++index) {
        const int ci = cleanInfoDict()[moduleIndex][index].ci;
        if (ownCategories && !cleanInfoDict()[moduleIndex][index].folders.isEmpty())
            storeTriple(moduleIndex, ci, CleanTriple{});
        PathMap pathMap;
        manager->ciSize[ci] = 0;
        manager->ciFileNumber[ci] = 0;
        manager->helpToolCiSize[ci] = 0;
        manager->helpToolCiFileNumber[ci] = 0;

        // Every item is offered to the in-process removal first; whatever it
        // refuses goes to the helper, which checks it the same way: an item
        // that vanished or changed since the scan fails there too.
        const auto tryItem = [&](cleanFolder &entry, int finder, std::optional<int> child) {
            if (FolderInfo::deleteFile(entry.path, entry.identity).removed()) {
                entry.status = 1;
                manager->ciSize[ci] += entry.size;
                manager->ciFileNumber[ci] += 1;
            } else {
                pathMap.insert(entry.key, slotArray(ci, finder, child));
                helperIdentities(moduleIndex).insert(entry.path, entry.identity);
                manager->helpToolCiSize[ci] += entry.size;
                manager->helpToolCiFileNumber[ci] += 1;
                manager->helpToolPathSize.insert(entry.key, entry.size);
            }
        };
        QList<cleanFolder> &folders = cleanInfoDict()[moduleIndex][index].folders;
        for (cleanFolder &entry : folders) {
            const QList<cleanFolder *> items = [&] {
                QList<cleanFolder *> list;
                if (entry.children.isEmpty())
                    list.append(&entry);
                for (cleanFolder &child : entry.children)
                    list.append(&child);
                return list;
            }();
            for (cleanFolder *item : items) {
                if (stop(moduleIndex)) {
                    if (anyToHelper)
                        stopWithHelper(moduleIndex, index, manager);
                    else
                        handleStopEvent(moduleIndex, index, cleanInfoDict().value(moduleIndex),
                                        manager, cleanService);
                    return;
                }
                if (item == &entry)
                    tryItem(entry, entry.finder, std::nullopt);
                else
                    tryItem(*item, entry.finder, item->finder);
            }
        }

        if (!pathMap.isEmpty()) {
            XPC(pathMap, manager, operationType::delete_, moduleIndex, ci);
            allDoneInProcess = false;
            anyToHelper = true;
        } else {
            manager->cleanDone += 1;
            cleanService->done(true, ci, 999, manager->ciFileNumber[ci], manager->ciSize[ci]);
            if (manager->cleanDone == manager->categoryCount)
                allDoneInProcess = true;
        }
    }
    if (!allDoneInProcess)
        return; // the helper's last report closes the run
    closeRun(manager, true, 999, true);
}

void KestalModuleCleanService::stopWithHelper(int moduleIndex, int currentIndex,
                                              const ManagerPtr &manager)
{
    // Requests still waiting for the helper's first answer are not sent.
    QList<int> stopped;
    for (const QMap<int, PathMap> &request : modelHelpTool().value(moduleIndex))
        stopped += request.keys();
    modelHelpTool().remove(moduleIndex);
    const QList<cleanCategory> &plan = cleanInfoDict()[moduleIndex];
    for (int index = currentIndex; index < plan.size(); ++index)
        stopped.append(plan[index].ci);
    const bool keepsStopEntries = moduleIndex < headerModelIndex();
    for (int ci : std::as_const(stopped)) {
        manager->helpToolCiSize[ci] = 0;
        manager->helpToolCiFileNumber[ci] = 0;
        manager->cleanDone += 1;
        if (keepsStopEntries)
            storeTriple(moduleIndex, ci, CleanTriple{-3, 0, 0});
    }
    XPCUtil::instance()->operation({}, manager, qint64(operationType::stop), moduleIndex);
    // Nothing may be out any more, and then no report will come to close the run.
    if (manager->cleanDone >= manager->categoryCount)
        closeRun(manager, false, -3, true);
}

void KestalModuleCleanService::handleStopEvent(
    int moduleIndex, int currentCi, const QList<cleanCategory> &updateCategoryArrays,
    const ManagerPtr &cleanManager, const std::shared_ptr<KestalCleanProtocol> &cleanService)
{
    Q_UNUSED(cleanService);
    QMutexLocker lock(&g_lock);
    if (moduleIndex < headerModelIndex()) {
        for (int index = currentCi; index < updateCategoryArrays.size(); ++index)
            storeTriple(moduleIndex, updateCategoryArrays[index].ci, CleanTriple{-3, 0, 0});
    }
    cleanInfoDict().insert(moduleIndex, updateCategoryArrays);
    closeRun(cleanManager, false, -3, true);
}

void KestalModuleCleanService::closeRun(const ManagerPtr &manager, bool result, int status,
                                        bool withHelper)
{
    QMutexLocker lock(&g_lock);
    const auto [number, size] = manager->totals(withHelper);
    updateModuleCategoryAndDetail(manager->moduleIndex, manager);
    cleanStatusDict().insert(manager->moduleIndex, cleanStatus::cleandone);
    manager->cleanController->done(result, -1, status, number, size);
}

void KestalModuleCleanService::XPC(const PathMap &folder,
                                   std::shared_ptr<DeleteFilesProgressProtocol> progress,
                                   operationType type, int modelIndex, int ci)
{
    QMutexLocker lock(&g_lock);
    XPCUtil *xpc = XPCUtil::instance();
    if (!passHelpTool()) {
        if (modelHelpTool().contains(modelIndex)) {
            // The module's first request is out; the rest wait for its answer.
            modelHelpTool()[modelIndex].append(QMap<int, PathMap>{{ci, folder}});
            return;
        }
        modelHelpTool().insert(modelIndex, {});
    } else {
        xpc->operation({}, progress, qint64(operationType::start), modelIndex);
    }
    IdentityMap identities;
    for (auto it = folder.begin(); it != folder.end(); ++it) {
        const QByteArray path = Services::handleBytes(it.key());
        const auto found = helperIdentities(modelIndex).constFind(path);
        if (found != helperIdentities(modelIndex).constEnd())
            identities.insert(path, *found);
    }
    xpc->operation(folder, progress, qint64(type), modelIndex, identities);
}

void KestalModuleCleanService::updateModuleCategoryAndDetail(int modelIndex,
                                                             const ManagerPtr &cleanManager)
{
    QMutexLocker lock(&g_lock);
    if (!cleanStatusDict().contains(modelIndex) || !cleanInfoDict().contains(modelIndex))
        return;
    FileFinder fileFinder;
    ChildrenDeleteFinder childrenDeleteFinder;
    for (const cleanCategory &c : cleanInfoDict().value(modelIndex)) {
        for (const cleanFolder &entry : c.folders) {
            if (entry.children.isEmpty()) {
                if (isRemoved(entry.status))
                    fileFinder[c.ci].append(entry.finder);
                continue;
            }
            QList<int> gone;
            for (const cleanFolder &child : entry.children) {
                if (isRemoved(child.status))
                    gone.append(child.finder);
            }
            if (!gone.isEmpty())
                childrenDeleteFinder[c.ci].append({entry.finder, gone});
        }
    }
    cleanFile(modelIndex, fileFinder, cleanManager);
    cleanChildrenFile(modelIndex, childrenDeleteFinder, cleanManager);
}

namespace {

// The plan's node for a finder (and a child's finder) of a category. The
// tree's findex values change as nodes leave, the plan's do not: nodes are
// found through the plan.
FolderInfoPtr planNode(int moduleIndex, int ci, int finder, std::optional<int> childFinder = {})
{
    for (const cleanCategory &c : KestalModuleCleanService::cleanInfoDict().value(moduleIndex)) {
        if (c.ci != ci)
            continue;
        for (const cleanFolder &entry : c.folders) {
            if (entry.finder != finder)
                continue;
            if (!childFinder)
                return entry.folder;
            for (const cleanFolder &child : entry.children) {
                if (child.finder == *childFinder)
                    return child.folder;
            }
        }
    }
    return nullptr;
}

// Takes these nodes out of a list; the bytes they held.
qint64 removeNodes(QList<FolderInfoPtr> &nodes, const QList<FolderInfoPtr> &gone)
{
    qint64 removed = 0;
    for (qsizetype i = nodes.size() - 1; i >= 0; --i) {
        if (gone.contains(nodes[i])) {
            removed += nodes[i]->size;
            nodes.removeAt(i);
        }
    }
    return removed;
}

Category *categoryWithFinder(int moduleIndex, int ci)
{
    QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
    for (qsizetype i = 0; i < categories.size(); ++i) {
        if (categories[i].finder.value_or(int(i)) == ci)
            return &categories[i];
    }
    return nullptr;
}

} // namespace

void KestalModuleCleanService::cleanFile(int moduleIndex, const FileFinder &fileFinder,
                                         const ManagerPtr &cleanManager)
{
    Q_UNUSED(cleanManager);
    Dispatch::mainSync([&] {
        for (auto it = fileFinder.begin(); it != fileFinder.end(); ++it) {
            Category *c = categoryWithFinder(moduleIndex, it.key());
            if (!c)
                continue;
            QList<FolderInfoPtr> gone;
            for (int finder : it.value())
                gone.append(planNode(moduleIndex, it.key(), finder));
            removeNodes(c->files, gone);
            updateAppModuleCategory(moduleIndex, it.key());
        }
    });
}

void KestalModuleCleanService::cleanChildrenFile(int moduleIndex,
                                                 const ChildrenDeleteFinder &childrenDeleteFinder,
                                                 const ManagerPtr &cleanManager)
{
    Q_UNUSED(cleanManager);
    Dispatch::mainSync([&] {
        for (auto it = childrenDeleteFinder.begin(); it != childrenDeleteFinder.end(); ++it) {
            Category *c = categoryWithFinder(moduleIndex, it.key());
            if (!c)
                continue;
            QList<FolderInfoPtr> emptied;
            for (const auto &[parentFinder, children] : it.value()) {
                const FolderInfoPtr parent = planNode(moduleIndex, it.key(), parentFinder);
                if (!parent)
                    continue;
                QList<FolderInfoPtr> gone;
                for (int finder : children)
                    gone.append(planNode(moduleIndex, it.key(), parentFinder, finder));
                parent->size -= removeNodes(parent->children, gone);
                for (qsizetype i = 0; i < parent->children.size(); ++i)
                    parent->children[i]->findex = int(i);
                // What is left was not selected; a stale -1 would make the
                // next plan take the whole folder.
                parent->checked = AppModuleService::calculateParentState(parent->children);
                if (parent->children.isEmpty())
                    emptied.append(parent);
            }
            removeNodes(c->files, emptied);
            updateAppModuleCategory(moduleIndex, it.key());
        }
    });
}

void KestalModuleCleanService::updateAppModuleCategory(int moduleIndex, int ci)
{
    Dispatch::mainSync([&] {
        Category *c = categoryWithFinder(moduleIndex, ci);
        if (!c)
            return;
        qint64 size = 0;
        for (qsizetype i = 0; i < c->files.size(); ++i) {
            c->files[i]->findex = int(i);
            size += c->files[i]->size;
        }
        c->size = size;
    });
}
