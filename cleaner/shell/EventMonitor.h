#pragma once

#include <QEvent>
#include <QList>
#include <QObject>
#include <functional>

// Watches the application's input for the event types of `mask` and calls
// `handler` for each, without taking the event. Only the program's own
// windows can be watched: the desktop does not let a program see clicks
// that land on another one.
class EventMonitor : public QObject {
public:
    using Handler = std::function<void(QEvent *event)>;

    EventMonitor(QList<QEvent::Type> mask, Handler handler, QObject *parent = nullptr);
    ~EventMonitor() override;

    void start();
    void stop();
    bool isRunning() const { return m_monitor; }
    QList<QEvent::Type> mask() const { return m_mask; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QList<QEvent::Type> m_mask;
    Handler m_handler;
    bool m_monitor = false;
};
