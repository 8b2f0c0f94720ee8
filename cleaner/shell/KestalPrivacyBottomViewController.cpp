#include "cleaner/shell/KestalPrivacyBottomViewController.h"

#include "cleaner/clean/PrivacyClean.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/privacy/PrivacyService.h"

KestalPrivacyBottomViewController::KestalPrivacyBottomViewController(
    KestalRightSplitController *split, QWidget *parent)
    : KestalRightBottomViewController(PrivacyService::moduleIndex, split, parent)
{}

void KestalPrivacyBottomViewController::startScan()
{
    m_shareRead = 0;
    KestalRightBottomViewController::startScan();
}

void KestalPrivacyBottomViewController::scanningPercent(float step)
{
    // All three browsers end together, so the percent of the category in
    // hand is the percent of the whole scan.
    m_shareRead += step;
    updateScanningPercent(qMin(m_shareRead, 1.0f) * 100.0f);
}

void KestalPrivacyBottomViewController::runClean(
    const std::shared_ptr<KestalCleanProtocol> &recorder)
{
    Dispatch::globalAsync([recorder] { PrivacyClean::run(recorder); });
}

std::pair<double, int> KestalPrivacyBottomViewController::selected() const
{
    const auto [size, number] = PrivacyService::selectedRecords();
    return {double(size), number};
}
