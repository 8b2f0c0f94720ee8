#include "helper/SafeRemoval.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/FileRemoval.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

void logLine(const QString &text)
{
    std::fprintf(stderr, "brenlow-helper: %s\n", text.toLocal8Bit().constData());
}

namespace {

QString shown(const QByteArray &path)
{
    return QString::fromLocal8Bit(path);
}

} // namespace

SafeRemoval::SafeRemoval()
{
    // Folders one level below the root are all protected (see isProtected);
    // these are the system's own folders one level further down.
    for (const char *p :
         {"/usr/bin",       "/usr/sbin",     "/usr/lib",     "/usr/lib32",   "/usr/lib64",
          "/usr/libexec",   "/usr/include",  "/usr/share",   "/usr/local",   "/usr/src",
          "/var/lib",       "/var/log",      "/var/cache",   "/var/spool",   "/var/tmp",
          "/var/mail",      "/var/backups",  "/var/crash",   "/etc/default", "/etc/pam.d",
          "/etc/sudoers.d", "/etc/polkit-1", "/etc/systemd", "/boot/efi"})
        m_protected.insert(p);
    // Every account's home, the user's own among them.
    setpwent();
    while (const passwd *pw = getpwent()) {
        QString why;
        if (pw->pw_dir) {
            if (const auto home = normalized(pw->pw_dir, &why))
                m_protected.insert(*home);
        }
    }
    endpwent();
}

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

bool SafeRemoval::isProtected(const QByteArray &path) const
{
    return path == "/" || path.count('/') == 1 || m_protected.contains(path);
}

SafeRemoval::Outcome SafeRemoval::remove(const QByteArray &path) const
{
    const int failed = int(errorKind::delete_);
    QString why;
    const auto clean = normalized(path, &why);
    if (!clean) {
        logLine(QStringLiteral("refused %1: %2").arg(shown(path), why));
        return {failed, why};
    }
    if (isProtected(*clean)) {
        why = QStringLiteral("its removal would break the system");
        logLine(QStringLiteral("refused %1: %2").arg(shown(*clean), why));
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
        logLine(QStringLiteral("cannot reach %1: %2").arg(shown(*clean), why));
        return {failed, why};
    }
    const int error = FileRemoval::removeItemAt(fd, steps.last());
    close(fd);
    if (error == 0)
        return {int(errorKind::success), QString()};
    why = QString::fromLocal8Bit(std::strerror(error));
    logLine(QStringLiteral("cannot remove %1: %2").arg(shown(*clean), why));
    return {failed, why};
}
