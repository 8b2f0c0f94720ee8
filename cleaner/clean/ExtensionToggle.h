#pragma once

#include <QByteArray>
#include <functional>

struct ItemIdentity;

// Switches an extension off or on: the helper moves it between its folder
// and the disabled place beside it (every change goes through the helper,
// since many of these folders are not the user's to write).
class ExtensionToggle {
public:
    // Told on the main thread: 1 moved, else the status of the failure
    // (-2 when the helper could not be started).
    using Done = std::function<void(int status)>;

    // The row (ci, fi) of module 12 at path, as the scan saw it.
    static void moveFile(const QByteArray &path, const ItemIdentity &identity, int ci, int fi,
                         Done done);
};
