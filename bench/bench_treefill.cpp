// The trees of the main window against bare SQLite: the fill of a tree with its counts, the
// opening view (tree fill, the list of every contact at the root and its sort), and the refresh
// of the counts after a change. Each floor is the same statements stepped with no work per row.
#include "bench/bench.h"
#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listsort.h"
#include "core/globals.h"
#include "phonebook/store/jetsql.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/counters.h"
#include "trees/treefill.h"
#include "trees/viewstate.h"

#include <sqlite3.h>

#include <cstdio>

namespace {

// Steps every statement to its end, doing nothing with the rows.
double bareMs(const QStringList& jetStatements) {
    std::vector<QByteArray> sql;
    for (const QString& jet : jetStatements)
        sql.push_back(dao::JetSql::Translate(jet).toUtf8());
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

const char* kTabs[] = {"Categories", "Boxes", "Borrows"};

QString namesQuery(qint16 mode) {
    return QStringLiteral("SELECT %1.ID, %1.Name, %1.IDPARENT, %1.Pedigree FROM %1 ORDER BY %1.Pedigree")
        .arg(QLatin1String(kTabs[mode]));
}

QString joinQuery(qint16 mode) {
    return QStringLiteral(
               " SELECT %1.ID, Count(CDs.IDC) AS [cnt-], Sum(IIf(Label Like '%3',1,0)) AS cnt FROM %1 "
               "LEFT JOIN CDs ON %1.ID = CDs.%2 GROUP BY %1.ID, %1.Pedigree ORDER BY %1.Pedigree")
        .arg(QLatin1String(kTabs[mode]),
             QLatin1String(mode == 0   ? "IDC"
                           : mode == 1 ? "IDX"
                                       : "IDB"),
             CurrentLetter == QLatin1String("ALL") ? QStringLiteral("*") : CurrentLetter);
}

void treeFill(const bench::Context& ctx) {
    CurrentLetter = QStringLiteral("ALL");
    for (qint16 mode = 0; mode < 3; ++mode) {
        CurrentTreeTab = QLatin1String(kTabs[mode]);
        TreeView tree;
        const double ms = bench::MedianMs(5, [&] { mTV::CategoryFill({tree, true}, mode); });
        const double floor = bareMs({namesQuery(mode), mTV::CountQuery(mode)});
        bench::Report(QStringLiteral("tree fill with counts, %1 (%2 nodes)")
                          .arg(CurrentTreeTab)
                          .arg(tree.Nodes.Count()),
                      ctx.contacts, ms, floor);
    }
    CurrentTreeTab = QStringLiteral("Categories");
}

void openingView(const bench::Context& ctx) {
    CurrentLetter = QStringLiteral("ALL");
    CurrentTreeTab = QStringLiteral("Categories");
    CurrentNodeKey = QStringLiteral("ID0");
    TreeView tree;
    ListView list;
    mLV::IniList(list, mLV::lcContacts);
    int rows = 0;
    const double ms = bench::MedianMs(3, [&] {
        mTV::CategoryFill({tree, true}, 0);
        mLV::FillDriveList(list, CurrentLetter, CurrentNodeKey);
        // The resort of a fresh list in the order in force, as a change of view does it.
        list.SetSortOrder(list.SortOrder() == lvwAscending ? lvwDescending : lvwAscending);
        mLV::SwitchSortDisk(list, list.SortKey(), false);
        rows = list.ListItems.Count();
    });
    const double floor = bareMs({namesQuery(0), mTV::CountQuery(0), mLV::ListQuery()});
    if (rows != ctx.contacts) std::fprintf(stderr, "the list holds %d rows of %d\n", rows, ctx.contacts);
    bench::Report(QStringLiteral("tree fill + list of all at the root + sort (peak %1 MB)")
                      .arg(bench::PeakRssMb(), 0, 'f', 0),
                  ctx.contacts, ms, floor);
}

void counters(const bench::Context& ctx) {
    for (const char* letter : {"ALL", "K"}) {
        CurrentLetter = QLatin1String(letter);
        for (qint16 mode : {qint16(0), qint16(2)}) {
            CurrentTreeTab = QLatin1String(kTabs[mode]);
            TreeView tree;
            mTV::CategoryFill({tree, true}, mode);
            const double ms = bench::MedianMs(7, [&] { mTV::UpdateCounters(tree); });
            const double floor = bareMs({mTV::CountQuery(mode)});
            bench::Report(QStringLiteral("update counters, %1, letter %2").arg(CurrentTreeTab, CurrentLetter),
                          ctx.contacts, ms, floor);
            // For comparison: the root count and the counts by a join from the tree table.
            bench::Report(QStringLiteral("  (bare: root count + join from the tree table)"), ctx.contacts,
                          bareMs({mTV::RootCountQuery(), joinQuery(mode)}));
        }
    }
    CurrentLetter = QStringLiteral("ALL");
    CurrentTreeTab = QStringLiteral("Categories");
}

bench::Register fillCase("tree fill", 30, treeFill);
bench::Register viewCase("opening view", 31, openingView);
bench::Register countersCase("update counters", 32, counters);

} // namespace
