#include "cleaner/privacy/PrivacyFolderInfo.h"

#include "cleaner/core/FileRemoval.h"
#include "cleaner/privacy/PrivacyService.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cmath>
#include <cstdlib>

QString bowserListRawValue(BowserList kind)
{
    switch (kind) {
    case BowserList::Visit:
        return QStringLiteral("Visit History");
    case BowserList::Download:
        return QStringLiteral("Downloads History");
    case BowserList::DownloadFile:
        return QStringLiteral("Downloaded Files");
    case BowserList::KeyWord:
        return QStringLiteral("Search History");
    case BowserList::Cookie:
        return QStringLiteral("Cookies");
    case BowserList::Login:
        return QStringLiteral("Login History");
    case BowserList::Auto:
        return QStringLiteral("Auto Fill History");
    case BowserList::LocalStore:
        return QStringLiteral("HTML5 Local Storage");
    }
    return QString();
}

double PrivacyFolderInfo::leadingDouble(const QString &text)
{
    const QByteArray bytes = text.toLatin1();
    return std::strtod(bytes.constData(), nullptr);
}

QDateTime PrivacyFolderInfo::dateFromSeconds(double seconds)
{
    // Beyond what a date can show (a divisor of 0 gives infinity).
    if (!std::isfinite(seconds) || std::fabs(seconds) > 1e13)
        return QDateTime();
    return QDateTime::fromMSecsSinceEpoch(qint64(std::llround(seconds * 1000.0)), Qt::UTC);
}

QUrl PrivacyFolderInfo::emptyFileURL()
{
    // One shared value: a few hundred thousand records carry it.
    static const QUrl url(QStringLiteral("file://"));
    return url;
}

bool PrivacyFolderInfo::getDBInfo(const QString &path, const QString &sql, Rows &object,
                                  const Progress &progress)
{
    const QFileInfo file(path);
    if (!file.exists()) {
        // Opening would create the file inside the browser's folder; an
        // existing folder reads as an empty store, a missing one fails.
        if (path.isEmpty() || !file.absoluteDir().exists())
            return false;
        object.clear();
        postProgress(progress, path, 0);
        return true;
    }
    SQLiteUtil &sqlite = SQLiteUtil::shareInstance();
    if (!sqlite.openDB(path))
        return false;
    object = sqlite.queryDBData(sql);
    postProgress(progress, path, 0);
    return sqlite.closeDB(path, true);
}

namespace {

QString nameOf(const SQLiteRow &row, const QString &key)
{
    const QString name = row.value(key);
    return name.isEmpty() ? PrivacyService::defaultName() : name;
}

QDateTime dateOf(const SQLiteRow &row, const QString &key, int timeUnit, double shift)
{
    const QString text = row.contains(key) ? row.value(key) : QStringLiteral("1");
    return PrivacyFolderInfo::dateFromSeconds(
        PrivacyFolderInfo::leadingDouble(text) / double(timeUnit) - shift);
}

std::shared_ptr<PrivacyRecord> record(int findex, const QString &name, const QString &icon,
                                      qint64 size, const QDateTime &date, const QUrl &url,
                                      const QString &dbNumber)
{
    return std::make_shared<PrivacyRecord>(findex, name, icon, size, QColor(), false, date, url,
                                           false, QList<FolderInfoPtr>(), false, 0, dbNumber);
}

// A row naming a file: a record only while the file is there and removable.
FolderInfoPtr fileRecord(const SQLiteRow &row, int findex, const QString &nameORPath,
                         const QString &icon, const QString &dbNumber1, qint64 *total)
{
    const QString path = Services::handleString(row.value(nameORPath));
    const QByteArray bytes = QFile::encodeName(path);
    if (path.isEmpty() || !QFileInfo::exists(path) || !FileRemoval::isDeletable(bytes))
        return nullptr;
    const auto values = ResourceValues::read(bytes);
    if (!values)
        return nullptr;
    auto node = record(findex, path, icon, values->fileSize.value_or(PrivacyService::singleSize),
                       values->contentModificationDate.isValid() ? values->contentModificationDate
                                                                 : QDateTime::currentDateTimeUtc(),
                       FolderInfo::urlFromPath(bytes), row.value(dbNumber1));
    node->identity = values->identity;
    *total += values->fileSize.value_or(0);
    return node;
}

} // namespace

