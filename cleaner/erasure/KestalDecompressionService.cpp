#include "cleaner/erasure/KestalDecompressionService.h"

#include "cleaner/erasure/ArchiveBackEnd.h"

#include <QDir>
#include <QFileInfo>

using Result = ArchiveExtractor::Result;

bool KestalDecompressionService::isSevenZip(const QString &path)
{
    return QFileInfo(path).suffix().contains(QLatin1String("7z"));
}

bool KestalDecompressionService::isRar(const QString &path)
{
    return QFileInfo(path).suffix().contains(QLatin1String("rar"));
}

bool KestalDecompressionService::isPasswordProtected(const QString &path)
{
    return ArchiveExtractor::needsPassword(path);
}

QString KestalDecompressionService::targetFolder(const QString &archivePath)
{
    const QFileInfo info(archivePath);
    QString name = info.fileName();
    name.remove(isSevenZip(archivePath) ? QStringLiteral(".7z") : QStringLiteral(".rar"));
    if (name.isEmpty())
        name = info.fileName();
    const QString base = info.absolutePath() + QLatin1Char('/') + name;
    QString target = base;
    for (int n = 1; QFileInfo::exists(target) || QFileInfo(target).isSymLink(); ++n)
        target = base + QLatin1Char(' ') + QString::number(n);
    return target;
}

ArchiveExtractor::Outcome
KestalDecompressionService::extract(const QString &archive, const QString &extraPath,
                                    const QString &password,
                                    const std::function<bool(double)> &progress)
{
    if (!QFileInfo(extraPath).isDir() && !QDir().mkdir(extraPath))
        return {Result::Failed, QStringLiteral("cannot make the folder %1").arg(extraPath), 0};
    ArchiveExtractor::Outcome outcome;
    if (!isPasswordProtected(archive))
        outcome = ArchiveExtractor::extract(archive, extraPath, progress);
    else
        outcome = {Result::NeedsPassword, QStringLiteral("encrypted entries"), 0};
    if (outcome.result == Result::NeedsPassword && !password.isEmpty())
        outcome = ArchiveBackEnd::extract(archive, extraPath, password, progress);
    return outcome;
}

ArchiveExtractor::Outcome
KestalDecompressionService::uncompressionRAR(const QString &password, const QString &rarPath,
                                             const QString &extraPath,
                                             const ProgressCallback &progress)
{
    const ArchiveExtractor::Outcome outcome =
        extract(rarPath, extraPath, password, [&progress](double fraction) {
            // 1.0 is the end's own value: a step that reaches it waits for the end.
            if (progress && fraction < 1.0)
                progress(QString(), fraction);
            return true;
        });
    if (progress)
        progress(QString(), outcome.result == Result::Done ? 1.0 : -1.0);
    return outcome;
}

QString KestalDecompressionService::describe(const ArchiveExtractor::Outcome &outcome)
{
    switch (outcome.result) {
    case Result::Done:
        return QStringLiteral("%1 entries unpacked").arg(outcome.entries);
    case Result::NeedsPassword:
        return QStringLiteral("the archive is encrypted: a password is needed");
    case Result::WrongPassword:
        return QStringLiteral("the password does not open the archive: ") + outcome.detail;
    case Result::Damaged:
        return QStringLiteral("the archive is damaged or truncated: ") + outcome.detail;
    case Result::Unsafe:
        return QStringLiteral("entries refused, nothing written outside the folder: ") +
               outcome.detail;
    case Result::NoSpace:
        return QStringLiteral("the disk is full: ") + outcome.detail;
    case Result::Failed:
        break;
    }
    return outcome.detail;
}
