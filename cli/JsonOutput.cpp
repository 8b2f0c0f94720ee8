#include "cli/JsonOutput.h"

#include "cli/TerminalText.h"

#include <QJsonArray>

QJsonObject JsonOutput::node(const FolderInfo &n)
{
    QJsonArray children;
    for (const FolderInfoPtr &child : n.children)
        children.append(node(*child));
    QJsonObject object{
        {QStringLiteral("findex"), n.findex},
        {QStringLiteral("name"), n.name},
        {QStringLiteral("size"), n.size},
        {QStringLiteral("isFolder"), n.isFolder},
        {QStringLiteral("date"), n.date.toString(Qt::ISODate)},
        {QStringLiteral("url"), n.absoluteString()},
        {QStringLiteral("isPackage"), n.isPackage},
        {QStringLiteral("children"), children},
        {QStringLiteral("hidden"), n.hidden},
        {QStringLiteral("checked"), n.checked},
        {QStringLiteral("dbNumber"), n.dbNumber},
    };
    // A name that is not UTF-8 cannot be a JSON string as it is: the exact
    // bytes ride along beside the readable form.
    const QByteArray path = FolderInfo::pathBytes(n.url);
    addRawBytes(object, QStringLiteral("nameBytes"), path.mid(path.lastIndexOf('/') + 1));
    return object;
}

void JsonOutput::addRawBytes(QJsonObject &object, const QString &key, const QByteArray &bytes)
{
    if (!TerminalText::isUtf8(bytes))
        object.insert(key, QString::fromLatin1(bytes.toBase64()));
}

QByteArray JsonOutput::rawBytes(const QJsonObject &object, const QString &textKey,
                                const QString &bytesKey)
{
    if (object.contains(bytesKey))
        return QByteArray::fromBase64(object.value(bytesKey).toString().toLatin1());
    return object.value(textKey).toString().toUtf8();
}

QJsonObject JsonOutput::category(const Category &c)
{
    QJsonArray files;
    for (const FolderInfoPtr &f : c.files)
        files.append(node(*f));
    return QJsonObject{
        {QStringLiteral("title"), c.title}, {QStringLiteral("size"), c.size},
        {QStringLiteral("state"), c.state}, {QStringLiteral("type"), c.type},
        {QStringLiteral("files"), files},
    };
}

QJsonObject JsonOutput::module(const Module &m, int index)
{
    QJsonObject object{
        {QStringLiteral("index"), index},
        {QStringLiteral("title"), m.title},
        {QStringLiteral("tab"), m.tab},
    };
    if (m.categories) {
        QJsonArray categories;
        for (const Category &c : *m.categories)
            categories.append(category(c));
        object.insert(QStringLiteral("categories"), categories);
    }
    return object;
}
