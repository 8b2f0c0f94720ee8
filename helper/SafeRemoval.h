#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>
#include <optional>

// One line of the helper's log, on standard error.
void logLine(const QString &text);

// The helper's removal: absolute paths only, no symbolic link followed on the
// way to the item or below it, and never a path whose removal would break the
// system. Every refusal is logged on standard error.
class SafeRemoval {
public:
    struct Outcome {
        int status;     // 1 removed, else an errorKind number
        QString reason; // why not, for the log
    };

    SafeRemoval();
    Outcome remove(const QByteArray &path) const;

    // "/a//b/" -> "/a/b"; nothing for a relative path, an empty name, a NUL,
    // or a "." or ".." step, which could lead a check astray.
    static std::optional<QByteArray> normalized(const QByteArray &path, QString *why);
    bool isProtected(const QByteArray &normalizedPath) const;

private:
    QSet<QByteArray> m_protected;
};
