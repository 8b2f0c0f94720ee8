#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

// The product's drawings by image name (the names of the module table and
// of the screens), embedded as SVG under :/icons and drawn sharp at any
// scale. Names the product has no drawing for fall back to a neutral one.
class ImageStore {
public:
    // ":/icons/<folder>/<name>.svg" of the first folder that has the name.
    static QString pathOf(const QString &name);
    static bool has(const QString &name);
    static QPixmap pixmap(const QString &name, const QSize &size, qreal devicePixelRatio);
    static QIcon icon(const QString &name);
    // The desktop theme's icon of a freedesktop name (or the picture at an
    // absolute path), or the product's own drawing.
    static QIcon themeIcon(const QString &freedesktopName, const QString &fallbackName);
};
