// The status panel's NTFS switch as a user meets it: the volumes it finds,
// its question, and the answer of the real service and helper (started
// without privilege), shown in its result dialogs.

#include "ShellTestSupport.h"
#include "clean/CleanTestSupport.h"
#include "cleaner/core/Volumes.h"
#include "cleaner/shell/KestalStatusViewController.h"

#include <QTemporaryDir>

class TestStatusNtfs : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }
    void cleanup()
    {
        Volumes::setMountedVolumesForTesting(std::nullopt);
        CleanTest::useHelper(QString());
    }

    void ntfsSwitch_data()
    {
        QTest::addColumn<QString>("type");    // of the one mounted volume
        QTest::addColumn<QString>("helper");  // "" for the built one
        QTest::addColumn<QString>("confirm"); // the button pressed on the question, "" for none
        QTest::addColumn<QString>("title");   // of the last dialog
        QTest::addColumn<QString>("text");    // in its text

        const auto row = [](const char *name, const char *type, const char *helper,
                            const char *confirm, const char *title, const char *text) {
            QTest::newRow(name) << QString(type) << QString(helper) << QString(confirm)
                                << QString(title) << QString(text);
        };
        row("no NTFS volume", "ext4", "", "", "Enable NTFS", "No NTFS volume is mounted.");
        row("cancelled", "ntfs3", "", "Cancel", "", "");
        // The helper acts only on volumes mounted now: the one described is not.
        row("refused by the helper", "ntfs3", "", "Confirm", "Activate Fail!",
            "Stick: it is not mounted any more");
        row("no helper to start", "ntfs", "/nonexistent/brenlow-helper", "Confirm",
            "Activate Fail!", "Activating the system's ntfs function failed");
    }
    void ntfsSwitch()
    {
        QFETCH(QString, type);
        QFETCH(QString, helper);
        QFETCH(QString, confirm);
        QFETCH(QString, title);
        QFETCH(QString, text);
        ShellEnvironment env;
        CleanTest::useHelper(QString(), helper.isEmpty() ? CleanTest::helperProgram : helper);
        QTemporaryDir folder;
        const QString stick = folder.filePath("Stick");
        QVERIFY(QDir().mkpath(stick));
        Volumes::setMountedVolumesForTesting(
            QList<MountedVolume>{{stick, type, true, false, true, "/dev/sdz1", "8:241", "/"}});

        KestalStatusViewController panel;
        panel.show();
        // The question comes first, the result after the helper answered.
        auto box = answerNextMessageBox(confirm.isEmpty() ? "OK" : confirm);
        panel.ntfsButton()->click();
        QVERIFY(!panel.isVisible());
        QVERIFY(box->shown);
        if (!confirm.isEmpty()) {
            QCOMPARE(box->title, getLocalizedString("Are your sure to activate NTFS?"));
            if (title.isEmpty())
                return;
            box = answerNextMessageBox("OK");
        }
        QTRY_VERIFY_WITH_TIMEOUT(box->shown, 20000);
        QCOMPARE(box->title, getLocalizedString(title));
        const QString expected = getLocalizedString(text.section(": ", -1));
        QVERIFY2(box->informative.contains(expected), qPrintable(box->informative));
        if (text.contains(": "))
            QVERIFY(box->informative.contains(text.section(": ", 0, 0) + ": " + expected));
        QCOMPARE(panel.diskInfo.size(), type == "ext4" ? 0 : 1);
    }
};

QTEST_MAIN(TestStatusNtfs)
#include "test_status_ntfs.moc"
