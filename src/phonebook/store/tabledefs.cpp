#include "phonebook/store/daoimpl.h"

#include <QRegularExpression>

namespace dao {

namespace {

QString q(const QString& name) {
    QString s = name;
    return QLatin1Char('"') + s.replace(QLatin1Char('"'), QLatin1String("\"\"")) + QLatin1Char('"');
}

QString declType(const Field& f) {
    switch (f.Type) {
    case dbLong:
        return QStringLiteral("INTEGER");
    case dbBoolean:
        return QStringLiteral("BOOLEAN");
    case dbDouble:
        return QStringLiteral("DOUBLE");
    case dbDate:
        return QStringLiteral("DATETIME");
    case dbLongBinary:
        return QStringLiteral("BLOB");
    case dbMemo:
        return QStringLiteral("LONGTEXT");
    case dbText:
        return QStringLiteral("VARCHAR(%1)").arg(f.Size > 0 ? f.Size : 255);
    }
    return QStringLiteral("TEXT");
}

QString defaultClause(const Field& f) {
    const QVariant& v = f.DefaultValue;
    if (v.isNull()) return QString();
    if (f.Type == dbDate && v.toString().compare(QLatin1String("now"), Qt::CaseInsensitive) == 0)
        return QStringLiteral(" DEFAULT (datetime('now','localtime'))");
    if (f.Type == dbBoolean) return v.toBool() ? QStringLiteral(" DEFAULT 1") : QStringLiteral(" DEFAULT 0");
    if (f.Type == dbLong || f.Type == dbDouble)
        return QStringLiteral(" DEFAULT ") + QString::number(v.toDouble());
    QString s = v.toString();
    return QStringLiteral(" DEFAULT '") + s.replace(QLatin1Char('\''), QLatin1String("''")) +
           QLatin1Char('\'');
}

// Column text of one field: type, collation, default, and the checks that refuse what Jet refused.
QString columnDef(const Field& f, bool primary) {
    QString s = q(f.Name) + QLatin1Char(' ') + declType(f);
    if (primary) s += QStringLiteral(" NOT NULL");
    if (f.Type == dbText || f.Type == dbMemo) s += QStringLiteral(" COLLATE NOCASE");
    s += defaultClause(f);
    if (f.Type == dbText)
        s += QStringLiteral(" CONSTRAINT %1 CHECK (length(%2) <= %3)")
                 .arg(q(f.Name + QStringLiteral(":size")), q(f.Name))
                 .arg(f.Size > 0 ? f.Size : 255);
    if ((f.Type == dbText || f.Type == dbMemo) && !f.AllowZeroLength)
        s += QStringLiteral(" CONSTRAINT %1 CHECK (%2 <> '')")
                 .arg(q(f.Name + QStringLiteral(":zerolength")), q(f.Name));
    return s;
}

QString indexName(const QString& table, const QString& index) {
    return table + QLatin1Char('.') + index;
}

} // namespace

Field TableDef::CreateField(const QString& name, FieldType type, int size) const {
    Field f;
    f.Name = name;
    f.Type = type;
    f.Size = type == dbText ? (size > 0 ? size : 255) : 0;
    return f;
}

bool TableDef::HasField(const QString& name) const {
    for (const Field& f : Fields)
        if (f.Name.compare(name, Qt::CaseInsensitive) == 0) return true;
    return false;
}

const Field& TableDef::FieldByName(const QString& name) const {
    for (const Field& f : Fields)
        if (f.Name.compare(name, Qt::CaseInsensitive) == 0) return f;
    throw DbError(errItemNotFound, QStringLiteral("Item '%1' not found in this collection.").arg(name));
}

void TableDefs::Append(const TableDef& def) {
    QStringList cols;
    QString primaryField;
    QString primaryName;
    for (const Index& ix : def.Indexes)
        if (ix.Primary && ix.Fields.size() == 1) {
            primaryField = ix.Fields.first();
            primaryName = ix.Name;
        }
    for (const Field& f : def.Fields)
        cols << columnDef(f, f.Name.compare(primaryField, Qt::CaseInsensitive) == 0);
    if (!primaryField.isEmpty())
        cols << QStringLiteral("CONSTRAINT %1 PRIMARY KEY (%2)").arg(q(primaryName), q(primaryField));
    m_db->ExecuteNative(
        QStringLiteral("CREATE TABLE %1 (%2)").arg(q(def.Name), cols.join(QStringLiteral(", "))));
    for (const Index& ix : def.Indexes)
        if (!(ix.Primary && ix.Fields.size() == 1)) AppendIndex(def.Name, ix);
}

void TableDefs::AppendField(const QString& table, const Field& f) {
    m_db->ExecuteNative(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2").arg(q(table), columnDef(f, false)));
    // A Yes/No field is never Null: the rows already there read False in a field added to them.
    if (f.Type == dbBoolean && f.DefaultValue.isNull())
        m_db->ExecuteNative(QStringLiteral("UPDATE %1 SET %2 = 0").arg(q(table), q(f.Name)));
}

void TableDefs::AppendIndex(const QString& table, const Index& ix) {
    QStringList fields;
    for (const QString& f : ix.Fields)
        fields << q(f);
    m_db->ExecuteNative(QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
                            .arg(ix.Unique || ix.Primary ? QStringLiteral("UNIQUE ") : QString(),
                                 q(indexName(table, ix.Name)), q(table), fields.join(QLatin1Char(','))));
}

namespace {

// Steps a schema query to its next row. False at its end; an error (a file locked, unreadable or
// damaged) goes to the caller as itself, never as a missing item.
bool nextRow(DatabaseImpl* d, sqlite3_stmt* s, const QString& context) {
    const int rc = sqlite3_step(s);
    if (rc == SQLITE_ROW) return true;
    if (rc != SQLITE_DONE) d->fail(rc, context);
    return false;
}

} // namespace

bool TableDefs::Contains(const QString& table) const {
    DatabaseImpl* d = m_db->d.get();
    const Statement s = d->prepare(
        QStringLiteral("SELECT 1 FROM sqlite_master WHERE type='table' AND name=? COLLATE NOCASE"), table);
    BindValue(s.get(), 1, table);
    return nextRow(d, s.get(), table);
}

QStringList TableDefs::Names() const {
    DatabaseImpl* d = m_db->d.get();
    QStringList names;
    const Statement s = d->prepare(
        QStringLiteral(
            "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite_%' ORDER BY rowid"),
        QString());
    while (nextRow(d, s.get(), QString()))
        names << ColumnText(s.get(), 0);
    return names;
}

TableDef TableDefs::Item(const QString& table) const {
    DatabaseImpl* d = m_db->d.get();
    Statement s = d->prepare(
        QStringLiteral("SELECT name, sql FROM sqlite_master WHERE type='table' AND name=? COLLATE NOCASE"),
        table);
    BindValue(s.get(), 1, table);
    if (!nextRow(d, s.get(), table))
        throw DbError(errItemNotFound, QStringLiteral("Item '%1' not found in this collection.").arg(table));
    TableDef def(ColumnText(s.get(), 0));
    const QString ddl = ColumnText(s.get(), 1);

    s = d->prepare(QStringLiteral("SELECT name, type, dflt_value FROM pragma_table_info(?)"), table);
    BindValue(s.get(), 1, def.Name);
    while (nextRow(d, s.get(), table)) {
        Field f;
        f.Name = ColumnText(s.get(), 0);
        const QByteArray type = ColumnText(s.get(), 1).toUtf8();
        switch (KindOfDecltype(type.constData())) {
        case ColKind::Long:
            f.Type = dbLong;
            break;
        case ColKind::Bool:
            f.Type = dbBoolean;
            break;
        case ColKind::Double:
            f.Type = dbDouble;
            break;
        case ColKind::Date:
            f.Type = dbDate;
            break;
        case ColKind::Blob:
            f.Type = dbLongBinary;
            break;
        default:
            f.Type = type.toUpper().startsWith("VARCHAR") ? dbText : dbMemo;
            break;
        }
        if (f.Type == dbText) {
            static const QRegularExpression size(QStringLiteral(R"(\((\d+)\))"));
            f.Size = size.match(QString::fromLatin1(type)).captured(1).toInt();
        }
        if (f.Type == dbText || f.Type == dbMemo)
            f.AllowZeroLength = !ddl.contains(q(f.Name + QStringLiteral(":zerolength")));
        if (sqlite3_column_type(s.get(), 2) != SQLITE_NULL) {
            QString dv = ColumnText(s.get(), 2);
            if (dv.contains(QLatin1String("datetime('now'")))
                f.DefaultValue = QStringLiteral("now");
            else if (dv.startsWith(QLatin1Char('\'')))
                f.DefaultValue = dv.mid(1, dv.size() - 2).replace(QLatin1String("''"), QLatin1String("'"));
            else if (f.Type == dbBoolean)
                f.DefaultValue = dv.toInt() != 0;
            else
                f.DefaultValue = dv.toDouble();
        }
        def.Fields.push_back(f);
    }

    // Indexes: named "<table>.<index>"; the primary one is the table's named PRIMARY KEY constraint.
    static const QRegularExpression pk(
        QStringLiteral(R"re(CONSTRAINT\s+"([^"]+)"\s+PRIMARY\s+KEY\s*\(\s*"([^"]+)"\s*\))re"));
    const auto m = pk.match(ddl);
    if (m.hasMatch()) def.Indexes.push_back(Index{m.captured(1), {m.captured(2)}, true, true});
    s = d->prepare(
        QStringLiteral("SELECT il.name, il.\"unique\", ii.name FROM pragma_index_list(?) il "
                       "JOIN pragma_index_info(il.name) ii WHERE il.origin = 'c' ORDER BY il.name, ii.seqno"),
        table);
    BindValue(s.get(), 1, def.Name);
    while (nextRow(d, s.get(), table)) {
        QString name = ColumnText(s.get(), 0);
        const QString prefix = def.Name + QLatin1Char('.');
        if (name.startsWith(prefix, Qt::CaseInsensitive)) name = name.mid(prefix.size());
        const QString field = ColumnText(s.get(), 2);
        if (!def.Indexes.empty() && def.Indexes.back().Name == name && !def.Indexes.back().Primary)
            def.Indexes.back().Fields << field;
        else
            def.Indexes.push_back(Index{name, {field}, false, sqlite3_column_int(s.get(), 1) != 0});
    }
    return def;
}

} // namespace dao
