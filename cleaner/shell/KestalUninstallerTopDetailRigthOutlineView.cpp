#include "cleaner/shell/KestalUninstallerTopDetailRigthOutlineView.h"

#include "cleaner/applications/ApplicationPlaces.h"
#include "cleaner/core/Platform.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/UninstallService.h"

#include <QDir>
#include <QFileInfo>
#include <QFont>

KestalUninstallerTopDetailRigthOutlineView::KestalUninstallerTopDetailRigthOutlineView(
    QObject *parent)
    : KestalTopDetailRigthOutlineView(UninstallService::moduleIndex, parent)
{
    // An application whose every item went has nothing to list.
    setEmptyRowText(QStringLiteral("Nothing of this application is left"));
}

bool KestalUninstallerTopDetailRigthOutlineView::isApplication(const FolderInfo &node)
{
    const QString folder = QFileInfo(node.url.toLocalFile()).path();
    for (const QString &applications : ApplicationPlaces::applicationFolders()) {
        if (QDir::cleanPath(applications) == folder)
            return true;
    }
    return false;
}

QVariant KestalUninstallerTopDetailRigthOutlineView::data(const QModelIndex &index, int role) const
{
    const FolderInfoPtr node = fileAt(index);
    if (!node)
        return KestalTopDetailRigthOutlineView::data(index, role);
    if (role == Qt::FontRole && isApplication(*node)) {
        QFont bold;
        bold.setBold(true);
        return bold;
    }
    // The folder in the home's short form: what tells ~/.config/tool from
    // ~/.cache/tool stays in view where a long home would push it out.
    if (role == Qt::DisplayRole && index.column() == nameColumn) {
        QString folder = QFileInfo(node->url.toLocalFile()).path();
        const QString home = QDir::cleanPath(Platform::homeDirectory());
        if (folder == home || folder.startsWith(home + QLatin1Char('/')))
            folder.replace(0, home.size(), QStringLiteral("~"));
        return QString(node->name + QStringLiteral("  \u2014  ") + folder);
    }
    if (role == Qt::ToolTipRole && index.column() == nameColumn) {
        const QString kind =
            isApplication(*node)
                ? getLocalizedString(QStringLiteral("The application itself"))
                : getLocalizedString(QStringLiteral("Left behind by the application"));
        return QString(kind + QLatin1Char('\n') +
                       KestalTopDetailRigthOutlineView::data(index, role).toString());
    }
    return KestalTopDetailRigthOutlineView::data(index, role);
}
