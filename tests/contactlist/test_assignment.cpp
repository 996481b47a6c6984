// Changing a contact's category, group, favorite or letter with the main window's tree and list
// on screen: the rows and the counts follow without a refill, and Remove from Favorites is
// enabled, carried out and noted in the history.
#include "support/fixture.h"

#include "contactlist/assignment.h"
#include "contactlist/checktab.h"
#include "contactlist/columns.h"
#include "contactlist/favorites.h"
#include "contactlist/listfill.h"
#include "core/commandids.h"
#include "core/globals.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/counters.h"
#include "trees/treefill.h"
#include "trees/treeselect.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <QDate>
#include <QMainWindow>

using namespace Qt::StringLiterals;

namespace {

class AssignmentTest : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        AdvancedCategoryMode = false;
        CurrentLetter = u"ALL"_s;
        mLV::IniList(list2, mLV::lcContacts);
        mLV::IniList(list1, mLV::lcDetails);
        bars.Action(cmd::ContactNoFavorite, u"Remove from Favorites"_s);
        bars.Action(cmd::ListNoFavorite, u"Remove from Favorites"_s);
        mTV::Hooks().MenuNoBorrow = [this] { mCommon::MenuNoBorrow(list2, bars); };
        mTV::Hooks().UpdateCounters = [this] { mTV::UpdateCounters(tree); };
        // A third level below Personal/Relatives, and a second group.
        gDB.Execute(
            u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree, Catpath) VALUES (13, 'Cousins', 12, "
            "'ID0EID2EID12EID13E', 'Personal/Relatives/Cousins')"_s);
        gDB.Execute(
            u"INSERT INTO Boxes (ID, Name, IDPARENT, Pedigree, Catpath) VALUES (2, 'Team', 0, 'ID0EID2E', "
            "'Team')"_s);
        anna = addContact(u"Anna"_s, 9, 1, 1); // Personal/Family, in My favorites
        bob = addContact(u"Bob"_s, 4, 1, 0);   // Business/Customers, a favorite at the root
        carl = addContact(u"Carl"_s, 9, 1, -1);
    }
    void TearDown() override {
        mTV::Hooks() = mTV::ViewHooks();
        gRestricted = false;
        AdvancedCategoryMode = true;
        CurrentTreeTab = u"Categories"_s;
        CurrentLetter = u"ALL"_s;
        CurrentNodeKey = u"ID0"_s;
        CurrentDiskKey.clear();
        PhonebookTest::TearDown();
    }

    // The main window's view of tree `tab`, letter tab `letter` and node `node`.
    void show(const QString& tab, const QString& letter, const QString& node) {
        CurrentTreeTab = tab;
        mTV::CategoryFill({tree, true}, mToolBar::WhatCATIsChecked());
        tree.SetSelectedItem(tree.Nodes(node));
        mToolBar::CheckTab(view, letter, node, true);
    }
    // A click on a contact's row: selected and shown in the detail pane.
    void pick(int contact) {
        list2.SetSelectedItem(row(contact));
        mTV::PreFillTree(view, key(contact));
        CurrentDiskKey = key(contact);
        mCommon::MenuNoBorrow(list2, bars);
    }
    // The card's edit: contact `contact` moves to these nodes, its letter stays.
    void move(int contact, const QString& cat, const QString& bor, const QString& box) {
        QString type, oldCat, newCat, oldBor, newBor, oldBox, newBox;
        mCommon::IniDiskCatParams(type, oldCat, newCat, oldBor, newBor, oldBox, newBox, contact);
        mCommon::UpdateGlobalInfo(view, type, type, oldCat, cat, oldBor, bor, oldBox, box, contact);
    }
    static QString key(int contact) { return u"ID%1"_s.arg(contact); }
    ListItem* row(int contact) const { return list2.ListItems(key(contact)); }
    QStringList rows() const {
        QStringList keys;
        for (const ListItem* item : list2.ListItems)
            keys << item->Key() + ' ' + item->CellText(mLV::cellCategory);
        return keys;
    }
    QString label(const QString& node) const { return tree.Nodes(node)->Text(); }
    QString stored(int contact) {
        return scalar(u"SELECT IDC & '/' & IDB & '/' & IDX FROM CDs WHERE IDCD = %1"_s.arg(contact))
            .toString();
    }
    bool enabled() const {
        const bool menu = bars.FindAction(cmd::ContactNoFavorite)->Enabled();
        EXPECT_EQ(menu, bars.FindAction(cmd::ListNoFavorite)->Enabled()) << "both commands share one state";
        return menu;
    }

    TreeView tree;
    ListView list2, list1;
    mTV::MainView view{tree, list2, list1};
    QMainWindow window;
    CommandBars bars{&window};
    int anna = 0, bob = 0, carl = 0;
};

