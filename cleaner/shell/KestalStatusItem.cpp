#include "cleaner/shell/KestalStatusItem.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalStatusViewController.h"
#include "cleaner/shell/LanguageNotifier.h"

#include <QApplication>
#include <QMenu>
#include <QSystemTrayIcon>

KestalStatusItem::KestalStatusItem()
{
    m_popover = new KestalStatusViewController;
    m_menu = std::make_unique<QMenu>();
    m_showWindow = m_menu->addAction(QString());
    connect(m_showWindow, &QAction::triggered, m_popover,
            &KestalStatusViewController::showMainWindow);
    m_menu->addSeparator();
    m_quit = m_menu->addAction(
        ImageStore::themeIcon(QStringLiteral("application-exit"), QStringLiteral("Placeholder")),
        QString());
    connect(m_quit, &QAction::triggered, qApp, &QApplication::quit);

    m_tray = std::make_unique<QSystemTrayIcon>(ImageStore::icon(QStringLiteral("Brenlow")));
    m_tray->setContextMenu(m_menu.get());
    connect(m_tray.get(), &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger)
                    togglePopover();
            });
    connect(LanguageNotifier::defaultCenter(), &LanguageNotifier::changeLanguage, this,
            &KestalStatusItem::reloadTexts);
    reloadTexts();
    m_tray->show();
}

KestalStatusItem::~KestalStatusItem()
{
    delete m_popover;
}

bool KestalStatusItem::isAvailable()
{
    return QSystemTrayIcon::isSystemTrayAvailable();
}

void KestalStatusItem::reloadTexts()
{
    m_tray->setToolTip(getLocalizedString(QStringLiteral("Brenlow")));
    m_showWindow->setText(KestalStatusViewController::optimizeTitle());
    m_quit->setText(getLocalizedString(QStringLiteral("Quit Brenlow")));
}

void KestalStatusItem::togglePopover()
{
    if (m_popover->isVisible())
        m_popover->close();
    else
        showPopover();
}

void KestalStatusItem::showPopover()
{
    m_popover->showBeside(m_tray->geometry());
}
