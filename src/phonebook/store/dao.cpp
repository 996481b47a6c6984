#include "phonebook/store/daoimpl.h"
#include "phonebook/store/jetfunctions.h"
#include "phonebook/store/jetsql.h"

#include <QDateTime>
#include <QFileInfo>
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace dao {

namespace {

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
    case EPERM: return errPermission;
    case EROFS: return errPathFile;
    case ENOSPC: return errDiskFull;
    case ENOENT: return 3024;
    default: return errCannotOpen;
    }
}

} // namespace

TestHooks& Hooks() {
    static TestHooks h;
    return h;
}

void ThrowSqlite(sqlite3* db, int rc, const QString& context) {
    const int primary = rc & 0xFF;
    const QString msg = db ? QString::fromUtf8(sqlite3_errmsg(db)) : QString::fromUtf8(sqlite3_errstr(rc));
    qint32 number = errGeneral;
    switch (primary) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT: number = errNotDatabase; break;
    case SQLITE_PERM:
    case SQLITE_AUTH: number = errPermission; break;
    case SQLITE_READONLY: number = errPathFile; break;
    case SQLITE_CANTOPEN: number = errCannotOpen; break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: number = errLocked; break;
    case SQLITE_FULL: number = errDiskFull; break;
    case SQLITE_IOERR: number = 3043; break; // disk or network error
    case SQLITE_NOMEM: number = 7; break;
    case SQLITE_CONSTRAINT:
        if (msg.contains(QLatin1String(":zerolength"))) number = errZeroLength;
        else if (msg.contains(QLatin1String(":size"))) number = errFieldTooLong;
        else if (msg.contains(QLatin1String("UNIQUE")) || msg.contains(QLatin1String("PRIMARY KEY"))) number = errDuplicateKey;
        else if (msg.contains(QLatin1String("NOT NULL"))) number = 3058;
        else number = 3317; // a validation rule refuses the value
        break;
    case SQLITE_ERROR:
        if (msg.startsWith(QLatin1String("no such table")) || msg.startsWith(QLatin1String("no such column")) ||
            msg.contains(QLatin1String("has no column named")))
            number = errItemNotFound;
        else number = errSyntax;
        break;
    default: break;
    }
    throw DbError(number, context.isEmpty() ? msg : msg + QStringLiteral(" (") + context + QLatin1Char(')'));
}

// ---------------------------------------------------------------- DatabaseImpl

DatabaseImpl::~DatabaseImpl() { close(); }

void DatabaseImpl::close() {
    for (sqlite3_stmt* s : std::as_const(cache)) sqlite3_finalize(s);
    cache.clear();
    if (db) {
        sqlite3_close_v2(db);
        db = nullptr;
    }
    if (lockFd >= 0) { // only after SQLite let go of the file: closing drops this process's locks on it
        ::close(lockFd);
        lockFd = -1;
    }
}

sqlite3_stmt* DatabaseImpl::prepare(const QString& sql, const QString& jetForErrors) {
    if (!db) throw DbError(3420, QStringLiteral("Object invalid or no longer set."));
    sqlite3_stmt* stmt = nullptr;
    const QByteArray utf8 = sql.toUtf8();
    const char* tail = nullptr;
    const int rc = sqlite3_prepare_v2(db, utf8.constData(), utf8.size(), &stmt, &tail);
    if (rc != SQLITE_OK) ThrowSqlite(db, rc, jetForErrors);
    if (!stmt) throw DbError(errSyntax, QStringLiteral("Empty statement: ") + jetForErrors);
    return stmt;
}

