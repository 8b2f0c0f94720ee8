#include "cleaner/core/Dispatch.h"

#include <QAtomicInt>
#include <QMutex>
#include <QThread>
#include <QtTest>

class DispatchTest : public QObject {
    Q_OBJECT

private slots:
    void mainQueueKeepsOrderThreadAndWaits()
    {
        QList<int> order;
        bool onMain = true;
        for (int i = 0; i < 100; ++i)
            Dispatch::mainAsync([&order, &onMain, i] {
                onMain = onMain && Dispatch::isMainThread();
                order << i;
            });
        QTRY_COMPARE(order.size(), 100);
        QVERIFY(onMain);
        QVERIFY(std::is_sorted(order.begin(), order.end()));

        // mainSync from a worker waits for the main queue's result.
        QAtomicInt answer = 0;
        Dispatch::globalAsync([&] {
            int seen = 0;
            Dispatch::mainSync([&] { seen = Dispatch::isMainThread() ? 42 : -1; });
            answer = seen;
        });
        QTRY_COMPARE(int(answer), 42);
    }

    void serialQueueRunsOneAtATimeInOrder()
    {
        SerialQueue queue(QStringLiteral("test.serial"));
        QMutex mutex;
        QList<int> order;
        QAtomicInt running = 0, overlap = 0;
        for (int i = 0; i < 40; ++i) {
            queue.async([&, i] {
                if (running.fetchAndAddOrdered(1) != 0)
                    overlap = 1;
                QThread::usleep(200);
                QMutexLocker lock(&mutex);
                order << i;
                running.fetchAndAddOrdered(-1);
            });
        }
        queue.drain();
        QCOMPARE(order.size(), 40);
        QVERIFY(std::is_sorted(order.begin(), order.end()));
        QCOMPARE(int(overlap), 0);
    }

    void groupNotifiesOnceAllWorkIsDone()
    {
        DispatchGroup group;
        QAtomicInt finished = 0;
        int notifiedAfter = -1;
        for (int i = 0; i < 8; ++i)
            group.async([&] {
                QThread::usleep(1000);
                finished.fetchAndAddOrdered(1);
            });
        group.notify([&] { notifiedAfter = finished; });
        QTRY_COMPARE(notifiedAfter, 8);

        // An empty group notifies at once (on the main queue).
        DispatchGroup empty;
        bool ran = false;
        empty.notify([&] { ran = Dispatch::isMainThread(); });
        QTRY_VERIFY(ran);
    }

    void timersRepeatCarryUserInfoAndStop()
    {
        int ticks = 0;
        QVariant info;
        QPointer<DispatchTimer> timer = DispatchTimer::scheduled(5, true, 7, [&](DispatchTimer *t) {
            info = t->userInfo();
            if (++ticks == 3)
                t->invalidate();
        });
        QTRY_VERIFY(!timer); // an invalidated timer goes away
        QCOMPARE(ticks, 3);
        QCOMPARE(info.toInt(), 7);

        int once = 0;
        QPointer<DispatchTimer> single =
            DispatchTimer::scheduled(1, false, {}, [&](DispatchTimer *) { ++once; });
        QTRY_VERIFY(!single);
        QCOMPARE(once, 1);
    }
};

QTEST_GUILESS_MAIN(DispatchTest)
#include "test_dispatch.moc"
