#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <memory>

struct sqlite3;

// One row of a query as a dictionary from column name to the column's text.
// Two columns of one name share one key and the later one wins. The texts
// are kept packed in one buffer, since a store may hold a few hundred
// thousand rows and all of them are held at once.
class SQLiteRow {
public:
    // Column name to position: the later column of a name, and the first.
    struct Index {
        QHash<QString, int> last;
        QHash<QString, int> first;
    };
    using Columns = std::shared_ptr<const Index>;

    SQLiteRow(Columns columns, QByteArray packed, QList<int> ends);
    bool contains(const QString &key) const { return m_columns->last.contains(key); }
    // The column's text; "" for NULL and for a key the row does not have.
    QString value(const QString &key) const { return text(m_columns->last.value(key, -1)); }
    // The first column of that name (a joined query's earlier table).
    QString firstValue(const QString &key) const { return text(m_columns->first.value(key, -1)); }

private:
    QString text(int column) const;

    Columns m_columns;
    QByteArray m_packed;
    QList<int> m_ends;
};

// The one wrapper over SQLite. A single shared instance holds at most one
// open connection; each store is opened, read or edited, and closed again.
// Not thread-safe: one privacy scan or clean runs at a time.
class SQLiteUtil {
public:
    using Row = SQLiteRow;

    sqlite3 *db = nullptr;

    static SQLiteUtil &shareInstance();

    // True when sqlite3_open answered 0. An absent file is created, as
    // sqlite3_open does, so callers that must not create one test first.
    bool openDB(const QString &dbPath);
    // sqlite3_close_v2 with queryOrExec true, sqlite3_close otherwise; true
    // on 0. The path is not used.
    bool closeDB(const QString &dbPath, bool queryOrExec);
    // Runs SQL without a callback: {success, ""} or {false, the error text}.
    QHash<bool, QString> execSQL(const QString &SQL);
    // Every row of a query, column name to the column's text ("" for NULL).
    // Two columns of one name share one key: the later one wins.
    QList<Row> queryDBData(const QString &querySQL);
    // Whether SQL is one statement that compiles on the open store, with
    // nothing after it but blanks and semicolons.
    bool isSingleStatement(const QString &SQL);

private:
    SQLiteUtil() = default;
};
