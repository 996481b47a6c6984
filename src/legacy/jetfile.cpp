#include "legacy/jetfile.h"

#include "phonebook/store/dao.h"

#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTime>
#include <cstring>
#include <ctime>

// glib first: libmdb's header opens an extern "C" block around its own include of it.
#include <glib.h>

#include <mdbtools.h>

namespace mLegacy {

namespace {

// Room for one memo or long binary header as libmdb hands it over. A memo is converted from
// UTF-16 into this much UTF-8 at most; a longer one is refused rather than cut.
constexpr size_t kBindSize = size_t(1) << 20;
// Room for a text field: no field is longer than a page, and UTF-8 needs at most three bytes for
// the two that a character takes in the file (one, for a compressed character, gives two).
constexpr size_t kTextBind = 2 * MDB_PGSIZE + 16;
// The two flag bits at the top of a memo's or long binary's length.
constexpr quint32 kLengthMask = 0x3fffffff;

[[noreturn]] void unreadable(const QString& why) {
    throw ConversionError(ConversionError::Unreadable, dao::errNotDatabase, why);
}

JetType typeOf(int mdbType) {
    switch (mdbType) {
    case MDB_BOOL:
        return JetType::Boolean;
    case MDB_LONGINT:
        return JetType::Long;
    case MDB_DOUBLE:
        return JetType::Double;
    case MDB_DATETIME:
        return JetType::Date;
    case MDB_TEXT:
        return JetType::Text;
    case MDB_MEMO:
        return JetType::Memo;
    case MDB_OLE:
        return JetType::LongBinary;
    default:
        return JetType::Other;
    }
}

quint32 le32(const void* p) {
    const auto* b = static_cast<const unsigned char*>(p);
    return quint32(b[0]) | quint32(b[1]) << 8 | quint32(b[2]) << 16 | quint32(b[3]) << 24;
}

// libmdb reads its target character set when a file is opened: UTF-8 for the duration of the
// open, whatever the environment says, and the environment as it was afterwards.
class Utf8Target {
  public:
    Utf8Target() : m_had(qEnvironmentVariableIsSet("MDBICONV")), m_old(qgetenv("MDBICONV")) {
        qputenv("MDBICONV", "UTF-8");
    }
    ~Utf8Target() {
        if (m_had)
            qputenv("MDBICONV", m_old);
        else
            qunsetenv("MDBICONV");
    }

  private:
    bool m_had;
    QByteArray m_old;
};

// A table definition with its columns, freed with it.
struct Table {
    MdbTableDef* def = nullptr;
    explicit Table(MdbCatalogEntry* entry) : def(mdb_read_table(entry)) {
        if (def && !mdb_read_columns(def)) {
            mdb_free_tabledef(def);
            def = nullptr;
        }
    }
    ~Table() {
        if (def) mdb_free_tabledef(def);
    }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;
    MdbColumn* column(unsigned i) const {
        return static_cast<MdbColumn*>(g_ptr_array_index(def->columns, i));
    }
};

} // namespace

ConversionError::ConversionError(Kind kind, qint32 number, const QString& description)
    : HuntERR::Error(number, description, QStringLiteral("Kelvarin")), m_kind(kind) {}

bool IsJetFile(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly)) return false;
    const QByteArray head = f.read(20);
    return head.size() == 20 && head.mid(4, 15) == QByteArrayLiteral("Standard Jet DB");
}

struct JetFile::Impl {
    MdbHandle* mdb = nullptr;
    QString path;

    MdbCatalogEntry* entry(const QString& table) const {
        for (unsigned i = 0; i < mdb->num_catalog; ++i) {
            auto* e = static_cast<MdbCatalogEntry*>(g_ptr_array_index(mdb->catalog, i));
            if (e->object_type == MDB_TABLE && mdb_is_user_table(e) &&
                QString::fromUtf8(e->object_name).compare(table, Qt::CaseInsensitive) == 0)
                return e;
        }
        return nullptr;
    }

