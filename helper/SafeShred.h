#pragma once

#include "helper/AllowList.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>
#include <sys/stat.h>

// The helper's shredding of one file: it reaches the file by opening every
// folder from "/" without following a link, overwrites its whole length with
// random data, flushes it to the device, renames it to a random name in the
// same folder, truncates it and removes it.
//
// Only regular files with a single name are shredded: a link, a device, a
// FIFO, a folder or a file with other hard links is refused, and so is any
// path in a folder of the system. A path is taken only where the allow-list
// permits its removal, or where the calling user could remove it with their
// own rights (their identity, not the helper's).
class SafeShred {
public:
    struct Outcome {
        int status = 0; // 1 shredded, else shredFail or moreFail
        qint64 size = 0;
        QString reason; // why not, for the log
    };

    // The rights of a user, as the kernel would weigh them for that user.
    struct Rights {
        uid_t uid = 0;
        gid_t gid = 0;
        QList<gid_t> groups;

        static std::optional<Rights> of(uid_t uid);
        // Whether the rights grant every bit of `want` (R_OK, W_OK, X_OK) on the item.
        bool grants(const struct stat &st, int want) const;
        // Whether these rights remove an entry of the folder (write and search
        // rights, and in a sticky folder ownership of the folder or the item).
        bool canRemoveFrom(const struct stat &folder, const struct stat &item) const;
    };

    explicit SafeShred(AllowList allowed);
    Outcome shred(const QByteArray &path) const;

    // The size of the blocks written, and the passes made.
    static constexpr qint64 blockSize = 1 << 20;

private:
    AllowList m_allowed;
    std::optional<Rights> m_caller;
};
