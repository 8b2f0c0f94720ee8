#pragma once

#include "cleaner/core/ModuleTypes.h"
#include "cleaner/core/Services.h"

#include <QLocale>
#include <QStringList>

// A language whose folders an application may carry: the folder names that
// stand for it, its name for the screen, and whether its folders are junk
// (true unless it is one of the languages to keep).
struct Language {
    QStringList folders;
    QString displayName;
    bool enabled = false;
};

// The junk that no plain folder walk sees: language folders inside
// applications, mail attachments, device backups.
class ApplicationJunkService : public Services {
public:
    // Where the language scan starts: the applications folder (on Linux the
    // folder of the shared locale trees).
    static QString APPLICATIONS_PATH();
    // The locale the user runs in.
    static QLocale currentLocale();
    // Identifiers whose folders are recognised though the system has no
    // locale for them.
    static const QStringList WHILE_LIST;

    // Fills c.files and c.size with the mail folder's downloaded attachments.
    static void scanMail(Category &category, const Progress &progress,
                         const ShowPercent &showPercent);
    // The short code of a language folder's name, which names its flag image.
    static QString changeLanguageBriefly(const QString &name);
};
