// The commands that change what the main window shows: tree tabs, letters, refresh, the category
// mode and the arrangement of the list, and the contact commands that open the card or change a
// contact's favorites.
#include "card/cardentries.h"
#include "contactlist/checktab.h"
#include "contactlist/favorites.h"
#include "contactlist/listsort.h"
#include "core/commandids.h"
#include "core/error.h"
#include "core/globals.h"
#include "mainwindow/form1.h"
#include "preferences/preferences.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/catproperties.h"
#include "trees/mainview.h"
#include "trees/treefill.h"
#include "trees/viewstate.h"

namespace {

const QString kRoot = QStringLiteral("ID0");
const QString kCategories = QStringLiteral("Categories");

qint16 modeOfTab(const QString& tab) {
    if (tab == QLatin1String("Categories")) return 0;
    if (tab == QLatin1String("Boxes")) return 1;
    return 2;
}

bool isTreeTab(const QString& key) {
    return key == QLatin1String("Categories") || key == QLatin1String("Boxes") ||
           key == QLatin1String("Borrows");
}

// The data behind the view is there to show.
bool phonebookOpen() {
    return gDBOpen && !gNotConnected;
}

} // namespace

void Form1::tickCategoryMode() {
    CommandBars1->FindAction(cmd::CategoryModeNormal)->SetChecked(!AdvancedCategoryMode);
    CommandBars1->FindAction(cmd::CategoryModeAdvanced)->SetChecked(AdvancedCategoryMode);
}

void Form1::IniToolBar2() {
    HUNT_PLACE("mToolBar.IniToolBar2");
    CurrentTreeTab = kCategories;
    CurrentLetter = QStringLiteral("ALL");
    CurrentNodeKey = kRoot;
    CurrentDiskKey.clear();
    GroupChange(cmd::TabCategories);
    GroupChange(cmd::LetterAll);
    AdvancedCategoryMode = !CategoryNormalMode;
    tickCategoryMode();
    mCommon::CategoryCaption(0);
    mTV::CategoryFill(mTV::TreeForm{*CatTree, true}, 0);
}

void Form1::ShowPhonebook() {
    HUNT_PLACE("Form1.ShowPhonebook");
    ClearQuickFilter(false);
    IniToolBar2();
    mToolBar::CheckTab(View(), CurrentLetter, kRoot, true);
}

// The tree tab or letter button whose tag is Key; 0 for none.
int Form1::buttonOfTag(const QString& Key) const {
    QList<int> buttons = {cmd::TabCategories, cmd::TabGroups, cmd::TabFavorites, cmd::LetterAll};
    for (int id = cmd::LetterA; id <= cmd::LetterUnknown; ++id)
        buttons << id;
    for (int id : buttons)
        if (CommandBars1->FindAction(id)->Tag() == Key) return id;
    return 0;
}

void Form1::ViewMainSwich(const QString& Key) {
    HUNT_PLACE("Form1.ViewMainSwich(Key)", Key);
    if (const int button = buttonOfTag(Key)) GroupChange(button);
    if (phonebookOpen()) {
        if (!isTreeTab(Key))
            mToolBar::CheckTab(View(), Key, CurrentNodeKey);
        else if (Key != CurrentTreeTab)
            showTree(Key);
    }
    MenuUpdate();
}

void Form1::showTree(const QString& tab) {
    mTV::CategoryFill(mTV::TreeForm{*CatTree, true}, modeOfTab(tab));
    mToolBar::CheckCBTab(View(), tab);
}

void Form1::mnuViewMainRefresh_Click() {
    HUNT_PLACE("Form1.mnuViewMainRefresh_Click");
    if (!phonebookOpen()) return;
    // The node in force stays in force when the phonebook still has it.
    const QString key = CurrentNodeKey;
    mTV::CategoryFill(mTV::TreeForm{*CatTree, true}, mToolBar::WhatCATIsChecked());
    TreeNode* node = CatTree->Nodes(key);
    if (node) {
        CatTree->SetSelectedItem(node);
        node->EnsureVisible();
    }
    mToolBar::CheckTab(View(), CurrentLetter, node ? key : kRoot, true);
    MenuUpdate();
}

void Form1::mnuEditAdd_Click() {
    HUNT_PLACE("Form1.mnuEditAdd_Click");
    mScanCD::AddNewDisk();
    MenuUpdate();
}

void Form1::mnuEditNoBorrow_Click() {
    HUNT_PLACE("Form1.mnuEditNoBorrow_Click");
    mCommon::NoBorrowByClick(View());
    MenuUpdate();
}

// A node row shows the node's properties, a contact row opens the contact's card.
void Form1::mnuEditProperties_Click() {
    HUNT_PLACE("Form1.mnuEditProperties_Click");
    const ListItem* row = ListView2->SelectedItem();
    if (!row) return;
    if (row->Key().contains(QLatin1Char('E'))) {
        mTV::DiskListCategoryProperties(View());
    } else {
        PropertiesMode = 1;
        mScanCD::DiskProperties();
    }
    MenuUpdate();
}

// The toolbar's Properties: the node selected in the tree when the tree has the focus, else the
// selected row of the list.
void Form1::PropertiesFromTab() {
    HUNT_PLACE("Form1.PropertiesFromTab");
    if (focusWidget() == CatTree || !ListView2->SelectedItem())
        mTV::mnuCategoryProperties(View());
    else
        mnuEditProperties_Click();
}

void Form1::ArrangeBy(int id) {
    HUNT_PLACE("Form1.ArrangeBy(id)", id);
    for (int column = 0; column < ListView2->ColumnHeaders.Count(); ++column) {
        if (mLV::ArrangeCommandId(column) == id) {
            mLV::SwitchSortDisk(*ListView2, column, false);
            return;
        }
    }
}
