#include "helper/SafeRemoval.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/FileRemoval.h"
#include "helper/HelperLog.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

SafeRemoval::SafeRemoval(AllowList allowed) : m_allowed(std::move(allowed)) {}

std::optional<QByteArray> SafeRemoval::normalized(const QByteArray &path, QString *why)
{
    if (!path.startsWith('/')) {
        *why = QStringLiteral("not an absolute path");
        return std::nullopt;
    }
    if (path.contains('\0')) {
        *why = QStringLiteral("a NUL byte in the path");
        return std::nullopt;
    }
    QByteArray out;
    for (const QByteArray &step : path.split('/')) {
        if (step.isEmpty())
            continue;
        if (step == "." || step == "..") {
            *why = QStringLiteral("a \".\" or \"..\" step in the path");
            return std::nullopt;
        }
        out += '/' + step;
    }
    return out.isEmpty() ? QByteArray("/") : out;
}

SafeRemoval::Outcome SafeRemoval::remove(const QByteArray &path) const
{
    const int failed = int(errorKind::delete_);
    QString why;
    const auto clean = normalized(path, &why);
    if (clean) {
        if (const auto refused = m_allowed.refusal(*clean))
            why = *refused;
    }
    if (!why.isEmpty()) {
        logLine(QStringLiteral("refused %1: %2").arg(loggable(path), why));
        return {failed, why};
    }
    // Open each folder on the way relative to the one before, refusing links,
    // so that the path checked above is the path acted on.
    const QList<QByteArray> steps = clean->mid(1).split('/');
    int fd = open("/", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    for (qsizetype i = 0; fd >= 0 && i + 1 < steps.size(); ++i) {
        const int next =
            openat(fd, steps[i].constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
        const int error = errno;
        close(fd);
        fd = next;
        errno = error;
    }
    if (fd < 0) {
        const int error = errno;
        why = error == ELOOP || error == ENOTDIR
                  ? QStringLiteral("a step of the path is not a folder or is a symbolic link")
                  : QString::fromLocal8Bit(std::strerror(error));
        logLine(QStringLiteral("cannot reach %1: %2").arg(loggable(*clean), why));
        return {failed, why};
    }
    const int error = FileRemoval::removeItemAt(fd, steps.last());
    close(fd);
    if (error == 0)
        return {int(errorKind::success), QString()};
    why = QString::fromLocal8Bit(std::strerror(error));
    logLine(QStringLiteral("cannot remove %1: %2").arg(loggable(*clean), why));
    return {failed, why};
}
