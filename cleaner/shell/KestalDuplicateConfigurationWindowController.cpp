#include "cleaner/shell/KestalDuplicateConfigurationWindowController.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

const QString windowIdentifier = QStringLiteral("DuplicateConfiguration");

} // namespace

KestalDuplicateConfigurationWindowController::KestalDuplicateConfigurationWindowController(
    QWidget *parent)
    : KestalSuperViewController(parent)
{
    setObjectName(windowIdentifier);
    setWindowFlag(Qt::Window);
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedWidth(420);
    m_title = new QLabel(this);
    m_title->setWordWrap(true);
    UIUtil::setTextAttribute(m_title, UIInfo::nsMyUI(QStringLiteral("scandone_title_font")));
    m_text = new QLabel(this);
    m_text->setWordWrap(true);
    UIUtil::setTextAttribute(m_text, UIInfo::nsMyUI(QStringLiteral("module_description_font")));
    m_value = new QLineEdit(this);
    m_value->setObjectName(QStringLiteral("bottomEnterValueTextField"));
    m_value->setMinimumHeight(34);
    m_value->setText(QString::number(DuplicateService::size));
    m_ok = new QPushButton(this);
    m_ok->setMinimumSize(96, 34);
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this,
            &KestalDuplicateConfigurationWindowController::saveAndCloseAction);
    connect(m_value, &QLineEdit::returnPressed, this,
            &KestalDuplicateConfigurationWindowController::saveAndCloseAction);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 20);
    layout->setSpacing(14);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    layout->addWidget(m_value);
    layout->addWidget(m_ok, 0, Qt::AlignRight);
    reloadTexts();
}

void KestalDuplicateConfigurationWindowController::reloadTexts()
{
    const QString title = getLocalizedString(QStringLiteral("Duplicate Finder Configuration"));
    setWindowTitle(title);
    m_title->setText(title);
    m_text->setText(getLocalizedString(QStringLiteral(
        "File in ***kb smaller than the below value will be automatically skipped.")));
    UIUtil::setBtnAttribute(m_ok, getLocalizedString(QStringLiteral("OK")),
                            UIInfo::nsMyUI(QStringLiteral("primary_button_gradual_font")));
}

KestalDuplicateConfigurationWindowController *
KestalDuplicateConfigurationWindowController::duplicateConfigureAction()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *open = qobject_cast<KestalDuplicateConfigurationWindowController *>(window)) {
            open->show();
            open->raise();
            open->activateWindow();
            return open;
        }
    }
    auto *window = new KestalDuplicateConfigurationWindowController;
    window->show();
    return window;
}

bool KestalDuplicateConfigurationWindowController::saveAndCloseAction()
{
    if (!DuplicateService::saveConfiguration(m_value->text())) {
        showAlert(DuplicateService::notIntegerMessage(), true);
        return false;
    }
    FabricController::fabric(FabricEvent::configurationEvent,
                             QStringLiteral("Duplicate size %1").arg(DuplicateService::size));
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName().contains(windowIdentifier))
            window->close();
    }
    return true;
}
