#include "phonebook/store/daoimpl.h"
#include "phonebook/store/jetsql.h"

#include <QRegularExpression>

#include <cstdio>

namespace dao {

struct RecordsetImpl {
    std::shared_ptr<DatabaseImpl> db;
    Statement query;              // owns `stmt`
    sqlite3_stmt* stmt = nullptr; // the query's statement while it streams
    QString jet;
    QString table; // the one table a dynaset writes back to; empty: not updatable
    int base = 0;  // 1 when column 0 is the hidden rowid
    int ncols = 0; // visible columns
    QStringList names;
    QStringList origins; // field names in the table, for writes
    std::vector<ColKind> kinds;
    QHash<QString, int> index; // lower-case name -> visible column

    bool eof = false;
    int pos = -1;    // absolute position of the current row
    int reached = 0; // rows reached so far
    bool materialised = false;
    std::vector<std::vector<QVariant>> rows; // with the rowid first when base == 1

    enum Mode { None, Editing, Adding } mode = None;
    std::vector<std::pair<int, QVariant>> pending; // visible column (or -1 - n for an extra name)
    QStringList extraNames;                        // names set on AddNew that the query does not select
    std::vector<bool> chunkStarted;
    QHash<int, QVariant> overrides; // what Update wrote on the current row
    bool noMatch = false;

