#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/Services.h"
#include "cleaner/privacy/PrivacyFolderInfo.h"

#include <functional>
#include <utility>

// The privacy module (index 11): where the three browsers keep their stores,
// the scan that reads them into the module's three categories (0 Chrome,
// 1 Firefox, 2 Safari), and the cleaners that edit those stores in place.
class PrivacyService : public Services {
public:
    static constexpr int moduleIndex = 11;
    static constexpr qint64 singleSize = 512; // bytes charged for one record

    // The stores, fixed on first use for the rest of the process. An empty
    // path is a store this system does not have (Safari on Linux).
    static const QString &chromeHistoryPath();
    static const QString &chromeCookiePath();
    static const QString &chromeLoginPath();
    static const QString &chromeAutoPath();
    static const QString &chromeLocalStorePath();
    static const QString &firefoxHistoryPath();
    static const QString &firefoxCookiesPath();
    static const QString &firefoxLoginPath();
    static const QString &firefoxAutoPath();
    static const QString &firefoxLocalStorePath();
    static const QString &safariHistoryPath();
    static const QString &safariDownloadPath();
    static const QString &safariLocalStorePath();
    static const QString &defaultName();

    // The Firefox profiles folder the profile discovery looks in.
    static QString firefoxProfilesFolder();

    // Reads the three browsers on the calling (background) thread; progress,
    // percent steps and done are posted to the main queue, and the module's
    // categories are filled there before done.
    static void scan(Progress progress, ShowPercent showPercent, std::function<void()> done);
    // Files a reader's groups into the category of kind ("chrome",
    // "firefox", "safari"), in kind order; main thread.
    static void updateModule(const BrowserGroups &dic, const QString &kind);

    // Each removes what stays selected in its category from the browser's
    // stores and the tree, and answers the bytes and records cleaned. Run on
    // a worker; the tree is read and changed on the main thread.
    static std::pair<qint64, int> cleanChrome(int ci);
    static std::pair<qint64, int> cleanFirefox(int ci);
    static std::pair<qint64, int> cleanSafari(int ci);

    // What a clean of the present selection takes, as the cleaners count it:
    // the bytes and the number of the records of every ticked group (all of
    // a wholly ticked one, the ticked ones of a partly ticked one). Main thread.
    static std::pair<qint64, int> selectedRecords();

    // Makes the scan driver run this scan for module 11.
    static void registerWithScanDriver();
    // Forgets the fixed paths (tests, after a change of home).
    static void reset();
};

// The class the scan driver calls for module 11.
class KestalPrivacyService : public PrivacyService {};
