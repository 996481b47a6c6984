#include "contactlist/listfill.h"

#include "contactlist/celltext.h"
#include "contactlist/listhooks.h"
#include "contactlist/listupdate.h"
#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/dates.h"
#include "support/helpers/keys.h"
#include "support/helpers/values.h"
#include "trees/membership.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <cstdio>

namespace mLV {

namespace {

const QString kAll = QStringLiteral("ALL");
const QString kRoot = QStringLiteral("ID0");
const QString kContactTag = QStringLiteral("b");
const QString kNodeTag = QStringLiteral("a");
const QString kContactIcon = QStringLiteral("BOR");
const QString kBlank = QStringLiteral(" ");
const QVariant kEmpty = QVariant(QString());

template <class F, class... A> void Call(const F& hook, A&&... args) {
    if (hook) hook(std::forward<A>(args)...);
}

// The hourglass of the main window for the length of a block.
class Hourglass {
  public:
    Hourglass() { Call(Hooks().Hourglass, true); }
    ~Hourglass() { Call(Hooks().Hourglass, false); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

QString text(const QVariant& v) {
    return mCommon::Nz(v, kEmpty).toString();
}

QString nodeIcon(qint16 mode) {
    switch (mode) {
    case 0:
        return QStringLiteral("CAT");
    case 1:
        return QStringLiteral("BOX");
    default:
        return QStringLiteral("BOR");
    }
}

// A row for a child node: its name, and empty cells up to the group's but for the comment and the
// contact number, a blank that compares like a contact without a number.
void addNodeRow(ListView& list, const QString& key, const QString& name, qint16 mode,
                const QVariant& comment) {
    ListItem* item = list.ListItems.Add(key, name, QString(), nodeIcon(mode));
    ListSubItemCollection& cells = item->ListSubItems;
    for (int cell = cellTitle; cell <= cellBox; ++cell) {
        if (cell == cellComment)
            cells.Add(mCommon::NzMultiline(comment, kEmpty).toString());
        else if (cell == cellID)
            cells.Add(kBlank);
        else
            cells.Add(QString());
    }
    item->SetTag(kNodeTag);
}

void clearSelection(ListView& list) {
    if (list.ListItems.Count() == 0) return;
    if (ListItem* selected = list.SelectedItem()) selected->SetSelected(false);
    list.SetSelectedItem(nullptr);
}

} // namespace

ListFields::ListFields(const dao::Recordset& rs)
    : IDCD(mLV::FieldIndex(rs, QStringLiteral("IDCD"))),
      FullName(mLV::FieldIndex(rs, QStringLiteral("FullName"))),
      Title(mLV::FieldIndex(rs, QStringLiteral("Title"))),
      Company(mLV::FieldIndex(rs, QStringLiteral("Company"))),
      Cat(mLV::FieldIndex(rs, QStringLiteral("Cat"))), Bor(mLV::FieldIndex(rs, QStringLiteral("Bor"))),
      Address(mLV::FieldIndex(rs, QStringLiteral("Address"))),
      City(mLV::FieldIndex(rs, QStringLiteral("City"))), State(mLV::FieldIndex(rs, QStringLiteral("State"))),
      Zip(mLV::FieldIndex(rs, QStringLiteral("Zip"))),
      Comment(mLV::FieldIndex(rs, QStringLiteral("Comment"))),
      ContactNumber(mLV::FieldIndex(rs, QStringLiteral("ContactNumber"))),
      DateScan(mLV::FieldIndex(rs, QStringLiteral("DateScan"))),
      Box(mLV::FieldIndex(rs, QStringLiteral("Box"))) {
    for (int k = 0; k < 12; ++k) {
        T[k] = mLV::FieldIndex(rs, QStringLiteral("T%1").arg(k + 1));
        Number[k] = mLV::FieldIndex(rs, QStringLiteral("Number%1").arg(k + 1));
    }
}

void AddDriveRecord(ListView& ListView2, const dao::Recordset& rstWork, const ListFields& f) {
    HUNT_PLACE("mLV.AddDriveRecord(rstWork)");
    char digits[24];
    int length =
        std::snprintf(digits, sizeof digits, "ID%lld", static_cast<long long>(rstWork.LongAt(f.IDCD)));
    const QString key = QString::fromLatin1(digits, length);

    // Each cell is written straight into the row's text.
    ListRowCells& cells = f.Row;
    cells.Clear();
    QString& row = cells.Text();
    const auto textCell = [&](int field) {
        rstWork.AppendText(field, row);
        cells.EndCell();
    };
    textCell(f.FullName);
    textCell(f.Title);
    textCell(f.Company);
    textCell(f.Cat);
    textCell(f.Bor);
    if (rstWork.AppendText(f.Address, row)) mLV::JoinLines(row, cells.CellStart());
    cells.EndCell();
    textCell(f.City);
    textCell(f.State);
    textCell(f.Zip);
    if (rstWork.AppendText(f.Comment, row)) mLV::KeepFirstLine(row, cells.CellStart());
    cells.EndCell();
    const qint64 number = rstWork.LongAt(f.ContactNumber); // Null reads as 0
    if (number == 0) {
        row += kBlank;
    } else {
        length = std::snprintf(digits, sizeof digits, "%lld", static_cast<long long>(number));
        row += QLatin1String(digits, length);
    }
    cells.EndCell();
    // The date as TimeCorrectView shows it, written by the learnt shape where it can be. The
    // phonebook hands dates over as local wall times with the local offset of their hour, so
    // their own date and time are what the local time shows.
    QDate date;
    QTime time;
    if (rstWork.DateAt(f.DateScan, date, time)) f.Added.Append(date, time, row);
    if (row.size() == cells.CellStart()) row += mCommon::TimeCorrectView(rstWork.Value(f.DateScan));
    cells.EndCell();
    textCell(f.Box);

    // "Type: number", trimmed; most slots are empty and give an empty cell.
    for (int k = 0; k < 12; ++k) {
        if (!rstWork.IsNull(f.T[k])) {
            rstWork.AppendText(f.T[k], row);
            row += QLatin1Char(':');
        }
        row += QLatin1Char(' ');
        rstWork.AppendText(f.Number[k], row);
        mLV::TrimBlanks(row, cells.CellStart());
        cells.EndCell();
    }
    ListItem* item = ListView2.ListItems.Add(key, cells, QString(), kContactIcon);
    item->SetTag(kContactTag);
}

void AddDriveRecord(ListView& ListView2, const dao::Recordset& rstWork) {
    AddDriveRecord(ListView2, rstWork, ListFields(rstWork));
}

void FillDriveListCat(ListView& ListView2, const QString& NodeKey) {
    HUNT_PLACE("mLV.FillDriveListCat(NodeKey)", NodeKey);
    if (AdvancedCategoryMode || NodeKey == kRoot) return;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const QString table = mTV::TreeTable(mode);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT * From %1 Where %1.IDPARENT = %2").arg(table).arg(mCommon::GetID1(NodeKey)),
        dao::dbOpenSnapshot);
    const int id = mLV::FieldIndex(rs, QStringLiteral("ID"));
    const int name = mLV::FieldIndex(rs, QStringLiteral("Name"));
    const int comment = mLV::FieldIndex(rs, QStringLiteral("Comment"));
    ListUpdate block(ListView2);
    ListView2.ListItems.Clear();
    for (; !rs.AtEOF(); rs.MoveNext())
        addNodeRow(ListView2, QLatin1String("ID") + rs.Text(id) + QLatin1Char('E'), text(rs.Value(name)),
                   mode, rs.Value(comment));
    rs.Close();
}

void FillDriveList(ListView& ListView2, const QString& DType, const QString& CType) {
    HUNT_PLACE("mLV.FillDriveList(DType,CType)", DType, CType);
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const bool favorites = mode == 2;
    ListUpdate block(ListView2);
    ListView2.ListItems.Clear();
    FillDriveListCat(ListView2, CType);

    QString sql = ListQuery();
    if (DType == kAll && CType == kRoot) {
        if (favorites) sql += QLatin1String("WHERE IDB >=0");
    } else {
        sql += favorites ? QLatin1String("WHERE IDB >=0 AND ") : QLatin1String("WHERE ");
        const bool byNode = CType != kRoot;
        if (byNode) {
            const QString table = mTV::TreeTable(mode);
            const qint32 number = mCommon::GetID1(CType);
            if (AdvancedCategoryMode)
                sql += QStringLiteral(" %1.Pedigree Like '*ID%2E*'").arg(table).arg(number);
            else
                sql += QStringLiteral(" %1.ID = %2").arg(table).arg(number);
        }
        if (DType != kAll)
            sql += (byNode ? QLatin1String(" AND Label= '") : QLatin1String(" Label= '")) + DType +
                   QLatin1Char('\'');
    }

    {
        Hourglass busy;
        dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
        const ListFields fields(rs);
        for (; !rs.AtEOF(); rs.MoveNext())
            AddDriveRecord(ListView2, rs, fields);
        rs.Close();
    }
    block.end();
    // A fresh list has no selected row; the detail pane stays as the caller left it.
    clearSelection(ListView2);
    Call(mTV::Hooks().MenuNoBorrow);
}

QString NameOfLabel(const QString& label) {
    const qsizetype blank = label.lastIndexOf(QLatin1Char(' '));
    return blank < 0 ? label : label.left(blank);
}

void AddCatRecord(ListView& ListView2, const QString& pKey, const QString& pName) {
    HUNT_PLACE("mLV.AddCatRecord(pKey,pName)", pKey, pName);
    if (AdvancedCategoryMode || CurrentNodeKey == kRoot) return;
    const QString rowKey = pKey + QLatin1Char('E');
    if (ListView2.ListItems.Exists(rowKey)) return;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT Comment FROM %1 WHERE ID = %2")
                                              .arg(mTV::TreeTable(mode))
                                              .arg(mCommon::GetID1(pKey)),
                                          dao::dbOpenSnapshot);
    const QVariant comment = rs.AtEOF() ? QVariant() : rs.Value(0);
    rs.Close();
    addNodeRow(ListView2, rowKey, NameOfLabel(pName), mode, comment);
    clearSelection(ListView2);
}

void AddMissingCatRecords(ListView& ListView2, const TreeView& CatTree) {
    HUNT_PLACE("mLV.AddMissingCatRecords");
    const TreeNode* selected = CatTree.SelectedItem();
    if (!selected) return;
    for (const TreeNode* child = selected->Child(); child; child = child->Next()) {
        if (!ListView2.ListItems.Exists(child->Key() + QLatin1Char('E')))
            AddCatRecord(ListView2, child->Key(), child->Text());
    }
}

void AddDriveListPassive(ListView& ListView2, qint32 IDCD) {
    HUNT_PLACE("mLV.AddDriveListPassive(IDCD)", IDCD);
    dao::Recordset rs =
        gDB.OpenRecordset(ListQuery() + QStringLiteral("WHERE CDs.IDCD = %1").arg(IDCD), dao::dbOpenSnapshot);
    if (!rs.AtEOF()) AddDriveRecord(ListView2, rs);
    rs.Close();
    if (ListView2.Tag().isEmpty()) clearSelection(ListView2);
    Call(mTV::Hooks().MenuNoBorrow);
}

void AddDriveList(ListView& ListView2, TreeView& CatTree, const QString& NewDiskCat,
                  const QString& NewDiskBor, const QString& NewDiskBox, bool SelectDisk, qint32 pIDCD) {
    HUNT_PLACE("mLV.AddDriveList(NewDiskCat,NewDiskBor,NewDiskBox,SelectDisk,pIDCD)", NewDiskCat, NewDiskBor,
               NewDiskBox, SelectDisk, pIDCD);
    {
        dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT * From CDs WHERE IDCD = %1").arg(pIDCD));
        rs.Edit();
        rs.SetValue(QStringLiteral("IDC"), mCommon::GetID1(NewDiskCat));
        if (!NewDiskBor.isEmpty()) rs.SetValue(QStringLiteral("IDB"), mCommon::GetID1(NewDiskBor));
        if (!NewDiskBox.isEmpty()) rs.SetValue(QStringLiteral("IDX"), mCommon::GetID1(NewDiskBox));
        rs.Update();
        rs.Close();
    }

    // In view when the letter fits and the contact sits in the node in force of the tree on
    // display; in favorites only a favorite is in view, also at the root.
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const QString& nodeKey = mode == 0 ? NewDiskCat : mode == 1 ? NewDiskBox : NewDiskBor;
    QString label;
    bool inView = false;
    {
        Hourglass busy;
        dao::Recordset rs = gDB.OpenRecordset(ListQuery() + QStringLiteral("WHERE CDs.IDCD = %1").arg(pIDCD),
                                              dao::dbOpenSnapshot);
        if (rs.AtEOF()) return;
        label = text(rs[QStringLiteral("Label")]);
        const bool letterFits = CurrentLetter == kAll || label == CurrentLetter;
        const bool nodeFits = !(mode == 2 && nodeKey.isEmpty()) &&
                              (CurrentNodeKey == kRoot || IsWithinCategory2(CatTree, nodeKey, mode));
        inView = letterFits && nodeFits;
        if (inView) {
            AddMissingCatRecords(ListView2, CatTree);
            AddDriveRecord(ListView2, rs);
        }
        rs.Close();
    }

    const QString rowKey = QStringLiteral("ID%1").arg(pIDCD);
    if (inView) {
        Call(mTV::Hooks().UpdateCounters);
    } else {
        // Switch the view to the contact: its category, and its letter when the tab in force
        // does not show it.
        if (CurrentTreeTab != QLatin1String("Categories")) {
            CurrentTreeTab = QStringLiteral("Categories");
            Call(Hooks().ShowCurrentTree);
        }
        QString letter = CurrentLetter;
        if (letter != kAll && letter != label) letter = label.isEmpty() ? kAll : label;
        if (TreeNode* node = CatTree.Nodes(NewDiskCat); node && !node->Selected())
            CatTree.SetSelectedItem(node);
        Call(mTV::Hooks().CheckTab, letter, NewDiskCat, true);
    }

    ListItem* row = ListView2.ListItems(rowKey);
    if (!row) return;
    row->EnsureVisible();
    if (SelectDisk) {
        ListView2.SetSelectedItem(row);
        Call(mTV::Hooks().MenuNoBorrow);
        Call(Hooks().PreFillTree, rowKey);
    }
}

void UpdateCatInList(ListView& ListView2, const QString& pKey, const QString& pCatName) {
    HUNT_PLACE("mLV.UpdateCatInList(pKey,pCatName)", pKey, pCatName);
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const QString table = mTV::TreeTable(mode);
    QString sql =
        QStringLiteral("SELECT CDs.IDCD, %1.Catpath FROM CDs INNER JOIN %1 ON CDs.%2 = %1.ID WHERE ")
            .arg(table, mTV::TreeField(mode));
    if (AdvancedCategoryMode)
        sql += QStringLiteral("%1.Pedigree Like '*%2E*'").arg(table, pKey);
    else
        sql += QStringLiteral("CDs.%1=%2").arg(mTV::TreeField(mode)).arg(mCommon::GetID1(pKey));
    if (CurrentLetter != kAll) sql += QStringLiteral(" AND Label = '%1'").arg(CurrentLetter);
    const int cell = mode == 0 ? cellCategory : mode == 1 ? cellBox : cellFavorite;

    dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
    for (; !rs.AtEOF(); rs.MoveNext()) {
        if (ListItem* row = ListView2.ListItems(QLatin1String("ID") + rs.Text(0)))
            row->SetCellText(cell, text(rs.Value(1)));
    }
    rs.Close();
}

} // namespace mLV
