#include "ShellTestSupport.h"
#include "cleaner/core/Platform.h"
#include "cleaner/shell/KestalGraphView.h"
#include "cleaner/shell/KestalStatusItem.h"
#include "cleaner/shell/KestalStatusViewController.h"

#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QProcess>
#include <QSystemTrayIcon>
#include <memory>

namespace {

// A display with a real tray host on it, for the whole run: Xvfb, and
// trayer holding the tray. Both end with the test.
struct TrayDisplay {
    QProcess xvfb;
    QProcess tray;
    QString skipReason;

    bool start()
    {
        xvfb.start("Xvfb", {"-displayfd", "1", "-screen", "0", "1280x800x24", "-nolisten", "tcp"});
        if (!xvfb.waitForStarted() || !xvfb.waitForReadyRead(20000)) {
            skipReason = "Xvfb is missing (scripts/bootstrap installs it)";
            return false;
        }
        const QByteArray display = ":" + xvfb.readLine().trimmed();
        qputenv("DISPLAY", display);
        tray.start("trayer", {"--edge", "top", "--align", "right", "--widthtype", "pixel",
                              "--width", "120", "--height", "32", "--SetDockType", "true"});
        if (!tray.waitForStarted()) {
            skipReason = "no tray host: trayer is missing (scripts/bootstrap installs it)";
            return false;
        }
        // The xembed tray, not a D-Bus one that a desktop session may offer.
        qunsetenv("DBUS_SESSION_BUS_ADDRESS");
        qputenv("QT_QPA_PLATFORM", "xcb");
        return true;
    }

