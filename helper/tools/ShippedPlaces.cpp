// Writes the system places one profile's module list names, as C string
// literals for the helper's allow-list:
//
//   BRENLOW_PLATFORM=linux brenlow-shipped-places Modules.plist OUT.inc
//
// A place is every absolute file URL of a category ("url", "urls"), and the
// folders the typed scanners search that a list names only by the category's
// type. Home-relative URLs ("file://~/...") are the home's, not listed here.

#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUrl>
#include <cstdio>

namespace {

QStringList places;
QString failure;

void addPlace(const QString &path)
{
    QString p = path;
    while (p.endsWith(QLatin1Char('/')))
        p.chop(1);
    // A place of the whole disk, or one reached by "..", would open everything.
    if (p.isEmpty() || !p.startsWith(QLatin1Char('/')) || p.contains(QLatin1String("/../")) ||
        p.endsWith(QLatin1String("/..")) || p.contains(QLatin1String("/./")) ||
        p.contains(QLatin1String("//")))
        failure = QStringLiteral("the place \"%1\" is not a folder below \"/\"").arg(path);
    else if (!places.contains(p))
        places.append(p);
}

void addUrl(const QVariant &value)
{
    const QString text = value.toString();
    if (!text.startsWith(QLatin1String("file:///")))
        return;
    addPlace(QUrl::fromEncoded(text.toUtf8()).path(QUrl::FullyDecoded));
}

// The folders a typed scanner searches on its own.
void addTypePlaces(const QString &type)
{
    if (type != QLatin1String("Localization"))
        return;
    const QStringList containers = Platform::languageContainers();
    if (containers.isEmpty())
        addPlace(Platform::languageResourcesPath());
    for (const QString &name : containers)
        addPlace(Platform::languageResourcesPath() + QLatin1Char('/') + name);
}

void collect(const QVariant &value)
{
    if (value.typeId() == QMetaType::QVariantList) {
        for (const QVariant &item : value.toList())
            collect(item);
        return;
    }
    if (value.typeId() != QMetaType::QVariantMap)
        return;
    const QVariantMap map = value.toMap();
    for (auto it = map.begin(); it != map.end(); ++it) {
        if (it.key() == QLatin1String("url"))
            addUrl(it.value());
        else if (it.key() == QLatin1String("urls"))
            for (const QVariant &url : it.value().toList())
                addUrl(url);
        else if (it.key() == QLatin1String("type"))
            addTypePlaces(it.value().toString());
        else
            collect(it.value());
    }
}

// A C string literal; octal escapes have a fixed length, so no byte after
// one can be read as part of it.
QByteArray literal(const QString &path)
{
    QByteArray out = "\"";
    for (const char byte : path.toUtf8()) {
        const uchar b = uchar(byte);
        if (b < 0x20 || b >= 0x7f || b == '"' || b == '\\' || b == '?')
            out += '\\' + QByteArray::number(b, 8).rightJustified(3, '0');
        else
            out += char(b);
    }
    return out + '"';
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: BRENLOW_PLATFORM=linux|macos %s MODULES.plist OUT\n", argv[0]);
        return 2;
    }
    const QString source = QFile::decodeName(argv[1]);
    const auto list = PropertyList::fromFile(source);
    if (!list || list->typeId() != QMetaType::QVariantList) {
        std::fprintf(stderr, "%s: not a module list\n", argv[1]);
        return 1;
    }
    // Language folders are searched at the system's own places, never under a test root.
    if (!Platform::root().isEmpty()) {
        std::fprintf(stderr, "BRENLOW_ROOT must be unset\n");
        return 1;
    }
    collect(*list);
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "%s: %s\n", argv[1], qPrintable(failure));
        return 1;
    }
    QByteArray text = "// Written at build time from " + QFileInfo(source).fileName().toUtf8() +
                      " (" + Platform::profileName().toUtf8() + "); edit that list instead.\n";
    for (const QString &place : std::as_const(places))
        text += literal(place) + ",\n";
    QSaveFile out(QFile::decodeName(argv[2]));
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit()) {
        std::fprintf(stderr, "%s: cannot write\n", argv[2]);
        return 1;
    }
    return 0;
}
