#pragma once

#include <QString>
#include <QUrl>
#include <functional>

// Opens web pages and files with the desktop's programs. Tests put a
// recorder in place, so that no browser starts under test.
class Workspace {
public:
    using Opener = std::function<bool(const QUrl &)>;
    // Through the desktop's services, else the freedesktop opener xdg-open.
    static bool openURL(const QUrl &url);
    // Shows the item selected in the desktop's file manager (the freedesktop
    // FileManager1 interface on the session bus). Without one, or when the
    // call fails, opens the folder that holds the item through openURL.
    static bool selectFile(const QString &path);
    // Replaces the desktop's opener; an empty function restores it.
    static void setOpenerForTesting(Opener opener);
};
