#pragma once

#include <QString>

// The screen side of a scan.
class KestalScanningProtocol {
public:
    virtual ~KestalScanningProtocol() = default;
    virtual void scanningProgress(const QString &str, qint64 size) = 0;
    virtual void scanningPercent(float percent) = 0;
    virtual void done(int doneNum) = 0;
};

// The view that shows a running scan.
class KestalCommonScanningDelegate {
public:
    virtual ~KestalCommonScanningDelegate() = default;
    virtual void scanningViewUpdateDescText(const QString &str) = 0;
    virtual void scanningViewUpdateProgressIndicator(float per) = 0;
    virtual void scanningViewUpdateScanPathText(const QString &str) = 0;
};
