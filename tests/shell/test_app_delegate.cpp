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
        QCOMPARE(env.opened, QList<QUrl>{QUrl("https://example.org/ja/download/")});
        QVERIFY(UserDefaults::value("HasLaunchedOnce").toBool());

        QMainWindow *window = delegate.mainWindow();
        QVERIFY(window && window->isVisible());
        QVERIFY(delegate.languageItem("de")->isChecked());
        QVERIFY(!delegate.languageItem("ja")->isChecked());

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
        for (int launch = 0; launch < 2; ++launch) {
            AppDelegate delegate;
            delegate.applicationDidFinishLaunching();
        }
        QCOMPARE(env.opened, QList<QUrl>{QUrl("https://example.org/download/")});
        QCOMPARE(SwitchLanguageService::userLanguage(), QString("en"));
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
        QCOMPARE(junkRow->text(), QString("System Junk"));

        QSignalSpy posted(LanguageNotifier::defaultCenter(), &LanguageNotifier::changeLanguage);
        QAction *japanese = delegate.languageItem("ja");
        japanese->trigger();
        QCOMPARE(posted.size(), 1);
        QCOMPARE(SwitchLanguageService::userLanguage(), QString("ja"));
        QVERIFY(japanese->isChecked());

        const QString title = getLocalizedString("System Junk");
        QVERIFY(title != QLatin1String("System Junk"));
        QCOMPARE(overview->titleLabel()->text(), title);
        QCOMPARE(junkRow->text(), title);
        QCOMPARE(root->leftTable()->item(7)->text(), getLocalizedString("Tools"));
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
        FabricController::fabric(FabricEvent::scanButton, "System Junk Scan Button");
        QVERIFY(loggedEvents().isEmpty());
        QVERIFY(!QFile::exists(FabricController::logPath()));

        item->trigger();
        QVERIFY(FabricController::isLocalLogEnabled());
        const Module &junk = AppModuleService::appModules().at(1);
        FabricController::fabric(FabricEvent::scanButton, FabricEvent::getScanButtonName(junk));
        FabricController::logEvent("First Launch", {{"model", FabricController::model()}});
        const QList<QVariantMap> events = loggedEvents();
        QCOMPARE(events.size(), 2);
        QCOMPARE(events[0].value("event").toString(), QString("ScanButtonEvent"));
        QCOMPARE(events[0].value("title").toString(), QString("System Junk Scan Button"));
        QVERIFY(!events[0].value("model").toString().isEmpty());
        QCOMPARE(events[1].value("event").toString(), QString("First Launch"));
        QVERIFY(!events[1].contains("title"));

        item->trigger();
        QVERIFY(!FabricController::isLocalLogEnabled());
    }

    void clickElsewhereClosesThePopover()
    {
        ShellEnvironment env;
        AppDelegate delegate;
        launchAgain(delegate);
        QVERIFY(delegate.eventMonitor()->isRunning());
        QMainWindow *window = delegate.mainWindow();
        QVERIFY(QTest::qWaitForWindowExposed(window));

        QWidget panel(nullptr, Qt::Tool);
        panel.resize(200, 120);
        panel.show();
        delegate.popover = &panel;
        QVERIFY(QTest::qWaitForWindowExposed(&panel));
        QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {}, QPoint(400, 300));
        QVERIFY(!panel.isVisible());
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
