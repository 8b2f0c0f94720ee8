#pragma once

#include <QByteArray>
#include <QJsonDocument>
#include <QString>

// Names and paths come from the disk and may hold anything but "/" and NUL.
// Before one reaches a terminal or a plain listing, every character that
// could move the cursor, start an escape sequence, break a line or reorder
// text is written as a visible escape, and so is every byte that is not
// UTF-8. A backslash is doubled, so the escaped text maps back to exactly
// one name.
class TerminalText {
public:
    // Raw bytes (a path, a name) as safe text: "\n", "\t", "\x1b", "\xff",
    // "\u009b", "\u202e", "\\".
    static QString escapedBytes(const QByteArray &bytes);
    // Text that is already decoded (titles, the walk's display paths).
    static QString escaped(const QString &text);
    // Whether bytes are well-formed UTF-8 (no overlong forms, no surrogates).
    static bool isUtf8(const QByteArray &bytes);
    // A document as JSON text in which the characters that a JSON writer may
    // leave bare but a terminal would act on (DEL, C1, bidirectional
    // controls, line separators) are \u escapes: the same values, inert text.
    static QByteArray json(const QJsonDocument &document);
};
