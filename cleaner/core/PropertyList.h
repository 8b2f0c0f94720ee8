#pragma once

#include <QByteArray>
#include <QString>
#include <QVariant>
#include <optional>

// Reads XML and binary property lists into Qt values: dictionaries become
// QVariantMap, arrays QVariantList, integers qint64, reals double, booleans
// bool, dates QDateTime, data QByteArray, strings QString.
class PropertyList {
public:
    static std::optional<QVariant> fromData(const QByteArray &data);
    static std::optional<QVariant> fromFile(const QString &path);
    // Writes an XML property list (what tests and resources need).
    static QByteArray toXml(const QVariant &value);
    static QByteArray toBinary(const QVariant &value);
};
