#include "cleaner/clean/KestalCleanManager.h"

#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalService.h"

#include <algorithm>
#include <cstdio>

using Service = KestalModuleCleanService;

KestalCleanManager::KestalCleanManager(int moduleIndex,
                                       std::shared_ptr<KestalCleanProtocol> controller)
    : moduleIndex(moduleIndex), cleanController(std::move(controller))
{}

void KestalCleanManager::processed(const QString &url, qint64 size, int moduleIndex)
{
    // Per-file progress of the helper is not shown.
    Q_UNUSED(url);
    Q_UNUSED(size);
    Q_UNUSED(moduleIndex);
}

void KestalCleanManager::drainModelHelpTool()
{
    QList<int> keys = Service::modelHelpTool().keys();
    std::sort(keys.begin(), keys.end(), std::greater<int>());
    for (int key : keys) {
        const QList<QMap<int, PathMap>> waiting = Service::modelHelpTool().value(key);
        for (const QMap<int, PathMap> &request : waiting) {
            for (auto it = request.begin(); it != request.end(); ++it)
                Service::XPC(it.value(), shared_from_this(), operationType::delete_, key, it.key());
        }
        Service::modelHelpTool().remove(key);
    }
}

bool KestalCleanManager::isClosed() const
{
    // A report after the end of the run (a second failure of one request)
    // must not close it twice.
    if (Service::cleanStatusDict().value(moduleIndex) == cleanStatus::cleanning)
        return false;
    std::fprintf(stderr, "Report for module %d after its clean ended\n", moduleIndex);
    return true;
}

std::pair<int, qint64> KestalCleanManager::totals(bool withHelper) const
{
    int number = 0;
    qint64 size = 0;
    for (auto it = ciSize.begin(); it != ciSize.end(); ++it) {
        number += ciFileNumber.value(it.key());
        size += it.value();
        if (withHelper) {
            number += helpToolCiFileNumber.value(it.key());
            size += helpToolCiSize.value(it.key());
        }
    }
    return {number, size};
}

void KestalCleanManager::finished(bool result, const PathMap &folders, int moduleIndex)
{
    Q_UNUSED(moduleIndex);
    QMutexLocker lock(&Service::lock());
    if (isClosed())
        return;
    if (!Service::passHelpTool()) {
        Service::passHelpTool() = true;
        drainModelHelpTool();
        Service::passHelpTool() = true;
    }
    ++cleanDone;

    if (folders.isEmpty() || folders.first().isEmpty())
        fatalStop(
            QStringLiteral("a helper report without paths for module %1").arg(this->moduleIndex));
    const int ci = folders.first().first();
    QList<cleanCategory> &plan = Service::cleanInfoDict()[this->moduleIndex];
    if (ci < 0 || ci >= plan.size())
        fatalStop(QStringLiteral("a helper report for category %1 outside the plan").arg(ci));
    QList<cleanFolder> &entries = plan[ci].folders;
    QHash<int, qsizetype> position;
    for (qsizetype i = 0; i < entries.size(); ++i)
        position.insert(entries[i].finder, i);

    for (auto it = folders.begin(); it != folders.end(); ++it) {
        const QList<int> &slotList = it.value();
        if (slotList.size() < 2)
            fatalStop(QStringLiteral("a status array of %1 elements").arg(slotList.size()));
        const auto found = position.constFind(slotList[1]);
        if (found == position.constEnd()) {
            std::fprintf(stderr, "Report for an item outside the plan: %s\n", qPrintable(it.key()));
            continue;
        }
        cleanFolder &entry = entries[*found];
        if (slotList.size() < 4) {
            entry.status = slotList.last();
            continue;
        }
        for (cleanFolder &child : entry.children) {
            if (child.finder == slotList[2])
                child.status = slotList.last();
        }
    }

    if (result) {
        cleanController->done(true, ci, 999, ciFileNumber[ci] + helpToolCiFileNumber[ci],
                              ciSize[ci] + helpToolCiSize[ci]);
    } else {
        int status = -1;
        int failedNumber = 0;
        qint64 failedSize = 0;
        for (auto it = folders.begin(); it != folders.end(); ++it) {
            if (it.value().last() == 1)
                continue;
            failedSize += helpToolPathSize.value(it.key());
            ++failedNumber;
            status = it.value().last();
        }
        helpToolCiSize[ci] -= failedSize;
        helpToolCiFileNumber[ci] -= failedNumber;
        cleanController->done(false, ci, status, ciFileNumber[ci] + helpToolCiFileNumber[ci],
                              ciSize[ci] + helpToolCiSize[ci]);
    }

    if (cleanDone != categoryCount)
        return;
    Service::closeRun(shared_from_this(), true, 999, true);
}

void KestalCleanManager::installFail(const QString &error, int moduleIndex)
{
    Q_UNUSED(error);
    Q_UNUSED(moduleIndex);
    QMutexLocker lock(&Service::lock());
    if (isClosed())
        return;
    Service::passHelpTool() = false;
    // Queued requests of every module are dropped without a report.
    Service::modelHelpTool().clear();

    QList<cleanCategory> &plan = Service::cleanInfoDict()[this->moduleIndex];
    if (Service::keepsOwnCategories(this->moduleIndex)) {
        QList<int> listed;
        for (const cleanCategory &c : std::as_const(plan))
            listed.append(c.ci);
        const int module = this->moduleIndex;
        Dispatch::mainSync([module, listed] {
            QHash<int, CleanTriple> &results = KestalService::cleanningCompletedStatus()[module];
            for (int ci : listed) {
                if (results.contains(ci))
                    results[ci].status = 0;
            }
        });
    }
    for (cleanCategory &c : plan) {
        for (cleanFolder &entry : c.folders) {
            if (entry.status == 0)
                entry.status = int(errorKind::getRoot);
            for (cleanFolder &child : entry.children) {
                if (child.status == 0)
                    child.status = int(errorKind::getRoot);
            }
        }
    }
    Service::closeRun(shared_from_this(), true, -2, false);
}

QString KestalCleanManager::installFailureText(const QString &error)
{
    bool ok = false;
    const int code = error.trimmed().toInt(&ok);
    switch (ok ? code : -1) {
    case 1000:
        return getLocalizedString(
            QStringLiteral("A failure when referencing a bundle that doesn't exist"));
    case 1001:
        return getLocalizedString(QStringLiteral(
            "A failure when trying to get the SecStaticCode for a bundle, but it is unsigned"));
    case 1002:
        return getLocalizedString(
            QStringLiteral("Unknown failure when calling SecStaticCodeCreateWithPath"));
    case 1003:
        return getLocalizedString(QStringLiteral(
            "Unknown failure when calling SecCodeCopySigningInformation for a bundle"));
    case 1010:
        return getLocalizedString(QStringLiteral("Failure when calling SMJobBless"));
    case 1020:
        return getLocalizedString(QStringLiteral(
            "Authorization was denied by the system when asking a user for authorization"));
    case 1021:
        return getLocalizedString(QStringLiteral("The user canceled a prompt for authorization"));
    case 1022:
        return getLocalizedString(
            QStringLiteral("Unable to prompt the user (interaction disallowed)"));
    case 1023:
        return getLocalizedString(
            QStringLiteral("Unknown failure when prompting the user for authorization"));
    default:
        return getLocalizedString(QStringLiteral("Unkown Error!"));
    }
}
