#pragma once

#include "cleaner/core/FolderInfo.h"

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>

// The files of the category on review as a tree model: each file of the
// category a row, its children beneath it. Rows are read from the nodes
// only when a view asks for them, so a category of any size opens in the
// time of the rows on screen, plus one sort. A tick goes through
// AppModuleService::updateState and updates that row, its children and its
// parent only.
class KestalTopDetailRigthOutlineView : public QAbstractItemModel {
    Q_OBJECT
public:
    enum Column { nameColumn = 0, sizeColumn, dateColumn, columnCount_ };
    // The file's position in the category (the empty row has -1).
    static constexpr int fileRole = Qt::UserRole;
    // The child's position under its file; -1 on a file's own row.
    static constexpr int childRole = Qt::UserRole + 1;

    explicit KestalTopDetailRigthOutlineView(int moduleIndex, QObject *parent = nullptr);

    // Shows the files of this category of the module.
    void reloadData(int categoryIndex);
    int categoryIndex() const { return m_categoryIndex; }
    // "ascending"/"descending" by "name", "size", "date" or "selection"; an
    // unknown word keeps the stored one. "selection" brings the ticked files
    // together: first when descending, last when ascending. "order" keeps the
    // category's own order in either direction.
    void sort(const QString &sortDirection, const QString &sortby);
    void sort(int column, Qt::SortOrder order) override;
    QString sortDirection() const { return m_sortDirection; }
    QString sortby() const { return m_sortby; }

    // The node of a row, null for the empty row.
    FolderInfoPtr fileAt(const QModelIndex &index) const;
    bool isEmptyList() const { return m_files.isEmpty(); }
    // Each file's row also names its folder, for lists of files that share
    // a name (the copies of a duplicate group).
    void setShowsFolder(bool on) { m_showsFolder = on; }
    // The category's first file is its lead (a group's key picture): its
    // row is in bold and its name followed by this text, translated.
    void setLeadMark(const QString &key) { m_leadMark = key; }
    // The text of the one row an empty list shows ("Empty" unless set).
    void setEmptyRowText(const QString &key) { m_emptyRowText = key; }
    QString emptyRowText() const;
    // The check state of every row changed (a select-all): one signal for
    // the files and one for the children of each file that has any.
    void checksChanged();

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

signals:
    // The user ticked a row; the category's state may have changed.
    void fileStateChanged(int categoryIndex);

private:
    // A child row carries its file's position + 1; a file row carries 0.
    static constexpr quintptr fileRow = 0;
    int fileIndexOf(const QModelIndex &index) const;
    void computeOrder();
    QIcon iconOf(const FolderInfo &file) const;
    QString toolTipOf(const FolderInfo &file) const;
    // The link's target, a null string when the item is no link.
    QString cachedLinkTarget(const FolderInfo &file) const;

    int m_moduleIndex;
    int m_categoryIndex = -1;
    QList<FolderInfoPtr> m_files;
    QList<int> m_order;     // row -> file position
    QList<int> m_rowOfFile; // file position -> row
    QString m_sortDirection = QStringLiteral("descending");
    QString m_sortby = QStringLiteral("size");
    QString m_emptyRowText = QStringLiteral("Empty");
    bool m_showsFolder = false;
    QString m_leadMark;
    mutable QHash<QString, QIcon> m_icons;
    // Links are seen when their row is first drawn, not while the list is built.
    mutable QHash<const FolderInfo *, QString> m_linkTargets;
};
