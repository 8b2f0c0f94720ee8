#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalSuperViewController.h"

#include <QFile>
#include <QFileInfo>
#include <QFont>
#include <algorithm>
#include <numeric>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString dateFormat = QStringLiteral("yyyy-MM-dd HH:mm");

QVariant checkStateOf(int state)
{
    return state == 1 ? Qt::Checked : state == -1 ? Qt::PartiallyChecked : Qt::Unchecked;
}

// The target of a symbolic link, or a null string when the item is none.
QString linkTarget(const FolderInfo &file)
{
    const QByteArray path = FolderInfo::pathBytes(file.url);
    struct stat st;
    if (path.isEmpty() || lstat(path.constData(), &st) != 0 || !S_ISLNK(st.st_mode))
        return {};
    QByteArray target(qMax<qsizetype>(st.st_size, 255) + 1, Qt::Uninitialized);
    const ssize_t n = readlink(path.constData(), target.data(), size_t(target.size()));
    target.resize(n < 0 ? 0 : qsizetype(n));
    // A link whose target cannot be read is still a link.
    return target.isEmpty() ? QStringLiteral("?") : QFile::decodeName(target);
}

} // namespace

KestalTopDetailRigthOutlineView::KestalTopDetailRigthOutlineView(int moduleIndex, QObject *parent)
    : QAbstractItemModel(parent), m_moduleIndex(moduleIndex)
{}

void KestalTopDetailRigthOutlineView::reloadData(int categoryIndex)
{
    beginResetModel();
    const Module &module = AppModuleService::appModules().at(m_moduleIndex);
    const QList<Category> categories = module.categories.value_or(QList<Category>());
    m_categoryIndex = categoryIndex;
    m_files = categoryIndex >= 0 && categoryIndex < categories.size()
                  ? categories.at(categoryIndex).files
                  : QList<FolderInfoPtr>();
    m_linkTargets.clear();
    computeOrder();
    endResetModel();
}

void KestalTopDetailRigthOutlineView::computeOrder()
{
    m_order.resize(m_files.size());
    std::iota(m_order.begin(), m_order.end(), 0);
    const bool ascending = m_sortDirection == QLatin1String("ascending");
    const QList<FolderInfoPtr> &files = m_files;
    if (m_sortby == QLatin1String("order")) {
        // as the category lists them
    } else if (m_sortby == QLatin1String("selection")) {
        std::stable_partition(m_order.begin(), m_order.end(),
                              [&](int i) { return (files[i]->checked == 1) != ascending; });
    } else {
        const auto sorted = [&](auto key) {
            std::stable_sort(m_order.begin(), m_order.end(), [&](int a, int b) {
                return ascending ? key(*files[a]) < key(*files[b])
                                 : key(*files[b]) < key(*files[a]);
            });
        };
        if (m_sortby == QLatin1String("name"))
            sorted([](const FolderInfo &f) -> const QString & { return f.name; });
        else if (m_sortby == QLatin1String("date"))
            sorted([](const FolderInfo &f) -> const QDateTime & { return f.date; });
        else
            sorted([](const FolderInfo &f) { return f.size; });
    }
    m_rowOfFile.resize(m_files.size());
    for (int row = 0; row < m_order.size(); ++row)
        m_rowOfFile[m_order[row]] = row;
}

