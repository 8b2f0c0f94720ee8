#pragma once

// Before Photo Cache or Mail Trash scans: whether the system lets the
// program read the folder that the module searches. When it does not, the
// system's settings pane where the user can grant it opens instead.
class PermissionCheck {
public:
    // True when the scan may go on; false after the settings pane was opened.
    static bool checkPermission(int moduleIndex);
};
