#include "contactlist/favorites.h"

#include "contactlist/assignment.h"
#include "core/commandids.h"
#include "core/error.h"
#include "core/globals.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/helpers/keys.h"

namespace mCommon {

namespace {

bool IsNodeRow(const QString& key) {
    return key.contains(QLatin1Char('E'));
}

void SetEnabled(CommandBars& bars, int id, bool enabled) {
    if (CommandBarAction* action = bars.FindAction(id)) action->SetEnabled(enabled);
}

// Whether contact IDCD is in a favorites folder.
bool IsFavorite(qint32 IDCD) {
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT CDs.IDB From CDs WHERE CDs.IDCD = %1").arg(IDCD), dao::dbOpenSnapshot);
    const QVariant idb = rs.AtEOF() ? QVariant() : rs.Value(0);
    rs.Close();
    return !idb.isNull() && idb.toLongLong() != -1;
}

} // namespace

void MenuNoBorrow(const ListView& ListView2, CommandBars& bars) {
    HUNT_PLACE("mCommon.MenuNoBorrow");
    bool enabled = false;
    const ListItem* row = ListView2.ListItems.Count() > 0 ? ListView2.SelectedItem() : nullptr;
    if (row && !IsNodeRow(row->Key())) enabled = IsFavorite(GetID1(row->Key()));
    // A phonebook that may not be changed has the last word.
    if (gRestricted) enabled = false;
    SetEnabled(bars, cmd::ContactNoFavorite, enabled);
    SetEnabled(bars, cmd::ListNoFavorite, enabled);
}

void NoBorrowByClick(const mTV::MainView& view) {
    HUNT_PLACE("mCommon.NoBorrowByClick");
    const ListItem* row = view.ListView2.SelectedItem();
    if (!row || IsNodeRow(row->Key())) return;
    const qint32 id = GetID1(row->Key());

    dao::Transaction trans(gWS);
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT Max(IDHistory) AS maxID FROM LoanHistory"),
                                          dao::dbOpenSnapshot);
    const qint64 newID = (rs.AtEOF() ? 0 : rs.Value(0).toLongLong()) + 1; // Null on an empty table
    rs.Close();
    // A favorite directly under the root (IDB 0) leaves no history.
    gDB.Execute(
        QStringLiteral("INSERT INTO LoanHistory ( IDHistory, IDCD, IDB, IsLend, LoanStart, LoanEnd, "
                       "LoanComment ) SELECT %1 AS IDHistory, CDs.IDCD, CDs.IDB, CDs.IsLend, CDs.LoanStart, "
                       "Date() AS LoanEnd, CDs.LoanComment From CDs WHERE  CDs.IDB > 0 AND CDs.IDCD = %2")
            .arg(newID)
            .arg(id));

    QString DType, OldDiskCat, NewDiskCat, OldDiskBor, NewDiskBor, OldDiskBox, NewDiskBox;
    IniDiskCatParams(DType, OldDiskCat, NewDiskCat, OldDiskBor, NewDiskBor, OldDiskBox, NewDiskBox, id);
    NewDiskBor.clear();
    UpdateGlobalInfo(view, DType, DType, OldDiskCat, NewDiskCat, OldDiskBor, NewDiskBor, OldDiskBox,
                     NewDiskBox, id);
    trans.Commit();
}

} // namespace mCommon
