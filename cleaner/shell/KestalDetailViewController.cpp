#include "cleaner/shell/KestalDetailViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ElidedLabel.h"
#include "cleaner/shell/KestalTopDetailLeftTableView.h"
#include "cleaner/shell/KestalTopDetailRigthOutlineView.h"
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
#include <QTreeView>
#include <QVBoxLayout>
#include <functional>

namespace {

constexpr int leftWidth = 260;
constexpr int iconSide = 20;

Qt::CheckState checkStateOf(int state)
{
    if (state == 1)
        return Qt::Checked;
    return state == -1 ? Qt::PartiallyChecked : Qt::Unchecked;
}

// A list whose rows all have one height, so that the view lays out a
// category of any size without asking every row for its size.
QTreeView *makeList(QWidget *parent, const QString &name, QAbstractItemModel *model)
{
    auto *list = new QTreeView(parent);
    list->setObjectName(name);
    list->setModel(model);
    list->setUniformRowHeights(true);
    list->setHeaderHidden(true);
    list->setIconSize(QSize(iconSide, iconSide));
    list->header()->setStretchLastSection(false);
    list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    for (int c = 1; c < model->columnCount(); ++c)
        list->header()->setSectionResizeMode(c, QHeaderView::Fixed);
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

QToolButton *sortButton(QWidget *parent, const QString &name)
{
    auto *button = new QToolButton(parent);
    button->setObjectName(name);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(new QMenu(button));
    return button;
}

} // namespace

KestalDetailViewController::KestalDetailViewController(int moduleIndex, QWidget *parent,
                                                       KestalTopDetailRigthOutlineView *files)
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

    m_categories = new KestalTopDetailLeftTableView(moduleIndex, this);
    m_files = files ? files : new KestalTopDetailRigthOutlineView(moduleIndex);
    m_files->setParent(this);
    m_left = makeList(this, QStringLiteral("leftCategoryTableView"), m_categories);
    m_left->setRootIsDecorated(false);
    m_left->setFixedWidth(leftWidth);
    m_left->header()->setSectionResizeMode(KestalTopDetailLeftTableView::sizeColumn,
                                           QHeaderView::ResizeToContents);
    m_right = makeList(this, QStringLiteral("rightOutlineView"), m_files);
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

    connect(m_left->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) {
                if (!m_filling && current.isValid())
                    clickEvent(m_categories->categoryAt(current.row()));
            });
    connect(m_categories, &KestalTopDetailLeftTableView::categoryStateChanged, this,
            [this](int categoryIndex) {
                if (categoryIndex == m_files->categoryIndex())
                    m_files->checksChanged();
                categoryStateChanged(categoryIndex);
            });
    connect(m_files, &KestalTopDetailRigthOutlineView::fileStateChanged, this,
            [this](int categoryIndex) {
                m_categories->categoryChanged(categoryIndex);
                categoryStateChanged(categoryIndex);
            });
    connect(m_right->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &KestalDetailViewController::updateRightTopDescInfo);
    connect(m_right, &QTreeView::customContextMenuRequested, this,
            &KestalDetailViewController::showContextMenu);

    // Back and search above; then a grid whose columns are the two panes,
    // so that each pane's select-all box and sort menu stand on one line.
    m_top = new QHBoxLayout;
    m_top->addWidget(m_back);
    m_top->addStretch(1);
    m_top->addWidget(m_search);
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
    auto *panes = m_panes = new QGridLayout;
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
    layout->addLayout(m_top);
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
                 m_files->sortby(), m_files->sortDirection(),
                 [this](const QString &direction, const QString &key) { sort(direction, key); });
    fillSortMenu(
        m_categoryPopUpButton->menu(), {{"Name", "name"}, {"Size", "size"}}, m_categories->sortby(),
        m_categories->sortDirection(),
        [this](const QString &direction, const QString &key) { categorySort(direction, key); });
    // The size and date columns fit their longest text in this language and font.
    const QFontMetrics metrics = m_right->fontMetrics();
    const int padding = 3 * metrics.averageCharWidth();
    m_right->header()->resizeSection(KestalTopDetailRigthOutlineView::sizeColumn,
                                     metrics.horizontalAdvance(byteString(999'900'000)) + padding);
    m_right->header()->resizeSection(KestalTopDetailRigthOutlineView::dateColumn,
                                     metrics.horizontalAdvance(QStringLiteral("0000-00-00 00:00")) +
                                         padding);
    // Titles and sizes are texts of the language: both panes read them anew.
    m_filling = true;
    m_categories->reloadData();
    m_filling = false;
    showCategory(m_tableViewRow);
}

QList<Category> KestalDetailViewController::shownModuleCategories() const
{
    // A module without categories (a table under test, a module to come)
    // shows empty panes.
    return AppModuleService::appModules().at(m_moduleIndex).categories.value_or(QList<Category>());
}

void KestalDetailViewController::reloadData()
{
    m_search->clear();
    m_filling = true;
    m_categories->searchFiles(QString());
    m_filling = false;
    showFirstRow();
}

void KestalDetailViewController::showFirstRow()
{
    const int first = m_categories->categoryAt(0);
    showCategory(first < 0 && !m_categories->showsPlaceholder() ? 0 : first);
}

void KestalDetailViewController::clickEvent(int cateNum)
{
    showCategory(cateNum);
}

void KestalDetailViewController::showCategory(int cateNum)
{
    // -1 is the placeholder of a list with no category to show.
    m_tableViewRow = m_categories->showsPlaceholder() ? -1 : qMax(0, cateNum);
    selectCategoryRow(m_categories->rowOf(m_tableViewRow));
    m_files->reloadData(m_tableViewRow);
    m_right->setCurrentIndex(m_files->index(0, 0));
    updateRightTopDescInfo();
    updateTopCategorySelectBtnStatus();
    updateTopDetailSelectBtnStatus();
}

