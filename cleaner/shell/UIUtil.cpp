#include "cleaner/shell/UIUtil.h"

#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/shell/ImageStore.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString fontCss(const QFont &font)
{
    return QStringLiteral("font-family: '%1'; font-size: %2pt; font-weight: %3;")
        .arg(font.family())
        .arg(font.pointSizeF())
        .arg(int(font.weight()));
}

// A button's background: its gradient when the style has one, else its plain colour.
QString backgroundCss(const MyUI &myui)
{
    if (myui.gradual.size() < 2)
        return UIUtil::cssColor(UIInfo::buttonColor(myui));
    QString stops;
    const qsizetype last = myui.gradual.size() - 1;
    for (qsizetype i = 0; i <= last; ++i) {
        const QList<double> &s = myui.gradual[i];
        stops +=
            QStringLiteral(", stop:%1 %2")
                .arg(double(i) / double(last))
                .arg(UIUtil::cssColor(QColor::fromRgbF(float(s[0] / 255.0), float(s[1] / 255.0),
                                                       float(s[2] / 255.0), float(s[3]))));
    }
    return QStringLiteral("qlineargradient(x1:0, y1:0, x2:0, y2:1") + stops + QLatin1Char(')');
}

void applyButton(QAbstractButton *btn, const QString &title, const MyUI &myui,
                 const QString &border)
{
    btn->setText(title);
    btn->setFont(UIInfo::fontOf(myui));
    btn->setCursor(Qt::PointingHandCursor);
    const QColor text = UIInfo::textColor(myui);
    // Every button of the product looks the same when it cannot be used.
    const MyUI &disabled = UIInfo::nsMyUI(QStringLiteral("disabled_button_font"));
    const int radius = qMax(4, btn->minimumHeight() / 2);
    btn->setStyleSheet(
        QStringLiteral(
            "QAbstractButton { color: %1; background: %2; border: %3; border-radius: %4px;"
            " padding: 0 22px; }"
            "QAbstractButton:hover { border-color: %1; }"
            "QAbstractButton:pressed { padding-top: 2px; }"
            "QAbstractButton:disabled { color: %5; background: %6; border-color: %6; }")
            .arg(UIUtil::cssColor(text), backgroundCss(myui), border)
            .arg(radius)
            .arg(UIUtil::cssColor(UIInfo::textColor(disabled)),
                 UIUtil::cssColor(UIInfo::buttonColor(disabled))));
}

QMessageBox *messageBox(const QString &question, const QString &text, QMessageBox::Icon icon)
{
    auto *box = new QMessageBox(QApplication::activeWindow());
    box->setAttribute(Qt::WA_DeleteOnClose, false);
    box->setIcon(icon);
    box->setWindowTitle(question);
    box->setText(question);
    box->setInformativeText(text);
    box->setWindowModality(Qt::ApplicationModal);
    box->setIconPixmap(ImageStore::pixmap(icon == QMessageBox::Question ? QStringLiteral("Warn")
                                                                        : QStringLiteral("Info"),
                                          QSize(48, 48), box->devicePixelRatioF()));
    return box;
}

} // namespace

QString UIUtil::cssColor(const QColor &color)
{
    return QStringLiteral("rgba(%1, %2, %3, %4)")
        .arg(color.red())
        .arg(color.green())
        .arg(color.blue())
        .arg(color.alpha());
}

void UIUtil::setTextAttribute(QLabel *txt, const MyUI &myui, std::optional<Qt::Alignment> alignment,
                              std::optional<QString> title)
{
    if (title)
        txt->setText(*title);
    txt->setFont(UIInfo::fontOf(myui));
    QPalette palette = txt->palette();
    palette.setColor(QPalette::WindowText, UIInfo::textColor(myui));
    txt->setPalette(palette);
    if (alignment)
        txt->setAlignment(*alignment);
}

void UIUtil::setTextAttribute(QLabel *txt, const QString &title, const MyUI &myui,
                              const QColor &secondColor, qsizetype start, qsizetype length)
{
    setTextAttribute(txt, myui);
    const QString head = title.left(start).toHtmlEscaped();
    const QString marked = title.mid(start, length).toHtmlEscaped();
    const QString tail = title.mid(start + length).toHtmlEscaped();
    txt->setTextFormat(Qt::RichText);
    txt->setText(head + QStringLiteral("<span style=\"color: %1\">").arg(cssColor(secondColor)) +
                 marked + QStringLiteral("</span>") + tail);
}

QString UIUtil::getAttributedString(const QString &txt, const MyUI &myui, const QString &fontStyle)
{
    return QStringLiteral("<span style=\"%1 color: %2; %3\">%4</span>")
        .arg(fontCss(UIInfo::fontOf(myui)), cssColor(UIInfo::textColor(myui)), fontStyle,
             txt.toHtmlEscaped());
}

void UIUtil::setBtnAttribute(QAbstractButton *btn, const QString &title, const MyUI &myui)
{
    applyButton(btn, title, myui, QStringLiteral("1px solid transparent"));
}

void UIUtil::setBtnStyle(QAbstractButton *btn, const QString &title, const QColor &boardColor,
                         const MyUI &myui)
{
    applyButton(btn, title, myui, QStringLiteral("1px solid ") + cssColor(boardColor));
}

void UIUtil::dialogInfo(const QString &question, const QString &text)
{
    std::unique_ptr<QMessageBox> box(messageBox(question, text, QMessageBox::Information));
    box->addButton(getLocalizedString(QStringLiteral("OK")), QMessageBox::AcceptRole);
    box->exec();
}

bool UIUtil::dialogOKCancel(const QString &question, const QString &text)
{
    std::unique_ptr<QMessageBox> box(messageBox(question, text, QMessageBox::Question));
    QPushButton *confirm =
        box->addButton(getLocalizedString(QStringLiteral("Confirm")), QMessageBox::AcceptRole);
    QPushButton *cancel =
        box->addButton(getLocalizedString(QStringLiteral("Cancel")), QMessageBox::RejectRole);
    box->setDefaultButton(confirm);
    box->setEscapeButton(cancel);
    box->exec();
    return box->clickedButton() == confirm;
}
