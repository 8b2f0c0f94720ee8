#pragma once

#include <QHash>
#include <QMainWindow>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QUrl>
#include <memory>

class EventMonitor;
class KestalFolderEventMonitor;
class KestalStatusItem;
class QAction;
class QActionGroup;
class QMenu;

// Starts the program and lives for the whole run: the first-launch action,
// the interface language, the main window and its menus, and reopening the
// window after it was closed.
class AppDelegate : public QObject {
    Q_OBJECT
public:
    static AppDelegate *appDelegate;
    // Whether launch opens the main window at once.
    static bool showMainWindow;

    AppDelegate();
    ~AppDelegate() override;

    void applicationDidFinishLaunching();
    // Archives handed to the program (its command line, a file manager's
    // "Open with", a second launch): the decompression window unpacks the last.
    void openFiles(const QStringList &paths);
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    void checkFirstTimeLaunch();
    // Sets the language and gives every menu entry its text in it.
    void changeLanguage();
    void languageAction(QAction *sender);
    // Opens the duplicate finder's configuration window.
    void duplicateConfigureAction();
    // Opens the similar image finder's configuration window.
    void similarConfigureAction();
    // Opens the page under a key of the settings list ("support_link", ...).
    void openSettingLink(const QString &key);
    void showFirstLoginWindow();
    // The status panel beside the tray item: opens it, or closes it when shown.
    void togglePopover();
    void showPopover();
    // The tray item, when the desktop has a tray.
    KestalStatusItem *statusItem() const { return m_statusItem.get(); }

    QMainWindow *mainWindow() const { return m_mainWindow; }
    QMenu *dockMenu() const { return m_dockMenu.get(); }
    QList<QMenu *> menus() const;
    QAction *languageItem(const QString &language) const { return m_languageItems.value(language); }
    QAction *linkItem(const QString &key) const { return m_linkItems.value(key); }
    QAction *duplicateConfigurationItem() const { return m_duplicateConfigurationItem; }
    QAction *similarConfigurationItem() const { return m_similarConfigurationItem; }
    EventMonitor *eventMonitor() const { return m_eventMonitor.get(); }
    KestalFolderEventMonitor *trashMonitor() const { return m_trashMonitor.get(); }
    // The status panel, once the status item exists; the monitor closes it.
    QPointer<QWidget> popover;

    // The setting keys of the link entries, in menu order.
    static const QStringList linkKeys;
    // The installation page for the system's first preferred language.
    static QUrl installationPage();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void buildMenus();
    QMainWindow *showNewMainWindow();
    void copySystemFonts();
    // Opens the first launch's page once the main window has appeared.
    void openWelcomePageWhenShown();
    void openWelcomePage();

    QPointer<QMainWindow> m_mainWindow;
    // Watches the Trash for applications thrown away, for the whole run.
    std::unique_ptr<KestalFolderEventMonitor> m_trashMonitor;
    std::unique_ptr<QMenu> m_dockMenu;
    std::unique_ptr<QMenu> m_appMenu;
    std::unique_ptr<QMenu> m_languageMenu;
    std::unique_ptr<QMenu> m_configurationMenu;
    std::unique_ptr<QMenu> m_helpMenu;
    QActionGroup *m_languageGroup = nullptr;
    QHash<QString, QAction *> m_languageItems;
    QHash<QString, QAction *> m_linkItems;
    QAction *m_aboutItem = nullptr;
    QAction *m_eventLogItem = nullptr;
    QAction *m_newsletterItem = nullptr;
    QAction *m_quitItem = nullptr;
    QAction *m_duplicateConfigurationItem = nullptr;
    QAction *m_similarConfigurationItem = nullptr;
    std::unique_ptr<EventMonitor> m_eventMonitor;
    std::unique_ptr<KestalStatusItem> m_statusItem;
    QUrl m_welcomePage;
};
