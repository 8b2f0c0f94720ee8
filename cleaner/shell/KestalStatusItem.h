#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

class KestalStatusViewController;
class QAction;
class QMenu;
class QSystemTrayIcon;

// The program's item in the desktop's tray: a click opens or closes the
// status panel beside it; its menu brings the main window back or ends
// the program.
class KestalStatusItem : public QObject {
    Q_OBJECT
public:
    KestalStatusItem();
    ~KestalStatusItem() override;

    // Whether the desktop has a tray to hold the item.
    static bool isAvailable();

    void togglePopover();
    void showPopover();

    QSystemTrayIcon *trayIcon() const { return m_tray.get(); }
    KestalStatusViewController *popover() const { return m_popover; }
    QMenu *menu() const { return m_menu.get(); }
    QAction *showWindowItem() const { return m_showWindow; }
    QAction *quitItem() const { return m_quit; }

private:
    void reloadTexts();

    std::unique_ptr<QMenu> m_menu;
    std::unique_ptr<QSystemTrayIcon> m_tray;
    QPointer<KestalStatusViewController> m_popover;
    QAction *m_showWindow = nullptr;
    QAction *m_quit = nullptr;
};
