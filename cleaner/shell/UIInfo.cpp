#include "cleaner/shell/UIInfo.h"

#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Bundle.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/PropertyList.h"

#include <optional>

namespace {

std::optional<QHash<QString, MyUI>> g_styles;

double number(const QVariantMap &entry, const char *key)
{
    return entry.value(QLatin1String(key)).toDouble();
}

QList<QList<double>> gradientStops(const QString &style, const QVariant &value)
{
    QList<QList<double>> stops;
    for (const QVariant &stop : value.toList()) {
        const QVariantList parts = stop.toList();
        if (parts.size() < 4)
            fatalStop(
                QStringLiteral("the gradient of style %1 has a stop of fewer than four numbers")
                    .arg(style));
        stops.append(
            {parts[0].toDouble(), parts[1].toDouble(), parts[2].toDouble(), parts[3].toDouble()});
    }
    return stops;
}

MyUI parseStyle(const QString &style, const QVariantMap &entry)
{
    MyUI ui;
    const bool font = style.contains(QLatin1String("font"));
    if (font || style.contains(QLatin1String("color"))) {
        ui.red = number(entry, "red");
        ui.green = number(entry, "green");
        ui.blue = number(entry, "blue");
        ui.alpha = number(entry, "alpha");
    }
    if (font) {
        ui.name = entry.value(QStringLiteral("name"), QStringLiteral("Times-Roman")).toString();
        ui.size = number(entry, "size");
        ui.weight = entry.value(QStringLiteral("weight")).toInt();
    }
    if (style.contains(QLatin1String("button"))) {
        ui.bred = number(entry, "bred");
        ui.bgreen = number(entry, "bgreen");
        ui.bblue = number(entry, "bblue");
        ui.balpha = number(entry, "balpha");
    }
    if (style.contains(QLatin1String("gradual")))
        ui.gradual = gradientStops(style, entry.value(QStringLiteral("colors")));
    return ui;
}

QColor colorOf(double red, double green, double blue, double alpha)
{
    return QColor::fromRgbF(float(red / 255.0), float(green / 255.0), float(blue / 255.0),
                            float(alpha));
}

} // namespace

QHash<QString, MyUI> UIInfo::parse(const QVariant &root)
{
    if (root.typeId() != QMetaType::QVariantMap)
        fatalStop(QStringLiteral("the style list is not a dictionary"));
    QHash<QString, MyUI> styles;
    const QVariantMap map = root.toMap();
    for (auto it = map.begin(); it != map.end(); ++it) {
        if (it.value().typeId() != QMetaType::QVariantMap)
            fatalStop(QStringLiteral("the style %1 is not a dictionary").arg(it.key()));
        styles.insert(it.key(), parseStyle(it.key(), it.value().toMap()));
    }
    return styles;
}

const QHash<QString, MyUI> &UIInfo::AllUIs()
{
    if (!g_styles) {
        const QString name = AppModuleService::fileName() + QStringLiteral("UI");
        const QString path = Bundle::pathForResource(name, QStringLiteral("plist"));
        if (path.isEmpty())
            fatalStop(QStringLiteral("the resource %1.plist is missing").arg(name));
        const auto root = PropertyList::fromFile(path);
        if (!root)
            fatalStop(QStringLiteral("the resource %1 cannot be read").arg(path));
        g_styles = parse(*root);
    }
    return *g_styles;
}

const MyUI &UIInfo::nsMyUI(const QString &name)
{
    const auto &styles = AllUIs();
    const auto it = styles.constFind(name);
    if (it == styles.constEnd())
        fatalStop(QStringLiteral("the style %1 is not in the style list").arg(name));
    return *it;
}

QColor UIInfo::textColor(const MyUI &myui)
{
    return colorOf(myui.red, myui.green, myui.blue, myui.alpha);
}

QColor UIInfo::buttonColor(const MyUI &myui)
{
    return colorOf(myui.bred, myui.bgreen, myui.bblue, myui.balpha);
}

QColor UIInfo::nsColor(const QString &name)
{
    return textColor(nsMyUI(name));
}

QList<QColor> UIInfo::nsGradualColor(const QString &name)
{
    QList<QColor> colors;
    for (const QList<double> &stop : nsMyUI(name).gradual)
        colors.append(colorOf(stop[0], stop[1], stop[2], stop[3]));
    return colors;
}

QFont UIInfo::nsFont(const QString &name)
{
    return fontOf(nsMyUI(name));
}

QFont UIInfo::fontOf(const MyUI &ui)
{
    QFont font(ui.name);
    if (ui.size > 0)
        font.setPointSizeF(ui.size);
    if (ui.weight >= 100 && ui.weight <= 900)
        font.setWeight(QFont::Weight(ui.weight));
    return font;
}

void UIInfo::reset()
{
    g_styles.reset();
}
