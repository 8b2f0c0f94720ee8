#pragma once

#include "cleaner/core/ModuleTypes.h"

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QObject>
#include <QSet>
#include <QTimer>
#include <functional>
#include <optional>

// Watches the user's Trash for applications thrown into it. What lies there
// at start-up is never offered; an application that arrives is scanned with
// its leftovers and offered once; its next event (leaving the Trash) clears
// it, so that a later arrival counts as new. Runs on the main thread for the
// life of the program, also with the main window closed.
class KestalFolderEventMonitor : public QObject {
    Q_OBJECT

public:
    // Watches trash (the folder whose entries are the Trash's items).
    explicit KestalFolderEventMonitor(const QString &trash);
    ~KestalFolderEventMonitor() override;

    std::optional<QString> trashPath;

    void startWatchStream();
    void stopWatchStream();
    // The applications under a directory (paths, raw bytes).
    static QSet<QByteArray> applicationInDirectory(const QString &directroy);
    // The decision for one application's event.
    void checkAppWhetherInWhiteList(const QByteArray &app);
    // The events of one moment: the paths that changed in the Trash.
    void handleEvents(const QList<QByteArray> &paths);

    // Applications that need no offer; and a set the design keeps unused.
    static QSet<QByteArray> &whiteList();
    static QSet<QByteArray> &newAppList();

    // Where an offer goes (the notification service), on the main thread.
    using Offer = std::function<void(const Category &application)>;
    static void setOffer(Offer offer);

private:
    void folderChanged();
    void armWatch();

    QFileSystemWatcher m_watcher;
    QTimer m_coalesce;          // one look at the folder for a burst of changes
    QSet<QByteArray> m_listing; // the applications seen at the last look
    bool m_running = false;
};
