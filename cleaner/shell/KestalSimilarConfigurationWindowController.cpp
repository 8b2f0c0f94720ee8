#include "cleaner/shell/KestalSimilarConfigurationWindowController.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/SimilarService.h"
#include "cleaner/shell/FabricController.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalBlocker>

namespace {

void logThreshold()
{
    FabricController::fabric(FabricEvent::configurationEvent,
                             QStringLiteral("Similar threshold %1").arg(SimilarService::threshold));
}

} // namespace

KestalSimilarConfigurationWindowController::KestalSimilarConfigurationWindowController(
    QWidget *parent)
    : KestalConfigurationWindowController(QStringLiteral("SimilarConfiguration"), parent)
{
    m_choices = new QComboBox(this);
    m_choices->setObjectName(QStringLiteral("sortPopBtn"));
    m_choices->setEditable(true);
    m_choices->setInsertPolicy(QComboBox::NoInsert);
    setField(m_choices);
    connect(m_choices, &QComboBox::activated, this,
            &KestalSimilarConfigurationWindowController::sortAction);
    connect(m_choices->lineEdit(), &QLineEdit::returnPressed, this,
            &KestalSimilarConfigurationWindowController::saveAndCloseAction);
    reloadTexts();
}

void KestalSimilarConfigurationWindowController::reloadTexts()
{
    setTexts(QStringLiteral("Similar Image Finder Configuration"),
             QStringLiteral("The default value is 3, the large the value, the more similar "
                            "images will be found."));
    const QSignalBlocker blocker(m_choices);
    m_choices->clear();
    for (const qint64 choice : SimilarService::thresholdChoices())
        m_choices->addItem(getLocalizedString(QString::number(choice)), choice);
    const int current = m_choices->findData(SimilarService::threshold);
    if (current >= 0)
        m_choices->setCurrentIndex(current);
    else
        m_choices->setEditText(QString::number(SimilarService::threshold));
}

std::optional<qint64> KestalSimilarConfigurationWindowController::thresholdOf(const QString &text)
{
    bool isNumber = false;
    const qint64 value = text.trimmed().toLongLong(&isNumber);
    if (!isNumber || value < 1 || value > greatestThreshold)
        return std::nullopt;
    return value;
}

void KestalSimilarConfigurationWindowController::sortAction()
{
    const int chosen = m_choices->currentIndex();
    SimilarService::threshold =
        chosen < 0 ? defaultThreshold
                   : thresholdOf(m_choices->itemText(chosen)).value_or(defaultThreshold);
    logThreshold();
}

bool KestalSimilarConfigurationWindowController::saveAndCloseAction()
{
    const std::optional<qint64> value = thresholdOf(m_choices->currentText());
    if (!value) {
        showAlert(getLocalizedString(
                      QStringLiteral("The threshold can only be a whole number from 1 to 64")),
                  true);
        return false;
    }
    SimilarService::threshold = *value;
    logThreshold();
    closeAll();
    return true;
}

KestalSimilarConfigurationWindowController *
KestalSimilarConfigurationWindowController::similarConfigureAction()
{
    return showOrRaise<KestalSimilarConfigurationWindowController>();
}
