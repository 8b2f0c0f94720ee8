#include "cleaner/shell/KestalDetailViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ElidedLabel.h"
#include "cleaner/shell/ImageStore.h"
#include "cleaner/shell/UIInfo.h"
#include "cleaner/shell/UIUtil.h"
#include "cleaner/shell/Workspace.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <numeric>

namespace {

constexpr int leftWidth = 260;
constexpr int iconSide = 20;
constexpr int fileRole = Qt::UserRole;
constexpr int childRole = Qt::UserRole + 1;

Qt::CheckState checkStateOf(int state)
{
    if (state == 1)
        return Qt::Checked;
    return state == -1 ? Qt::PartiallyChecked : Qt::Unchecked;
}

QTreeWidget *makeList(QWidget *parent, const QString &name, int columns)
{
    auto *list = new QTreeWidget(parent);
    list->setObjectName(name);
    list->setColumnCount(columns);
    list->setHeaderHidden(true);
    list->setIconSize(QSize(iconSide, iconSide));
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int c = 1; c < columns; ++c)
        list->header()->setSectionResizeMode(c, QHeaderView::ResizeToContents);
    return list;
}

using SortItem = std::pair<const char *, const char *>; // title, key

// Fills a sort menu: the keys, then the two directions, each group with the
// stored one on. A choice calls `apply` with the direction and the key, one
// of them empty.
void fillSortMenu(QMenu *menu, std::initializer_list<SortItem> keyItems, const QString &sortby,
                  const QString &sortDirection,
                  const std::function<void(const QString &, const QString &)> &apply)
{
    menu->clear();
    const auto group = [menu, &apply](std::initializer_list<SortItem> items, const QString &on,
                                      bool isKey) {
        auto *exclusive = new QActionGroup(menu);
        for (const auto &[title, key] : items) {
            QAction *a = menu->addAction(getLocalizedString(QString::fromLatin1(title)));
            a->setCheckable(true);
            a->setChecked(on == QLatin1String(key));
            a->setActionGroup(exclusive);
            const QString word = QString::fromLatin1(key);
            QObject::connect(a, &QAction::triggered, menu, [apply, word, isKey] {
                isKey ? apply(QString(), word) : apply(word, QString());
            });
        }
    };
    group(keyItems, sortby, true);
    menu->addSeparator();
    group({{"Ascending", "ascending"}, {"Descending", "descending"}}, sortDirection, false);
}

// The desktop theme's icon for the item's kind, else the product's own
// folder or document drawing.
QIcon fileIcon(const FolderInfo &file)
{
    const QString name = file.iconName();
    if (ImageStore::has(name))
        return ImageStore::icon(name);
    return ImageStore::themeIcon(name, file.isFolder || file.isPackage
                                           ? QStringLiteral("Folder")
                                           : QStringLiteral("Document"));
}

QToolButton *sortButton(QWidget *parent, const QString &name)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(name);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    return button;
}

} // namespace

