#pragma once

#include "cleaner/shell/UIInfo.h"

#include <QString>
#include <optional>

class QAbstractButton;
class QLabel;

// Applies named styles to labels and buttons, and shows the two modal
// dialogs that every screen uses.
class UIUtil {
public:
    static void setTextAttribute(QLabel *txt, const MyUI &myui,
                                 std::optional<Qt::Alignment> alignment = {},
                                 std::optional<QString> title = {});
    // The text in the style, with the characters [start, start + length) in a second colour.
    static void setTextAttribute(QLabel *txt, const QString &title, const MyUI &myui,
                                 const QColor &secondColor, qsizetype start, qsizetype length);
    // The same text as a value: rich text in the style's font and colour.
    static QString getAttributedString(const QString &txt, const MyUI &myui,
                                       const QString &fontStyle = QString());

    static void setBtnAttribute(QAbstractButton *btn, const QString &title, const MyUI &myui);
    static void setBtnStyle(QAbstractButton *btn, const QString &title, const QColor &boardColor,
                            const MyUI &myui);

    // A modal message with one button, "OK".
    static void dialogInfo(const QString &question, const QString &text);
    // A modal question with "Confirm" and "Cancel"; true when "Confirm" was pressed.
    static bool dialogOKCancel(const QString &question, const QString &text);

    // "rgba(r, g, b, a)" for style sheets.
    static QString cssColor(const QColor &color);
};
