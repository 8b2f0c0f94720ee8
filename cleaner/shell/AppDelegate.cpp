#include "cleaner/shell/AppDelegate.h"

#include "cleaner/applications/ApplicationPlaces.h"
#include "cleaner/applications/KestalFolderEventMonitor.h"
#include "cleaner/applications/KestalUninstallService.h"
#include "cleaner/clean/KestalNotificationService.h"
#include "cleaner/core/HelpPages.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/SettingInfo.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/core/UserDefaults.h"
#include "cleaner/finders/FinderScans.h"
#include "cleaner/privacy/PrivacyService.h"
#include "cleaner/shell/DeconpressViewController.h"
#include "cleaner/shell/EventMonitor.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalDuplicateConfigurationWindowController.h"
#include "cleaner/shell/KestalFirstLoginViewController.h"
#include "cleaner/shell/KestalRootViewController.h"
#include "cleaner/shell/KestalSimilarConfigurationWindowController.h"
#include "cleaner/shell/KestalStatusItem.h"
#include "cleaner/shell/KestalStatusViewController.h"
#include "cleaner/shell/KestalTrashOfferDialog.h"
#include "cleaner/shell/LanguageNotifier.h"
#include "cleaner/shell/UIUtil.h"
#include "cleaner/shell/Workspace.h"

#include <QActionGroup>
#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTextStream>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace {

const QString hasLaunchedOnceKey = QStringLiteral("HasLaunchedOnce");

QString linkTitle(const QString &key)
{
    if (key == QLatin1String("help_link"))
        return getLocalizedString(QStringLiteral("Brenlow Help"));
    if (key == QLatin1String("support_link"))
        return getLocalizedString(QStringLiteral("Support"));
    if (key == QLatin1String("feedback_link"))
        return getLocalizedString(QStringLiteral("Send Feedback"));
    if (key == QLatin1String("home_link"))
        return getLocalizedString(QStringLiteral("Brenlow Website"));
    if (key == QLatin1String("product_link"))
        return getLocalizedString(QStringLiteral("More Products"));
    return getLocalizedString(QStringLiteral("Brenlow on Facebook"));
}

QString linkIconName(const QString &key)
{
    if (key == QLatin1String("help_link"))
        return QStringLiteral("help-contents");
    if (key == QLatin1String("feedback_link"))
        return QStringLiteral("mail-send");
    return QStringLiteral("internet-web-browser");
}

} // namespace

AppDelegate *AppDelegate::appDelegate = nullptr;
bool AppDelegate::showMainWindow = true;
const QStringList AppDelegate::linkKeys = {
    QStringLiteral("help_link"), QStringLiteral("support_link"), QStringLiteral("feedback_link"),
    QStringLiteral("home_link"), QStringLiteral("product_link"), QStringLiteral("facebook_link")};

AppDelegate::AppDelegate()
{
    // The modules whose scan is their own reach the scan driver from here.
    FinderScans::registerAll();
    PrivacyService::registerWithScanDriver();
    KestalUninstallService::registerWithScanDriver();
    // The Trash watch starts with the program and outlives the window.
    KestalNotificationService::main();
    KestalTrashOfferDialog::install();
    m_trashMonitor =
        std::make_unique<KestalFolderEventMonitor>(ApplicationPlaces::trashItemsFolder());
    m_dockMenu = std::make_unique<QMenu>();
    m_dockMenu->setTitle(QStringLiteral("MyMenu"));
    buildMenus();
    connect(LanguageNotifier::defaultCenter(), &LanguageNotifier::changeLanguage, this,
            &AppDelegate::changeLanguage);
}

AppDelegate::~AppDelegate()
{
    if (appDelegate == this)
        appDelegate = nullptr;
    delete m_mainWindow;
}

void AppDelegate::applicationDidFinishLaunching()
{
    // Crash reports are not collected: nothing leaves the machine.
    checkFirstTimeLaunch();
    appDelegate = this;
    if (!m_statusItem && KestalStatusItem::isAvailable()) {
        m_statusItem = std::make_unique<KestalStatusItem>();
        popover = m_statusItem->popover();
        // The tray item brings the window back, so closing it no longer ends the program.
        QApplication::setQuitOnLastWindowClosed(false);
    }
    m_eventMonitor = std::make_unique<EventMonitor>(
        QList<QEvent::Type>{QEvent::MouseButtonPress}, [this](QEvent *event) {
            if (!popover || !popover->isVisible())
                return;
            const QPoint at = static_cast<QMouseEvent *>(event)->globalPosition().toPoint();
            if (!popover->frameGeometry().contains(at))
                popover->close();
        });
    m_eventMonitor->start();
    changeLanguage();
    if (showMainWindow)
        showNewMainWindow();
    else
        showMainWindow = true;
    copySystemFonts();
}

