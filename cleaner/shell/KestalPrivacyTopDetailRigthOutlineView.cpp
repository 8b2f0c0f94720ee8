#include "cleaner/shell/KestalPrivacyTopDetailRigthOutlineView.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/privacy/PrivacyService.h"
#include "cleaner/shell/KestalSuperViewController.h"

namespace {

qint64 listedSize(const FolderInfo &group)
{
    qint64 size = 0;
    for (const FolderInfoPtr &record : group.children)
        size += record->size;
    return size;
}

} // namespace

QVariant KestalPrivacyTopDetailRigthOutlineView::data(const QModelIndex &index, int role) const
{
    const FolderInfoPtr node = fileAt(index);
    if (!node)
        return KestalTopDetailRigthOutlineView::data(index, role);
    const bool record = index.parent().isValid();
    if (record) {
        // The text for a record whose name could not be read is the program's own.
        if (role == Qt::DisplayRole && index.column() == nameColumn &&
            node->name == PrivacyService::defaultName())
            return getLocalizedString(node->name);
        // Most records are rows of a store, not files: their name says what they are.
        if (role == Qt::ToolTipRole && index.column() == nameColumn &&
            node->url.toLocalFile().isEmpty())
            return node->name;
        return KestalTopDetailRigthOutlineView::data(index, role);
    }
    switch (role) {
    case Qt::DisplayRole:
        if (index.column() == nameColumn)
            return getLocalizedString(node->name);
        if (index.column() == sizeColumn)
            return KestalSuperViewController::byteString(listedSize(*node));
        return QString(); // a group's date is only when the scan made it
    case Qt::CheckStateRole:
        if (node->children.isEmpty())
            return {};
        break;
    case Qt::ToolTipRole:
        return getLocalizedString(QStringLiteral("%1 records")).arg(node->children.size());
    default:
        break;
    }
    return KestalTopDetailRigthOutlineView::data(index, role);
}

Qt::ItemFlags KestalPrivacyTopDetailRigthOutlineView::flags(const QModelIndex &index) const
{
    Qt::ItemFlags f = KestalTopDetailRigthOutlineView::flags(index);
    const FolderInfoPtr node = fileAt(index);
    if (node && !index.parent().isValid() && node->children.isEmpty())
        f &= ~Qt::ItemIsUserCheckable;
    return f;
}