void KestalTopDetailRigthOutlineView::sort(const QString &sortDirection, const QString &sortby)
{
    if (sortDirection == QLatin1String("ascending") || sortDirection == QLatin1String("descending"))
        m_sortDirection = sortDirection;
    static const QStringList keys = {QStringLiteral("name"), QStringLiteral("size"),
                                     QStringLiteral("date"), QStringLiteral("selection"),
                                     QStringLiteral("order")};
    if (keys.contains(sortby))
        m_sortby = sortby;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    // Only file rows move; a child row keeps its place under its file.
    const QModelIndexList before = persistentIndexList();
    QList<int> filesBefore;
    for (const QModelIndex &index : before)
        filesBefore.append(index.internalId() == fileRow ? fileIndexOf(index) : -1);
    computeOrder();
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i) {
        const QModelIndex &was = before[i];
        after.append(filesBefore[i] < 0
                         ? was
                         : createIndex(m_rowOfFile.value(filesBefore[i]), was.column(), fileRow));
    }
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void KestalTopDetailRigthOutlineView::sort(int column, Qt::SortOrder order)
{
    static const QString keys[] = {QStringLiteral("name"), QStringLiteral("size"),
                                   QStringLiteral("date")};
    sort(order == Qt::AscendingOrder ? QStringLiteral("ascending") : QStringLiteral("descending"),
         keys[qBound(0, column, int(dateColumn))]);
}

int KestalTopDetailRigthOutlineView::fileIndexOf(const QModelIndex &index) const
{
    if (!index.isValid())
        return -1;
    if (index.internalId() != fileRow)
        return int(index.internalId() - 1);
    return m_order.value(index.row(), -1);
}

FolderInfoPtr KestalTopDetailRigthOutlineView::fileAt(const QModelIndex &index) const
{
    const int fi = fileIndexOf(index);
    if (fi < 0 || fi >= m_files.size())
        return nullptr;
    const FolderInfoPtr &file = m_files[fi];
    if (index.internalId() == fileRow)
        return file;
    return file->children.value(index.row());
}

void KestalTopDetailRigthOutlineView::checksChanged()
{
    if (m_files.isEmpty())
        return;
    emit dataChanged(index(0, nameColumn), index(int(m_order.size()) - 1, nameColumn),
                     {Qt::CheckStateRole});
    for (int fi = 0; fi < m_files.size(); ++fi) {
        const qsizetype children = m_files[fi]->children.size();
        if (children > 0)
            emit dataChanged(createIndex(0, nameColumn, quintptr(fi + 1)),
                             createIndex(int(children) - 1, nameColumn, quintptr(fi + 1)),
                             {Qt::CheckStateRole});
    }
}

QString KestalTopDetailRigthOutlineView::emptyRowText() const
{
    return getLocalizedString(m_emptyRowText);
}

QModelIndex KestalTopDetailRigthOutlineView::index(int row, int column,
                                                   const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, fileRow);
    return createIndex(row, column, quintptr(fileIndexOf(parent) + 1));
}

QModelIndex KestalTopDetailRigthOutlineView::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == fileRow)
        return {};
    const int fi = int(child.internalId() - 1);
    return createIndex(m_rowOfFile.value(fi), nameColumn, fileRow);
}

int KestalTopDetailRigthOutlineView::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_files.isEmpty() ? 1 : int(m_files.size()); // the "Empty" row
    if (parent.column() != nameColumn || parent.internalId() != fileRow)
        return 0;
    const FolderInfoPtr file = fileAt(parent);
    return file ? int(file->children.size()) : 0;
}

int KestalTopDetailRigthOutlineView::columnCount(const QModelIndex &) const
{
    return columnCount_;
}

bool KestalTopDetailRigthOutlineView::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

QIcon KestalTopDetailRigthOutlineView::iconOf(const FolderInfo &file) const
{
    // A link is shown as a link, never as what it points to.
    const bool link = !cachedLinkTarget(file).isNull();
    const QString name = link ? QStringLiteral("inode-symlink") : file.iconName();
    auto found = m_icons.find(name);
    if (found != m_icons.end())
        return *found;
    QIcon icon;
    if (link)
        icon = ImageStore::themeIcon(name, QStringLiteral("Link"));
    else if (ImageStore::has(name))
        icon = ImageStore::icon(name);
    else
        icon = ImageStore::themeIcon(name, file.isFolder || file.isPackage
                                               ? QStringLiteral("Folder")
                                               : QStringLiteral("Document"));
    return *m_icons.insert(name, icon);
}

