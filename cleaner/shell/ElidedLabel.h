#pragma once

#include <QLabel>

// A one-line label for a path: cut in the middle to the width the layout
// gives it, with the whole text as its tool tip whenever it is cut. It asks
// for the width of the whole text but takes less rather than widen the window.
class ElidedLabel : public QLabel {
    Q_OBJECT
public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    void setFullText(const QString &text);
    QString fullText() const { return m_full; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void elide();
    QString m_full;
};
