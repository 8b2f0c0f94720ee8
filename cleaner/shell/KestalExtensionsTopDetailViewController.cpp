#include "cleaner/shell/KestalExtensionsTopDetailViewController.h"

#include "cleaner/applications/ExtensionsFolderInfo.h"
#include "cleaner/clean/ExtensionToggle.h"
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/FileMove.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/UIUtil.h"

#include <QActionGroup>
#include <QDir>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int moduleIndex = ExtensionsFolderInfo::moduleIndex;

} // namespace

KestalExtensionsTopDetailViewController::KestalExtensionsTopDetailViewController(QWidget *parent)
    : KestalDetailViewController(moduleIndex, parent)
{
    // The common review's panes tick items for a clean; this one's do not.
    for (QWidget *child : findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        child->hide();
    auto *own = new QWidget(this);
    m_categoriesList = new QListWidget(own);
    m_categoriesList->setObjectName(QStringLiteral("leftCategoryTableView"));
    m_categoriesList->setFixedWidth(200);
    m_list = new QTreeWidget(own);
    m_list->setObjectName(QStringLiteral("rightOutlineView"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setColumnCount(5);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_list->header()->setSectionResizeMode(pathColumn, QHeaderView::Stretch);
    m_list->header()->setStretchLastSection(false);
    m_searchBox = new QLineEdit(own);
    m_searchBox->setObjectName(QStringLiteral("searchField"));
    m_searchBox->setClearButtonEnabled(true);
    m_sortButton = new QToolButton(own);
    m_sortButton->setObjectName(QStringLiteral("popUpButton"));
    m_sortButton->setPopupMode(QToolButton::InstantPopup);
    m_sortButton->setMenu(new QMenu(m_sortButton));
    m_backBtn = new QPushButton(own);
    m_backBtn->setObjectName(QStringLiteral("extensionsBackBtn"));
    connect(m_backBtn, &QPushButton::clicked, this, &KestalDetailViewController::backAction);
    connect(m_searchBox, &QLineEdit::textChanged, this,
            &KestalExtensionsTopDetailViewController::searchFiles);
    connect(m_categoriesList, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0 && row != m_ci)
            clickDetail(row);
    });
    // Entering the review lists the module's categories afresh.
    connect(categoryModel(), &QAbstractItemModel::modelReset, this,
            &KestalExtensionsTopDetailViewController::reloadCategory);

    auto *top = new QHBoxLayout;
    top->addWidget(m_backBtn);
    top->addStretch(1);
    top->addWidget(m_sortButton);
    top->addWidget(m_searchBox);
    auto *panes = new QHBoxLayout;
    panes->addWidget(m_categoriesList);
    panes->addWidget(m_list, 1);
    auto *ownLayout = new QVBoxLayout(own);
    ownLayout->setContentsMargins(0, 0, 0, 0);
    ownLayout->addLayout(top);
    ownLayout->addLayout(panes, 1);
    // The common review's rows, all hidden, give up their share of the height.
    auto *box = static_cast<QBoxLayout *>(layout());
    for (int i = 0; i < box->count(); ++i)
        box->setStretch(i, 0);
    box->addWidget(own, 1);
    reloadTexts();
}

void KestalExtensionsTopDetailViewController::reloadTexts()
{
    KestalDetailViewController::reloadTexts();
    m_searchBox->setPlaceholderText(getLocalizedString(QStringLiteral("Search")));
    m_backBtn->setText(getLocalizedString(QStringLiteral("Back")));
    m_sortButton->setText(getLocalizedString(QStringLiteral("Sort")));
    QMenu *menu = m_sortButton->menu();
    menu->clear();
    const auto add = [&](const char *title, const QString &direction, const QString &by) {
        QAction *a = menu->addAction(getLocalizedString(QLatin1String(title)));
        a->setCheckable(true);
        a->setChecked(direction == m_sortDirection && by == m_sortby);
        connect(a, &QAction::triggered, this, [this, direction, by] { sortFiles(direction, by); });
    };
    add("Name", QStringLiteral("ascending"), QStringLiteral("name"));
    add("Size", QStringLiteral("descending"), QStringLiteral("size"));
    m_list->setHeaderLabels({getLocalizedString(QStringLiteral("Name")),
                             getLocalizedString(QStringLiteral("Path")),
                             getLocalizedString(QStringLiteral("Size")), QString(), QString()});
    reloadCategory();
}

QList<FolderInfoPtr> KestalExtensionsTopDetailViewController::filesOf(int ci) const
{
    const QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
    return ci >= 0 && ci < categories.size() ? categories[ci].files : QList<FolderInfoPtr>();
}

void KestalExtensionsTopDetailViewController::reloadCategory()
{
    const QList<Category> &categories = AppModuleService::categoriesOf(moduleIndex);
    const QSignalBlocker block(m_categoriesList);
    m_categoriesList->clear();
    for (const Category &c : categories)
        m_categoriesList->addItem(
            QStringLiteral("%1 (%2)").arg(getLocalizedString(c.title)).arg(c.files.size()));
    m_ci = std::clamp(m_ci, 0, int(qMax(0, categories.size() - 1)));
    m_categoriesList->setCurrentRow(m_ci);
    reloadDetail();
}

void KestalExtensionsTopDetailViewController::clickDetail(int cateNum)
{
    m_ci = cateNum;
    reloadDetail();
}

void KestalExtensionsTopDetailViewController::sortFiles(const QString &sortDirection,
                                                        const QString &sortby)
{
    if (sortDirection == QLatin1String("ascending") || sortDirection == QLatin1String("descending"))
        m_sortDirection = sortDirection;
    if (sortby == QLatin1String("name") || sortby == QLatin1String("size"))
        m_sortby = sortby;
    reloadTexts();
}

void KestalExtensionsTopDetailViewController::searchFiles(const QString &keywords)
{
    m_keywords = keywords;
    reloadDetail();
}

QPushButton *KestalExtensionsTopDetailViewController::statusBtn(int row) const
{
    return qobject_cast<QPushButton *>(m_list->itemWidget(m_list->topLevelItem(row), statusColumn));
}

void KestalExtensionsTopDetailViewController::reloadDetail()
{
    const QList<FolderInfoPtr> files = filesOf(m_ci);
    m_shown.clear();
    for (int fi = 0; fi < files.size(); ++fi)
        if (m_keywords.isEmpty() || files[fi]->name.contains(m_keywords, Qt::CaseInsensitive))
            m_shown << fi;
    const bool ascending = m_sortDirection == QLatin1String("ascending");
    std::stable_sort(m_shown.begin(), m_shown.end(), [&](int a, int b) {
        const bool lower = m_sortby == QLatin1String("size")
                               ? files[a]->size < files[b]->size
                               : files[a]->name.localeAwareCompare(files[b]->name) < 0;
        const bool higher = m_sortby == QLatin1String("size")
                                ? files[b]->size < files[a]->size
                                : files[b]->name.localeAwareCompare(files[a]->name) < 0;
        return ascending ? lower : higher;
    });
    m_list->clear();
    for (int row = 0; row < m_shown.size(); ++row) {
        const FolderInfoPtr &file = files[m_shown[row]];
        const bool enabled = ExtensionsFolderInfo::isEnabled(file->url);
        auto *item = new QTreeWidgetItem(m_list);
        item->setIcon(
            nameColumn,
            ImageStore::icon(file->icon.isEmpty() ? QStringLiteral("App_Cache") : file->icon));
        item->setText(nameColumn, file->name);
        const QString path = QString::fromUtf8(FolderInfo::pathBytes(file->url));
        const QString home = QDir::homePath() + QLatin1Char('/');
        item->setText(pathColumn,
                      path.startsWith(home) ? QStringLiteral("~/") + path.mid(home.size()) : path);
        item->setToolTip(pathColumn, path);
        item->setText(sizeColumn, byteString(file->size));
        auto *status = new QPushButton(
            ImageStore::icon(enabled ? QStringLiteral("ExtensionSelect")
                                     : QStringLiteral("ExtensionUnSelect")),
            getLocalizedString(enabled ? QStringLiteral("On") : QStringLiteral("Off")));
        status->setObjectName(QStringLiteral("statusBtn"));
        status->setToolTip(getLocalizedString(enabled ? QStringLiteral("Turn it off")
                                                      : QStringLiteral("Turn it on")));
        connect(status, &QPushButton::clicked, this, [this, row] { moveFile(row); });
        m_list->setItemWidget(item, statusColumn, status);
        auto *open = new QPushButton(getLocalizedString(QStringLiteral("Show in Folder")));
        open->setObjectName(QStringLiteral("openPathBtn"));
        connect(open, &QPushButton::clicked, this, [file] { openFolderPathAction(*file); });
        m_list->setItemWidget(item, openColumn, open);
    }
}

void KestalExtensionsTopDetailViewController::moveFile(int row)
{
    if (row < 0 || row >= m_shown.size())
        return;
    const int fi = m_shown[row];
    const FolderInfoPtr file = filesOf(m_ci).value(fi);
    if (!file)
        return;
    if (QPushButton *button = statusBtn(row))
        button->setEnabled(false);
    const QByteArray path = FolderInfo::pathBytes(file->url);
    QPointer<KestalExtensionsTopDetailViewController> screen(this);
    ExtensionToggle::moveFile(path, file->identity, m_ci, fi, [screen, file, path](int status) {
        if (status == 1) {
            // The helper moved it: the row now names its new place.
            const auto moved =
                FileMove::toggledPath(path, ExtensionsFolderInfo::configuredFolders());
            if (moved)
                file->url = FolderInfo::urlFromPath(*moved);
        } else {
            UIUtil::dialogInfo(getLocalizedString(QStringLiteral("Error")),
                               getLocalizedString(QStringLiteral(
                                   "The helper refused to move it: it lies in none of the "
                                   "extension folders, or an item of its name is already "
                                   "where it would go")));
        }
        if (screen)
            screen->reloadDetail();
    });
}
