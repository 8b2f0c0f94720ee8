#include "cleaner/clean/CleanResults.h"

#include "cleaner/clean/KestalCleanManager.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/clean/XPCUtil.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalService.h"

QString cleanFailureReason(int status)
{
    switch (status) {
    case 2:
        return getLocalizedString(QStringLiteral("OverTime"));
    case 3:
        return getLocalizedString(QStringLiteral("delete fail"));
    case 4:
        return getLocalizedString(QStringLiteral("nocause"));
    case 5:
        return getLocalizedString(QStringLiteral("shredfail"));
    case 6:
        return getLocalizedString(QStringLiteral("movefail"));
    case 7:
        return getLocalizedString(QStringLiteral("stop"));
    case 8:
        return getLocalizedString(QStringLiteral("get root fail"));
    default:
        return getLocalizedString(QStringLiteral("UnKnown"));
    }
}

QString installFailureReason(int moduleIndex)
{
    return KestalCleanManager::installFailureText(XPCUtil::instance()->installFailure(moduleIndex));
}

KestalCleanRecorder::KestalCleanRecorder(int moduleIndex, Report report)
    : m_moduleIndex(moduleIndex), m_report(std::move(report))
{}

void KestalCleanRecorder::handleClean(int moduleIndex)
{
    KestalModuleCleanService::setStop(moduleIndex, false);
    KestalService::cleanDone()[moduleIndex] = 0;
    KestalService::cleanTotalSizeAndNumber()[moduleIndex] = {0, 0};
    KestalService::cleanningCompletedStatus()[moduleIndex].clear();
}

void KestalCleanRecorder::done(bool result, int ci, int status, int number, qint64 size)
{
    const int module = m_moduleIndex;
    const Report report = m_report;
    Dispatch::mainAsync([=] {
        if (ci >= 0) {
            KestalService::cleanDone()[module] += 1;
            KestalService::cleanningCompletedStatus()[module].insert(ci, {status, number, size});
        } else {
            KestalService::cleanTotalSizeAndNumber()[module] = {size, number};
        }
        if (report)
            report(result, ci, status, number, size);
    });
}
