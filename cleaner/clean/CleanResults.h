#pragma once

#include "cleaner/clean/KestalCleanProtocol.h"

#include <QString>
#include <functional>

// The words of a failed item's status, as the clean log shows them.
QString cleanFailureReason(int status);
// The words of the install failure last reported for the module, which is
// what ended its run with -2.
QString installFailureReason(int moduleIndex);

// The screen side of a clean without a screen: moves every report to the
// main queue and keeps the module's clean bookkeeping there, as a module's
// bar does (finished categories, per-category results, the run's totals).
class KestalCleanRecorder : public KestalCleanProtocol {
public:
    // Runs on the main thread after each report was recorded.
    using Report = std::function<void(bool result, int ci, int status, int number, qint64 size)>;

    KestalCleanRecorder(int moduleIndex, Report report);
    // Resets the module's counters before a clean (main thread).
    static void handleClean(int moduleIndex);

    void done(bool result, int ci, int status, int number, qint64 size) override;

private:
    int m_moduleIndex;
    Report m_report;
};
