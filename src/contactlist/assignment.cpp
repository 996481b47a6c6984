#include "contactlist/assignment.h"

#include "contactlist/listfill.h"
#include "core/error.h"
#include "core/globals.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "support/helpers/values.h"
#include "trees/counters.h"
#include "trees/membership.h"
#include "trees/pedigree.h"
#include "trees/subtreemark.h"
#include "trees/treefill.h"
#include "trees/treeselect.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

namespace mCommon {

namespace {

const QString kAll = QStringLiteral("ALL");
const QString kRoot = QStringLiteral("ID0");

template <class F, class... A> void Call(const F& hook, A&&... args) {
    if (hook) hook(std::forward<A>(args)...);
}

QString NodeKey(const QVariant& id) {
    return QLatin1String("ID") + QString::number(id.toLongLong());
}

void StoreNode(const char* field, const QString& number, qint32 pIDCD) {
    gDB.Execute(QStringLiteral("UPDATE CDs SET %1 = %2 WHERE IDCD = %3")
                    .arg(QLatin1String(field), number)
                    .arg(pIDCD));
}

// The key of the node in force: the tree's selection, or the view state while nothing is selected.
QString SelectedNodeKey(const TreeView& CatTree) {
    const TreeNode* node = CatTree.SelectedItem();
    return node ? node->Key() : CurrentNodeKey;
}

// The path a row shows for node Key of tree `mode`; "" for no node.
QString PathOf(const QString& Key, qint16 mode) {
    return Key.isEmpty() ? QString() : mTV::GetCBName(GetID1(Key), mode);
}

} // namespace

void IniDiskCatParams(QString& DType, QString& OldDiskCat, QString& NewDiskCat, QString& OldDiskBor,
                      QString& NewDiskBor, QString& OldDiskBox, QString& NewDiskBox, qint32 pIDCD) {
    HUNT_PLACE(
        "mCommon.IniDiskCatParams(DType,OldDiskCat,NewDiskCat,OldDiskBor,NewDiskBor,OldDiskBox,NewDiskBox,"
        "pIDCD)",
        DType, OldDiskCat, NewDiskCat, OldDiskBor, NewDiskBor, OldDiskBox, NewDiskBox, pIDCD);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT *, Label AS DType  FROM CDs WHERE IDCD = %1").arg(pIDCD), dao::dbOpenSnapshot);
    if (rs.AtEOF()) {
        rs.Close();
        return;
    }
    DType = Nz(rs[QStringLiteral("DType")], QVariant(QString())).toString();
    const QVariant idb = rs[QStringLiteral("IDB")];
    // -1 (or nothing at all) is no favorites folder.
    OldDiskBor = NewDiskBor = idb.isNull() || idb.toLongLong() == -1 ? QString() : NodeKey(idb);
    OldDiskCat = NewDiskCat = NodeKey(rs[QStringLiteral("IDC")]);
    OldDiskBox = NewDiskBox = NodeKey(rs[QStringLiteral("IDX")]);
    rs.Close();
}

void UpdateGlobalInfo(const mTV::MainView& view, const QString& DType, const QString& OldDType,
                      const QString& OldDiskCat, const QString& NewDiskCat, const QString& OldDiskBor,
                      const QString& NewDiskBor, const QString& OldDiskBox, const QString& NewDiskBox,
                      qint32 pIDCD) {
    HUNT_PLACE(
        "mCommon.UpdateGlobalInfo(DType,OldDType,OldDiskCat,NewDiskCat,OldDiskBor,NewDiskBor,OldDiskBox,"
        "NewDiskBox,pIDCD)",
        DType, OldDType, OldDiskCat, NewDiskCat, OldDiskBor, NewDiskBor, OldDiskBox, NewDiskBox, pIDCD);
    const bool catChanged = NewDiskCat != OldDiskCat;
    const bool boxChanged = NewDiskBox != OldDiskBox;
    const bool borChanged = NewDiskBor != OldDiskBor;
    if (catChanged) StoreNode("IDC", QString::number(GetID1(NewDiskCat)), pIDCD);
    if (boxChanged) StoreNode("IDX", QString::number(GetID1(NewDiskBox)), pIDCD);
    if (borChanged)
        StoreNode("IDB", NewDiskBor.isEmpty() ? QStringLiteral("-1") : QString::number(GetID1(NewDiskBor)),
                  pIDCD);

    // Whether the list of the tree on display shows the contact with this letter and node: the
    // letter tab must fit, the node must be the one in force or (in the advanced mode) lie under
    // it, and among the favorites only a favorite is shown, at the root too.
    TreeView& tree = view.CatTree;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const bool atRoot = SelectedNodeKey(tree) == kRoot;
    const auto shown = [&](const QString& letter, const QString& key) {
        if (CurrentLetter != kAll && CurrentLetter != letter) return false;
        if (mode == 2 && key.isEmpty()) return false;
        return atRoot || mLV::IsWithinCategory2(tree, key, mode);
    };
    const QString& oldKey = mode == 0 ? OldDiskCat : mode == 1 ? OldDiskBox : OldDiskBor;
    const QString& newKey = mode == 0 ? NewDiskCat : mode == 1 ? NewDiskBox : NewDiskBor;
    const bool wasShown = shown(OldDType, oldKey);
    const bool isShown = shown(DType, newKey);

    ListView& list = view.ListView2;
    const QString rowKey = QLatin1String("ID") + QString::number(pIDCD);
    if (!wasShown && isShown) {
        if (!list.ListItems.Exists(rowKey)) mLV::AddDriveListPassive(list, pIDCD);
        mTV::UpdateCounters(tree);
        return;
    }
    if (wasShown && !isShown) {
        // The contact leaves the list: so does it leave the detail pane.
        if (!list.Tag().isEmpty() && list.Tag().toLongLong() == pIDCD) {
            CurrentDiskKey.clear();
            mTV::ClearDetailPane(view);
            if (list.ListItems.Count() > 0) {
                if (ListItem* selected = list.SelectedItem()) selected->SetSelected(false);
                list.SetSelectedItem(nullptr);
            }
        }
        list.ListItems.Remove(rowKey);
        mTV::UpdateCounters(tree);
        // The row may have been selected without being in the pane (a right click).
        Call(mTV::Hooks().MenuNoBorrow);
        return;
    }
    if (wasShown && isShown) {
        if (ListItem* row = list.ListItems(rowKey)) {
            if (catChanged) row->SetCellText(mLV::cellCategory, PathOf(NewDiskCat, 0));
            if (boxChanged) row->SetCellText(mLV::cellBox, PathOf(NewDiskBox, 1));
            if (borChanged) row->SetCellText(mLV::cellFavorite, PathOf(NewDiskBor, 2));
        }
        mTV::UpdateCounters(tree);
        Call(mTV::Hooks().MenuNoBorrow);
        return;
    }
    mTV::UpdateCounters(tree);
}

void UpdateMainCatTree(TreeView& CatTree, bool AddCat, bool AddBor, bool AddBox) {
    HUNT_PLACE("mCommon.UpdateMainCatTree(AddCat,AddBor,AddBox)", AddCat, AddBor, AddBox);
    const QString key = SelectedNodeKey(CatTree);
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const bool grown = mode == 0 ? AddCat : mode == 1 ? AddBox : AddBor;
    if (!grown) return;
    mTV::CategoryFill(mTV::TreeForm{CatTree, true}, mode);
    // The fill leaves the root selected and in force; the node of before comes back.
    TreeNode* node = CatTree.Nodes(key);
    if (!node) return;
    CatTree.SetSelectedItem(node);
    node->EnsureVisible();
    CurrentNodeKey = key;
    if (AdvancedCategoryMode) mTV::CatTreeChangeNonSelectedIcon(node, true);
}

} // namespace mCommon
