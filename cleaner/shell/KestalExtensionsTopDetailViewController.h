#pragma once

#include "cleaner/shell/KestalDetailViewController.h"

class QListWidget;
class QTreeWidget;

// The review of the extensions module: its categories on the left, the
// chosen one's items on the right, each with its state button (on or off)
// and a button that shows it in the file manager. Nothing here is ticked or
// cleaned: the state button has the helper move the item in or out of use.
// It stands in the review's place, so the bar and the switch treat it as one.
class KestalExtensionsTopDetailViewController : public KestalDetailViewController {
    Q_OBJECT
public:
    explicit KestalExtensionsTopDetailViewController(QWidget *parent = nullptr);

    enum Column { nameColumn = 0, pathColumn, sizeColumn, statusColumn, openColumn };

    // The categories afresh (on entering the review, after a scan).
    void reloadCategory();
    // The chosen category's items, searched and sorted.
    void reloadDetail();
    void clickDetail(int cateNum);
    // "ascending"/"descending" by "name" or "size".
    void sortFiles(const QString &sortDirection, const QString &sortby);
    void searchFiles(const QString &keywords);
    // The state button of a row: the item goes out of use or back.
    void moveFile(int row);

    QListWidget *categoryList() const { return m_categoriesList; }
    QTreeWidget *extensionList() const { return m_list; }
    // The state button of a row on screen.
    QPushButton *statusBtn(int row) const;
    // The file positions of the rows on screen, in their order.
    const QList<int> &shownFiles() const { return m_shown; }

protected:
    void reloadTexts() override;

private:
    QList<FolderInfoPtr> filesOf(int ci) const;

    QListWidget *m_categoriesList = nullptr;
    QTreeWidget *m_list = nullptr;
    QLineEdit *m_searchBox = nullptr;
    QToolButton *m_sortButton = nullptr;
    QPushButton *m_backBtn = nullptr;
    int m_ci = 0;
    QString m_keywords;
    QString m_sortDirection = QStringLiteral("ascending");
    QString m_sortby = QStringLiteral("name");
    QList<int> m_shown;
};