sqlite3_stmt* DatabaseImpl::cached(const QString& sql) {
    auto it = cache.constFind(sql);
    if (it != cache.constEnd()) {
        sqlite3_reset(it.value());
        sqlite3_clear_bindings(it.value());
        return it.value();
    }
    sqlite3_stmt* s = prepare(sql, sql);
    cache.insert(sql, s);
    return s;
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
        throw DbError(3024, QStringLiteral("Could not find file '%1'.").arg(path));
    int flags = readOnly ? O_RDONLY : O_RDWR;
    if (create) flags |= O_CREAT | O_EXCL;
    d->lockFd = ::open(native.constData(), flags | O_CLOEXEC, 0644);
    if (d->lockFd < 0) {
        const int e = errno;
        if (e == EEXIST) throw DbError(3204, QStringLiteral("Database '%1' already exists.").arg(path));
        throw DbError(errnoToJet(e), QStringLiteral("Cannot open '%1': %2").arg(path, QString::fromLocal8Bit(strerror(e))));
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
    int rc = sqlite3_open_v2(native.constData(), &d->db, oflags, nullptr);
    if (rc != SQLITE_OK) {
        const QString ctx = QStringLiteral("opening '%1'").arg(path);
        sqlite3* db = d->db;
        try {
            ThrowSqlite(db, rc, ctx);
        } catch (...) {
            d->close();
            throw;
        }
    }
    sqlite3_extended_result_codes(d->db, 0);
    sqlite3_busy_timeout(d->db, 2000);
    RegisterJetFunctions(d->db);
    auto pragma = [&](const char* sql) {
        char* err = nullptr;
        const int r = sqlite3_exec(d->db, sql, nullptr, nullptr, &err);
        sqlite3_free(err);
        return r;
    };
    if (create) {
        rc = pragma(QStringLiteral("PRAGMA application_id = %1").arg(kApplicationId).toUtf8().constData()); // into the header
        if (rc != SQLITE_OK) ThrowSqlite(d->db, rc, path);
    } else {
        // Reading the header tells a phonebook from any other file.
        sqlite3_stmt* s = nullptr;
        rc = sqlite3_prepare_v2(d->db, "PRAGMA application_id", -1, &s, nullptr);
        if (rc == SQLITE_OK) rc = sqlite3_step(s);
        const int id = rc == SQLITE_ROW ? sqlite3_column_int(s, 0) : 0;
        sqlite3_finalize(s);
        if (rc != SQLITE_ROW && rc != SQLITE_DONE) ThrowSqlite(d->db, rc, path);
        if (id != kApplicationId)
            throw DbError(errNotDatabase, QStringLiteral("Unrecognized database format '%1'.").arg(path));
    }
    pragma("PRAGMA cache_size = -16384");
    pragma("PRAGMA temp_store = MEMORY");
    if (Hooks().growthPages > 0) {
        sqlite3_stmt* s = nullptr;
        sqlite3_prepare_v2(d->db, "PRAGMA page_count", -1, &s, nullptr);
        const int pages = sqlite3_step(s) == SQLITE_ROW ? sqlite3_column_int(s, 0) : 0;
        sqlite3_finalize(s);
        pragma(QStringLiteral("PRAGMA max_page_count = %1").arg(pages + Hooks().growthPages).toUtf8().constData());
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
    static void exec(DatabaseImpl* d, const QString& sql) {
        char* err = nullptr;
        const int rc = sqlite3_exec(d->db, sql.toUtf8().constData(), nullptr, nullptr, &err);
        sqlite3_free(err);
        if (rc != SQLITE_OK) ThrowSqlite(d->db, rc, sql);
    }
};

Workspace::Workspace() : d(std::make_shared<Impl>()) {}
Workspace::~Workspace() = default;
Workspace::Workspace(const Workspace&) = default;
Workspace& Workspace::operator=(const Workspace&) = default;

bool Workspace::isOpen() const { return d && d->open; }

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
    d->each([&](DatabaseImpl* db) {
        if (level == 0) Impl::exec(db, db->readOnly ? QStringLiteral("BEGIN") : QStringLiteral("BEGIN IMMEDIATE"));
        else Impl::exec(db, QStringLiteral("SAVEPOINT kv%1").arg(level));
    });
    ++d->level;
}

void Workspace::CommitTrans() {
    if (d->level == 0) throw DbError(errTransaction, QStringLiteral("Commit or Rollback without BeginTrans."));
    const int level = --d->level;
    d->each([&](DatabaseImpl* db) {
        if (sqlite3_get_autocommit(db->db)) return;
        Impl::exec(db, level == 0 ? QStringLiteral("COMMIT") : QStringLiteral("RELEASE kv%1").arg(level));
    });
}

void Workspace::Rollback() {
    if (d->level == 0) throw DbError(errTransaction, QStringLiteral("Commit or Rollback without BeginTrans."));
    const int level = --d->level;
    d->each([&](DatabaseImpl* db) {
        if (sqlite3_get_autocommit(db->db)) return; // SQLite already rolled back (a full disk, say)
        if (level == 0) Impl::exec(db, QStringLiteral("ROLLBACK"));
        else Impl::exec(db, QStringLiteral("ROLLBACK TO kv%1; RELEASE kv%1").arg(level));
    });
}

int Workspace::TransactionLevel() const { return d->level; }

void Workspace::Close() {
    d->each([](DatabaseImpl* db) {
        if (!sqlite3_get_autocommit(db->db)) sqlite3_exec(db->db, "ROLLBACK", nullptr, nullptr, nullptr);
        db->close();
    });
    d->dbs.clear();
    d->level = 0;
    d->open = false;
}

// ---------------------------------------------------------------- Database

Database::Database() = default;
Database::~Database() = default;
Database::Database(const Database&) = default;
Database& Database::operator=(const Database&) = default;

bool Database::isOpen() const { return d && d->db; }
QString Database::Name() const { return d ? d->path : QString(); }
bool Database::ReadOnly() const { return d && d->readOnly; }
sqlite3* Database::handle() const { return d ? d->db : nullptr; }
qint64 Database::RecordsAffected() const { return d ? d->changes : 0; }

void Database::Close() {
    if (d) d->close();
}

void Database::Execute(const QString& jetSql, int) {
    if (!isOpen()) throw DbError(3420, QStringLiteral("Object invalid or no longer set."));
    const QString sql = JetSql::Translate(jetSql);
    sqlite3_stmt* stmt = d->prepare(sql, jetSql);
    if (sqlite3_stmt_readonly(stmt) && sqlite3_column_count(stmt) > 0) {
        sqlite3_finalize(stmt);
        throw DbError(3065, QStringLiteral("Cannot execute a select query: ") + jetSql);
    }
    int rc;
    while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
    }
    sqlite3_finalize(stmt);
    if (rc != SQLITE_DONE) ThrowSqlite(d->db, rc, jetSql);
    d->changes = sqlite3_changes(d->db);
}

