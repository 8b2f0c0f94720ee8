#include "cleaner/shell/KestalImagePreview.h"

#include "cleaner/core/SwitchLanguageService.h"

#include <QImageReader>
#include <QPixmap>

KestalImagePreview::KestalImagePreview(QSize box, QWidget *parent) : QLabel(parent), m_box(box)
{
    setObjectName(QStringLiteral("previewImageView"));
    setFixedSize(box);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    // One decode at a time: a newer request makes the queued ones moot.
    m_decoder.setMaxThreadCount(1);
}

KestalImagePreview::~KestalImagePreview()
{
    m_decoder.clear();
    m_decoder.waitForDone();
}

QImage KestalImagePreview::decodeScaled(const QString &path, QSize box)
{
    QImageReader reader(path);
    reader.setAutoTransform(true); // shown as the camera held it
    const QSize full = reader.size();
    if (full.isValid() && (full.width() > box.width() || full.height() > box.height())) {
        // A JPEG is then decoded at a fraction of its size inside the decoder.
        QSize target = full.scaled(box, Qt::KeepAspectRatio);
        if (reader.transformation() & QImageIOHandler::TransformationRotate90)
            target = full.scaled(box.transposed(), Qt::KeepAspectRatio);
        reader.setScaledSize(target.expandedTo(QSize(1, 1)));
    }
    QImage image = reader.read();
    if (!image.isNull() && (image.width() > box.width() || image.height() > box.height()))
        image = image.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return image;
}

void KestalImagePreview::showPicture(const QString &path)
{
    const quint64 request = ++m_request;
    m_shown.clear();
    clear();
    m_decoder.clear();
    if (path.isEmpty())
        return;
    const QSize box = m_box * devicePixelRatioF();
    const qreal ratio = devicePixelRatioF();
    // The destructor waits for the decode in hand, so `this` outlives it; a
    // report still queued when the box goes is dropped with it.
    m_decoder.start([this, request, path, box, ratio] {
        if (m_request.load() != request)
            return; // another picture was asked for meanwhile
        QImage image = decodeScaled(path, box);
        image.setDevicePixelRatio(ratio);
        QMetaObject::invokeMethod(
            this, [this, request, path, image] { showDecoded(request, path, image); },
            Qt::QueuedConnection);
    });
}

void KestalImagePreview::showDecoded(quint64 request, const QString &path, const QImage &image)
{
    if (request != m_request.load())
        return;
    if (image.isNull())
        setText(getLocalizedString(QStringLiteral("No preview")));
    else
        setPixmap(QPixmap::fromImage(image));
    m_shown = path;
}
