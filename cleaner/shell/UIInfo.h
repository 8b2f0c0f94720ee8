#pragma once

#include <QColor>
#include <QFont>
#include <QHash>
#include <QList>
#include <QString>

// One named style of the edition's style list: a font, a text or plain
// colour, a button background, and gradient stops. Colours are 0 to 255,
// opacities 0 to 1.
struct MyUI {
    QString name = QStringLiteral("Arial");
    double size = 0;
    int weight = 0;
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;
    double bred = 0;
    double bgreen = 0;
    double bblue = 0;
    double balpha = 0;
    QList<QList<double>> gradual;
};

// Every font and colour of the screens, by style name, from the edition's UI
// list. What a style holds follows from words inside its name: "color",
// "font", "button" and "gradual". An unknown name, a missing list or a short
// gradient stop is a fault of the build and stops the program.
class UIInfo {
public:
    static const QHash<QString, MyUI> &AllUIs();
    static const MyUI &nsMyUI(const QString &name);
    static QColor nsColor(const QString &name);
    static QList<QColor> nsGradualColor(const QString &name);
    // The style's font: family, point size and weight (100 to 900).
    static QFont nsFont(const QString &name);
    static QFont fontOf(const MyUI &myui);
    // The button background of a style.
    static QColor buttonColor(const MyUI &myui);
    static QColor textColor(const MyUI &myui);
    // Drops the loaded list (tests, and a change of resource folder).
    static void reset();

    static QHash<QString, MyUI> parse(const QVariant &root);
};
