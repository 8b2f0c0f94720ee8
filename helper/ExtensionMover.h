#pragma once

#include "cleaner/core/FileMove.h"

#include <QByteArray>
#include <QList>
#include <optional>
#include <sys/types.h>

// The helper's side of switching an extension off and on: an item moves
// between a folder of the extensions module and the disabled place beside
// it, and back. The folders are the module list's, compiled in when the
// helper is built; those in the home are the caller's. Anything else is
// refused, and so is a move onto an existing item.
class ExtensionMover {
public:
    // The folders for the user who started this process.
    static ExtensionMover forCaller();
    explicit ExtensionMover(QList<QByteArray> folders);

    // The compiled-in folders, "~/..." for the caller's home.
    static const QList<QByteArray> &shippedFolders();
    // Those folders with "~" read as home; home-relative ones are dropped
    // when there is no home.
    static QList<QByteArray> resolved(const QList<QByteArray> &folders, const QByteArray &home);

    FileMove::Result move(const QByteArray &path, const ItemIdentity &expected) const;
    const QList<QByteArray> &folders() const { return m_folders; }

private:
    QList<QByteArray> m_folders;
};