KestalDetailViewController::KestalDetailViewController(int moduleIndex, QWidget *parent)
    : KestalSuperViewController(parent), m_moduleIndex(moduleIndex)
{
    setObjectName(AppModuleService::appModules().at(moduleIndex).tab + QStringLiteral(" Detail"));
    m_search = new QLineEdit(this);
    m_search->setObjectName(QStringLiteral("searchField"));
    m_search->setClearButtonEnabled(true);
    connect(m_search, &QLineEdit::returnPressed, this,
            &KestalDetailViewController::searchDetaiAction);
    m_popUpButton = sortButton(this, QStringLiteral("popUpButton"));
    m_categoryPopUpButton = sortButton(this, QStringLiteral("categoryPopUpButton"));
    m_allCategory = new QCheckBox(this);
    m_allCategory->setObjectName(QStringLiteral("updateAllCategoryBtn"));
    connect(m_allCategory, &QCheckBox::clicked, this,
            &KestalDetailViewController::updateAllCategoryStatusAction);
    m_back = new QPushButton(this);
    m_back->setObjectName(QStringLiteral("rightTopBackBtn"));
    connect(m_back, &QPushButton::clicked, this, &KestalDetailViewController::backAction);

    m_left = makeList(this, QStringLiteral("leftCategoryTableView"), 2);
    m_left->setRootIsDecorated(false);
    m_left->setFixedWidth(leftWidth);
    m_right = makeList(this, QStringLiteral("rightOutlineView"), 3);
    m_right->setContextMenuPolicy(Qt::CustomContextMenu);
    m_rightTitle = new QLabel(this);
    UIUtil::setTextAttribute(m_rightTitle,
                             UIInfo::nsMyUI(QStringLiteral("detail_list_title_font")));
    m_rightDesc = new ElidedLabel(this);
    m_rightDesc->setTextInteractionFlags(Qt::TextSelectableByMouse);
    UIUtil::setTextAttribute(m_rightDesc, UIInfo::nsMyUI(QStringLiteral("detail_list_size_font")));
    m_allDetail = new QCheckBox(this);
    m_allDetail->setObjectName(QStringLiteral("updateAllDetailBtn"));
    connect(m_allDetail, &QCheckBox::clicked, this,
            &KestalDetailViewController::updateAllDetailStatusAction);

    connect(m_left, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (!m_filling && item)
            clickEvent(item->data(0, fileRole).toInt());
    });
    connect(m_left, &QTreeWidget::itemChanged, this, &KestalDetailViewController::itemChanged);
    connect(m_right, &QTreeWidget::itemChanged, this, &KestalDetailViewController::itemChanged);
    connect(m_right, &QTreeWidget::currentItemChanged, this,
            &KestalDetailViewController::updateRightTopDescInfo);
    connect(m_right, &QTreeWidget::customContextMenuRequested, this, [this](const QPoint &at) {
        QTreeWidgetItem *item = m_right->itemAt(at);
        const QList<FolderInfoPtr> files = shownFiles();
        if (!item || item->parent() || item->data(0, fileRole).toInt() < 0)
            return;
        const FolderInfoPtr file = files.value(item->data(0, fileRole).toInt());
        QMenu menu;
        menu.addAction(getLocalizedString(QStringLiteral("Show in Folder")),
                       [file] { openFolderPathAction(*file); });
        menu.exec(m_right->viewport()->mapToGlobal(at));
    });

    // Back and search above; then a grid whose columns are the two panes,
    // so that each pane's select-all box and sort menu stand on one line.
    auto *top = new QHBoxLayout;
    top->addWidget(m_back);
    top->addStretch(1);
    top->addWidget(m_search);
    auto *rightHead = new QVBoxLayout;
    rightHead->setSpacing(2);
    rightHead->addWidget(m_rightTitle);
    rightHead->addWidget(m_rightDesc);
    const auto boxAndSort = [](QWidget *box, QWidget *sortButton) {
        auto *row = new QHBoxLayout;
        row->addWidget(box);
        row->addStretch(1);
        row->addWidget(sortButton);
        return row;
    };
    auto *panes = new QGridLayout;
    panes->setHorizontalSpacing(12);
    panes->addLayout(rightHead, 0, 1);
    panes->addLayout(boxAndSort(m_allCategory, m_categoryPopUpButton), 1, 0);
    panes->addLayout(boxAndSort(m_allDetail, m_popUpButton), 1, 1);
    panes->addWidget(m_left, 2, 0);
    panes->addWidget(m_right, 2, 1);
    panes->setColumnStretch(1, 1);
    panes->setRowStretch(2, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 12);
    layout->addLayout(top);
    layout->addLayout(panes, 1);
    reloadTexts();
}

