#pragma once

#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"

// The uninstaller review's right pane: the chosen application's own item
// and its leftovers, flat. Leftovers of one application mostly bear one name
// (~/.config/tool, ~/.cache/tool), so every row also names its folder; the
// application's own item is set in bold, so that what goes with it reads as
// its leftovers.
class KestalUninstallerTopDetailRigthOutlineView : public KestalTopDetailRigthOutlineView {
    Q_OBJECT
public:
    explicit KestalUninstallerTopDetailRigthOutlineView(QObject *parent = nullptr);

    // Whether the node is an application itself, not one of its leftovers:
    // an entry of one of the applications folders.
    static bool isApplication(const FolderInfo &node);

    QVariant data(const QModelIndex &index, int role) const override;
};
