#pragma once

#include <QObject>
#include <QVariant>
#include <functional>
#include <memory>

class QThreadPool;
class QTimer;

// The queues the design is drawn on: one main queue (the Qt event loop of the
// application thread), a global concurrent queue (the global thread pool),
// named serial queues, groups that notify when their work is done, and
// repeating timers on the main loop.
class Dispatch {
public:
    using Work = std::function<void()>;

    // Runs work on the main thread, after what was posted before it.
    static void mainAsync(Work work);
    // Runs work on the main thread and waits for it (runs at once on the main thread).
    static void mainSync(const Work &work);
    // Runs work on the global pool of default quality of service.
    static void globalAsync(Work work);
    static bool isMainThread();
};

// A queue that runs its work items one after another, in the order given.
class SerialQueue {
public:
    explicit SerialQueue(const QString &label);
    ~SerialQueue();
    SerialQueue(const SerialQueue &) = delete;
    SerialQueue &operator=(const SerialQueue &) = delete;

    void async(Dispatch::Work work);
    // Runs work on the queue and waits until it has run.
    void sync(const Dispatch::Work &work);
    // Waits until everything queued so far has run.
    void drain();
    QString label() const { return m_label; }

private:
    QString m_label;
    std::unique_ptr<QThreadPool> m_pool;
};

// Counts work in flight; notify runs once the count falls back to zero.
class DispatchGroup {
public:
    DispatchGroup();
    void enter();
    void leave();
    // Queues work on the global pool inside the group.
    void async(Dispatch::Work work);
    // Runs work on the main thread when the group is empty (at once if it is).
    void notify(Dispatch::Work work);

private:
    struct State;
    std::shared_ptr<State> m_state;
};

// A repeating (or one-shot) timer on the main loop that carries a user info
// value, like the scan watchdog's module index.
class DispatchTimer : public QObject {
    Q_OBJECT
public:
    using Action = std::function<void(DispatchTimer *)>;

    static DispatchTimer *scheduled(int intervalMs, bool repeats, QVariant userInfo, Action action);
    void invalidate();
    bool isValid() const { return m_valid; }
    QVariant userInfo() const { return m_userInfo; }

private:
    DispatchTimer(int intervalMs, bool repeats, QVariant userInfo, Action action);
    QTimer *m_timer;
    QVariant m_userInfo;
    Action m_action;
    bool m_valid = true;
};
