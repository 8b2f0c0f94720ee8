#pragma once

#include "cleaner/core/DirectoryEnumerator.h"
#include "cleaner/core/FileRemoval.h"

#include <QColor>
#include <QDateTime>
#include <QHash>
#include <QList>
#include <QString>
#include <QUrl>
#include <functional>
#include <memory>
#include <optional>

struct FolderUrl;
class DeleteFilesProgressProtocol;
class FolderInfo;
using FolderInfoPtr = std::shared_ptr<FolderInfo>;

// Progress of a walk: a path and a size in bytes. Percent: a step or an
// accumulated value. Both are always posted to the main queue.
using Progress = std::function<void(const QString &path, qint64 size)>;
using ShowPercent = std::function<void(float percent)>;
// A walk filter of the scans: true keeps the item (and, for a folder, stops there).
using WalkFilter = std::function<bool(const QUrl &url, DirectoryEnumerator &enumerator)>;

// The verdict of a filter of filesFromDirWithFilter.
enum class FilterType { SkipSelf, SkipChildren, SkipSelfAndChildren, NoSkip };
using TypeFilter =
    std::function<FilterType(const ResourceValues &values, DirectoryEnumerator &enumerator)>;

// The result of a directory walk.
struct ChildrenInfo {
    QList<FolderInfoPtr> children;
    qint64 totalSize = 0;
};

// One node of every list the program shows and cleans: a file, a folder, or a
// record that is no file (then `dbNumber` names it). Nodes are shared between
// a module's table and the clean pipeline and changed on the main thread only.
class FolderInfo {
public:
    int findex;
    QString name;
    QString icon; // a custom icon's name; empty means "the item's own" (see iconName)
    qint64 size;
    QColor color;
    bool isFolder;
    QDateTime date;
    QUrl url;
    bool isPackage;
    QList<FolderInfoPtr> children;
    bool hidden;
    int checked;
    QString dbNumber;
    // What the scan saw of the item on the disk; a removal checks it again.
    // Unknown for nodes that were not read from the disk, which no removal takes.
    ItemIdentity identity;
    // A node whose children a rule chose among the folder's contents (an
    // application's language folders): the folder holds more than it lists,
    // so a clean takes its listed children and never the node itself.
    bool isContainer = false;

    FolderInfo(int findex, QString name, QString icon, qint64 size, QColor color, bool isFolder,
               QDateTime date, QUrl url, bool isPackage, QList<FolderInfoPtr> children, bool hidden,
               int checked, QString dbNumber);
    FolderInfo() = delete;
    virtual ~FolderInfo() = default;

    static FolderInfoPtr make(int findex, QString name, QString icon, qint64 size, QColor color,
                              bool isFolder, QDateTime date, QUrl url, bool isPackage,
                              QList<FolderInfoPtr> children, bool hidden, int checked,
                              QString dbNumber);

    // The icon a screen shows: the custom one, else the item's type icon, else "NSFolder".
    QString iconName() const;
    // The key other parts use for this node.
    QString absoluteString() const { return absoluteString(url); }

    // The distant past, the date of an item whose date cannot be read.
    static QDateTime distantPast();
    // A file URL for raw path bytes, percent-encoded so no byte is lost.
    static QUrl urlFromPath(const QByteArray &path);
    static QUrl urlFromPath(const QString &path);
    static QString absoluteString(const QUrl &url);
    // The raw path bytes of a file URL.
    static QByteArray pathBytes(const QUrl &url);

    // The walks. Progress and percent callbacks are posted to the main queue.
    static FolderInfoPtr folderInfo(const FolderUrl &url, bool includeChildren,
                                    const Progress &progress);
    static FolderInfoPtr filterFolderInfo(const FolderUrl &url, bool includeChildren,
                                          const Progress &progress, const WalkFilter &filter);
    static ChildrenInfo childrenOfDirectory(const FolderUrl &folderURL, const Progress &progress);
    static ChildrenInfo filterChildrenOfDirectory(const FolderUrl &folderURL,
                                                  const Progress &progress,
                                                  const WalkFilter &filter);
    static ChildrenInfo filesFromDirWithFilter(const FolderUrl &folderURL, const Progress &progress,
                                               const ShowPercent &showPercent,
                                               const TypeFilter &filter);
    static qint64 getFolderSize(const QUrl &url);
    static qint64 fastFolderSizeAtFSRef(const QString &theFilePath);
    static QHash<QString, qint64>
    getFolderUsageWithFilter(const QUrl &url, const std::function<bool(const QString &)> &filter);
    static void asyncGetFolderSize(const QUrl &url, std::function<void(qint64)> doneCalculating);
    static void
    asyncGetFolderUsageWithFilter(const QUrl &url, std::function<bool(const QString &)> filter,
                                  std::function<void(QHash<QString, qint64>)> doneCalculating);
    static QString getUserHomeDirectory();
    // Plain removal, when the parent folder allows it; false on any failure.
    static bool deleteFile(const QUrl &url);
    // The clean's removal: the item at these path bytes, provided it is still
    // the one the scan saw.
    static FileRemoval::Result deleteFile(const QByteArray &path, const ItemIdentity &expected);
    // Hands items to the privileged helper to be shredded (for the Eraser) or
    // moved in or out of use (for Extensions); the delegate hears the reports.
    static void helperToolShredFiles(const QList<QUrl> &urls,
                                     std::shared_ptr<DeleteFilesProgressProtocol> delegate);
    static void helperToolMoveFiles(const QList<QUrl> &urls,
                                    std::shared_ptr<DeleteFilesProgressProtocol> delegate);

    // Builds a node from an item's values (the shape every walk shares).
    static FolderInfoPtr nodeFromValues(const ResourceValues &values, int findex, int checked);

protected:
    static void postProgress(const Progress &progress, const QString &path, qint64 size);
    static void postPercent(const ShowPercent &showPercent, float value);
};