TEST_F(AssignmentTest, MovesOutsideTheNodeInForceOnlyChangeTheCounts) {
    show(u"Categories"_s, u"ALL"_s, u"ID4"_s);
    const QStringList before = rows();
    move(anna, u"ID10"_s, u"ID1"_s, u"ID1"_s);
    EXPECT_EQ(stored(anna), u"10/1/1"_s);
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(label(u"ID9"_s), u"Family (1)"_s);
    EXPECT_EQ(label(u"ID10"_s), u"Friends (1)"_s);

    // Into the node in force: the row comes, read from the phonebook.
    move(carl, u"ID4"_s, QString(), u"ID1"_s);
    EXPECT_EQ(rows(), before + QStringList{key(carl) + u" Business/Customers"_s});
    EXPECT_EQ(label(u"ID4"_s), u"Customers (2)"_s);
}

TEST_F(AssignmentTest, AdvancedModeKeepsAContactMovedDeeperAndRewritesItsCells) {
    AdvancedCategoryMode = true;
    show(u"Categories"_s, u"ALL"_s, u"ID2"_s);
    pick(anna);
    move(anna, u"ID13"_s, u"ID1"_s, u"ID2"_s);
    EXPECT_EQ(stored(anna), u"13/1/2"_s);
    ASSERT_NE(row(anna), nullptr);
    EXPECT_EQ(row(anna)->CellText(mLV::cellCategory), u"Personal/Relatives/Cousins"_s);
    EXPECT_EQ(row(anna)->CellText(mLV::cellBox), u"Team"_s);
    EXPECT_EQ(row(anna)->CellText(mLV::cellFavorite), u"My favorites"_s) << "unchanged, not rewritten";
    EXPECT_EQ(list2.SelectedItem(), row(anna));
    EXPECT_EQ(label(u"ID13"_s), u"Cousins (1)"_s);
}

TEST_F(AssignmentTest, NormalModeDropsTheRowAndEmptiesThePaneOfItsContact) {
    show(u"Categories"_s, u"ALL"_s, u"ID9"_s);
    pick(anna);
    ASSERT_TRUE(enabled());
    move(anna, u"ID13"_s, u"ID1"_s, u"ID1"_s);
    EXPECT_EQ(row(anna), nullptr);
    EXPECT_EQ(rows(), QStringList{key(carl) + u" Personal/Family"_s});
    EXPECT_EQ(list1.ListItems.Count(), 0);
    EXPECT_EQ(CurrentDiskKey, QString());
    EXPECT_EQ(list2.SelectedItem(), nullptr);
    EXPECT_FALSE(enabled());
    EXPECT_EQ(label(u"ID9"_s), u"Family (1)"_s);

    // A row selected by a right click but not in the pane goes too, and takes the command along.
    gDB.Execute(u"UPDATE CDs SET IDB = 1 WHERE IDCD = %1"_s.arg(carl));
    list2.SetSelectedItem(row(carl));
    mCommon::MenuNoBorrow(list2, bars);
    ASSERT_TRUE(enabled());
    move(carl, u"ID13"_s, u"ID1"_s, u"ID1"_s);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_FALSE(enabled());
}

TEST_F(AssignmentTest, ANewLetterLeavesTheRowUnderAllAndRemovesItFromTheOldTab) {
    for (const QString& tab : {u"ALL"_s, u"A"_s}) {
        gDB.Execute(u"UPDATE CDs SET Label = 'A' WHERE IDCD = %1"_s.arg(anna));
        show(u"Categories"_s, tab, u"ID0"_s);
        gDB.Execute(u"UPDATE CDs SET Label = 'N' WHERE IDCD = %1"_s.arg(anna)); // as the card stores it
        mCommon::UpdateGlobalInfo(view, u"N"_s, u"A"_s, u"ID9"_s, u"ID9"_s, u"ID1"_s, u"ID1"_s, u"ID1"_s,
                                  u"ID1"_s, anna);
        EXPECT_EQ(row(anna) != nullptr, tab == u"ALL"_s) << tab.toStdString();
    }
    EXPECT_EQ(label(u"ID0"_s), u"All categories (0)"_s);
}

