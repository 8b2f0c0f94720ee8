#include "cleaner/shell/KestalAutoCleanupTopOverViewController.h"

#include "cleaner/core/ByteCount.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/status/StatusFigures.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int periodSeconds = 5;

QString localized(const char *key)
{
    return getLocalizedString(QLatin1String(key));
}

} // namespace

KestalAutoCleanupTopOverViewController::KestalAutoCleanupTopOverViewController(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("KestalAutoCleanupTopOverViewController"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 0);
    layout->setSpacing(8);
    // A title over a value each; both wrap, so the window's narrowest width
    // still shows every figure.
    for (int i = 0; i < 5; ++i) {
        auto *plate = new QVBoxLayout;
        plate->setSpacing(2);
        for (bool isTitle : {true, false}) {
            auto *label = new QLabel(this);
            label->setTextFormat(Qt::PlainText);
            label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
            label->setWordWrap(true);
            if (isTitle) {
                QFont bold = label->font();
                bold.setBold(true);
                label->setFont(bold);
            }
            (isTitle ? m_titles : m_values).append(label);
            plate->addWidget(label);
        }
        layout->addLayout(plate, 1);
    }
    m_timer.setInterval(periodSeconds * 1000);
    connect(&m_timer, &QTimer::timeout, this, &KestalAutoCleanupTopOverViewController::drawPlate);
}

void KestalAutoCleanupTopOverViewController::showEvent(QShowEvent *event)
{
    drawPlate();
    m_timer.start();
    QWidget::showEvent(event);
}

void KestalAutoCleanupTopOverViewController::hideEvent(QHideEvent *event)
{
    m_timer.stop();
    QWidget::hideEvent(event);
}

void KestalAutoCleanupTopOverViewController::setPlate(int index, const QString &title,
                                                      const QString &value)
{
    m_titles[index]->setText(title);
    m_values[index]->setText(value);
}

void KestalAutoCleanupTopOverViewController::drawPlate()
{
    const StatusFigures::CPU cpu = StatusFigures::cpu();
    setPlate(0, localized("CPU"),
             localized("Used") + QStringLiteral(" ") + QString::asprintf("%.1f%%", cpu.used));
    const StatusFigures::Memory memory = StatusFigures::memory();
    setPlate(1, localized("Memory"),
             localized("Free") + QStringLiteral(" ") + QString::asprintf("%.2f GB", memory.free));
    const std::optional<StatusFigures::Disk> disk = StatusFigures::disk();
    setPlate(2, disk ? disk->name : localized("Disk"),
             disk
                 ? localized("Available") + QStringLiteral(" ") + ByteCount::string(disk->available)
                 : QStringLiteral("-"));
    const std::optional<StatusFigures::Battery> battery = StatusFigures::battery();
    setPlate(3, localized("Battery"),
             battery ? QStringLiteral("%1%  %2").arg(battery->charge).arg(battery->timeRemaining)
                     : localized("No Battery Service Found"));
    const NetworkRate::Rates rates = getData();
    setPlate(4, localized("Network"),
             QStringLiteral("↑ %1/s  ↓ %2/s")
                 .arg(ByteCount::string(rates.upload), ByteCount::string(rates.download)));
}

QStringList KestalAutoCleanupTopOverViewController::plateTexts() const
{
    QStringList texts;
    for (int i = 0; i < m_titles.size(); ++i)
        texts.append(m_titles[i]->text() + QLatin1Char(' ') + m_values[i]->text());
    return texts;
}