void KestalDetailViewController::selectCategoryRow(int row)
{
    m_filling = true;
    if (row >= 0)
        m_left->setCurrentIndex(m_categories->index(row, 0));
    else
        m_left->selectionModel()->clear();
    m_filling = false;
}

void KestalDetailViewController::categoryStateChanged(int categoryIndex)
{
    Q_UNUSED(categoryIndex);
    propagateSelection();
    updateTopCategorySelectBtnStatus();
    updateTopDetailSelectBtnStatus();
    emit selectionChanged();
}

void KestalDetailViewController::updateAllDetailStatusAction()
{
    const QList<Category> &categories = AppModuleService::categoriesOf(m_moduleIndex);
    if (m_tableViewRow < 0 || m_tableViewRow >= categories.size())
        return;
    // A mixed or empty box turns on; a full one off.
    KestalTopDetailLeftTableView::setCategoryState(
        m_moduleIndex, m_tableViewRow, categories.at(m_tableViewRow).state == 1 ? 0 : 1);
    m_files->checksChanged();
    m_categories->categoryChanged(m_tableViewRow);
    categoryStateChanged(m_tableViewRow);
}

int KestalDetailViewController::allCategoriesState() const
{
    const QList<Category> categories = shownModuleCategories();
    const QList<int> inView = m_categories->categoriesInView();
    int on = 0;
    for (int ci : inView) {
        if (categories[ci].state == -1)
            return -1;
        on += categories[ci].state;
    }
    if (on == 0)
        return 0;
    return on == inView.size() ? 1 : -1;
}

void KestalDetailViewController::updateAllCategoryStatusAction()
{
    // Over every category of the module (of the kind on review), found by
    // the search or not: a mixed or empty box turns all on, a full one all off.
    const int state = allCategoriesState() == 1 ? 0 : 1;
    for (int ci : m_categories->categoriesInView())
        KestalTopDetailLeftTableView::setCategoryState(m_moduleIndex, ci, state);
    m_categories->allCategoriesChanged();
    m_files->checksChanged();
    categoryStateChanged(-1);
}

void KestalDetailViewController::updateTopCategorySelectBtnStatus()
{
    const int state = allCategoriesState();
    m_allCategory->setTristate(state == -1);
    m_allCategory->setCheckState(checkStateOf(state));
    m_allCategory->setText(state == 1 ? getLocalizedString(QStringLiteral("Deselect All"))
                                      : getLocalizedString(QStringLiteral("Select All")));
    m_allCategory->setEnabled(!m_categories->categoriesInView().isEmpty());
}

void KestalDetailViewController::updateTopDetailSelectBtnStatus()
{
    const QList<Category> categories = shownModuleCategories();
    const int state = m_tableViewRow >= 0 && m_tableViewRow < categories.size()
                          ? categories[m_tableViewRow].state
                          : 0;
    m_allDetail->setTristate(state == -1);
    m_allDetail->setCheckState(checkStateOf(state));
    m_allDetail->setText(state == 1 ? getLocalizedString(QStringLiteral("Deselect All"))
                                    : getLocalizedString(QStringLiteral("Select All")));
    m_allDetail->setEnabled(!m_files->isEmptyList());
}

void KestalDetailViewController::updateRightTopDescInfo()
{
    // A child row shows its file in the header.
    QModelIndex current = m_right->currentIndex();
    if (current.parent().isValid())
        current = current.parent();
    const FolderInfoPtr file = m_files->fileAt(current);
    if (!file) {
        m_rightTitle->setText(m_files->emptyRowText());
        const std::optional<Category> &placeholder = m_categories->placeholder();
        m_rightDesc->setFullText(m_categories->showsPlaceholder()
                                     ? getLocalizedString(placeholder->description)
                                     : QString());
        return;
    }
    // The title as its row reads it.
    m_rightTitle->setText(current.siblingAtColumn(0).data().toString());
    m_rightDesc->setFullText(file->url.toLocalFile());
}

void KestalDetailViewController::showContextMenu(const QPoint &at)
{
    const QModelIndex index = m_right->indexAt(at);
    if (!index.isValid() || index.parent().isValid())
        return;
    const FolderInfoPtr file = m_files->fileAt(index);
    if (!file || file->url.toLocalFile().isEmpty()) // a row of a store has no place to show
        return;
    QMenu menu;
    menu.addAction(getLocalizedString(QStringLiteral("Show in Folder")),
                   [file] { openFolderPathAction(*file); });
    menu.exec(m_right->viewport()->mapToGlobal(at));
}

void KestalDetailViewController::sort(const QString &sortDirection, const QString &sortby)
{
    m_files->sort(sortDirection, sortby);
}

void KestalDetailViewController::categorySort(const QString &sortDirection, const QString &sortby)
{
    m_filling = true;
    m_categories->sort(sortDirection, sortby);
    m_filling = false;
    // The first row of the new order is the one shown.
    showFirstRow();
}

void KestalDetailViewController::searchDetaiAction()
{
    m_filling = true;
    m_categories->searchFiles(m_search->text().trimmed());
    if (m_categories->rowCount() == 0) {
        m_filling = false;
        UIUtil::dialogInfo(getLocalizedString(QStringLiteral("Error")),
                           getLocalizedString(QStringLiteral("This category is empty!")));
        m_filling = true;
        m_search->clear();
        m_categories->searchFiles(QString());
    }
    m_filling = false;
    showFirstRow();
}

void KestalDetailViewController::backAction()
{
    emit backRequested();
}

bool KestalDetailViewController::openFolderPathAction(const FolderInfo &file)
{
    return Workspace::selectFile(file.url.toLocalFile());
}
