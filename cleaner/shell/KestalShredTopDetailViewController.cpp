#include "cleaner/shell/KestalShredTopDetailViewController.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/erasure/ShredService.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <numeric>

namespace {

constexpr int kRowRole = Qt::UserRole + 1;

QList<Category> &items()
{
    return AppModuleService::categoriesOf(ShredService::moduleIndex);
}

} // namespace

KestalShredTopDetailViewController::KestalShredTopDetailViewController(QWidget *parent)
    : KestalSuperViewController(parent)
{
    setObjectName(QStringLiteral("shredList"));
    m_addFiles = new QPushButton(this);
    m_addFolder = new QPushButton(this);
    m_selectAll = new QCheckBox(this);
    m_sort = new QComboBox(this);
    m_table = new QTreeWidget(this);
    m_table->setColumnCount(2);
    m_table->setRootIsDecorated(false);
    m_table->setHeaderHidden(true);
    m_table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_table->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_table->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_table->header()->setStretchLastSection(false);
    auto *remove = new QAction(m_table);
    remove->setObjectName(QStringLiteral("removeFromList"));
    m_table->addAction(remove);

    auto *bar = new QHBoxLayout;
    bar->addWidget(m_selectAll);
    bar->addStretch(1);
    bar->addWidget(m_sort);
    bar->addWidget(m_addFolder);
    bar->addWidget(m_addFiles);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 16, 24, 12);
    layout->addLayout(bar);
    layout->addWidget(m_table, 1);

    connect(m_addFiles, &QPushButton::clicked, this, [this] {
        addPaths(
            QFileDialog::getOpenFileNames(this, getLocalizedString(QStringLiteral("Add Files"))));
    });
    connect(m_addFolder, &QPushButton::clicked, this, [this] {
        const QString folder = QFileDialog::getExistingDirectory(
            this, getLocalizedString(QStringLiteral("Add Folder")));
        if (!folder.isEmpty())
            addPaths({folder});
    });
    connect(m_selectAll, &QCheckBox::clicked, this, [this](bool on) { selectAll(on); });
    connect(m_sort, &QComboBox::activated, this, [this](int order) { sortBy(order); });
    connect(m_table, &QTreeWidget::itemChanged, this,
            [this](QTreeWidgetItem *item) { itemChanged(item); });
    connect(remove, &QAction::triggered, this, [this] { removeSelectedRows(); });
    reloadTexts();
}

QString KestalShredTopDetailViewController::cutTitle(const QString &title)
{
    return title.size() > titleLength ? title.left(titleLength) + QStringLiteral("...") : title;
}

void KestalShredTopDetailViewController::reloadTexts()
{
    m_addFiles->setText(getLocalizedString(QStringLiteral("Add Files")));
    m_addFolder->setText(getLocalizedString(QStringLiteral("Add Folder")));
    const int order = std::max(0, m_sort->currentIndex());
    m_sort->clear();
    m_sort->addItems({getLocalizedString(QStringLiteral("Name (A to Z)")),
                      getLocalizedString(QStringLiteral("Name (Z to A)"))});
    m_sort->setCurrentIndex(order);
    m_table->actions().first()->setText(getLocalizedString(QStringLiteral("Remove from the list")));
    reloadData();
}

void KestalShredTopDetailViewController::addPaths(const QStringList &paths)
{
    for (const QString &path : paths) {
        const auto [taken, why] = ShredService::addFileOrDict(path);
        if (!taken)
            showAlert(why, true);
    }
    reloadData();
}

void KestalShredTopDetailViewController::reloadData()
{
    m_filling = true;
    m_table->clear();
    QList<int> rows(items().size());
    std::iota(rows.begin(), rows.end(), 0);
    const bool descending = m_sort->currentIndex() == 1;
    std::stable_sort(rows.begin(), rows.end(), [descending](int a, int b) {
        const int order = QString::localeAwareCompare(items()[a].title, items()[b].title);
        return descending ? order > 0 : order < 0;
    });
    int checked = 0;
    for (const int row : std::as_const(rows)) {
        const Category &c = items()[row];
        auto *item = new QTreeWidgetItem(m_table);
        item->setText(0, cutTitle(c.title));
        item->setToolTip(0, ShredService::pathOf(c));
        item->setText(1, byteString(c.size));
        item->setData(0, kRowRole, row);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(0, c.state == 1 ? Qt::Checked : Qt::Unchecked);
        item->setIcon(0, style()->standardIcon(c.type == QLatin1String("folder")
                                                   ? QStyle::SP_DirIcon
                                                   : QStyle::SP_FileIcon));
        checked += c.state == 1;
    }
    m_selectAll->setText(getLocalizedString(checked == rows.size() && checked > 0
                                                ? QStringLiteral("Deselect All")
                                                : QStringLiteral("Select All")));
    m_selectAll->setCheckState(checked == 0             ? Qt::Unchecked
                               : checked == rows.size() ? Qt::Checked
                                                        : Qt::PartiallyChecked);
    m_selectAll->setEnabled(!rows.isEmpty());
    m_filling = false;
    emit selectionChanged();
}

void KestalShredTopDetailViewController::selectAll(bool on)
{
    for (Category &c : items())
        c.state = on ? 1 : 0;
    reloadData();
}

void KestalShredTopDetailViewController::sortBy(int order)
{
    m_sort->setCurrentIndex(order);
    reloadData();
}

void KestalShredTopDetailViewController::itemChanged(QTreeWidgetItem *item)
{
    if (m_filling)
        return;
    const int row = item->data(0, kRowRole).toInt();
    if (row >= 0 && row < items().size())
        items()[row].state = item->checkState(0) == Qt::Checked ? 1 : 0;
    reloadData();
}

void KestalShredTopDetailViewController::removeSelectedRows()
{
    QList<int> rows;
    for (const QTreeWidgetItem *item : m_table->selectedItems())
        rows.append(item->data(0, kRowRole).toInt());
    ShredService::remove(rows);
    reloadData();
}

void KestalShredTopDetailViewController::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace)
        removeSelectedRows();
    else
        KestalSuperViewController::keyPressEvent(event);
}
