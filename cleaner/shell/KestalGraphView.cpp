#include "cleaner/shell/KestalGraphView.h"

#include "cleaner/core/ByteCount.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/status/Battery.h"
#include "cleaner/status/StatusFigures.h"

#include <QPainter>

namespace {

QString localized(const char *key)
{
    return getLocalizedString(QLatin1String(key));
}

const QColor usedColor(0x4a, 0x90, 0xe2);
const QColor userColor(0x2c, 0x6f, 0xbb);
const QColor wiredColor(0xe2, 0x6d, 0x4a);
const QColor compressedColor(0xb5, 0x5d, 0xd6);
const QColor freeColor(0x7e, 0xd3, 0x21);
const QColor emptyColor(0xd8, 0xdc, 0xe0);

QString percentText(double value)
{
    return QString::asprintf("%.1f", value) + QLatin1Char('%');
}

QString gigabytesText(double value)
{
    return QString::asprintf("%.2f", value) + QStringLiteral(" GB");
}

QString bytesText(qint64 bytes)
{
    return ByteCount::string(bytes);
}

} // namespace

KestalGraphView::KestalGraphView(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(200, 120);
}

void KestalGraphView::paintEvent(QPaintEvent *)
{
    ++m_drawCount;
    m_lines.clear();
    m_segments.clear();
    readFigures();

    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRect area = rect().adjusted(10, 8, -10, -8);
    QFont titleFont = font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.15);
    p.setFont(titleFont);
    p.setPen(palette().color(QPalette::WindowText));
    // A long title ("No Battery Service Found") wraps rather than being cut.
    const int titleHeight =
        QFontMetrics(titleFont)
            .boundingRect(QRect(0, 0, area.width(), area.height()), Qt::TextWordWrap, m_title)
            .height();
    p.drawText(QRect(area.left(), area.top(), area.width(), titleHeight),
               Qt::AlignLeft | Qt::TextWordWrap, m_title);

    // The bar: the segments in order, the rest empty.
    int y = area.top() + titleHeight + 6;
    if (!m_segments.isEmpty()) {
        const QRectF bar(area.left(), y, area.width(), 10);
        p.setPen(Qt::NoPen);
        p.setBrush(emptyColor);
        p.drawRoundedRect(bar, 4, 4);
        double x = bar.left();
        for (const Segment &s : std::as_const(m_segments)) {
            const double w = bar.width() * std::clamp(s.percent, 0.0, 100.0) / 100;
            p.setBrush(s.color);
            p.drawRect(QRectF(x, bar.top(), w, bar.height()));
            x += w;
        }
        y += 18;
    }
    p.setFont(font());
    p.setPen(palette().color(QPalette::WindowText));
    const int lineHeight = fontMetrics().height();
    for (const QString &line : std::as_const(m_lines)) {
        p.drawText(QRect(area.left(), y, area.width(), lineHeight), Qt::AlignLeft, line);
        y += lineHeight + 2;
    }
}

void KestalCPUView::readFigures()
{
    // Averages since boot, from the counters as they stand.
    const StatusFigures::CPU cpu = StatusFigures::cpu();
    m_title = localized("CPU");
    m_lines << QString::number(cpu.cores) + localized(" Cores")
            << localized("User") + QStringLiteral(": ") + percentText(cpu.user)
            << localized("Used") + QStringLiteral(": ") + percentText(cpu.used)
            << localized("Available") + QStringLiteral(": ") + percentText(cpu.available);
    m_segments << Segment{cpu.user, userColor} << Segment{cpu.used - cpu.user, usedColor};
}

void KestalMemoryView::readFigures()
{
    const StatusFigures::Memory m = StatusFigures::memory();
    m_title = localized("Memory");
    m_lines << localized("Free") + QStringLiteral(": ") + gigabytesText(m.free)
            << localized("Available") + QStringLiteral(": ") + gigabytesText(m.available);
    if (m.total <= 0)
        return;
    auto share = [&m](double gb) { return gb / m.total * 100; };
    m_segments << Segment{share(m.parts.wired), wiredColor}
               << Segment{share(m.parts.active + m.parts.inactive), usedColor}
               << Segment{share(m.parts.compressed), compressedColor}
               << Segment{share(m.free), freeColor};
}

void KestalDiskView::readFigures()
{
    m_title = localized("Disk");
    const std::optional<StatusFigures::Disk> disk = StatusFigures::disk();
    if (!disk)
        return;
    m_title = disk->name;
    m_lines << localized("Used") + QStringLiteral(": ") + bytesText(disk->used)
            << localized("Available") + QStringLiteral(": ") + bytesText(disk->available);
    if (disk->capacity > 0)
        m_segments << Segment{double(disk->used) / double(disk->capacity) * 100, usedColor};
}

KestalBatteryView::KestalBatteryView(QWidget *parent) : KestalGraphView(parent)
{
    Battery battery;
    batteryIsOpen = battery.open() == Battery::kIOReturnSuccess ? 1 : 0;
    battery.close();
}

void KestalBatteryView::readFigures()
{
    const std::optional<StatusFigures::Battery> b = StatusFigures::battery();
    if (!b) {
        m_title = localized("No Battery Service Found");
        return;
    }
    m_title = localized("Battery");
    m_lines << percentText(b->charge) + QStringLiteral("  ") + b->timeRemaining
            << localized("Charge Cycles") + QStringLiteral(": ") + QString::number(b->cycles)
            << QString::number(b->currentCapacity) + QStringLiteral(" / ") +
                   QString::number(b->maxCapacity) + QStringLiteral(" mAh");
    m_segments << Segment{b->charge, b->charging ? freeColor : usedColor};
}
