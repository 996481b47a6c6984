#pragma once
// The phonebook store: an SQLite file reached through DAO's vocabulary (Workspace, Database,
// Recordset, TableDef), so that the rest of the program reads like the procedures it implements.
// SQL handed to Execute and OpenRecordset is Jet SQL; JetSql translates it.

#include "core/error.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace dao {

// Jet-style error numbers: every number the store throws, and those the rest of the program
// answers by name.
enum ErrNo : qint32 {
    errOutOfMemory = 7,
    errPermission = 70,          // permission denied
    errPathFile = 75,            // path/file access error
    errGeneral = 3000,           // reserved error: an SQLite failure with no Jet counterpart
    errUpdateWithoutEdit = 3020, // Update or CancelUpdate without AddNew or Edit
    errNoCurrentRecord = 3021,
    errDuplicateKey = 3022, // a unique index refuses the value
    errFileNotFound = 3024,
    errDiskFull = 3026,            // not enough space on disk
    errNotUpdatable = 3027,        // database or object is read-only
    errTransaction = 3034,         // commit or rollback without a transaction, or one SQLite ended
    errDiskIO = 3043,              // disk or network error
    errCannotOpen = 3051,          // the engine cannot open the file
    errNullInKey = 3058,           // a required field holds Null
    errSelectNotExecutable = 3065, // Execute of a statement that answers rows
    errSyntax = 3075,              // the statement cannot be understood
    errFieldTooLong = 3163,        // text too long for its field
    errRelatedRecord = 3201,       // a related record is required (a foreign key)
    errAlreadyExists = 3204,       // the database to create exists
    errItemNotFound = 3265,        // no such table or field
    errZeroLength = 3315,          // zero-length text where none is allowed
    errValidationRule = 3317,      // a check or trigger refuses the value
    errNotDatabase = 3343,         // not a database file, or corrupt
    errLocked = 3356,              // the file is opened exclusively by someone else
    errObjectInvalid = 3420,       // the object is closed
};

class DbError : public HuntERR::Error {
  public:
    DbError(qint32 number, const QString& description, const QString& source = QStringLiteral("DAO"))
        : HuntERR::Error(number, description, source) {}
};

enum RecordsetType { dbOpenTable = 1, dbOpenDynaset = 2, dbOpenSnapshot = 4, dbOpenForwardOnly = 8 };
enum ExecuteOption { dbFailOnError = 128 };

// Jet field types, by DAO's numbers.
enum FieldType {
    dbBoolean = 1,
    dbLong = 4,
    dbDouble = 7,
    dbDate = 8,
    dbLongBinary = 11,
    dbMemo = 12,
    dbText = 10
};

struct Field {
    QString Name;
    FieldType Type = dbText;
    int Size = 0;                 // characters, for dbText
    bool AllowZeroLength = false; // text and memo
    QVariant DefaultValue;        // null: no default; "now" on a date field: the time of the insert
};

struct Index {
    QString Name;
    QStringList Fields;
    bool Primary = false;
    bool Unique = false;
};

class TableDef {
  public:
    TableDef() = default;
    explicit TableDef(const QString& name) : Name(name) {}
    Field CreateField(const QString& name, FieldType type, int size = 0) const;
    Index CreateIndex(const QString& name) const { return Index{name, {}, false, false}; }

    QString Name;
    std::vector<Field> Fields;
    std::vector<Index> Indexes;

    bool HasField(const QString& name) const;
    const Field& FieldByName(const QString& name) const; // throws 3265
};

class Database;
class Workspace;

// The tables of an open database, read from the file itself.
class TableDefs {
  public:
    explicit TableDefs(Database* db) : m_db(db) {}
    void Append(const TableDef& def);                       // CREATE TABLE with its indexes
    void AppendField(const QString& table, const Field& f); // ALTER TABLE ADD COLUMN
    void AppendIndex(const QString& table, const Index& ix);
    void Refresh() {}
    bool Contains(const QString& table) const;
    TableDef Item(const QString& table) const; // throws 3265 when missing
    QStringList Names() const;

  private:
    Database* m_db;
};

struct DatabaseImpl;
struct RecordsetImpl;

class Recordset {
  public:
    Recordset();
    ~Recordset();
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;

    bool AtEOF() const;
    bool AtBOF() const;
    void MoveNext();
    void MoveFirst();
    void MoveLast();
    void MovePrevious();
    qint32 RecordCount() const; // rows reached so far, as DAO counts them; all after MoveLast
    qint32 AbsolutePosition() const;
    bool isOpen() const;

