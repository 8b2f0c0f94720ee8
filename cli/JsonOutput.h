#pragma once

#include "cleaner/core/ModuleTypes.h"

#include <QJsonObject>

// The records as JSON, with their own field names.
class JsonOutput {
public:
    static QJsonObject node(const FolderInfo &node);
    static QJsonObject category(const Category &category);
    static QJsonObject module(const Module &module, int index);
    // Adds key with the bytes in base64 when they are not UTF-8; the record's
    // text field then holds the readable form, with U+FFFD for those bytes.
    static void addRawBytes(QJsonObject &object, const QString &key, const QByteArray &bytes);
    // The exact bytes a record names: from bytesKey when present, else textKey.
    static QByteArray rawBytes(const QJsonObject &object, const QString &textKey,
                               const QString &bytesKey);
};
