// Deleting a category with its contacts and copying one contact, against the bare SQLite time of
// the same statements. The delete runs on a copy of the phonebook each time, so that the cases
// after it find every contact where it was.
#include "bench/bench.h"
#include "contactlist/clone.h"
#include "contactlist/columns.h"
#include "core/globals.h"
#include "phonebook/store/jetsql.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/deletecd.h"
#include "trees/treefill.h"
#include "trees/viewstate.h"

#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <sqlite3.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

// The category whose subtree holds the number of contacts nearest to a tenth of them all.
qint32 tenthCategory(int contacts, int& held) {
    QHash<qint32, int> own;
    dao::Recordset counts = gDB.OpenRecordset(
        QStringLiteral("SELECT IDC, Count(*) AS n FROM CDs GROUP BY IDC"), dao::dbOpenSnapshot);
    for (; !counts.AtEOF(); counts.MoveNext())
        own[counts.Value(0).toInt()] = counts.Value(1).toInt();
    counts.Close();
    QHash<qint32, int> subtree;
    dao::Recordset nodes = gDB.OpenRecordset(
        QStringLiteral("SELECT ID, Pedigree FROM Categories WHERE ID > 0"), dao::dbOpenSnapshot);
    for (; !nodes.AtEOF(); nodes.MoveNext()) {
        const int n = own.value(nodes.Value(0).toInt());
        // Every node on the pedigree holds the contacts of this one.
        for (const QString& part : nodes.Text(1).split(QLatin1Char('E'), Qt::SkipEmptyParts))
            if (part != QLatin1String("ID0")) subtree[part.mid(2).toInt()] += n;
    }
    nodes.Close();
    qint32 best = 1;
    held = 0;
    for (auto it = subtree.cbegin(); it != subtree.cend(); ++it) {
        if (std::abs(it.value() - contacts / 10) < std::abs(held - contacts / 10)) {
            best = it.key();
            held = it.value();
        }
    }
    return best;
}

// Runs `work` on a fresh copy of the phonebook, timing only the work, and puts the phonebook back.
double onCopy(const bench::Context& ctx, const std::function<void()>& work) {
    const QString copy = ctx.phonebook + QStringLiteral(".copy");
    const dao::Database original = gDB;
    return bench::MedianMs(3, [&] {
        QFile::remove(copy);
        QFile::copy(ctx.phonebook, copy);
        gDB = gWS.OpenDatabase(copy, false, false);
        work();
        gDB.Close();
        gDB = original;
        QFile::remove(copy);
    });
}

void deleteCategory(const bench::Context& ctx) {
    int held = 0;
    const qint32 id = tenthCategory(ctx.contacts, held);
    // The five statements of the delete, as the store runs them.
    const QString in = QStringLiteral("In (SELECT CDs.IDCD FROM CDs INNER JOIN Categories ON CDs.IDC = "
                                      "Categories.ID WHERE Categories.Pedigree Like '*ID%1E*')")
                           .arg(id);
    const QStringList jet = {
        QStringLiteral("DELETE Elements.* FROM Elements INNER JOIN Paths ON Elements.IDPATH = Paths.IDPATH "
                       "WHERE Paths.IDCD ") +
            in,
        QStringLiteral("Delete Paths.IDCD From Paths WHERE IDCD ") + in,
        QStringLiteral("Delete IDCD From SearchWhere WHERE IDCD ") + in,
        QStringLiteral("Delete IDCD From LoanHistory WHERE IDCD ") + in,
        QStringLiteral("Delete CDs.IDCD From CDs WHERE IDCD ") + in,
    };
    std::vector<QByteArray> sql;
    for (const QString& s : jet)
        sql.push_back(dao::JetSql::Translate(s).toUtf8());

    const double ours = onCopy(ctx, [&] {
        dao::Transaction trans(gWS);
        mAccess::DeleteCD(id, 0);
        trans.Commit();
    });
    const double bare = onCopy(ctx, [&] {
        sqlite3* db = gDB.handle();
        sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        for (const QByteArray& s : sql)
            sqlite3_exec(db, s.constData(), nullptr, nullptr, nullptr);
        sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    });
    bench::Report(QStringLiteral("delete a category of %1 contacts, committed").arg(held), ctx.contacts, ours,
                  bare);
}

void cloneContact(const bench::Context& ctx) {
    CurrentTreeTab = QStringLiteral("Categories");
    CurrentLetter = QStringLiteral("ALL");
    CurrentNodeKey = QStringLiteral("ID0");
    TreeView tree;
    ListView contacts, details;
    mLV::IniList(contacts, mLV::lcContacts);
    mTV::CategoryFill(mTV::TreeForm{tree, true}, 0);
    const mTV::MainView view{tree, contacts, details};
    const QString key = QStringLiteral("ID%1").arg(ctx.contacts / 2);
    contacts.ListItems.Add(key, QStringLiteral("original"));
    contacts.SetSelectedItem(contacts.ListItems(key));
    // Each copy is deleted again before the next, outside the timing.
    std::vector<double> times;
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer timer;
        timer.start();
        const qint32 copy = mLV::CloneContact(view);
        times.push_back(timer.nsecsElapsed() / 1e6);
        gDB.Execute(QStringLiteral("Delete CDs.IDCD From CDs WHERE IDCD = %1").arg(copy));
        contacts.ListItems.Remove(QStringLiteral("ID%1").arg(copy));
        contacts.SetSelectedItem(contacts.ListItems(key));
    }
    std::sort(times.begin(), times.end());
    const double ms = times[times.size() / 2];
    // The floor: the same four statements stepped through, the copy's row read once.
    const qint32 top = ctx.contacts;
    const QStringList jet = {
        QStringLiteral("SELECT Max(IDCD) AS maxID FROM CDs"),
        QStringLiteral("SELECT Max(ContactNumber) AS maxN FROM Cds"),
        QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(ctx.contacts / 2),
        QStringLiteral("SELECT * FROM CDs WHERE IDCD = %1").arg(top),
    };
    std::vector<QByteArray> sql;
    for (const QString& s : jet)
        sql.push_back(dao::JetSql::Translate(s).toUtf8());
    const double bare = bench::MedianMs(5, [&] {
        for (const QByteArray& s : sql) {
            sqlite3_stmt* st = nullptr;
            sqlite3_prepare_v2(gDB.handle(), s.constData(), int(s.size()), &st, nullptr);
            while (sqlite3_step(st) == SQLITE_ROW) {
            }
            sqlite3_finalize(st);
        }
    });
    bench::Report(QStringLiteral("copy one contact, its row and the counts"), ctx.contacts, ms, bare);
}

bench::Register del("delete a category with its contacts", 60, deleteCategory);
bench::Register clone("copy one contact", 61, cloneContact);

} // namespace
