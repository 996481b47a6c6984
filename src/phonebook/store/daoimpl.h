#pragma once
// Internals shared by the files of the store.

#include "phonebook/store/dao.h"

#include <QHash>
#include <sqlite3.h>

namespace dao {

struct DatabaseImpl {
    sqlite3* db = nullptr;
    QString path;
    bool readOnly = false;
    int lockFd = -1;
    qint64 changes = 0;
    QHash<QString, sqlite3_stmt*> cache; // the store's own statements (row writes), prepared once

    ~DatabaseImpl();
    void close();
    sqlite3_stmt* prepare(const QString& sql, const QString& jetForErrors); // caller finalizes
    sqlite3_stmt* cached(const QString& sql);                              // owned by the cache
};

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



} // namespace dao
