#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

class QCheckBox;
class QComboBox;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The Eraser's list: one row per added file or folder with its check box,
// "Add Files" and "Add Folder", one box that selects or deselects all, and
// the sort pop-up by name. Rows keep their item's index in the module's
// list, whatever the order shown.
class KestalShredTopDetailViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalShredTopDetailViewController(QWidget *parent = nullptr);

    // The length at which a row's title is cut, "..." behind it.
    static constexpr int titleLength = 40;
    static QString cutTitle(const QString &title);

    // Adds paths in turn; a refused one shows its words as a warning.
    void addPaths(const QStringList &paths);
    void reloadData();
    void selectAll(bool on);
    // Ascending (0) or descending (1) by name.
    void sortBy(int order);
    // Takes the selected rows out of the list.
    void removeSelectedRows();

    QTreeWidget *tableView() const { return m_table; }
    QCheckBox *selectAllBox() const { return m_selectAll; }
    QComboBox *sortPopUp() const { return m_sort; }
    QPushButton *addFilesButton() const { return m_addFiles; }

signals:
    // The list or its check boxes changed: the bar shows the new choice.
    void selectionChanged();

protected:
    void reloadTexts() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void itemChanged(QTreeWidgetItem *item);

    QTreeWidget *m_table;
    QCheckBox *m_selectAll;
    QComboBox *m_sort;
    QPushButton *m_addFiles;
    QPushButton *m_addFolder;
    bool m_filling = false;
};
