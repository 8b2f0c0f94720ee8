// The three readers: which store holds which kind, and by which columns.
#include "cleaner/core/PropertyList.h"
#include "cleaner/privacy/PrivacyFolderInfo.h"
#include "cleaner/privacy/PrivacyService.h"

#include <QFileInfo>
#include <optional>

namespace {

// Seconds from 1601-01-01, Chrome's epoch, to 1970-01-01.
constexpr double kChromeEpoch = 11644473600.0;
// The shift of Safari's times, kept as the constant it is.
constexpr double kSafariShift = -978278400.0;

struct Column {
    BowserList kind;
    QString name;
    QString time;
    int unit;
    double shift;
    QString key1, key2, key3;
    QString groupIcon;
    // The rule the rows go through, when it is not the kind's own.
    std::optional<BowserList> rule = std::nullopt;
};

void addGroup(BrowserGroups &groups, const PrivacyFolderInfo::Rows &rows, const Column &c,
              const QString &icon)
{
    const auto [records, size] =
        PrivacyFolderInfo::getCategoryInfoList(rows, c.rule.value_or(c.kind), c.name, c.time,
                                               c.unit, icon, c.key1, c.key2, c.key3, c.shift);
    groups.insert(c.kind, PrivacyFolderInfo::manageData(c.kind, c.groupIcon, size, records));
}

// Reads one query of a store; the groups made from it only when it opened.
struct Query {
    bool opened = false;
    PrivacyFolderInfo::Rows rows;
};

Query query(const QString &path, const QString &sql, const Progress &progress)
{
    Query q;
    q.opened = PrivacyFolderInfo::getDBInfo(path, sql, q.rows, progress);
    return q;
}

const QString kVisitIcon = QStringLiteral("Private_Visit");
const QString kDownloadIcon = QStringLiteral("Private_Download");
const QString kKeywordIcon = QStringLiteral("Private_Keyword");
const QString kCookieIcon = QStringLiteral("Private_Cookie");
const QString kLoginIcon = QStringLiteral("Private_Login");
const QString kAutoIcon = QStringLiteral("Private_AutoFill");
const QString kLocalStoreIcon = QStringLiteral("Private_LocalStroge");

} // namespace

BrowserGroups PrivacyFolderInfo::getChromeInfoList(const Progress &progress)
{
    const QString icon = QStringLiteral("chrome");
    const QString history = PrivacyService::chromeHistoryPath();
    const Query visits = query(
        history, QStringLiteral("select * from visits inner join urls on visits.url = urls.id"),
        progress);
    const Query downloads = query(
        history, QStringLiteral("select * from downloads order by start_time desc;"), progress);
    const Query keywords =
        query(history,
              QStringLiteral("select * from urls inner join keyword_search_terms "
                             "on keyword_search_terms.url_id = urls.id;"),
              progress);
    const Query cookies =
        query(PrivacyService::chromeCookiePath(),
              QStringLiteral("select * from cookies order by creation_utc desc;"), progress);
    const Query logins =
        query(PrivacyService::chromeLoginPath(), QStringLiteral("select * from logins;"), progress);
    const Query autofill = query(PrivacyService::chromeAutoPath(),
                                 QStringLiteral("select * from autofill;"), progress);

    BrowserGroups groups;
    const QString none;
    if (visits.opened) {
        addGroup(groups, visits.rows,
                 {BowserList::Visit, "url", "visit_time", 1000000, kChromeEpoch, "id", none, none,
                  kVisitIcon},
                 icon);
        // A record's key is the id of its url row, which the joined query
        // puts last; the visit's own id, the first, is what a clean takes.
        const QList<FolderInfoPtr> &records = groups.value(BowserList::Visit)->children;
        for (qsizetype i = 0; i < records.size(); ++i)
            static_cast<PrivacyRecord &>(*records[i]).rowKey = visits.rows[i].firstValue("id");
    }
    if (downloads.opened) {
        addGroup(groups, downloads.rows,
                 {BowserList::Download, "target_path", "start_time", 1000000, kChromeEpoch, "id",
                  none, none, kDownloadIcon},
                 icon);
        addGroup(groups, downloads.rows,
                 {BowserList::DownloadFile, "target_path", "start_time", 1, 0, none, none, none,
                  kDownloadIcon},
                 icon);
    }
    if (keywords.opened)
        addGroup(groups, keywords.rows,
                 {BowserList::KeyWord, "title", none, 0, 0, "id", "url", none, kKeywordIcon}, icon);
    if (cookies.opened)
        addGroup(groups, cookies.rows,
                 {BowserList::Cookie, "host_key", "creation_utc", 1000000, kChromeEpoch,
                  "creation_utc", none, none, kCookieIcon},
                 icon);
    if (logins.opened)
        addGroup(groups, logins.rows,
                 {BowserList::Login, "signon_realm", "date_created", 100000, 0, "origin_url",
                  "signon_realm", "username_value", kLoginIcon},
                 icon);
    if (autofill.opened)
        addGroup(groups, autofill.rows,
                 {BowserList::Auto, "name", "date_created", 1, 0, "name", "value", none, kAutoIcon},
                 icon);
    if (QFileInfo(PrivacyService::chromeLocalStorePath()).isDir()) {
        const auto [records, size] = localStorageRecords(PrivacyService::chromeLocalStorePath(),
                                                         icon, false, "localstorage-journal");
        groups.insert(BowserList::LocalStore,
                      manageData(BowserList::LocalStore, kLocalStoreIcon, size, records));
    }
    return groups;
}