QString KestalTopDetailRigthOutlineView::cachedLinkTarget(const FolderInfo &file) const
{
    auto found = m_linkTargets.find(&file);
    if (found == m_linkTargets.end())
        found = m_linkTargets.insert(&file, linkTarget(file));
    return *found;
}

QString KestalTopDetailRigthOutlineView::toolTipOf(const FolderInfo &file) const
{
    const QString path = file.url.toLocalFile();
    const QString target = cachedLinkTarget(file);
    return target.isNull() ? path : path + QStringLiteral(" \u2192 ") + target;
}

QVariant KestalTopDetailRigthOutlineView::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const FolderInfoPtr file = fileAt(index);
    const bool child = index.internalId() != fileRow;
    if (role == fileRole)
        return fileIndexOf(index);
    if (role == childRole)
        return child ? index.row() : -1;
    if (!file) {
        if (role == Qt::DisplayRole && index.column() == nameColumn)
            return emptyRowText();
        return {};
    }
    const bool lead = !child && !m_leadMark.isEmpty() && fileIndexOf(index) == 0;
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == nameColumn && lead)
            return QString(file->name + QStringLiteral("  (") + getLocalizedString(m_leadMark) +
                           QLatin1Char(')'));
        if (index.column() == nameColumn && m_showsFolder && !child)
            return QString(file->name + QStringLiteral("  \u2014  ") +
                           QFileInfo(file->url.toLocalFile()).path());
        if (index.column() == nameColumn)
            return file->name;
        if (index.column() == sizeColumn)
            return KestalSuperViewController::byteString(file->size);
        return file->date.toString(dateFormat);
    case Qt::CheckStateRole:
        return index.column() == nameColumn ? checkStateOf(file->checked) : QVariant();
    case Qt::DecorationRole:
        return index.column() == nameColumn && !child ? QVariant(iconOf(*file)) : QVariant();
    case Qt::ToolTipRole:
        return index.column() == nameColumn ? toolTipOf(*file) : QVariant();
    case Qt::FontRole:
        if (lead) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    default:
        return {};
    }
}

bool KestalTopDetailRigthOutlineView::setData(const QModelIndex &index, const QVariant &value,
                                              int role)
{
    const int fi = fileIndexOf(index);
    if (role != Qt::CheckStateRole || index.column() != nameColumn || !fileAt(index))
        return false;
    // The table may have moved on (a clean took files out): tick nothing stale.
    const QList<Category> &categories = AppModuleService::categoriesOf(m_moduleIndex);
    if (m_categoryIndex >= categories.size() ||
        categories.at(m_categoryIndex).files.value(fi) != m_files.at(fi)) {
        reloadData(m_categoryIndex);
        return false;
    }
    const int state = value.toInt() == Qt::Checked ? 1 : 0;
    const bool child = index.internalId() != fileRow;
    // A file's box sets its children too (-1), so a parent never shows
    // ticked over unticked children.
    std::optional<int> childIndex;
    if (child)
        childIndex = index.row();
    else if (!m_files[fi]->children.isEmpty())
        childIndex = -1;
    AppModuleService::updateState(state, m_moduleIndex, m_categoryIndex, fi, childIndex);
    const QModelIndex fileIndex = child ? index.parent() : index;
    emit dataChanged(fileIndex, fileIndex, {Qt::CheckStateRole});
    if (child) {
        emit dataChanged(index, index, {Qt::CheckStateRole});
    } else if (const qsizetype n = m_files[fi]->children.size(); n > 0) {
        emit dataChanged(this->index(0, nameColumn, index),
                         this->index(int(n) - 1, nameColumn, index), {Qt::CheckStateRole});
    }
    emit fileStateChanged(m_categoryIndex);
    return true;
}

Qt::ItemFlags KestalTopDetailRigthOutlineView::flags(const QModelIndex &index) const
{
    Qt::ItemFlags f = QAbstractItemModel::flags(index);
    if (index.isValid() && index.column() == nameColumn && fileAt(index))
        f |= Qt::ItemIsUserCheckable;
    return f;
}
