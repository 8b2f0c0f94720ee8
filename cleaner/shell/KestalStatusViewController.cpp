#include "cleaner/shell/KestalStatusViewController.h"

#include "cleaner/clean/NtfsStatus.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/Services.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/KestalGraphView.h"
#include "cleaner/shell/LanguageNotifier.h"
#include "cleaner/shell/UIUtil.h"
#include "cleaner/status/SystemStatusService.h"

#include <QApplication>
#include <QCursor>
#include <QFile>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QSysInfo>
#include <QVBoxLayout>

namespace {

// The helper's reports arrive on the connection's thread; the panel hears
// of them on the main thread, if it is still there.
class NtfsReceiver : public DeleteFilesProgressProtocol {
public:
    explicit NtfsReceiver(KestalStatusViewController *controller) : m_controller(controller) {}
    void processed(const QString &, qint64, int) override {}
    void finished(bool result, const PathMap &folders, int) override
    {
        QMetaObject::invokeMethod(
            qApp,
            [c = m_controller, result, folders] {
                if (c)
                    c->finished(result, folders);
            },
            Qt::QueuedConnection);
    }
    void installFail(const QString &error, int) override
    {
        QMetaObject::invokeMethod(
            qApp,
            [c = m_controller, error] {
                if (c)
                    c->installFail(error);
            },
            Qt::QueuedConnection);
    }

private:
    QPointer<KestalStatusViewController> m_controller;
};

} // namespace

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
    buttons->addWidget(m_ntfs = new QPushButton(this));
    buttons->addStretch();
    buttons->addWidget(m_quit = new QPushButton(this));
    layout->addLayout(buttons);
    connect(m_optimize, &QPushButton::clicked, this, &KestalStatusViewController::showMainWindow);
    connect(m_quit, &QPushButton::clicked, this, &KestalStatusViewController::closeApp);
    connect(m_ntfs, &QPushButton::clicked, this, &KestalStatusViewController::ntfsBtn);

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
    m_ntfs->setText(getLocalizedString(QStringLiteral("Enable NTFS")));
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

void KestalStatusViewController::ntfsBtn()
{
    close();
    diskInfo = NtfsVolumes::getUSBInfo();
    // With nothing to switch, no password is asked for.
    if (diskInfo.isEmpty()) {
        UIUtil::dialogInfo(getLocalizedString(QStringLiteral("Enable NTFS")),
                           getLocalizedString(QStringLiteral("No NTFS volume is mounted.")));
        return;
    }
    if (!UIUtil::dialogOKCancel(
            getLocalizedString(QStringLiteral("Are your sure to activate NTFS?")),
            getLocalizedString(QStringLiteral("Activate the system's ntfs function"))))
        return;
    PathMap folder;
    for (const NtfsDisk &disk : std::as_const(diskInfo))
        folder.insert(
            FolderInfo::absoluteString(FolderInfo::urlFromPath(QFile::encodeName(disk.path))), {0});
    XPCUtil::instance()->operation(folder, std::make_shared<NtfsReceiver>(this),
                                   qint64(operationType::usb), 0);
    FabricController::logEvent(QStringLiteral("Activicy NTFS Button"),
                               {{QStringLiteral("volumes"), diskInfo.size()}});
}

QString KestalStatusViewController::ntfsReason(int status)
{
    switch (NtfsStatus(status)) {
    case NtfsStatus::writable:
        return {};
    case NtfsStatus::notMounted:
        return getLocalizedString(QStringLiteral("it is not mounted any more"));
    case NtfsStatus::notNtfs:
        return getLocalizedString(QStringLiteral("it is not an NTFS volume"));
    case NtfsStatus::dirty:
        return getLocalizedString(
            QStringLiteral("Windows did not close it cleanly; check it in Windows first"));
    case NtfsStatus::hibernated:
        return getLocalizedString(
            QStringLiteral("Windows is hibernated on it; shut Windows down fully first"));
    case NtfsStatus::noDriver:
        return getLocalizedString(QStringLiteral("no NTFS driver that writes is installed"));
    case NtfsStatus::busy:
        return getLocalizedString(QStringLiteral("it is in use; close its files and try again"));
    case NtfsStatus::mountFailed:
        return getLocalizedString(QStringLiteral("the driver refused it; it stays read-only"));
    }
    return getLocalizedString(QStringLiteral("it was left as it was"));
}

void KestalStatusViewController::finished(bool result, const PathMap &folders)
{
    if (result) {
        UIUtil::dialogInfo(
            getLocalizedString(QStringLiteral("Activate Success!")),
            getLocalizedString(QStringLiteral("Activating the system's ntfs function success")));
        return;
    }
    // Which volumes stayed as they were, and why.
    QString text =
        getLocalizedString(QStringLiteral("Activating the system's ntfs function failed"));
    for (auto it = folders.begin(); it != folders.end(); ++it) {
        const int status = it.value().value(it.value().size() - 1);
        if (status == int(NtfsStatus::writable))
            continue;
        const QString path = QString::fromLocal8Bit(Services::handleBytes(it.key()));
        QString name = path;
        for (const NtfsDisk &disk : std::as_const(diskInfo)) {
            if (disk.path == path)
                name = disk.name;
        }
        text += QStringLiteral("\n%1: %2").arg(name, ntfsReason(status));
    }
    UIUtil::dialogInfo(getLocalizedString(QStringLiteral("Activate Fail!")), text);
}

void KestalStatusViewController::installFail(const QString &error)
{
    Q_UNUSED(error);
    UIUtil::dialogInfo(
        getLocalizedString(QStringLiteral("Activate Fail!")),
        getLocalizedString(QStringLiteral("Activating the system's ntfs function failed")));
}
