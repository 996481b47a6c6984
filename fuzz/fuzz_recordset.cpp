// Sequences of recordset operations on a small table, each input in a transaction rolled back at
// its end. Byte 0 picks the query; then each byte is an operation, some with a byte of argument.
// Besides faults, the target stops on a recordset that claims a current row it cannot read.
#include "phonebook/store/dao.h"

#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>

namespace {

struct Book {
    QTemporaryDir dir;
    dao::Workspace ws;
    dao::Database db;

    Book() {
        db = ws.CreateDatabase(dir.filePath(QStringLiteral("fuzz.kvdb")));
        db.ExecuteNative(QStringLiteral("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF"));
        dao::TableDef t(QStringLiteral("T"));
        t.Fields.push_back(t.CreateField(QStringLiteral("ID"), dao::dbLong));
        t.Fields.push_back(t.CreateField(QStringLiteral("Name"), dao::dbText, 8));
        t.Fields.push_back(t.CreateField(QStringLiteral("Score"), dao::dbDouble));
        t.Fields.push_back(t.CreateField(QStringLiteral("Seen"), dao::dbDate));
        dao::Field note = t.CreateField(QStringLiteral("Note"), dao::dbMemo);
        note.AllowZeroLength = true;
        t.Fields.push_back(note);
        t.Fields.push_back(t.CreateField(QStringLiteral("Flag"), dao::dbBoolean));
        t.Fields.push_back(t.CreateField(QStringLiteral("Photo"), dao::dbLongBinary));
        dao::Index key = t.CreateIndex(QStringLiteral("PrimaryKey"));
        key.Fields << QStringLiteral("ID");
        key.Primary = true;
        t.Indexes.push_back(key);
        db.TableDefs().Append(t);
        db.Execute(QStringLiteral(
            "INSERT INTO T (ID, Name, Score, Seen, Note, Flag) VALUES "
            "(1, 'ann', 1.5, #01/02/24#, 'x', True), (2, 'Bob', 2.5, Null, '', False), "
            "(3, 'cy', 3, #12/31/99 23:59:59#, Null, True), (4, 'Dan', Null, Null, 'y', Null), "
            "(5, 'abe', 5, #06/15/24#, 'z', False), (6, 'bea', 0, Null, Null, True)"));
    }
};

const char* const kQueries[] = {
    "SELECT * FROM T",
    "SELECT * FROM T WHERE Score > 2 ORDER BY ID",
    "SELECT ID, Name, Note FROM T ORDER BY Name DESC",
    "SELECT * FROM T WHERE Name Like 'b*' OR Flag = True",
    "SELECT Count(*) AS N, Max(Score) AS M FROM T",
    "T",
};
const char* const kFields[] = {"ID", "Name", "Score", "Seen", "Note", "Flag", "Photo", "Missing"};
const char* const kCriteria[] = {"ID > 3",      "Name Like '?e*'",      "Score = 2.5", "IsNull(Note)",
                                 "Missing = 1", "Name & Note = 'annx'", "ID \\ 2 = 1", "Score ^ 2 > 4"};
const char* const kStatements[] = {"DELETE * FROM T WHERE ID = 3", "UPDATE T SET Score = Score + 1",
                                   "UPDATE T SET Name = 'b' & Name WHERE ID < 3",
                                   "INSERT INTO T (ID) VALUES (7)"};

QVariant valueOf(uint8_t b) {
    switch (b % 8) {
    case 0:
        return QVariant();
    case 1:
        return int(b) - 128;
    case 2:
        return QString(int(b % 12), QLatin1Char('q')); // empty, fitting, or too long for Name
    case 3:
        return double(b) / 3;
    case 4:
        return QDateTime(QDate(2000 + b % 30, 1 + b % 12, 1 + b % 28), QTime(b % 24, 0));
    case 5:
        return bool(b & 1);
    case 6:
        return QByteArray(int(b % 40), char(b));
    default:
        return QStringLiteral("Ünï");
    }
}

void step(dao::Workspace& ws, dao::Database& db, dao::Recordset& rs, int& level, uint8_t op, uint8_t arg) {
    const QString field = QLatin1String(kFields[arg % 8]);
    switch (op % 24) {
    case 0:
        rs.MoveNext();
        break;
    case 1:
        rs.MoveFirst();
        break;
    case 2:
        rs.MoveLast();
        break;
    case 3:
        rs.MovePrevious();
        break;
    case 4:
        rs.Edit();
        break;
    case 5:
        rs.AddNew();
        break;
    case 6:
        rs.SetValue(field, valueOf(arg / 8));
        break;
    case 7:
        rs.Update();
        break;
    case 8:
        rs.CancelUpdate();
        break;
    case 9:
        rs.Delete();
        break;
    case 10:
        rs.FindFirst(QLatin1String(kCriteria[arg % 8]));
        break;
    case 11:
        rs.FindNext(QLatin1String(kCriteria[arg % 8]));
        break;
    case 12:
        (void)rs.Value(int(arg % 10) - 1);
        break;
    case 13: {
        const int i = int(arg % 10) - 1;
        QString out;
        QDate date;
        QTime time;
        (void)rs.IsNull(i);
        (void)rs.LongAt(i);
        (void)rs.AppendText(i, out);
        (void)rs.DateAt(i, date, time);
        (void)rs.Text(i);
        break;
    }
    case 14:
        (void)rs[field];
        break;
    case 15:
        (void)rs.GetChunk(field, arg % 5, arg % 7);
        break;
    case 16:
        (void)rs.FieldSize(field);
        break;
    case 17:
        rs.AppendChunk(field, QByteArray(arg % 9, 'c'));
        break;
    case 18:
        (void)rs.RecordCount(), (void)rs.AtBOF(), (void)rs.FieldIndex(field);
        break;
    case 19:
        rs.Close();
        break;
    case 20:
        rs = db.OpenRecordset(QLatin1String(kQueries[arg % 6]),
                              arg & 8 ? dao::dbOpenSnapshot : dao::dbOpenDynaset);
        break;
    case 21:
        db.Execute(QLatin1String(kStatements[arg % 4]));
        break;
    case 22:
        ws.BeginTrans();
        ++level;
        break;
    default:
        if (level > 1) {
            --level;
            arg & 1 ? ws.CommitTrans() : ws.Rollback();
        }
        break;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static Book book;
    if (size == 0) return 0;
    book.ws.BeginTrans();
    int level = 1;
    {
        dao::Recordset rs;
        try {
            rs = book.db.OpenRecordset(QLatin1String(kQueries[data[0] % 6]),
                                       data[0] & 8 ? dao::dbOpenSnapshot : dao::dbOpenDynaset);
        } catch (const dao::DbError&) {
            std::abort(); // every query of the list opens
        }
        for (size_t i = 1; i < size; i += 2) {
            try {
                step(book.ws, book.db, rs, level, data[i], i + 1 < size ? data[i + 1] : 0);
            } catch (const dao::DbError&) {
            }
            level = book.ws.TransactionLevel(); // a failed commit has rolled back
            if (level == 0) {
                book.ws.BeginTrans();
                level = 1;
            }
            // A recordset that stands on a row can read it.
            if (rs.isOpen() && !rs.AtEOF() && rs.AbsolutePosition() >= 0 && rs.FieldCount() > 0) {
                try {
                    (void)rs.Value(0);
                } catch (const dao::DbError&) {
                    std::abort();
                }
            }
        }
    }
    while (book.ws.TransactionLevel() > 0)
        book.ws.Rollback();
    return 0;
}
