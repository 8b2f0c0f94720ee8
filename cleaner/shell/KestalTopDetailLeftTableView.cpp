#include "cleaner/shell/KestalTopDetailLeftTableView.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalSuperViewController.h"

#include <algorithm>

namespace {

const QList<Category> &categoriesOf(int moduleIndex)
{
    // A module without categories (a module to come) shows an empty pane.
    static const QList<Category> none;
    const Module &module = AppModuleService::appModules().at(moduleIndex);
    return module.categories ? *module.categories : none;
}

} // namespace

KestalTopDetailLeftTableView::KestalTopDetailLeftTableView(int moduleIndex, QObject *parent)
    : QAbstractTableModel(parent), m_moduleIndex(moduleIndex)
{
    m_rows = filteredAndSorted();
}

QList<int> KestalTopDetailLeftTableView::filteredAndSorted() const
{
    const QList<Category> &categories = categoriesOf(m_moduleIndex);
    QList<int> order;
    for (int ci = 0; ci < categories.size(); ++ci) {
        if (m_keep && !m_keep(categories[ci]))
            continue;
        if (m_keywords.isEmpty() ||
            getLocalizedString(categories[ci].title).contains(m_keywords, Qt::CaseInsensitive))
            order.append(ci);
    }
    if (m_sortby.isEmpty())
        return order;
    const bool ascending = m_sortDirection == QLatin1String("ascending");
    const bool byName = m_sortby == QLatin1String("name");
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const Category &x = categories[ascending ? a : b];
        const Category &y = categories[ascending ? b : a];
        return byName
                   ? getLocalizedString(x.title).localeAwareCompare(getLocalizedString(y.title)) < 0
                   : x.size < y.size;
    });
    return order;
}

void KestalTopDetailLeftTableView::reloadData()
{
    beginResetModel();
    m_rows = filteredAndSorted();
    endResetModel();
}

void KestalTopDetailLeftTableView::searchFiles(const QString &keywords)
{
    m_keywords = keywords;
    reloadData();
}

void KestalTopDetailLeftTableView::sort(const QString &sortDirection, const QString &sortby)
{
    if (sortDirection == QLatin1String("ascending") || sortDirection == QLatin1String("descending"))
        m_sortDirection = sortDirection;
    if (sortby == QLatin1String("name") || sortby == QLatin1String("size"))
        m_sortby = sortby;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    QList<int> categories;
    for (const QModelIndex &index : before)
        categories.append(categoryAt(index.row()));
    m_rows = filteredAndSorted();
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(rowOf(categories[i]), before[i].column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void KestalTopDetailLeftTableView::sort(int column, Qt::SortOrder order)
{
    sort(order == Qt::AscendingOrder ? QStringLiteral("ascending") : QStringLiteral("descending"),
         column == sizeColumn ? QStringLiteral("size") : QStringLiteral("name"));
}

void KestalTopDetailLeftTableView::categoryChanged(int categoryIndex)
{
    const int row = rowOf(categoryIndex);
    if (row >= 0)
        emit dataChanged(index(row, titleColumn), index(row, sizeColumn));
}

void KestalTopDetailLeftTableView::allCategoriesChanged()
{
    if (!m_rows.isEmpty())
        emit dataChanged(index(0, titleColumn), index(int(m_rows.size()) - 1, titleColumn),
                         {Qt::CheckStateRole});
}

QList<int> KestalTopDetailLeftTableView::categoriesInView() const
{
    const QList<Category> &categories = categoriesOf(m_moduleIndex);
    QList<int> inView;
    for (int ci = 0; ci < categories.size(); ++ci) {
        if (!m_keep || m_keep(categories[ci]))
            inView.append(ci);
    }
    return inView;
}

void KestalTopDetailLeftTableView::setPlaceholder(std::optional<Category> placeholder)
{
    beginResetModel();
    m_placeholder = std::move(placeholder);
    endResetModel();
}

int KestalTopDetailLeftTableView::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return showsPlaceholder() ? 1 : int(m_rows.size());
}

int KestalTopDetailLeftTableView::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columnCount_;
}

QVariant KestalTopDetailLeftTableView::data(const QModelIndex &index, int role) const
{
    const int ci = categoryAt(index.row());
    const QList<Category> &categories = categoriesOf(m_moduleIndex);
    const bool placeholder = showsPlaceholder() && index.row() == 0;
    if (!placeholder && (ci < 0 || ci >= categories.size()))
        return {};
    const Category &c = placeholder ? *m_placeholder : categories[ci];
    if (role == categoryRole)
        return ci;
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return index.column() == titleColumn ? getLocalizedString(c.title)
                                             : KestalSuperViewController::byteString(c.size);
    if (index.column() != titleColumn)
        return {};
    if (role == Qt::CheckStateRole && !placeholder)
        return c.state == 1 ? Qt::Checked : c.state == -1 ? Qt::PartiallyChecked : Qt::Unchecked;
    if (role == Qt::DecorationRole) {
        // A category's own picture when its first item brings one (an
        // application's), else the module's drawing.
        const bool real =
            m_isRealImage && !placeholder && !c.files.isEmpty() && !c.files.first()->icon.isEmpty();
        const QString name = real ? c.files.first()->iconName() : c.image;
        auto found = m_icons.find(name);
        if (found == m_icons.end())
            found = m_icons.insert(name, real ? ImageStore::themeIcon(name, c.image)
                                              : ImageStore::icon(name));
        return *found;
    }
    return {};
}

bool KestalTopDetailLeftTableView::setData(const QModelIndex &index, const QVariant &value,
                                           int role)
{
    const int ci = categoryAt(index.row());
    if (role != Qt::CheckStateRole || index.column() != titleColumn || ci < 0)
        return false;
    setCategoryState(m_moduleIndex, ci, value.toInt() == Qt::Checked ? 1 : 0);
    categoryChanged(ci);
    emit categoryStateChanged(ci);
    return true;
}

Qt::ItemFlags KestalTopDetailLeftTableView::flags(const QModelIndex &index) const
{
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() == titleColumn && !showsPlaceholder())
        f |= Qt::ItemIsUserCheckable;
    return f;
}

void KestalTopDetailLeftTableView::setCategoryState(int moduleIndex, int categoryIndex, int state)
{
    // Every file and its children in one pass (file and child index -1),
    // not one file at a time, which would roll the state up once per file.
    const bool hasFiles =
        !AppModuleService::categoriesOf(moduleIndex).at(categoryIndex).files.isEmpty();
    AppModuleService::updateState(state, moduleIndex, categoryIndex,
                                  hasFiles ? std::optional<int>(-1) : std::nullopt,
                                  hasFiles ? std::optional<int>(-1) : std::nullopt);
}
