#include "phonebook/store/daoimpl.h"
#include "phonebook/store/jetfunctions.h"
#include "phonebook/store/jetsql.h"

#include <QDateTime>
#include <QFileInfo>
#include <QSet>
#include <cerrno>
#include <exception>
#include <fcntl.h>
#include <unistd.h>

namespace dao {

namespace {

constexpr size_t kCachedStatements = 128;
constexpr int kApplicationId = 0x4B564442; // "KVDB"

// A byte beyond those SQLite locks. A writable open holds it exclusively, so it keeps out every
// other open; a read-only open holds it shared, so readers may share the file but no writer comes in.
// (A write lock needs a descriptor opened for writing, which a read-only file does not give.)
constexpr off_t kLockByte = 0x7FFFFF00;

bool lockByte(int fd, off_t at, bool exclusive) {
    struct flock fl {};
    fl.l_type = exclusive ? F_WRLCK : F_RDLCK;
    fl.l_whence = SEEK_SET;
    fl.l_start = at;
    fl.l_len = 1;
    return fcntl(fd, F_OFD_SETLK, &fl) == 0;
}

qint32 errnoToJet(int e) {
    switch (e) {
    case EACCES:
    case EPERM:
        return errPermission;
    case EROFS:
        return errPathFile;
    case ENOSPC:
        return errDiskFull;
    case ENOENT:
        return errFileNotFound;
    default:
        return errCannotOpen;
    }
}

} // namespace

TestHooks& Hooks() {
    static TestHooks h;
    return h;
}

namespace {

// SQLite names a failed CHECK constraint in no other way than in its message; the store names
// its own checks "<field>:size" and "<field>:zerolength".
qint32 checkNumber(sqlite3* db) {
    const QByteArray msg = db ? QByteArray(sqlite3_errmsg(db)) : QByteArray();
    if (msg.endsWith(":zerolength")) return errZeroLength;
    if (msg.endsWith(":size")) return errFieldTooLong;
    return errValidationRule;
}

// The Jet number of an SQLite result code. The extended code tells the kind of a constraint.
qint32 jetNumber(sqlite3* db, int rc) {
    switch (rc) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
        return errDuplicateKey;
    case SQLITE_CONSTRAINT_NOTNULL:
        return errNullInKey;
    case SQLITE_CONSTRAINT_FOREIGNKEY:
        return errRelatedRecord;
    case SQLITE_CONSTRAINT_CHECK:
        return checkNumber(db);
    default:
        break;
    }
    switch (rc & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return errNotDatabase;
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return errPermission;
    case SQLITE_READONLY:
        return errPathFile;
    case SQLITE_CANTOPEN:
        return errCannotOpen;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return errLocked;
    case SQLITE_FULL:
        return errDiskFull;
    case SQLITE_IOERR:
        return errDiskIO;
    case SQLITE_NOMEM:
        return errOutOfMemory;
    case SQLITE_CONSTRAINT:
        return errValidationRule;
    case SQLITE_ERROR:
        return errSyntax;
    default:
        return errGeneral;
    }
}

[[noreturn]] void throwNumbered(sqlite3* db, int rc, qint32 number, const QString& context) {
    const QString msg = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
    throw DbError(number, context.isEmpty() ? msg : msg + QStringLiteral(" (") + context + QLatin1Char(')'));
}

// The words of a statement in SQLite's dialect, enough to tell names from the rest.
struct Word {
    QByteArray text; // lower case; without quotes for a quoted name
    bool quoted = false;
    char before = 0; // the punctuation right before the word, 0 when a word or nothing was
    char after = 0;  // the same after it
};

std::vector<Word> wordsOf(const QByteArray& sql) {
    std::vector<Word> words;
    const int n = sql.size();
    char lastPunct = 0;
    auto isWordChar = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
               c == '$' || (static_cast<unsigned char>(c) & 0x80);
    };
    for (int i = 0; i < n;) {
        const char c = sql[i];
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f') {
            ++i;
        } else if (c == '-' && i + 1 < n && sql[i + 1] == '-') {
            while (i < n && sql[i] != '\n')
                ++i;
        } else if (c == '/' && i + 1 < n && sql[i + 1] == '*') {
            const int close = sql.indexOf("*/", i + 2);
            i = close < 0 ? n : close + 2;
        } else if (c == '\'' || c == '"' || c == '`' || c == '[') {
            const char close = c == '[' ? ']' : c;
            QByteArray text;
            int j = i + 1;
            for (; j < n; ++j) {
                if (sql[j] == close) {
                    if (close != ']' && j + 1 < n && sql[j + 1] == close) {
                        text += close;
                        ++j;
                        continue;
                    }
                    break;
                }
                text += sql[j];
            }
            i = j + 1;
            if (c == '\'') { // a text literal
                lastPunct = '\'';
                if (!words.empty() && words.back().after == 0) words.back().after = '\'';
                continue;
            }
            if (!words.empty() && words.back().after == 0) words.back().after = ' ';
            words.push_back({text.toLower(), true, lastPunct, 0});
            lastPunct = 0;
        } else if (isWordChar(c)) {
            int j = i;
            while (j < n && isWordChar(sql[j]))
                ++j;
            if (c >= '0' && c <= '9') { // a number
                lastPunct = '0';
                if (!words.empty() && words.back().after == 0) words.back().after = '0';
            } else {
                if (!words.empty() && words.back().after == 0) words.back().after = ' ';
                words.push_back({sql.mid(i, j - i).toLower(), false, lastPunct, 0});
                lastPunct = 0;
            }
            i = j;
        } else {
            if (!words.empty() && words.back().after == 0) words.back().after = c;
            lastPunct = c;
            ++i;
        }
    }
    return words;
}

