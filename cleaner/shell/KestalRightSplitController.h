#pragma once

#include "cleaner/shell/KestalRightTabSwitchControllers.h"

#include <QWidget>

// The right side of the main window: a module's top area over its bottom
// bar, each swapped to the module and state on screen.
class KestalRightSplitController : public QWidget {
    Q_OBJECT
public:
    explicit KestalRightSplitController(QWidget *parent = nullptr);

    KestalRightTopTabSwitchController *topSwitch() const { return m_top; }
    KestalRightBottomTabSwitchController *bottomSwitch() const { return m_bottom; }

    void transitionTopView(const QString &fromNameTab, viewStatus toStatus,
                           const QString &toNameTab);
    void transitionBottomView(const QString &fromNameTab, viewStatus toStatus,
                              const QString &toNameTab);
    // Shows a module in the state it was left in.
    void showModule(int moduleIndex);

private:
    KestalRightTopTabSwitchController *m_top = nullptr;
    KestalRightBottomTabSwitchController *m_bottom = nullptr;
};
