#include "cleaner/shell/KestalEraserCleaningViewAndLogViewController.h"

#include "cleaner/clean/CleanResults.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/erasure/ShredService.h"
#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"

#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

KestalEraserCleaningViewAndLogViewController::KestalEraserCleaningViewAndLogViewController(
    QWidget *parent)
    : KestalSuperViewController(parent)
{
    setObjectName(QStringLiteral("shredCleaningAndLog"));
    m_title = new QLabel(this);
    m_table = new QTreeWidget(this);
    m_table->setColumnCount(2);
    m_table->setRootIsDecorated(false);
    m_table->setHeaderHidden(true);
    m_table->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_table->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_table->header()->setStretchLastSection(false);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 12);
    layout->addWidget(m_title);
    layout->addWidget(m_table, 1);
}

void KestalEraserCleaningViewAndLogViewController::changeViewStatus(viewStatus status)
{
    m_status = status;
    m_table->clear();
    const QMap<QString, int> &failures = ShredService::shredFailures();
    const bool log = status == viewStatus::showLog;
    m_title->setText(log ? getLocalizedString(QStringLiteral("Not shredded"))
                         : getLocalizedString(status == viewStatus::cleanning
                                                  ? QStringLiteral("Cleaning...")
                                                  : QStringLiteral("Clean Done")));
    const QStyle::StandardPixmap running = QStyle::SP_BrowserReload;
    for (auto it = ShredService::shredFileStatus().begin();
         it != ShredService::shredFileStatus().end(); ++it) {
        const bool failed = failures.contains(it.key());
        if (log && !failed)
            continue;
        auto *row = new QTreeWidgetItem(m_table);
        row->setText(0, KestalCleaningViewAndLogViewController::cutPath(it.key()));
        row->setToolTip(0, it.key());
        QStyle::StandardPixmap icon = running;
        if (status != viewStatus::cleanning)
            icon = failed ? QStyle::SP_MessageBoxWarning : QStyle::SP_DialogApplyButton;
        row->setIcon(0, style()->standardIcon(icon));
        if (failed)
            row->setText(1, cleanFailureReason(failures.value(it.key())));
        else if (status != viewStatus::cleanning)
            row->setText(1, byteString(ShredService::shredFilePathAndSize().value(it.key())));
    }
}