void AppDelegate::openFiles(const QStringList &paths)
{
    DeconpressViewController::openFiles(paths);
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows)
{
    Q_UNUSED(hasVisibleWindows);
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String("mainWindow")) {
            window->show();
            window->raise();
            window->activateWindow();
            return true;
        }
    }
    showNewMainWindow();
    return true;
}

QUrl AppDelegate::installationPage()
{
    const QStringList preferred = Platform::preferredLanguages();
    const QString first = preferred.isEmpty() ? QString() : preferred.first();
    QString language = QStringLiteral("en");
    for (const char *prefix : {"ja", "es", "fr", "de", "zh"}) {
        if (!first.startsWith(QLatin1String(prefix)))
            continue;
        language = SwitchLanguageService::mapSystemLanguage(first);
        const QString variant = SettingInfo::valueOf(QStringLiteral("install_link_") + language);
        if (!variant.isEmpty())
            return HelpPages::pageURL(variant, language);
    }
    return HelpPages::linkURL(QStringLiteral("install_link"), language);
}

void AppDelegate::checkFirstTimeLaunch()
{
    if (UserDefaults::value(hasLaunchedOnceKey).toBool())
        return;
    UserDefaults::setValue(hasLaunchedOnceKey, true);
    UserDefaults::synchronize();
    // The page opens once the main window is on screen, so that it never
    // stands in front of a program that has not appeared yet.
    m_welcomePage = installationPage();
    FabricController::logEvent(QStringLiteral("First Launch"),
                               {{QStringLiteral("model"), FabricController::model()}});
    if (!SettingInfo::valueOf(QStringLiteral("sendEmail_link")).isEmpty())
        QTimer::singleShot(0, this, &AppDelegate::showFirstLoginWindow);
}

void AppDelegate::buildMenus()
{
    m_appMenu = std::make_unique<QMenu>();
    m_aboutItem = m_appMenu->addAction(
        ImageStore::themeIcon(QStringLiteral("help-about"), QStringLiteral("Info")), QString());
    connect(m_aboutItem, &QAction::triggered, this, [] {
        UIUtil::dialogInfo(getLocalizedString(QStringLiteral("Brenlow")),
                           getLocalizedString(QStringLiteral("Version ")) +
                               QStringLiteral(BRENLOW_VERSION));
    });
    m_appMenu->addSeparator();
    m_eventLogItem = m_appMenu->addAction(QString());
    m_eventLogItem->setCheckable(true);
    connect(m_eventLogItem, &QAction::toggled, this,
            [](bool on) { FabricController::setLocalLogEnabled(on); });
    m_appMenu->addSeparator();
    m_quitItem = m_appMenu->addAction(
        ImageStore::themeIcon(QStringLiteral("application-exit"), QStringLiteral("Placeholder")),
        QString());
    m_quitItem->setShortcut(QKeySequence::Quit);
    connect(m_quitItem, &QAction::triggered, qApp, &QApplication::quit);

    m_languageMenu = std::make_unique<QMenu>();
    m_languageGroup = new QActionGroup(m_languageMenu.get());
    m_languageGroup->setExclusive(true);
    for (const QString &language : SwitchLanguageService::languages) {
        QAction *item =
            m_languageMenu->addAction(ImageStore::icon(QStringLiteral("flag-") + language),
                                      SwitchLanguageService::languageMenuName(language));
        item->setCheckable(true);
        m_languageGroup->addAction(item);
        m_languageItems.insert(language, item);
        connect(item, &QAction::triggered, this, [this, item] { languageAction(item); });
    }

    m_configurationMenu = std::make_unique<QMenu>();
    m_duplicateConfigurationItem = m_configurationMenu->addAction(QString());
    connect(m_duplicateConfigurationItem, &QAction::triggered, this,
            &AppDelegate::duplicateConfigureAction);
    m_similarConfigurationItem = m_configurationMenu->addAction(QString());
    connect(m_similarConfigurationItem, &QAction::triggered, this,
            &AppDelegate::similarConfigureAction);

    m_helpMenu = std::make_unique<QMenu>();
    for (const QString &key : linkKeys) {
        QAction *item = m_helpMenu->addAction(
            ImageStore::themeIcon(linkIconName(key), QStringLiteral("Info")), QString());
        m_linkItems.insert(key, item);
        connect(item, &QAction::triggered, this, [this, key] { openSettingLink(key); });
    }
    m_helpMenu->addSeparator();
    m_newsletterItem = m_helpMenu->addAction(QString());
    connect(m_newsletterItem, &QAction::triggered, this, &AppDelegate::showFirstLoginWindow);
}

QList<QMenu *> AppDelegate::menus() const
{
    return {m_appMenu.get(), m_languageMenu.get(), m_configurationMenu.get(), m_helpMenu.get()};
}

