#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>

// The files the system's package manager owns (dpkg's lists of installed
// files). The uninstaller never offers one of them, nor a folder that holds
// one: removing them by hand would break the package behind them. dpkg
// lists every folder it creates, so a folder holding an owned file is
// itself listed.
class PackageFiles {
public:
    // Reads the lists under the system root (an empty set where there are none).
    static PackageFiles load();

    bool owns(const QString &path) const;
    qsizetype size() const { return m_paths.size(); }

private:
    QSet<QByteArray> m_paths;
};
