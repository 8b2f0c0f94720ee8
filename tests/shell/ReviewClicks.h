#pragma once

// Clicks in the review's lists as a user does: on a row's tick box, found
// where the view's own delegate looks for it.
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"

#include <QAbstractItemView>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>

inline QPoint checkBoxCentre(QAbstractItemView *view, const QModelIndex &index)
{
    view->scrollTo(index);
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.rect = view->visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return view->style()
        ->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view)
        .center();
}

inline void clickCheckBox(QAbstractItemView *view, const QModelIndex &index)
{
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, checkBoxCentre(view, index));
}

// The row of the top level whose first column reads `name`.
inline QModelIndex rowNamed(QAbstractItemView *view, const QString &name)
{
    QAbstractItemModel *model = view->model();
    const QModelIndexList found =
        model->match(model->index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly);
    return found.value(0);
}

inline QStringList namesOf(QAbstractItemView *view)
{
    QStringList names;
    for (int row = 0; row < view->model()->rowCount(); ++row)
        names.append(view->model()->index(row, 0).data().toString());
    return names;
}

// The row of the review's right pane that shows this path.
inline QModelIndex rowOfPath(KestalTopDetailRigthOutlineView *files, const QString &path)
{
    for (int row = 0; row < files->rowCount(); ++row) {
        const QModelIndex index = files->index(row, 0);
        if (const FolderInfoPtr file = files->fileAt(index);
            file && file->url.toLocalFile() == path)
            return index;
    }
    return {};
}
