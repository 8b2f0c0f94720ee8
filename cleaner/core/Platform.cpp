#include "cleaner/core/Platform.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QMutex>
#include <cerrno>
#include <cstring>
#include <optional>
#include <pwd.h>
#include <unistd.h>

namespace {

struct State {
    bool loaded = false;
    Platform::Profile profile = Platform::Profile::Linux;
    QString root;
    QString resources;
    QString home;
    std::optional<std::pair<int, int>> version;
    std::optional<QStringList> languages;
};

QMutex g_mutex;
State g_state;

QString cleanRoot(QString root)
{
    while (root.size() > 1 && root.endsWith(QLatin1Char('/')))
        root.chop(1);
    return root == QLatin1String("/") ? QString() : root;
}

QString defaultResources(Platform::Profile profile)
{
    const QString name =
        profile == Platform::Profile::MacOS ? QStringLiteral("macos") : QStringLiteral("linux");
    QStringList candidates;
    if (QCoreApplication::instance()) {
        const QString bin = QCoreApplication::applicationDirPath();
        candidates << bin + QStringLiteral("/../share/brenlow/") + name;
    }
    candidates << QStringLiteral(BRENLOW_SOURCE_RESOURCES "/") + name
               << QStringLiteral(BRENLOW_INSTALL_RESOURCES "/") + name;
    for (const QString &c : candidates) {
        if (QFileInfo::exists(c + QStringLiteral("/Info.plist")))
            return QDir::cleanPath(c);
    }
    return QDir::cleanPath(candidates.constLast());
}

const State &state()
{
    QMutexLocker lock(&g_mutex);
    if (!g_state.loaded) {
        const QByteArray name = qgetenv("BRENLOW_PLATFORM").toLower();
        if (name == "macos")
            g_state.profile = Platform::Profile::MacOS;
        else if (name == "linux")
            g_state.profile = Platform::Profile::Linux;
        else
#ifdef Q_OS_MACOS
            g_state.profile = Platform::Profile::MacOS;
#else
            g_state.profile = Platform::Profile::Linux;
#endif
        g_state.root = cleanRoot(QString::fromLocal8Bit(qgetenv("BRENLOW_ROOT")));
        const QByteArray resources = qgetenv("BRENLOW_RESOURCES");
        g_state.resources = resources.isEmpty()
                                ? defaultResources(g_state.profile)
                                : QDir::cleanPath(QString::fromLocal8Bit(resources));
        g_state.home = QDir::homePath();
        g_state.loaded = true;
    }
    return g_state;
}

} // namespace

Platform::Profile Platform::profile()
{
    return state().profile;
}

QString Platform::profileName()
{
    return isMacOS() ? QStringLiteral("macos") : QStringLiteral("linux");
}

QString Platform::root()
{
    return state().root;
}

QString Platform::systemPath(const QString &absolute)
{
    return root() + absolute;
}

QString Platform::userName()
{
    if (const passwd *pw = getpwuid(geteuid()))
        return QString::fromLocal8Bit(pw->pw_name);
    return QString::number(geteuid());
}

QString Platform::homeDirectory()
{
    if (isMacOS())
        return systemPath(QStringLiteral("/Users/") + userName());
    return state().home;
}

QString Platform::applicationsPath()
{
    if (isMacOS())
        return systemPath(QStringLiteral("/Applications"));
    return systemPath(QStringLiteral("/usr/share/applications"));
}

QString Platform::trashPath()
{
    if (isMacOS())
        return homeDirectory() + QStringLiteral("/.Trash");
    return homeDirectory() + QStringLiteral("/.local/share/Trash");
}

QString Platform::resourcesPath()
{
    return state().resources;
}

bool Platform::systemVersionAtLeast(int major, int minor)
{
    state();
    QMutexLocker lock(&g_mutex);
    if (!g_state.version)
        return true;
    return *g_state.version >= std::make_pair(major, minor);
}

QStringList Platform::preferredLanguages()
{
    state();
    {
        QMutexLocker lock(&g_mutex);
        if (g_state.languages)
            return *g_state.languages;
    }
    return QLocale::system().uiLanguages();
}

void Platform::reload()
{
    QMutexLocker lock(&g_mutex);
    g_state = State();
}

void Platform::setSystemVersionForTesting(int major, int minor)
{
    state();
    QMutexLocker lock(&g_mutex);
    g_state.version = std::make_pair(major, minor);
}

void Platform::setPreferredLanguagesForTesting(const QStringList &languages)
{
    state();
    QMutexLocker lock(&g_mutex);
    g_state.languages = languages;
}

uint Platform::userId()
{
    return uint(geteuid());
}

