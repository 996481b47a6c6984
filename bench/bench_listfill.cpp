// The contact list of the main window: the fill for "ALL" at the root into a list with the
// program's columns, and the sorts that follow, beside the bare SQLite time of the list's query.
#include "bench/bench.h"
#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listsort.h"
#include "core/globals.h"
#include "phonebook/store/jetsql.h"
#include "support/controls/listview.h"
#include "trees/viewstate.h"

#include <sqlite3.h>

#include <cstdio>
#include <vector>

namespace {

// The list query stepped through with no work per row.
double bareQueryMs(const QString& jet) {
    const QByteArray sql = dao::JetSql::Translate(jet).toUtf8();
    return bench::MedianMs(5, [&] {
        sqlite3_stmt* s = nullptr;
        sqlite3_prepare_v2(gDB.handle(), sql.constData(), int(sql.size()), &s, nullptr);
        while (sqlite3_step(s) == SQLITE_ROW) {
        }
        sqlite3_finalize(s);
    });
}

void run(const bench::Context& ctx) {
    CurrentTreeTab = QStringLiteral("Categories");
    CurrentLetter = QStringLiteral("ALL");
    CurrentNodeKey = QStringLiteral("ID0");
    ListView list;
    mLV::IniList(list, mLV::lcContacts);
    const double bare = bareQueryMs(mLV::ListQuery());

    const double fill = bench::MedianMs(5, [&] { mLV::FillDriveList(list, CurrentLetter, CurrentNodeKey); });
    if (list.ListItems.Count() != ctx.contacts)
        std::fprintf(stderr, "the list holds %d rows of %d\n", list.ListItems.Count(), ctx.contacts);
    bench::Report(QStringLiteral("list fill ALL at the root"), ctx.contacts, fill, bare);

    // The list control's own share of a refill: rows of the same size, their texts ready (those
    // of the first thousand rows, over and over), put into the list that held them before.
    std::vector<QString> keys;
    std::vector<QStringList> texts;
    keys.reserve(size_t(list.ListItems.Count()));
    for (const ListItem* row : list.ListItems) {
        keys.push_back(row->Key());
        if (texts.size() >= 1000) continue;
        QStringList cells;
        for (int c = 0; c < row->CellCount(); ++c)
            cells << row->CellText(c);
        texts.push_back(cells);
    }
    const QString tag = QStringLiteral("b"), icon = QStringLiteral("BOR");
    const double control = bench::MedianMs(3, [&] {
        list.BeginUpdate();
        list.ListItems.Clear();
        for (size_t i = 0; i < keys.size(); ++i) {
            const QStringList& cells = texts[i % texts.size()];
            ListItem* item = list.ListItems.Add(keys[i], cells[0], QString(), icon);
            for (qsizetype c = 1; c < cells.size(); ++c)
                item->ListSubItems.Add(cells[c]);
            item->SetTag(tag);
        }
        list.EndUpdate();
    });
    bench::Report(QStringLiteral("  of which the list control's own work"), ctx.contacts, control);

    // Each call reverses the order of the column in force, which costs the same as a first sort.
    const auto sortBy = [&](int column) {
        list.SetSortKey(column);
        return bench::MedianMs(5, [&] { mLV::SwitchSortDisk(list, column, true); });
    };
    const double byName = sortBy(mLV::cellFullName);
    bench::Report(QStringLiteral("list sort by name"), ctx.contacts, byName);
    bench::Report(QStringLiteral("list sort by a text column (City)"), ctx.contacts, sortBy(mLV::cellCity));
    bench::Report(QStringLiteral("list sort by a number column (#)"), ctx.contacts, sortBy(mLV::cellID));
    bench::Report(QStringLiteral("list sort by the date column (Added)"), ctx.contacts,
                  sortBy(mLV::cellAdded));

    // What the user waits for on opening the view: the fill and the sort in force.
    const double both = bench::MedianMs(3, [&] {
        mLV::FillDriveList(list, CurrentLetter, CurrentNodeKey);
        list.SetSortOrder(list.SortOrder() == lvwAscending ? lvwDescending : lvwAscending);
        mLV::SwitchSortDisk(list, mLV::cellFullName, true);
    });
    bench::Report(QStringLiteral("list fill ALL at the root + sort by name (peak %1 MB)")
                      .arg(bench::PeakRssMb(), 0, 'f', 0),
                  ctx.contacts, both, bare);
}

bench::Register reg("contact list fill and sort", 20, run);

} // namespace
