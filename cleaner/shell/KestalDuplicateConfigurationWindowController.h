#pragma once

#include "cleaner/shell/KestalConfigurationWindowController.h"

class QLineEdit;

// The duplicate finder's configuration: the size in KiB at or below which
// a file is skipped. Only an integer is taken; anything else is answered
// with a warning and changes nothing. The value lasts for the run.
class KestalDuplicateConfigurationWindowController : public KestalConfigurationWindowController {
    Q_OBJECT
public:
    explicit KestalDuplicateConfigurationWindowController(QWidget *parent = nullptr);

    // The menu's action: shows the window, raising the one already open.
    static KestalDuplicateConfigurationWindowController *duplicateConfigureAction();
    bool saveAndCloseAction() override;

    QLineEdit *bottomEnterValueTextField() const { return m_value; }

protected:
    void reloadTexts() override;

private:
    QLineEdit *m_value;
};
