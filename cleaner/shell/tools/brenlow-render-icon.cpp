// Renders the application's SVG icon to the PNG sizes of the hicolor theme,
// at build time, so that the installed bitmaps never drift from the drawing.
//
//   brenlow-render-icon ICON.svg OUT_DIR NAME SIZE...
// writes OUT_DIR/SIZExSIZE/apps/NAME.png for each SIZE.
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() < 5) {
        std::fputs("usage: brenlow-render-icon ICON.svg OUT_DIR NAME SIZE...\n", stderr);
        return 1;
    }
    QSvgRenderer renderer(args[1]);
    if (!renderer.isValid()) {
        std::fprintf(stderr, "brenlow-render-icon: cannot read %s\n", qPrintable(args[1]));
        return 1;
    }
    for (const QString &text : args.mid(4)) {
        bool ok = false;
        const int size = text.toInt(&ok);
        if (!ok || size < 1 || size > 1024) {
            std::fprintf(stderr, "brenlow-render-icon: bad size %s\n", qPrintable(text));
            return 1;
        }
        QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        renderer.render(&painter);
        painter.end();
        const QString folder = QStringLiteral("%1/%2x%2/apps").arg(args[2]).arg(size);
        const QString file = folder + QLatin1Char('/') + args[3] + QStringLiteral(".png");
        if (!QDir().mkpath(folder) || !image.save(file)) {
            std::fprintf(stderr, "brenlow-render-icon: cannot write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