bool isKeyword(const Word& w) {
    return !w.quoted && sqlite3_keyword_check(w.text.constData(), int(w.text.size()));
}

// Whether a statement that SQLite refused names a table or a field the file does not have.
// SQLite gives that case no code of its own, so the store compares the statement's names with
// the file's tables and fields, and with the statement's own aliases. When the file cannot tell
// (locked, unreadable), that error is thrown.
bool namesMissingItem(DatabaseImpl* d, const QByteArray& sql, const QString& context) {
    const std::vector<Word> words = wordsOf(sql);
    if (words.empty()) return false;
    const QByteArray& verb = words.front().text;
    const bool alter = verb == "alter";
    if (!alter && verb != "select" && verb != "insert" && verb != "update" && verb != "delete" &&
        verb != "with" && verb != "replace")
        return false; // definitions and the rest: their names are new, or not the store's
    QSet<QByteArray> known{"rowid",
                           "oid",
                           "_rowid_",
                           "true",
                           "false",
                           "main",
                           "temp",
                           "excluded",
                           "nocase",
                           "binary",
                           "rtrim",
                           "sqlite_master",
                           "sqlite_temp_master",
                           "sqlite_schema"};
    // An alias follows AS, a name or a closing parenthesis.
    std::vector<bool> alias(words.size(), false);
    for (size_t k = 1; k < words.size(); ++k) {
        const Word& prev = words[k - 1];
        if (words[k].before == ')' || (prev.after == ' ' && words[k].before == 0 &&
                                       ((!prev.quoted && prev.text == "as") || !isKeyword(prev)))) {
            alias[k] = true;
            known.insert(words[k].text);
        }
    }
    sqlite3_stmt* raw = nullptr;
    const int prepared = sqlite3_prepare_v2(d->db,
                                            "SELECT m.name, p.name FROM sqlite_master m LEFT JOIN "
                                            "pragma_table_info(m.name) p WHERE m.type IN ('table', 'view')",
                                            -1, &raw, nullptr);
    const Statement schema(d, raw);
    if (prepared != SQLITE_OK) d->fail(prepared, context);
    int rc;
    while ((rc = sqlite3_step(raw)) == SQLITE_ROW)
        for (int c = 0; c < 2; ++c)
            if (const auto* name = reinterpret_cast<const char*>(sqlite3_column_text(raw, c)))
                known.insert(QByteArray(name).toLower());
    if (rc != SQLITE_DONE) d->fail(rc, context);
    if (alter) return words.size() > 2 && !known.contains(words[2].text); // ALTER TABLE <name> ...
    for (size_t k = 0; k < words.size(); ++k) {
        const Word& w = words[k];
        if (alias[k] || w.after == '(' || isKeyword(w)) continue; // an alias, a function, a keyword
        if (!known.contains(w.text)) return true;
    }
    return false;
}

} // namespace

