#include "cleaner/scan/ApplicationJunkFolderInfo.h"

#include "cleaner/core/PropertyList.h"
#include "cleaner/core/Services.h"
#include "cleaner/core/SwitchLanguageService.h"
#include "cleaner/scan/UninstallService.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace {

QString pathOf(const QByteArray &bytes)
{
    return QFile::decodeName(bytes);
}

bool isLetters(const QString &s)
{
    return std::all_of(s.begin(), s.end(), [](QChar c) { return c.isLetter(); });
}

bool isDigits(const QString &s)
{
    return std::all_of(s.begin(), s.end(), [](QChar c) { return c.isDigit(); });
}

// The identifiers of the system's locale data: each language alone, with its
// region, and with its script where the script is not the language's usual one.
QSet<QString> availableLocaleIdentifiers()
{
    QSet<QString> ids;
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    for (const QLocale &l : locales) {
        if (l.language() == QLocale::C || l.language() == QLocale::AnyLanguage)
            continue;
        const QString lang = QLocale::languageToCode(l.language());
        const QString region = l.territory() == QLocale::AnyTerritory
                                   ? QString()
                                   : QLocale::territoryToCode(l.territory());
        ids << lang;
        if (!region.isEmpty())
            ids << lang + QLatin1Char('_') + region;
        if (l.script() != QLocale(l.language()).script()) {
            const QString script = lang + QLatin1Char('_') + QLocale::scriptToCode(l.script());
            ids << script;
            if (!region.isEmpty())
                ids << script + QLatin1Char('_') + region;
        }
    }
    return ids;
}

} // namespace

