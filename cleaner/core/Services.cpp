#include "cleaner/core/Services.h"

#include <QStringDecoder>
#include <optional>

namespace {

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Strict percent decoding: a '%' not followed by two hex digits is a failure.
std::optional<QByteArray> percentDecoded(const QByteArray &in)
{
    QByteArray out;
    out.reserve(in.size());
    for (qsizetype i = 0; i < in.size(); ++i) {
        if (in[i] != '%') {
            out.append(in[i]);
            continue;
        }
        if (i + 2 >= in.size())
            return std::nullopt;
        const int hi = hexValue(in[i + 1]), lo = hexValue(in[i + 2]);
        if (hi < 0 || lo < 0)
            return std::nullopt;
        out.append(char(hi * 16 + lo));
        i += 2;
    }
    return out;
}

QByteArray stripped(const QString &path)
{
    QString s = path;
    s.remove(QStringLiteral("file://"));
    s.replace(QStringLiteral("%20"), QStringLiteral(" "));
    return s.toUtf8();
}

} // namespace

QString Services::handleString(const QString &path)
{
    const auto bytes = percentDecoded(stripped(path));
    if (!bytes)
        return QString();
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder.decode(*bytes);
    return decoder.hasError() ? QString() : text;
}

QByteArray Services::handleBytes(const QString &path)
{
    return percentDecoded(stripped(path)).value_or(QByteArray());
}