void ThrowSqlite(sqlite3* db, int rc, const QString& context) {
    throwNumbered(db, rc, jetNumber(db, rc), context);
}

// ---------------------------------------------------------------- statements

Statement& Statement::operator=(Statement&& other) noexcept {
    if (this != &other) {
        reset();
        m_db = other.m_db;
        m_stmt = other.m_stmt;
        other.m_stmt = nullptr;
    }
    return *this;
}

sqlite3_stmt* Statement::get() const {
    return m_db && m_db->db ? m_stmt : nullptr;
}

void Statement::reset() {
    if (m_stmt && m_db && m_db->db) sqlite3_finalize(m_stmt);
    m_stmt = nullptr;
}

int StepToEnd(sqlite3_stmt* stmt) {
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    return rc;
}

QString ColumnText(sqlite3_stmt* stmt, int i) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, i)),
                             sqlite3_column_bytes(stmt, i));
}

// ---------------------------------------------------------------- DatabaseImpl

DatabaseImpl::~DatabaseImpl() {
    close();
}

void DatabaseImpl::close() {
    cache.clear();
    if (db) {
        // Statements that recordsets still hold go with the connection; their owners see it closed.
        while (sqlite3_stmt* s = sqlite3_next_stmt(db, nullptr))
            sqlite3_finalize(s);
        if (sqlite3_close(db) != SQLITE_OK) {
            // Only a handle the store never makes (a backup, a blob) keeps SQLite open. SQLite then
            // closes when that goes, and the lock stays: closing its descriptor now would drop
            // SQLite's own locks on the file as well.
            sqlite3_close_v2(db);
            db = nullptr;
            return;
        }
        db = nullptr;
    }
    if (lockFd >= 0) { // only after SQLite let go of the file: closing drops this process's locks on it
        ::close(lockFd);
        lockFd = -1;
    }
}

