// The Trash watch and its offer: the white-list cycle on a real Trash, the
// events that never count, a storm of items, and the offer made through a
// notification server on a private session bus, whose "Clean" button has
// the real helper remove the application with its leftovers.
#include "clean/CleanTestSupport.h"
#include "cleaner/applications/ApplicationPlaces.h"
#include "cleaner/applications/KestalFolderEventMonitor.h"
#include "cleaner/clean/KestalNotificationService.h"
#include "cleaner/core/Platform.h"
#include "support/PrivateSessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QtTest>

namespace {

const QString kServer = QStringLiteral("notifications");

// Records what the desktop's notification server is asked.
class NotificationServer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    struct Shown {
        uint id;
        QString summary;
        QString body;
        QStringList actions;
    };
    QList<Shown> shown;
    QList<uint> closed;

public slots:
    uint Notify(const QString &, uint, const QString &, const QString &summary, const QString &body,
                const QStringList &actions, const QVariantMap &, int)
    {
        shown.append({uint(shown.size() + 1), summary, body, actions});
        return shown.last().id;
    }
    void CloseNotification(uint id) { closed << id; }
    QStringList GetCapabilities() { return {QStringLiteral("actions")}; }
};

// Throws an item into the freedesktop Trash as a file manager does: the
// record of where it was first, then the item.
void throwAway(const QString &path)
{
    const QString name = QFileInfo(path).fileName();
    TreeBuilder::write(Platform::trashPath() + "/info/" + name + ".trashinfo",
                       "[Trash Info]\nPath=" + QUrl::toPercentEncoding(path, "/") +
                           "\nDeletionDate=2026-11-24T01:00:00\n");
    QDir().mkpath(ApplicationPlaces::trashItemsFolder());
    QVERIFY(QDir().rename(path, ApplicationPlaces::trashItemsFolder() + "/" + name));
}

void putBack(const QString &name, const QString &to)
{
    QVERIFY(QDir().rename(ApplicationPlaces::trashItemsFolder() + "/" + name, to));
    QFile::remove(Platform::trashPath() + "/info/" + name + ".trashinfo");
}

} // namespace

class TestTrashOffer : public QObject {
    Q_OBJECT

private:
    PrivateSessionBus m_bus;
    NotificationServer m_server;
    QList<QString> m_offers;

    QDBusConnection server() const { return QDBusConnection(kServer); }
    void stopServer()
    {
        server().unregisterObject("/org/freedesktop/Notifications");
        server().unregisterService("org.freedesktop.Notifications");
    }
    void recordOffers()
    {
        KestalFolderEventMonitor::setOffer([this](const Category &c) {
            m_offers << QFileInfo(QFile::decodeName(FolderInfo::pathBytes(c.files.first()->url)))
                            .fileName();
        });
    }

private slots:
    void initTestCase()
    {
        const QString address = m_bus.start();
        QVERIFY2(!address.isEmpty(), "dbus-daemon is needed (scripts/bootstrap)");
        QVERIFY(QDBusConnection::sessionBus().isConnected());
        QVERIFY(QDBusConnection::connectToBus(address, kServer).isConnected());
        CleanTest::useHelper(QString());
    }

    void cleanupTestCase()
    {
        XPCUtil::shutdown();
        QDBusConnection::disconnectFromBus(kServer);
        m_bus.stop();
    }

    void cleanup()
    {
        stopServer();
        KestalFolderEventMonitor::setOffer({});
        KestalNotificationService::setFallback({});
        KestalNotificationService::setDialogInfo({});
        m_offers.clear();
    }

    // What lay in the Trash at start-up is cleared by its first event; an
    // application thrown away, put back and thrown away again is offered
    // twice; its own name, other files and events inside it never count;
    // a storm gives one offer per application.
    void whiteListCycle()
    {
        TestEnvironment env("linux");
        const QString apps = env.home() + "/Applications/";
        TreeBuilder::write(apps + "Old.AppImage", "x");
        throwAway(apps + "Old.AppImage");
        TreeBuilder::write(apps + "New.AppImage", "x");
        TreeBuilder::write(apps + "Brenlow-2.0.AppImage", "x");
        TreeBuilder::write(apps + "Folder/run", "x");
        TreeBuilder::write(env.home() + "/Downloads/x.AppImage.zip", "x");
        recordOffers();
        KestalFolderEventMonitor monitor(ApplicationPlaces::trashItemsFolder());
        QCOMPARE(KestalFolderEventMonitor::whiteList().size(), 1);

        putBack("Old.AppImage", apps + "Old.AppImage"); // clears it: no offer
        throwAway(apps + "New.AppImage");
        QTRY_COMPARE(m_offers, QStringList{"New.AppImage"});
        throwAway(apps + "Old.AppImage");
        QTRY_COMPARE(m_offers, (QStringList{"New.AppImage", "Old.AppImage"}));
        putBack("Old.AppImage", apps + "Old.AppImage");
        QTRY_VERIFY(!KestalFolderEventMonitor::whiteList().contains(
            QFile::encodeName(ApplicationPlaces::trashItemsFolder() + "/Old.AppImage")));

        throwAway(apps + "Brenlow-2.0.AppImage");
        throwAway(env.home() + "/Downloads/x.AppImage.zip");
        throwAway(apps + "Folder");
        QTRY_COMPARE(m_offers.size(), 3);
        QCOMPARE(m_offers.last(), QStringLiteral("Folder"));
        TreeBuilder::write(ApplicationPlaces::trashItemsFolder() + "/Folder/inside.AppImage", "x");

        // Hundreds of items at once, three of them applications.
        for (int i = 0; i < 300; ++i)
            TreeBuilder::write(
                ApplicationPlaces::trashItemsFolder() + QStringLiteral("/file-%1").arg(i), "x");
        for (const char *name : {"A.AppImage", "B.AppImage", "C.AppImage"}) {
            TreeBuilder::write(apps + name, "x");
            throwAway(apps + name);
        }
        throwAway(apps + "Old.AppImage");
        QTRY_COMPARE(m_offers.size(), 7);
        QCOMPARE(QSet<QString>(m_offers.begin() + 3, m_offers.end()),
                 (QSet<QString>{"A.AppImage", "B.AppImage", "C.AppImage", "Old.AppImage"}));
    }

