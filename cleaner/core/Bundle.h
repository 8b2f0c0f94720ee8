#pragma once

#include <QString>
#include <QVariantMap>

// The edition's resource folder, read like an application bundle: an
// Info.plist with the build's keys, and named resources beside it.
class Bundle {
public:
    // "<resources>/<name>.<type>" when it exists, else an empty string.
    static QString pathForResource(const QString &name, const QString &type);
    // The keys of Info.plist (empty when the file is missing or damaged).
    static QVariantMap infoDictionary();
    static QVariant objectForInfoDictionaryKey(const QString &key);
    // The edition's property list "<File Name><suffix>.plist". A missing or
    // damaged list is a configuration fault and stops the program.
    static QVariant requiredEditionList(const QString &suffix);
};
