#include "cleaner/shell/KestalConfigurationWindowController.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

KestalConfigurationWindowController::KestalConfigurationWindowController(const QString &identifier,
                                                                         QWidget *parent)
    : KestalSuperViewController(parent)
{
    setObjectName(identifier);
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedWidth(420);
    m_title = new QLabel(this);
    m_title->setWordWrap(true);
    UIUtil::setTextAttribute(m_title, UIInfo::nsMyUI(QStringLiteral("scandone_title_font")));
    m_text = new QLabel(this);
    m_text->setWordWrap(true);
    UIUtil::setTextAttribute(m_text, UIInfo::nsMyUI(QStringLiteral("module_description_font")));
    m_ok = new QPushButton(this);
    m_ok->setMinimumSize(96, 34);
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this,
            &KestalConfigurationWindowController::saveAndCloseAction);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 20);
    layout->setSpacing(14);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    layout->addWidget(m_ok, 0, Qt::AlignRight);
}

void KestalConfigurationWindowController::setField(QWidget *field)
{
    field->setMinimumHeight(34);
    static_cast<QVBoxLayout *>(layout())->insertWidget(2, field);
}

void KestalConfigurationWindowController::setTexts(const QString &title, const QString &text)
{
    setWindowTitle(getLocalizedString(title));
    m_title->setText(windowTitle());
    m_text->setText(getLocalizedString(text));
    UIUtil::setBtnAttribute(m_ok, getLocalizedString(QStringLiteral("OK")),
                            UIInfo::nsMyUI(QStringLiteral("primary_button_gradual_font")));
}

void KestalConfigurationWindowController::closeAll()
{
    const QString identifier = objectName();
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName().contains(identifier))
            window->close();
    }
}
