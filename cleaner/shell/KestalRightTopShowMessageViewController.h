#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

class QCheckBox;
class QLabel;

// The top area of a module after its scan: what was found, or that nothing was.
class KestalRightTopShowMessageViewController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalRightTopShowMessageViewController(int moduleIndex, QWidget *parent = nullptr);

    // Shows the state with the size the module's scan found.
    void changeViewStatus(viewStatus status);
    QLabel *titleLabel() const { return m_title; }
    QLabel *messageLabel() const { return m_message; }
    // Auto Cleanup's box of each child module with something found, by module.
    QCheckBox *childBox(int moduleIndex) const { return m_childBoxes.value(moduleIndex); }

signals:
    // The user turned a child module's box on (1) or off (0).
    void childBoxChanged(int moduleIndex, int state);

protected:
    void reloadTexts() override { updateView(); }

private:
    // Sets every widget from the state.
    void updateView();

    int m_moduleIndex;
    viewStatus m_status = viewStatus::scandone_Empty;
    qint64 m_foundSize = 0;
    QLabel *m_image;
    QLabel *m_title;
    QLabel *m_message;
    QWidget *m_children;
    QHash<int, QCheckBox *> m_childBoxes;
};
