#include "helper/NtfsSwitch.h"

#include "cleaner/clean/NtfsStatus.h"
#include "cleaner/core/FileRemoval.h"
#include "helper/HelperLog.h"
#include "helper/NtfsVolume.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <cerrno>
#include <cstring>
#include <pwd.h>
#include <sys/mount.h>
#include <sys/stat.h>

namespace {

// What may be mounted there now: the kernel's drivers, and ntfs-3g, which
// FUSE shows as "fuseblk".
bool ntfsType(const QByteArray &type)
{
    return type == "ntfs" || type == "ntfs3" || type == "fuseblk";
}

QString firstProgram(std::initializer_list<const char *> candidates)
{
    for (const char *c : candidates) {
        if (QFileInfo(QString::fromLatin1(c)).isExecutable())
            return QString::fromLatin1(c);
    }
    return {};
}

int refuse(NtfsStatus status, const QByteArray &mountPoint, const QString &why)
{
    logLine(QStringLiteral("NTFS switch: %1: %2").arg(loggable(mountPoint), why));
    return int(status);
}

} // namespace

NtfsSwitch::NtfsSwitch(std::optional<uid_t> caller) : m_caller(caller) {}

QByteArray NtfsSwitch::driver()
{
    QFile filesystems(QStringLiteral("/proc/filesystems"));
    if (filesystems.open(QIODevice::ReadOnly) && filesystems.readAll().contains("\tntfs3\n"))
        return "ntfs3";
    if (!firstProgram({"/usr/bin/ntfs-3g", "/bin/ntfs-3g"}).isEmpty())
        return "ntfs-3g";
    return {};
}

std::optional<MountEntry> NtfsSwitch::mount(const QByteArray &type, const QByteArray &options,
                                            const MountEntry &was)
{
    const QString program = firstProgram({"/usr/bin/mount", "/bin/mount"});
    QProcess run;
    run.setProcessChannelMode(QProcess::MergedChannels);
    run.start(program, {QStringLiteral("-t"), QString::fromLatin1(type), QStringLiteral("-o"),
                        QString::fromLatin1(options), QString::fromLocal8Bit(was.source),
                        QString::fromLocal8Bit(was.mountPoint)});
    const bool ended = run.waitForFinished(60000);
    if (!ended || run.exitCode() != 0) {
        logLine(QStringLiteral("NTFS switch: mount -t %1 %2: %3")
                    .arg(QString::fromLatin1(type), loggable(was.source),
                         QString::fromLocal8Bit(run.readAll()).trimmed()));
        return std::nullopt;
    }
    const std::optional<MountEntry> now = MountTable::at(MountTable::current(), was.mountPoint);
    return now && now->source == was.source ? now : std::nullopt;
}

int NtfsSwitch::makeWritable(const QByteArray &path) const
{
    const std::optional<QByteArray> mountPoint = FileRemoval::normalized(path);
    const std::optional<MountEntry> entry =
        mountPoint ? MountTable::at(MountTable::current(), *mountPoint) : std::nullopt;
    if (!entry)
        return refuse(NtfsStatus::notMounted, path, QStringLiteral("no volume is mounted there"));
    struct stat st;
    const bool device = ::stat(entry->source.constData(), &st) == 0 && S_ISBLK(st.st_mode);
    const NtfsVolume::State state =
        device ? NtfsVolume::inspect(entry->source) : NtfsVolume::State::NotNtfs;
    if (!ntfsType(entry->fileSystemType) || state == NtfsVolume::State::NotNtfs)
        return refuse(
            NtfsStatus::notNtfs, path,
            QStringLiteral("%1 (%2) is no NTFS volume")
                .arg(loggable(entry->source), QString::fromLatin1(entry->fileSystemType)));
    // The old kernel driver, "ntfs", only reads.
    if (!entry->readOnly && entry->fileSystemType != "ntfs")
        return int(NtfsStatus::writable);
    if (NtfsVolume::hibernated(*mountPoint))
        return refuse(NtfsStatus::hibernated, path, QStringLiteral("Windows is hibernated on it"));
    if (state != NtfsVolume::State::Clean)
        return refuse(NtfsStatus::dirty, path, QStringLiteral("marked dirty, or unreadable"));
    const QByteArray type = driver();
    if (type.isEmpty())
        return refuse(NtfsStatus::noDriver, path, QStringLiteral("no NTFS driver that writes"));

    if (::umount2(mountPoint->constData(), UMOUNT_NOFOLLOW) != 0)
        return refuse(NtfsStatus::busy, path, QString::fromLocal8Bit(strerror(errno)));
    QByteArray options = "rw";
    if (m_caller) {
        // The user who asked owns the files, as on the desktop's own mounts.
        const passwd *pw = getpwuid(*m_caller);
        options += ",uid=" + QByteArray::number(*m_caller) +
                   ",gid=" + QByteArray::number(pw ? pw->pw_gid : *m_caller);
    }
    // The driver that had it may still be letting go of the device
    // (ntfs-3g ends after the unmount): a few tries over five seconds.
    const auto mountAgain = [&entry](const QByteArray &as, const QByteArray &with) {
        std::optional<MountEntry> now;
        for (int attempt = 0; attempt < 20 && !now; ++attempt) {
            if (attempt > 0)
                QThread::msleep(250);
            now = mount(as, with, *entry);
        }
        return now;
    };
    const std::optional<MountEntry> now = mountAgain(type, options);
    if (now && !now->readOnly)
        return int(NtfsStatus::writable);
    // Not mounted at all: put it back as it was, for reading.
    if (!now)
        mountAgain(entry->fileSystemType == "fuseblk" ? QByteArray("ntfs-3g")
                                                      : entry->fileSystemType,
                   "ro");
    return refuse(NtfsStatus::mountFailed, path, QStringLiteral("the driver refused it"));
}
