#include "cleaner/shell/KestalRightTopOverViewAndScanViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ElidedLabel.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalAutoCleanupTopOverViewController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace {

constexpr int imageSide = 176;
constexpr int featureIconSide = 22;

QLabel *styledLabel(const QString &style, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setWordWrap(true);
    UIUtil::setTextAttribute(label, UIInfo::nsMyUI(style));
    return label;
}

} // namespace

KestalRightTopOverViewAndScanViewController::KestalRightTopOverViewAndScanViewController(
    int moduleIndex, QWidget *parent)
    : KestalSuperViewController(parent), m_moduleIndex(moduleIndex)
{
    const Module &module = AppModuleService::appModules().at(moduleIndex);
    setObjectName(module.tab + QStringLiteral(" OverViewAndScan"));

    m_image = new QLabel(this);
    m_image->setFixedSize(imageSide, imageSide);
    m_image->setPixmap(
        ImageStore::pixmap(module.image, QSize(imageSide, imageSide), devicePixelRatioF()));

    m_title = styledLabel(QStringLiteral("module_title_font"), this);
    m_description = styledLabel(QStringLiteral("module_description_font"), this);

    m_features = new QWidget(this);
    auto *featureLayout = new QVBoxLayout(m_features);
    featureLayout->setContentsMargins(0, 8, 0, 0);
    featureLayout->setSpacing(10);
    for (const Feature &feature : module.features) {
        auto *row = new QHBoxLayout;
        row->setSpacing(10);
        auto *icon = new QLabel(m_features);
        icon->setFixedSize(featureIconSide, featureIconSide);
        icon->setPixmap(ImageStore::pixmap(feature.image, QSize(featureIconSide, featureIconSide),
                                           devicePixelRatioF()));
        auto *text = styledLabel(QStringLiteral("module_feature_font"), m_features);
        m_featureTexts.append(text);
        row->addWidget(icon, 0, Qt::AlignTop);
        row->addWidget(text, 1);
        featureLayout->addLayout(row);
    }

    m_scanning = new QWidget(this);
    auto *scanLayout = new QVBoxLayout(m_scanning);
    scanLayout->setContentsMargins(0, 12, 0, 0);
    scanLayout->setSpacing(8);
    m_progress = new QProgressBar(m_scanning);
    m_progress->setRange(0, 1000);
    m_progress->setTextVisible(false);
    m_progress->setFixedHeight(8);
    m_progress->setStyleSheet(
        QStringLiteral("QProgressBar { background: %1; border: none; border-radius: 4px; }"
                       "QProgressBar::chunk { background: %2; border-radius: 4px; }")
            .arg(UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("progress_track_color"))),
                 UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("progress_fill_color")))));
    m_pathLabel = new ElidedLabel(m_scanning);
    UIUtil::setTextAttribute(m_pathLabel, UIInfo::nsMyUI(QStringLiteral("scanning_path_font")));
    scanLayout->addWidget(m_progress);
    scanLayout->addWidget(m_pathLabel);

    auto *textBox = new QWidget(this);
    textBox->setMaximumWidth(520);
    auto *text = new QVBoxLayout(textBox);
    text->setContentsMargins(0, 0, 0, 0);
    text->setSpacing(8);
    text->addWidget(m_title);
    text->addWidget(m_description);
    text->addWidget(m_features);
    text->addWidget(m_scanning);

    auto *layout = new QHBoxLayout;
    if (moduleIndex == 0) {
        // Auto Cleanup's overview opens with the machine's dashboard.
        auto *column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->addWidget(new KestalAutoCleanupTopOverViewController(this));
        column->addLayout(layout, 1);
    } else {
        setLayout(layout);
    }
    layout->setContentsMargins(48, 32, 48, 32);
    layout->setSpacing(36);
    layout->addStretch(1);
    layout->addWidget(m_image, 0, Qt::AlignVCenter);
    layout->addWidget(textBox, 3, Qt::AlignVCenter);
    layout->addStretch(1);

    updateView();
}

void KestalRightTopOverViewAndScanViewController::changeViewStatus(viewStatus status)
{
    m_status = status;
    if (status == viewStatus::scanning) {
        m_percent = 0;
        m_pathLabel->setFullText(QString());
        m_scanDescription.clear();
    }
    updateView();
}

void KestalRightTopOverViewAndScanViewController::updateProgress(float percent)
{
    m_percent = qBound(0.0f, percent, 100.0f);
    m_progress->setValue(int(m_percent * 10));
}

void KestalRightTopOverViewAndScanViewController::updateDescription(const QString &text)
{
    m_scanDescription = text;
    updateView();
}

void KestalRightTopOverViewAndScanViewController::updatePath(const QString &path)
{
    m_pathLabel->setFullText(path);
}

void KestalRightTopOverViewAndScanViewController::updateView()
{
    const Module &module = AppModuleService::appModules().at(m_moduleIndex);
    const bool scanning = m_status == viewStatus::scanning;
    m_title->setText(scanning ? getLocalizedString(QStringLiteral("Scanning"))
                              : getLocalizedString(module.title));
    if (scanning) {
        m_description->setText(m_scanDescription.isEmpty() ? getLocalizedString(module.description)
                                                           : getLocalizedString(m_scanDescription));
    } else {
        m_description->setText(getLocalizedString(module.description));
    }
    for (qsizetype i = 0; i < m_featureTexts.size(); ++i)
        m_featureTexts[i]->setText(getLocalizedString(module.features.at(i).description));
    m_features->setVisible(!scanning);
    m_scanning->setVisible(scanning);
    m_progress->setValue(int(m_percent * 10));
}
