// The search: the window's whole run (count, rows, fill, sort) for one common word over every box
// and for two words over the names only, and the quick filter's run for a three-letter prefix,
// each beside the bare SQLite time of the same SQL text stepped with no work per row.
#include "bench/bench.h"
#include "core/globals.h"
#include "phonebook/contactquery.h"
#include "phonebook/store/jetsql.h"
#include "search/form8.h"
#include "search/quickfilter.h"
#include "search/searchquery.h"
#include "support/controls/listview.h"
#include "contactlist/columns.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <sqlite3.h>

#include <cstdio>

namespace {

// The statements stepped through with no work per row.
double bareMs(const QStringList& jet) {
    QList<QByteArray> sql;
    for (const QString& j : jet)
        sql << dao::JetSql::Translate(j).toUtf8();
    return bench::MedianMs(5, [&] {
        for (const QByteArray& s : sql) {
            sqlite3_stmt* st = nullptr;
            sqlite3_prepare_v2(gDB.handle(), s.constData(), int(s.size()), &st, nullptr);
            while (sqlite3_step(st) == SQLITE_ROW) {
            }
            sqlite3_finalize(st);
        }
    });
}

void searchCase(const bench::Context& ctx, Form8& form, const QString& what) {
    QString count;
    const QString rows = form.GetWhere(count);
    const double bare = bareMs({count, rows});
    const double ours = bench::MedianMs(5, [&] { form.bnSearch_Click(); });
    bench::Report(QStringLiteral("%1 (%2 rows)").arg(what).arg(form.ListView1->ListItems.Count()), ctx.contacts,
                  ours, bare);
}

void run(const bench::Context& ctx) {
    Form8 form;
    const QList<QCheckBox*> boxes = {form.chNumbers, form.chFullName, form.chTitle, form.chCompany, form.chComment,
                                     form.chAddress, form.chCity,     form.chState, form.chZip};
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
    const double bare = bareMs({mLV::ListQuery() + QStringLiteral("WHERE ") + mSearch::QuickFilterCondition(prefix)});
    const double ours = bench::MedianMs(5, [&] {
        filter.Start(prefix);
        filter.RunToEnd();
    });
    bench::Report(QStringLiteral("quick filter: \"%1\" (%2 rows)").arg(prefix).arg(filter.Matches()), ctx.contacts,
                  ours, bare);
}

bench::Register reg("search", 40, run);

} // namespace
