#include "ShippedWindow.h"
#include "cleaner/core/ByteCount.h"
#include "cleaner/shell/KestalAutoCleanupTopOverViewController.h"
#include "status/StatusTestSupport.h"

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

    std::unique_ptr<ShippedWindow> m_world;
    KestalAutoCleanupTopOverViewController *m_dashboard = nullptr;

    QString proc(const QString &name) const { return m_world->env.root() + "/proc/" + name; }

private slots:
    void initTestCase() { isolateUserSettings(); }

    void init()
    {
        m_world = std::make_unique<ShippedWindow>();
        writeText(proc("stat"), "cpu  250 0 250 500 0 0 0 0 0 0\n");
        writeText(proc("meminfo"), "MemTotal: 8388608 kB\nMemFree: 1048576 kB\n");
        writeText(proc("net/dev"), netDev(50000, 25000));
        m_world->open();
        const QList<KestalAutoCleanupTopOverViewController *> all =
            m_world->window->findChildren<KestalAutoCleanupTopOverViewController *>();
        QCOMPARE(all.size(), 1); // on Auto Cleanup's screen only
        m_dashboard = all.first();
    }

    void cleanup() { m_world.reset(); }

    void showsTheMachineAndTheNetworkRate()
    {
        m_world->show(0);
        QTRY_VERIFY(m_dashboard->isVisible());
        QVERIFY(m_dashboard->timer()->isActive());
        const QStringList texts = m_dashboard->plateTexts();
        QCOMPARE(texts.value(0), QString("CPU Used 50.0%"));
        QCOMPARE(texts.value(1), QString("Memory Free 1.00 GB"));
        QCOMPARE(texts.value(3), QString("Battery No Battery Service Found"));
        // The first reading is everything since boot over the 5 seconds.
        QCOMPARE(m_dashboard->rate().totalReceive, 10000);
        QCOMPARE(m_dashboard->rate().totalSend, 5000);

        // 20 kB more in and 5 kB more out over the period.
        writeText(proc("net/dev"), netDev(70000, 30000));
        m_dashboard->drawPlate();
        QCOMPARE(m_dashboard->plateTexts().value(4),
                 QString("Network ↑ %1/s  ↓ %2/s")
                     .arg(ByteCount::string(1000), ByteCount::string(4000)));
    }

    void timerRunsOnlyWhileShown()
    {
        m_world->show(0);
        QTRY_VERIFY(m_dashboard->timer()->isActive());
        m_world->show(m_world->root->leftTable()->moduleOfRow(2));
        QTRY_VERIFY(!m_dashboard->isVisible());
        QVERIFY(!m_dashboard->timer()->isActive());
        m_world->show(0);
        QTRY_VERIFY(m_dashboard->timer()->isActive());
    }
};

QTEST_MAIN(AutoCleanupDashboardTest)
#include "test_autocleanup_dashboard.moc"
