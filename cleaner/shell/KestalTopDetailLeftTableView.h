#pragma once

#include "cleaner/core/ModuleTypes.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QIcon>
#include <functional>
#include <optional>

// The review's categories as a model: title, size and tick box of each
// category of one module, filtered by a search and in the chosen order. A
// tick goes through AppModuleService::updateState and updates that row only.
class KestalTopDetailLeftTableView : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { titleColumn = 0, sizeColumn, columnCount_ };
    static constexpr int categoryRole = Qt::UserRole;

    explicit KestalTopDetailLeftTableView(int moduleIndex, QObject *parent = nullptr);

    // The module's categories afresh, then filter and order.
    void reloadData();
    // Keeps the categories whose translated title holds the words, ignoring case.
    void searchFiles(const QString &keywords);
    // "ascending"/"descending" by "name" or "size"; an unknown word keeps the
    // stored one. The module table's order stands until the first key.
    void sort(const QString &sortDirection, const QString &sortby);
    void sort(int column, Qt::SortOrder order) override;

    QString sortDirection() const { return m_sortDirection; }
    QString sortby() const { return m_sortby; }
    // The category index shown in a row, -1 for none; the row of a category, -1 when hidden.
    int categoryAt(int row) const { return m_rows.value(row, -1); }
    int rowOf(int categoryIndex) const
    {
        return showsPlaceholder() && categoryIndex < 0 ? 0 : int(m_rows.indexOf(categoryIndex));
    }
    // A category's state or size changed elsewhere: its row is drawn again.
    void categoryChanged(int categoryIndex);
    // Every category's state changed.
    void allCategoriesChanged();

    // Shows only the categories that pass (a review by kind); an empty
    // function shows all. Takes effect with the next reloadData.
    void setFilter(std::function<bool(const Category &)> keep) { m_keep = std::move(keep); }
    // The categories that pass the filter, whatever the search.
    QList<int> categoriesInView() const;
    // The row shown, without a tick box, when no category passes.
    void setPlaceholder(std::optional<Category> placeholder);
    const std::optional<Category> &placeholder() const { return m_placeholder; }
    bool showsPlaceholder() const { return m_rows.isEmpty() && m_placeholder.has_value(); }
    // Each category drawn with the type icon of its first file, as groups of
    // copies are, in place of its named image.
    void setIsRealImage(bool on) { m_isRealImage = on; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // Sets a category and every file of it in one pass.
    static void setCategoryState(int moduleIndex, int categoryIndex, int state);

signals:
    // The user ticked a category's box.
    void categoryStateChanged(int categoryIndex);

private:
    QList<int> filteredAndSorted() const;

    int m_moduleIndex;
    QList<int> m_rows;
    QString m_keywords;
    QString m_sortDirection = QStringLiteral("descending");
    QString m_sortby; // empty: the module table's order
    std::function<bool(const Category &)> m_keep;
    std::optional<Category> m_placeholder;
    bool m_isRealImage = false;
    mutable QHash<QString, QIcon> m_icons;
};
