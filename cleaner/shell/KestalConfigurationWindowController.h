#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

#include <QApplication>

class QLabel;
class QPushButton;

// A finder's configuration window: a title, a line that explains the value,
// the value's field and OK. One window of a kind is open at a time; OK (or
// Return in the field) stores the value and closes it, or warns and leaves
// value and window as they are.
class KestalConfigurationWindowController : public KestalSuperViewController {
    Q_OBJECT
public:
    // Stores the field's value and closes the window; false, after a
    // warning, when the field holds no value.
    virtual bool saveAndCloseAction() = 0;

    QPushButton *okButton() const { return m_ok; }

    // Shows the window of this kind, raising the one already open.
    template <class Window> static Window *showOrRaise()
    {
        for (QWidget *window : QApplication::topLevelWidgets()) {
            if (auto *open = qobject_cast<Window *>(window)) {
                open->show();
                open->raise();
                open->activateWindow();
                return open;
            }
        }
        auto *window = new Window;
        window->show();
        return window;
    }

protected:
    // `identifier` names the window.
    KestalConfigurationWindowController(const QString &identifier, QWidget *parent);
    // Puts the value's field between the text and OK.
    void setField(QWidget *field);
    // The title and the explanation, untranslated.
    void setTexts(const QString &title, const QString &text);
    // Closes every window of this kind.
    void closeAll();

private:
    QLabel *m_title;
    QLabel *m_text;
    QPushButton *m_ok;
};
