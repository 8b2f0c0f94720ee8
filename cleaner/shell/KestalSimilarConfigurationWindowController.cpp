#include "cleaner/shell/KestalSimilarConfigurationWindowController.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/SimilarService.h"
#include "cleaner/shell/FabricController.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

const QString windowIdentifier = QStringLiteral("SimilarConfiguration");

void logThreshold()
{
    FabricController::fabric(FabricEvent::configurationEvent,
                             QStringLiteral("Similar threshold %1").arg(SimilarService::threshold));
}

} // namespace

KestalSimilarConfigurationWindowController::KestalSimilarConfigurationWindowController(
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
    m_choices = new QComboBox(this);
    m_choices->setObjectName(QStringLiteral("sortPopBtn"));
    m_choices->setEditable(true);
    m_choices->setInsertPolicy(QComboBox::NoInsert);
    m_choices->setMinimumHeight(34);
    connect(m_choices, &QComboBox::activated, this,
            &KestalSimilarConfigurationWindowController::sortAction);
    connect(m_choices->lineEdit(), &QLineEdit::returnPressed, this,
            &KestalSimilarConfigurationWindowController::saveAndCloseAction);
    m_ok = new QPushButton(this);
    m_ok->setMinimumSize(96, 34);
    m_ok->setDefault(true);
    connect(m_ok, &QPushButton::clicked, this,
            &KestalSimilarConfigurationWindowController::saveAndCloseAction);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 20);
    layout->setSpacing(14);
    layout->addWidget(m_title);
    layout->addWidget(m_text);
    layout->addWidget(m_choices);
    layout->addWidget(m_ok, 0, Qt::AlignRight);
    reloadTexts();
}

void KestalSimilarConfigurationWindowController::reloadTexts()
{
    const QString title = getLocalizedString(QStringLiteral("Similar Image Finder Configuration"));
    setWindowTitle(title);
    m_title->setText(title);
    m_text->setText(getLocalizedString(
        QStringLiteral("The default value is 3, the large the value, the more similar images "
                       "will be found.")));
    UIUtil::setBtnAttribute(m_ok, getLocalizedString(QStringLiteral("OK")),
                            UIInfo::nsMyUI(QStringLiteral("primary_button_gradual_font")));
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
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName().contains(windowIdentifier))
            window->close();
    }
    return true;
}

KestalSimilarConfigurationWindowController *
KestalSimilarConfigurationWindowController::similarConfigureAction()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *open = qobject_cast<KestalSimilarConfigurationWindowController *>(window)) {
            open->show();
            open->raise();
            open->activateWindow();
            return open;
        }
    }
    auto *window = new KestalSimilarConfigurationWindowController;
    window->show();
    return window;
}
