#pragma once

#include "cleaner/shell/KestalRightBottomViewController.h"

// The privacy module's bar. Its workflow is every module's; its clean edits
// the browsers' stores in place instead of removing files: the three
// browsers' cleaners in order, a report for each and one for the module.
class KestalPrivacyBottomViewController : public KestalRightBottomViewController {
    Q_OBJECT
public:
    explicit KestalPrivacyBottomViewController(KestalRightSplitController *split,
                                               QWidget *parent = nullptr);

protected:
    void startScan() override;
    // The scan reports the share of the whole that each browser adds.
    void scanningPercent(float step) override;
    void runClean(const std::shared_ptr<KestalCleanProtocol> &recorder) override;
    // Records, not groups: a ticked group takes all it lists.
    std::pair<double, int> selected() const override;

private:
    float m_shareRead = 0;
};