BrowserGroups PrivacyFolderInfo::getFireFoxInfoList(const Progress &progress)
{
    const QString icon = QStringLiteral("firefox");
    const QString places = PrivacyService::firefoxHistoryPath();
    const Query visits = query(places,
                               QStringLiteral("select * from  moz_places inner join "
                                              "moz_historyvisits on moz_historyvisits.place_id = "
                                              "moz_places.id order by id,visit_date desc;"),
                               progress);
    const Query annos = query(places, QStringLiteral("select * from moz_annos;"), progress);
    const Query keywords = query(places,
                                 QStringLiteral("select * from moz_places inner join moz_keywords "
                                                "on moz_keywords.place_id = moz_places.id;"),
                                 progress);
    const Query cookies = query(PrivacyService::firefoxCookiesPath(),
                                QStringLiteral("select * from moz_cookies;"), progress);
    const Query forms = query(PrivacyService::firefoxAutoPath(),
                              QStringLiteral("select * from moz_formhistory;"), progress);

    BrowserGroups groups;
    const QString none;
    if (visits.opened)
        addGroup(groups, visits.rows,
                 {BowserList::Visit, "url", "visit_date", 1000000, 0, "id", none, none, kVisitIcon},
                 icon);
    if (annos.opened) {
        addGroup(groups, annos.rows,
                 {BowserList::Download, "content", "dateAdded", 1000000, 0, "id", none, none,
                  kDownloadIcon},
                 icon);
        addGroup(groups, annos.rows,
                 {BowserList::DownloadFile, "content", "dateAdded", 1, 0, "id", none, none,
                  kDownloadIcon},
                 icon);
    }
    if (forms.opened)
        addGroup(
            groups, forms.rows,
            {BowserList::Auto, "fieldname", "firstUsed", 100000, 0, "id", "id", none, kAutoIcon},
            icon);
    if (keywords.opened)
        addGroup(groups, keywords.rows,
                 {BowserList::KeyWord, "keyword", "last_visit_date", 1110, 0, "id", "url", none,
                  kKeywordIcon},
                 icon);
    if (cookies.opened) {
        // Cookies take the Search History rule, so their URL stays empty.
        // Stores since Firefox 78 have no "baseDomain"; there the host names
        // the cookie.
        const bool hasBaseDomain =
            cookies.rows.isEmpty() || cookies.rows.first().contains(QStringLiteral("baseDomain"));
        const auto [records, size] = getCategoryInfoList(
            cookies.rows, BowserList::KeyWord,
            hasBaseDomain ? QStringLiteral("baseDomain") : QStringLiteral("host"),
            QStringLiteral("creationTime"), 1000000, icon, QStringLiteral("id"), none, none, 0);
        groups.insert(BowserList::Cookie,
                      manageData(BowserList::Cookie, kCookieIcon, size, records));
    }
    if (QFileInfo::exists(PrivacyService::firefoxLoginPath())) {
        const QList<FolderInfoPtr> records =
            fireFoxLoginRecords(PrivacyService::firefoxLoginPath());
        groups.insert(BowserList::Login,
                      manageData(BowserList::Login, kLoginIcon,
                                 qint64(records.size()) * PrivacyService::singleSize, records));
    }
    if (QFileInfo(PrivacyService::firefoxLocalStorePath()).isDir()) {
        const auto [records, size] =
            localStorageRecords(PrivacyService::firefoxLocalStorePath(), icon, true, {});
        groups.insert(BowserList::LocalStore,
                      manageData(BowserList::LocalStore, kLocalStoreIcon, size, records));
    }
    return groups;
}

