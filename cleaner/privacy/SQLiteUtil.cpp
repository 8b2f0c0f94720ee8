#include "cleaner/privacy/SQLiteUtil.h"

#include <sqlite3.h>

SQLiteRow::SQLiteRow(Columns columns, QByteArray packed, QList<int> ends)
    : m_columns(std::move(columns)), m_packed(std::move(packed)), m_ends(std::move(ends))
{}

QString SQLiteRow::text(int i) const
{
    if (i < 0)
        return QString();
    const int begin = i == 0 ? 0 : m_ends[i - 1];
    return QString::fromUtf8(m_packed.constData() + begin, m_ends[i] - begin);
}

SQLiteUtil &SQLiteUtil::shareInstance()
{
    static SQLiteUtil instance;
    return instance;
}

bool SQLiteUtil::openDB(const QString &dbPath)
{
    const int rc = sqlite3_open(dbPath.toUtf8().constData(), &db);
    if (rc == SQLITE_OK)
        return true;
    // A failed open still hands back a handle that must be released.
    sqlite3_close(db);
    db = nullptr;
    return false;
}

bool SQLiteUtil::closeDB(const QString &dbPath, bool queryOrExec)
{
    Q_UNUSED(dbPath);
    const int rc = queryOrExec ? sqlite3_close_v2(db) : sqlite3_close(db);
    if (rc == SQLITE_OK)
        db = nullptr;
    return rc == SQLITE_OK;
}

QHash<bool, QString> SQLiteUtil::execSQL(const QString &SQL)
{
    char *error = nullptr;
    const int rc = sqlite3_exec(db, SQL.toUtf8().constData(), nullptr, nullptr, &error);
    QString text;
    if (rc != SQLITE_OK)
        text = error ? QString::fromUtf8(error) : QStringLiteral("Error");
    sqlite3_free(error);
    return {{rc == SQLITE_OK, text}};
}

QList<SQLiteUtil::Row> SQLiteUtil::queryDBData(const QString &querySQL)
{
    QList<Row> rows;
    if (querySQL.isEmpty() || !db)
        return rows;
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(db, querySQL.toUtf8().constData(), -1, &statement, nullptr) != SQLITE_OK)
        return rows;
    // Finalized here rather than left to sqlite3_close_v2: the statement is
    // done with, and a closed store must leave no handle behind.
    const int count = sqlite3_column_count(statement);
    auto columns = std::make_shared<SQLiteRow::Index>();
    for (int i = 0; i < count; ++i) {
        const QString name = QString::fromUtf8(sqlite3_column_name(statement, i));
        columns->last.insert(name, i); // the later column of a name wins
        if (!columns->first.contains(name))
            columns->first.insert(name, i);
    }
    const SQLiteRow::Columns shared = std::move(columns);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        QByteArray packed;
        QList<int> ends;
        ends.reserve(count);
        for (int i = 0; i < count; ++i) {
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, i));
            if (text)
                packed.append(text, sqlite3_column_bytes(statement, i));
            ends.append(int(packed.size()));
        }
        packed.squeeze();
        rows.append(SQLiteRow(shared, std::move(packed), std::move(ends)));
    }
    sqlite3_finalize(statement);
    return rows;
}

bool SQLiteUtil::isSingleStatement(const QString &SQL)
{
    const QByteArray text = SQL.toUtf8();
    sqlite3_stmt *statement = nullptr;
    const char *tail = nullptr;
    const int rc = sqlite3_prepare_v2(db, text.constData(), int(text.size()), &statement, &tail);
    sqlite3_finalize(statement);
    if (rc != SQLITE_OK || !statement)
        return false;
    for (; tail && *tail; ++tail) {
        if (*tail != ';' && !QChar::isSpace(uchar(*tail)))
            return false;
    }
    return true;
}
