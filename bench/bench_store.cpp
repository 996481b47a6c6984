// The store against bare SQLite: the contact list's query streamed through a Recordset that reads
// every field, and the same statement stepped with no work per row.
#include "bench/bench.h"
#include "core/globals.h"
#include "phonebook/store/jetsql.h"

#include <sqlite3.h>

namespace {

QString listQuery() {
    QString select = QStringLiteral("SELECT Types.Type AS T1");
    for (int k = 1; k < 12; ++k)
        select += QStringLiteral(", Types_%1.Type AS T%2").arg(k).arg(k + 1);
    select +=
        QStringLiteral(", CDs.*, Categories.Catpath AS Cat, Borrows.Catpath AS Bor, Boxes.Catpath AS Box ");
    QString from = QStringLiteral("FROM ((((((((((((((CDs LEFT JOIN Types ON CDs.Type1 = Types.IDTYPE)");
    for (int k = 1; k < 12; ++k)
        from +=
            QStringLiteral(" LEFT JOIN Types AS Types_%1 ON CDs.Type%2 = Types_%1.IDTYPE)").arg(k).arg(k + 1);
    from += QStringLiteral(
        " INNER JOIN Categories ON CDs.IDC = Categories.ID) LEFT JOIN Borrows ON CDs.IDB = Borrows.ID)"
        " INNER JOIN Boxes ON CDs.IDX = Boxes.ID ");
    return select + from;
}

void run(const bench::Context& ctx) {
    const QString jet = listQuery();
    int rows = 0;
    const double through = bench::MedianMs(5, [&] {
        rows = 0;
        dao::Recordset rs = gDB.OpenRecordset(jet, dao::dbOpenSnapshot);
        const int n = rs.FieldCount();
        for (; !rs.AtEOF(); rs.MoveNext()) {
            for (int i = 0; i < n; ++i)
                rs.Value(i);
            ++rows;
        }
        rs.Close();
    });
    const QByteArray sql = dao::JetSql::Translate(jet).toUtf8();
    const double bare = bench::MedianMs(5, [&] {
        sqlite3_stmt* s = nullptr;
        sqlite3_prepare_v2(gDB.handle(), sql.constData(), sql.size(), &s, nullptr);
        while (sqlite3_step(s) == SQLITE_ROW) {
        }
        sqlite3_finalize(s);
    });
    if (rows != ctx.contacts) std::fprintf(stderr, "list query gave %d rows of %d\n", rows, ctx.contacts);
    bench::Report(QStringLiteral("list query, every field through a Recordset"), ctx.contacts, through, bare);
}

bench::Register reg("list query through the store", 10, run);

} // namespace
