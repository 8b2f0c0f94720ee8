#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

#include <QMainWindow>

class KestalLeftTableViewController;
class KestalRightSplitController;
class QLabel;

// The root of the main window: the module list on the left and the module
// on screen on the right.
class KestalRootViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalRootViewController(QWidget *parent = nullptr);

    KestalLeftTableViewController *leftTable() const { return m_left; }
    KestalRightSplitController *rightSplit() const { return m_right; }

    // The main window ("mainWindow") with a root inside.
    static QMainWindow *instantiateMainWindow();
    static KestalRootViewController *rootOf(QMainWindow *window);

    // What its screens need in the interface language, and never less than
    // the size the screens are drawn for.
    QSize minimumSizeHint() const override;

protected:
    void reloadTexts() override;

private:
    void showModule(int moduleIndex);

    KestalLeftTableViewController *m_left;
    KestalRightSplitController *m_right;
    QLabel *m_brand;
};
