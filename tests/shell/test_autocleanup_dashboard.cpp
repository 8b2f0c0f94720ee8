#include "ShippedWindow.h"
#include "cleaner/core/ByteCount.h"
#include "cleaner/shell/KestalAutoCleanupTopOverViewController.h"
#include "support/TreeBuilder.h"

namespace {

QByteArray netDev(qint64 in, qint64 out)
{
    return "Inter-|\n face |\n    lo: 99999 1 0 0 0 0 0 0 99999 1 0 0 0 0 0 0\n"
           "  eth0: " +
           QByteArray::number(in) + " 1 0 0 0 0 0 0 " + QByteArray::number(out) +
           " 1 0 0 0 0 0 0\n";
}

} // namespace

// The dashboard on Auto Cleanup's screen, in the main window, over a
// machine that the test describes with kernel files.
class AutoCleanupDashboardTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    // The plates show the machine and the network rate; the timer runs only
    // while the screen is shown.
    void showsTheMachineWhileShown()
    {
        ShippedWindow world;
        const QString proc = world.env.root() + "/proc/";
        TreeBuilder::write(proc + "stat", "cpu  250 0 250 500 0 0 0 0 0 0\n");
        TreeBuilder::write(proc + "meminfo", "MemTotal: 8388608 kB\nMemFree: 1048576 kB\n");
        TreeBuilder::write(proc + "net/dev", netDev(50000, 25000));
        world.open();
        const QList<KestalAutoCleanupTopOverViewController *> all =
            world.window->findChildren<KestalAutoCleanupTopOverViewController *>();
        QCOMPARE(all.size(), 1); // on Auto Cleanup's screen only
        KestalAutoCleanupTopOverViewController *dashboard = all.first();

        world.show(0);
        QTRY_VERIFY(dashboard->isVisible());
        QVERIFY(dashboard->timer()->isActive());
        const QStringList texts = dashboard->plateTexts();
        QCOMPARE(texts.value(0), QString("CPU Used 50.0%"));
        QCOMPARE(texts.value(1), QString("Memory Free 1.00 GB"));
        QCOMPARE(texts.value(3), QString("Battery No Battery Service Found"));
        // The first reading is everything since boot over the 5 seconds.
        QCOMPARE(dashboard->rate().totalReceive, 10000);
        QCOMPARE(dashboard->rate().totalSend, 5000);

        // 20 kB more in and 5 kB more out over the period.
        TreeBuilder::write(proc + "net/dev", netDev(70000, 30000));
        dashboard->drawPlate();
        QCOMPARE(dashboard->plateTexts().value(4),
                 QString("Network ↑ %1/s  ↓ %2/s")
                     .arg(ByteCount::string(1000), ByteCount::string(4000)));

        world.show(world.root->leftTable()->moduleOfRow(2));
        QTRY_VERIFY(!dashboard->isVisible());
        QVERIFY(!dashboard->timer()->isActive());
        world.show(0);
        QTRY_VERIFY(dashboard->timer()->isActive());
    }
};

QTEST_MAIN(AutoCleanupDashboardTest)
#include "test_autocleanup_dashboard.moc"