void Database::ExecuteNative(const QString& sql) {
    if (!isOpen()) throw DbError(3420, QStringLiteral("Object invalid or no longer set."));
    char* err = nullptr;
    const int rc = sqlite3_exec(d->db, sql.toUtf8().constData(), nullptr, nullptr, &err);
    sqlite3_free(err);
    if (rc != SQLITE_OK) ThrowSqlite(d->db, rc, sql);
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

QString DateText(const QDateTime& dt) { return dt.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")); }

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
    case SQLITE_NULL: return QVariant();
    case SQLITE_INTEGER: {
        const qint64 n = sqlite3_value_int64(v);
        if (kind == ColKind::Bool) return QVariant(n != 0);
        if (kind == ColKind::Double) return QVariant(double(n));
        if (n >= INT_MIN && n <= INT_MAX) return QVariant(int(n));
        return QVariant(qlonglong(n));
    }
    case SQLITE_FLOAT: return QVariant(sqlite3_value_double(v));
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
    case QMetaType::Bool: sqlite3_bind_int(stmt, index, v.toBool() ? 1 : 0); break;
    case QMetaType::Int:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::LongLong:
    case QMetaType::ULongLong: sqlite3_bind_int64(stmt, index, v.toLongLong()); break;
    case QMetaType::Double:
    case QMetaType::Float: sqlite3_bind_double(stmt, index, v.toDouble()); break;
    case QMetaType::QDateTime: {
        const QByteArray b = DateText(v.toDateTime()).toUtf8();
        sqlite3_bind_text(stmt, index, b.constData(), b.size(), SQLITE_TRANSIENT);
        break;
    }
    case QMetaType::QDate: {
        const QByteArray b = (v.toDate().toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00")).toUtf8();
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
