#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>
#include <sys/types.h>

// Where the helper may remove: only strictly inside an allowed place, never a
// place itself. The places are the system folders the shipped module lists
// name (compiled in when the helper is built), the home of the user who
// started the helper, and the trash folders of the mounted volumes.
//
// Paths are compared as normalised strings (absolute, no "." or ".." step):
// the removal reaches its item by opening every folder from "/" without
// following a link, so the string checked here is the path acted on.
class AllowList {
public:
    // The places for the user who started this process.
    static AllowList forCaller();
    // Fixed places (normalised), and the user whose volume trash folders count.
    AllowList(QList<QByteArray> places, std::optional<uid_t> caller);

    // Why the normalised path may not be removed; nothing when it may.
    std::optional<QString> refusal(const QByteArray &path) const;

    const QList<QByteArray> &places() const { return m_places; }
    // The user the helper acts for (nothing when a launcher's report was unreadable).
    std::optional<uid_t> caller() const { return m_caller; }

    // The system places written from the module lists at build time.
    static const QList<QByteArray> &shippedPlaces();
    // The user who started the helper, as pkexec (PKEXEC_UID) or sudo
    // (SUDO_UID) report it when they made it root, else the real user. Nothing
    // when a launcher's report cannot be read.
    static std::optional<uid_t> callerUid();
    // The user's home from the password database; empty when it can hold no
    // item of the user's own ("/", "/nonexistent", a system folder).
    static QByteArray homeOf(uid_t uid);
    // The mount points of a mountinfo table, their octal escapes decoded.
    static QList<QByteArray> mountPoints(const QByteArray &mountinfo);
    // The trash folders of those mount points that belong to the user.
    static QList<QByteArray> volumeTrashes(const QList<QByteArray> &mounts,
                                           std::optional<uid_t> user);
    static bool isStrictlyInside(const QByteArray &path, const QByteArray &place);
    // Whether the normalised path is a folder of the system itself or lies in
    // one (/etc, /usr, /proc, ...).
    static bool isSystemPath(const QByteArray &path);

private:
    QList<QByteArray> m_places;
    std::optional<uid_t> m_caller;
};
