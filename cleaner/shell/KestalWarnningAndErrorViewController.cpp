#include "cleaner/shell/KestalWarnningAndErrorViewController.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int imageSide = 48;
constexpr int windowWidth = 380;

} // namespace

bool KestalWarnningAndErrorViewController::isWarnning = false;
QString KestalWarnningAndErrorViewController::desc;

KestalWarnningAndErrorViewController::KestalWarnningAndErrorViewController(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("WarnAndErrorWindow"));
    setFixedWidth(windowWidth);
    m_image = new QLabel(this);
    m_image->setFixedSize(imageSide, imageSide);
    m_title = new QLabel(this);
    UIUtil::setTextAttribute(m_title, UIInfo::nsMyUI(QStringLiteral("scandone_title_font")));
    m_description = new QLabel(this);
    m_description->setWordWrap(true);
    UIUtil::setTextAttribute(m_description,
                             UIInfo::nsMyUI(QStringLiteral("module_description_font")));
    m_ok = new QPushButton(this);
    m_ok->setMinimumWidth(96);
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this, &KestalWarnningAndErrorViewController::okAction);

    auto *head = new QHBoxLayout;
    head->setSpacing(16);
    head->addWidget(m_image);
    head->addWidget(m_title, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 20);
    layout->setSpacing(16);
    layout->addLayout(head);
    layout->addWidget(m_description);
    layout->addWidget(m_ok, 0, Qt::AlignRight);
    viewWillAppear();
}

KestalWarnningAndErrorViewController *KestalWarnningAndErrorViewController::open(QWidget *parent)
{
    auto *window = new KestalWarnningAndErrorViewController(parent);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->QDialog::open();
    return window;
}

void KestalWarnningAndErrorViewController::showEvent(QShowEvent *event)
{
    viewWillAppear();
    QDialog::showEvent(event);
}

void KestalWarnningAndErrorViewController::viewWillAppear()
{
    const QString title = isWarnning ? getLocalizedString(QStringLiteral("Warn"))
                                     : getLocalizedString(QStringLiteral("Info"));
    setWindowTitle(title);
    m_title->setText(title);
    m_image->setPixmap(
        ImageStore::pixmap(isWarnning ? QStringLiteral("Warn") : QStringLiteral("Info"),
                           QSize(imageSide, imageSide), devicePixelRatioF()));
    m_description->setText(desc);
    UIUtil::setBtnAttribute(m_ok, getLocalizedString(QStringLiteral("OK")),
                            UIInfo::nsMyUI(QStringLiteral("primary_button_gradual_font")));
}
