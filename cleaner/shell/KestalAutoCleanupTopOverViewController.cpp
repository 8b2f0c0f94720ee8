#include "cleaner/shell/KestalAutoCleanupTopOverViewController.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/status/StatusFigures.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

namespace {

constexpr int periodSeconds = 5;

QString localized(const char *key)
{
    return getLocalizedString(QLatin1String(key));
}

QString plate(const QString &title, const QString &value)
{
    return QStringLiteral("<b>%1</b><br>%2").arg(title.toHtmlEscaped(), value.toHtmlEscaped());
}

} // namespace

KestalAutoCleanupTopOverViewController::KestalAutoCleanupTopOverViewController(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("KestalAutoCleanupTopOverViewController"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(48, 16, 48, 0);
    layout->setSpacing(24);
    for (int i = 0; i < 5; ++i) {
        auto *label = new QLabel(this);
        label->setTextFormat(Qt::RichText);
        label->setAlignment(Qt::AlignCenter);
        m_plates.append(label);
        layout->addWidget(label, 1);
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

void KestalAutoCleanupTopOverViewController::drawPlate()
{
    const QLocale locale;
    const StatusFigures::CPU cpu = StatusFigures::cpu();
    m_plates[0]->setText(plate(localized("CPU"), localized("Used") + QStringLiteral(" ") +
                                                     QString::asprintf("%.1f%%", cpu.used)));
    const StatusFigures::Memory memory = StatusFigures::memory();
    m_plates[1]->setText(plate(localized("Memory"), localized("Free") + QStringLiteral(" ") +
                                                        QString::asprintf("%.2f GB", memory.free)));
    const std::optional<StatusFigures::Disk> disk = StatusFigures::disk();
    m_plates[2]->setText(plate(disk ? disk->name : localized("Disk"),
                               disk ? localized("Available") + QStringLiteral(" ") +
                                          locale.formattedDataSize(disk->available)
                                    : QStringLiteral("-")));
    const std::optional<StatusFigures::Battery> battery = StatusFigures::battery();
    m_plates[3]->setText(
        battery ? plate(localized("Battery"),
                        QStringLiteral("%1%  %2").arg(battery->charge).arg(battery->timeRemaining))
                : plate(localized("Battery"), localized("No Battery Service Found")));
    const NetworkRate::Rates rates = getData();
    m_plates[4]->setText(
        plate(localized("Network"), QStringLiteral("↑ %1/s  ↓ %2/s")
                                        .arg(locale.formattedDataSize(rates.upload),
                                             locale.formattedDataSize(rates.download))));
}

QStringList KestalAutoCleanupTopOverViewController::plateTexts() const
{
    QStringList texts;
    for (const QLabel *label : m_plates) {
        QString text = label->text();
        texts.append(text.replace(QLatin1String("<br>"), QLatin1String(" "))
                         .remove(QLatin1String("<b>"))
                         .remove(QLatin1String("</b>")));
    }
    return texts;
}
