#pragma once

#include "cleaner/core/ItemIdentity.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <optional>

// How an extension is switched off and on: it moves between the folder where
// it is used and a disabled place beside that folder ("<folder>.disabled"),
// and back. Only the privileged helper moves; the application asks it.
class FileMove {
public:
    static QByteArray disabledFolder(const QByteArray &folder);
    // Where the item at path goes when toggled: "F/name" to "F.disabled/name"
    // and back, for F one of the configured folders (normalised, absolute).
    // Nothing when the item lies directly in none of them.
    static std::optional<QByteArray> toggledPath(const QByteArray &path,
                                                 const QList<QByteArray> &folders);

    struct Result {
        bool moved = false;
        QString reason; // why not
    };
    // Moves the item (a link as itself) from one absolute path to another,
    // opening every folder on the way without following links, and only
    // while it is still `expected` when that is known. Never replaces an
    // item at the target. A missing target folder is made, owned like the
    // item's own folder.
    static Result move(const QByteArray &from, const QByteArray &to, const ItemIdentity &expected);
};
