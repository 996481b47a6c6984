#include "contactlist/checktab.h"

#include "contactlist/listfill.h"
#include "contactlist/listhooks.h"
#include "contactlist/listsort.h"
#include "core/commandids.h"
#include "core/error.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/counters.h"
#include "trees/subtreemark.h"
#include "trees/treeselect.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

namespace {

const QString kAll = QStringLiteral("ALL");
const QString kRoot = QStringLiteral("ID0");

template <class F, class... A> void Call(const F& hook, A&&... args) {
    if (hook) hook(std::forward<A>(args)...);
}

bool IsNodeRow(const QString& key) {
    return key.contains(QLatin1Char('E'));
}

bool HasRow(const QString& jetSql) {
    dao::Recordset rs = gDB.OpenRecordset(jetSql, dao::dbOpenSnapshot);
    const bool found = !rs.AtEOF();
    rs.Close();
    return found;
}

// The fresh list goes in the order in force: the sort toggles the order of a column sorted a
// second time, so the order is turned round first.
void Resort(ListView& ListView2) {
    ListView2.SetSortOrder(ListView2.SortOrder() == lvwAscending ? lvwDescending : lvwAscending);
    mLV::SwitchSortDisk(ListView2, ListView2.SortKey(), false);
}

// Whether contact IDCD is still in the list once letter Key and node CKey are in force.
bool ContactStays(qint32 IDCD, const QString& Key, const QString& CKey) {
    if (Key != CurrentLetter && Key != kAll) {
        dao::Recordset rs = gDB.OpenRecordset(
            QStringLiteral("SELECT Label AS DType From CDs WHERE IDCD = %1").arg(IDCD), dao::dbOpenSnapshot);
        const bool same = !rs.AtEOF() && rs.Text(0) == Key;
        rs.Close();
        if (!same) return false;
    }
    if (CKey != CurrentNodeKey && CKey != kRoot) {
        const qint16 mode = mToolBar::WhatCATIsChecked();
        const QString table = mTV::TreeTable(mode), field = mTV::TreeField(mode);
        const qint32 node = mCommon::GetID1(CKey);
        if (AdvancedCategoryMode)
            return HasRow(
                QStringLiteral("SELECT CDs.IDCD, %1.Pedigree FROM CDs INNER JOIN %1 ON CDs.%2 = %1.ID "
                               "WHERE CDs.IDCD = %3 AND %1.Pedigree Like '*ID%4E*'")
                    .arg(table, field)
                    .arg(IDCD)
                    .arg(node));
        return HasRow(QStringLiteral("SELECT CDs.IDCD, CDs.%1 From CDs WHERE CDs.%1 = %2 AND CDs.IDCD = %3")
                          .arg(field)
                          .arg(node)
                          .arg(IDCD));
    }
    return true;
}

qint16 ModeOfTab(const QString& Key) {
    if (Key == QLatin1String("Categories")) return 0;
    if (Key == QLatin1String("Boxes")) return 1;
    return 2;
}

// Selects the row `key` again and scrolls it into view; false when the list has no such row.
bool Reselect(ListView& ListView2, const QString& key) {
    ListItem* row = key.isEmpty() ? nullptr : ListView2.ListItems(key);
    if (!row) return false;
    ListView2.SetSelectedItem(row);
    row->EnsureVisible();
    return true;
}

} // namespace

namespace mToolBar {

void CheckTab(const mTV::MainView& view, const QString& Key, const QString& CKey, bool ForceUpdate,
              bool IsSelected) {
    HUNT_PLACE("mToolBar.CheckTab(Key,CKey,ForceUpdate,IsSelected)", Key, CKey, ForceUpdate, IsSelected);
    if (!ForceUpdate && Key == CurrentLetter && CKey == CurrentNodeKey) return;
    TreeView& tree = view.CatTree;
    ListView& list = view.ListView2;

    if (AdvancedCategoryMode) {
        mTV::CatTreeRestoreNonSelectedIcon(tree.Nodes(kRoot), CKey);
        mTV::CatTreeChangeNonSelectedIcon(tree.Nodes(CKey), true);
    }

    QString staying;
    if (!ForceUpdate) {
        const ListItem* row = list.SelectedItem();
        if (row && !IsNodeRow(row->Key()) && ContactStays(mCommon::GetID1(row->Key()), Key, CKey))
            staying = row->Key();
    }

    CurrentLetter = Key;
    CurrentNodeKey = CKey;
    mLV::FillDriveList(list, CurrentLetter, CurrentNodeKey);
    Resort(list);

    if (!IsSelected || !Reselect(list, staying)) mTV::ClearDetailPane(view);
    Call(mTV::Hooks().MenuNoBorrow);
    mTV::UpdateCounters(tree);
}

void CheckCBTab(const mTV::MainView& view, const QString& Key) {
    HUNT_PLACE("mToolBar.CheckCBTab(Key)", Key);
    const qint16 mode = ModeOfTab(Key);
    Call(mTV::Hooks().CategoryCaption, mode);
    ListView& list = view.ListView2;

    QString staying;
    if (const ListItem* row = list.SelectedItem(); row && !IsNodeRow(row->Key())) {
        staying = row->Key();
        if (mode == 2 &&
            !HasRow(QStringLiteral("SELECT CDs.IDCD, CDs.IDB From CDs WHERE CDs.IDB >= 0 AND CDs.IDCD = %1")
                        .arg(mCommon::GetID1(staying))))
            staying.clear();
    }

    CurrentNodeKey = kRoot;
    CurrentTreeTab = Key;
    mLV::FillDriveList(list, CurrentLetter, CurrentNodeKey);
    Resort(list);
    if (!Reselect(list, staying)) mTV::ClearDetailPane(view);
    Call(mTV::Hooks().MenuNoBorrow);
}

} // namespace mToolBar

namespace mLV {

void SwitchCategoryMode(const mTV::MainView& view, bool NormalMode) {
    HUNT_PLACE("mLV.SwitchCategoryMode(NormalMode)", NormalMode);
    Call(Hooks().SetCommandChecked, int(cmd::CategoryModeNormal), NormalMode);
    Call(Hooks().SetCommandChecked, int(cmd::CategoryModeAdvanced), !NormalMode);
    CategoryNormalMode = NormalMode;
    SaveSetting(AppTitle(), QStringLiteral("PreferencesNew"), QStringLiteral("CategoryNormalMode"),
                NormalMode);
    AdvancedCategoryMode = !NormalMode;
    // At the root both modes list the same contacts.
    TreeNode* selected = view.CatTree.SelectedItem();
    if (!selected || selected->Key() == kRoot) return;
    mTV::CatTreeChangeNonSelectedIcon(selected, AdvancedCategoryMode);
    mToolBar::CheckTab(view, CurrentLetter, CurrentNodeKey, true);
}

} // namespace mLV