void KestalDetailViewController::reloadTexts()
{
    m_search->setPlaceholderText(getLocalizedString(QStringLiteral("Search")));
    m_back->setText(getLocalizedString(QStringLiteral("Back")));
    m_popUpButton->setText(getLocalizedString(QStringLiteral("Sort")));
    m_categoryPopUpButton->setText(getLocalizedString(QStringLiteral("Sort")));
    fillSortMenu(m_popUpButton->menu(),
                 {{"Name", "name"}, {"Size", "size"}, {"Date", "date"}, {"Selection", "selection"}},
                 m_sortby, m_sortDirection,
                 [this](const QString &direction, const QString &key) { sort(direction, key); });
    fillSortMenu(m_categoryPopUpButton->menu(), {{"Name", "name"}, {"Size", "size"}}, m_cateSortby,
                 m_cateSortDirection, [this](const QString &direction, const QString &key) {
                     categorySort(direction, key);
                 });
    updateView();
}

QList<Category> KestalDetailViewController::shownModuleCategories() const
{
    // A module without categories (a table under test, a module to come)
    // shows empty panes.
    return AppModuleService::appModules().at(m_moduleIndex).categories.value_or(QList<Category>());
}

QList<FolderInfoPtr> KestalDetailViewController::shownFiles() const
{
    const QList<Category> categories = shownModuleCategories();
    return m_tableViewRow < categories.size() ? categories.at(m_tableViewRow).files
                                              : QList<FolderInfoPtr>();
}

void KestalDetailViewController::reloadData()
{
    m_keywords.clear();
    m_search->clear();
    m_tableViewRow = 0;
    updateView();
}

void KestalDetailViewController::clickEvent(int cateNum)
{
    m_tableViewRow = cateNum;
    updateView();
}

void KestalDetailViewController::updateView()
{
    m_filling = true;
    fillLeft();
    fillRight();
    m_filling = false;
    updateRightTopDescInfo();
    updateTopCategorySelectBtnStatus();
    updateTopDetailSelectBtnStatus();
}

QList<int> KestalDetailViewController::shownCategories() const
{
    const QList<Category> categories = shownModuleCategories();
    QList<int> order;
    for (int ci = 0; ci < categories.size(); ++ci) {
        if (m_keywords.isEmpty() ||
            getLocalizedString(categories[ci].title).contains(m_keywords, Qt::CaseInsensitive))
            order.append(ci);
    }
    // The module table's order stands until the user sorts.
    if (m_cateSortby.isEmpty())
        return order;
    const bool ascending = m_cateSortDirection == QLatin1String("ascending");
    const bool byName = m_cateSortby == QLatin1String("name");
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
        const Category &x = categories[ascending ? a : b];
        const Category &y = categories[ascending ? b : a];
        return byName
                   ? getLocalizedString(x.title).localeAwareCompare(getLocalizedString(y.title)) < 0
                   : x.size < y.size;
    });
    return order;
}

void KestalDetailViewController::fillLeft()
{
    m_left->clear();
    const QList<Category> categories = shownModuleCategories();
    for (int ci : shownCategories()) {
        auto *row = new QTreeWidgetItem(
            m_left, {getLocalizedString(categories[ci].title), byteString(categories[ci].size)});
        row->setData(0, fileRole, ci);
        row->setIcon(0, ImageStore::icon(categories[ci].image));
        row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
        row->setCheckState(0, checkStateOf(categories[ci].state));
        if (ci == m_tableViewRow)
            m_left->setCurrentItem(row);
    }
}

