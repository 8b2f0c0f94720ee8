#pragma once

#include "helper/AllowList.h"

#include <QByteArray>
#include <QString>
#include <optional>

// The helper's removal: absolute paths only, only inside the allow-list, and
// no symbolic link followed on the way to the item or below it. Every refusal
// is logged on standard error.
class SafeRemoval {
public:
    struct Outcome {
        int status;     // 1 removed, else an errorKind number
        QString reason; // why not, for the log
    };

    explicit SafeRemoval(AllowList allowed);
    Outcome remove(const QByteArray &path) const;

    // "/a//b/" -> "/a/b"; nothing for a relative path, an empty name, a NUL,
    // or a "." or ".." step, which could lead a check astray.
    static std::optional<QByteArray> normalized(const QByteArray &path, QString *why);

private:
    AllowList m_allowed;
};
