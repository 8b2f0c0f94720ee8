#pragma once

#include "cleaner/core/FolderInfo.h"
#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Platform.h"
#include "cleaner/scan/ApplicationJunkService.h"

#include <QSet>
#include <utility>

// List builders of application junk: language folders, mail attachments,
// device backups.
class ApplicationJunkFolderInfo : public FolderInfo {
public:
    using InfoList = std::pair<QList<FolderInfoPtr>, qint64>;

    // Every language the system knows (and those of WHILE_LIST), sorted by name.
    static QList<Language> getLanguagePacks();
    // One application with its junk language folders as children.
    static FolderInfoPtr matchLanguage(const QUrl &url);
    // The applications under curl that carry junk language folders.
    static InfoList getLanguagesInfoList(const QString &curl, const Progress &progress,
                                         const ShowPercent &showPercent);
    // The downloaded attachments of the mail folder's accounts.
    static InfoList getMailInfoList(const QString &url, const Progress &progress,
                                    const ShowPercent &showPercent);
    // The device backups under url that describe themselves with an Info.plist.
    static InfoList getiTunesInfoList(const FolderUrl &url, const Progress &progress,
                                      const ShowPercent &showPercent);

    // The languages to keep: the preferred ones in all their forms, English,
    // and the current locale.
    static QSet<QString> keepSet();
    // An identifier taken apart ("zh_Hant_TW": zh, Hant, TW), with its English name.
    static Platform::LanguageTag languageTag(const QString &identifier);
    // The folder names that are junk: those of the languages not kept, less
    // any that a kept language also answers to.
    static QSet<QString> junkFolderNames(const QList<Language> &languages);

private:
    static FolderInfoPtr matchLanguage(const QUrl &url, const QSet<QString> &junkNames);
};
