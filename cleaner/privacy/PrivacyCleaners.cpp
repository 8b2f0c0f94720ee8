// The three cleaners: what stays selected in a browser's category goes from
// the browser's own stores (rows, file entries, property list entries) and
// from the tree. The tree is read and changed on the main thread; the stores
// are edited on the calling worker from values taken there.
#include "cleaner/core/AppModuleService.h"
#include "cleaner/core/Dispatch.h"
#include "cleaner/core/Fatal.h"
#include "cleaner/core/FileRemoval.h"
#include "cleaner/core/PropertyList.h"
#include "cleaner/privacy/PrivacyService.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QSet>
#include <cstdio>
#include <sys/stat.h>

namespace {

// A record as the worker needs it.
struct Row {
    FolderInfoPtr node;
    QString dbNumber;
    QString rowKey; // the row's own key where dbNumber names another table's
    QByteArray path;
    ItemIdentity identity;
    qint64 size = 0;
};

struct Group {
    FolderInfoPtr node;
    QString name;
    bool whole = false;
    int childCount = 0;
    qint64 size = 0;
    QList<Row> rows;            // every child (whole) or the ticked ones (per row)
    QSet<FolderInfo *> cleaned; // per row: the records that leave the list
};

// How one group of one browser is cleaned.
enum class Work {
    Sql,              // a statement on a store
    Files,            // remove each record's file
    FilesAndJournal,  // ... and its "-journal"
    FirefoxLogins,    // the logins array of a JSON file
    SafariDownloads,  // the download entries of a property list
    SafariCookies,    // the system's cookie store, which this build does not reach
    SafariLocalStore, // a statement, then the file and its "-shm" and "-wal"
    Nothing,
};

struct Kind {
    Kind(QString group, Work work, QString store = {}, QString whole = {}, QString row = {},
         bool closeV2 = false, int keyParts = 1, QString rowEnd = {}, bool printResult = false)
        : group(std::move(group)), work(work), store(std::move(store)), whole(std::move(whole)),
          row(std::move(row)), closeV2(closeV2), keyParts(keyParts), rowEnd(std::move(rowEnd)),
          printResult(printResult)
    {}
    QString group;
    Work work;
    QString store;
    QString whole;
    QString row;
    bool closeV2;     // the per-row close
    int keyParts;     // the parts of dbNumber the row statement takes (%1, %2, %3)
    QString rowEnd;   // what the row statement ends with
    bool printResult; // the statement's result goes to the diagnostics
};

Category &privacyCategory(int ci)
{
    const QList<Module> &modules = AppModuleService::appModules();
    if (modules.size() <= PrivacyService::moduleIndex ||
        modules[PrivacyService::moduleIndex].categories.value_or(QList<Category>()).size() <= ci)
        fatalStop(QStringLiteral("the privacy module has no category %1").arg(ci));
    return AppModuleService::categoriesOf(PrivacyService::moduleIndex)[ci];
}

QList<Group> takeGroups(int ci)
{
    QList<Group> groups;
    Dispatch::mainSync([&] {
        for (const FolderInfoPtr &g : std::as_const(privacyCategory(ci).files)) {
            if (g->checked != 1 && g->checked != -1)
                continue;
            Group group{g, g->name, g->checked == 1, int(g->children.size()), g->size, {}, {}};
            for (const FolderInfoPtr &child : std::as_const(g->children)) {
                if (!group.whole && child->checked != 1)
                    continue;
                const auto *record = dynamic_cast<const PrivacyRecord *>(child.get());
                group.rows.append({child, child->dbNumber, record ? record->rowKey : QString(),
                                   FolderInfo::pathBytes(child->url), child->identity,
                                   child->size});
            }
            groups.append(std::move(group));
        }
    });
    return groups;
}

void applyToTree(int ci, const QList<Group> &groups, qint64 cleanedSize)
{
    Dispatch::mainSync([&] {
        for (const Group &group : groups) {
            FolderInfo &node = *group.node;
            if (group.whole) {
                node.size = 0;
                node.children.clear();
                node.checked = 0;
                continue;
            }
            node.children.removeIf(
                [&](const FolderInfoPtr &child) { return group.cleaned.contains(child.get()); });
            for (int i = 0; i < node.children.size(); ++i)
                node.children[i]->findex = i;
        }
        Category &c = privacyCategory(ci);
        const qint64 remaining = c.size - cleanedSize;
        c.size = remaining > 0 ? remaining : 0;
    });
}

// Runs one statement. Text that holds a second statement after the first
// (a record's value closing the first one early) is not run at all.
void runStatement(const QString &sql, bool print)
{
    SQLiteUtil &sqlite = SQLiteUtil::shareInstance();
    if (!sqlite.db || !sqlite.isSingleStatement(sql))
        return;
    const auto result = sqlite.execSQL(sql);
    if (print) // a diagnostic: standard output carries the command line's results
        std::fprintf(stderr, "%s\n",
                     result.contains(true) ? "OK" : result.value(false).toLocal8Bit().constData());
}

bool openStore(const QString &path)
{
    // Opening a missing store would create it.
    return !path.isEmpty() && QFileInfo::exists(path) && SQLiteUtil::shareInstance().openDB(path);
}

bool removeRecordFile(const Row &row)
{
    return !row.path.isEmpty() && FolderInfo::deleteFile(row.path, row.identity).removed();
}

// A side file of a store the browser keeps beside it; only a plain file.
void removeSideFile(const QByteArray &path)
{
    struct stat st;
    if (lstat(path.constData(), &st) == 0 && S_ISREG(st.st_mode))
        FileRemoval::removeItem(path);
}

QString quoted(QString text)
{
    return QLatin1Char('\'') + text.replace(QLatin1Char('\''), QStringLiteral("''")) +
           QLatin1Char('\'');
}

// Firefox's logins: the whole array emptied, or the elements of these ids
// dropped; the file is rewritten only when it was a logins file. Answers how
// many elements went.
int editLogins(const QString &path, bool whole, const QList<Row> &rows)
{
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return 0;
    QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    file.close();
    QJsonObject top = document.object();
    if (!document.isObject() || !top.value(QStringLiteral("logins")).isArray())
        return 0;
    QJsonArray logins = top.value(QStringLiteral("logins")).toArray();
    int removed = 0;
    if (whole) {
        logins = QJsonArray();
    } else {
        for (const Row &row : rows) {
            bool ok = false;
            const qint64 id = row.dbNumber.toLongLong(&ok);
            for (qsizetype i = 0; ok && i < logins.size(); ++i) {
                if (logins[i].toObject().value(QStringLiteral("id")).toInteger(-1) == id) {
                    logins.removeAt(i--);
                    ++removed;
                }
            }
        }
    }
    top.insert(QStringLiteral("logins"), logins);
    QSaveFile out(path);
    if (out.open(QIODevice::WriteOnly)) {
        out.write(QJsonDocument(top).toJson(QJsonDocument::Compact));
        out.commit();
    }
    return removed;
}

// Safari's downloads: the history emptied, or the entries whose identifier
// holds a selected record's dropped; written back in its own format, at once.
int editDownloads(const QString &path, bool whole, const QList<Row> &rows)
{
    QFile file(path);
    if (path.isEmpty() || !file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray data = file.readAll();
    file.close();
    const std::optional<QVariant> root = PropertyList::fromData(data);
    const QString key = QStringLiteral("DownloadHistory");
    if (!root || root->typeId() != QMetaType::QVariantMap ||
        root->toMap().value(key).typeId() != QMetaType::QVariantList)
        return 0;
    QVariantMap top = root->toMap();
    QVariantList history = top.value(key).toList();
    int removed = 0;
    if (whole) {
        history.clear();
    } else {
        QSet<int> noted;
        for (const Row &row : rows) {
            // An empty identifier is held by every text: it names no entry.
            for (int i = 0; !row.dbNumber.isEmpty() && i < history.size(); ++i) {
                const QString id = history[i].toMap().value("DownloadEntryIdentifier").toString();
                if (id.contains(row.dbNumber)) {
                    noted.insert(i);
                    ++removed;
                }
            }
        }
        QVariantList kept;
        for (int i = 0; i < history.size(); ++i) {
            if (!noted.contains(i))
                kept.append(history[i]);
        }
        history = kept;
    }
    top.insert(key, history);
    QSaveFile out(path);
    if (out.open(QIODevice::WriteOnly)) {
        out.write(data.startsWith("bplist") ? PropertyList::toBinary(top)
                                            : PropertyList::toXml(top));
        out.commit();
    }
    return removed;
}

void removeWithSideFiles(const Row &row, Work work)
{
    removeRecordFile(row);
    if (work == Work::FilesAndJournal)
        removeSideFile(row.path + "-journal");
    if (work == Work::SafariLocalStore) {
        removeSideFile(row.path + "-shm");
        removeSideFile(row.path + "-wal");
    }
}

// One group; adds to size and number.
void cleanGroup(Group &group, const Kind &kind, qint64 &size, int &number)
{
    SQLiteUtil &sqlite = SQLiteUtil::shareInstance();
    if (group.whole) {
        // A group that listed nothing (a store that could not be read, one
        // that filled after the scan) stands for no row: its store is left.
        const Work work = group.childCount > 0 ? kind.work : Work::Nothing;
        switch (work) {
        case Work::Sql:
        case Work::SafariLocalStore:
            if (openStore(kind.store)) {
                sqlite.execSQL(kind.whole);
                sqlite.closeDB(kind.store, false);
            }
            if (kind.work == Work::SafariLocalStore)
                for (const Row &row : std::as_const(group.rows))
                    removeWithSideFiles(row, kind.work);
            break;
        case Work::Files:
        case Work::FilesAndJournal:
            for (const Row &row : std::as_const(group.rows))
                removeWithSideFiles(row, kind.work);
            break;
        case Work::FirefoxLogins:
            editLogins(kind.store, true, {});
            break;
        case Work::SafariDownloads:
            editDownloads(kind.store, true, {});
            break;
        case Work::SafariCookies:
        case Work::Nothing:
            break;
        }
        number += group.childCount;
        size += group.size;
        return;
    }

    for (const Row &row : std::as_const(group.rows))
        group.cleaned.insert(row.node.get()); // every ticked record leaves the list
    switch (kind.work) {
    case Work::Sql:
    case Work::SafariLocalStore: {
        const bool opened = openStore(kind.store);
        // One transaction for the group's statements: a store is synced once,
        // not once a record, and a clean cut short leaves all or none. A
        // statement that fails inside it still only fails itself.
        if (opened)
            sqlite.execSQL(QStringLiteral("BEGIN;"));
        for (const Row &row : std::as_const(group.rows)) {
            QString sql;
            if (kind.work == Work::SafariLocalStore) {
                sql = kind.row + quoted(QString::fromUtf8(row.path)) + QStringLiteral(";");
            } else if (kind.keyParts > 1) {
                // No quoting: a value that is no number makes a statement
                // that does not run, and the record still counts.
                const QStringList parts = row.dbNumber.split(QLatin1Char(','));
                if (parts.size() < kind.keyParts)
                    fatalStop(
                        QStringLiteral("a record of \"%1\" without its keys").arg(kind.group));
                sql = kind.keyParts == 3 ? kind.row.arg(parts[0], parts[1], parts[2])
                                         : kind.row.arg(parts[0], parts[1]);
            } else {
                sql = kind.row + (row.rowKey.isEmpty() ? row.dbNumber : row.rowKey) + kind.rowEnd;
            }
            if (opened)
                runStatement(sql, kind.printResult);
            if (kind.work == Work::SafariLocalStore)
                removeWithSideFiles(row, kind.work);
            number += 1;
            size += PrivacyService::singleSize;
        }
        if (opened) {
            sqlite.execSQL(QStringLiteral("COMMIT;"));
            sqlite.closeDB(kind.store, kind.closeV2);
        }
        break;
    }
    case Work::Files:
    case Work::FilesAndJournal:
        for (const Row &row : std::as_const(group.rows)) {
            const bool removed = removeRecordFile(row);
            if (kind.work == Work::FilesAndJournal)
                removeSideFile(row.path + "-journal");
            if (removed) {
                number += 1;
                size += row.size;
            }
        }
        break;
    case Work::FirefoxLogins: {
        const int removed = editLogins(kind.store, false, group.rows);
        number += removed;
        size += removed * PrivacyService::singleSize;
        break;
    }
    case Work::SafariDownloads: {
        const int removed = editDownloads(kind.store, false, group.rows);
        number += removed;
        size += removed * PrivacyService::singleSize;
        break;
    }
    case Work::SafariCookies:
    case Work::Nothing:
        break;
    }
}

std::pair<qint64, int> cleanCategory(int ci, const QList<Kind> &kinds)
{
    QList<Group> groups = takeGroups(ci);
    qint64 size = 0;
    int number = 0;
    for (Group &group : groups) {
        for (const Kind &kind : kinds) {
            if (kind.group == group.name) {
                cleanGroup(group, kind, size, number);
                break;
            }
        }
    }
    applyToTree(ci, groups, size);
    return {size, number};
}

} // namespace

std::pair<qint64, int> PrivacyService::cleanChrome(int ci)
{
    const QString history = chromeHistoryPath();
    return cleanCategory(
        ci, {
                {"Visit History", Work::Sql, history, "delete from visits;",
                 "delete from visits where id = ", true},
                {"Downloads History", Work::Sql, history, "delete from downloads;",
                 "delete from downloads where id = ", true},
                {"Downloaded Files", Work::Files},
                {"Search History", Work::Sql, history, "delete from keyword_search_terms;",
                 "delete from keyword_search_terms where id = "},
                {"Cookies", Work::Sql, chromeCookiePath(), "delete from cookies;",
                 "delete from cookies where creation_utc = "},
                {"Login History", Work::Sql, chromeLoginPath(), "delete from logins;",
                 "delete from logins where origin_url = %1 and signon_realm = %2 and "
                 "username_value = %3",
                 false, 3},
                {"Auto Fill History", Work::Sql, chromeAutoPath(), "delete from autofill;",
                 "delete from autofill where name = %1 and value = %2", false, 2},
                {"HTML5 Local Storage", Work::FilesAndJournal},
            });
}

std::pair<qint64, int> PrivacyService::cleanFirefox(int ci)
{
    const QString places = firefoxHistoryPath();
    return cleanCategory(
        ci, {
                {"Visit History", Work::Sql, places, "delete from moz_historyvisits;",
                 "delete from moz_historyvisits where id = ", true},
                {"Downloads History", Work::Sql, places, "delete from moz_annos;",
                 "delete from moz_annos where id = ", true},
                {"Downloaded Files", Work::Files},
                {"Search History", Work::Sql, places, "delete from moz_keywords;",
                 "delete from moz_keywords where id = "},
                {"Cookies", Work::Sql, firefoxCookiesPath(), "delete from moz_cookies;",
                 "delete from moz_cookies where id = "},
                {"Login History", Work::FirefoxLogins, firefoxLoginPath()},
                {"Auto Fill History", Work::Sql, firefoxAutoPath(), "delete from moz_formhistory;",
                 "delete from moz_formhistory where id = ", false, 1, ";"},
                {"HTML5 Local Storage", Work::Files},
            });
}

std::pair<qint64, int> PrivacyService::cleanSafari(int ci)
{
    return cleanCategory(ci,
                         {
                             {"Visit History",
                              Work::Sql,
                              safariHistoryPath(),
                              "delete from history_visits;",
                              "delete from history_visits where id = ",
                              true,
                              1,
                              {},
                              true},
                             {"Downloads History", Work::SafariDownloads, safariDownloadPath()},
                             {"Downloaded Files", Work::Files},
                             {"Search History", Work::Nothing},
                             {"Login History", Work::Nothing},
                             {"Auto Fill History", Work::Nothing},
                             {"Cookies", Work::SafariCookies},
                             {"HTML5 Local Storage", Work::SafariLocalStore, safariLocalStorePath(),
                              "delete from origins;", "delete from origins where path = ", true},
                         });
}
