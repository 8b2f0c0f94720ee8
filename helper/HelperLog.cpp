#include "helper/HelperLog.h"

#include <QStringDecoder>
#include <cstdio>

void logLine(const QString &text)
{
    std::fprintf(stderr, "brenlow-helper: %s\n", text.toUtf8().constData());
}

QString loggable(const QByteArray &path)
{
    QString out;
    const auto put = [&out](char16_t code, bool escaped) {
        if (escaped)
            out += QStringLiteral("\\x%1").arg(uint(code), 2, 16, QLatin1Char('0'));
        else if (code == u'\\')
            out += QStringLiteral("\\\\");
        else
            out += QChar(code);
    };
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = utf8.decode(path);
    if (!utf8.hasError()) {
        for (const QChar c : text)
            put(c.unicode(), c.category() == QChar::Other_Control);
    } else {
        for (const char byte : path)
            put(uchar(byte), uchar(byte) < 0x20 || uchar(byte) >= 0x7f);
    }
    return out;
}
