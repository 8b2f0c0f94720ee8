#pragma once

#include "cleaner/shell/KestalSuperViewController.h"

#include <optional>

class QComboBox;
class QLabel;
class QPushButton;

// The similar image finder's configuration: the greatest difference between
// two pictures of one group. A number chosen in the pop-up applies at once;
// one typed in applies with OK when it is a whole number a hash can differ
// by (1 to 64), and anything else is answered with a warning and changes
// nothing. The value lasts for the run and applies to the next scan.
class KestalSimilarConfigurationWindowController : public KestalSuperViewController {
    Q_OBJECT
public:
    static constexpr qint64 defaultThreshold = 3;
    static constexpr qint64 greatestThreshold = 64; // the places of a hash

    explicit KestalSimilarConfigurationWindowController(QWidget *parent = nullptr);

    // The menu's action: shows the window, raising the one already open.
    static KestalSimilarConfigurationWindowController *similarConfigureAction();
    // The pop-up's choice: its title's number, or the default when the
    // title is no number of 1 or more, or nothing is chosen.
    void sortAction();
    // Takes the pop-up's text and closes the window; without a threshold in
    // it, warns and leaves value and window as they are.
    bool saveAndCloseAction();
    // The threshold a text gives, if it is one.
    static std::optional<qint64> thresholdOf(const QString &text);

    QComboBox *sortPopBtn() const { return m_choices; }
    QPushButton *okButton() const { return m_ok; }

protected:
    void reloadTexts() override;

private:
    QLabel *m_title;
    QLabel *m_text;
    QComboBox *m_choices;
    QPushButton *m_ok;
};
