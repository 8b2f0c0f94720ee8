#include "cleaner/shell/KestalFirstLoginViewController.h"

#include "cleaner/core/SettingInfo.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/AppDelegate.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/NetworkUtil.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"
#include "cleaner/shell/Workspace.h"

#include <QHBoxLayout>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace {

constexpr int imageSide = 72;

QPushButton *windowButton(QWidget *parent)
{
    auto *button = new QPushButton(parent);
    button->setMinimumHeight(34);
    return button;
}

} // namespace

KestalFirstLoginViewController::KestalFirstLoginViewController(QWidget *parent)
    : KestalSuperViewController(parent)
{
    setObjectName(QStringLiteral("firstLoginWindow"));
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(
        QStringLiteral("#firstLoginWindow { background: %1; }")
            .arg(UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("right_top_bg_color")))));
    setFixedWidth(440);

    m_image = new QLabel(this);
    m_image->setFixedSize(imageSide, imageSide);
    m_image->setPixmap(ImageStore::pixmap(QStringLiteral("Brenlow"), QSize(imageSide, imageSide),
                                          devicePixelRatioF()));
    m_title = new QLabel(this);
    m_title->setWordWrap(true);
    UIUtil::setTextAttribute(m_title, UIInfo::nsMyUI(QStringLiteral("first_login_title_font")),
                             Qt::AlignHCenter);
    m_text = new QLabel(this);
    m_text->setWordWrap(true);
    UIUtil::setTextAttribute(m_text, UIInfo::nsMyUI(QStringLiteral("module_description_font")),
                             Qt::AlignHCenter);
    m_email = new QLineEdit(this);
    m_email->setMinimumHeight(34);
    m_email->setClearButtonEnabled(true);

    m_send = windowButton(this);
    m_home = windowButton(this);
    m_launch = windowButton(this);
    connect(m_send, &QPushButton::clicked, this, &KestalFirstLoginViewController::sendEmailAction);
    connect(m_email, &QLineEdit::returnPressed, this,
            &KestalFirstLoginViewController::sendEmailAction);
    connect(m_home, &QPushButton::clicked, this, &KestalFirstLoginViewController::homeAction);
    connect(m_launch, &QPushButton::clicked, this, &KestalFirstLoginViewController::launchAction);

    auto *emailRow = new QHBoxLayout;
    emailRow->setSpacing(8);
    emailRow->addWidget(m_email, 1);
    emailRow->addWidget(m_send);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(m_home);
    buttons->addStretch(1);
    buttons->addWidget(m_launch);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(32, 28, 32, 24);
    layout->setSpacing(12);
    layout->addWidget(m_image, 0, Qt::AlignHCenter);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    layout->addSpacing(8);
    layout->addLayout(emailRow);
    layout->addSpacing(12);
    layout->addLayout(buttons);
    reloadTexts();
}

void KestalFirstLoginViewController::reloadTexts()
{
    setWindowTitle(getLocalizedString(QStringLiteral("Hi! Nice to Meet You - Brenlow")));
    m_title->setText(getLocalizedString(QStringLiteral("Hi! Nice to Meet You")));
    m_text->setText(getLocalizedString(QStringLiteral("Thank you for installing!")));
    m_email->setPlaceholderText(getLocalizedString(QStringLiteral("Enter your email")));
    UIUtil::setBtnAttribute(m_send, getLocalizedString(QStringLiteral("Subscribe")),
                            UIInfo::nsMyUI(QStringLiteral("primary_button_gradual_font")));
    const MyUI &secondary = UIInfo::nsMyUI(QStringLiteral("secondary_button_font"));
    const QColor border = UIInfo::nsColor(QStringLiteral("secondary_button_border_color"));
    UIUtil::setBtnStyle(m_home, getLocalizedString(QStringLiteral("Visit Our Website")), border,
                        secondary);
    UIUtil::setBtnStyle(m_launch, getLocalizedString(QStringLiteral("Launch Brenlow")), border,
                        secondary);
    m_home->setVisible(!SettingInfo::valueOf(QStringLiteral("home_link")).isEmpty());
}

bool KestalFirstLoginViewController::isValidAddress(const QString &address)
{
    static const QRegularExpression pattern(
        QStringLiteral("^([a-z0-9_\\.-]+)@([\\da-z\\.-]+)\\.([a-z\\.]{2,6})$"));
    return pattern.match(address).hasMatch();
}

void KestalFirstLoginViewController::sendEmailAction()
{
    const QString address = m_email->text();
    if (address.isEmpty()) {
        UIUtil::dialogInfo(getLocalizedString(QStringLiteral("ERROR")),
                           getLocalizedString(QStringLiteral("The email address can't be empty!")));
        return;
    }
    if (!isValidAddress(address)) {
        UIUtil::dialogInfo(getLocalizedString(QStringLiteral("ERROR")),
                           getLocalizedString(QStringLiteral("The input format is incorrect!")));
        return;
    }
    m_send->setEnabled(false);
    UIUtil::dialogInfo(getLocalizedString(QStringLiteral("Success")),
                       getLocalizedString(QStringLiteral("Thanks for Subscribing!")));
    const QByteArray json = QJsonDocument(QJsonObject{{QStringLiteral("email"), address}})
                                .toJson(QJsonDocument::Compact);
    QPointer<KestalFirstLoginViewController> self(this);
    // A failed send is not shown: the address was taken kindly either way.
    NetworkUtil::ConnectionJSRequest(
        QUrl(SettingInfo::valueOf(QStringLiteral("sendEmail_link"))), QString::fromUtf8(json),
        [self](const QVariantMap &answer) {
            if (self)
                emit self->subscriptionAnswered(answer);
        },
        this);
}

void KestalFirstLoginViewController::homeAction()
{
    Workspace::openURL(QUrl(SettingInfo::valueOf(QStringLiteral("home_link"))));
}

void KestalFirstLoginViewController::launchAction()
{
    close();
    if (AppDelegate::appDelegate)
        AppDelegate::appDelegate->applicationShouldHandleReopen(false);
}
