#include "cleaner/shell/ElidedLabel.h"

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setWordWrap(false);
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setFullText(const QString &text)
{
    if (text == m_full && !text.isEmpty())
        return;
    m_full = text;
    updateGeometry();
    elide();
}

QSize ElidedLabel::sizeHint() const
{
    const QMargins m = contentsMargins();
    return {fontMetrics().horizontalAdvance(m_full) + m.left() + m.right() + 2 * margin(),
            QLabel::sizeHint().height()};
}

QSize ElidedLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    elide();
}

void ElidedLabel::elide()
{
    const QString shown =
        fontMetrics().elidedText(m_full, Qt::ElideMiddle, contentsRect().width() - 2 * margin());
    setText(shown);
    setToolTip(shown == m_full ? QString() : m_full);
}
