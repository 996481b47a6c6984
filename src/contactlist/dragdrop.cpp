#include "contactlist/dragdrop.h"

#include "contactlist/listfill.h"
#include "contactlist/listupdate.h"
#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "phonebook/contactquery.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/counters.h"
#include "trees/membership.h"
#include "trees/movecategory.h"
#include "trees/pedigree.h"
#include "trees/subtreemark.h"
#include "trees/treeselect.h"
#include "trees/treesort.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

namespace mLV {

namespace {

const QString kRoot = QStringLiteral("ID0");
const QString kOthers = QStringLiteral("ID1");

bool isNodeRow(const ListItem* row) {
    return row && row->Key().contains(QLatin1Char('E'));
}

QString keyOf(const TreeNode* node) {
    return node ? node->Key() : QString();
}

QString nodeKeyOfRow(const QString& rowKey) {
    return QString(rowKey).remove(QLatin1Char('E'));
}

void menuNoBorrow() {
    if (const auto& hook = mTV::Hooks().MenuNoBorrow) hook();
}

void clearListSelection(ListView& list) {
    if (list.ListItems.Count() > 0 && list.SelectedItem()) list.SetSelectedItem(nullptr);
}

// Moves the node of `key` under `target` in the tree control and sorts the tree again; the node
// in force stays selected.
void moveNodeInTree(TreeView& tree, const QString& key, const QString& target) {
    TreeNode* node = tree.Nodes(key);
    TreeNode* parent = tree.Nodes(target);
    if (!node || !parent) return;
    const QString selected = keyOf(tree.SelectedItem());
    tree.setUpdatesEnabled(false);
    node->SetParent(parent);
    tree.setUpdatesEnabled(true);
    mTV::SortTreeByName(tree);
    if (TreeNode* again = tree.Nodes(selected)) tree.SetSelectedItem(again);
}

void dropTreeNode(const mTV::MainView& view, const QString& target, const QString& selected) {
    TreeView& tree = view.CatTree;
    const QString dragKey = Drag().DragKey;
    TreeNode* node = tree.Nodes(dragKey);
    if (!node || !node->Parent()) return;
    const QString oldParent = node->Parent()->Key();
    // In the advanced mode the list shows the subtree of the node in force: the moved contacts
    // leave it when the node came from inside that subtree and goes outside, and come into it the
    // other way round.
    bool intoView = false;
    if (AdvancedCategoryMode && selected != dragKey) {
        const bool wasInView = mTV::SelfParent(tree, selected, dragKey);
        intoView = mTV::SelfParent(tree, selected, target);
        if (wasInView && !intoView) {
            if (view.ListView2.ListItems.Count() > 0) DiskMigration(view, dragKey, true);
            mTV::CatTreeChangeNonSelectedIcon(node, false);
        } else if (intoView && !wasInView) {
            DiskMigration(view, dragKey, false);
            mTV::CatTreeChangeNonSelectedIcon(node, true);
        }
    }
    MoveCategory(oldParent, target, dragKey + QLatin1Char('E'));
    const QString name = NameOfLabel(node->Text());
    if (AdvancedCategoryMode && selected != dragKey && intoView)
        UpdateCatInList(view.ListView2, dragKey, name);
    if (!AdvancedCategoryMode && oldParent == selected && oldParent != kRoot) {
        const QString rowKey = dragKey + QLatin1Char('E');
        if (ListItem* row = view.ListView2.ListItems(rowKey)) {
            if (row->Selected()) clearListSelection(view.ListView2);
            view.ListView2.ListItems.Remove(rowKey);
        }
    }
    // The node in force moved along (itself or inside the moved subtree): its rows show new paths.
    if (const TreeNode* inForce = tree.Nodes(selected); inForce && mTV::SelfParent(tree, dragKey, selected))
        UpdateCatInList(view.ListView2, selected, NameOfLabel(inForce->Text()));
    if (target == selected) AddCatRecord(view.ListView2, dragKey, node->Text());
    moveNodeInTree(tree, dragKey, target);
}

void dropNodeRow(const mTV::MainView& view, const QString& rowKey, const QString& target,
                 const QString& selected) {
    MoveCategory(selected, target, rowKey);
    moveNodeInTree(view.CatTree, nodeKeyOfRow(rowKey), target);
    if (CurrentDiskKey == rowKey) CurrentDiskKey.clear();
    clearListSelection(view.ListView2);
    view.ListView2.ListItems.Remove(rowKey);
}

void dropContacts(const mTV::MainView& view, const QString& target, const QString& selected, qint16 mode) {
    ListView& list = view.ListView2;
    const qint32 n = mCommon::GetID1(target);
    const QString field = mode == 1 ? QStringLiteral("IDX") : QStringLiteral("IDC");
    const int cell = mode == 1 ? cellBox : cellCategory;
    QStringList keys;
    for (const ListItem* row : list.SelectedItems())
        if (!isNodeRow(row)) keys << row->Key();
    struct Moved {
        QString key;
        qint32 id;
        bool stays;
    };
    std::vector<Moved> moved;
    {
        dao::Transaction trans(gWS);
        for (const QString& key : keys) {
            const qint32 c = mCommon::GetID1(key);
            const bool within = IsWithinCategory(view.CatTree, n, c);
            gDB.Execute(QStringLiteral("UPDATE CDs SET %1 = %2 WHERE IDCD = %3").arg(field).arg(n).arg(c));
            moved.push_back({key, c, selected == kRoot || within});
        }
        trans.Commit();
    }
    const QString path = mTV::GetCBName(n, mode);
    for (const Moved& m : moved) {
        ListItem* row = list.ListItems(m.key);
        if (!row) continue;
        if (m.stays) {
            row->SetCellText(cell, path);
            continue;
        }
        if (list.Tag() == QString::number(m.id)) {
            CurrentDiskKey.clear();
            mTV::ClearDetailPane(view);
        }
        clearListSelection(list);
        list.ListItems.Remove(m.key);
    }
}

} // namespace

DragState& Drag() {
    static DragState state;
    return state;
}

void CatTreeMouseDown(const mTV::MainView& view, Qt::MouseButton Button, const QPoint& pos) {
    if (Button != Qt::LeftButton) return;
    if (const TreeNode* node = view.CatTree.HitTest(pos)) Drag().DragKey = node->Key();
}

bool CatTreeOLEStartDrag(const mTV::MainView&, int& AllowedEffects) {
    HUNT_PLACE("Form1.CatTree_OLEStartDrag");
    const QString& key = Drag().DragKey;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    if (key.isEmpty() || key == kRoot || (key == kOthers && mode != 2)) {
        AllowedEffects = dragNone;
        return false;
    }
    Drag().DragFromTree = true;
    AllowedEffects = dragMove;
    Drag().TreeAcceptsDrops = !gRestricted;
    return true;
}

void ListView2MouseDown(const mTV::MainView& view) {
    const ListItem* row = view.ListView2.SelectedItem();
    CurrentDiskKey = row ? row->Key() : QString();
}

void ListView2OLEStartDrag(const mTV::MainView&, int& AllowedEffects) {
    HUNT_PLACE("Form1.ListView2_OLEStartDrag");
    Drag().DragFromTree = false;
    AllowedEffects = dragMove;
    Drag().TreeAcceptsDrops = !gRestricted;
}

void CatTreeOLEDragOver(const mTV::MainView& view, int& Effect, const QPoint& pos, int State) {
    TreeView& tree = view.CatTree;
    if (State & dragLeave) {
        tree.SetDropHighlight(nullptr);
        Effect = dragNone;
        return;
    }
    if (Effect == dragNone) return;
    TreeNode* hit = tree.HitTest(pos);
    if (!hit) {
        Effect = dragNone;
        return;
    }
    tree.SetDropHighlight(hit);
    const QString target = hit->Key();
    const qint16 mode = mToolBar::WhatCATIsChecked();
    bool allowed = false;
    if (Drag().DragFromTree) {
        const TreeNode* dragged = tree.Nodes(Drag().DragKey);
        const QString parent = dragged ? keyOf(dragged->Parent()) : QString();
        allowed = dragged && mode < 2 && target != parent && !mTV::SelfParent(tree, Drag().DragKey, target);
    } else {
        const ListItem* row = view.ListView2.SelectedItem();
        const bool nodeRow = isNodeRow(row);
        const QString selected = keyOf(tree.SelectedItem());
        allowed = row && (target != selected || (!nodeRow && AdvancedCategoryMode)) &&
                  (target != kRoot || nodeRow) && mode < 2;
        if (allowed && nodeRow) allowed = !mTV::SelfParent(tree, nodeKeyOfRow(row->Key()), target);
    }
    if (!allowed) Effect = dragNone;
}

void CatTreeOLEDragDrop(const mTV::MainView& view, int& Effect) {
    HUNT_PLACE("Form1.CatTree_OLEDragDrop");
    Effect = dragNone;
    TreeView& tree = view.CatTree;
    const TreeNode* hit = tree.DropHighlight();
    if (!hit) return;
    const QString target = hit->Key();
    tree.SetDropHighlight(nullptr);
    const QString selected = keyOf(tree.SelectedItem());
    const qint16 mode = mToolBar::WhatCATIsChecked();
    if (Drag().DragFromTree) {
        dropTreeNode(view, target, selected);
    } else if (const ListItem* row = view.ListView2.SelectedItem()) {
        if (isNodeRow(row))
            dropNodeRow(view, row->Key(), target, selected);
        else
            dropContacts(view, target, selected, mode);
    }
    mTV::UpdateCounters(tree);
}

void CatTreeOLECompleteDrag(const mTV::MainView& view) {
    view.CatTree.SetDropHighlight(nullptr);
    Drag().TreeAcceptsDrops = false;
}

void ListView2OLECompleteDrag(const mTV::MainView& view, int Effect) {
    if (Effect < 1 && !CurrentDiskKey.isEmpty())
        if (ListItem* row = view.ListView2.ListItems(CurrentDiskKey)) view.ListView2.SetSelectedItem(row);
    CurrentDiskKey.clear();
    Drag().TreeAcceptsDrops = false;
    menuNoBorrow();
}

void DiskMigration(const mTV::MainView& view, const QString& pKey, bool pRemove) {
    HUNT_PLACE("Form1.DiskMigration(pKey,pRemove)", pKey, pRemove);
    ListView& list = view.ListView2;
    const qint16 mode = mToolBar::WhatCATIsChecked();
    QString sql =
        ListQuery() + QStringLiteral("WHERE %1.Pedigree Like '*%2E*'").arg(mTV::TreeTable(mode), pKey);
    if (CurrentLetter != QLatin1String("ALL")) sql += QStringLiteral(" AND Label = '%1'").arg(CurrentLetter);
    ListUpdate block(list);
    dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
    const ListFields fields(rs);
    for (; !rs.AtEOF(); rs.MoveNext()) {
        const QString key = QLatin1String("ID") + rs.Text(fields.IDCD);
        if (pRemove) {
            ListItem* row = list.ListItems(key);
            if (!row) continue;
            if (row->Selected() && !list.Tag().isEmpty()) {
                mTV::ClearDetailPane(view);
                clearListSelection(list);
            }
            list.ListItems.Remove(key);
        } else if (!list.ListItems.Exists(key)) {
            AddDriveRecord(list, rs, fields);
        }
    }
    rs.Close();
    block.end();
    if (!pRemove && list.ListItems.Count() > 0) clearListSelection(list);
}

} // namespace mLV