    void finalize() {
        query.reset();
        stmt = nullptr;
    }
    void check() const {
        if (!db || !db->db || (!stmt && !materialised))
            throw DbError(errObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    }
    // A move or a find leaves the row: an edit or an addition not yet written goes.
    void leaveRow() {
        mode = None;
        pending.clear();
        overrides.clear();
    }
    void step() {
        const int rc = sqlite3_step(stmt);
        if (rc == SQLITE_ROW) {
            ++pos;
            reached = qMax(reached, pos + 1);
            eof = false;
        } else if (rc == SQLITE_DONE) {
            eof = true;
            pos = reached;
        } else {
            eof = true;
            ThrowSqlite(db->db, rc, jet);
        }
        overrides.clear();
    }
    void restart() {
        sqlite3_reset(stmt);
        pos = -1;
        step();
    }
    QVariant raw(int col) const { // col counts the hidden rowid
        if (materialised) return rows[pos][col];
        return ColumnValue(stmt, col, kinds[col]);
    }
    QVariant value(int i) const {
        if (Q_UNLIKELY(eof || pos < 0 || uint(i) >= uint(ncols) || !db->db || (!stmt && !materialised))) {
            check();
            if (eof || pos < 0) throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
            throw DbError(errItemNotFound, QStringLiteral("Item not found in this collection."));
        }
        if (Q_UNLIKELY(!overrides.isEmpty())) {
            auto o = overrides.constFind(i);
            if (o != overrides.constEnd()) return o.value();
        }
        return raw(i + base);
    }
    // The SQLite value of field i on a streamed row; nullptr when the value comes from a
    // QVariant instead: a materialised result, or a field that Update wrote on this row.
    sqlite3_value* sqlValue(int i) const {
        if (Q_UNLIKELY(materialised || !overrides.isEmpty() || eof || pos < 0 || uint(i) >= uint(ncols) ||
                       !db->db || !stmt))
            return nullptr;
        return sqlite3_column_value(stmt, i + base);
    }
    void materialise() {
        if (materialised) return;
        const int keep = pos;
        sqlite3_reset(stmt);
        const int total = ncols + base;
        int rc;
        while ((rc = sqlite3_step(stmt)) == SQLITE_ROW) {
            std::vector<QVariant> r(total);
            for (int c = 0; c < total; ++c)
                r[c] = ColumnValue(stmt, c, kinds[c]);
            rows.push_back(std::move(r));
        }
        if (rc != SQLITE_DONE) ThrowSqlite(db->db, rc, jet);
        finalize();
        materialised = true;
        reached = int(rows.size());
        // Rows may have left the result since they were reached (a Delete, an Update that took a
        // row out of the WHERE): a position past them is the end.
        pos = qMin(keep < 0 ? 0 : keep, int(rows.size()));
        eof = pos >= int(rows.size());
    }
    int column(const QString& name) const {
        auto it = index.constFind(name.toLower());
        return it == index.constEnd() ? -1 : it.value();
    }
};

namespace {

// A SELECT over one table, with plain names in its field list, can write back by rowid.
QString updatableTable(const QString& sql) {
    static const QRegularExpression re(
        QStringLiteral(
            R"(^SELECT\s+(.+?)\s+FROM\s+("[^"]+"|[A-Za-z_][A-Za-z0-9_]*)(\s+(WHERE|ORDER)\s.*)?$)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const auto m = re.match(sql);
    if (!m.hasMatch()) return QString();
    const QString list = m.captured(1);
    if (list.contains(QLatin1Char('(')) || list.startsWith(QLatin1String("DISTINCT"), Qt::CaseInsensitive))
        return QString();
    QString t = m.captured(2);
    if (t.startsWith(QLatin1Char('"'))) t = t.mid(1, t.size() - 2);
    return t;
}

} // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&&) noexcept = default;
Recordset& Recordset::operator=(Recordset&&) noexcept = default;

Recordset Database::OpenRecordset(const QString& jetSql, RecordsetType type) {
    if (!isOpen()) throw DbError(errObjectInvalid, QStringLiteral("Object invalid or no longer set."));
    QString jet = jetSql.trimmed();
    if (!jet.contains(QLatin1Char(' ')))
        jet = QStringLiteral("SELECT * FROM [%1]").arg(jet); // a table by name
    QString sql = JetSql::Translate(jet);
    auto r = std::make_unique<RecordsetImpl>();
    r->db = d;
    r->jet = jet;
    if (type == dbOpenDynaset || type == dbOpenTable) {
        r->table = updatableTable(sql);
        if (!r->table.isEmpty()) {
            sql = QStringLiteral("SELECT \"%1\".rowid AS \"__kv_rowid\", ").arg(r->table) + sql.mid(7);
            r->base = 1;
        }
    }
    r->query = d->prepare(sql, jet);
    r->stmt = r->query.get();
    const int total = sqlite3_column_count(r->stmt);
    r->ncols = total - r->base;
    r->kinds.resize(total);
    for (int c = 0; c < total; ++c) {
        r->kinds[c] = KindOfDecltype(sqlite3_column_decltype(r->stmt, c));
        if (c < r->base) continue;
        const QString name = QString::fromUtf8(sqlite3_column_name(r->stmt, c));
        const char* origin = sqlite3_column_origin_name(r->stmt, c);
        const char* tab = sqlite3_column_table_name(r->stmt, c);
        r->names << name;
        r->origins << (origin ? QString::fromUtf8(origin) : name);
        const int vis = c - r->base;
        const QString lower = name.toLower();
        if (!r->index.contains(lower)) r->index.insert(lower, vis);
        if (tab) r->index.insert(QString::fromUtf8(tab).toLower() + QLatin1Char('.') + lower, vis);
    }
    r->chunkStarted.assign(r->ncols, false);
    r->step();
    Recordset rs;
    rs.d = std::move(r);
    return rs;
}

bool Recordset::isOpen() const {
    return d && d->db && d->db->db && (d->stmt || d->materialised); // closing the database closes it too
}
bool Recordset::AtEOF() const {
    return !d || d->eof;
}
bool Recordset::AtBOF() const {
    return !d || d->pos < 0 || (d->eof && d->reached == 0);
}
qint32 Recordset::RecordCount() const {
    return d ? d->reached : 0;
}
qint32 Recordset::AbsolutePosition() const {
    return d && !d->eof ? d->pos : -1;
}

void Recordset::MoveNext() {
    d->check();
    if (d->eof) throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
    d->leaveRow();
    if (d->materialised) {
        ++d->pos;
        d->eof = d->pos >= int(d->rows.size());
    } else {
        d->step();
    }
}

void Recordset::MoveFirst() {
    d->check();
    const bool written = !d->overrides.isEmpty(); // the streamed row still shows what was read
    d->leaveRow();
    if (d->materialised) {
        d->pos = 0;
        d->eof = d->rows.empty();
    } else if (d->pos != 0 || d->eof || written) {
        d->restart();
    }
    if (d->eof) throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
}

void Recordset::MoveLast() {
    d->check();
    d->leaveRow();
    d->materialise();
    if (d->rows.empty()) throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
    d->pos = int(d->rows.size()) - 1;
    d->eof = false;
}

void Recordset::MovePrevious() {
    d->check();
    d->leaveRow();
    d->materialise();
    if (d->pos < 0 || d->rows.empty())
        throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
    // From the end (or beyond it) to the last row.
    d->pos = qMin(d->pos, int(d->rows.size())) - 1;
    d->eof = d->pos < 0; // before the first row
}

int Recordset::FieldCount() const {
    return d ? d->ncols : 0;
}
QString Recordset::FieldName(int i) const {
    return d->names.value(i);
}
int Recordset::FieldIndex(const QString& name) const {
    return d ? d->column(name) : -1;
}
QVariant Recordset::Value(int i) const {
    return d->value(i);
}

QVariant Recordset::operator[](const QString& name) const {
    const int c = d ? d->column(name) : -1;
    if (c < 0)
        throw DbError(errItemNotFound, QStringLiteral("Item '%1' not found in this collection.").arg(name));
    return d->value(c);
}

QString Recordset::Text(int i) const {
    const QVariant v = d->value(i);
    return v.isNull() ? QString() : v.toString();
}

bool Recordset::IsNull(int i) const {
    if (sqlite3_value* v = d->sqlValue(i)) return sqlite3_value_type(v) == SQLITE_NULL;
    return d->value(i).isNull();
}

qint64 Recordset::LongAt(int i) const {
    if (sqlite3_value* v = d->sqlValue(i)) {
        switch (sqlite3_value_type(v)) {
        case SQLITE_NULL:
            return 0;
        case SQLITE_INTEGER:
            if (d->kinds[i + d->base] != ColKind::Bool && d->kinds[i + d->base] != ColKind::Double)
                return sqlite3_value_int64(v);
            break;
        default:
            break;
        }
    }
    return d->value(i).toLongLong();
}

namespace {

bool isAscii(const char* p, int n) {
    unsigned char any = 0;
    for (int k = 0; k < n; ++k)
        any |= static_cast<unsigned char>(p[k]);
    return any < 0x80;
}

} // namespace

bool Recordset::AppendText(int i, QString& out) const {
    if (sqlite3_value* v = d->sqlValue(i)) {
        const ColKind kind = d->kinds[i + d->base];
        switch (sqlite3_value_type(v)) {
        case SQLITE_NULL:
            return false;
        case SQLITE_TEXT:
            if (kind != ColKind::Date) {
                const char* p = reinterpret_cast<const char*>(sqlite3_value_text(v));
                const int n = sqlite3_value_bytes(v);
                if (isAscii(p, n))
                    out.append(QLatin1String(p, n));
                else
                    out.append(QString::fromUtf8(p, n));
                return true;
            }
            break;
        case SQLITE_INTEGER:
            if (kind != ColKind::Bool && kind != ColKind::Double) {
                const qint64 n = sqlite3_value_int64(v);
                char digits[24];
                const int length = std::snprintf(digits, sizeof digits, "%lld", static_cast<long long>(n));
                out.append(QLatin1String(digits, length));
                return false;
            }
            break;
        default:
            break;
        }
    }
    const QVariant value = d->value(i);
    if (value.isNull()) return false;
    if (value.typeId() == QMetaType::QString) {
        out += *static_cast<const QString*>(value.constData());
        return true;
    }
    out += value.toString();
    return false;
}

bool Recordset::DateAt(int i, QDate& date, QTime& time) const {
    if (sqlite3_value* v = d->sqlValue(i)) {
        if (sqlite3_value_type(v) != SQLITE_TEXT || d->kinds[i + d->base] != ColKind::Date) return false;
        return ParseStoredDate(reinterpret_cast<const char*>(sqlite3_value_text(v)), sqlite3_value_bytes(v),
                               date, time);
    }
    const QVariant value = d->value(i);
    if (value.typeId() != QMetaType::QDateTime) return false;
    const QDateTime& at = *static_cast<const QDateTime*>(value.constData());
    date = at.date();
    time = at.time();
    return true;
}

void Recordset::AddNew() {
    d->check();
    if (d->table.isEmpty())
        throw DbError(errNotUpdatable, QStringLiteral("Database or object is read-only."));
    d->mode = RecordsetImpl::Adding;
    d->pending.clear();
    d->extraNames.clear();
    d->chunkStarted.assign(d->ncols, false);
}

void Recordset::Edit() {
    d->check();
    if (d->table.isEmpty())
        throw DbError(errNotUpdatable, QStringLiteral("Database or object is read-only."));
    if (d->eof || d->pos < 0) throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
    d->mode = RecordsetImpl::Editing;
    d->pending.clear();
    d->extraNames.clear();
    d->chunkStarted.assign(d->ncols, false);
}

void Recordset::SetValue(const QString& name, const QVariant& v) {
    if (d->mode == RecordsetImpl::None)
        throw DbError(errUpdateWithoutEdit, QStringLiteral("Update or CancelUpdate without AddNew or Edit."));
    int c = d->column(name);
    if (c < 0) {
        if (d->mode != RecordsetImpl::Adding)
            throw DbError(errItemNotFound,
                          QStringLiteral("Item '%1' not found in this collection.").arg(name));
        int k = d->extraNames.indexOf(name, 0);
        if (k < 0) {
            d->extraNames << name;
            k = d->extraNames.size() - 1;
        }
        c = -1 - k;
    }
    for (auto& p : d->pending)
        if (p.first == c) {
            p.second = v;
            return;
        }
    d->pending.emplace_back(c, v);
}

void Recordset::Update() {
    if (d->mode == RecordsetImpl::None)
        throw DbError(errUpdateWithoutEdit, QStringLiteral("Update or CancelUpdate without AddNew or Edit."));
    if (d->mode == RecordsetImpl::Editing && (d->eof || d->pos < 0)) {
        d->leaveRow();
        throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
    }
    auto fieldName = [&](int c) { return c >= 0 ? d->origins[c] : d->extraNames[-1 - c]; };
    auto quote = [](QString s) {
        return QLatin1Char('"') + s.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
    };
    QStringList cols;
    for (const auto& p : d->pending)
        cols << quote(fieldName(p.first));
    QString sql;
    if (d->mode == RecordsetImpl::Adding) {
        if (cols.isEmpty())
            sql = QStringLiteral("INSERT INTO %1 DEFAULT VALUES").arg(quote(d->table));
        else {
            QStringList marks;
            for (int i = 0; i < cols.size(); ++i)
                marks << QStringLiteral("?");
            sql = QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                      .arg(quote(d->table), cols.join(QLatin1Char(',')), marks.join(QLatin1Char(',')));
        }
    } else {
        if (cols.isEmpty()) {
            d->mode = RecordsetImpl::None;
            return;
        }
        sql = QStringLiteral("UPDATE %1 SET %2=? WHERE rowid=?")
                  .arg(quote(d->table), cols.join(QStringLiteral("=?,")));
    }
    sqlite3_stmt* s = d->db->cached(sql);
    int n = 1;
    for (const auto& p : d->pending)
        BindValue(s, n++, p.second);
    if (d->mode == RecordsetImpl::Editing) BindValue(s, n, d->raw(0));
    const int rc = sqlite3_step(s);
    sqlite3_reset(s);
    if (rc != SQLITE_DONE) ThrowSqlite(d->db->db, rc, d->jet);
    if (d->mode == RecordsetImpl::Editing) {
        for (const auto& p : d->pending) {
            if (p.first < 0) continue;
            d->overrides.insert(p.first, p.second);
            if (d->materialised) d->rows[d->pos][p.first + d->base] = p.second;
        }
    }
    d->mode = RecordsetImpl::None;
    d->pending.clear();
}

void Recordset::CancelUpdate() {
    d->mode = RecordsetImpl::None;
    d->pending.clear();
}

void Recordset::Delete() {
    d->check();
    if (d->table.isEmpty())
        throw DbError(errNotUpdatable, QStringLiteral("Database or object is read-only."));
    if (d->eof || d->pos < 0) throw DbError(errNoCurrentRecord, QStringLiteral("No current record."));
    d->leaveRow();
    sqlite3_stmt* s = d->db->cached(QStringLiteral("DELETE FROM \"%1\" WHERE rowid=?").arg(d->table));
    BindValue(s, 1, d->raw(0));
    const int rc = sqlite3_step(s);
    sqlite3_reset(s);
    if (rc != SQLITE_DONE) ThrowSqlite(d->db->db, rc, d->jet);
}

void Recordset::FindFirst(const QString& criteria) {
    d->check();
    d->leaveRow();
    d->materialise();
    d->pos = -1;
    FindNext(criteria);
}

void Recordset::FindNext(const QString& criteria) {
    d->check();
    d->leaveRow();
    d->materialise();
    // The criterion runs in SQLite over one row at a time, the row's values bound as its fields.
    QStringList cols;
    for (int c = 0; c < d->ncols; ++c)
        cols << QStringLiteral("?%1 AS \"%2\"")
                    .arg(c + 1)
                    .arg(QString(d->names[c]).replace(QLatin1Char('"'), QLatin1String("\"\"")));
    const QString sql = QStringLiteral("SELECT (%1) FROM (SELECT %2)")
                            .arg(JetSql::TranslateExpression(criteria), cols.join(QLatin1Char(',')));
    const Statement test = d->db->prepare(sql, criteria);
    sqlite3_stmt* s = test.get();
    d->noMatch = true;
    for (int p = d->pos + 1; p < int(d->rows.size()); ++p) {
        sqlite3_reset(s);
        for (int c = 0; c < d->ncols; ++c)
            BindValue(s, c + 1, d->rows[p][c + d->base]);
        const int rc = sqlite3_step(s);
        if (rc != SQLITE_ROW) d->db->fail(rc, criteria);
        if (sqlite3_column_int(s, 0) != 0) {
            d->pos = p;
            d->eof = false;
            d->noMatch = false;
            break;
        }
    }
}

bool Recordset::NoMatch() const {
    return d && d->noMatch;
}

void Recordset::AppendChunk(const QString& name, const QByteArray& bytes) {
    const int c = d->column(name);
    if (c < 0)
        throw DbError(errItemNotFound, QStringLiteral("Item '%1' not found in this collection.").arg(name));
    QByteArray data;
    if (d->chunkStarted[c]) {
        for (const auto& p : d->pending)
            if (p.first == c) data = p.second.toByteArray();
    }
    d->chunkStarted[c] = true;
    SetValue(name, data + bytes); // the first chunk after Edit or AddNew replaces what was there
}

QByteArray Recordset::GetChunk(const QString& name, qint64 offset, qint64 length) const {
    const QVariant v = (*this)[name];
    return v.toByteArray().mid(offset, length);
}

qint64 Recordset::FieldSize(const QString& name) const {
    const QVariant v = (*this)[name];
    if (v.isNull()) return 0;
    return v.typeId() == QMetaType::QByteArray ? v.toByteArray().size() : v.toString().toUtf8().size();
}

void Recordset::Close() {
    if (!d) return;
    d->leaveRow();
    d->finalize();
    d->materialised = false;
    d->rows.clear();
}

} // namespace dao