PrivacyFolderInfo::Records PrivacyFolderInfo::getCategoryInfoList(
    const Rows &catetory, BowserList cateType, const QString &nameORPath, const QString &timeString,
    int timeUnit, const QString &icon, const QString &dbNumber1, const QString &dbNumber2,
    const QString &dbNumber3, double chromeTime)
{
    Records out;
    out.first.reserve(catetory.size());
    if (cateType == BowserList::DownloadFile) {
        for (const SQLiteRow &row : catetory) {
            if (FolderInfoPtr node = fileRecord(row, int(out.first.size()), nameORPath, icon,
                                                dbNumber1, &out.second))
                out.first.append(std::move(node));
        }
        return out;
    }
    for (const SQLiteRow &row : catetory) {
        QString key = row.value(dbNumber1);
        if (cateType == BowserList::Login)
            key +=
                QLatin1Char(',') + row.value(dbNumber2) + QLatin1Char(',') + row.value(dbNumber3);
        else if (cateType == BowserList::Auto)
            key += QLatin1Char(',') + row.value(dbNumber2);
        QUrl url = emptyFileURL();
        if (cateType == BowserList::KeyWord) {
            const QUrl parsed(row.value(dbNumber2), QUrl::StrictMode);
            if (parsed.isValid() && !parsed.isEmpty())
                url = parsed;
        }
        auto node =
            record(int(out.first.size()), nameOf(row, nameORPath), icon, PrivacyService::singleSize,
                   dateOf(row, timeString, timeUnit, chromeTime), url, key);
        out.first.append(std::move(node));
    }
    out.second = qint64(out.first.size()) * PrivacyService::singleSize;
    return out;
}

FolderInfoPtr PrivacyFolderInfo::manageData(BowserList kind, const QString &icon, qint64 size,
                                            const QList<FolderInfoPtr> &children)
{
    return make(0, bowserListRawValue(kind), icon, size, QColor(), false,
                QDateTime::currentDateTimeUtc(), emptyFileURL(), true, children, false, 0,
                QString());
}

PrivacyFolderInfo::Records PrivacyFolderInfo::localStorageRecords(const QString &folder,
                                                                  const QString &icon, bool deep,
                                                                  const QByteArray &skipContaining)
{
    Records out;
    auto e = DirectoryEnumerator::create(QFile::encodeName(folder),
                                         DirectoryEnumerator::SkipsHiddenFiles |
                                             DirectoryEnumerator::SkipsPackageDescendants |
                                             DirectoryEnumerator::SkipsSubdirectoryDescendants);
    while (e && e->next()) {
        if (!e->currentReadable())
            continue;
        const ResourceValues &values = e->values();
        const QByteArray name = ResourceValues::lastComponent(values.path);
        if (!skipContaining.isEmpty() && name.contains(skipContaining))
            continue; // removed with its main file
        qint64 size = values.fileSize.value_or(0);
        if (deep) {
            size = 0;
            auto inner =
                DirectoryEnumerator::create(values.path, DirectoryEnumerator::SkipsHiddenFiles);
            while (inner && inner->next())
                size += inner->fileSize().value_or(0);
        }
        const QDateTime date = !deep && values.contentModificationDate.isValid()
                                   ? values.contentModificationDate
                                   : QDateTime::currentDateTimeUtc();
        auto node = record(int(out.first.size()), ResourceValues::displayName(name), icon, size,
                           date, urlFromPath(values.path), QString());
        node->identity = values.identity;
        out.second += size;
        out.first.append(std::move(node));
    }
    return out;
}

QList<FolderInfoPtr> PrivacyFolderInfo::fireFoxLoginRecords(const QString &path)
{
    QList<FolderInfoPtr> records;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return records;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isObject() || !document.object().value(QStringLiteral("logins")).isArray())
        return records;
    const QJsonArray logins = document.object().value(QStringLiteral("logins")).toArray();
    for (const QJsonValue &value : logins) {
        const QJsonObject login = value.toObject();
        const QJsonValue submit = login.value(QStringLiteral("formSubmitURL"));
        const QString name = submit.isString() ? submit.toString() : PrivacyService::defaultName();
        records.append(
            record(int(records.size()), name, QStringLiteral("firefox"), PrivacyService::singleSize,
                   dateFromSeconds(login.value(QStringLiteral("timeCreated")).toDouble() / 1000.0),
                   emptyFileURL(), QString::number(login.value(QStringLiteral("id")).toInteger())));
    }
    return records;
}

QString PrivacyFolderInfo::getFireFoxPath()
{
    const QString folder = PrivacyService::firefoxProfilesFolder();
    auto e = DirectoryEnumerator::create(QFile::encodeName(folder),
                                         DirectoryEnumerator::SkipsHiddenFiles |
                                             DirectoryEnumerator::SkipsPackageDescendants |
                                             DirectoryEnumerator::SkipsSubdirectoryDescendants);
    if (!e)
        return QString();
    // Profiles come in the order they were last changed, so that of two
    // ".default" profiles the one in use, which the browser keeps writing
    // into, is the last; the name settles a tie.
    struct Candidate {
        QDateTime changed;
        QByteArray path;
    };
    QList<Candidate> candidates;
    while (e->next()) {
        if (!e->isDirectory())
            continue;
        const ResourceValues &values = e->values();
        if (ResourceValues::lastComponent(values.path).contains(".default"))
            candidates.append({values.contentModificationDate, values.path});
    }
    if (candidates.isEmpty())
        return QString();
    std::sort(candidates.begin(), candidates.end(), [](const Candidate &a, const Candidate &b) {
        return a.changed != b.changed ? a.changed < b.changed : a.path < b.path;
    });
    return QFile::decodeName(candidates.last().path) + QLatin1Char('/');
}