    // On the macOS profile only bundles count, and nothing inside one.
    void bundleEventsOnMacOS()
    {
        TestEnvironment env("macos");
        TreeBuilder::write(env.home() + "/.Trash/Some.app/Contents/Helper.app/x", "x");
        TreeBuilder::write(env.home() + "/.Trash/x.app.zip", "x");
        recordOffers();
        KestalFolderEventMonitor monitor(ApplicationPlaces::trashItemsFolder());
        QCOMPARE(KestalFolderEventMonitor::whiteList(),
                 QSet<QByteArray>{QFile::encodeName(env.home() + "/.Trash/Some.app")});
        monitor.handleEvents(
            {QFile::encodeName(env.home() + "/.Trash/Some.app/Contents/Helper.app"),
             QFile::encodeName(env.home() + "/.Trash/x.app.zip")});
        QCOMPARE(KestalFolderEventMonitor::whiteList().size(), 1);
        monitor.handleEvents({QFile::encodeName(env.home() + "/.Trash/Some.app")});
        QVERIFY(KestalFolderEventMonitor::whiteList().isEmpty());
        QVERIFY(m_offers.isEmpty());
    }

    // The offer as a notification with its two buttons; "Clean" has the
    // helper remove the application and its leftovers, and the offer goes
    // away after a while. With no server, a dialog takes its place.
    void offerCleansThroughTheHelper()
    {
        TreeBuilder realHome(TreeBuilder::Place::RealHome);
        TestEnvironment env("linux", realHome.root());
        QVERIFY(server().registerObject("/org/freedesktop/Notifications", &m_server,
                                        QDBusConnection::ExportAllSlots));
        QVERIFY(server().registerService("org.freedesktop.Notifications"));
        QStringList dialogs;
        KestalNotificationService::setDialogInfo(
            [&](const QString &question, const QString &) { dialogs << question; });
        KestalNotificationService::removalDelay = 100;
        KestalNotificationService::main();
        const QString apps = env.home() + "/Applications/";
        const QString app = apps + "Tool-1.0.AppImage";
        TreeBuilder::write(app, QByteArray(500, 'a'));
        TreeBuilder::write(env.home() + "/.config/Tool/settings", "x");
        TreeBuilder::write(env.home() + "/.local/share/applications/tool.desktop",
                           "[Desktop Entry]\nName=Tool\nExec=" + QFile::encodeName(app) + "\n");
        TreeBuilder::write(env.home() + "/.config/Toolbox/keep", "x");
        KestalFolderEventMonitor monitor(ApplicationPlaces::trashItemsFolder());
        throwAway(app);

        QTRY_COMPARE_WITH_TIMEOUT(m_server.shown.size(), 1, 20000);
        const NotificationServer::Shown offer = m_server.shown.first();
        QCOMPARE(offer.summary, QStringLiteral("In-depth Uninstallation"));
        QVERIFY(
            offer.body.startsWith("Would you like to completely remove the app and its leftovers"));
        QCOMPARE(offer.actions, (QStringList{"clean", "Clean", "cancel", "Cancel"}));
        QCOMPARE(KestalNotificationService::cateogry()->files.size(), 3);
        QDBusMessage action = QDBusMessage::createSignal(
            "/org/freedesktop/Notifications", "org.freedesktop.Notifications", "ActionInvoked");
        action << offer.id << QStringLiteral("clean");
        QVERIFY(server().send(action));
        QTRY_COMPARE_WITH_TIMEOUT(dialogs, QStringList{"Cleanup Completed"}, 30000);
        QVERIFY(!QFileInfo::exists(ApplicationPlaces::trashItemsFolder() + "/Tool-1.0.AppImage"));
        QVERIFY(!QFileInfo::exists(env.home() + "/.config/Tool"));
        QVERIFY(!QFileInfo::exists(env.home() + "/.local/share/applications/tool.desktop"));
        QVERIFY(QFileInfo::exists(env.home() + "/.config/Toolbox/keep"));
        QTRY_COMPARE(m_server.closed, QList<uint>{offer.id});

        // No server answers: the dialog offers, and its "Clean" cleans.
        stopServer();
        bool asked = false;
        KestalNotificationService::setFallback(
            [&](const QString &title, const QString &, std::function<void(bool)> answer) {
                asked = title == QLatin1String("In-depth Uninstallation");
                answer(true);
            });
        TreeBuilder::write(apps + "Second.AppImage", "x");
        throwAway(apps + "Second.AppImage");
        QTRY_VERIFY_WITH_TIMEOUT(asked, 20000);
        QTRY_COMPARE_WITH_TIMEOUT(dialogs.size(), 2, 30000);
        QVERIFY(!QFileInfo::exists(ApplicationPlaces::trashItemsFolder() + "/Second.AppImage"));
    }
};

QTEST_GUILESS_MAIN(TestTrashOffer)
#include "test_trash_offer.moc"
