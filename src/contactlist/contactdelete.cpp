#include "contactlist/contactdelete.h"

#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "preferences/preferences.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/counters.h"
#include "trees/deletecd.h"
#include "trees/treedelete.h"
#include "trees/treeselect.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

using namespace mLanguageGobals;

namespace {

bool isNodeRow(const ListItem* row) {
    return row && row->Key().contains(QLatin1Char('E'));
}

} // namespace

namespace mAccess {

void PreDeleteCD(const mTV::MainView& view, bool fromTab) {
    HUNT_PLACE("mAccess.PreDeleteCD(fromTab)", fromTab);
    ListView& list = view.ListView2;
    ListItem* row = list.SelectedItem();
    if (!row || isNodeRow(row)) return;
    if (DeleteDiskWarning && MsgBox(msgReallyDeleteSelectedContact, vb::vbYesNo | vb::vbDefaultButton2,
                                    vb::vbExclamation) != vb::vbYes)
        return;
    const QString key = row->Key();
    const qint32 number = mCommon::GetID1(key);
    {
        dao::Transaction trans(gWS);
        DeleteCD(number, -1);
        trans.Commit();
    }

    // The controls follow once the phonebook holds the change.
    list.SetSelectedItem(nullptr);
    if (const auto& hook = mTV::Hooks().MenuNoBorrow) hook();
    const bool shown = list.Tag() == QString::number(number);
    list.ListItems.Remove(key);
    if (key == CurrentDiskKey || fromTab || shown) {
        CurrentDiskKey.clear();
        mTV::ClearDetailPane(view);
    }
    mTV::UpdateCounters(view.CatTree);
}

} // namespace mAccess

namespace mCommon {

void DeleteFromList(const mTV::MainView& view) {
    HUNT_PLACE("mCommon.DeleteFromList");
    const ListItem* row = view.ListView2.SelectedItem();
    if (!row) return;
    if (isNodeRow(row))
        mTV::CatTreeDelete(view.CatTree, true, false);
    else
        mAccess::PreDeleteCD(view, false);
}

void DeleteFromTab(const mTV::MainView& view, bool treeHasFocus, bool fromTab) {
    HUNT_PLACE("mCommon.DeleteFromTab(fromTab)", fromTab);
    const ListItem* row = view.ListView2.SelectedItem();
    if (treeHasFocus || !row) {
        mTV::CatTreeDelete(view.CatTree, false, fromTab);
    } else if (isNodeRow(row)) {
        mTV::CatTreeDelete(view.CatTree, true, fromTab);
    } else {
        mAccess::PreDeleteCD(view, fromTab);
    }
}

} // namespace mCommon
