#include "cleaner/shell/KestalCleaningViewAndLogViewController.h"

#include "cleaner/clean/CleanResults.h"
#include "cleaner/clean/KestalModuleCleanService.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/KestalAutoCleanupService.h"
#include "cleaner/scan/KestalService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"

#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

namespace {

constexpr int rowImageSide = 20;
constexpr int cutLength = 36;

QTreeWidget *makeTable(QWidget *parent, const QString &name)
{
    auto *table = new QTreeWidget(parent);
    table->setObjectName(name);
    table->setColumnCount(2);
    table->setHeaderHidden(true);
    table->setRootIsDecorated(false);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setFocusPolicy(Qt::NoFocus);
    table->setIconSize(QSize(rowImageSide, rowImageSide));
    table->header()->setStretchLastSection(false);
    table->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    table->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    table->setFrameShape(QFrame::NoFrame);
    // Room around each row, as a list of a few lines reads better spaced.
    table->setStyleSheet(QStringLiteral("QTreeWidget::item { padding: 6px 4px; }"));
    return table;
}

// The items of one planned entry that the run did not remove.
QList<const cleanFolder *> failedItems(const cleanFolder &entry)
{
    QList<const cleanFolder *> items;
    if (entry.children.isEmpty())
        items.append(&entry);
    for (const cleanFolder &child : entry.children)
        items.append(&child);
    QList<const cleanFolder *> failed;
    for (const cleanFolder *item : std::as_const(items)) {
        if (item->status != 1 && item->status != 999 && item->folder)
            failed.append(item);
    }
    return failed;
}

// A module without categories yet has nothing to list.
QList<Category> categoriesOf(int moduleIndex)
{
    return AppModuleService::appModules().at(moduleIndex).categories.value_or(QList<Category>());
}

// What the plan says of a category the run reported nothing about: the size
// of what went, and a failure status when something stayed.
std::optional<CleanTriple> outcomeOfPlan(const QList<cleanCategory> &plan, int ci)
{
    std::optional<CleanTriple> found;
    for (const cleanCategory &category : plan) {
        if (category.ci != ci)
            continue;
        found = CleanTriple{999, 0, 0};
        CleanTriple &outcome = *found;
        for (const cleanFolder &entry : category.folders) {
            const QList<const cleanFolder *> failed = failedItems(entry);
            if (!failed.isEmpty())
                outcome.status = failed.first()->status;
            if (entry.children.isEmpty() && (entry.status == 1 || entry.status == 999) &&
                entry.folder) {
                outcome.size += entry.folder->size;
                ++outcome.number;
            }
            for (const cleanFolder &child : entry.children) {
                if ((child.status == 1 || child.status == 999) && child.folder) {
                    outcome.size += child.folder->size;
                    ++outcome.number;
                }
            }
        }
    }
    return found;
}

// Whether the run's plan takes something of the category.
bool isPlanned(const QList<cleanCategory> &plan, int ci)
{
    return std::any_of(plan.begin(), plan.end(), [ci](const cleanCategory &category) {
        return category.ci == ci && !category.folders.isEmpty();
    });
}

bool hasChecked(const Category &category)
{
    return category.state != 0 && (!category.files.isEmpty() || category.size > 0);
}

// The modules whose plans make a module's log: Auto Cleanup's are its children's.
QList<int> logModules(int moduleIndex)
{
    if (moduleIndex != 0)
        return {moduleIndex};
    QList<int> children;
    for (const Category &c : categoriesOf(0)) {
        if (const int child = KestalAutoCleanupService::childModuleIndex(c.title); child >= 0)
            children.append(child);
    }
    return children;
}

} // namespace

KestalCleaningViewAndLogViewController::KestalCleaningViewAndLogViewController(int moduleIndex,
                                                                               QWidget *parent)
    : KestalSuperViewController(parent), m_moduleIndex(moduleIndex)
{
    setObjectName(AppModuleService::appModules().at(moduleIndex).tab +
                  QStringLiteral(" CleaningAndLog"));
    m_title = new QLabel(this);
    UIUtil::setTextAttribute(m_title, UIInfo::nsMyUI(QStringLiteral("scandone_title_font")));
    m_pages = new QStackedWidget(this);
    m_cleanning = makeTable(m_pages, QStringLiteral("cleanningTableView"));
    m_log = makeTable(m_pages, QStringLiteral("logTableView"));
    m_log->setStyleSheet(
        QStringLiteral("QTreeWidget { background: %1; } QTreeWidget::item { padding: 4px; }")
            .arg(UIUtil::cssColor(UIInfo::nsColor(QStringLiteral("log_background_color")))));
    m_pages->addWidget(m_cleanning);
    m_pages->addWidget(m_log);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(48, 32, 48, 24);
    layout->setSpacing(16);
    layout->addWidget(m_title);
    layout->addWidget(m_pages, 1);
    updateView();
}

void KestalCleaningViewAndLogViewController::changeViewStatus(viewStatus status)
{
    m_status = status;
    updateView();
}

void KestalCleaningViewAndLogViewController::updateView()
{
    const bool log = m_status == viewStatus::showLog;
    if (log)
        m_title->setText(getLocalizedString(QStringLiteral("Clean Log")));
    else if (m_status == viewStatus::cleanning)
        m_title->setText(getLocalizedString(QStringLiteral("Cleaning...")));
    else
        m_title->setText(getLocalizedString(QStringLiteral("Clean Done")));
    m_pages->setCurrentWidget(log ? m_log : m_cleanning);
    fillCleanning();
    if (log)
        fillLog();
}

