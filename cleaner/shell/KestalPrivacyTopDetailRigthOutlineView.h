#pragma once

#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"

// The privacy review's right pane: the chosen browser's record groups, each
// with its records beneath. A group is shown by its title in the interface
// language and by the size of the records it still lists, since a clean of
// some records leaves the group's own size as the scan found it. A group
// that lists no record has no tick box: ticking it would empty a store of
// rows that were never shown.
class KestalPrivacyTopDetailRigthOutlineView : public KestalTopDetailRigthOutlineView {
    Q_OBJECT
public:
    using KestalTopDetailRigthOutlineView::KestalTopDetailRigthOutlineView;

    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
};
