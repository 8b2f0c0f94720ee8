#include "cli/JsonOutput.h"

#include <QJsonArray>

QJsonObject JsonOutput::node(const FolderInfo &n)
{
    QJsonArray children;
    for (const FolderInfoPtr &child : n.children)
        children.append(node(*child));
    return QJsonObject{
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