BrowserGroups PrivacyFolderInfo::getSafariInfoList(const Progress &progress)
{
    BrowserGroups groups;
    if (PrivacyService::safariHistoryPath().isEmpty())
        return groups; // no Safari on this system
    const QString icon = QStringLiteral("safari");
    const QString none;
    const Query visits = query(PrivacyService::safariHistoryPath(),
                               QStringLiteral("select * from history_items inner join "
                                              "history_visits on history_visits.history_item = "
                                              "history_items.id order by id,visit_time desc;"),
                               progress);
    const Query origins = query(PrivacyService::safariLocalStorePath(),
                                QStringLiteral("select * from origins;"), progress);
    if (visits.opened)
        addGroup(
            groups, visits.rows,
            {BowserList::Visit, "url", "visit_time", 1, kSafariShift, "id", none, none, kVisitIcon},
            icon);

    if (QFileInfo::exists(PrivacyService::safariDownloadPath())) {
        QList<FolderInfoPtr> downloads, files;
        qint64 filesSize = 0;
        const QVariantList history = PropertyList::fromFile(PrivacyService::safariDownloadPath())
                                         .value_or(QVariant())
                                         .toMap()
                                         .value(QStringLiteral("DownloadHistory"))
                                         .toList();
        const QString home = FolderInfo::getUserHomeDirectory() + QLatin1Char('/');
        for (const QVariant &item : history) {
            if (item.typeId() != QMetaType::QVariantMap)
                continue;
            const QVariantMap entry = item.toMap();
            const QString path = entry.value(QStringLiteral("DownloadEntryPath")).toString();
            const QString id = entry.value(QStringLiteral("DownloadEntryIdentifier")).toString();
            const QDateTime finished =
                entry.value(QStringLiteral("DownloadEntryDateFinishedKey")).toDateTime();
            auto node = std::make_shared<PrivacyRecord>(
                int(downloads.size()), path, icon, PrivacyService::singleSize, QColor(), false,
                finished.isValid() ? finished : QDateTime::currentDateTimeUtc(), emptyFileURL(),
                false, QList<FolderInfoPtr>(), false, 0, id);
            downloads.append(node);
            QString filePath = path;
            filePath.replace(QStringLiteral("~/"), home);
            const auto values = ResourceValues::read(QFile::encodeName(filePath));
            if (filePath.isEmpty() || !values)
                continue;
            auto file = std::make_shared<PrivacyRecord>(
                int(files.size()), filePath, icon, values->fileSize.value_or(0), QColor(), false,
                values->contentModificationDate.isValid() ? values->contentModificationDate
                                                          : QDateTime::currentDateTimeUtc(),
                urlFromPath(values->path), false, QList<FolderInfoPtr>(), false, 0, id);
            file->identity = values->identity;
            filesSize += file->size;
            files.append(file);
        }
        groups.insert(BowserList::Download,
                      manageData(BowserList::Download, kDownloadIcon,
                                 qint64(downloads.size()) * PrivacyService::singleSize, downloads));
        groups.insert(BowserList::DownloadFile,
                      manageData(BowserList::DownloadFile, kDownloadIcon, filesSize, files));
    }
    // This build reaches no Safari cookie store (see the decisions): the
    // group stays, empty, as on systems before 10.11.
    groups.insert(BowserList::Cookie, manageData(BowserList::Cookie, kCookieIcon, 0, {}));
    if (origins.opened)
        addGroup(groups, origins.rows,
                 {BowserList::LocalStore, "path", "visit_time", 1, kSafariShift, "id", "path", none,
                  kLocalStoreIcon, BowserList::DownloadFile},
                 icon);
    for (BowserList kind : {BowserList::Auto, BowserList::KeyWord, BowserList::Login}) {
        const QString groupIcon = kind == BowserList::Auto      ? kAutoIcon
                                  : kind == BowserList::KeyWord ? kKeywordIcon
                                                                : kLoginIcon;
        groups.insert(kind, manageData(kind, groupIcon, 0, {}));
    }
    return groups;
}