    MdbCatalogEntry* need(const QString& table) const {
        MdbCatalogEntry* e = entry(table);
        if (!e)
            throw ConversionError(ConversionError::OtherSchema, dao::errItemNotFound,
                                  QStringLiteral("No table %1 in %2").arg(table, path));
        return e;
    }
};

JetFile::JetFile(const QString& path) : d(new Impl) {
    HUNT_PLACE("mLegacy.JetFile(path)", path);
    d->path = path;
    if (!IsJetFile(path)) unreadable(QStringLiteral("%1 is no Jet database.").arg(path));
    {
        Utf8Target utf8;
        d->mdb = mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS);
    }
    if (!d->mdb) unreadable(QStringLiteral("libmdb cannot open %1.").arg(path));
    // A Jet file is a whole number of pages: anything else has been cut short.
    const qint64 size = QFileInfo(path).size();
    if (d->mdb->fmt->pg_size <= 0 || size % d->mdb->fmt->pg_size != 0)
        unreadable(QStringLiteral("%1 is not a whole number of pages: it has been cut short.").arg(path));
    mdb_set_bind_size(d->mdb, kBindSize);
    if (!mdb_read_catalog(d->mdb, MDB_TABLE))
        unreadable(QStringLiteral("libmdb cannot read the catalogue of %1.").arg(path));
}

JetFile::~JetFile() {
    if (d->mdb) mdb_close(d->mdb);
}

QStringList JetFile::Tables() const {
    QStringList names;
    for (unsigned i = 0; i < d->mdb->num_catalog; ++i) {
        auto* e = static_cast<MdbCatalogEntry*>(g_ptr_array_index(d->mdb->catalog, i));
        if (e->object_type == MDB_TABLE && mdb_is_user_table(e)) names << QString::fromUtf8(e->object_name);
    }
    return names;
}

bool JetFile::HasTable(const QString& table) const {
    return d->entry(table) != nullptr;
}

std::vector<JetColumn> JetFile::Columns(const QString& table) const {
    HUNT_PLACE("mLegacy.JetFile.Columns(table)", table);
    Table t(d->need(table));
    if (!t.def) unreadable(QStringLiteral("libmdb cannot read the table %1.").arg(table));
    std::vector<JetColumn> columns;
    for (unsigned i = 0; i < t.def->num_cols; ++i) {
        const MdbColumn* c = t.column(i);
        JetColumn col;
        col.Name = QString::fromUtf8(c->name);
        col.Type = typeOf(c->col_type);
        // Jet 4 gives a text's size in bytes of UTF-16.
        if (col.Type == JetType::Text) col.Size = c->col_size / 2;
        columns.push_back(col);
    }
    return columns;
}

qint64 JetFile::RowCount(const QString& table) const {
    Table t(d->need(table));
    if (!t.def) unreadable(QStringLiteral("libmdb cannot read the table %1.").arg(table));
    return t.def->num_rows;
}

