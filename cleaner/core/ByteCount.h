#pragma once

#include <QString>

// Sizes and counts as every screen, the command line and the log print them:
// the desktop's decimal units (1 kB = 1000 bytes), one decimal, the decimal
// sign of the interface language; below 1 kB the bytes themselves.
class ByteCount {
public:
    // "45.0 MB", "45,0 MB" in German, "999 bytes".
    static QString string(qint64 bytes);
    // "3 items, 45.0 MB" ("1 item, ...").
    static QString itemsAndSize(qint64 items, qint64 bytes);
    // What a clean is about to remove, for its confirmation.
    static QString removalSummary(qint64 items, qint64 bytes);
};
