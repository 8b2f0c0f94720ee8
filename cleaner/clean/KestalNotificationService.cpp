#include "cleaner/clean/KestalNotificationService.h"

#include "cleaner/applications/KestalFolderEventMonitor.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/ByteCount.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QTimer>
#include <cstdio>

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kInterface = QStringLiteral("org.freedesktop.Notifications");
const QString kCleanAction = QStringLiteral("clean");
const QString kCancelAction = QStringLiteral("cancel");
constexpr int kNotificationModule = -1;

KestalNotificationService::Fallback &fallbackHandler()
{
    static KestalNotificationService::Fallback handler;
    return handler;
}

KestalNotificationService::DialogInfo &dialogHandler()
{
    static KestalNotificationService::DialogInfo handler;
    return handler;
}

} // namespace

int KestalNotificationService::removalDelay = 10000;

KestalNotificationService *KestalNotificationService::instance()
{
    static KestalNotificationService *service = new KestalNotificationService();
    return service;
}

KestalNotificationService *KestalNotificationService::main()
{
    KestalNotificationService *service = instance();
    KestalFolderEventMonitor::setOffer([service](const Category &c) { service->offer(c); });
    return service;
}

std::optional<Category> &KestalNotificationService::cateogry()
{
    static std::optional<Category> category;
    return category;
}

void KestalNotificationService::setFallback(Fallback fallback)
{
    fallbackHandler() = std::move(fallback);
}

void KestalNotificationService::setDialogInfo(DialogInfo dialog)
{
    dialogHandler() = std::move(dialog);
}

void KestalNotificationService::dialogInfo(const QString &question, const QString &text)
{
    if (dialogHandler())
        dialogHandler()(question, text);
    else
        std::fprintf(stderr, "%s %s\n", qPrintable(question), qPrintable(text));
}

KestalNotificationService::KestalNotificationService()
{
    QDBusConnection::sessionBus().connect(kService, kPath, kInterface,
                                          QStringLiteral("ActionInvoked"), this,
                                          SLOT(actionInvoked(uint, QString)));
}

void KestalNotificationService::offer(const Category &application)
{
    cateogry() = application;
    showNotification(QStringLiteral("Brenlow.uninstall"),
                     getLocalizedString(QStringLiteral("In-depth Uninstallation")),
                     getLocalizedString(QStringLiteral(
                         "Would you like to completely remove the app and its leftovers")) +
                         QLatin1Char(' ') + ByteCount::string(application.size) + QLatin1Char('?'));
}

void KestalNotificationService::showNotification(const QString &id, const QString &title,
                                                 const QString &subTitle)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        fallBack(title, subTitle);
        return;
    }
    QDBusMessage notify =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Notify"));
    const QStringList actions{kCleanAction, getLocalizedString(QStringLiteral("Clean")),
                              kCancelAction, getLocalizedString(QStringLiteral("Cancel"))};
    const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("brenlow")},
                            {QStringLiteral("sound-name"), QStringLiteral("message-new-instant")},
                            {QStringLiteral("x-brenlow-id"), id}};
    notify << QStringLiteral("Brenlow") << uint(0) << QStringLiteral("brenlow") << title << subTitle
           << actions << hints << int(-1);
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(notify), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, title, subTitle] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isError())
            fallBack(title, subTitle); // no notification server answers
        else
            didDeliver(reply.value());
    });
}

void KestalNotificationService::fallBack(const QString &title, const QString &text)
{
    emit delivered(0);
    if (!fallbackHandler()) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
        return;
    }
    fallbackHandler()(title, text, [this](bool wanted) {
        if (wanted)
            clean();
    });
}

// The offer is a brief one: it goes again after a while.
void KestalNotificationService::didDeliver(uint id)
{
    m_shown << id;
    emit delivered(id);
    QTimer::singleShot(removalDelay, this, [this, id] {
        if (!m_shown.removeOne(id))
            return;
        QDBusConnection::sessionBus().asyncCall(
            QDBusMessage::createMethodCall(kService, kPath, kInterface,
                                           QStringLiteral("CloseNotification"))
            << id);
    });
}

void KestalNotificationService::actionInvoked(uint id, const QString &actionKey)
{
    if (m_shown.contains(id))
        didActivate(id, actionKey);
}

// Only the "Clean" button counts; the body and "Cancel" do nothing.
void KestalNotificationService::didActivate(uint, const QString &actionKey)
{
    if (actionKey == kCleanAction)
        Dispatch::mainAsync([this] { clean(); });
}

void KestalNotificationService::clean()
{
    if (!cateogry())
        return;
    PathMap folder;
    IdentityMap identities;
    for (const FolderInfoPtr &file : cateogry()->files) {
        const QString key = file->absoluteString();
        folder.insert(key, {0, file->findex, 0});
        if (file->identity.isKnown())
            identities.insert(FolderInfo::pathBytes(file->url), file->identity);
    }
    const auto receiver = std::make_shared<KestalNotificationCleanService>();
    XPCUtil::instance()->operation({}, receiver, qint64(operationType::start), kNotificationModule);
    XPCUtil::instance()->operation(folder, receiver, qint64(operationType::delete_),
                                   kNotificationModule, identities);
}

void KestalNotificationCleanService::installFail(const QString &, int) {}

void KestalNotificationCleanService::processed(const QString &, qint64, int) {}

void KestalNotificationCleanService::finished(bool result, const PathMap &, int)
{
    Dispatch::mainAsync([result] {
        if (!result) {
            KestalNotificationService::dialogInfo(getLocalizedString(QStringLiteral("Clean Fail")),
                                                  QString());
            return;
        }
        // What the scan found, whether or not all of it went.
        const auto &c = KestalNotificationService::cateogry();
        KestalNotificationService::dialogInfo(
            getLocalizedString(QStringLiteral("Cleanup Completed")),
            getLocalizedString(QStringLiteral("You had clean ")) +
                ByteCount::string(c ? c->size : 0));
    });
}
