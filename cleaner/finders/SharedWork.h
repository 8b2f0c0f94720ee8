#pragma once

#include <QThread>
#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

// Shares items 0 to count - 1 out among the cores (at least two threads):
// each thread takes the next item not yet taken and works it into a result
// of its own, so nothing is locked; the caller merges the results. The
// calling thread is one of the workers. A stop ends each worker at its next item.
template <typename Result>
std::vector<Result> shareOut(size_t count, const std::function<void(size_t, Result &)> &work,
                             const std::function<bool()> &stopped)
{
    const size_t threads = std::min<size_t>(size_t(std::max(2, QThread::idealThreadCount())),
                                            std::max<size_t>(count, 1));
    std::vector<Result> results(threads);
    std::atomic<size_t> next{0};
    const auto worker = [&](Result &result) {
        for (size_t i = next++; i < count; i = next++) {
            if (stopped())
                return;
            work(i, result);
        }
    };
    std::vector<std::thread> pool;
    for (size_t t = 1; t < threads; ++t)
        pool.emplace_back(worker, std::ref(results[t]));
    worker(results[0]);
    for (std::thread &t : pool)
        t.join();
    return results;
}