void JetFile::ReadRows(const QString& table, const std::function<void(const QVariantList&)>& row) const {
    HUNT_PLACE("mLegacy.JetFile.ReadRows(table)", table);
    MdbHandle* mdb = d->mdb;
    Table t(d->need(table));
    if (!t.def) unreadable(QStringLiteral("libmdb cannot read the table %1.").arg(table));
    const unsigned n = t.def->num_cols;
    std::vector<JetType> types(n);
    std::vector<std::vector<char>> bound(n);
    std::vector<int> lengths(n, 0);
    for (unsigned i = 0; i < n; ++i) {
        types[i] = typeOf(t.column(i)->col_type);
        // Texts come converted by libmdb; numbers and dates are read from the row as stored.
        if (types[i] == JetType::Text || types[i] == JetType::Memo || types[i] == JetType::LongBinary) {
            bound[i].assign(types[i] == JetType::Text ? kTextBind : kBindSize, '\0');
            mdb_bind_column(t.def, int(i) + 1, bound[i].data(), &lengths[i]);
        }
    }
    std::vector<MdbField> fields(n + 1);
    std::vector<int> fieldOf(n);
    QVariantList values;
    values.reserve(int(n));
    qint64 count = 0;
    mdb_rewind_table(t.def);
    while (mdb_fetch_row(t.def)) {
        // libmdb hands over values, not Nulls: the row is taken apart once more, from the page
        // it was just read from, for the null flags and the stored numbers.
        int start = 0;
        size_t size = 0;
        if (mdb_find_row(mdb, int(t.def->cur_row) - 1, &start, &size) != 0)
            unreadable(QStringLiteral("A row of %1 cannot be found again.").arg(table));
        const int cracked = mdb_crack_row(t.def, start, size, fields.data());
        std::fill(fieldOf.begin(), fieldOf.end(), -1);
        for (int f = 0; f < cracked && f <= int(n); ++f)
            if (fields[f].colnum >= 0 && fields[f].colnum < int(n)) fieldOf[fields[f].colnum] = f;
        values.clear();
        for (unsigned i = 0; i < n; ++i) {
            const int f = fieldOf[i];
            const MdbField* field = f >= 0 ? &fields[f] : nullptr;
            const bool isNull = !field || field->is_null;
            switch (types[i]) {
            case JetType::Boolean: // kept in the row's null flags: a set flag is True
                values << QVariant(!isNull);
                break;
            case JetType::Long:
                if (isNull || field->siz < 4)
                    values << QVariant();
                else
                    values << QVariant(qint32(le32(field->value)));
                break;
            case JetType::Double:
                if (isNull || field->siz < 8)
                    values << QVariant();
                else
                    values << QVariant(mdb_get_double(field->value, 0));
                break;
            case JetType::Date: {
                if (isNull || field->siz < 8) {
                    values << QVariant();
                    break;
                }
                struct tm tm {};
                mdb_date_to_tm(mdb_get_double(field->value, 0), &tm);
                const QDate date(tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday);
                const QTime time(tm.tm_hour, tm.tm_min, tm.tm_sec);
                if (!date.isValid() || !time.isValid())
                    unreadable(QStringLiteral("A date of %1 cannot be read.").arg(table));
                values << QVariant(QDateTime(date, time, Qt::UTC));
                break;
            }
            case JetType::Text:
            case JetType::Memo: {
                if (isNull) {
                    values << QVariant();
                    break;
                }
                const int len = lengths[i];
                if (types[i] == JetType::Memo) {
                    if (size_t(len) + 1 >= kBindSize)
                        unreadable(QStringLiteral("A memo of %1 is too long to be read whole.").arg(table));
                    if (len == 0 && field->siz >= 4 && (le32(field->value) & kLengthMask) != 0)
                        unreadable(QStringLiteral("A memo of %1 cannot be read.").arg(table));
                }
                values << QVariant(QString::fromUtf8(bound[i].data(), len));
                break;
            }
            case JetType::LongBinary: {
                if (isNull || field->siz < MDB_MEMO_OVERHEAD) {
                    values << QVariant();
                    break;
                }
                MdbColumn* col = t.column(i);
                const quint32 stored = le32(field->value) & kLengthMask;
                size_t got = 0;
                void* bytes = stored ? mdb_ole_read_full(mdb, col, &got) : nullptr;
                QByteArray data(static_cast<const char*>(bytes), bytes ? int(got) : 0);
                g_free(bytes);
                if (size_t(data.size()) != stored)
                    unreadable(QStringLiteral("A long binary field of %1 holds %2 of its %3 bytes.")
                                   .arg(table)
                                   .arg(data.size())
                                   .arg(stored));
                values << QVariant(data);
                break;
            }
            case JetType::Other:
                values << QVariant();
                break;
            }
        }
        ++count;
        row(values);
    }
    // libmdb ends a table early, with no error, at a page it cannot read.
    if (count != qint64(t.def->num_rows))
        unreadable(QStringLiteral("Only %1 of the %2 rows of %3 could be read.")
                       .arg(count)
                       .arg(t.def->num_rows)
                       .arg(table));
}

} // namespace mLegacy