TEST_F(AssignmentTest, RemoveFromFavoritesFollowsTheTreeOnDisplayAndNotesTheHistory) {
    gDB.Execute(u"INSERT INTO LoanHistory (IDHistory, IDCD, IDB) VALUES (7, %1, 1)"_s.arg(carl));
    // Among the favorites the row goes; a folder below the root leaves a history row.
    show(u"Borrows"_s, u"ALL"_s, u"ID0"_s);
    pick(anna);
    mCommon::NoBorrowByClick(view);
    EXPECT_EQ(stored(anna), u"9/-1/1"_s);
    EXPECT_EQ(row(anna), nullptr);
    EXPECT_EQ(label(u"ID1"_s), u"My favorites (0)"_s);
    EXPECT_EQ(scalar(u"SELECT IDCD & '/' & IDB FROM LoanHistory WHERE IDHistory = 8"_s).toString(),
              u"%1/1"_s.arg(anna));
    EXPECT_EQ(scalar(u"SELECT LoanEnd FROM LoanHistory WHERE IDHistory = 8"_s).toDateTime().date(),
              QDate::currentDate());

    // Among the categories the row stays with an empty favorites cell; the root leaves no history.
    show(u"Categories"_s, u"ALL"_s, u"ID0"_s);
    pick(bob);
    ASSERT_TRUE(enabled());
    mCommon::NoBorrowByClick(view);
    EXPECT_EQ(stored(bob), u"4/-1/1"_s);
    ASSERT_NE(row(bob), nullptr);
    EXPECT_EQ(row(bob)->CellText(mLV::cellFavorite), QString());
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM LoanHistory"_s).toInt(), 2);
    EXPECT_FALSE(enabled()) << "no longer a favorite";
}

TEST_F(AssignmentTest, RemoveFromFavoritesIsOnlyForASelectedFavorite) {
    show(u"Categories"_s, u"ALL"_s, u"ID2"_s);
    mCommon::MenuNoBorrow(list2, bars);
    EXPECT_FALSE(enabled()) << "no selection";
    list2.SetSelectedItem(list2.ListItems(u"ID9E"_s));
    mCommon::MenuNoBorrow(list2, bars);
    EXPECT_FALSE(enabled()) << "a category row";
    mCommon::NoBorrowByClick(view);
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM LoanHistory"_s).toInt(), 0);

    show(u"Categories"_s, u"ALL"_s, u"ID9"_s);
    pick(carl);
    EXPECT_FALSE(enabled()) << "not a favorite";
    pick(anna);
    EXPECT_TRUE(enabled());
    gRestricted = true;
    mCommon::MenuNoBorrow(list2, bars);
    EXPECT_FALSE(enabled()) << "a read-only phonebook";

    QString type, oldCat, newCat, oldBor = u"x"_s, newBor = u"x"_s, oldBox, newBox;
    mCommon::IniDiskCatParams(type, oldCat, newCat, oldBor, newBor, oldBox, newBox, carl);
    EXPECT_EQ(QStringList({type, oldCat, newCat, oldBor, newBor, oldBox, newBox}),
              QStringList({u"C"_s, u"ID9"_s, u"ID9"_s, QString(), QString(), u"ID1"_s, u"ID1"_s}));
}

TEST_F(AssignmentTest, OnlyTheTreeOnDisplayIsRefilledAfterTheCardAddedNodes) {
    AdvancedCategoryMode = true;
    show(u"Categories"_s, u"ALL"_s, u"ID9"_s);
    gDB.Execute(u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree, Catpath) VALUES (14, 'Uncles', 9, "
                "'ID0EID2EID9EID14E', 'Personal/Family/Uncles')"_s);
    mCommon::UpdateMainCatTree(tree, false, true, true);
    EXPECT_EQ(tree.Nodes(u"ID14"_s), nullptr);
    mCommon::UpdateMainCatTree(tree, true, false, false);
    ASSERT_NE(tree.Nodes(u"ID14"_s), nullptr);
    EXPECT_EQ(tree.SelectedItem()->Key(), u"ID9"_s);
    EXPECT_EQ(CurrentNodeKey, u"ID9"_s);
    EXPECT_EQ(tree.Nodes(u"ID14"_s)->Image(), u"CATSEL"_s) << "the subtree in force is marked";
    EXPECT_EQ(label(u"ID9"_s), u"Family (2)"_s);
}

} // namespace
