#pragma once

#include <QColor>
#include <QList>
#include <QStringList>
#include <QWidget>

// The drawing views of the status panel. Each reads its figures when it
// draws, so a figure is never older than what is on screen; lines() keeps
// the texts of the last drawing.
class KestalGraphView : public QWidget {
    Q_OBJECT
public:
    explicit KestalGraphView(QWidget *parent = nullptr);

    QString title() const { return m_title; }
    const QStringList &lines() const { return m_lines; }
    // One segment of the bar: a share of 100 and its colour.
    struct Segment {
        double percent;
        QColor color;
    };
    const QList<Segment> &segments() const { return m_segments; }
    int drawCount() const { return m_drawCount; }

protected:
    // Reads the figures and sets the title, lines and bar segments.
    virtual void readFigures() = 0;
    void paintEvent(QPaintEvent *event) override;

    QString m_title;
    QStringList m_lines;
    QList<Segment> m_segments;

private:
    int m_drawCount = 0;
};

class KestalCPUView : public KestalGraphView {
    Q_OBJECT
public:
    using KestalGraphView::KestalGraphView;

protected:
    void readFigures() override;
};

class KestalMemoryView : public KestalGraphView {
    Q_OBJECT
public:
    using KestalGraphView::KestalGraphView;

protected:
    void readFigures() override;
};

class KestalDiskView : public KestalGraphView {
    Q_OBJECT
public:
    using KestalGraphView::KestalGraphView;

protected:
    void readFigures() override;
};

class KestalBatteryView : public KestalGraphView {
    Q_OBJECT
public:
    explicit KestalBatteryView(QWidget *parent = nullptr);
    // 1 when the machine has a battery to show, as found when the view was made.
    int batteryIsOpen = 0;

protected:
    void readFigures() override;
};