void KestalDetailViewController::fillRight()
{
    m_right->clear();
    const QList<FolderInfoPtr> files = shownFiles();
    if (files.isEmpty()) {
        auto *empty = new QTreeWidgetItem(m_right, {getLocalizedString(QStringLiteral("Empty"))});
        empty->setData(0, fileRole, -1);
        return;
    }
    QList<int> order(files.size());
    std::iota(order.begin(), order.end(), 0);
    const bool ascending = m_sortDirection == QLatin1String("ascending");
    if (m_sortby == QLatin1String("selection")) {
        // Ticked files come together, each part in its list order: first
        // when descending, last when ascending.
        std::stable_partition(order.begin(), order.end(),
                              [&](int i) { return (files[i]->checked == 1) != ascending; });
    } else {
        const auto less = [this](const FolderInfo &x, const FolderInfo &y) {
            if (m_sortby == QLatin1String("name"))
                return x.name < y.name;
            if (m_sortby == QLatin1String("date"))
                return x.date < y.date;
            return x.size < y.size;
        };
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
            return ascending ? less(*files[a], *files[b]) : less(*files[b], *files[a]);
        });
    }
    const QString dateFormat = QStringLiteral("yyyy-MM-dd HH:mm");
    for (int fi : std::as_const(order)) {
        const FolderInfo &file = *files[fi];
        auto *row = new QTreeWidgetItem(
            m_right, {file.name, byteString(file.size), file.date.toString(dateFormat)});
        row->setData(0, fileRole, fi);
        row->setData(0, childRole, -1);
        row->setIcon(0, fileIcon(file));
        row->setFlags(row->flags() | Qt::ItemIsUserCheckable);
        row->setCheckState(0, checkStateOf(file.checked));
        for (int child = 0; child < file.children.size(); ++child) {
            const FolderInfo &c = *file.children[child];
            auto *line =
                new QTreeWidgetItem(row, {c.name, byteString(c.size), c.date.toString(dateFormat)});
            line->setData(0, fileRole, fi);
            line->setData(0, childRole, child);
            line->setFlags(line->flags() | Qt::ItemIsUserCheckable);
            line->setCheckState(0, checkStateOf(c.checked));
        }
    }
    m_right->setCurrentItem(m_right->topLevelItem(0));
}

void KestalDetailViewController::itemChanged(QTreeWidgetItem *item, int column)
{
    if (m_filling || column != 0)
        return;
    const int state = item->checkState(0) == Qt::Checked ? 1 : 0;
    const int index = item->data(0, fileRole).toInt();
    if (item->treeWidget() == m_left) {
        setCategoryState(index, state);
    } else {
        const int child = item->data(0, childRole).toInt();
        AppModuleService::updateState(state, m_moduleIndex, m_tableViewRow, index,
                                      child < 0 ? std::nullopt : std::optional<int>(child));
    }
    // Rebuilding the lists inside their own signal is not safe; do it next.
    QMetaObject::invokeMethod(this, &KestalDetailViewController::updateView, Qt::QueuedConnection);
    emit selectionChanged();
}

void KestalDetailViewController::setCategoryState(int categoryIndex, int state)
{
    // A category's box sets every file of it in one pass (file index -1),
    // not one file at a time, which would roll the state up once per file.
    const bool hasFiles =
        !AppModuleService::categoriesOf(m_moduleIndex).at(categoryIndex).files.isEmpty();
    AppModuleService::updateState(state, m_moduleIndex, categoryIndex,
                                  hasFiles ? std::optional<int>(-1) : std::nullopt, std::nullopt);
}

void KestalDetailViewController::updateAllDetailStatusAction()
{
    const QList<Category> &categories = AppModuleService::categoriesOf(m_moduleIndex);
    if (m_tableViewRow >= categories.size())
        return;
    // A mixed or empty box turns on; a full one off.
    setCategoryState(m_tableViewRow, categories.at(m_tableViewRow).state == 1 ? 0 : 1);
    updateView();
    emit selectionChanged();
}

int KestalDetailViewController::allCategoriesState() const
{
    const QList<Category> categories = shownModuleCategories();
    int on = 0;
    for (const Category &c : categories) {
        if (c.state == -1)
            return -1;
        on += c.state;
    }
    if (on == 0)
        return 0;
    return on == categories.size() ? 1 : -1;
}

