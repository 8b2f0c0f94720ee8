#include "ShellTestSupport.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/shell/FabricController.h"

#include <QJsonDocument>

namespace {

QList<QVariantMap> loggedEvents()
{
    FabricController::drain();
    QFile file(FabricController::logPath());
    QList<QVariantMap> events;
    if (!file.open(QIODevice::ReadOnly))
        return events;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (!line.isEmpty())
            events.append(QJsonDocument::fromJson(line).toVariant().toMap());
    }
    return events;
}

} // namespace

class FabricControllerTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        QFile::remove(FabricController::logPath());
    }

    void nothingIsRecordedUnlessSwitchedOn()
    {
        ShellEnvironment env;
        QVERIFY(!FabricController::isLocalLogEnabled());
        FabricController::fabric(FabricEvent::scanButton, "System Junk Scan Button");
        QVERIFY(loggedEvents().isEmpty());
        QVERIFY(!QFile::exists(FabricController::logPath()));
    }

    void eventsGoToTheLocalLogInOrder()
    {
        ShellEnvironment env;
        FabricController::setLocalLogEnabled(true);
        const Module &junk = AppModuleService::appModules().at(1);
        FabricController::fabric(FabricEvent::scanButton, FabricEvent::getScanButtonName(junk));
        FabricController::fabric(FabricEvent::reviewButton, FabricEvent::getReviewButtonName(junk));
        FabricController::fabric(FabricEvent::shareButton,
                                 FabricEvent::getShareButton(junk, false));
        FabricController::logEvent("First Launch", {{"model", FabricController::model()}});

        const QList<QVariantMap> events = loggedEvents();
        QCOMPARE(events.size(), 4);
        QCOMPARE(events[0].value("event").toString(), QString("ScanButtonEvent"));
        QCOMPARE(events[0].value("title").toString(), QString("System Junk Scan Button"));
        QCOMPARE(events[0].value("version").toString(), QString("Get no version information"));
        QVERIFY(!events[0].value("model").toString().isEmpty());
        QCOMPARE(events[1].value("event").toString(), QString("RE-ViewButtonEvent"));
        QCOMPARE(events[2].value("title").toString(), QString("System Junk Twitter Button"));
        QCOMPARE(events[3].value("event").toString(), QString("First Launch"));
        QVERIFY(!events[3].contains("title"));
        FabricController::setLocalLogEnabled(false);
    }

    void versionComesFromTheEdition()
    {
        ShellEnvironment env;
        env.writeResource(
            "Info", QVariantMap{{"File Name", "Brenlow"}, {"CFBundleShortVersionString", "2.4.1"}});
        QCOMPARE(FabricController::version(), QString("2.4.1"));
    }
};

QTEST_MAIN(FabricControllerTest)
#include "test_fabric_controller.moc"
