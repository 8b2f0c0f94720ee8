#pragma once

#include "cleaner/core/ItemIdentity.h"
#include "helper/AllowList.h"

#include <QByteArray>
#include <QString>

// The helper's removal: absolute paths only, only inside the allow-list, and
// then the program's one removal routine, which follows no link and takes the
// item only while it is what the scan saw. Every refusal is logged on
// standard error.
class SafeRemoval {
public:
    struct Outcome {
        int status;     // 1 removed, else an errorKind number
        QString reason; // why not, for the log
    };

    explicit SafeRemoval(AllowList allowed);
    Outcome remove(const QByteArray &path, const ItemIdentity &expected) const;

private:
    AllowList m_allowed;
};
