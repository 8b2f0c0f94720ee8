#pragma once

#include <QByteArray>
#include <QString>

// The common base of the scanning and cleaning services.
class Services {
public:
    // From a URL string to a file path: every "file://" removed, every "%20"
    // made a blank, percent encoding removed. A string whose decoding fails
    // (a bad escape, or bytes that are not UTF-8) gives the empty string.
    static QString handleString(const QString &path);
    // The same, but the raw path bytes, which keep a name that is not UTF-8.
    static QByteArray handleBytes(const QString &path);
};

// Empty classes the design keeps as names.
class FolderUtil {};
class LogUtil {};
