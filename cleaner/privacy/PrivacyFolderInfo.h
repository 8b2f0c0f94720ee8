#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/privacy/SQLiteUtil.h"

#include <QMap>
#include <utility>

// The kinds of browser records, in display order; the raw value is the
// group's title.
enum class BowserList { Visit, Download, DownloadFile, KeyWord, Cookie, Login, Auto, LocalStore };

constexpr int bowserListCount = 8;
QString bowserListRawValue(BowserList kind);

// A reader's result: one group per kind it made.
using BrowserGroups = QMap<BowserList, FolderInfoPtr>;

// A browser record. `dbNumber` is the deletion key the design gives; where a
// joined query hides the row's own key under a later column of the same
// name, `rowKey` keeps the row's own, so that a clean takes that row and no
// other.
class PrivacyRecord : public FolderInfo {
public:
    using FolderInfo::FolderInfo;
    QString rowKey;
};

// Turns what the browsers keep on disk into groups and records.
class PrivacyFolderInfo : public FolderInfo {
public:
    using Rows = QList<SQLiteRow>;
    using Records = std::pair<QList<FolderInfoPtr>, qint64>;

    // Reads the rows of sql from the store at path into object; false (object
    // untouched) when the store cannot be opened. A missing file in an
    // existing folder reads as an empty store and is not created.
    static bool getDBInfo(const QString &path, const QString &sql, Rows &object,
                          const Progress &progress);
    // Rows to records by the kind's rule (names, dates, keys, sizes).
    static Records getCategoryInfoList(const Rows &catetory, BowserList cateType,
                                       const QString &nameORPath, const QString &timeString,
                                       int timeUnit, const QString &icon, const QString &dbNumber1,
                                       const QString &dbNumber2, const QString &dbNumber3,
                                       double chromeTime);
    // A group node of a kind.
    static FolderInfoPtr manageData(BowserList kind, const QString &icon, qint64 size,
                                    const QList<FolderInfoPtr> &children);

    static BrowserGroups getChromeInfoList(const Progress &progress);
    static BrowserGroups getFireFoxInfoList(const Progress &progress);
    static BrowserGroups getSafariInfoList(const Progress &progress);

    // The Firefox profile folder with its trailing slash, or "" when none.
    static QString getFireFoxPath();

    // The immediate entries of a local-storage folder as records, each
    // sized by its own file (deep false) or by everything below it (deep true).
    static Records localStorageRecords(const QString &folder, const QString &icon, bool deep,
                                       const QByteArray &skipContaining);
    // Firefox's logins.json as records; empty when it is no such file.
    static QList<FolderInfoPtr> fireFoxLoginRecords(const QString &path);

    // "1" parsed the way the store's text is: the leading number, 0 if none.
    static double leadingDouble(const QString &text);
    // seconds since 1970 as a date; invalid when not a finite, showable time.
    static QDateTime dateFromSeconds(double seconds);
    static QUrl emptyFileURL();
};
