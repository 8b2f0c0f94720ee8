#pragma once

#include <QListWidget>

// The list of modules on the left of the main window, in left-list order.
// Heading rows ("Cleanup", "Tools") stand between them and cannot be
// chosen; choosing a module row puts that module on screen.
class KestalLeftTableViewController : public QListWidget {
    Q_OBJECT
public:
    // The module index on screen.
    static qint64 currentRow;

    explicit KestalLeftTableViewController(QWidget *parent = nullptr);

    // The left-list row of a module index, -1 when it is not listed.
    int rowOfModule(int moduleIndex) const;
    int moduleOfRow(int row) const;
    bool isHeaderRow(int row) const;
    void selectModule(int moduleIndex);
    // Redraws a module's row (a scan's progress or its result).
    void refreshRow(int moduleIndex);
    // The short status at the right of a module's row ("42%", "3.0 MB").
    QString detailOfModule(int moduleIndex) const;
    // Sets every row's text again in the interface language.
    void reloadTexts();
    // Where a row's title is drawn when this status stands at its right.
    QRect titleRect(int row, const QString &detail) const;
    // The widest status a row can show in the interface language.
    static QString widestDetail();
    // Wide enough for every title beside the widest status.
    QSize sizeHint() const override;

signals:
    void moduleSelected(int moduleIndex);

private:
    void onSelectionChanged();
    QList<int> m_rows;
};
