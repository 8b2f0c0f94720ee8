#include "cleaner/core/Dispatch.h"

#include <QCoreApplication>
#include <QMutex>
#include <QSemaphore>
#include <QThread>
#include <QThreadPool>
#include <QTimer>
#include <vector>

namespace {

QObject *mainContext()
{
    QCoreApplication *app = QCoreApplication::instance();
    Q_ASSERT_X(app, "Dispatch", "the main queue needs a QCoreApplication");
    return app;
}

} // namespace

void Dispatch::mainAsync(Work work)
{
    // After the application object is gone a late callback has nobody to tell.
    if (QCoreApplication *app = QCoreApplication::instance())
        QMetaObject::invokeMethod(app, std::move(work), Qt::QueuedConnection);
}

void Dispatch::mainSync(const Work &work)
{
    if (isMainThread()) {
        work();
        return;
    }
    QMetaObject::invokeMethod(mainContext(), work, Qt::BlockingQueuedConnection);
}

void Dispatch::globalAsync(Work work)
{
    QThreadPool::globalInstance()->start(std::move(work));
}

bool Dispatch::isMainThread()
{
    QCoreApplication *app = QCoreApplication::instance();
    return app && QThread::currentThread() == app->thread();
}

SerialQueue::SerialQueue(const QString &label) : m_label(label), m_pool(new QThreadPool)
{
    // One thread, and a pool that hands out work first in, first out.
    m_pool->setMaxThreadCount(1);
    m_pool->setExpiryTimeout(30000);
    m_pool->setObjectName(label);
}

SerialQueue::~SerialQueue()
{
    m_pool->waitForDone();
}

void SerialQueue::async(Dispatch::Work work)
{
    m_pool->start(std::move(work));
}

void SerialQueue::sync(const Dispatch::Work &work)
{
    QSemaphore ran;
    m_pool->start([&] {
        work();
        ran.release();
    });
    ran.acquire();
}

void SerialQueue::drain()
{
    sync([] {});
}

struct DispatchGroup::State {
    QMutex mutex;
    int count = 0;
    std::vector<Dispatch::Work> waiting;
};

DispatchGroup::DispatchGroup() : m_state(std::make_shared<State>()) {}

void DispatchGroup::enter()
{
    QMutexLocker lock(&m_state->mutex);
    ++m_state->count;
}

void DispatchGroup::leave()
{
    std::vector<Dispatch::Work> ready;
    {
        QMutexLocker lock(&m_state->mutex);
        Q_ASSERT(m_state->count > 0);
        if (--m_state->count == 0)
            ready.swap(m_state->waiting);
    }
    for (auto &work : ready)
        Dispatch::mainAsync(std::move(work));
}

void DispatchGroup::async(Dispatch::Work work)
{
    enter();
    auto state = *this;
    Dispatch::globalAsync([state, work = std::move(work)]() mutable {
        work();
        state.leave();
    });
}

void DispatchGroup::notify(Dispatch::Work work)
{
    {
        QMutexLocker lock(&m_state->mutex);
        if (m_state->count > 0) {
            m_state->waiting.push_back(std::move(work));
            return;
        }
    }
    Dispatch::mainAsync(std::move(work));
}

DispatchTimer *DispatchTimer::scheduled(int intervalMs, bool repeats, QVariant userInfo,
                                        Action action)
{
    return new DispatchTimer(intervalMs, repeats, std::move(userInfo), std::move(action));
}

DispatchTimer::DispatchTimer(int intervalMs, bool repeats, QVariant userInfo, Action action)
    : QObject(mainContext()), m_timer(new QTimer(this)), m_userInfo(std::move(userInfo)),
      m_action(std::move(action))
{
    m_timer->setInterval(intervalMs);
    m_timer->setSingleShot(!repeats);
    connect(m_timer, &QTimer::timeout, this, [this] {
        if (m_timer->isSingleShot())
            m_valid = false;
        if (m_action)
            m_action(this);
        if (!m_valid)
            deleteLater();
    });
    m_timer->start();
}

void DispatchTimer::invalidate()
{
    if (!m_valid)
        return;
    m_valid = false;
    m_timer->stop();
    deleteLater();
}