Platform::LanguageTag ApplicationJunkFolderInfo::languageTag(const QString &identifier)
{
    Platform::LanguageTag tag;
    tag.identifier = identifier;
    static const QRegularExpression separators(QStringLiteral("[-_]"));
    const QStringList parts = identifier.split(separators, Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return tag;
    tag.language = parts[0];
    qsizetype i = 1;
    if (i < parts.size() && parts[i].size() == 4 && isLetters(parts[i]))
        tag.script = parts[i++];
    if (i < parts.size() && ((parts[i].size() == 2 && isLetters(parts[i])) ||
                             (parts[i].size() == 3 && isDigits(parts[i]))))
        tag.region = parts[i++];
    if (i < parts.size())
        tag.variant = parts.mid(i).join(QLatin1Char('_'));

    const QLocale::Language language = QLocale::codeToLanguage(tag.language);
    if (language == QLocale::AnyLanguage || language == QLocale::C)
        return tag;
    QStringList qualifiers;
    if (!tag.script.isEmpty() && QLocale::codeToScript(tag.script) != QLocale::AnyScript)
        qualifiers << QLocale::scriptToString(QLocale::codeToScript(tag.script));
    if (!tag.region.isEmpty() && QLocale::codeToTerritory(tag.region) != QLocale::AnyTerritory)
        qualifiers << QLocale::territoryToString(QLocale::codeToTerritory(tag.region));
    tag.englishName = QLocale::languageToString(language);
    if (!qualifiers.isEmpty())
        tag.englishName +=
            QStringLiteral(" (") + qualifiers.join(QStringLiteral(", ")) + QLatin1Char(')');
    return tag;
}

QSet<QString> ApplicationJunkFolderInfo::keepSet()
{
    QSet<QString> keep;
    static const QRegularExpression separators(QStringLiteral("[-_]"));
    for (const QString &preferred : Platform::preferredLanguages()) {
        keep << preferred;
        // Both spellings of the whole, so "en-US" also keeps "en_US".
        keep << QString(preferred).replace(QLatin1Char('-'), QLatin1Char('_'));
        for (const QString &form : preferred.split(separators, Qt::SkipEmptyParts))
            keep << form;
    }
    const QLocale current = ApplicationJunkService::currentLocale();
    keep << QStringLiteral("en") << current.name() << QLocale::languageToCode(current.language());
    return keep;
}

QList<Language> ApplicationJunkFolderInfo::getLanguagePacks()
{
    const QSet<QString> keep = keepSet();
    QSet<QString> candidates = availableLocaleIdentifiers();
    for (const QString &id : ApplicationJunkService::WHILE_LIST)
        candidates << id;

    QList<Language> languages;
    languages.reserve(candidates.size());
    for (const QString &id : std::as_const(candidates)) {
        const Platform::LanguageTag tag = languageTag(id);
        Language language;
        language.folders = Platform::languageFolderNames(tag);
        // Qt's locale data names languages in English and in themselves only;
        // an identifier it does not know is named by the translations.
        language.displayName = tag.englishName.isEmpty()
                                   ? getLocalizedString(QStringLiteral("locale_") + id)
                                   : tag.englishName;
        language.enabled = !keep.contains(id);
        languages.append(std::move(language));
    }
    std::sort(languages.begin(), languages.end(),
              [](const Language &a, const Language &b) { return a.displayName < b.displayName; });
    return languages;
}

QSet<QString> ApplicationJunkFolderInfo::junkFolderNames(const QList<Language> &languages)
{
    QSet<QString> junk, kept;
    for (const Language &language : languages)
        for (const QString &folder : language.folders)
            (language.enabled ? junk : kept) << folder;
    return junk.subtract(kept);
}

FolderInfoPtr ApplicationJunkFolderInfo::matchLanguage(const QUrl &url)
{
    return matchLanguage(url, junkFolderNames(getLanguagePacks()));
}

FolderInfoPtr ApplicationJunkFolderInfo::matchLanguage(const QUrl &url,
                                                       const QSet<QString> &junkNames)
{
    QList<FolderInfoPtr> children;
    qint64 total = 0;
    const QString suffix = Platform::languageFolderSuffix();
    auto e = DirectoryEnumerator::create(pathBytes(url),
                                         Platform::languageFoldersNested()
                                             ? DirectoryEnumerator::NoOptions
                                             : DirectoryEnumerator::SkipsSubdirectoryDescendants);
    while (e && e->next()) {
        if (!e->isDirectory())
            continue;
        const QString name = ResourceValues::displayName(ResourceValues::lastComponent(e->path()));
        if (!junkNames.contains(name))
            continue;
        e->skipDescendants();
        const QUrl folderUrl = urlFromPath(e->path());
        const qint64 size = getFolderSize(folderUrl);
        if (size <= 0)
            continue;
        FolderInfoPtr node = folderInfo(FolderUrl{absoluteString(folderUrl)}, false, nullptr);
        if (!node)
            continue;
        node->size = size;
        node->findex = int(children.size());
        node->icon = ApplicationJunkService::changeLanguageBriefly(
            name.endsWith(suffix) ? name.chopped(suffix.size()) : name);
        total += size;
        children.append(std::move(node));
    }
    FolderInfoPtr app = folderInfo(FolderUrl{absoluteString(url)}, false, nullptr);
    if (!app)
        app = make(0, QStringLiteral("None"), QString(), 0, QColor(Qt::white), false, distantPast(),
                   QUrl(QStringLiteral("~/.nonepath")), false, {}, false, 0, QString());
    app->children = std::move(children);
    app->size = total;
    // The application (or system folder) holds far more than its language
    // folders: a clean takes those and never the folder itself.
    app->isContainer = true;
    return app;
}

ApplicationJunkFolderInfo::InfoList
ApplicationJunkFolderInfo::getLanguagesInfoList(const QString &curl, const Progress &progress,
                                                const ShowPercent &showPercent)
{
    QList<FolderInfoPtr> apps;
    qint64 total = 0;
    QList<QByteArray> entries;
    auto e = DirectoryEnumerator::create(pathBytes(QUrl(curl)),
                                         DirectoryEnumerator::SkipsPackageDescendants |
                                             DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                             DirectoryEnumerator::SkipsHiddenFiles);
    while (e && e->next())
        entries << e->path();
    if (entries.isEmpty())
        return {apps, total};

    const QSet<QString> junkNames = junkFolderNames(getLanguagePacks());
    const float step = 1.0f / float(entries.size());
    for (const QByteArray &entry : std::as_const(entries)) {
        const QString name = ResourceValues::displayName(ResourceValues::lastComponent(entry));
        if (!UninstallService::BLACK_LIST.contains(name) && Platform::isLanguageContainer(name)) {
            FolderInfoPtr app = matchLanguage(urlFromPath(entry), junkNames);
            if (app->size > 0) {
                app->findex = int(apps.size());
                total += app->size;
                postProgress(progress, pathOf(entry), app->size);
                apps.append(std::move(app));
            }
        }
        postPercent(showPercent, step);
    }
    for (const FolderInfoPtr &app : std::as_const(apps))
        std::sort(
            app->children.begin(), app->children.end(),
            [](const FolderInfoPtr &a, const FolderInfoPtr &b) { return a->findex < b->findex; });
    return {apps, total};
}

namespace {

// One mail account folder to search, and the text that names it.
struct MailAccount {
    QString folder;
    QString label;
};

QVariantMap readDictionary(const QString &path)
{
    const std::optional<QVariant> value = PropertyList::fromFile(path);
    return value && value->typeId() == QMetaType::QVariantMap ? value->toMap() : QVariantMap();
}

// The accounts of a mail folder, grouped as its index lists them: one group
// per key of the index, empty for a key that names no accounts. A folder
// without an index (Linux) is one group of its own subfolders. nullopt when
// there is no index, or no folder, to read.
std::optional<QList<QList<MailAccount>>> mailAccounts(const QString &folder)
{
    const QString index = Platform::mailIndexName();
    QList<QList<MailAccount>> groups;
    if (index.isEmpty()) {
        auto e = DirectoryEnumerator::create(QFile::encodeName(folder),
                                             DirectoryEnumerator::SkipsSubdirectoryDescendants |
                                                 DirectoryEnumerator::SkipsHiddenFiles);
        if (!e)
            return std::nullopt;
        QList<MailAccount> accounts;
        while (e->next()) {
            const QString name = pathOf(ResourceValues::lastComponent(e->path()));
            if (e->isDirectory())
                accounts.append({folder + name, Platform::mailAccountName(name)});
        }
        groups.append(accounts);
        return groups;
    }
    if (!QFileInfo::exists(folder + index))
        return std::nullopt;
    const QVariantMap dictionary = readDictionary(folder + index);
    const QString version =
        dictionary.value(QStringLiteral("LastUsedVersionDirectoryName")).toString();
    for (auto it = dictionary.constBegin(); it != dictionary.constEnd(); ++it) {
        QList<MailAccount> accounts;
        if (it.key().contains(QLatin1String("VersionDirectoryIdentifiers"))) {
            const QVariantMap ids =
                it.value().typeId() == QMetaType::QVariantMap ? it.value().toMap() : QVariantMap();
            for (auto id = ids.constBegin(); id != ids.constEnd(); ++id) {
                const QString label =
                    id.value().typeId() == QMetaType::QString ? id.value().toString() : id.key();
                accounts.append({folder + version + QLatin1Char('/') + id.key(), label});
            }
        }
        groups.append(accounts);
    }
    return groups;
}

} // namespace

ApplicationJunkFolderInfo::InfoList
ApplicationJunkFolderInfo::getMailInfoList(const QString &url, const Progress &progress,
                                           const ShowPercent &showPercent)
{
    QList<FolderInfoPtr> files;
    qint64 total = 0;
    QString folder = Services::handleString(url);
    if (!folder.isEmpty() && !folder.endsWith(QLatin1Char('/')))
        folder += QLatin1Char('/');
    const auto groups = folder.isEmpty() ? std::nullopt : mailAccounts(folder);
    if (!groups || groups->isEmpty()) {
        postPercent(showPercent, 1.0f);
        return {files, total};
    }
    const QString attachments = Platform::mailAttachmentsFolder();
    const float groupShare = 1.0f / float(groups->size());
    for (const QList<MailAccount> &accounts : *groups) {
        if (accounts.isEmpty()) {
            postPercent(showPercent, groupShare);
            continue;
        }
        const float share = groupShare / float(accounts.size());
        for (const MailAccount &account : accounts) {
            // Linux mail clients keep cached messages here, not attachments.
            const QString scanning =
                Platform::isMacOS()
                    ? getLocalizedString(QStringLiteral("Scanning Mail Attachments From"))
                    : getLocalizedString(QStringLiteral("Scanning Cached Mail From"));
            postProgress(progress, scanning + QLatin1Char(' ') + account.label, 0);
            if (!QFileInfo::exists(account.folder)) {
                postPercent(showPercent, share);
                continue;
            }
            // Only the account's downloaded attachments; never a folder.
            const QString marker = QFileInfo(account.folder).fileName() + attachments;
            const TypeFilter filter = [marker](const ResourceValues &values,
                                               DirectoryEnumerator &) {
                if (values.isDirectory || !pathOf(values.path).contains(marker))
                    return FilterType::SkipSelf;
                return FilterType::NoSkip;
            };
            // The account's walk reports as one share, so the whole ends at 1.
            ChildrenInfo found = filesFromDirWithFilter(
                FolderUrl{absoluteString(urlFromPath(account.folder))}, progress, nullptr, filter);
            for (const FolderInfoPtr &f : std::as_const(found.children)) {
                f->findex = int(files.size());
                files.append(f);
            }
            total += found.totalSize;
            postPercent(showPercent, share);
        }
    }
    return {files, total};
}

ApplicationJunkFolderInfo::InfoList
ApplicationJunkFolderInfo::getiTunesInfoList(const FolderUrl &url, const Progress &progress,
                                             const ShowPercent &showPercent)
{
    QList<FolderInfoPtr> backups;
    qint64 total = 0;
    // Only the backups are reported, so that the size a scan shows is the
    // size it finds.
    const FolderInfoPtr root = folderInfo(url, true, nullptr);
    if (!root)
        return {backups, total};
    if (root->children.isEmpty()) {
        postPercent(showPercent, 1.0f);
        return {backups, total};
    }
    const float step = 1.0f / float(root->children.size());
    for (const FolderInfoPtr &child : std::as_const(root->children)) {
        const QString info = pathOf(pathBytes(child->url)) + QStringLiteral("/Info.plist");
        if (!child->hidden && QFileInfo::exists(info)) {
            const QVariantMap d = readDictionary(info);
            const QDateTime date = d.value(QStringLiteral("Last Backup Date")).toDateTime();
            backups.append(make(
                int(backups.size()),
                d.value(QStringLiteral("Display Name")).toString() + QStringLiteral("--") +
                    d.value(QStringLiteral("Product Name")).toString(),
                QStringLiteral("iTunesJunk"), child->size, QColor(), false,
                date.isValid() ? date : distantPast(), child->url, false, {}, false, 0, QString()));
            // Shown as one item, removed as the folder the walk saw.
            backups.last()->identity = child->identity;
            total += child->size;
            postProgress(progress, pathOf(pathBytes(child->url)), child->size);
        }
        postPercent(showPercent, step);
    }
    return {backups, total};
}
