#include "cleaner/shell/KestalStatusViewController.h"

#include "cleaner/core/Platform.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/KestalGraphView.h"
#include "cleaner/shell/LanguageNotifier.h"
#include "cleaner/status/SystemStatusService.h"

#include <QApplication>
#include <QCursor>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSysInfo>
#include <QVBoxLayout>

KestalStatusViewController::KestalStatusViewController(QWidget *parent) : QWidget(parent, Qt::Popup)
{
    setObjectName(QStringLiteral("KestalStatusViewController"));
    // A click on the tray icon that closes the panel must not open it again.
    setAttribute(Qt::WA_NoMouseReplay);
    auto *layout = new QVBoxLayout(this);
    m_machine = new QLabel(this);
    m_machine->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_machine);
    auto *grid = new QGridLayout;
    grid->addWidget(m_cpuView = new KestalCPUView(this), 0, 0);
    grid->addWidget(m_memoryView = new KestalMemoryView(this), 0, 1);
    grid->addWidget(m_diskView = new KestalDiskView(this), 1, 0);
    grid->addWidget(m_batteryView = new KestalBatteryView(this), 1, 1);
    layout->addLayout(grid);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(m_optimize = new QPushButton(this));
    buttons->addStretch();
    buttons->addWidget(m_quit = new QPushButton(this));
    layout->addLayout(buttons);
    connect(m_optimize, &QPushButton::clicked, this, &KestalStatusViewController::showMainWindow);
    connect(m_quit, &QPushButton::clicked, this, &KestalStatusViewController::closeApp);

    const struct {
        QTimer *timer;
        const char *tag;
        int seconds;
    } table[] = {{&m_cpuTimer, "cpu", 2},
                 {&m_memoryTimer, "memory", 2},
                 {&m_dbTimer, "disk", 5},
                 {&m_batteryTimer, "battery", 5}};
    for (const auto &row : table) {
        row.timer->setInterval(row.seconds * 1000);
        row.timer->setProperty("userInfo", QString::fromLatin1(row.tag));
        QTimer *timer = row.timer;
        connect(timer, &QTimer::timeout, this,
                [this, timer] { startTimer(timer->property("userInfo").toString()); });
    }
    connect(LanguageNotifier::defaultCenter(), &LanguageNotifier::changeLanguage, this,
            &KestalStatusViewController::reloadTexts);
    reloadTexts();
}

QString KestalStatusViewController::optimizeTitle()
{
    if (Platform::isMacOS())
        return getLocalizedString(QStringLiteral("Optimize Mac"));
    return getLocalizedString(QStringLiteral("Optimize %1")).arg(QSysInfo::machineHostName());
}

void KestalStatusViewController::reloadTexts()
{
    const SystemStatusService::ModelData names = SystemStatusService::getModelData();
    m_machine->setText(names.marketingModel == QLatin1String("Unknown")
                           ? QSysInfo::machineHostName()
                           : names.marketingModel);
    m_optimize->setText(optimizeTitle());
    m_quit->setText(getLocalizedString(QStringLiteral("Quit Brenlow")));
    update();
}

void KestalStatusViewController::startTimer(const QString &tag)
{
    if (tag == QLatin1String("cpu"))
        m_cpuView->update();
    else if (tag == QLatin1String("memory"))
        m_memoryView->update();
    else if (tag == QLatin1String("disk"))
        m_diskView->update();
    else if (tag == QLatin1String("battery") && m_batteryView->batteryIsOpen == 1)
        m_batteryView->update();
}

void KestalStatusViewController::showEvent(QShowEvent *event)
{
    for (QTimer *timer : timers())
        timer->start();
    QWidget::showEvent(event);
}

void KestalStatusViewController::hideEvent(QHideEvent *event)
{
    for (QTimer *timer : timers())
        timer->stop();
    QWidget::hideEvent(event);
}

void KestalStatusViewController::showBeside(const QRect &iconGeometry)
{
    adjustSize();
    const QPoint anchor = iconGeometry.isValid() ? iconGeometry.center() : QCursor::pos();
    QScreen *screen = QGuiApplication::screenAt(anchor);
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    const QRect icon = iconGeometry.isValid() ? iconGeometry : QRect(anchor, QSize(1, 1));
    QPoint at(anchor.x() - width() / 2, 0);
    if (icon.center().y() < available.center().y())
        at.setY(icon.bottom() + 4);
    else
        at.setY(icon.top() - 4 - height());
    at.setX(std::clamp(at.x(), available.left(),
                       std::max(available.left(), available.right() - width())));
    at.setY(std::clamp(at.y(), available.top(),
                       std::max(available.top(), available.bottom() - height())));
    move(at);
    show();
    raise();
}

void KestalStatusViewController::showMainWindow()
{
    close();
    if (AppDelegate::appDelegate)
        AppDelegate::appDelegate->applicationShouldHandleReopen(false);
}

void KestalStatusViewController::closeApp()
{
    close();
    QApplication::quit();
}
