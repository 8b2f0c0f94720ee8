#pragma once

#include "cleaner/core/ItemIdentity.h"

#include <QByteArray>
#include <QSet>
#include <QString>
#include <optional>

// One line of the helper's log, on standard error.
void logLine(const QString &text);

// The helper's removal: absolute paths only, never a path whose removal would
// break the system, and then the program's one removal routine, which follows
// no link and takes the item only while it is what the scan saw. Every
// refusal is logged on standard error.
class SafeRemoval {
public:
    struct Outcome {
        int status;     // 1 removed, else an errorKind number
        QString reason; // why not, for the log
    };

    SafeRemoval();
    Outcome remove(const QByteArray &path, const ItemIdentity &expected) const;

    bool isProtected(const QByteArray &normalizedPath) const;

private:
    QSet<QByteArray> m_protected;
};
