#include "trees/catproperties.h"

#include "core/error.h"
#include "core/language.h"
#include "core/seams.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/form20.h"
#include "trees/viewstate.h"

using namespace mLanguageGobals;

namespace {

// Opens the dialog for node pID (-1: a new node) of the tree on display and releases it after.
void ShowNodeDialog(const mTV::MainView& view, qint32 pID, bool pFromDiskList) {
    QWidget* owner = view.CatTree.window();
    Form20 frm(view, pID, mToolBar::WhatCATIsChecked(), pFromDiskList, owner);
    ShowModal(&frm, owner);
}

} // namespace

namespace mCommon {

void GetCatProperties(const mTV::MainView& view, qint32 pID, bool pFromDiskList) {
    HUNT_PLACE("mCommon.GetCatProperties(pID,pFromDiskList)", pID, pFromDiskList);
    ShowNodeDialog(view, pID, pFromDiskList);
}

} // namespace mCommon

namespace mTV {

void mnuCategoryAdd(const MainView& view) {
    HUNT_PLACE("mTV.mnuCategoryAdd");
    ShowNodeDialog(view, -1, false);
}

void mnuCategoryProperties(const MainView& view) {
    HUNT_PLACE("mTV.mnuCategoryProperties");
    const TreeNode* node = view.CatTree.SelectedItem();
    if (!node) return;
    mCommon::GetCatProperties(view, mCommon::GetID1(node->Key()), false);
}

void DiskListCategoryProperties(const MainView& view) {
    HUNT_PLACE("mTV.DiskListCategoryProperties");
    const ListItem* row = view.ListView2.SelectedItem();
    // A node row has the key "ID" + number + "E" and the Tag "a".
    if (!row || row->Tag() != QLatin1String("a")) return;
    QString key = row->Key();
    key.remove(QLatin1Char('E'));
    mCommon::GetCatProperties(view, mCommon::GetID1(key), true);
}

} // namespace mTV
