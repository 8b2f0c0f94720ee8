#include "cli/TerminalText.h"

#include <utility>

namespace {

// The code point that starts at bytes[i], and its length in bytes; a length
// of 0 for a byte that starts no well-formed sequence.
std::pair<char32_t, int> decodeAt(const QByteArray &bytes, qsizetype i)
{
    const uchar lead = uchar(bytes[i]);
    if (lead < 0x80)
        return {lead, 1};
    int length;
    char32_t code;
    char32_t lowest;
    if (lead >= 0xc2 && lead <= 0xdf) {
        length = 2, code = lead & 0x1f, lowest = 0x80;
    } else if ((lead & 0xf0) == 0xe0) {
        length = 3, code = lead & 0x0f, lowest = 0x800;
    } else if (lead >= 0xf0 && lead <= 0xf4) {
        length = 4, code = lead & 0x07, lowest = 0x10000;
    } else {
        return {0, 0};
    }
    if (i + length > bytes.size())
        return {0, 0};
    for (int k = 1; k < length; ++k) {
        const uchar next = uchar(bytes[i + k]);
        if ((next & 0xc0) != 0x80)
            return {0, 0};
        code = (code << 6) | (next & 0x3f);
    }
    if (code < lowest || code > 0x10ffff || (code >= 0xd800 && code <= 0xdfff))
        return {0, 0};
    return {code, length};
}

// Characters a terminal acts on or that change how the text around them
// reads: C0, DEL and C1 controls, the line and paragraph separators, and
// the bidirectional marks, embeddings, overrides and isolates.
bool isActive(char32_t c)
{
    return c < 0x20 || (c >= 0x7f && c <= 0x9f) || c == 0x061c || c == 0x200e || c == 0x200f ||
           (c >= 0x2028 && c <= 0x202e) || (c >= 0x2066 && c <= 0x2069) || c == 0xfeff;
}

QString hex(uint value, int width)
{
    return QStringLiteral("%1").arg(value, width, 16, QLatin1Char('0'));
}

void appendEscaped(QString &out, char32_t c)
{
    switch (c) {
    case '\\':
        out += QLatin1String("\\\\");
        return;
    case '\n':
        out += QLatin1String("\\n");
        return;
    case '\t':
        out += QLatin1String("\\t");
        return;
    case '\r':
        out += QLatin1String("\\r");
        return;
    default:
        break;
    }
    if (c < 0x20 || c == 0x7f)
        out += QLatin1String("\\x") + hex(c, 2);
    else if (isActive(c))
        out += QLatin1String("\\u") + hex(c, 4);
    else
        out += QString::fromUcs4(&c, 1);
}

} // namespace

QString TerminalText::escapedBytes(const QByteArray &bytes)
{
    QString out;
    out.reserve(bytes.size());
    for (qsizetype i = 0; i < bytes.size();) {
        const auto [code, length] = decodeAt(bytes, i);
        if (length == 0) {
            out += QLatin1String("\\x") + hex(uchar(bytes[i]), 2);
            ++i;
            continue;
        }
        appendEscaped(out, code);
        i += length;
    }
    return out;
}

QString TerminalText::escaped(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (const char32_t c : text.toUcs4())
        appendEscaped(out, c);
    return out;
}

bool TerminalText::isUtf8(const QByteArray &bytes)
{
    for (qsizetype i = 0; i < bytes.size();) {
        const int length = decodeAt(bytes, i).second;
        if (length == 0)
            return false;
        i += length;
    }
    return true;
}

QByteArray TerminalText::json(const QJsonDocument &document)
{
    // The writer's output is valid UTF-8, and outside strings it holds only
    // ASCII punctuation, so every character replaced here is inside a string.
    const QByteArray text = document.toJson();
    QByteArray out;
    out.reserve(text.size());
    const char *bytes = text.constData();
    for (qsizetype i = 0; i < text.size();) {
        // Plain ASCII below DEL goes out as it is, a run at a time: a large
        // result is almost all of it.
        qsizetype run = i;
        while (run < text.size() && uchar(bytes[run]) < 0x7f)
            ++run;
        out.append(bytes + i, run - i);
        if ((i = run) >= text.size())
            break;
        const auto [code, length] = decodeAt(text, i);
        // C0 characters stay: the writer escapes them in strings, and its own
        // line breaks and indentation are C0 too.
        if (code >= 0x7f && isActive(code))
            out += "\\u" + hex(code, 4).toLatin1();
        else
            out.append(bytes + i, qMax(length, 1));
        i += qMax(length, 1);
    }
    return out;
}
