#include "cleaner/shell/ImageStore.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

namespace {

const char *const folders[] = {"modules", "categories", "states", "flags", "app", "files"};

} // namespace

QString ImageStore::pathOf(const QString &name)
{
    for (const char *folder : folders) {
        const QString path = QStringLiteral(":/icons/%1/%2.svg").arg(QLatin1String(folder), name);
        if (QFileInfo::exists(path))
            return path;
    }
    return {};
}

bool ImageStore::has(const QString &name)
{
    return !pathOf(name).isEmpty();
}

QPixmap ImageStore::pixmap(const QString &name, const QSize &size, qreal devicePixelRatio)
{
    QString path = pathOf(name);
    if (path.isEmpty())
        path = pathOf(QStringLiteral("Placeholder"));
    QPixmap pixmap(size * devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QSvgRenderer renderer(path);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon ImageStore::icon(const QString &name)
{
    const QString path = pathOf(name);
    return QIcon(path.isEmpty() ? pathOf(QStringLiteral("Placeholder")) : path);
}

QIcon ImageStore::themeIcon(const QString &freedesktopName, const QString &fallbackName)
{
    // An application's picture may be named by its path.
    if (freedesktopName.startsWith(QLatin1Char('/'))) {
        QImageReader reader(freedesktopName);
        return reader.canRead() ? QIcon(freedesktopName) : icon(fallbackName);
    }
    return QIcon::fromTheme(freedesktopName, icon(fallbackName));
}
