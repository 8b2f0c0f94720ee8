#include "helper/AllowList.h"

#include "cleaner/core/FileRemoval.h"
#include "helper/MountTable.h"

#include <QFile>
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace {

// Written at build time from the shipped module lists of both profiles.
const char *const kShippedPlaces[] = {
#include "shipped-places-linux.inc"
#include "shipped-places-macos.inc"
    nullptr,
};

// Folders of the system itself: no person's home lies in them, so a home
// there (a service account's) allows nothing.
const char *const kSystemTrees[] = {"/bin",    "/boot", "/dev", "/etc",  "/lib", "/lib32", "/lib64",
                                    "/libx32", "/proc", "/run", "/sbin", "/sys", "/usr"};

std::optional<uid_t> parseUid(const QByteArray &text)
{
    bool ok = false;
    const qulonglong value = text.toULongLong(&ok, 10);
    if (!ok || text.isEmpty() || !std::isdigit(uchar(text.front())) || value != uid_t(value))
        return std::nullopt;
    return uid_t(value);
}

} // namespace

AllowList::AllowList(QList<QByteArray> places, std::optional<uid_t> caller)
    : m_places(std::move(places)), m_caller(caller)
{}

AllowList AllowList::forCaller()
{
    QList<QByteArray> places = shippedPlaces();
    const std::optional<uid_t> caller = callerUid();
    if (caller) {
        if (const QByteArray home = homeOf(*caller); !home.isEmpty())
            places.append(home);
    }
    return AllowList(places, caller);
}

const QList<QByteArray> &AllowList::shippedPlaces()
{
    static const QList<QByteArray> places = [] {
        QList<QByteArray> out;
        for (const char *place : kShippedPlaces) {
            if (place && !out.contains(place))
                out.append(place);
        }
        return out;
    }();
    return places;
}

std::optional<uid_t> AllowList::callerUid()
{
    // A launcher's report counts only when the launcher made this process
    // root; anyone else acts with their own rights whatever they claim.
    if (getuid() != 0)
        return getuid();
    for (const char *name : {"PKEXEC_UID", "SUDO_UID"}) {
        if (qEnvironmentVariableIsSet(name))
            return parseUid(qgetenv(name));
    }
    return uid_t(0);
}

QByteArray AllowList::homeOf(uid_t uid)
{
    errno = 0;
    const passwd *pw = getpwuid(uid);
    if (!pw || !pw->pw_dir)
        return {};
    const auto home = FileRemoval::normalized(pw->pw_dir);
    if (!home || *home == "/" || *home == "/nonexistent")
        return {};
    return isSystemPath(*home) ? QByteArray() : *home;
}

QList<QByteArray> AllowList::mountPoints(const QByteArray &mountinfo)
{
    QList<QByteArray> mounts;
    for (const MountEntry &entry : MountTable::parse(mountinfo))
        mounts.append(entry.mountPoint);
    return mounts;
}

QList<QByteArray> AllowList::volumeTrashes(const QList<QByteArray> &mounts,
                                           std::optional<uid_t> user)
{
    QList<QByteArray> trashes;
    for (const QByteArray &mount : mounts) {
        const auto clean = FileRemoval::normalized(mount);
        if (!clean)
            continue;
        const QByteArray base = *clean == "/" ? QByteArray() : *clean;
        if (user)
            trashes.append(base + "/.Trash-" + QByteArray::number(*user));
        trashes.append(base + "/.Trashes");
    }
    return trashes;
}

bool AllowList::isSystemPath(const QByteArray &path)
{
    return std::any_of(std::begin(kSystemTrees), std::end(kSystemTrees), [&](const char *tree) {
        return path == tree || isStrictlyInside(path, tree);
    });
}

bool AllowList::isStrictlyInside(const QByteArray &path, const QByteArray &place)
{
    return path.size() > place.size() + 1 && path.startsWith(place) && path.at(place.size()) == '/';
}

std::optional<QString> AllowList::refusal(const QByteArray &path) const
{
    const auto inside = [&path](const QList<QByteArray> &places) {
        return std::any_of(places.begin(), places.end(),
                           [&](const QByteArray &p) { return isStrictlyInside(path, p); });
    };
    if (inside(m_places))
        return std::nullopt;
    // Volumes come and go while the helper lives: read the table at each check.
    QFile table(QStringLiteral("/proc/self/mountinfo"));
    const QList<QByteArray> trashes = volumeTrashes(
        mountPoints(table.open(QIODevice::ReadOnly) ? table.readAll() : QByteArray()), m_caller);
    if (inside(trashes))
        return std::nullopt;
    if (m_places.contains(path) || trashes.contains(path))
        return QStringLiteral("an allowed place itself, not an item inside one");
    return QStringLiteral("outside the places the helper may remove from");
}
