#include "cleaner/shell/KestalRightTopShowMessageViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int imageSide = 128;

} // namespace

KestalRightTopShowMessageViewController::KestalRightTopShowMessageViewController(int moduleIndex,
                                                                                 QWidget *parent)
    : KestalSuperViewController(parent), m_moduleIndex(moduleIndex)
{
    setObjectName(AppModuleService::appModules().at(moduleIndex).tab +
                  QStringLiteral(" ShowMessage"));
    m_image = new QLabel(this);
    m_image->setFixedSize(imageSide, imageSide);
    m_title = new QLabel(this);
    UIUtil::setTextAttribute(m_title, UIInfo::nsMyUI(QStringLiteral("scandone_title_font")),
                             Qt::AlignHCenter);
    m_message = new QLabel(this);
    m_message->setWordWrap(true);
    UIUtil::setTextAttribute(m_message, UIInfo::nsMyUI(QStringLiteral("scandone_size_font")),
                             Qt::AlignHCenter);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(48, 32, 48, 32);
    layout->setSpacing(12);
    layout->addStretch(1);
    layout->addWidget(m_image, 0, Qt::AlignHCenter);
    layout->addSpacing(8);
    layout->addWidget(m_title);
    layout->addWidget(m_message);
    layout->addStretch(1);
    updateView();
}

void KestalRightTopShowMessageViewController::changeViewStatus(viewStatus status)
{
    m_status = status;
    m_foundSize = CategoryTotals::instanceTotalSize(m_moduleIndex);
    updateView();
}

void KestalRightTopShowMessageViewController::updateView()
{
    const bool empty = m_status == viewStatus::scandone_Empty;
    m_image->setPixmap(ImageStore::pixmap(empty ? QStringLiteral("ScandoneEmpty")
                                                : QStringLiteral("ScandoneNoEmpty"),
                                          QSize(imageSide, imageSide), devicePixelRatioF()));
    m_title->setText(empty ? getLocalizedString(QStringLiteral("Nothing to Clean"))
                           : getLocalizedString(QStringLiteral("Scan Done")));
    m_message->setText(empty ? getLocalizedString(QStringLiteral("Your disk is tidy here."))
                             : getLocalizedString(QStringLiteral("Found ")) +
                                   byteString(m_foundSize));
}
