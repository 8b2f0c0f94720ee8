#include "cleaner/shell/KestalFinderBottomViewControllers.h"

#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/DuplicateService.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"
#include "cleaner/finders/SimilarService.h"
#include "cleaner/shell/ElidedLabel.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QDir>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QPushButton>

KestalRightBottomViewController *
KestalFinderBottomViewControllers::create(int moduleIndex, KestalRightSplitController *split,
                                          QWidget *parent)
{
    if (moduleIndex == DuplicateService::moduleIndex)
        return new KestalDuplicateBottomViewController(split, parent);
    if (moduleIndex == KestalLargeAndOldFileServices::moduleIndex)
        return new KestalLargeAndOldFileBottomViewController(split, parent);
    if (moduleIndex == SimilarService::moduleIndex)
        return new KestalSimilarBottomController(split, parent);
    return nullptr;
}

KestalRootChoosingBottomViewController::KestalRootChoosingBottomViewController(
    int moduleIndex, Chooser chooser, KestalRightSplitController *split, QWidget *parent)
    : KestalRightBottomViewController(moduleIndex, split, parent), m_chooser(chooser)
{
    m_scanPath = new ElidedLabel(this);
    m_scanPath->setObjectName(QStringLiteral("scanPathTextField"));
    UIUtil::setTextAttribute(m_scanPath, UIInfo::nsMyUI(QStringLiteral("bottom_status_font")));
    m_choosePath = new QPushButton(this);
    m_choosePath->setObjectName(QStringLiteral("choosePathBtn"));
    m_choosePath->setMinimumHeight(40); // as tall as the bar's other buttons
    connect(m_choosePath, &QPushButton::clicked, this,
            &KestalRootChoosingBottomViewController::updateScanPathAction);
    // The folder stands before the status line and the buttons.
    auto *row = static_cast<QHBoxLayout *>(layout());
    row->insertWidget(0, m_scanPath, 1);
    row->insertWidget(1, m_choosePath);
    reloadTexts();
}

void KestalRootChoosingBottomViewController::reloadTexts()
{
    UIUtil::setBtnStyle(m_choosePath, getLocalizedString(QString::fromUtf8(m_chooser.button)),
                        UIInfo::nsColor(QStringLiteral("secondary_button_border_color")),
                        UIInfo::nsMyUI(QStringLiteral("secondary_button_font")));
    // The layout never squeezes the title below its width in this language.
    m_choosePath->setMinimumWidth(m_choosePath->sizeHint().width());
    KestalRightBottomViewController::reloadTexts();
}

void KestalRootChoosingBottomViewController::changeViewStatus(viewStatus status)
{
    KestalRightBottomViewController::changeViewStatus(status);
    // Before a scan, or after one that found nothing, another folder may be chosen.
    const bool choosing = status == viewStatus::overview || status == viewStatus::scandone_Empty;
    m_scanPath->setVisible(choosing);
    m_choosePath->setVisible(choosing);
    m_scanPath->setFullText(getLocalizedString(QStringLiteral("Folder: ")) +
                            QDir::toNativeSeparators(m_chooser.path()));
}

bool KestalRootChoosingBottomViewController::updateScanPathAction()
{
    const QString chosen = QFileDialog::getExistingDirectory(
        window(), getLocalizedString(QString::fromUtf8(m_chooser.dialogTitle)), m_chooser.path());
    if (chosen.isEmpty())
        return false; // cancelled: the folder stays
    m_chooser.path() = QDir::cleanPath(chosen);
    changeViewStatus(status());
    return true;
}

void KestalRootChoosingBottomViewController::cleanDone(bool success, qint64 size, int number)
{
    // The removed files left their groups.
    m_chooser.updateCategory();
    KestalRightBottomViewController::cleanDone(success, size, number);
}

KestalDuplicateBottomViewController::KestalDuplicateBottomViewController(
    KestalRightSplitController *split, QWidget *parent)
    : KestalRootChoosingBottomViewController(DuplicateService::moduleIndex,
                                             {&DuplicateService::path, "Choose Folder…",
                                              "Choose the folder to search for duplicates",
                                              &DuplicateService::updateCategory},
                                             split, parent)
{}

KestalSimilarBottomController::KestalSimilarBottomController(KestalRightSplitController *split,
                                                             QWidget *parent)
    : KestalRootChoosingBottomViewController(SimilarService::moduleIndex,
                                             {&SimilarService::path, "Change Photo Library",
                                              "Choose the folder to search for similar images",
                                              &SimilarService::updateCategory},
                                             split, parent)
{}

KestalLargeAndOldFileBottomViewController::KestalLargeAndOldFileBottomViewController(
    KestalRightSplitController *split, QWidget *parent)
    : KestalRightBottomViewController(KestalLargeAndOldFileServices::moduleIndex, split, parent)
{}

void KestalLargeAndOldFileBottomViewController::runClean(
    const std::shared_ptr<KestalCleanProtocol> &recorder)
{
    const int module = moduleIndex();
    Dispatch::globalAsync([module, recorder] {
        KestalModuleCleanService::largeAndOldAnalysisModule(module, recorder);
    });
}

void KestalLargeAndOldFileBottomViewController::cleanDone(bool success, qint64 size, int number)
{
    // A file removed from one category is gone from the other one as well.
    KestalLargeAndOldFileServices::filterInfoList();
    KestalRightBottomViewController::cleanDone(success, size, number);
}
