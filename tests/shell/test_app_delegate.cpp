#include "ShellTestSupport.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Platform.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/KestalFirstLoginViewController.h"
#include "cleaner/shell/KestalRightBottomViewController.h"
#include "cleaner/shell/KestalRightSplitController.h"
#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/LanguageNotifier.h"
#include "support/TreeBuilder.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLabel>
#include <QMainWindow>
#include <QMenu>
#include <QWindow>

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
        // The page opens only once the window has appeared.
        bool windowWasOnScreen = false;
        Workspace::setOpenerForTesting([&](const QUrl &url) {
            QWindow *handle =
                delegate.mainWindow() ? delegate.mainWindow()->windowHandle() : nullptr;
            windowWasOnScreen = handle && handle->isExposed();
            env.opened.append(url);
            return true;
        });
        delegate.applicationDidFinishLaunching();
        QVERIFY(UserDefaults::value("HasLaunchedOnce").toBool());
        QCOMPARE(env.opened, QList<QUrl>{});
        QTRY_COMPARE(env.opened, QList<QUrl>{QUrl("https://example.org/ja/download/")});
        QVERIFY(windowWasOnScreen);

        QMainWindow *window = delegate.mainWindow();
        QVERIFY(window && window->isVisible());
        QVERIFY(delegate.languageItem("de")->isChecked());
        QVERIFY(!delegate.languageItem("ja")->isChecked());
    }

    void laterLaunchesOpenNoPage()
    {
        ShellEnvironment env;
        env.writeResource("BrenlowSetting", settings);
        Platform::setPreferredLanguagesForTesting({"it-IT"});
        for (int launch = 0; launch < 2; ++launch) {
            AppDelegate delegate;
            delegate.applicationDidFinishLaunching();
            QVERIFY(QTest::qWaitForWindowExposed(delegate.mainWindow()));
            QTRY_COMPARE(env.opened.size(), 1);
        }
        QCOMPARE(env.opened, QList<QUrl>{QUrl("https://example.org/download/")});
        QCOMPARE(SwitchLanguageService::userLanguage(), QString("en"));
    }

    // The shipped Linux settings, through the real opener: the desktop's
    // opener here is a stand-in xdg-open that writes down what it is given.
    void linksOpenTheShippedLocalPages()
    {
        ShellEnvironment env;
        Workspace::setOpenerForTesting({});
        QTemporaryDir bin;
        QFile script(bin.filePath("xdg-open"));
        QVERIFY(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\nprintf '%s\\n' \"$1\" >> \"$0.record\"\n");
        script.close();
        script.setPermissions(script.permissions() | QFileDevice::ExeOwner);
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", QFile::encodeName(bin.path()) + ':' + path);
        const auto opened = [&] {
            QFile file(bin.filePath("xdg-open.record"));
            QList<QUrl> urls;
            if (file.open(QIODevice::ReadOnly)) {
                for (const QByteArray &line : file.readAll().split('\n'))
                    if (!line.isEmpty())
                        urls.append(QUrl::fromEncoded(line));
            }
            return urls;
        };
        Platform::setPreferredLanguagesForTesting({"fr-CA"});
        UserDefaults::setValue(SwitchLanguageService::LocalLanguageKey, "de");

        AppDelegate delegate;
        delegate.applicationDidFinishLaunching();
        // The welcome page of the system's language, a file that is there.
        QTRY_COMPARE(opened().size(), 1);
        const QString help = Platform::resourcesPath() + "/help/";
        QCOMPARE(opened().first(), QUrl::fromLocalFile(help + "fr/welcome.html"));
        // The entries open the pages of the interface language.
        const QList<std::pair<const char *, const char *>> pages = {
            {"help_link", "de/guide.html"},
            {"home_link", "de/index.html"},
            {"support_link", "de/support.html"}};
        for (const auto &[key, page] : pages) {
            QVERIFY2(delegate.linkItem(key)->isVisible(), key);
            delegate.linkItem(key)->trigger();
            QTRY_COMPARE(opened().last(), QUrl::fromLocalFile(help + page));
        }
        // Keys without an address have no entry, nor the newsletter its window.
        for (const char *key : {"feedback_link", "product_link", "facebook_link"})
            QVERIFY2(!delegate.linkItem(key)->isVisible(), key);
        const QWidgetList windows = QApplication::topLevelWidgets();
        QVERIFY(std::none_of(windows.begin(), windows.end(), [](QWidget *w) {
            return w->isVisible() && qobject_cast<KestalFirstLoginViewController *>(w);
        }));
        qputenv("PATH", path);
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
        QCOMPARE(delegate.menus().last()->title(), getLocalizedString("Help"));
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
