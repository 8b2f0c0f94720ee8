#include "cleaner/shell/KestalFinderDetailViewControllers.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/finders/KestalLargeAndOldFileServices.h"
#include "cleaner/finders/SimilarService.h"
#include "cleaner/shell/KestalImagePreview.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalBlocker>
#include <QTreeView>

namespace {

using Kind = DuplicateService::duplicateKind;

// The pop-up's order: every group first, then the kinds in their own order.
const Kind kindOrder[] = {Kind::all,   Kind::video,     Kind::music,
                          Kind::image, Kind::documents, Kind::other};

// Only the empty category has no type: every group has one ("other" at least).
bool isEmptyCategory(const Category &c)
{
    return c.type.isEmpty();
}

std::pair<Kind, QString> kindEntry(Kind kind)
{
    return DuplicateService::duplicateId().value(qint64(kind), {kind, QString()});
}

} // namespace

KestalDetailViewController *KestalFinderDetailViewControllers::create(int moduleIndex,
                                                                      QWidget *parent)
{
    if (moduleIndex == DuplicateService::moduleIndex)
        return new KestalDuplicateTopDetailViewController(parent);
    if (moduleIndex == KestalLargeAndOldFileServices::moduleIndex)
        return new KestalLargeAndOldFileTopDetailViewController(parent);
    if (moduleIndex == SimilarService::moduleIndex)
        return new KestalSimilarTopDetailViewController(parent);
    return nullptr;
}

KestalDuplicateTopDetailViewController::KestalDuplicateTopDetailViewController(QWidget *parent)
    : KestalDetailViewController(DuplicateService::moduleIndex, parent)
{
    m_kinds = new QComboBox(this);
    m_kinds->setObjectName(QStringLiteral("popUpKindButton"));
    m_kinds->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    // Changes made here block the signal; what comes is the user's choice.
    connect(m_kinds, &QComboBox::currentIndexChanged, this,
            [this](int item) { popUpKindAction(Kind(m_kinds->itemData(item).toInt())); });
    topRow()->insertWidget(1, m_kinds); // beside the back button
    // A group is drawn with its files' type icon; an empty kind says so in its row.
    categoryModel()->setIsRealImage(true);
    fileModel()->setEmptyRowText(DuplicateService::emptyFileName);
    // The copies share their name: each row names its folder, cut in the middle.
    fileModel()->setShowsFolder(true);
    rightOutlineView()->setTextElideMode(Qt::ElideMiddle);
    fillKinds();
}

void KestalDuplicateTopDetailViewController::reloadTexts()
{
    fillKinds();
    KestalDetailViewController::reloadTexts();
}

void KestalDuplicateTopDetailViewController::reloadData()
{
    // Every group first; the kinds are sorted in the background for the pop-up.
    DuplicateService::duplicateKindCategory().clear();
    popUpKindAction(Kind::all);
    QPointer<KestalDuplicateTopDetailViewController> self(this);
    DuplicateService::fasterFilterFile([self] {
        if (self)
            self->fillKinds();
    });
}

void KestalDuplicateTopDetailViewController::popUpKindAction(Kind kind)
{
    DuplicateService::currentKind() = kindEntry(kind);
    DuplicateService::filterFile(kind);
    const QList<Category> shown = DuplicateService::duplicateKindCategory().value(kind);
    const bool none = shown.size() == 1 && isEmptyCategory(shown.first());
    if (kind == Kind::all)
        categoryModel()->setFilter({});
    else
        categoryModel()->setFilter(
            [kind](const Category &c) { return DuplicateService::kindOfType(c.type) == kind; });
    categoryModel()->setPlaceholder(none ? std::optional<Category>(shown.first()) : std::nullopt);
    KestalDetailViewController::reloadData();
    const QSignalBlocker blocker(m_kinds);
    m_kinds->setCurrentIndex(m_kinds->findData(int(kind)));
}

void KestalDuplicateTopDetailViewController::fillKinds()
{
    const QSignalBlocker blocker(m_kinds);
    const Kind current = DuplicateService::currentKind().first;
    const auto &sorted = DuplicateService::duplicateKindCategory();
    m_kinds->clear();
    for (Kind kind : kindOrder) {
        QString label = kindEntry(kind).second.trimmed();
        // Counted once the groups were sorted into kinds.
        if (sorted.contains(kind)) {
            const QList<Category> &groups = sorted[kind];
            const bool none = groups.size() == 1 && isEmptyCategory(groups.first());
            label += QStringLiteral(" (%1)").arg(none ? 0 : groups.size());
        }
        m_kinds->addItem(label, int(kind));
    }
    m_kinds->setCurrentIndex(m_kinds->findData(int(current)));
}

KestalLargeAndOldFileTopDetailViewController::KestalLargeAndOldFileTopDetailViewController(
    QWidget *parent)
    : KestalDetailViewController(KestalLargeAndOldFileServices::moduleIndex, parent)
{}

void KestalLargeAndOldFileTopDetailViewController::propagateSelection()
{
    // Every category that lists a ticked node shows it ticked.
    for (Category &c : AppModuleService::categoriesOf(KestalLargeAndOldFileServices::moduleIndex))
        c.state = AppModuleService::calculateParentState(c.files);
    categoryModel()->allCategoriesChanged();
    fileModel()->checksChanged();
}

KestalSimilarTopDetailViewController::KestalSimilarTopDetailViewController(QWidget *parent)
    : KestalDetailViewController(SimilarService::moduleIndex, parent)
{
    fileModel()->sort(QString(), QStringLiteral("order"));
    fileModel()->setLeadMark(QStringLiteral("Key picture"));
    fileModel()->setEmptyRowText(SimilarService::emptyFileName);
    m_preview = new KestalImagePreview(QSize(320, 200), this);
    panesLayout()->addWidget(m_preview, 3, 1, Qt::AlignCenter);
    connect(rightOutlineView()->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &KestalSimilarTopDetailViewController::previewCurrentFile);
    previewCurrentFile();
}

void KestalSimilarTopDetailViewController::reloadData()
{
    // A scan that found no group stored the empty category: it is shown as
    // the placeholder, with no box to tick.
    const QList<Category> &groups = AppModuleService::categoriesOf(SimilarService::moduleIndex);
    const bool none = groups.size() == 1 && isEmptyCategory(groups.first());
    categoryModel()->setFilter(none ? [](const Category &) { return false; }
                                    : std::function<bool(const Category &)>());
    categoryModel()->setPlaceholder(none ? std::optional<Category>(groups.first()) : std::nullopt);
    KestalDetailViewController::reloadData();
}

void KestalSimilarTopDetailViewController::previewCurrentFile()
{
    const FolderInfoPtr file = fileModel()->fileAt(rightOutlineView()->currentIndex());
    m_preview->showPicture(file ? file->url.toLocalFile() : QString());
}
