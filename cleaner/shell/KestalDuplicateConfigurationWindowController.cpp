#include "cleaner/shell/KestalDuplicateConfigurationWindowController.h"

#include "cleaner/finders/DuplicateService.h"
#include "cleaner/shell/FabricController.h"

#include <QLineEdit>

KestalDuplicateConfigurationWindowController::KestalDuplicateConfigurationWindowController(
    QWidget *parent)
    : KestalConfigurationWindowController(QStringLiteral("DuplicateConfiguration"), parent)
{
    m_value = new QLineEdit(this);
    setField(m_value);
    m_value->setObjectName(QStringLiteral("bottomEnterValueTextField"));
    m_value->setText(QString::number(DuplicateService::size));
    connect(m_value, &QLineEdit::returnPressed, this,
            &KestalDuplicateConfigurationWindowController::saveAndCloseAction);
    reloadTexts();
}

void KestalDuplicateConfigurationWindowController::reloadTexts()
{
    setTexts(QStringLiteral("Duplicate Finder Configuration"),
             QStringLiteral(
                 "File in ***kb smaller than the below value will be automatically skipped."));
}

KestalDuplicateConfigurationWindowController *
KestalDuplicateConfigurationWindowController::duplicateConfigureAction()
{
    return showOrRaise<KestalDuplicateConfigurationWindowController>();
}

bool KestalDuplicateConfigurationWindowController::saveAndCloseAction()
{
    if (!DuplicateService::saveConfiguration(m_value->text())) {
        showAlert(DuplicateService::notIntegerMessage(), true);
        return false;
    }
    FabricController::fabric(FabricEvent::configurationEvent,
                             QStringLiteral("Duplicate size %1").arg(DuplicateService::size));
    closeAll();
    return true;
}
