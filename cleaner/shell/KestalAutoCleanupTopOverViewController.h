#pragma once

#include "cleaner/status/Reachability.h"

#include <QTimer>
#include <QWidget>

class QLabel;

// The dashboard at the top of Auto Cleanup's screen: CPU, memory, disk and
// battery as the status panel shows them, and the network's upload and
// download rates, redrawn every 5 seconds while the screen is shown.
class KestalAutoCleanupTopOverViewController : public QWidget {
    Q_OBJECT
public:
    explicit KestalAutoCleanupTopOverViewController(QWidget *parent = nullptr);

    // The timer's action: reads every figure and sets the plates.
    void drawPlate();

    // Bytes per second over the timer's period (see NetworkRate).
    NetworkRate::Rates getData() { return m_rate.getData(); }
    const NetworkRate &rate() const { return m_rate; }
    QTimer *timer() { return &m_timer; }
    // The texts of the plates, in order: CPU, memory, disk, battery, network.
    QStringList plateTexts() const;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    NetworkRate m_rate{5};
    QTimer m_timer;
    void setPlate(int index, const QString &title, const QString &value);

    QList<QLabel *> m_titles;
    QList<QLabel *> m_values;
};
