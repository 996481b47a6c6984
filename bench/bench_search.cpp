// The search: the window's whole run (count, rows, fill, sort) for one common word over every box
// and for two words over the names only, and the quick filter's run for a three-letter prefix,
// each beside the bare SQLite time of the same SQL text stepped with no work per row.
#include "bench/bench.h"
#include "contactlist/columns.h"
#include "core/globals.h"
#include "phonebook/contactquery.h"
#include "phonebook/store/jetsql.h"
#include "search/form8.h"
#include "search/quickfilter.h"
#include "search/searchquery.h"
#include "support/controls/listview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <functional>
#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

namespace {

// The processor time of `f` (median of `runs`), in milliseconds: on a machine shared with other
// work it tells the cost better than the wall time.
double MedianCpuMs(int runs, const std::function<void()>& f) {
    std::vector<double> t;
    for (int i = 0; i < runs; ++i) {
        timespec a{}, b{};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &a);
        f();
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &b);
        t.push_back((b.tv_sec - a.tv_sec) * 1e3 + (b.tv_nsec - a.tv_nsec) / 1e6);
    }
    std::sort(t.begin(), t.end());
    return t[t.size() / 2];
}

// The statements stepped through with no work per row.
std::function<void()> bareRun(const QStringList& jet) {
    QList<QByteArray> sql;
    for (const QString& j : jet)
        sql << dao::JetSql::Translate(j).toUtf8();
    return [sql] {
        for (const QByteArray& s : sql) {
            sqlite3_stmt* st = nullptr;
            sqlite3_prepare_v2(gDB.handle(), s.constData(), int(s.size()), &st, nullptr);
            while (sqlite3_step(st) == SQLITE_ROW) {
            }
            sqlite3_finalize(st);
        }
    };
}

// Wall time beside the bare time, then the processor times of both.
void report(const QString& what, const bench::Context& ctx, const std::function<void()>& ours,
            const std::function<void()>& bare) {
    bench::Report(what, ctx.contacts, bench::MedianMs(5, ours), bench::MedianMs(5, bare));
    std::printf("  processor time: %.1f ms, bare %.1f ms\n", MedianCpuMs(5, ours), MedianCpuMs(5, bare));
}

void searchCase(const bench::Context& ctx, Form8& form, const QString& what) {
    QString count;
    const QString rows = form.GetWhere(count);
    form.bnSearch_Click();
    report(
        QStringLiteral("%1 (%2 rows)").arg(what).arg(form.ListView1->ListItems.Count()), ctx,
        [&] { form.bnSearch_Click(); }, bareRun({count, rows}));
}

void run(const bench::Context& ctx) {
    Form8 form;
    const QList<QCheckBox*> boxes = {form.chNumbers, form.chFullName, form.chTitle,
                                     form.chCompany, form.chComment,  form.chAddress,
                                     form.chCity,    form.chState,    form.chZip};
    // One common word over every box, the dates spanning all contacts.
    for (QCheckBox* b : boxes)
        b->setChecked(true);
    form.chDateMin->setChecked(true);
    form.chDateMax->setChecked(true);
    form.fdDateMin->setDate(QDate(2000, 1, 1));
    form.fdDateMax->setDate(QDate(2029, 12, 31));
    form.cmbName->setEditText(QStringLiteral("smith"));
    searchCase(ctx, form, QStringLiteral("search: one word in every box"));

    // Two words over the names only.
    for (QCheckBox* b : boxes)
        b->setChecked(b == form.chFullName);
    form.chDateMin->setChecked(false);
    form.chDateMax->setChecked(false);
    form.cmbName->setEditText(QStringLiteral("anna olsen"));
    searchCase(ctx, form, QStringLiteral("search: two words in the names"));

    // The quick filter, a three-letter prefix.
    ListView list;
    mLV::IniList(list, mLV::lcContacts);
    mSearch::QuickFilter filter(list);
    const QString prefix = QStringLiteral("ann");
    const auto filterRun = [&] {
        filter.Start(prefix);
        filter.RunToEnd();
    };
    filterRun();
    report(QStringLiteral("quick filter: \"%1\" (%2 rows)").arg(prefix).arg(filter.Matches()), ctx, filterRun,
           bareRun({mLV::ListQuery() + QStringLiteral("WHERE ") + mSearch::QuickFilterCondition(prefix)}));
}

bench::Register reg("search", 40, run);

} // namespace
