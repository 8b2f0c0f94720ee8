#include "helper/SafeRemoval.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/FileRemoval.h"
#include "helper/HelperLog.h"

SafeRemoval::SafeRemoval(AllowList allowed) : m_allowed(std::move(allowed)) {}

SafeRemoval::Outcome SafeRemoval::remove(const QByteArray &path, const ItemIdentity &expected) const
{
    const int failed = int(errorKind::delete_);
    const auto clean = FileRemoval::normalized(path);
    QString why;
    if (!clean)
        why = QStringLiteral("not an absolute path without \".\" or \"..\" steps");
    else if (const auto refused = m_allowed.refusal(*clean))
        why = *refused;
    else if (!expected.isKnown())
        why = QStringLiteral("no record of what the scan saw there");
    if (!why.isEmpty()) {
        logLine(QStringLiteral("refused %1: %2").arg(loggable(path), why));
        return {failed, why};
    }
    const FileRemoval::Result result = FileRemoval::removeListed(*clean, expected);
    if (result.removed())
        return {int(errorKind::success), QString()};
    why = result.reason();
    logLine(QStringLiteral("cannot remove %1: %2").arg(loggable(*clean), why));
    return {failed, why};
}
