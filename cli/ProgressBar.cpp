#include "cli/ProgressBar.h"

#include "cleaner/core/ByteCount.h"
#include "cli/TerminalText.h"

#include <cstdio>
#include <unistd.h>

ProgressBar::ProgressBar() : m_enabled(isatty(STDERR_FILENO))
{
    m_sinceDraw.start();
}

void ProgressBar::update(double fraction, qint64 bytes, const QString &path)
{
    if (!m_enabled || (m_drawn && m_sinceDraw.elapsed() < 100))
        return;
    m_sinceDraw.restart();
    m_drawn = true;
    fraction = std::clamp(fraction, 0.0, 1.0);
    constexpr int width = 30;
    const int filled = int(fraction * width);
    const QString bar =
        QString(filled, QLatin1Char('#')) + QString(width - filled, QLatin1Char('-'));
    QString shown = TerminalText::escaped(path);
    if (shown.size() > 40)
        shown = QStringLiteral("...") + shown.right(37);
    const QString line = QStringLiteral("\r[%1] %2% %3  %4")
                             .arg(bar)
                             .arg(int(fraction * 100), 3)
                             .arg(ByteCount::string(bytes), 10)
                             .arg(shown, -40);
    std::fputs(line.toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
}

void ProgressBar::finish()
{
    if (m_enabled && m_drawn) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
    }
}
