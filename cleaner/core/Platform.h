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

    // --- Junk scanners ---

    // The user id, as the freedesktop volume Trash names it.
    static uint userId();
    // The Trash folder at the top of a removable volume: ".Trashes" on macOS,
    // ".Trash-<uid>" (freedesktop) on Linux.
    static QString volumeTrashName();
    // Cache folders that another module lists; the application cache leaves
    // them out so nothing is counted twice ("/<name>", compared without case).
    static QStringList cacheFoldersListedElsewhere();

    // Where the photo library is searched: ~/Pictures on macOS. On Linux the
    // photo tools keep their thumbnails in the XDG cache, which is searched.
    static QString photoPath();
    // What a photo library's name contains ("photoslibrary"); empty when the
    // photo path itself holds the caches (Linux).
    static QString photoLibraryPattern();
    // The thumbnail folders below the photo path when there is no library
    // (Linux: the freedesktop thumbnails, Shotwell's and darktable's caches).
    static QStringList photoCacheFolders();

    // The folder whose entries are searched for language folders: the
    // applications on macOS, /usr/share on Linux (its shared locale trees).
    static QString languageResourcesPath();
    // Whether an entry of that folder can hold language folders (on Linux only
    // the gettext, help and manual trees do).
    static bool isLanguageContainer(const QString &name);
    // The entries that can, by name; empty when every entry can (macOS).
    static QStringList languageContainers();
    // Whether language folders are looked for at any depth (macOS bundles) or
    // only at the top of a locale tree (Linux, where a bare "it" or "co" deeper
    // down is just a folder).
    static bool languageFoldersNested();
    // The parts of a language identifier, as the folder naming needs them.
    struct LanguageTag {
        QString identifier;  // "zh_Hant_TW"
        QString language;    // "zh"
        QString script;      // "Hant", or empty
        QString region;      // "TW", or empty
        QString variant;     // "POSIX", or empty
        QString englishName; // "Chinese (Traditional, Taiwan)", or empty when unknown
    };
    // The folder names that stand for a language: "<id>.lproj" and its
    // spellings on macOS, the gettext names ("pt_BR", "sr@latin") on Linux.
    static QStringList languageFolderNames(const LanguageTag &tag);
    // What a language folder's name ends with (".lproj"; nothing on Linux).
    static QString languageFolderSuffix();

    // The mail folder's index of accounts ("PersistenceInfo.plist"); empty
    // when the accounts are the folder's own entries (Linux mail caches).
    static QString mailIndexName();
    // What the path of a removable mail file holds after its account folder:
    // "/Data/Attachments" on macOS, "/folders/" (cached messages) on Linux.
    static QString mailAttachmentsFolder();
    // The name the user gave a mail account kept in a folder of that name
    // (Linux: Evolution's source of the account), or the folder's name.
    static QString mailAccountName(const QString &folderName);

    // How the system words a folder that cannot be opened (errno code): macOS
    // tells a denied folder by name, in the sentence its privacy guard gives;
    // otherwise the C library's message.
    static QString folderErrorDescription(const QString &name, int code);

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
