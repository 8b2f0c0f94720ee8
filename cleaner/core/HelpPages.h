#pragma once

#include <QString>
#include <QUrl>

// The program's own help, shipped as local pages in every interface language
// under "help/<language>/" of the edition's resources. A setting whose value
// has no scheme names one of those pages ("guide.html"); any other value is a
// web address and stands as it is.
class HelpPages {
public:
    // "<resources>/help".
    static QString folder();
    // A setting value as an address: a page name becomes the local file in
    // that language, or in English when the language lacks it. Empty when the
    // value is empty or names a page that is not there.
    static QUrl pageURL(const QString &value, const QString &language);
    // The address behind a setting key in a language.
    static QUrl linkURL(const QString &key, const QString &language);
};
