#pragma once

#include <QUrl>
#include <functional>

// Opens web pages and files with the desktop's programs. Tests put a
// recorder in place, so that no browser starts under test.
class Workspace {
public:
    using Opener = std::function<bool(const QUrl &)>;
    static bool openURL(const QUrl &url);
    // Replaces the desktop's opener; an empty function restores it.
    static void setOpenerForTesting(Opener opener);
};
