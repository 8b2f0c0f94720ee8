#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

class QLabel;
class QLineEdit;
class QPushButton;

// The duplicate finder's configuration: the size in KiB at or below which
// a file is skipped. Only an integer is taken; anything else is answered
// with a warning and changes nothing. The value lasts for the run.
class KestalDuplicateConfigurationWindowController : public KestalSuperViewController {
    Q_OBJECT
public:
    explicit KestalDuplicateConfigurationWindowController(QWidget *parent = nullptr);

    // The menu's action: shows the window, raising the one already open.
    static KestalDuplicateConfigurationWindowController *duplicateConfigureAction();
    // Stores the field's integer and closes every configuration window;
    // without an integer, warns and leaves value and window as they are.
    bool saveAndCloseAction();

    QLineEdit *bottomEnterValueTextField() const { return m_value; }
    QPushButton *okButton() const { return m_ok; }

protected:
    void reloadTexts() override;

private:
    QLabel *m_title;
    QLabel *m_text;
    QLineEdit *m_value;
    QPushButton *m_ok;
};
