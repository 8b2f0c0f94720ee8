#include "helper/SafeRemoval.h"

#include "cleaner/clean/CleanProtocols.h"
#include "cleaner/core/FileRemoval.h"

#include <cstdio>
#include <pwd.h>

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
        if (pw->pw_dir) {
            if (const auto home = FileRemoval::normalized(pw->pw_dir))
                m_protected.insert(*home);
        }
    }
    endpwent();
}

bool SafeRemoval::isProtected(const QByteArray &path) const
{
    return path == "/" || path.count('/') == 1 || m_protected.contains(path);
}

SafeRemoval::Outcome SafeRemoval::remove(const QByteArray &path, const ItemIdentity &expected) const
{
    const int failed = int(errorKind::delete_);
    const auto clean = FileRemoval::normalized(path);
    QString why;
    if (!clean)
        why = QStringLiteral("not an absolute path without \".\" or \"..\" steps");
    else if (isProtected(*clean))
        why = QStringLiteral("its removal would break the system");
    else if (!expected.isKnown())
        why = QStringLiteral("no record of what the scan saw there");
    if (!why.isEmpty()) {
        logLine(QStringLiteral("refused %1: %2").arg(shown(path), why));
        return {failed, why};
    }
    const FileRemoval::Result result = FileRemoval::removeListed(*clean, expected);
    if (result.removed())
        return {int(errorKind::success), QString()};
    why = result.reason();
    logLine(QStringLiteral("cannot remove %1: %2").arg(shown(*clean), why));
    return {failed, why};
}