QString Platform::volumeTrashName()
{
    if (isMacOS())
        return QStringLiteral(".Trashes");
    return QStringLiteral(".Trash-") + QString::number(userId());
}

QStringList Platform::cacheFoldersListedElsewhere()
{
    if (isMacOS())
        return {QStringLiteral("com.apple.itunes")};
    // Photo Cache lists the thumbnails, Mail Trash Evolution's mail cache.
    return {QStringLiteral("thumbnails"), QStringLiteral("shotwell"), QStringLiteral("darktable"),
            QStringLiteral("evolution")};
}

QString Platform::photoPath()
{
    if (isMacOS())
        return homeDirectory() + QStringLiteral("/Pictures");
    return homeDirectory() + QStringLiteral("/.cache");
}

QString Platform::photoLibraryPattern()
{
    return isMacOS() ? QStringLiteral("photoslibrary") : QString();
}

QStringList Platform::photoCacheFolders()
{
    if (isMacOS())
        return {};
    return {QStringLiteral("thumbnails"), QStringLiteral("shotwell/thumbs"),
            QStringLiteral("darktable")};
}

QString Platform::languageResourcesPath()
{
    if (isMacOS())
        return applicationsPath();
    return systemPath(QStringLiteral("/usr/share"));
}

bool Platform::isLanguageContainer(const QString &name)
{
    const QStringList trees = languageContainers();
    return trees.isEmpty() || trees.contains(name);
}

QStringList Platform::languageContainers()
{
    if (isMacOS())
        return {};
    return {QStringLiteral("locale"), QStringLiteral("locale-langpack"), QStringLiteral("help"),
            QStringLiteral("man")};
}

bool Platform::languageFoldersNested()
{
    return isMacOS();
}

QStringList Platform::languageFolderNames(const LanguageTag &tag)
{
    const QString &l = tag.language, &s = tag.script, &r = tag.region, &v = tag.variant;
    if (!isMacOS()) {
        // gettext names a script as a lower-case modifier ("sr@latin"); a
        // region alone is already the identifier ("pt_BR").
        QStringList names{tag.identifier};
        if (!s.isEmpty()) {
            const QString modifier =
                QLocale::scriptToString(QLocale::codeToScript(s)).section(QLatin1Char(' '), 0, 0);
            if (!modifier.isEmpty() && modifier != QLatin1String("Unknown")) {
                names << l + QLatin1Char('@') + modifier.toLower();
                if (!r.isEmpty())
                    names << l + QLatin1Char('_') + r + QLatin1Char('@') + modifier.toLower();
            }
        }
        return names;
    }
    const QString ext = languageFolderSuffix();
    QStringList names{tag.identifier + ext};
    const auto pair = [&](const QString &dashed, const QString &underscored) {
        names << dashed + ext << underscored + ext;
    };
    if (!r.isEmpty() && !v.isEmpty())
        pair(l + '-' + r + '_' + v, l + '_' + r + '_' + v);
    else if (!r.isEmpty() && s.isEmpty())
        pair(l + '-' + r, l + '_' + r);
    if (!r.isEmpty() && !s.isEmpty())
        pair(l + '-' + s + '-' + r, l + '_' + s + '_' + r);
    else if (!s.isEmpty())
        pair(l + '-' + s, l + '_' + s);
    if (!tag.englishName.isEmpty())
        names << tag.englishName + ext;
    return names;
}

QString Platform::languageFolderSuffix()
{
    return isMacOS() ? QStringLiteral(".lproj") : QString();
}

QString Platform::folderErrorDescription(const QString &name, int code)
{
    if (isMacOS() && (code == EACCES || code == EPERM))
        return QStringLiteral("The folder “%1” couldn’t be opened because you don’t "
                              "have permission to view it.")
            .arg(name);
    return QString::fromLocal8Bit(std::strerror(code));
}

QString Platform::mailIndexName()
{
    return isMacOS() ? QStringLiteral("PersistenceInfo.plist") : QString();
}

QString Platform::mailAttachmentsFolder()
{
    return isMacOS() ? QStringLiteral("/Data/Attachments") : QStringLiteral("/folders/");
}

QString Platform::mailAccountName(const QString &folderName)
{
    if (isMacOS())
        return folderName;
    // Evolution names its cache folders after the account's source file.
    QFile source(homeDirectory() + QStringLiteral("/.config/evolution/sources/") + folderName +
                 QStringLiteral(".source"));
    if (source.open(QIODevice::ReadOnly)) {
        while (!source.atEnd()) {
            const QString line = QString::fromUtf8(source.readLine()).trimmed();
            if (line.startsWith(QLatin1String("DisplayName=")) && line.size() > 12)
                return line.mid(12);
        }
    }
    return folderName;
}