    int FieldCount() const;
    QString FieldName(int i) const;
    int FieldIndex(const QString& name) const; // case-insensitive; -1 when missing
    QVariant Value(int i) const;
    QVariant operator[](const QString& name) const; // throws 3265 when missing
    QVariant operator[](int i) const { return Value(i); }
    QString Text(int i) const; // the value as text, "" for Null

    // Typed reads of field i for loops over many rows: the same values as Value(i), without a
    // QVariant or a QString made for each field.
    bool IsNull(int i) const;
    qint64 LongAt(int i) const; // Value(i).toLongLong(): 0 for Null
    // Appends Text(i) to `out`. True when the value is a text, false for Null, a number, a date
    // or binary data.
    bool AppendText(int i, QString& out) const;
    // The date and the wall time of a date field, as the QDateTime of Value(i) shows them; false
    // when Value(i) is no QDateTime.
    bool DateAt(int i, QDate& date, QTime& time) const;

    void AddNew();
    void Edit();
    void SetValue(const QString& name, const QVariant& v);
    void Update();
    void CancelUpdate();
    void Delete();

    void FindFirst(const QString& criteria); // Jet expression over the recordset's fields
    void FindNext(const QString& criteria);
    bool NoMatch() const;

    void AppendChunk(const QString& name, const QByteArray& bytes);
    QByteArray GetChunk(const QString& name, qint64 offset, qint64 length) const;
    qint64 FieldSize(const QString& name) const;

    void Close();

  private:
    friend class Database;
    std::unique_ptr<RecordsetImpl> d;
};

class Database {
  public:
    Database();
    ~Database();
    Database(const Database&);
    Database& operator=(const Database&);

    bool isOpen() const;
    void Execute(const QString& jetSql, int options = dbFailOnError);
    qint64 RecordsAffected() const;
    Recordset OpenRecordset(const QString& jetSql, RecordsetType type = dbOpenDynaset);
    dao::TableDefs TableDefs() { return dao::TableDefs(this); }
    QString Name() const; // the file's path
    bool ReadOnly() const;
    void Close();
    sqlite3* handle() const;

    // Runs SQL in SQLite's own dialect, untranslated (the store's own work).
    void ExecuteNative(const QString& sql);

  private:
    friend class Workspace;
    friend class TableDefs;
    friend class Recordset;
    std::shared_ptr<DatabaseImpl> d;
};

class Workspace {
  public:
    Workspace();
    ~Workspace();
    Workspace(const Workspace&);
    Workspace& operator=(const Workspace&);

    bool isOpen() const;
    // A new, empty phonebook file; fails when the file exists.
    Database CreateDatabase(const QString& path);
    // exclusive: no other program may open the file while it is open here; readOnly: no writes.
    // A writable open always keeps other writers out (3356).
    Database OpenDatabase(const QString& path, bool exclusive, bool readOnly,
                          const QString& connect = QString());
    void BeginTrans();
    // Commits the innermost transaction. When SQLite refuses the commit, the transaction is rolled
    // back before the error goes on, so that the level always matches the file's state.
    void CommitTrans();
    void Rollback();
    int TransactionLevel() const;
    void Close();

  private:
    struct Impl;
    std::shared_ptr<Impl> d;
};

// Hooks that let tests reach failure paths that a real machine rarely offers.
struct TestHooks {
    // Answers a Jet error number to refuse an open (0: go on). Called before the file is touched.
    std::function<qint32(const QString& path, bool readOnly)> refuseOpen;
    // When > 0, an opened file may grow by this many pages; past that the disk counts as full.
    int growthPages = 0;
};
TestHooks& Hooks();

// Sets hooks for as long as it lives, and puts back those in force before when it goes, however
// the scope is left: `dao::ScopedHooks full; full->growthPages = 3;`.
class ScopedHooks {
  public:
    ScopedHooks() : m_saved(Hooks()) {}
    ~ScopedHooks() { Hooks() = std::move(m_saved); }
    ScopedHooks(const ScopedHooks&) = delete;
    ScopedHooks& operator=(const ScopedHooks&) = delete;
    TestHooks* operator->() const { return &Hooks(); }

  private:
    TestHooks m_saved;
};

// A transaction on a workspace for the length of a block: rolled back unless Commit was reached,
// so that a change of several rows is applied whole or not at all. The error that leaves the
// block goes on to the caller unchanged. A failed Commit has rolled back already.
class Transaction {
  public:
    explicit Transaction(const Workspace& ws);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

  private:
    Workspace m_ws;
    int m_level;
};

// Throws the DbError for an SQLite result code (after a failed call on `db`).
[[noreturn]] void ThrowSqlite(sqlite3* db, int rc, const QString& context);

} // namespace dao
