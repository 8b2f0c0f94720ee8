#include "cleaner/finders/KestalLargeAndOldFileServices.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/finders/LargeAndOldFileService.h"

#include <QFile>
#include <QSet>
#include <atomic>
#include <sys/stat.h>

namespace {

std::atomic<quint64> g_generation{0};

bool silenced(quint64 generation)
{
    return g_generation.load() != generation ||
           KestalService::judgeStopScan(KestalLargeAndOldFileServices::moduleIndex);
}

void requireFourCategories(const QList<Category> &categories)
{
    if (categories.size() < 4)
        fatalStop(QStringLiteral("module %1 needs four categories, the module list has %2")
                      .arg(KestalLargeAndOldFileServices::moduleIndex)
                      .arg(categories.size()));
}

} // namespace

void KestalLargeAndOldFileServices::bin(QList<Category> &categories, const FolderInfoPtr &file,
                                        const QDateTime &yearAgo, const QDateTime &monthAgo)
{
    const auto add = [&](Kind kind) {
        categories[kind].files.append(file);
        categories[kind].size += file->size;
    };
    if (file->date < yearAgo)
        add(LessThanYear);
    else if (file->date < monthAgo)
        add(LessThanMonth);
    if (file->size > over100M)
        add(Over100M);
    else if (file->size > over5M)
        add(Over5M);
}

QList<Category> KestalLargeAndOldFileServices::getLargeAndOldFileInfoList(
    QList<Category> categories, const Progress &progress, const ShowPercent &showPercent,
    const Filter &filter)
{
    requireFourCategories(categories);
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime yearAgo = now.addSecs(-yearSeconds);
    const QDateTime monthAgo = now.addSecs(-monthSeconds);
    const FolderUrl home{AppModuleService::updateModuleURL(QStringLiteral("file://~/")),
                         QStringLiteral("Folder"), 0};
    const ChildrenInfo found = FolderInfo::filesFromDirWithFilter(
        home, progress, showPercent,
        [&filter](const ResourceValues &values, DirectoryEnumerator &) {
            return filter ? filter(values) : FilterType::NoSkip;
        });
    for (int kind = Over100M; kind <= LessThanMonth; ++kind) {
        categories[kind].files.clear();
        categories[kind].size = 0;
    }
    for (int i = 0; i < found.children.size(); ++i) {
        if (judgeStopScan(moduleIndex))
            return {};
        const FolderInfoPtr &file = found.children[i];
        file->findex = i;
        bin(categories, file, yearAgo, monthAgo);
    }
    return categories;
}

void KestalLargeAndOldFileServices::scanLargeAndOldFile(Progress progress, ShowPercent showPercent,
                                                        std::function<void()> done)
{
    if (scanStatus().value(moduleIndex) == 1)
        return;
    scanStatus()[moduleIndex] = 1;
    startTimer(moduleIndex);
    const quint64 generation = ++g_generation;
    const QList<Category> categories = AppModuleService::categoriesOf(moduleIndex);
    if (categories.isEmpty())
        return;
    const Progress quietProgress = [generation, progress](const QString &path, qint64 size) {
        if (!silenced(generation) && progress)
            progress(path, size);
    };
    const ShowPercent quietPercent = [generation, showPercent](float step) {
        if (!silenced(generation) && showPercent)
            showPercent(step);
    };
    Dispatch::globalAsync([=] {
        const QList<Category> result =
            getLargeAndOldFileInfoList(categories, quietProgress, quietPercent,
                                       &LargeAndOldFileService::largeAndOldFileFilter);
        Dispatch::mainAsync([=] {
            if (silenced(generation))
                return;
            AppModuleService::appModules()[moduleIndex].categories = result;
            scanCategory()[moduleIndex] = result;
            stopTimer(moduleIndex);
            if (done)
                done();
        });
    });
}

void KestalLargeAndOldFileServices::filterInfoList()
{
    QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
    requireFourCategories(categories);
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime yearAgo = now.addSecs(-yearSeconds);
    const QDateTime monthAgo = now.addSecs(-monthSeconds);

    // A file listed twice is one node: it is kept, and binned, once.
    QList<FolderInfoPtr> kept;
    QSet<const FolderInfo *> seen;
    for (int kind = Over100M; kind <= LessThanMonth; ++kind) {
        for (const FolderInfoPtr &file : std::as_const(categories[kind].files)) {
            if (seen.contains(file.get()))
                continue;
            seen.insert(file.get());
            QString path = file->absoluteString();
            path.remove(QStringLiteral("file://"));
            path.replace(QStringLiteral("%20"), QStringLiteral(" "));
            struct stat st;
            if (::stat(QFile::encodeName(path).constData(), &st) == 0)
                kept.append(file);
        }
        categories[kind].files.clear();
        categories[kind].size = 0;
    }
    for (const FolderInfoPtr &file : std::as_const(kept))
        bin(categories, file, yearAgo, monthAgo);
    KestalService::scanCategory()[moduleIndex] = categories;
}
