#include "status/StatusTestSupport.h"
#include "support/CliProcess.h"
#include "support/TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStorageInfo>
#include <QtTest>

namespace {

CliProcess::Result cli(const QByteArrayList &args,
                       const QProcessEnvironment &env = QProcessEnvironment::systemEnvironment())
{
    return CliProcess::run(CliProcess::program(), args, env);
}

} // namespace

// brenlow-cli status as a user runs it, on a machine described by kernel
// files under a root (the readings of this machine are the status tests').
class CliStatusTest : public QObject {
    Q_OBJECT

private slots:
    void describedMachine_data()
    {
        QTest::addColumn<bool>("withBattery");
        QTest::newRow("notebook") << true;
        QTest::newRow("no battery") << false;
    }
    void describedMachine()
    {
        QFETCH(bool, withBattery);
        TestEnvironment env;
        const QString root = env.root();
        TreeBuilder::write(root + "/proc/stat", "cpu  300 0 100 600 0 0 0 0 0 0\n");
        TreeBuilder::write(root + "/sys/devices/system/cpu/online", "0-7\n");
        TreeBuilder::write(root + "/proc/meminfo", "MemTotal: 16777216 kB\nMemFree: 4194304 kB\n"
                                                   "Active(anon): 2097152 kB\n");
        TreeBuilder::write(root + "/proc/self/mountinfo", "22 1 8:1 / / rw - ext4 /dev/sda1 rw\n");
        TreeBuilder::write(root + "/proc/net/dev",
                           "h\nh\n  eth0: 5000 1 0 0 0 0 0 0 3000 1 0 0 0 0 0 0\n");
        if (withBattery) {
            const QString bat = root + "/sys/class/power_supply/BAT0/";
            TreeBuilder::write(bat + "type", "Battery\n");
            TreeBuilder::write(bat + "status", "Discharging\n");
            TreeBuilder::write(bat + "charge_now", "2000000\n");
            TreeBuilder::write(bat + "charge_full", "4000000\n");
            TreeBuilder::write(bat + "current_now", "1000000\n");
            TreeBuilder::write(bat + "cycle_count", "12\n");
        }
        const QProcessEnvironment e = CliProcess::environmentOf(env);

        const CliProcess::Result text = cli({"status"}, e);
        QCOMPARE(text.exitCode, 0);
        const QString out = QString::fromUtf8(text.out);
        QVERIFY2(out.contains("8 Cores") && out.contains("Used 40.0%") &&
                     out.contains("Available 60.0%") && out.contains("Free 4.00 GB") &&
                     out.contains("Used 2.00 GB"),
                 qPrintable(out));
        QCOMPARE(out.contains("No Battery Service Found"), !withBattery);
        if (withBattery)
            QVERIFY2(out.contains("50%  2:00  Charge Cycles 12  2000 / 4000 mAh"), qPrintable(out));
        // The counters did not move between the two readings: no traffic.
        QVERIFY2(out.contains("Upload 0 bytes/s  Download 0 bytes/s"), qPrintable(out));

        const QJsonObject o = QJsonDocument::fromJson(cli({"status", "--json"}, e).out).object();
        QCOMPARE(o["battery"].isNull(), !withBattery);
        if (withBattery)
            QCOMPARE(o["battery"]["timeRemaining"].toString(), QString("2:00"));
        QCOMPARE(o["memory"]["total"].toDouble(), 16.0);
        QCOMPARE(o["cpu"]["cores"].toInt(), 8);
        QCOMPARE(o["cpu"]["used"].toDouble(), 40.0);
        QCOMPARE(o["disk"]["capacity"].toInteger(), QStorageInfo(root).bytesTotal());
    }

    void watchRepeats()
    {
        QProcess p;
        p.start(CliProcess::program(), {"status", "--watch", "1"});
        // Two reports, each with its own reading of the CPU since the last.
        QByteArray seen;
        QTRY_VERIFY_WITH_TIMEOUT((seen += p.readAllStandardOutput()).count("Network") >= 2, 20000);
        QCOMPARE(seen.count("Now "), 2);
        p.kill();
        p.waitForFinished();
    }
};

QTEST_GUILESS_MAIN(CliStatusTest)
#include "test_cli_status.moc"
