#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/scan/KestalService.h"

#include <atomic>
#include <functional>

// What the finders' scans share: the entry that runs a module's status and
// watchdog around a scan body on the global queue, the generation that
// silences a scan stopped and started again, and the one place a finder
// stores its categories (where the screens and the watchdog's stop read them).
class KestalFinderScan : public KestalService {
public:
    class Generation {
    public:
        quint64 next() { return ++m_value; }
        quint64 current() const { return m_value.load(); }
        // Whether a scan of this generation of the module should end.
        bool stopped(quint64 generation, int module) const
        {
            return m_value.load() != generation || judgeStopScan(module);
        }

    private:
        std::atomic<quint64> m_value{0};
    };

    using Body = std::function<void(Progress, ShowPercent, std::function<void()>)>;

    // Starts body unless the module scans already; a new generation first.
    static void start(int module, Generation &generation, const Body &body, Progress progress,
                      ShowPercent showPercent, std::function<void()> done);
    static void storeCategories(int module, const QList<Category> &categories);
};
