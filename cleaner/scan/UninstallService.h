#pragma once

#include <QStringList>

// The uninstaller's list of application folder names that are never offered
// (and never searched for language junk): the system's own applications and
// this program itself. Compared exactly, on the whole name.
class UninstallService {
public:
    static const QStringList BLACK_LIST;
};