void KestalCleaningViewAndLogViewController::fillCleanning()
{
    m_cleanning->clear();
    const QList<Category> categories = categoriesOf(m_moduleIndex);
    const QHash<int, CleanTriple> results =
        KestalService::cleanningCompletedStatus().value(m_moduleIndex);
    const QSize side(rowImageSide, rowImageSide);
    // After the run the plan is the main thread's to read; it speaks for the
    // categories whose report never came (the helper could not be reached).
    const bool ended = m_status != viewStatus::cleanning;
    const QList<cleanCategory> plan =
        ended ? KestalModuleCleanService::cleanInfoDict().value(m_moduleIndex)
              : QList<cleanCategory>();
    for (qsizetype ci = 0; ci < categories.size(); ++ci) {
        if (m_takenOnly &&
            !(ended ? isPlanned(plan, int(ci))
                    : hasChecked(categories[ci]) || results.value(int(ci)).number > 0))
            continue;
        auto *row = new QTreeWidgetItem(m_cleanning);
        row->setText(0, getLocalizedString(categories[ci].title));
        row->setFont(0, UIInfo::nsFont(QStringLiteral("cleaning_row_title_font")));
        std::optional<CleanTriple> result;
        if (results.contains(int(ci)) && results.value(int(ci)).status != 0)
            result = results.value(int(ci));
        else if (ended)
            result = outcomeOfPlan(plan, int(ci));
        QString image;
        if (!result) {
            // A category with nothing selected shows no progress.
            if (!ended && hasChecked(categories[ci]))
                image = QStringLiteral("Cleanning");
        } else if (result->status == 999) {
            image = QStringLiteral("LogViewSuccess");
            row->setText(1, byteString(result->size));
        } else {
            image = QStringLiteral("LogViewWarnning");
            row->setText(0, row->text(0) + QStringLiteral("  ") +
                                getLocalizedString(QStringLiteral("Failed")));
            row->setText(1, byteString(result->size));
            row->setForeground(0, UIInfo::nsColor(QStringLiteral("error_color")));
        }
        row->setData(0, Qt::UserRole, image);
        row->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        // An empty image keeps the titles of the rows in one column.
        QPixmap picture = image.isEmpty() ? QPixmap(side * devicePixelRatioF())
                                          : ImageStore::pixmap(image, side, devicePixelRatioF());
        if (image.isEmpty())
            picture.fill(Qt::transparent);
        row->setIcon(0, QIcon(picture));
        row->setFont(1, UIInfo::nsFont(QStringLiteral("cleaning_row_title_font")));
    }
}

void KestalCleaningViewAndLogViewController::fillLog()
{
    // Read only after the run's last report: the plan is the clean's own until then.
    m_log->clear();
    for (const int module : logModules(m_moduleIndex)) {
        const QList<Category> categories = categoriesOf(module);
        const QList<cleanCategory> plan = KestalModuleCleanService::cleanInfoDict().value(module);
        for (const cleanCategory &category : plan) {
            QList<const cleanFolder *> failed;
            for (const cleanFolder &entry : category.folders)
                failed += failedItems(entry);
            if (failed.isEmpty())
                continue;
            auto *heading = new QTreeWidgetItem(m_log);
            heading->setText(0, category.ci < categories.size()
                                    ? getLocalizedString(categories[category.ci].title)
                                    : QString());
            QFont headingFont = UIInfo::nsFont(QStringLiteral("cleaning_row_title_font"));
            headingFont.setBold(true);
            heading->setFont(0, headingFont);
            for (const cleanFolder *item : std::as_const(failed)) {
                auto *line = new QTreeWidgetItem(m_log);
                const QString path = Services::handleString(item->folder->absoluteString());
                line->setText(0, cutPath(path));
                line->setToolTip(0, path);
                line->setText(1, cleanFailureReason(item->status));
                line->setFont(0, UIInfo::nsFont(QStringLiteral("log_path_font")));
                line->setFont(1, UIInfo::nsFont(QStringLiteral("log_reason_font")));
                line->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            }
        }
    }
    if (m_log->topLevelItemCount() == 0)
        new QTreeWidgetItem(m_log, {getLocalizedString(QStringLiteral("Nothing failed."))});
}

bool KestalCleaningViewAndLogViewController::hasFailures(int moduleIndex)
{
    const auto results = KestalService::cleanningCompletedStatus().value(moduleIndex);
    for (const CleanTriple &r : results) {
        if (r.status != 999 && r.status != 0)
            return true;
    }
    for (const int module : logModules(moduleIndex)) {
        for (const cleanCategory &category :
             KestalModuleCleanService::cleanInfoDict().value(module)) {
            for (const cleanFolder &entry : category.folders) {
                if (!failedItems(entry).isEmpty())
                    return true;
            }
        }
    }
    return false;
}

QString KestalCleaningViewAndLogViewController::cutPath(const QString &path)
{
    if (path.size() < cutLength)
        return path;
    // The start names the place, the end names the item.
    constexpr int keep = (cutLength - 4) / 2;
    return path.left(keep) + QStringLiteral("...") + path.right(keep);
}
