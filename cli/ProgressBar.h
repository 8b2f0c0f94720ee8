#pragma once

#include <QElapsedTimer>
#include <QString>

// A one-line progress bar on standard error, drawn only on a terminal and at
// most a few times a second.
class ProgressBar {
public:
    ProgressBar();
    void update(double fraction, qint64 bytes, const QString &path);
    void finish();

private:
    bool m_enabled;
    bool m_drawn = false;
    QElapsedTimer m_sinceDraw;
};
