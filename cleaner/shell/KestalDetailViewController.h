#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"
#include "cleaner/shell/KestalSuperViewController.h"

class ElidedLabel;
class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

// The review of a module's scan: its categories on the left, the files of
// the chosen one on the right, each with a tick box that says whether it
// goes in the clean. Every change goes through AppModuleService::updateState.
class KestalDetailViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalDetailViewController(int moduleIndex, QWidget *parent = nullptr);

    // Lists the module's categories afresh (on entering the review).
    void reloadData();
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

    QTreeWidget *leftCategoryTableView() const { return m_left; }
    QTreeWidget *rightOutlineView() const { return m_right; }
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

private:
    // Sets every widget from the module's categories and the chosen one.
    void updateView();
    void fillLeft();
    void fillRight();
    void updateRightTopDescInfo();
    void updateTopDetailSelectBtnStatus();
    void updateTopCategorySelectBtnStatus();
    // 1, 0, or -1 when the module's categories are not all alike.
    int allCategoriesState() const;
    void setCategoryState(int categoryIndex, int state);
    // The categories the left pane lists, in its order.
    QList<int> shownCategories() const;
    void itemChanged(QTreeWidgetItem *item, int column);
    QList<FolderInfoPtr> shownFiles() const;
    QList<Category> shownModuleCategories() const;

    int m_moduleIndex;
    int m_tableViewRow = 0;
    QString m_keywords;
    QString m_sortDirection = QStringLiteral("descending");
    QString m_sortby = QStringLiteral("size");
    QString m_cateSortDirection = QStringLiteral("descending");
    QString m_cateSortby;
    bool m_filling = false;

    QLineEdit *m_search;
    QToolButton *m_popUpButton;
    QToolButton *m_categoryPopUpButton;
    QCheckBox *m_allCategory;
    QTreeWidget *m_left;
    QTreeWidget *m_right;
    QLabel *m_rightTitle;
    ElidedLabel *m_rightDesc;
    QCheckBox *m_allDetail;
    QPushButton *m_back;
};
