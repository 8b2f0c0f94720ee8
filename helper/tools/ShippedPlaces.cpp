// Writes the system places one profile's module list names, as C string
// literals for the helper's allow-list, and the folders of the extensions
// module between which the helper moves items:
//
//   BRENLOW_PLATFORM=linux brenlow-shipped-places Modules.plist OUT.inc EXTENSIONS.inc
//
// A place is every absolute file URL of a category ("url", "urls"), the
// folders the typed scanners search that a list names only by the category's
// type, and the profile's system applications folders. Home-relative URLs
// ("file://~/...") are the home's, not listed as places; an extension folder
// keeps them as "~/...", which the helper reads against its caller's home.

#include "cleaner/applications/ApplicationPlaces.h"
#include "cleaner/core/FileMove.h"
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

constexpr int kExtensionsModule = 12;

// The folders where extensions are in use, each with its disabled place
// beside it in the same list (the scan must show both states).
QStringList extensionFolders(const QVariantList &modules)
{
    QStringList all;
    const QVariantList categories =
        modules.value(kExtensionsModule).toMap().value(QStringLiteral("categories")).toList();
    for (const QVariant &category : categories) {
        for (const QVariant &url : category.toMap().value(QStringLiteral("urls")).toList()) {
            QString text = url.toString();
            QString path;
            if (text.startsWith(QLatin1String("file://~/")))
                path = QStringLiteral("~/") + QUrl::fromPercentEncoding(text.mid(9).toUtf8());
            else if (text.startsWith(QLatin1String("file:///")))
                path = QUrl::fromEncoded(text.toUtf8()).path(QUrl::FullyDecoded);
            while (path.endsWith(QLatin1Char('/')))
                path.chop(1);
            if (path.isEmpty() || path.contains(QLatin1String("/..")) ||
                path.contains(QLatin1String("/./")) || path == QLatin1String("~"))
                failure = QStringLiteral("the extension folder \"%1\" is no folder").arg(text);
            else
                all << path;
        }
    }
    const QString suffix = QString::fromLatin1(FileMove::disabledFolder(QByteArray()));
    QStringList inUse;
    for (const QString &path : std::as_const(all)) {
        if (path.endsWith(suffix))
            continue;
        if (!all.contains(path + suffix))
            failure = QStringLiteral("the extension folder \"%1\" has no \"%2\" beside it")
                          .arg(path, path + suffix);
        inUse << path;
    }
    for (const QString &path : std::as_const(all))
        if (path.endsWith(suffix) && !inUse.contains(path.chopped(suffix.size())))
            failure = QStringLiteral("\"%1\" is the disabled place of no folder").arg(path);
    return inUse;
}

bool writeLiterals(const QString &fileName, const QString &source, const QStringList &paths);

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
    if (argc != 4) {
        std::fprintf(stderr,
                     "usage: BRENLOW_PLATFORM=linux|macos %s MODULES.plist OUT EXTENSIONS\n",
                     argv[0]);
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
    // The system's applications folders (the home's own lies under the home rule).
    const QString home = Platform::homeDirectory();
    for (const QString &folder : ApplicationPlaces::applicationFolders())
        if (!folder.startsWith(home + QLatin1Char('/')))
            addPlace(folder);
    const QStringList extensions = extensionFolders(list->toList());
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "%s: %s\n", argv[1], qPrintable(failure));
        return 1;
    }
    if (!writeLiterals(QFile::decodeName(argv[2]), source, places) ||
        !writeLiterals(QFile::decodeName(argv[3]), source, extensions))
        return 1;
    return 0;
}

namespace {

bool writeLiterals(const QString &fileName, const QString &source, const QStringList &paths)
{
    QByteArray text = "// Written at build time from " + QFileInfo(source).fileName().toUtf8() +
                      " (" + Platform::profileName().toUtf8() + "); edit that list instead.\n";
    for (const QString &path : paths)
        text += literal(path) + ",\n";
    QSaveFile out(fileName);
    if (!out.open(QIODevice::WriteOnly) || out.write(text) != text.size() || !out.commit()) {
        std::fprintf(stderr, "%s: cannot write\n", qPrintable(fileName));
        return false;
    }
    return true;
}

} // namespace