void AppDelegate::changeLanguage()
{
    if (SwitchLanguageService::userLanguage().isEmpty() || !SwitchLanguageService::getBundle())
        SwitchLanguageService::initUserLanguage();
    m_appMenu->setTitle(getLocalizedString(QStringLiteral("Brenlow")));
    m_aboutItem->setText(getLocalizedString(QStringLiteral("About Brenlow")));
    m_eventLogItem->setText(getLocalizedString(QStringLiteral("Keep a Local Log of Usage Events")));
    {
        const QSignalBlocker blocker(m_eventLogItem);
        m_eventLogItem->setChecked(FabricController::isLocalLogEnabled());
    }
    m_quitItem->setText(getLocalizedString(QStringLiteral("Quit Brenlow")));
    m_languageMenu->setTitle(getLocalizedString(QStringLiteral("Language")));
    const QString current = SwitchLanguageService::getCurrentLanguage();
    for (auto it = m_languageItems.begin(); it != m_languageItems.end(); ++it)
        it.value()->setChecked(it.key() == current);
    m_configurationMenu->setTitle(getLocalizedString(QStringLiteral("Configuration")));
    m_duplicateConfigurationItem->setText(getLocalizedString(QStringLiteral("Duplicate Finder…")));
    m_similarConfigurationItem->setText(
        getLocalizedString(QStringLiteral("Similar Image Finder…")));
    m_helpMenu->setTitle(getLocalizedString(QStringLiteral("Help")));
    for (auto it = m_linkItems.begin(); it != m_linkItems.end(); ++it) {
        it.value()->setText(linkTitle(it.key()));
        // An edition without the page has no entry for it.
        it.value()->setVisible(!HelpPages::linkURL(it.key(), current).isEmpty());
    }
    m_newsletterItem->setText(getLocalizedString(QStringLiteral("Subscribe to News…")));
    m_newsletterItem->setVisible(!SettingInfo::valueOf(QStringLiteral("sendEmail_link")).isEmpty());
}

void AppDelegate::languageAction(QAction *sender)
{
    for (const QString &language : SwitchLanguageService::languages) {
        if (SwitchLanguageService::languageMenuName(language) != sender->text())
            continue;
        SwitchLanguageService::setUserLanguage(language);
        sender->setChecked(true);
        LanguageNotifier::defaultCenter()->post(this);
        FabricController::fabric(FabricEvent::languageButton, language);
        return;
    }
}

void AppDelegate::duplicateConfigureAction()
{
    KestalDuplicateConfigurationWindowController::duplicateConfigureAction();
}

void AppDelegate::similarConfigureAction()
{
    KestalSimilarConfigurationWindowController::similarConfigureAction();
}

void AppDelegate::openSettingLink(const QString &key)
{
    Workspace::openURL(HelpPages::linkURL(key, SwitchLanguageService::getCurrentLanguage()));
}

void AppDelegate::openWelcomePageWhenShown()
{
    if (m_welcomePage.isEmpty() || !m_mainWindow || !m_mainWindow->windowHandle())
        return;
    if (m_mainWindow->windowHandle()->isExposed())
        QTimer::singleShot(0, this, &AppDelegate::openWelcomePage);
    else
        m_mainWindow->windowHandle()->installEventFilter(this);
}

void AppDelegate::openWelcomePage()
{
    const QUrl page = std::exchange(m_welcomePage, QUrl());
    if (!page.isEmpty() && Workspace::openURL(page))
        QTextStream(stdout) << "successfully opened" << Qt::endl;
}

bool AppDelegate::eventFilter(QObject *watched, QEvent *event)
{
    auto *window = qobject_cast<QWindow *>(watched);
    if (event->type() == QEvent::Expose && window && window->isExposed()) {
        window->removeEventFilter(this);
        // After the window's own handling of the event: it is drawn first.
        QTimer::singleShot(0, this, &AppDelegate::openWelcomePage);
    }
    return QObject::eventFilter(watched, event);
}

void AppDelegate::togglePopover()
{
    if (m_statusItem)
        m_statusItem->togglePopover();
}

void AppDelegate::showPopover()
{
    if (m_statusItem)
        m_statusItem->showPopover();
}

void AppDelegate::showFirstLoginWindow()
{
    auto *window = new KestalFirstLoginViewController;
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
}

QMainWindow *AppDelegate::showNewMainWindow()
{
    m_mainWindow = KestalRootViewController::instantiateMainWindow();
    for (QMenu *menu : menus())
        m_mainWindow->menuBar()->addMenu(menu);
    m_mainWindow->show();
    openWelcomePageWhenShown();
    return m_mainWindow;
}

void AppDelegate::copySystemFonts()
{
    // The screens' fonts are copied for the user on the system that ships
    // them; the Linux desktop has its own fonts and nothing to copy.
    if (!Platform::isMacOS())
        return;
    for (const QString &name :
         {QStringLiteral("Helvetica.ttc"), QStringLiteral("HelveticaNeue.ttc")})
        QFile::copy(Platform::systemPath(QStringLiteral("/System/Library/Fonts/") + name),
                    Platform::homeDirectory() + QStringLiteral("/Library/Fonts/") + name);
}
