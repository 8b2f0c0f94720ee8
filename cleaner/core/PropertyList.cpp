#include "cleaner/core/PropertyList.h"

#include <QDateTime>
#include <QFile>
#include <cstdlib>
#include <plist/plist.h>

namespace {

// Seconds between 1970 and the property list epoch, 2001-01-01.
constexpr qint64 kAppleEpochOffset = 978307200;

QVariant toVariant(plist_t node)
{
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        uint8_t b = 0;
        plist_get_bool_val(node, &b);
        return bool(b);
    }
    case PLIST_UINT: {
        uint64_t u = 0;
        plist_get_uint_val(node, &u);
        return qint64(u);
    }
    case PLIST_REAL: {
        double d = 0;
        plist_get_real_val(node, &d);
        return d;
    }
    case PLIST_STRING: {
        char *s = nullptr;
        plist_get_string_val(node, &s);
        QString text = QString::fromUtf8(s);
        std::free(s);
        return text;
    }
    case PLIST_DATA: {
        char *bytes = nullptr;
        uint64_t len = 0;
        plist_get_data_val(node, &bytes, &len);
        QByteArray data(bytes, qsizetype(len));
        std::free(bytes);
        return data;
    }
    case PLIST_DATE: {
        int32_t sec = 0, usec = 0;
        plist_get_date_val(node, &sec, &usec);
        return QDateTime::fromMSecsSinceEpoch((kAppleEpochOffset + sec) * 1000 + usec / 1000,
                                              Qt::UTC);
    }
    case PLIST_ARRAY: {
        QVariantList list;
        const uint32_t n = plist_array_get_size(node);
        for (uint32_t i = 0; i < n; ++i)
            list.append(toVariant(plist_array_get_item(node, i)));
        return list;
    }
    case PLIST_DICT: {
        QVariantMap map;
        plist_dict_iter it = nullptr;
        plist_dict_new_iter(node, &it);
        for (;;) {
            char *key = nullptr;
            plist_t value = nullptr;
            plist_dict_next_item(node, it, &key, &value);
            if (!key)
                break;
            map.insert(QString::fromUtf8(key), toVariant(value));
            std::free(key);
        }
        std::free(it);
        return map;
    }
    case PLIST_UID: {
        uint64_t u = 0;
        plist_get_uid_val(node, &u);
        return qint64(u);
    }
    default:
        return {};
    }
}

plist_t fromVariant(const QVariant &v)
{
    switch (v.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(v.toBool());
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return plist_new_uint(uint64_t(v.toLongLong()));
    case QMetaType::Double:
    case QMetaType::Float:
        return plist_new_real(v.toDouble());
    case QMetaType::QByteArray: {
        const QByteArray b = v.toByteArray();
        return plist_new_data(b.constData(), uint64_t(b.size()));
    }
    case QMetaType::QDateTime: {
        const qint64 ms = v.toDateTime().toMSecsSinceEpoch() - kAppleEpochOffset * 1000;
        return plist_new_date(int32_t(ms / 1000), int32_t((ms % 1000) * 1000));
    }
    case QMetaType::QVariantList:
    case QMetaType::QStringList: {
        plist_t array = plist_new_array();
        for (const QVariant &item : v.toList())
            plist_array_append_item(array, fromVariant(item));
        return array;
    }
    case QMetaType::QVariantMap: {
        plist_t dict = plist_new_dict();
        const QVariantMap map = v.toMap();
        for (auto it = map.begin(); it != map.end(); ++it)
            plist_dict_set_item(dict, it.key().toUtf8().constData(), fromVariant(it.value()));
        return dict;
    }
    default:
        return plist_new_string(v.toString().toUtf8().constData());
    }
}

QByteArray serialize(const QVariant &value, bool binary)
{
    plist_t root = fromVariant(value);
    char *out = nullptr;
    uint32_t len = 0;
    if (binary)
        plist_to_bin(root, &out, &len);
    else
        plist_to_xml(root, &out, &len);
    QByteArray data(out, qsizetype(len));
    std::free(out);
    plist_free(root);
    return data;
}

} // namespace

std::optional<QVariant> PropertyList::fromData(const QByteArray &data)
{
    if (data.isEmpty())
        return std::nullopt;
    plist_t root = nullptr;
    if (plist_is_binary(data.constData(), uint32_t(data.size())))
        plist_from_bin(data.constData(), uint32_t(data.size()), &root);
    else
        plist_from_xml(data.constData(), uint32_t(data.size()), &root);
    if (!root)
        return std::nullopt;
    QVariant value = toVariant(root);
    plist_free(root);
    return value;
}

std::optional<QVariant> PropertyList::fromFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return fromData(file.readAll());
}

QByteArray PropertyList::toXml(const QVariant &value)
{
    return serialize(value, false);
}

QByteArray PropertyList::toBinary(const QVariant &value)
{
    return serialize(value, true);
}
