#include "cleaner/shell/EventMonitor.h"

#include <QCoreApplication>

EventMonitor::EventMonitor(QList<QEvent::Type> mask, Handler handler, QObject *parent)
    : QObject(parent), m_mask(std::move(mask)), m_handler(std::move(handler))
{}

EventMonitor::~EventMonitor()
{
    stop();
}

void EventMonitor::start()
{
    if (m_monitor || !QCoreApplication::instance())
        return;
    QCoreApplication::instance()->installEventFilter(this);
    m_monitor = true;
}

void EventMonitor::stop()
{
    if (!m_monitor)
        return;
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeEventFilter(this);
    m_monitor = false;
}

bool EventMonitor::eventFilter(QObject *watched, QEvent *event)
{
    // An input event reaches its window first and is then passed down to
    // widgets; counting it at the window sees each click once.
    if (watched->isWindowType() && m_mask.contains(event->type()) && m_handler)
        m_handler(event);
    return false;
}
