#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"

#include <QHash>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>
#include <memory>
#include <utility>

class DeleteFilesProgressProtocol;

// The Eraser's selection: the files and folders the user added, and the run
// that sends them to the helper to be shredded. Every added path is one
// category of the Eraser module. All state is class-wide and lives on the
// main thread; the application itself overwrites nothing.
class ShredService : public Services {
public:
    static constexpr int moduleIndex = 10;

    // The paths of the current run, emptied by the report as they go.
    static QSet<QString> &shred();
    // Every path the user added as an item, files and folders alike.
    static QSet<QString> &shredFile();
    // For each added folder, the paths of the files found in it.
    static QHash<QString, QSet<QString>> &shredDict();
    static QHash<QString, qint64> &shredFilePathAndSize();
    // The request's path map: path to [finder, status slot].
    static QMap<QString, QList<int>> &shredFileStatus();
    // The paths of the last run that were not shredded, with their status,
    // for the log.
    static QMap<QString, int> &shredFailures();

    // Adds a file or folder; false with the words to show when it is refused.
    static std::pair<bool, QString> addFileOrDict(const QString &url);
    // Sends the checked items to the helper; `delegate` hears the reports.
    // With no file to shred nothing is sent, and the report comes at once.
    static void shred(std::shared_ptr<DeleteFilesProgressProtocol> delegate);
    // Takes the report's path map (keys as the report gives them); drops
    // what went from the list and removes the emptied folders. Answers the
    // size and the count of the files shredded.
    static std::pair<qint64, int> shredDone(const QMap<QString, QList<int>> &file);
    // Marks every path of the run as failed with `status` (the helper could
    // not be brought up), so that every item stays.
    static QMap<QString, QList<int>> allFailed(int status);
    // Takes the items of these rows out of the list.
    static void remove(const QList<int> &removeRow);
    // Removes emptied folders, given their absoluteStrings. Only folders go,
    // and only when nothing is left in them: a file put there since the user
    // added the folder is not the user's choice, and stays.
    static void cleanDirectory(const QStringList &cleanDict);
    // The size of a file, or the sum over the files of a folder.
    static qint64 getSize(const QString &url);
    // The list entry of an added path.
    static Category getCateogry(const QString &path);
    // The item's path of a list entry.
    static QString pathOf(const Category &category);

    // Drops the selection (tests).
    static void reset();

private:
    static bool isContains(const QString &path);
    // The request to the helper, and the report of a run with nothing to
    // send. They live with the clean pipeline, which owns the connection.
    static void sendToHelper(const QMap<QString, QList<int>> &folder,
                             std::shared_ptr<DeleteFilesProgressProtocol> delegate);
    static void reportNothing(const std::shared_ptr<DeleteFilesProgressProtocol> &delegate);
};

class KestalEraserService : public ShredService {};