Statement DatabaseImpl::prepare(const QByteArray& utf8, int from, int* tail, const QString& jetForErrors) {
    if (!db) throw DbError(errObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    sqlite3_stmt* stmt = nullptr;
    const char* rest = nullptr;
    const int rc = sqlite3_prepare_v2(db, utf8.constData() + from, int(utf8.size()) - from, &stmt, &rest);
    if (rc != SQLITE_OK) {
        const QString msg = QString::fromUtf8(sqlite3_errmsg(db));
        const qint32 number = rc == SQLITE_ERROR && namesMissingItem(this, utf8.mid(from), jetForErrors)
                                  ? errItemNotFound
                                  : jetNumber(db, rc);
        throw DbError(number, jetForErrors.isEmpty()
                                  ? msg
                                  : msg + QStringLiteral(" (") + jetForErrors + QLatin1Char(')'));
    }
    if (tail) *tail = int(rest - utf8.constData());
    return Statement(this, stmt);
}

Statement DatabaseImpl::prepare(const QString& sql, const QString& jetForErrors) {
    Statement s = prepare(sql.toUtf8(), 0, nullptr, jetForErrors);
    if (!s) throw DbError(errSyntax, QStringLiteral("Empty statement: ") + jetForErrors);
    return s;
}

sqlite3_stmt* DatabaseImpl::cached(const QString& sql) {
    auto it = cache.find(sql);
    if (it != cache.end()) {
        sqlite3_stmt* s = it->second.get();
        sqlite3_reset(s);
        sqlite3_clear_bindings(s);
        return s;
    }
    Statement s = prepare(sql, sql);
    // The writes of one recordset name their fields in the order they were set: a long session
    // may make many. The cache starts afresh rather than grow without end.
    if (cache.size() >= kCachedStatements) cache.clear();
    return cache.emplace(sql, std::move(s)).first->second.get();
}

void DatabaseImpl::exec(const QString& sql, const QString& jetForErrors) {
    const QByteArray utf8 = sql.toUtf8();
    int at = 0;
    while (at < utf8.size()) {
        Statement s = prepare(utf8, at, &at, jetForErrors);
        if (!s) break; // only blanks or a comment were left
        const int rc = StepToEnd(s.get());
        if (rc != SQLITE_DONE) fail(rc, jetForErrors);
    }
}

namespace {

std::shared_ptr<DatabaseImpl> openFile(const QString& path, bool create, bool exclusive, bool readOnly) {
    if (Hooks().refuseOpen)
        if (const qint32 no = Hooks().refuseOpen(path, readOnly))
            throw DbError(no, QStringLiteral("The file '%1' cannot be opened.").arg(path));
    const QByteArray native = QFileInfo(path).absoluteFilePath().toUtf8();
    auto d = std::make_shared<DatabaseImpl>();
    d->path = QFileInfo(path).absoluteFilePath();
    d->readOnly = readOnly;
    if (!create && !QFileInfo::exists(path))
        throw DbError(errFileNotFound, QStringLiteral("Could not find file '%1'.").arg(path));
    int flags = readOnly ? O_RDONLY : O_RDWR;
    if (create) flags |= O_CREAT | O_EXCL;
    d->lockFd = ::open(native.constData(), flags | O_CLOEXEC, 0644);
    if (d->lockFd < 0) {
        const int e = errno;
        if (e == EEXIST)
            throw DbError(errAlreadyExists, QStringLiteral("Database '%1' already exists.").arg(path));
        throw DbError(errnoToJet(e),
                      QStringLiteral("Cannot open '%1': %2").arg(path, QString::fromLocal8Bit(strerror(e))));
    }
    (void)exclusive;
    if (!lockByte(d->lockFd, kLockByte, !readOnly)) {
        const bool madeIt = create;
        d->close();
        if (madeIt) ::unlink(native.constData());
        throw DbError(errLocked,
                      QStringLiteral("The file '%1' is already in use by another program.").arg(path));
    }
    const int oflags = (readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) | SQLITE_OPEN_NOMUTEX;
    const int rc = sqlite3_open_v2(native.constData(), &d->db, oflags, nullptr);
    if (rc != SQLITE_OK) {
        // The number and the message first: closing ends the handle they come from.
        const qint32 number = jetNumber(d->db, rc);
        const QString why = QString::fromUtf8(d->db ? sqlite3_errmsg(d->db) : sqlite3_errstr(rc)) +
                            QStringLiteral(" (opening '%1')").arg(path);
        d->close();
        throw DbError(number, why);
    }
    sqlite3_extended_result_codes(d->db, 1);
    sqlite3_busy_timeout(d->db, 2000);
    RegisterJetFunctions(d->db);
    if (create) {
        d->exec(QStringLiteral("PRAGMA application_id = %1").arg(kApplicationId), path); // into the header
    } else {
        // Reading the header tells a phonebook from any other file.
        Statement s = d->prepare(QStringLiteral("PRAGMA application_id"), path);
        const int step = sqlite3_step(s.get());
        if (step != SQLITE_ROW) d->fail(step, path);
        if (sqlite3_column_int(s.get(), 0) != kApplicationId)
            throw DbError(errNotDatabase, QStringLiteral("Unrecognized database format '%1'.").arg(path));
    }
    d->exec(QStringLiteral("PRAGMA cache_size = -16384; PRAGMA temp_store = MEMORY"), path);
    if (Hooks().growthPages > 0) {
        Statement s = d->prepare(QStringLiteral("PRAGMA page_count"), path);
        const int pages = sqlite3_step(s.get()) == SQLITE_ROW ? sqlite3_column_int(s.get(), 0) : 0;
        d->exec(QStringLiteral("PRAGMA max_page_count = %1").arg(pages + Hooks().growthPages), path);
    }
    return d;
}

} // namespace

// ---------------------------------------------------------------- Workspace

struct Workspace::Impl {
    std::vector<std::weak_ptr<DatabaseImpl>> dbs;
    int level = 0;
    bool open = true;

    template <class F> void each(F f) {
        for (auto& w : dbs)
            if (auto d = w.lock())
                if (d->db) f(d.get());
    }
};

namespace {

[[noreturn]] void endedEarlier() {
    throw DbError(errTransaction,
                  QStringLiteral("The transaction was already rolled back after an earlier error."));
}

// Ends this database's part of the transaction of `level` without its changes.
void rollBack(DatabaseImpl* db, int level) {
    if (sqlite3_get_autocommit(db->db)) { // SQLite rolled back already (a full disk, say)
        db->transactionBase = -1;
        return;
    }
    if (level == db->transactionBase) {
        db->transactionBase = -1;
        db->exec(QStringLiteral("ROLLBACK"), QString());
    } else {
        db->exec(QStringLiteral("ROLLBACK TO kv%1; RELEASE kv%1").arg(level), QString());
    }
}

} // namespace

Workspace::Workspace() : d(std::make_shared<Impl>()) {}
Workspace::~Workspace() = default;
Workspace::Workspace(const Workspace&) = default;
Workspace& Workspace::operator=(const Workspace&) = default;

bool Workspace::isOpen() const {
    return d && d->open;
}

Database Workspace::CreateDatabase(const QString& path) {
    Database db;
    db.d = openFile(path, true, false, false);
    d->open = true;
    d->dbs.push_back(db.d);
    return db;
}

Database Workspace::OpenDatabase(const QString& path, bool exclusive, bool readOnly, const QString&) {
    Database db;
    db.d = openFile(path, false, exclusive, readOnly);
    d->open = true;
    d->dbs.push_back(db.d);
    return db;
}

void Workspace::BeginTrans() {
    const int level = d->level;
    std::vector<DatabaseImpl*> begun;
    try {
        d->each([&](DatabaseImpl* db) {
            if (db->transactionBase < 0) {
                db->exec(db->readOnly ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE"),
                         QString());
                db->transactionBase = level;
            } else if (sqlite3_get_autocommit(db->db)) {
                db->transactionBase = -1;
                endedEarlier(); // a savepoint now would start a transaction of its own
            } else {
                db->exec(QStringLiteral("SAVEPOINT kv%1").arg(level), QString());
            }
            begun.push_back(db);
        });
    } catch (...) {
        for (DatabaseImpl* db : begun) {
            try {
                rollBack(db, level);
            } catch (...) {
                // The error that stopped the begin is the one to report.
            }
        }
        throw;
    }
    ++d->level;
}

void Workspace::CommitTrans() {
    if (d->level == 0)
        throw DbError(errTransaction, QStringLiteral("Commit or Rollback without BeginTrans."));
    const int level = d->level - 1;
    std::exception_ptr failure;
    d->each([&](DatabaseImpl* db) {
        if (db->transactionBase < 0 || db->transactionBase > level) return; // joined later
        try {
            if (sqlite3_get_autocommit(db->db)) {
                db->transactionBase = -1;
                endedEarlier();
            }
            if (level == db->transactionBase) {
                db->exec(QStringLiteral("COMMIT"), QString());
                db->transactionBase = -1;
            } else {
                db->exec(QStringLiteral("RELEASE kv%1").arg(level), QString());
            }
        } catch (...) {
            // SQLite may keep a transaction open after a failed COMMIT (a deferred constraint, a
            // reader in the way): it goes, so that the next change starts afresh.
            if (!failure) failure = std::current_exception();
            if (db->transactionBase >= 0) {
                try {
                    rollBack(db, level);
                } catch (...) {
                }
            }
        }
    });
    d->level = level;
    if (failure) std::rethrow_exception(failure);
}

void Workspace::Rollback() {
    if (d->level == 0)
        throw DbError(errTransaction, QStringLiteral("Commit or Rollback without BeginTrans."));
    const int level = d->level - 1;
    std::exception_ptr failure;
    d->each([&](DatabaseImpl* db) {
        if (db->transactionBase < 0 || db->transactionBase > level) return;
        try {
            rollBack(db, level);
        } catch (...) {
            if (!failure) failure = std::current_exception();
        }
    });
    d->level = level;
    if (failure) std::rethrow_exception(failure);
}

int Workspace::TransactionLevel() const {
    return d->level;
}

void Workspace::Close() {
    d->each([](DatabaseImpl* db) {
        if (!sqlite3_get_autocommit(db->db)) sqlite3_exec(db->db, "ROLLBACK", nullptr, nullptr, nullptr);
        db->transactionBase = -1;
        db->close();
    });
    d->dbs.clear();
    d->level = 0;
    d->open = false;
}

// ---------------------------------------------------------------- Transaction

Transaction::Transaction(const Workspace& ws) : m_ws(ws), m_level(ws.TransactionLevel()) {
    m_ws.BeginTrans();
}

Transaction::~Transaction() {
    if (m_ws.TransactionLevel() <= m_level) return; // committed, or rolled back by a failed commit
    try {
        m_ws.Rollback();
    } catch (...) {
        // The error being unwound is the one to report; a failed rollback must not hide it.
    }
}

void Transaction::Commit() {
    m_ws.CommitTrans();
}

// ---------------------------------------------------------------- Database

Database::Database() = default;
Database::~Database() = default;
Database::Database(const Database&) = default;
Database& Database::operator=(const Database&) = default;

bool Database::isOpen() const {
    return d && d->db;
}
QString Database::Name() const {
    return d ? d->path : QString();
}
bool Database::ReadOnly() const {
    return d && d->readOnly;
}
sqlite3* Database::handle() const {
    return d ? d->db : nullptr;
}
qint64 Database::RecordsAffected() const {
    return d ? d->changes : 0;
}

void Database::Close() {
    if (d) d->close();
}

void Database::Execute(const QString& jetSql, int) {
    if (!isOpen()) throw DbError(errObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    const QString sql = JetSql::Translate(jetSql);
    Statement stmt = d->prepare(sql, jetSql);
    if (sqlite3_stmt_readonly(stmt.get()) && sqlite3_column_count(stmt.get()) > 0)
        throw DbError(errSelectNotExecutable, QStringLiteral("Cannot execute a select query: ") + jetSql);
    const int rc = StepToEnd(stmt.get());
    if (rc != SQLITE_DONE) d->fail(rc, jetSql);
    d->changes = sqlite3_changes(d->db);
}

void Database::ExecuteNative(const QString& sql) {
    if (!isOpen()) throw DbError(errObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    d->exec(sql, sql);
    d->changes = sqlite3_changes(d->db);
}

// ---------------------------------------------------------------- values

ColKind KindOfDecltype(const char* decl) {
    if (!decl) return ColKind::Unknown;
    const QByteArray t = QByteArray(decl).toUpper();
    if (t == "INTEGER") return ColKind::Long;
    if (t == "BOOLEAN") return ColKind::Bool;
    if (t == "DOUBLE") return ColKind::Double;
    if (t == "DATETIME") return ColKind::Date;
    if (t == "BLOB") return ColKind::Blob;
    if (t.startsWith("VARCHAR") || t == "LONGTEXT" || t == "TEXT") return ColKind::Text;
    return ColKind::Unknown;
}

QString DateText(const QDateTime& dt) {
    return dt.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

namespace {

// The local zone's offset for one hour of one day. Building a local-time QDateTime asks the zone
// rules every time, which costs more than the rest of a row; offsets change only on the hour.
int localOffset(const QDate& d, int hour) {
    static qint64 lastKey = -1;
    static int lastOffset = 0;
    const qint64 key = d.toJulianDay() * 24 + hour;
    if (key != lastKey) {
        lastOffset = QDateTime(d, QTime(hour, 0)).offsetFromUtc();
        lastKey = key;
    }
    return lastOffset;
}

// 'YYYY-MM-DD HH:MM:SS' (or a date alone) as the store writes it.
QVariant parseDate(const char* s, int n) {
    QDate date;
    QTime time;
    if (!ParseStoredDate(s, n, date, time)) return QString::fromUtf8(s, n);
    // The wall time of the local zone, with that zone's offset at that hour.
    return QDateTime(date, time, Qt::OffsetFromUTC, localOffset(date, time.hour()));
}

} // namespace

bool ParseStoredDate(const char* s, int n, QDate& date, QTime& time) {
    // Without the cost of a general parser.
    auto num = [&](int at, int len) {
        int v = 0;
        for (int i = at; i < at + len; ++i) {
            if (i >= n || s[i] < '0' || s[i] > '9') return -1;
            v = v * 10 + (s[i] - '0');
        }
        return v;
    };
    const int y = num(0, 4), mo = num(5, 2), dd = num(8, 2);
    if (y < 0 || mo < 0 || dd < 0 || n < 10) return false;
    int h = 0, mi = 0, se = 0;
    if (n >= 19) {
        h = num(11, 2);
        mi = num(14, 2);
        se = num(17, 2);
        if (h < 0 || mi < 0 || se < 0) return false;
    }
    date = QDate(y, mo, dd);
    time = QTime(h, mi, se);
    return date.isValid() && time.isValid();
}

QVariant ColumnValue(sqlite3_stmt* stmt, int i, ColKind kind) {
    // One column lookup, then the value's own accessors, which skip the statement's bookkeeping.
    sqlite3_value* v = sqlite3_column_value(stmt, i);
    switch (sqlite3_value_type(v)) {
    case SQLITE_NULL:
        return QVariant();
    case SQLITE_INTEGER: {
        const qint64 n = sqlite3_value_int64(v);
        if (kind == ColKind::Bool) return QVariant(n != 0);
        if (kind == ColKind::Double) return QVariant(double(n));
        if (n >= INT_MIN && n <= INT_MAX) return QVariant(int(n));
        return QVariant(qlonglong(n));
    }
    case SQLITE_FLOAT:
        return QVariant(sqlite3_value_double(v));
    case SQLITE_TEXT: {
        const char* p = reinterpret_cast<const char*>(sqlite3_value_text(v));
        const int n = sqlite3_value_bytes(v);
        if (kind == ColKind::Date) return parseDate(p, n);
        return QVariant(QString::fromUtf8(p, n));
    }
    default: {
        const void* p = sqlite3_value_blob(v);
        return QByteArray(static_cast<const char*>(p), sqlite3_value_bytes(v));
    }
    }
}

void BindValue(sqlite3_stmt* stmt, int index, const QVariant& v) {
    if (v.isNull()) {
        sqlite3_bind_null(stmt, index);
        return;
    }
    switch (v.typeId()) {
    case QMetaType::Bool:
        sqlite3_bind_int(stmt, index, v.toBool() ? 1 : 0);
        break;
    case QMetaType::Int:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        sqlite3_bind_int64(stmt, index, v.toLongLong());
        break;
    case QMetaType::Double:
    case QMetaType::Float:
        sqlite3_bind_double(stmt, index, v.toDouble());
        break;
    case QMetaType::QDateTime: {
        const QByteArray b = DateText(v.toDateTime()).toUtf8();
        sqlite3_bind_text(stmt, index, b.constData(), b.size(), SQLITE_TRANSIENT);
        break;
    }
    case QMetaType::QDate: {
        const QByteArray b =
            (v.toDate().toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00")).toUtf8();
        sqlite3_bind_text(stmt, index, b.constData(), b.size(), SQLITE_TRANSIENT);
        break;
    }
    case QMetaType::QByteArray: {
        const QByteArray b = v.toByteArray();
        sqlite3_bind_blob(stmt, index, b.constData(), b.size(), SQLITE_TRANSIENT);
        break;
    }
    default: {
        const QByteArray b = v.toString().toUtf8();
        sqlite3_bind_text(stmt, index, b.constData(), b.size(), SQLITE_TRANSIENT);
    }
    }
}

} // namespace dao
