#pragma once

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/ModuleTypes.h"

#include <QObject>
#include <functional>
#include <optional>

// The offer to remove an application thrown into the Trash with its
// leftovers: a desktop notification with the buttons "Clean" and "Cancel"
// (org.freedesktop.Notifications on the session bus), taken away again
// after ten seconds. When no notification server answers, the offer is a
// small dialog of the application. "Clean" hands every item to the helper
// under the module index -1, which no module uses.
class KestalNotificationService : public QObject {
    Q_OBJECT

public:
    static KestalNotificationService *instance();
    // Makes the instance and has the Trash watch send its offers here.
    static KestalNotificationService *main();

    // The application on offer; a later offer replaces an earlier one.
    static std::optional<Category> &cateogry();
    // How long a delivered notification stays, in milliseconds.
    static int removalDelay;

    void showNotification(const QString &id, const QString &title, const QString &subTitle);
    void clean();

    // The shell's dialogs. fallback shows the offer when no notification
    // server answers and calls back with true for "Clean"; dialogInfo is
    // the design's UIUtil.dialogInfo. Without them the texts go to stderr.
    using Fallback = std::function<void(const QString &title, const QString &text,
                                        std::function<void(bool clean)> answer)>;
    using DialogInfo = std::function<void(const QString &question, const QString &text)>;
    static void setFallback(Fallback fallback);
    static void setDialogInfo(DialogInfo dialog);
    static void dialogInfo(const QString &question, const QString &text);

signals:
    // A notification was delivered (its id on the bus) or shown as a dialog (0).
    void delivered(uint id);

private slots:
    void actionInvoked(uint id, const QString &actionKey);

private:
    KestalNotificationService();
    void offer(const Category &application);
    void didDeliver(uint id);
    void didActivate(uint id, const QString &actionKey);
    void fallBack(const QString &title, const QString &text);

    QList<uint> m_shown; // ours among the server's notifications
};

// Hears the helper's report of an offer's clean and tells the user.
class KestalNotificationCleanService : public DeleteFilesProgressProtocol {
public:
    void installFail(const QString &error, int moduleIndex) override;
    void processed(const QString &url, qint64 size, int moduleIndex) override;
    void finished(bool result, const PathMap &folders, int moduleIndex) override;
};
