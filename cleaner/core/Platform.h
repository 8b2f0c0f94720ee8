#pragma once

#include <QString>
#include <QStringList>

// Every fact that differs between systems. The `macos` profile answers with
// the places of the system the design was drawn on, the `linux` profile with
// their freedesktop equivalents; the rules that use them are the same.
//
// BRENLOW_PLATFORM picks the profile (the host's by default), BRENLOW_ROOT
// prefixes every absolute system path, BRENLOW_RESOURCES replaces the
// resource folder. Nothing else reads the environment for paths.
class Platform {
public:
    enum class Profile { MacOS, Linux };

    static Profile profile();
    static bool isMacOS() { return profile() == Profile::MacOS; }
    static QString profileName();

    // The prefix BRENLOW_ROOT puts before every absolute system path ("" if none).
    static QString root();
    // An absolute system path under the root ("/Applications" -> "<root>/Applications").
    static QString systemPath(const QString &absolute);

    static QString userName();
    // "/Users/<name>" under the root on macOS, $HOME on Linux.
    static QString homeDirectory();
    // Where installed applications live.
    static QString applicationsPath();
    // The user's Trash folder.
    static QString trashPath();
    // The edition's resource folder (Info.plist, the Modules, Setting and UI lists).
    static QString resourcesPath();

    // The design's version checks ask for 10.12 or later; both profiles stand
    // for current systems, so this is true unless a test says otherwise.
    static bool systemVersionAtLeast(int major, int minor);
    // The system's preferred languages, first the most preferred.
    static QStringList preferredLanguages();

    // Drops what was read from the environment, so a test can change it.
    static void reload();
    // Test seams: a system version, the preferred languages.
    static void setSystemVersionForTesting(int major, int minor);
    static void setPreferredLanguagesForTesting(const QStringList &languages);
};
