// Showing an item in the desktop's file manager, over a private session bus
// where a stand-in answers on a connection of its own.

#include "cleaner/shell/Workspace.h"
#include "support/PrivateSessionBus.h"
#include "support/TreeBuilder.h"

#include <QDBusConnection>
#include <QProcess>
#include <QtTest>

namespace {

const QString service = QStringLiteral("org.freedesktop.FileManager1");
const QString objectPath = QStringLiteral("/org/freedesktop/FileManager1");
const QString standInConnection = QStringLiteral("file-manager");

// Records what the desktop's file manager was asked to show.
class FileManagerStandIn : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QStringList shown;

public slots:
    void ShowItems(const QStringList &uris, const QString &) { shown += uris; }
};

} // namespace

class WorkspaceTest : public QObject {
    Q_OBJECT

private:
    PrivateSessionBus m_bus;
    QTemporaryDir m_data;
    TreeBuilder m_tree;
    QList<QUrl> m_opened;
    FileManagerStandIn m_fileManager;

    QDBusConnection standIn() const { return QDBusConnection(standInConnection); }

    // The file URL of a path below the tree, the tree's own part encoded by Qt.
    QString urlBelowTree(const QString &encodedRest) const
    {
        return QUrl::fromLocalFile(m_tree.root()).toString(QUrl::FullyEncoded) + encodedRest;
    }

private slots:
    void initTestCase()
    {
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        // Not the system's services: a file manager installed there would start.
        env.insert("XDG_DATA_HOME", m_data.path());
        env.insert("XDG_DATA_DIRS", m_data.path());
        const QString address = m_bus.start(env);
        QVERIFY2(!address.isEmpty(), "dbus-daemon is needed (scripts/bootstrap)");
        QVERIFY(QDBusConnection::sessionBus().isConnected());
        QVERIFY(QDBusConnection::connectToBus(address, standInConnection).isConnected());

        Workspace::setOpenerForTesting([this](const QUrl &url) {
            m_opened.append(url);
            return true;
        });
        m_tree.file("Fotos für Öl/Bild 1 é.jpg", 10);
    }

    void cleanupTestCase()
    {
        Workspace::setOpenerForTesting({});
        QDBusConnection::disconnectFromBus(standInConnection);
        m_bus.stop();
    }

    void cleanup()
    {
        standIn().unregisterObject(objectPath);
        standIn().unregisterService(service);
        m_opened.clear();
    }

    void showsTheItemSelectedWithItsUriFullyEncoded()
    {
        QVERIFY(
            standIn().registerObject(objectPath, &m_fileManager, QDBusConnection::ExportAllSlots));
        QVERIFY(standIn().registerService(service));

        QVERIFY(Workspace::selectFile(m_tree.path("Fotos für Öl/Bild 1 é.jpg")));
        QTRY_COMPARE(m_fileManager.shown.size(), 1);
        QCOMPARE(m_fileManager.shown.first(),
                 urlBelowTree("/Fotos%20f%C3%BCr%20%C3%96l/Bild%201%20%C3%A9.jpg"));

        // Removed since it was listed, with its folder: the nearest folder left.
        QVERIFY(Workspace::selectFile(m_tree.path("Fotos für Öl/gone/Bild 2.jpg")));
        QTRY_COMPARE(m_fileManager.shown.size(), 2);
        QCOMPARE(m_fileManager.shown.last(), urlBelowTree("/Fotos%20f%C3%BCr%20%C3%96l"));
        QCOMPARE(m_opened, QList<QUrl>{});
    }

    void withoutFileManagerOpensTheFolderAtOnce()
    {
        QVERIFY(Workspace::selectFile(m_tree.path("Fotos für Öl/Bild 1 é.jpg")));
        QCOMPARE(m_opened, QList<QUrl>{QUrl::fromLocalFile(m_tree.path("Fotos für Öl"))});

        QVERIFY(Workspace::selectFile(m_tree.path("Fotos für Öl/gone/Bild 2.jpg")));
        QCOMPARE(m_opened.last(), QUrl::fromLocalFile(m_tree.root()));
    }
};

QTEST_MAIN(WorkspaceTest)
#include "test_workspace.moc"
