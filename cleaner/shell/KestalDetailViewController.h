#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"
#include "cleaner/shell/KestalSuperViewController.h"

class ElidedLabel;
class KestalTopDetailLeftTableView;
class KestalTopDetailRigthOutlineView;
class QCheckBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QModelIndex;
class QPushButton;
class QToolButton;
class QTreeView;

// The review of a module's scan: its categories on the left, the files of
// the chosen one on the right, each with a tick box that says whether it
// goes in the clean. Both panes are views over models of the module's
// table; every change goes through AppModuleService::updateState and
// redraws only the rows it changed.
class KestalDetailViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    // `files` is a right pane of the module's own kind, which the screen
    // takes over; without one the files show as every module's do.
    explicit KestalDetailViewController(int moduleIndex, QWidget *parent = nullptr,
                                        KestalTopDetailRigthOutlineView *files = nullptr);

    // Lists the module's categories afresh (on entering the review).
    virtual void reloadData();
    // A category was chosen: its files fill the right pane.
    void clickEvent(int cateNum);
    void updateAllDetailStatusAction();
    // The box over the categories: all of the module's on or off.
    void updateAllCategoryStatusAction();
    void searchDetaiAction();
    void backAction();
    // New order of the right pane: "ascending"/"descending" by "name",
    // "size", "date" or "selection"; an unknown word keeps the one stored.
    void sort(const QString &sortDirection, const QString &sortby);
    // The same for the categories, by "name" or "size"; the module table's
    // order stands until the first choice.
    void categorySort(const QString &sortDirection, const QString &sortby);
    // Shows the file selected in the desktop's file manager.
    static bool openFolderPathAction(const FolderInfo &file);

    QTreeView *leftCategoryTableView() const { return m_left; }
    QTreeView *rightOutlineView() const { return m_right; }
    KestalTopDetailLeftTableView *categoryModel() const { return m_categories; }
    KestalTopDetailRigthOutlineView *fileModel() const { return m_files; }
    QCheckBox *updateAllDetailBtn() const { return m_allDetail; }
    QCheckBox *updateAllCategoryBtn() const { return m_allCategory; }
    QLineEdit *searchField() const { return m_search; }
    QPushButton *rightTopBackBtn() const { return m_back; }
    QLabel *rightTopTitleTextField() const { return m_rightTitle; }

signals:
    // The selection changed; the bar shows the new chosen size.
    void selectionChanged();
    void backRequested();

protected:
    void reloadTexts() override;
    // After a tick, before the boxes and the bar read the states: a module
    // whose nodes stand in several categories brings the others up to date.
    virtual void propagateSelection() {}
    // The row above the panes (back button, search field), for a module's own controls.
    QHBoxLayout *topRow() const { return m_top; }
    // The panes' grid: row 2 holds the lists (column 0 the categories,
    // column 1 the files); the rows below are free for a module's own pieces.
    QGridLayout *panesLayout() const { return m_panes; }
    // Shows the first row of the left pane (a category, or the placeholder).
    void showFirstRow();

private:
    // Shows the chosen category's files and sets the header and both boxes.
    void showCategory(int cateNum);
    void updateRightTopDescInfo();
    void updateTopDetailSelectBtnStatus();
    void updateTopCategorySelectBtnStatus();
    // After a tick in either pane: the other pane's rows, the boxes, the bar.
    void categoryStateChanged(int categoryIndex);
    // 1, 0, or -1 when the module's categories are not all alike.
    int allCategoriesState() const;
    void selectCategoryRow(int row);
    void showContextMenu(const QPoint &at);
    QList<Category> shownModuleCategories() const;

    int m_moduleIndex;
    int m_tableViewRow = 0;
    bool m_filling = false;

    QLineEdit *m_search;
    QToolButton *m_popUpButton;
    QToolButton *m_categoryPopUpButton;
    QCheckBox *m_allCategory;
    QTreeView *m_left;
    QTreeView *m_right;
    KestalTopDetailLeftTableView *m_categories;
    KestalTopDetailRigthOutlineView *m_files;
    QLabel *m_rightTitle;
    ElidedLabel *m_rightDesc;
    QCheckBox *m_allDetail;
    QPushButton *m_back;
    QHBoxLayout *m_top;
    QGridLayout *m_panes;
};
