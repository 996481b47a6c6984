// The trees of the main window with their counts: a node counts its own contacts and those below
// it for the letter tab in force, the root of favorites counts favorites, counts follow changes
// without harming names, and the two sorts.
#include "viewfixture.h"

#include "trees/treelabels.h"
#include "trees/treesort.h"

namespace {

class TreeFillTest : public TreeViewTest {
  protected:
    // Business (3) holds two contacts, its child Customers (4) three, Family (9) one favorite.
    void business() {
        addContact(u"Karl Berg"_s, 3);
        addContact(u"Lena Holm"_s, 3, 1, 1);
        addContact(u"Kim Ode"_s, 4);
        addContact(u"Mats Ek"_s, 4);
        addContact(u"Nora Falk"_s, 4, 1, 0);
        addContact(u"Karin Ros"_s, 9, 1, 1);
    }
};

TEST_F(TreeFillTest, NodesCountTheirSubtreeForTheLetterTab) {
    business();
    for (bool advanced : {true, false}) {
        AdvancedCategoryMode = advanced;
        fill();
        EXPECT_EQ(label(u"ID3"_s), u"Business (5)"_s) << advanced;
        EXPECT_EQ(tag(u"ID3"_s), u"000000000005"_s);
        EXPECT_EQ(label(u"ID4"_s), u"Customers (3)"_s);
        EXPECT_EQ(label(u"ID5"_s), u"Employees (0)"_s);
        EXPECT_EQ(label(u"ID0"_s), u"All categories (6)"_s);
    }
    CurrentLetter = u"K"_s;
    fill();
    EXPECT_EQ(label(u"ID3"_s), u"Business (2)"_s);
    EXPECT_EQ(label(u"ID4"_s), u"Customers (1)"_s);
    EXPECT_EQ(tag(u"ID8"_s), u"000000000000"_s);
    EXPECT_EQ(label(u"ID0"_s), u"All categories (3)"_s);
}

TEST_F(TreeFillTest, TheRootOfFavoritesCountsFavorites) {
    EXPECT_EQ(mTV::RootCNT(2), 0) << "empty phonebook";
    business();
    fill(u"Borrows"_s);
    EXPECT_EQ(label(u"ID0"_s), u"All favorites (3)"_s);
    EXPECT_EQ(label(u"ID1"_s), u"My favorites (2)"_s);
    CurrentLetter = u"M"_s; // Mats Ek is no favorite
    EXPECT_EQ(mTV::RootCNT(2), 0);

    // Every root shows what RootCNT counts, also a contact whose nodes are missing.
    addContact(u"Kai Orphan"_s, 77, 77, 77);
    for (const QString& letter : {u"ALL"_s, u"K"_s, u"Z"_s}) {
        CurrentLetter = letter;
        for (const QString& tab : {u"Categories"_s, u"Boxes"_s, u"Borrows"_s}) {
            fill(tab);
            EXPECT_EQ(mTV::TagCount(tag(u"ID0"_s)), mTV::RootCNT(mToolBar::WhatCATIsChecked()))
                << letter.toStdString() << " " << tab.toStdString();
        }
    }
}

TEST_F(TreeFillTest, TheTreeComesUpSortedExpandedWithTheRootInForce) {
    CurrentNodeKey = u"ID7"_s;
    fill();
    EXPECT_EQ(children(u"ID3"_s), QStringList({u"ID4"_s, u"ID5"_s, u"ID8"_s, u"ID6"_s, u"ID7"_s}));
    EXPECT_EQ(tree.SelectedItem()->Key(), u"ID0"_s);
    EXPECT_EQ(CurrentNodeKey, u"ID0"_s);
    for (const TreeNode* n : tree.Nodes.All())
        EXPECT_TRUE(!n->Children() || n->Expanded());
    TreeView chooser; // names only
    mTV::CategoryFill({chooser, false}, 1);
    EXPECT_EQ(chooser.Nodes(u"ID1"_s)->Text(), u"Others"_s);
}

TEST_F(TreeFillTest, CountersFollowChangesAndKeepNamesWithBlanks) {
    gDB.Execute(u"UPDATE Categories SET Name = 'Friends of the family' WHERE ID = 10"_s);
    fill();
    tree.SetSelectedItem(tree.Nodes(u"ID10"_s));
    const QStringList before = children(u"ID2"_s);
    addContact(u"Olle Sand"_s, 10);
    addContact(u"Pia Lund"_s, 10);
    mTV::UpdateCounters(tree);
    EXPECT_EQ(label(u"ID10"_s), u"Friends of the family (2)"_s);
    EXPECT_EQ(label(u"ID2"_s), u"Personal (2)"_s);
    EXPECT_EQ(children(u"ID2"_s), before);
    EXPECT_EQ(tree.SelectedItem()->Key(), u"ID10"_s);
}

TEST_F(TreeFillTest, SortByQuantityPutsBigCountsFirstAndLeavesLabelsAsTheyWere) {
    business();
    addContact(u"Ulla Vik"_s, 8);
    addContact(u"Vera Nord"_s, 8);
    fill();
    mTV::SortTreeByQuantity(tree);
    EXPECT_EQ(children(u"ID3"_s), QStringList({u"ID4"_s, u"ID8"_s, u"ID5"_s, u"ID6"_s, u"ID7"_s}));
    EXPECT_EQ(children(u"ID0"_s), QStringList({u"ID3"_s, u"ID2"_s, u"ID1"_s}));
    EXPECT_EQ(label(u"ID8"_s), u"Partners (2)"_s);
    EXPECT_EQ(tag(u"ID8"_s), u"000000000002"_s);
}

} // namespace
