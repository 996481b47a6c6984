#pragma once
// Internals shared by the files of the store.

#include "phonebook/store/dao.h"

#include <sqlite3.h>
#include <unordered_map>

namespace dao {

struct DatabaseImpl;

// One prepared statement, finalized when its owner goes. Closing the connection finalizes every
// statement of it first: an owner then holds nothing, and get() answers nullptr.
class Statement {
  public:
    Statement() = default;
    Statement(DatabaseImpl* db, sqlite3_stmt* stmt) : m_db(db), m_stmt(stmt) {}
    ~Statement() { reset(); }
    Statement(Statement&& other) noexcept : m_db(other.m_db), m_stmt(other.m_stmt) { other.m_stmt = nullptr; }
    Statement& operator=(Statement&& other) noexcept;
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    sqlite3_stmt* get() const;
    explicit operator bool() const { return get() != nullptr; }
    void reset(); // finalizes now

  private:
    DatabaseImpl* m_db = nullptr;
    sqlite3_stmt* m_stmt = nullptr;
};

struct DatabaseImpl {
    sqlite3* db = nullptr;
    QString path;
    bool readOnly = false;
    int lockFd = -1;
    int transactionBase = -1; // the workspace level whose BeginTrans began SQLite's transaction; -1: none
    qint64 changes = 0;
    std::unordered_map<QString, Statement> cache; // the store's own statements (row writes), prepared once

    ~DatabaseImpl();
    void close();
    // Prepares the first statement of `sql`; `tail` (when given) receives the offset of the rest,
    // in bytes of the UTF-8 text. Errors name `jetForErrors`.
    Statement prepare(const QString& sql, const QString& jetForErrors);
    Statement prepare(const QByteArray& utf8, int from, int* tail, const QString& jetForErrors);
    sqlite3_stmt* cached(const QString& sql); // owned by the cache
    // Runs every statement of `sql` to its end.
    void exec(const QString& sql, const QString& jetForErrors);
    // Throws the DbError for `rc`, the result of a call on this connection.
    [[noreturn]] void fail(int rc, const QString& context) const { ThrowSqlite(db, rc, context); }
};

// Steps `stmt` to its end; answers the last result (SQLITE_DONE when all went well).
int StepToEnd(sqlite3_stmt* stmt);

// Column kinds, from the declared type of a table's field.
enum class ColKind { Unknown, Long, Bool, Double, Date, Text, Blob };
ColKind KindOfDecltype(const char* decl);

// Value of column `i` of the row `stmt` stands on.
QVariant ColumnValue(sqlite3_stmt* stmt, int i, ColKind kind);
// Reads a date as the store keeps it into `date` and `time`; false for any other text.
bool ParseStoredDate(const char* s, int n, QDate& date, QTime& time);
// Binds a value for a field of a phonebook table.
void BindValue(sqlite3_stmt* stmt, int index, const QVariant& v);
// "YYYY-MM-DD HH:MM:SS" as the store keeps dates.
QString DateText(const QDateTime& dt);
// Column `i` of the current row as text ("" for Null).
QString ColumnText(sqlite3_stmt* stmt, int i);

} // namespace dao
