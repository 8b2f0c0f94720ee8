#include "cleaner/applications/ApplicationPlaces.h"

#include "cleaner/core/Platform.h"
#include "cleaner/core/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>
#include <sys/stat.h>

namespace {

QString home()
{
    return Platform::homeDirectory();
}

// The first command word of a desktop entry's Exec line (quotes removed).
QString commandOf(const QString &exec)
{
    const QString text = exec.trimmed();
    if (text.startsWith(QLatin1Char('"'))) {
        const qsizetype end = text.indexOf(QLatin1Char('"'), 1);
        return end > 0 ? text.mid(1, end - 1) : QString();
    }
    return text.section(QLatin1Char(' '), 0, 0);
}

struct DesktopEntry {
    QString id;
    QString name;
    QString icon;         // a theme's icon name or a picture's path
    QStringList commands; // Exec's and TryExec's programs, and Path
};

// The [Desktop Entry] group of a file; nothing when the file has none or
// names no program (a broken entry identifies nothing).
std::optional<DesktopEntry> readDesktopEntry(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > 1 << 20)
        return std::nullopt;
    DesktopEntry entry;
    entry.id = QFileInfo(path).completeBaseName();
    bool inGroup = false;
    bool hadGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(QLatin1Char('['))) {
            inGroup = line == QLatin1String("[Desktop Entry]");
            hadGroup = hadGroup || inGroup;
            continue;
        }
        if (!inGroup)
            continue;
        const qsizetype eq = line.indexOf(QLatin1Char('='));
        if (eq <= 0)
            continue;
        const QString key = line.left(eq).trimmed();
        const QString value = line.mid(eq + 1).trimmed();
        if (key == QLatin1String("Name"))
            entry.name = value;
        else if (key == QLatin1String("Icon"))
            entry.icon = value;
        else if (key == QLatin1String("Exec") || key == QLatin1String("TryExec"))
            entry.commands << commandOf(value);
        else if (key == QLatin1String("Path"))
            entry.commands << value;
    }
    entry.commands.removeAll(QString());
    if (!hadGroup || entry.commands.isEmpty())
        return std::nullopt;
    return entry;
}

bool launches(const DesktopEntry &entry, const QString &appPath, bool isFolder)
{
    for (const QString &command : entry.commands) {
        const QString clean = QDir::cleanPath(command);
        if (clean == appPath || (isFolder && clean.startsWith(appPath + QLatin1Char('/'))))
            return true;
    }
    return false;
}

// The desktop entry that launches the application: one at the top of its
// folder, else one in the user's or the system's entry folders.
std::optional<DesktopEntry> findDesktopEntry(const QString &appPath, const QString &launchPath,
                                             bool isFolder, QString *userEntry)
{
    if (isFolder) {
        for (const QFileInfo &f :
             QDir(appPath).entryInfoList({QStringLiteral("*.desktop")}, QDir::Files, QDir::Name)) {
            if (const auto entry = readDesktopEntry(f.filePath()))
                return entry;
        }
    }
    const QString userFolder = home() + QStringLiteral("/.local/share/applications");
    const QStringList folders = {
        userFolder, Platform::systemPath(QStringLiteral("/usr/local/share/applications")),
        Platform::systemPath(QStringLiteral("/usr/share/applications"))};
    for (const QString &folder : folders) {
        for (const QFileInfo &f :
             QDir(folder).entryInfoList({QStringLiteral("*.desktop")}, QDir::Files, QDir::Name)) {
            const auto entry = readDesktopEntry(f.filePath());
            if (entry && launches(*entry, launchPath, isFolder)) {
                if (folder == userFolder)
                    *userEntry = f.filePath();
                return entry;
            }
        }
    }
    return std::nullopt;
}

} // namespace

QStringList ApplicationPlaces::applicationFolders()
{
    if (Platform::isMacOS())
        return {Platform::applicationsPath()};
    return {home() + QStringLiteral("/Applications"), Platform::systemPath(QStringLiteral("/opt"))};
}

bool ApplicationPlaces::isApplicationEntry(const QString &name, bool isDirectory)
{
    if (Platform::isMacOS())
        return name.contains(QLatin1String(".app"));
    return isDirectory || name.endsWith(QLatin1String(".AppImage"), Qt::CaseInsensitive);
}

QStringList ApplicationPlaces::libraryPaths()
{
    if (Platform::isMacOS()) {
        const QString a = Platform::systemPath(QStringLiteral("/Library"));
        const QString b = home() + QStringLiteral("/Library");
        const QString c = b + QStringLiteral("/Application Support");
        return {a + QStringLiteral("/Preferences"),
                a + QStringLiteral("/LaunchAgents"),
                a + QStringLiteral("/LaunchDaemons"),
                a + QStringLiteral("/PrivilegedHelperTools"),
                a + QStringLiteral("/StartupItems"),
                b + QStringLiteral("/Preferences"),
                b + QStringLiteral("/LaunchAgents"),
                b + QStringLiteral("/Saved Application State"),
                b + QStringLiteral("/Containers"),
                b + QStringLiteral("/WebKit"),
                b,
                c,
                Platform::systemPath(QStringLiteral("/Users/Shared"))};
    }
    const QString h = home();
    return {
        h + QStringLiteral("/.config"),           h + QStringLiteral("/.cache"),
        h + QStringLiteral("/.local/share"),      h + QStringLiteral("/.local/state"),
        h + QStringLiteral("/.config/autostart"), h + QStringLiteral("/.local/share/applications"),
        h + QStringLiteral("/.var/app")};
}

