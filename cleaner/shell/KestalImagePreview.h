#pragma once

#include <QLabel>
#include <QThreadPool>
#include <atomic>

// A picture shown at the size of the box, decoded on a thread of its own so
// that a large photograph never holds the window. A picture asked for while
// another is still decoding replaces it; only the last one asked for shows.
class KestalImagePreview : public QLabel {
    Q_OBJECT
public:
    explicit KestalImagePreview(QSize box, QWidget *parent = nullptr);
    ~KestalImagePreview() override;

    // Shows the picture at `path`; an empty path clears the box.
    void showPicture(const QString &path);
    // The path of the picture on show, once it was decoded; empty before.
    QString shownPath() const { return m_shown; }

    // The picture scaled into `box` (aspect kept, never enlarged), decoded at
    // that size where the format allows; a null image when it is none.
    static QImage decodeScaled(const QString &path, QSize box);

private:
    void showDecoded(quint64 request, const QString &path, const QImage &image);

    QSize m_box;
    QString m_shown;
    std::atomic<quint64> m_request{0};
    QThreadPool m_decoder;
};
