#include "ShellTestSupport.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "cleaner/shell/EventMonitor.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/LanguageNotifier.h"
#include "support/TreeBuilder.h"

#include <QAction>
#include <QDir>
#include <QJsonDocument>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>

namespace {

const QVariantMap settings{{"install_link", "https://example.org/download/"},
                           {"install_link_ja", "https://example.org/ja/download/"},
                           {"support_link", "https://example.org/support/"},
                           {"help_link", "https://example.org/help/"}};

int mainWindowCount()
{
    int count = 0;
    for (QWidget *w : QApplication::topLevelWidgets())
        count += w->objectName() == QLatin1String("mainWindow");
    return count;
}

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

// Launches as every launch after the first, which opens no page.
void launchAgain(AppDelegate &delegate)
{
    UserDefaults::setValue("HasLaunchedOnce", true);
    delegate.applicationDidFinishLaunching();
}

} // namespace

class AppDelegateTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { isolateUserSettings(); }

    // The first launch opens the installation page of the system's language,
    // before and apart from the interface language, which a stored choice
    // decides; the window then opens in that language.
    void firstLaunchThenLanguageThenWindow()
    {
        ShellEnvironment env;
        env.writeResource("BrenlowSetting", settings);
        Platform::setPreferredLanguagesForTesting({"ja-JP"});
        UserDefaults::setValue(SwitchLanguageService::LocalLanguageKey, "de");

        AppDelegate delegate;
        delegate.applicationDidFinishLaunching();
        QCOMPARE(AppDelegate::appDelegate, &delegate);
        QCOMPARE(env.opened, QList<QUrl>{QUrl("https://example.org/ja/download/")});
        QVERIFY(UserDefaults::value("HasLaunchedOnce").toBool());

        QMainWindow *window = delegate.mainWindow();
        QVERIFY(window && window->isVisible());
        QCOMPARE(window->objectName(), QString("mainWindow"));
        QVERIFY(delegate.languageItem("de")->isChecked());
        QVERIFY(!delegate.languageItem("ja")->isChecked());
        QCOMPARE(delegate.menus().at(1)->title(), getLocalizedString("Language"));
        QVERIFY(getLocalizedString("Language") != QLatin1String("Language"));

        // A link entry opens its page; an entry whose page the edition lacks is not offered.
        delegate.linkItem("support_link")->trigger();
        QCOMPARE(env.opened.last(), QUrl("https://example.org/support/"));
        QVERIFY(delegate.linkItem("help_link")->isVisible());
        QVERIFY(!delegate.linkItem("facebook_link")->isVisible());
    }

    void laterLaunchesOpenNoPage()
    {
        ShellEnvironment env;
        env.writeResource("BrenlowSetting", settings);
        Platform::setPreferredLanguagesForTesting({"it-IT"});
        {
            AppDelegate first;
            first.applicationDidFinishLaunching();
            QCOMPARE(env.opened, QList<QUrl>{QUrl("https://example.org/download/")});
            QCOMPARE(SwitchLanguageService::userLanguage(), QString("en"));
        }
        AppDelegate second;
        second.applicationDidFinishLaunching();
        QCOMPARE(env.opened.size(), 1);
    }

    void reopenBringsBackTheOneWindow()
    {
        ShellEnvironment env;
        AppDelegate::showMainWindow = false;
        AppDelegate delegate;
        launchAgain(delegate);
        QCOMPARE(mainWindowCount(), 0);
        QVERIFY(AppDelegate::showMainWindow);

        QVERIFY(delegate.applicationShouldHandleReopen(false));
        QCOMPARE(mainWindowCount(), 1);
        QPointer<QMainWindow> window = delegate.mainWindow();
        QVERIFY(window->isVisible());

        window->close();
        QVERIFY(!window->isVisible());
        delegate.applicationShouldHandleReopen(false);
        QVERIFY(window);
        QVERIFY(window->isVisible());
        QCOMPARE(mainWindowCount(), 1);
    }

    void languageSwitchChangesTheTextsOnScreen()
    {
        ShellEnvironment env;
        Platform::setPreferredLanguagesForTesting({"en-US"});
        AppDelegate delegate;
        launchAgain(delegate);
        KestalRootViewController *root = KestalRootViewController::rootOf(delegate.mainWindow());
        root->leftTable()->selectModule(1);
        auto *overview = root->rightSplit()->topSwitch()->overViewAndScan(1);
        auto *bar = root->rightSplit()->bottomSwitch()->barOfModule(1);
        auto *junkRow = root->leftTable()->item(root->leftTable()->rowOfModule(1));
        // The shipped table: the two headings stand at left-list rows 1 and 7.
        QCOMPARE(root->leftTable()->item(1)->text(), QString("Cleanup"));
        QCOMPARE(root->leftTable()->item(7)->text(), QString("Tools"));
        QVERIFY(root->leftTable()->isHeaderRow(1) && root->leftTable()->isHeaderRow(7));
        QCOMPARE(overview->titleLabel()->text(), QString("System Junk"));
        QCOMPARE(bar->overViewScanBtn()->text(), QString("Scan"));
        QCOMPARE(junkRow->text(), QString("System Junk"));

        QSignalSpy posted(LanguageNotifier::defaultCenter(), &LanguageNotifier::changeLanguage);
        QAction *japanese = delegate.languageItem("ja");
        QCOMPARE(japanese->text(), QString("日本語"));
        japanese->trigger();
        QCOMPARE(posted.size(), 1);
        QCOMPARE(posted.first().first().value<QObject *>(), &delegate);
        QCOMPARE(SwitchLanguageService::userLanguage(), QString("ja"));
        QVERIFY(japanese->isChecked());
        QVERIFY(!delegate.languageItem("en")->isChecked());

        const QString title = getLocalizedString("System Junk");
        QVERIFY(title != QLatin1String("System Junk"));
        QCOMPARE(overview->titleLabel()->text(), title);
        QCOMPARE(junkRow->text(), title);
        QCOMPARE(root->leftTable()->item(7)->text(), getLocalizedString("Tools"));
        QCOMPARE(bar->overViewScanBtn()->text(), getLocalizedString("Scan"));
        QVERIFY(bar->overViewScanBtn()->text() != QLatin1String("Scan"));
        QCOMPARE(delegate.menus().at(2)->title(), getLocalizedString("Help"));
    }

    // The menu's switch decides whether events go to the local log, where
    // they are written in order.
    void eventLogSwitchInTheMenu()
    {
        ShellEnvironment env;
        QFile::remove(FabricController::logPath());
        AppDelegate delegate;
        launchAgain(delegate);
        QAction *item = nullptr;
        for (QAction *action : delegate.menus().first()->actions()) {
            if (action->isCheckable())
                item = action;
        }
        QVERIFY(item && !item->isChecked());
        QVERIFY(!FabricController::isLocalLogEnabled());
        FabricController::fabric(FabricEvent::scanButton, "System Junk Scan Button");
        QVERIFY(loggedEvents().isEmpty());
        QVERIFY(!QFile::exists(FabricController::logPath()));

        item->trigger();
        QVERIFY(FabricController::isLocalLogEnabled());
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

        item->trigger();
        QVERIFY(!FabricController::isLocalLogEnabled());
    }

    void versionComesFromTheEdition()
    {
        ShellEnvironment env;
        env.writeResource(
            "Info", QVariantMap{{"File Name", "Brenlow"}, {"CFBundleShortVersionString", "2.4.1"}});
        QCOMPARE(FabricController::version(), QString("2.4.1"));
    }

    void clickElsewhereClosesThePopover()
    {
        ShellEnvironment env;
        AppDelegate delegate;
        launchAgain(delegate);
        QVERIFY(delegate.eventMonitor()->isRunning());
        QMainWindow *window = delegate.mainWindow();
        QVERIFY(QTest::qWaitForWindowExposed(window));

        // With no panel shown a click does nothing.
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, QPoint(400, 300));

        QWidget panel(nullptr, Qt::Tool);
        panel.resize(200, 120);
        panel.show();
        delegate.popover = &panel;
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, QPoint(400, 300));
        QVERIFY(!panel.isVisible());
    }

    void eventMonitorSeesEachClickOnce()
    {
        QWidget target;
        target.resize(100, 100);
        target.show();
        QVERIFY(QTest::qWaitForWindowExposed(&target));
        int presses = 0;
        EventMonitor monitor({QEvent::MouseButtonPress}, [&](QEvent *) { ++presses; });
        monitor.start();
        QTest::mouseClick(target.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
        QCOMPARE(presses, 1);
        monitor.stop();
        QTest::mouseClick(target.windowHandle(), Qt::LeftButton, {}, QPoint(10, 10));
        QCOMPARE(presses, 1);
    }

    // The fonts the screens are drawn with are copied for the user on the
    // macOS profile; a missing source is passed over.
    void fontCopyOnMacOSOnly()
    {
        ShellEnvironment env("macos");
        TreeBuilder(env.root()).file("System/Library/Fonts/Helvetica.ttc", 4);
        const QString userFonts = Platform::homeDirectory() + "/Library/Fonts/";
        QVERIFY(QDir().mkpath(userFonts));
        AppDelegate delegate;
        launchAgain(delegate);
        QVERIFY(QFile::exists(userFonts + "Helvetica.ttc"));
        QVERIFY(!QFile::exists(userFonts + "HelveticaNeue.ttc"));
    }
};

QTEST_MAIN(AppDelegateTest)
#include "test_app_delegate.moc"
