#include "trees/movecategory.h"

#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/viewstate.h"

namespace mLV {

void MoveCategory(const QString& pFrom, const QString& pTo, const QString& pThis) {
    HUNT_PLACE("mLV.MoveCategory(pFrom,pTo,pThis)", pFrom, pTo, pThis);
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const QString table = mTV::TreeTable(mode);
    const qint32 fromID = mCommon::GetID1(pFrom);
    const qint32 toID = mCommon::GetID1(pTo);
    const QString fromMark = pFrom + QLatin1Char('E');

    dao::Transaction trans(gWS);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral("SELECT Pedigree From %1 WHERE ID = %2").arg(table).arg(toID), dao::dbOpenSnapshot);
    const QString prefix = rs[QStringLiteral("Pedigree")].toString();
    rs.Close();

    rs = gDB.OpenRecordset(QStringLiteral("SELECT * From %1 WHERE Pedigree Like '*%2*'").arg(table, pThis),
                           dao::dbOpenDynaset);
    while (!rs.AtEOF()) {
        rs.Edit();
        // Only the moved node points to the old parent; its children keep pointing to it.
        if (rs[QStringLiteral("IDPARENT")].toInt() == fromID) rs.SetValue(QStringLiteral("IDPARENT"), toID);
        const QString pedigree = rs[QStringLiteral("Pedigree")].toString();
        const int at = pedigree.indexOf(fromMark);
        if (at < 0)
            throw HuntERR::Error(
                5, QStringLiteral("Node %1 does not lie under %2: %3").arg(pThis, pFrom, pedigree));
        const QString moved = prefix + pedigree.mid(at + fromMark.size());
        rs.SetValue(QStringLiteral("Pedigree"), moved);
        rs.SetValue(QStringLiteral("Catpath"), UpdateCatPath(moved, mode));
        rs.Update();
        rs.MoveNext();
    }
    trans.Commit();
    rs.Close();
}

} // namespace mLV

namespace mTV {

bool SelfParent(const TreeView& CatTree, const QString& pSelf, const QString& pDrop) {
    HUNT_PLACE("mTV.SelfParent(pSelf,pDrop)", pSelf, pDrop);
    for (const TreeNode* node = CatTree.Nodes(pDrop); node; node = node->Parent()) {
        if (node->Key() == QLatin1String("ID0")) return false;
        if (node->Key() == pSelf) return true;
    }
    return false;
}

} // namespace mTV
