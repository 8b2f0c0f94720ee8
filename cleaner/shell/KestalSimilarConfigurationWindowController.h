#pragma once

#include "cleaner/shell/KestalConfigurationWindowController.h"

#include <optional>

class QComboBox;

// The similar image finder's configuration: the greatest difference between
// two pictures of one group. A number chosen in the pop-up applies at once;
// one typed in applies with OK when it is a whole number a hash can differ
// by (1 to 64), and anything else is answered with a warning and changes
// nothing. The value lasts for the run and applies to the next scan.
class KestalSimilarConfigurationWindowController : public KestalConfigurationWindowController {
    Q_OBJECT
public:
    static constexpr qint64 defaultThreshold = 3;
    static constexpr qint64 greatestThreshold = 64; // the places of a hash

    explicit KestalSimilarConfigurationWindowController(QWidget *parent = nullptr);

    // The menu's action: shows the window, raising the one already open.
    static KestalSimilarConfigurationWindowController *similarConfigureAction();
    // The pop-up's choice: its title's number, or the default when the
    // title is no threshold, or nothing is chosen.
    void sortAction();
    bool saveAndCloseAction() override;
    // The threshold a text gives, if it is one.
    static std::optional<qint64> thresholdOf(const QString &text);

    QComboBox *sortPopBtn() const { return m_choices; }

protected:
    void reloadTexts() override;

private:
    QComboBox *m_choices;
};
