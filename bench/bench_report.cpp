// A tabular HTML report of every contact with eight columns, written to a file through the
// report query, beside the bare SQLite time of the same query; and the peak memory before and
// after, since the writer streams its rows.
#include "bench/bench.h"
#include "core/globals.h"
#include "phonebook/store/jetsql.h"
#include "reports/reportquery.h"
#include "reports/reportwriter.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>

namespace {

void run(const bench::Context& ctx) {
    QList<qint32> ids;
    {
        dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT IDCD FROM CDs"), dao::dbOpenSnapshot);
        for (; !rs.AtEOF(); rs.MoveNext())
            ids.append(qint32(rs.LongAt(0)));
    }
    const QString rowSql = mReport::ReportRowSql(ids, 0, false, false);
    const QByteArray sql = dao::JetSql::Translate(rowSql).toUtf8();
    const double bare = bench::MedianMs(3, [&] {
        sqlite3_stmt* s = nullptr;
        sqlite3_prepare_v2(gDB.handle(), sql.constData(), int(sql.size()), &s, nullptr);
        while (sqlite3_step(s) == SQLITE_ROW) {
        }
        sqlite3_finalize(s);
    });

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("report.html"));
    mReport::ReportLayout layout;
    layout.Kind = mReport::ReportKind::HtmlTabular;
    layout.Title = QStringLiteral("Every contact");
    layout.Columns = {QStringLiteral("FullName"), QStringLiteral("Title"),  QStringLiteral("Company"),
                      QStringLiteral("Address"),  QStringLiteral("City"),   QStringLiteral("State"),
                      QStringLiteral("Zip"),      QStringLiteral("Comment")};
    layout.Created = mReport::ReportTime();
    mReport::ReportRun progress;
    int calls = 0;
    progress.Progress = [&calls](int) { ++calls; };
    const double before = bench::PeakRssMb();
    const double ms = bench::MedianMs(3, [&] {
        calls = 0;
        mReport::WriteReportFile(layout, path, rowSql, qint32(ids.size()), progress);
    });
    const double after = bench::PeakRssMb();
    bench::Report(QStringLiteral("report, tabular HTML, 8 columns"), ctx.contacts, ms, bare);
    std::printf("  file %.1f MB, %d progress calls, peak memory %.0f MB before and %.0f MB after\n",
                double(QFileInfo(path).size()) / (1024.0 * 1024.0), calls, before, after);
}

bench::Register reg("report", 50, run);

} // namespace
