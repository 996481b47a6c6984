#include "trees/membership.h"

#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/viewstate.h"

namespace mLV {

namespace {

// Key of the selected node with its "E", "" when nothing is selected.
QString SelectedMark(const TreeView& CatTree) {
    const TreeNode* node = CatTree.SelectedItem();
    return node ? node->Key() + QLatin1Char('E') : QString();
}

// The first field of the first row, as text; "" when there is no row.
QString FirstText(const QString& jetSql) {
    dao::Recordset rs = gDB.OpenRecordset(jetSql, dao::dbOpenSnapshot);
    const QString text = rs.AtEOF() ? QString() : rs.Text(0);
    rs.Close();
    return text;
}

QString NodePedigree(qint32 ID, const QString& table) {
    return FirstText(QStringLiteral("SELECT %1.Pedigree, %1.ID From %1 WHERE %1.ID=%2").arg(table).arg(ID));
}

bool Holds(const QString& pedigree, const QString& mark) {
    return !mark.isEmpty() && pedigree.contains(mark);
}

} // namespace

bool IsWithinCategory(const TreeView& CatTree, qint32 pCategoryID, qint32 pIDCD) {
    HUNT_PLACE("mLV.IsWithinCategory(pCategoryID,pIDCD)", pCategoryID, pIDCD);
    if (!AdvancedCategoryMode) return false;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    const QString table = mTV::TreeTable(mode);
    dao::Recordset rs = gDB.OpenRecordset(
        QStringLiteral(
            "SELECT CDs.IDCD, %1.Pedigree FROM CDs INNER JOIN %1 ON CDs.%2 = %1.ID WHERE CDs.IDCD=%3")
            .arg(table, mTV::TreeField(mode))
            .arg(pIDCD),
        dao::dbOpenSnapshot);
    const QString present = rs.AtEOF() ? QString() : rs[QStringLiteral("Pedigree")].toString();
    rs.Close();
    const QString mark = SelectedMark(CatTree);
    return Holds(present, mark) && Holds(NodePedigree(pCategoryID, table), mark);
}

bool IsWithinCategory2(const TreeView& CatTree, const QString& pCategoryKey, qint16 mode) {
    HUNT_PLACE("mLV.IsWithinCategory2(pCategoryKey,mode)", pCategoryKey, mode);
    if (pCategoryKey.isEmpty()) return false;
    if (AdvancedCategoryMode)
        return Holds(NodePedigree(mCommon::GetID1(pCategoryKey), mTV::TreeTable(mode)),
                     SelectedMark(CatTree));
    const TreeNode* selected = CatTree.SelectedItem();
    return selected && selected->Key() == pCategoryKey;
}

bool IsWithinCategory3(const TreeView& CatTree, const QString& pOldCategoryKey,
                       const QString& pNewCategoryKey, qint16 mode) {
    HUNT_PLACE("mLV.IsWithinCategory3(pOldCategoryKey,pNewCategoryKey,mode)", pOldCategoryKey,
               pNewCategoryKey, mode);
    if (!AdvancedCategoryMode || pOldCategoryKey.isEmpty() || pNewCategoryKey.isEmpty()) return false;
    const QString table = mTV::TreeTable(mode);
    const QString mark = SelectedMark(CatTree);
    return Holds(NodePedigree(mCommon::GetID1(pOldCategoryKey), table), mark) &&
           Holds(NodePedigree(mCommon::GetID1(pNewCategoryKey), table), mark);
}

} // namespace mLV
