#pragma once
// A phonebook with the main window's tree, contact list and detail pane made without the window,
// and the hooks the window fills wired to the real procedures or to recorders.
#include "support/fixture.h"

#include "contactlist/checktab.h"
#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listhooks.h"
#include "core/globals.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/counters.h"
#include "trees/treefill.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

using namespace Qt::StringLiterals;

class TreeViewTest : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        AdvancedCategoryMode = true;
        CurrentLetter = u"ALL"_s;
        CurrentTreeTab = u"Categories"_s;
        CurrentNodeKey = u"ID0"_s;
        mLV::IniList(list2, mLV::lcContacts);
        mLV::IniList(list1, mLV::lcDetails);
        auto& hooks = mTV::Hooks();
        hooks.CheckTab = [this](const QString& k, const QString& ck, bool f) {
            mToolBar::CheckTab(view, k, ck, f);
        };
        hooks.UpdateCounters = [this] { mTV::UpdateCounters(tree); };
        hooks.UpdateCatInList = [this](const QString& k, const QString& n) {
            mLV::UpdateCatInList(list2, k, n);
        };
        hooks.SetNodeRowComment = [](ListItem& row, const QString& c) {
            row.SetCellText(mLV::cellComment, c);
        };
        hooks.SetNoImage = [this] { ++noImage; };
        hooks.LoadPhotoFromDB = [this](const dao::Recordset& rs) { photos << rs[u"IDCD"_s].toInt(); };
        hooks.CategoryCaption = [this](qint16 mode) { captions << mode; };
        mLV::Hooks().SetCommandChecked = [this](int id, bool on) { checked[id] = on; };
    }
    void TearDown() override {
        mTV::Hooks() = mTV::ViewHooks();
        mLV::Hooks() = mLV::ListHooks();
        PhonebookTest::TearDown();
    }

    // The tree of `tab` filled as the main window shows it.
    void fill(const QString& tab = u"Categories"_s) {
        CurrentTreeTab = tab;
        mTV::CategoryFill({tree, true}, mToolBar::WhatCATIsChecked());
    }
    void click(const QString& key) {
        tree.SetSelectedItem(tree.Nodes(key));
        mToolBar::CheckTab(view, CurrentLetter, key);
    }
    QString label(const QString& key) const { return tree.Nodes(key)->Text(); }
    QString tag(const QString& key) const { return tree.Nodes(key)->Tag(); }
    QStringList children(const QString& key) const {
        QStringList k;
        for (const TreeNode* c = tree.Nodes(key)->Child(); c; c = c->Next())
            k << c->Key();
        return k;
    }
    QStringList rows() const {
        QStringList k;
        for (const ListItem* item : list2.ListItems)
            k << item->Key();
        return k;
    }

    TreeView tree;
    ListView list2, list1;
    mTV::MainView view{tree, list2, list1};
    int noImage = 0;
    QList<int> photos;
    QList<qint16> captions;
    QMap<int, bool> checked;
};
