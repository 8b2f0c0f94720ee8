#include "cleaner/shell/KestalPrivacyBottomViewController.h"

#include "cleaner/clean/PrivacyClean.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/privacy/PrivacyService.h"

KestalPrivacyBottomViewController::KestalPrivacyBottomViewController(
    KestalRightSplitController *split, QWidget *parent)
    : KestalRightBottomViewController(PrivacyService::moduleIndex, split, parent)
{}

void KestalPrivacyBottomViewController::runClean(
    const std::shared_ptr<KestalCleanProtocol> &recorder)
{
    Dispatch::globalAsync([recorder] { PrivacyClean::run(recorder); });
}
