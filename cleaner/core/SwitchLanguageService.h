#pragma once

#include <QString>
#include <QStringList>
#include <memory>

class QTranslator;

// Keeps the interface language apart from the system's, and the table of
// texts for it. Main thread only.
class SwitchLanguageService {
public:
    static const QString LocalLanguageKey;
    static const QStringList languages; // "en", "ja", "es", "fr", "de", "zh-Hant"

    static void initUserLanguage();
    static QString userLanguage();
    static void setUserLanguage(const QString &language);
    static QString getCurrentLanguage();
    // The language's name as the language menu shows it ("English" for "en").
    static QString languageMenuName(const QString &language);
    // The table of the language in use; null before a language was set.
    static QTranslator *getBundle();

    // The supported language for a system language tag ("zh-Hans-CN" -> "zh-Hant").
    static QString mapSystemLanguage(const QString &tag);
    // The system's first preferred language, mapped.
    static QString systemLanguage();
};

// Every screen text goes through this: the text for a key in the language in
// use, or the key itself when there is none.
QString getLocalizedString(const QString &key);
