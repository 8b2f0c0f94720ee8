#pragma once

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/status/NtfsVolumes.h"

#include <QTimer>
#include <QWidget>

class KestalBatteryView;
class KestalCPUView;
class KestalDiskView;
class KestalMemoryView;
class QLabel;
class QPushButton;

// The status panel that the tray item opens: CPU, memory, disk and battery,
// redrawn by their timers while the panel is shown, and the buttons that
// bring the main window back, switch NTFS volumes to writing, and end the
// program. A popup: a click anywhere outside closes it.
class KestalStatusViewController : public QWidget {
    Q_OBJECT
public:
    explicit KestalStatusViewController(QWidget *parent = nullptr);

    // The timer action: the tag says which view to redraw.
    void startTimer(const QString &tag);
    // Opens the panel beside the tray icon's area (below it when the icon
    // is at the top of the screen, above it otherwise).
    void showBeside(const QRect &iconGeometry);

    void showMainWindow();
    void closeApp();
    // The NTFS switch: asks, then has the helper mount the NTFS volumes
    // mounted now for writing, and shows how that went.
    void ntfsBtn();
    // The helper's answers, on the main thread.
    void finished(bool result, const PathMap &folders);
    void installFail(const QString &error);
    // Why the helper left a volume as it was (an NtfsStatus number).
    static QString ntfsReason(int status);
    // The volumes the last ntfsBtn found.
    QList<NtfsDisk> diskInfo;

    KestalCPUView *cpuView() const { return m_cpuView; }
    KestalMemoryView *memoryView() const { return m_memoryView; }
    KestalDiskView *diskView() const { return m_diskView; }
    KestalBatteryView *batteryView() const { return m_batteryView; }
    QPushButton *optimizeButton() const { return m_optimize; }
    QPushButton *ntfsButton() const { return m_ntfs; }
    QPushButton *quitButton() const { return m_quit; }
    const QList<QTimer *> timers() const
    {
        return {&m_cpuTimer, &m_memoryTimer, &m_dbTimer, &m_batteryTimer};
    }

    // "Optimize Mac" on macOS; this computer's name on Linux.
    static QString optimizeTitle();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void reloadTexts();

    KestalCPUView *m_cpuView;
    KestalMemoryView *m_memoryView;
    KestalDiskView *m_diskView;
    KestalBatteryView *m_batteryView;
    QLabel *m_machine;
    QPushButton *m_optimize;
    QPushButton *m_ntfs;
    QPushButton *m_quit;
    mutable QTimer m_cpuTimer, m_memoryTimer, m_dbTimer, m_batteryTimer;
};