QStringList ApplicationPlaces::chromeLeftovers()
{
    const QString h = home();
    if (!Platform::isMacOS())
        return {h + QStringLiteral("/.config/google-chrome"),
                h + QStringLiteral("/.cache/google-chrome"),
                h + QStringLiteral("/.local/share/applications/google-chrome.desktop")};
    const char *const relative[] = {"/Library/Preferences/com.google.Chrome.plist",
                                    "/Library/Preferences/com.google.Keystone.Agent.plist",
                                    "/Library/Saved Application State/com.google.Chrome.savedState",
                                    "/Library/Application Support/Google/Chrome",
                                    "/Library/Caches/com.google.Keystone",
                                    "/Library/Caches/com.google.Keystone.Agent",
                                    "/Library/LaunchAgents/com.google.keystone.agent.plist",
                                    "/Library/Google/Google Chrome Brand.plist",
                                    "/Library/Google/GoogleSoftwareUpdate",
                                    "/Library/WebKit/com.google.Chrome"};
    QStringList paths;
    for (const char *r : relative)
        paths << h + QString::fromUtf8(r);
    return paths;
}

QString ApplicationPlaces::searchName(const QString &appName)
{
    QString name = appName;
    if (Platform::isMacOS())
        return name.remove(QStringLiteral(".app"));
    static const QRegularExpression image(QStringLiteral("\\.AppImage$"),
                                          QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression arch(
        QStringLiteral("[-_.](x86[-_]64|amd64|aarch64|arm64|armhf|i[36]86|x64)$"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression version(QStringLiteral("[-_ ]v?[0-9][0-9.]*[^/]*$"));
    name.remove(image);
    name.remove(arch);
    const QString bare = QString(name).remove(version);
    return bare.isEmpty() ? name : bare;
}

QString ApplicationPlaces::trashItemsFolder()
{
    if (Platform::isMacOS())
        return Platform::trashPath();
    return Platform::trashPath() + QStringLiteral("/files");
}

QString ApplicationPlaces::originalPathOf(const QString &trashedPath)
{
    const QFileInfo item(trashedPath);
    if (Platform::isMacOS() || item.path() != trashItemsFolder())
        return QString();
    QFile info(Platform::trashPath() + QStringLiteral("/info/") + item.fileName() +
               QStringLiteral(".trashinfo"));
    if (!info.open(QIODevice::ReadOnly) || info.size() > 1 << 16)
        return QString();
    while (!info.atEnd()) {
        const QByteArray line = info.readLine().trimmed();
        // The place is URL-escaped, and absolute for the home's Trash.
        if (line.startsWith("Path=")) {
            const QString path = QUrl::fromPercentEncoding(line.mid(5));
            return path.startsWith(QLatin1Char('/')) ? QDir::cleanPath(path) : QString();
        }
    }
    return QString();
}

bool ApplicationPlaces::isTrashedApplication(const QString &path, bool isDirectory)
{
    if (Platform::isMacOS())
        return QFileInfo(path).suffix() == QLatin1String("app");
    if (QFileInfo(path).path() != trashItemsFolder())
        return false;
    if (!isDirectory)
        return path.endsWith(QLatin1String(".AppImage"), Qt::CaseInsensitive);
    const QString before = originalPathOf(path);
    return !before.isEmpty() && applicationFolders().contains(QFileInfo(before).path());
}

bool ApplicationPlaces::namesIgnoreCase()
{
    return !Platform::isMacOS();
}

std::optional<ApplicationPlaces::BundleInfo> ApplicationPlaces::bundleInfo(const QString &appPath)
{
    struct stat st;
    if (lstat(QFile::encodeName(appPath).constData(), &st) != 0 || S_ISLNK(st.st_mode))
        return std::nullopt;
    const QString fileName = QFileInfo(appPath).fileName();
    BundleInfo info;
    if (Platform::isMacOS()) {
        if (!S_ISDIR(st.st_mode))
            return std::nullopt;
        const QVariantMap plist =
            PropertyList::fromFile(appPath + QStringLiteral("/Contents/Info.plist"))
                .value_or(QVariant())
                .toMap();
        info.identifier = plist.value(QStringLiteral("CFBundleIdentifier")).toString();
        info.shownName = plist.value(QStringLiteral("CFBundleDisplayName")).toString();
        if (info.shownName.isEmpty())
            info.shownName = plist.value(QStringLiteral("CFBundleName")).toString();
        if (QString file = plist.value(QStringLiteral("CFBundleIconFile")).toString();
            !file.isEmpty() && !file.contains(QLatin1Char('/'))) {
            if (QFileInfo(file).suffix().isEmpty())
                file += QStringLiteral(".icns");
            info.icon = appPath + QStringLiteral("/Contents/Resources/") + file;
        }
    } else if (const auto entry = findDesktopEntry(
                   // A thrown-away application is known by where it was.
                   appPath, originalPathOf(appPath).isEmpty() ? appPath : originalPathOf(appPath),
                   S_ISDIR(st.st_mode), &info.desktopEntry)) {
        info.identifier = entry->id;
        info.shownName = entry->name;
        info.icon = entry->icon;
    }
    if (info.shownName.isEmpty())
        info.shownName = searchName(fileName);
    return info;
}