void KestalDetailViewController::updateAllCategoryStatusAction()
{
    // Over every category of the module, shown or not: a mixed or empty
    // box turns all on, a full one all off.
    const int state = allCategoriesState() == 1 ? 0 : 1;
    for (int ci = 0; ci < shownModuleCategories().size(); ++ci)
        setCategoryState(ci, state);
    updateView();
    emit selectionChanged();
}

void KestalDetailViewController::updateTopCategorySelectBtnStatus()
{
    const int state = allCategoriesState();
    m_allCategory->setTristate(state == -1);
    m_allCategory->setCheckState(checkStateOf(state));
    m_allCategory->setText(state == 1 ? getLocalizedString(QStringLiteral("Deselect All"))
                                      : getLocalizedString(QStringLiteral("Select All")));
    m_allCategory->setEnabled(!shownModuleCategories().isEmpty());
}

void KestalDetailViewController::updateTopDetailSelectBtnStatus()
{
    const QList<Category> categories = shownModuleCategories();
    const int state = m_tableViewRow < categories.size() ? categories[m_tableViewRow].state : 0;
    m_allDetail->setTristate(state == -1);
    m_allDetail->setCheckState(checkStateOf(state));
    m_allDetail->setText(state == 1 ? getLocalizedString(QStringLiteral("Deselect All"))
                                    : getLocalizedString(QStringLiteral("Select All")));
    m_allDetail->setEnabled(!shownFiles().isEmpty());
}

void KestalDetailViewController::updateRightTopDescInfo()
{
    QTreeWidgetItem *item = m_right->currentItem();
    const QList<FolderInfoPtr> files = shownFiles();
    const int fi = item ? item->data(0, fileRole).toInt() : -1;
    if (fi < 0 || fi >= files.size()) {
        m_rightTitle->setText(getLocalizedString(QStringLiteral("Empty")));
        m_rightDesc->setFullText(QString());
        return;
    }
    m_rightTitle->setText(files[fi]->name);
    m_rightDesc->setFullText(files[fi]->url.toLocalFile());
}

void KestalDetailViewController::sort(const QString &sortDirection, const QString &sortby)
{
    if (sortDirection == QLatin1String("ascending") || sortDirection == QLatin1String("descending"))
        m_sortDirection = sortDirection;
    const QStringList keys = {QStringLiteral("name"), QStringLiteral("size"),
                              QStringLiteral("date"), QStringLiteral("selection")};
    if (keys.contains(sortby))
        m_sortby = sortby;
    updateView();
}

void KestalDetailViewController::categorySort(const QString &sortDirection, const QString &sortby)
{
    if (sortDirection == QLatin1String("ascending") || sortDirection == QLatin1String("descending"))
        m_cateSortDirection = sortDirection;
    if (sortby == QLatin1String("name") || sortby == QLatin1String("size"))
        m_cateSortby = sortby;
    // The first row of the new order is the one shown.
    const QList<int> order = shownCategories();
    clickEvent(order.isEmpty() ? 0 : order.first());
}

void KestalDetailViewController::searchDetaiAction()
{
    m_keywords = m_search->text().trimmed();
    m_filling = true;
    fillLeft();
    m_filling = false;
    if (m_left->topLevelItemCount() == 0) {
        UIUtil::dialogInfo(getLocalizedString(QStringLiteral("Error")),
                           getLocalizedString(QStringLiteral("This category is empty!")));
        m_keywords.clear();
        m_search->clear();
    }
    m_filling = true;
    fillLeft();
    m_filling = false;
    clickEvent(m_left->topLevelItemCount() ? m_left->topLevelItem(0)->data(0, fileRole).toInt()
                                           : 0);
}

void KestalDetailViewController::backAction()
{
    emit backRequested();
}

bool KestalDetailViewController::openFolderPathAction(const FolderInfo &file)
{
    return Workspace::selectFile(file.url.toLocalFile());
}