    ~TrayDisplay()
    {
        for (QProcess *p : {&tray, &xvfb}) {
            p->terminate();
            if (!p->waitForFinished(5000))
                p->kill();
            p->waitForFinished();
        }
    }
};

TrayDisplay *g_display = nullptr;

// A real pointer click through the X server, where the tray host sees it.
void clickAt(const QPoint &at)
{
    QProcess::execute(
        "xdotool", {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
}

QMainWindow *theMainWindow()
{
    for (QWidget *w : QApplication::topLevelWidgets()) {
        if (w->objectName() == QLatin1String("mainWindow"))
            return qobject_cast<QMainWindow *>(w);
    }
    return nullptr;
}

} // namespace

// The tray item and its status panel in a real tray host under Xvfb.
class StatusItemTest : public QObject {
    Q_OBJECT

    std::unique_ptr<ShellEnvironment> m_env;
    std::unique_ptr<AppDelegate> m_delegate;

    KestalStatusItem *item() const { return m_delegate->statusItem(); }
    KestalStatusViewController *panel() const { return item()->popover(); }

private slots:
    void initTestCase()
    {
        if (!g_display->skipReason.isEmpty())
            QSKIP(qPrintable(g_display->skipReason));
        isolateUserSettings();
        m_env = std::make_unique<ShellEnvironment>();
        // The panel shows this machine, not the test's root.
        qunsetenv("BRENLOW_ROOT");
        Platform::reload();
        QTRY_VERIFY_WITH_TIMEOUT(QSystemTrayIcon::isSystemTrayAvailable(), 20000);
        UserDefaults::setValue("HasLaunchedOnce", true);
        m_delegate = std::make_unique<AppDelegate>();
        m_delegate->applicationDidFinishLaunching();
        QVERIFY(item());
        QCOMPARE(m_delegate->popover.data(), panel());
        // Placed by the host: in its panel at the top right of the screen.
        QTRY_VERIFY_WITH_TIMEOUT(item()->trayIcon()->geometry().center().x() > 1000, 20000);
    }

    void cleanupTestCase()
    {
        m_delegate.reset();
        m_env.reset();
    }

    void clickOpensBesideAndClickElsewhereCloses()
    {
        const QRect icon = item()->trayIcon()->geometry();
        clickAt(icon.center());
        QTRY_VERIFY_WITH_TIMEOUT(panel()->isVisible(), 10000);
        // Beside the icon: right under the tray at the top of the screen.
        QVERIFY(panel()->geometry().top() >= icon.bottom());
        QVERIFY(panel()->geometry().top() - icon.bottom() < 40);
        QVERIFY(panel()->geometry().left() <= icon.center().x() &&
                panel()->geometry().right() >= icon.center().x() - 1);

        // A click inside the panel leaves it open.
        const QPoint label = panel()->findChild<QLabel *>()->geometry().center();
        clickAt(panel()->mapToGlobal(label));
        QTest::qWait(0);
        QVERIFY(panel()->isVisible());

        clickAt(QPoint(200, 600));
        QTRY_VERIFY_WITH_TIMEOUT(!panel()->isVisible(), 10000);

        // The icon toggles: open, then closed by a click on it.
        clickAt(icon.center());
        QTRY_VERIFY_WITH_TIMEOUT(panel()->isVisible(), 10000);
        clickAt(icon.center());
        QTRY_VERIFY_WITH_TIMEOUT(!panel()->isVisible(), 10000);
    }

    void panelShowsThisMachine()
    {
        m_delegate->showPopover();
        QTRY_VERIFY(panel()->isVisible());
        for (QTimer *t : panel()->timers())
            QVERIFY(t->isActive());

        QTRY_VERIFY(panel()->cpuView()->drawCount() > 0);
        QCOMPARE(panel()->cpuView()->title(), QString("CPU"));
        QCOMPARE(panel()->cpuView()->lines().value(0),
                 QString::number(QThread::idealThreadCount()) + " Cores");
        QVERIFY(panel()->cpuView()->lines().value(2).startsWith("Used: "));
        QCOMPARE(panel()->memoryView()->title(), QString("Memory"));
        QVERIFY(panel()->memoryView()->lines().value(0).endsWith(" GB"));
        QCOMPARE(panel()->diskView()->title(), QSysInfo::machineHostName());
        // The CPU view redraws on its timer while the panel is open.
        QSignalSpy tick(panel()->timers()[0], &QTimer::timeout);
        int drawn = panel()->cpuView()->drawCount();
        QObject scope; // the connection ends with this test
        connect(panel()->timers()[0], &QTimer::timeout, &scope,
                [&] { drawn = panel()->cpuView()->drawCount(); });
        QVERIFY(tick.wait(10000));
        QTRY_VERIFY(panel()->cpuView()->drawCount() > drawn);

        // This machine's battery, or the text for none; without one the
        // battery timer redraws nothing.
        KestalBatteryView *battery = panel()->batteryView();
        if (battery->batteryIsOpen == 0) {
            QCOMPARE(battery->title(), QString("No Battery Service Found"));
            const int before = battery->drawCount();
            panel()->startTimer("battery");
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
            QCOMPARE(battery->drawCount(), before);
        } else {
            QCOMPARE(battery->title(), QString("Battery"));
        }
        panel()->close();
        for (QTimer *t : panel()->timers())
            QVERIFY(!t->isActive());
    }

    void closingTheWindowLeavesTheItemAndOptimizeBringsItBack()
    {
        QVERIFY(!QApplication::quitOnLastWindowClosed());
        QPointer<QMainWindow> window = theMainWindow();
        QVERIFY(window);
        bool stillRunning = false;
        QTimer::singleShot(0, window, [&] {
            window->close();
            QTimer::singleShot(0, [&] {
                stillRunning = true;
                QApplication::exit(7);
            });
        });
        QCOMPARE(QApplication::exec(), 7);
        QVERIFY(stillRunning && item()->trayIcon()->isVisible());

        m_delegate->showPopover();
        QCOMPARE(panel()->optimizeButton()->text(), "Optimize " + QSysInfo::machineHostName());
        QCOMPARE(item()->showWindowItem()->text(), panel()->optimizeButton()->text());
        QTest::mouseClick(panel()->optimizeButton(), Qt::LeftButton);
        QTRY_VERIFY(window && window->isVisible());
        QVERIFY(!panel()->isVisible());
        QCOMPARE(theMainWindow(), window.data());
    }

    void quitFromTheTrayMenuEndsTheProgram()
    {
        QTimer::singleShot(0, item()->quitItem(), &QAction::trigger);
        QCOMPARE(QApplication::exec(), 0);
    }
};

int main(int argc, char *argv[])
{
    TrayDisplay display;
    g_display = &display;
    if (!display.start())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    StatusItemTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_status_item.moc"
