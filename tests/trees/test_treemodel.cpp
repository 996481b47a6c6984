// The three trees against a real phonebook: creating, renaming, moving and deleting nodes keep
// Pedigree and Catpath of every row right, and a failure leaves the phonebook as it was.
#include "support/fixture.h"

#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/treeview.h"
#include "support/helpers/keys.h"
#include "trees/membership.h"
#include "trees/movecategory.h"
#include "trees/pedigree.h"
#include "trees/treedelete.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <map>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

class TreeModelTest : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        AdvancedCategoryMode = true;
        CurrentLetter = u"ALL"_s;
        CurrentDiskKey.clear();
        show(0);
    }
    void TearDown() override {
        mTV::Hooks() = mTV::ViewHooks();
        tree.reset();
        PhonebookTest::TearDown();
    }

    // Puts the tree of `mode` on display, filled from its table, with the root selected.
    void show(qint16 mode) {
        CurrentTreeTab = QStringList{u"Categories"_s, u"Boxes"_s, u"Borrows"_s}[mode];
        tree = std::make_unique<TreeView>();
        dao::Recordset rs = gDB.OpenRecordset(
            u"SELECT ID, IDPARENT, Name FROM %1 ORDER BY Pedigree"_s.arg(mTV::TreeTable(mode)));
        for (; !rs.AtEOF(); rs.MoveNext())
            tree->Nodes.Add(rs.Value(1).toInt() < 0 ? QString() : "ID" + rs.Text(1), tvwChild,
                            "ID" + rs.Text(0), rs.Text(2));
        select(u"ID0"_s);
    }
    void select(const QString& key) { tree->SetSelectedItem(tree->Nodes(key)); }
    void remove(const QString& key, int answer = vb::vbYes) {
        fixture::MsgBoxRecorder box(answer);
        select(key);
        mTV::CatTreeDelete(*tree, false, false);
        boxes = box.texts();
    }

    // Adds a node under `parentKey` of the tree on display, as the add command does.
    int add(const QString& parentKey, const QString& name) {
        const qint16 mode = mToolBar::WhatCATIsChecked();
        select(parentKey);
        const int id =
            mTV::CreateCategory({*tree, true}, mode, mode == 2 ? 0 : mCommon::GetID1(parentKey), name);
        tree->Nodes.Add(mode == 2 ? u"ID0"_s : parentKey, tvwChild, u"ID%1"_s.arg(id), name);
        return id;
    }
    // Customers (4, under Business 3) gets three levels below it: Europe 13, France 14, Paris 15.
    void deepCustomers() {
        ASSERT_EQ(add(u"ID4"_s, u"Europe"_s), 13);
        ASSERT_EQ(add(u"ID13"_s, u"France"_s), 14);
        ASSERT_EQ(add(u"ID14"_s, u"Paris"_s), 15);
    }

    // Every row of a tree table as "IDPARENT|Pedigree|Catpath|Name", by ID.
    std::map<int, std::string> rows(qint16 mode = 0) {
        std::map<int, std::string> m;
        dao::Recordset rs = gDB.OpenRecordset(
            u"SELECT ID, IDPARENT, Pedigree, Catpath, Name FROM %1"_s.arg(mTV::TreeTable(mode)));
        for (; !rs.AtEOF(); rs.MoveNext())
            m[rs.Value(0).toInt()] =
                QStringList{rs.Text(1), rs.Text(2), rs.Text(3), rs.Text(4)}.join('|').toStdString();
        return m;
    }

    // A search, a favorites history entry and a left-over path with one element.
    void addDependants(int idcd) {
        for (const char* sql : {"INSERT INTO SearchWhere (IDCD, Path) VALUES (%1, 'x')",
                                "INSERT INTO LoanHistory (IDHistory, IDCD, IDB) VALUES (%1, %1, 1)",
                                "INSERT INTO Paths (IDPATH, IDCD, Path) VALUES (%1, %1, 'p')",
                                "INSERT INTO Elements (ID, IDPATH, IDPATHSELF) VALUES (%1, %1, %1)"})
            gDB.Execute(QString::fromLatin1(sql).arg(idcd));
    }
    // Rows that still belong to a contact, over CDs and its four dependant tables.
    int traces(int idcd) {
        int n = scalar(u"SELECT Count(*) FROM Elements WHERE IDPATH = %1"_s.arg(idcd)).toInt();
        for (const char* t : {"CDs", "SearchWhere", "LoanHistory", "Paths"})
            n += scalar(u"SELECT Count(*) FROM %1 WHERE IDCD = %2"_s.arg(QLatin1String(t)).arg(idcd)).toInt();
        return n;
    }
    // Makes the phonebook itself refuse a change, so that an operation fails half-way.
    void refuse(const QString& event) {
        gDB.ExecuteNative(
            u"CREATE TRIGGER refuse%1 BEFORE %2 BEGIN SELECT RAISE(ABORT, 'no'); END"_s.arg(++triggers)
                .arg(event));
    }

    // Makes the phonebook refuse the commit after `event`, the statements themselves going
    // through: a deferred foreign key is checked by COMMIT.
    void refuseCommitAfter(const QString& event) {
        gDB.ExecuteNative(
            u"PRAGMA foreign_keys = ON; CREATE TABLE Vouchers (Name TEXT PRIMARY KEY); "
            "CREATE TABLE Pins (Name TEXT REFERENCES Vouchers (Name) DEFERRABLE INITIALLY DEFERRED); "
            "CREATE TRIGGER pinned AFTER %1 BEGIN INSERT INTO Pins VALUES ('none'); END"_s.arg(event));
    }

    std::unique_ptr<TreeView> tree;
    QStringList boxes;
    int triggers = 0;
};

TEST_F(TreeModelTest, NewNodesSpellTheirPathFromTheSelectedNode) {
    EXPECT_EQ(add(u"ID4"_s, u"Europe"_s), 13);
    EXPECT_EQ(rows()[13], "4|ID0EID3EID4EID13E|Business/Customers/Europe|Europe");
    EXPECT_EQ(mTV::GetCBName(13, 0), u"Business/Customers/Europe"_s);
    EXPECT_EQ(mTV::GetCBName(99, 0), QString());

    // Favorites stay one level deep whichever node is selected; an open properties dialog gives
    // the node its comment.
    show(2);
    mTV::Hooks().NodeDialogComment = [](QString& c) {
        c = u"met at the fair"_s;
        return true;
    };
    EXPECT_EQ(add(u"ID1"_s, u"Close friends"_s), 2);
    EXPECT_EQ(rows(2)[2], "0|ID0EID2E|Close friends|Close friends");
    EXPECT_EQ(scalar(u"SELECT Comment FROM Borrows WHERE ID = 2"_s).toString(), u"met at the fair"_s);
}

TEST_F(TreeModelTest, TheHighestFreedIdIsTakenAgain) {
    EXPECT_EQ(add(u"ID2"_s, u"Club"_s), 13);
    remove(u"ID13"_s);
    EXPECT_EQ(add(u"ID2"_s, u"Choir"_s), 13);

    // Favorites left with the root alone start again at 1.
    show(2);
    remove(u"ID1"_s);
    ASSERT_EQ(rows(2).size(), 1u);
    EXPECT_EQ(add(u"ID0"_s, u"Best"_s), 1);
    EXPECT_EQ(rows(2)[1], "0|ID0EID1E|Best|Best");
}

TEST_F(TreeModelTest, MoveRewritesTheWholeSubtreeAndNothingElse) {
    deepCustomers();
    auto expected = rows();
    mLV::MoveCategory(u"ID3"_s, u"ID2"_s, u"ID4E"_s);
    expected[4] = "2|ID0EID2EID4E|Personal/Customers|Customers";
    expected[13] = "4|ID0EID2EID4EID13E|Personal/Customers/Europe|Europe";
    expected[14] = "13|ID0EID2EID4EID13EID14E|Personal/Customers/Europe/France|France";
    expected[15] = "14|ID0EID2EID4EID13EID14EID15E|Personal/Customers/Europe/France/Paris|Paris";
    EXPECT_EQ(rows(), expected);
    mLV::MoveCategory(u"ID2"_s, u"ID2"_s, u"ID4E"_s); // onto the present parent
    EXPECT_EQ(rows(), expected);

    // The tree on display decides the table.
    show(1);
    EXPECT_EQ(add(u"ID1"_s, u"Night shift"_s), 2);
    mLV::MoveCategory(u"ID1"_s, u"ID0"_s, u"ID2E"_s);
    EXPECT_EQ(rows(1)[2], "0|ID0EID2E|Night shift|Night shift");
    EXPECT_EQ(rows(), expected);
}

TEST_F(TreeModelTest, RenameRewritesCatpathBelowAndKeepsPedigree) {
    deepCustomers();
    auto expected = rows();
    QString label = u"Clients"_s;
    mTV::CategoryUpdate({*tree, true}, 0, label); // no node is being renamed: nothing happens
    EXPECT_EQ(rows(), expected);

    tree->Nodes(u"ID4"_s)->SetTag(u"000000000012"_s);
    tree->SetTag(u"ID4"_s);
    mTV::CategoryUpdate({*tree, true}, 0, label);
    EXPECT_EQ(label, u"Clients (12)"_s);
    EXPECT_EQ(tree->Tag(), QString());
    expected[4] = "3|ID0EID3EID4E|Business/Clients|Clients";
    expected[13] = "4|ID0EID3EID4EID13E|Business/Clients/Europe|Europe";
    expected[14] = "13|ID0EID3EID4EID13EID14E|Business/Clients/Europe/France|France";
    expected[15] = "14|ID0EID3EID4EID13EID14EID15E|Business/Clients/Europe/France/Paris|Paris";
    EXPECT_EQ(rows(), expected);
}

TEST_F(TreeModelTest, AFailureHalfWayRollsTheWholeSubtreeBack) {
    deepCustomers();
    const auto before = rows();
    refuse(u"UPDATE ON Categories WHEN OLD.ID = 15"_s); // the deepest row, changed last
    HuntERR::ClearPendingStack();
    EXPECT_THROW(mLV::MoveCategory(u"ID3"_s, u"ID2"_s, u"ID4E"_s), HuntERR::Error);
    EXPECT_TRUE(HuntERR::PendingStack().join(QString()).contains(u"mLV.MoveCategory"_s));
    EXPECT_EQ(rows(), before);

    tree->SetTag(u"ID4"_s);
    QString label = u"Clients"_s;
    EXPECT_THROW(mTV::CategoryUpdate({*tree, true}, 0, label), HuntERR::Error);
    EXPECT_EQ(rows(), before);

    // A delete that fails on the contacts keeps them and the nodes.
    const int member = addContact(u"Gus"_s, 12);
    addDependants(member);
    refuse(u"DELETE ON CDs"_s);
    EXPECT_THROW(remove(u"ID12"_s), HuntERR::Error);
    EXPECT_EQ(traces(member), 5);
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(gWS.TransactionLevel(), 0);
}

TEST_F(TreeModelTest, ADeleteRefusedAtCommitLeavesTheViewAsItWas) {
    const int member = addContact(u"Gus"_s, 12);
    QStringList calls;
    mTV::Hooks().CheckTab = [&](const QString&, const QString& k, bool) { calls << "tab " + k; };
    mTV::Hooks().UpdateCounters = [&] { calls << "counters"; };
    mTV::Hooks().ClearListSelection = [&] { calls << "list"; };
    const auto before = rows();
    refuseCommitAfter(u"DELETE ON Categories"_s);
    EXPECT_THROW(remove(u"ID12"_s), HuntERR::Error);
    EXPECT_EQ(rows(), before);
    EXPECT_EQ(traces(member), 1);
    EXPECT_TRUE(tree->Nodes.Exists(u"ID12"_s));
    EXPECT_EQ(tree->SelectedItem()->Key(), u"ID12"_s);
    EXPECT_TRUE(calls.isEmpty()) << calls.join(',').toStdString();
    EXPECT_EQ(gWS.TransactionLevel(), 0);

    gDB.ExecuteNative(u"DROP TRIGGER pinned"_s); // the next delete goes through, screens and all
    remove(u"ID12"_s);
    EXPECT_FALSE(tree->Nodes.Exists(u"ID12"_s));
    EXPECT_EQ(traces(member), 0);
    EXPECT_EQ(calls, QStringList({"list", "tab ID9", "counters"}));
}

TEST_F(TreeModelTest, DeletingACategoryDeletesItsContactsWithTheirRows) {
    deepCustomers();
    const int customer = addContact(u"Ann"_s, 4, 1, 1); // also a favorite
    const int parisian = addContact(u"Bob"_s, 15);
    const int cousin = addContact(u"Cy"_s, 9);
    for (int c : {customer, parisian, cousin})
        addDependants(c);
    QStringList views;
    mTV::Hooks().CheckTab = [&](const QString& l, const QString& k, bool f) {
        views << l + k + (f ? "!" : "");
    };

    remove(u"ID4"_s);
    EXPECT_EQ(boxes, QStringList{"Do you really want to delete the selected category?\nAll contacts in this "
                                 "category and its subcategories will be also deleted."});
    EXPECT_EQ(traces(customer) + traces(parisian), 0);
    EXPECT_EQ(traces(cousin), 5);
    const auto left = rows();
    EXPECT_EQ(left.size(), 12u);
    EXPECT_EQ(left.count(4) + left.count(13) + left.count(14) + left.count(15), 0u);
    EXPECT_FALSE(tree->Nodes.Exists(u"ID14"_s));
    remove(u"ID8"_s); // the last child: the view goes to the parent, not to a sibling
    EXPECT_EQ(views, QStringList({"ALLID5!", "ALLID3!"}));
}

TEST_F(TreeModelTest, DeletingAFavoritesNodeReleasesItsContacts) {
    const int fan = addContact(u"Dee"_s, 2, 1, 1);
    const int other = addContact(u"Eve"_s);
    gDB.Execute(u"UPDATE CDs SET IsLend = True, LoanStart = #05/01/24#, LoanComment = 'gift'"_s);
    addDependants(fan);
    show(2);
    remove(u"ID1"_s); // no protected node among favorites
    EXPECT_EQ(boxes, QStringList{"Do you really want to delete the selected favorites?"});
    EXPECT_EQ(traces(fan), 4); // all but its favorites history
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs WHERE IDB = -1 AND IsNull(IsLend) AND IsNull(LoanStart) AND "
                     "IsNull(LoanComment) AND IDCD = %1"_s.arg(fan))
                  .toInt(),
              1);
    EXPECT_EQ(scalar(u"SELECT LoanComment FROM CDs WHERE IDCD = %1"_s.arg(other)).toString(), u"gift"_s);
}

TEST_F(TreeModelTest, DeleteRefusesProtectedNodesAndHonoursNo) {
    const auto before = rows();
    remove(u"ID0"_s, vb::vbOK);
    EXPECT_EQ(boxes, QStringList{"Cannot delete the root item."});
    remove(u"ID1"_s, vb::vbOK);
    EXPECT_EQ(boxes, QStringList{"Cannot delete this category."});
    remove(u"ID3"_s, vb::vbNo);
    EXPECT_EQ(rows(), before);
    show(1);
    remove(u"ID1"_s, vb::vbOK);
    EXPECT_EQ(boxes, QStringList{"Cannot delete this category."});
}

TEST_F(TreeModelTest, DeletingANodeRowOfTheListEmptiesThePaneThatShowedIt) {
    const int member = addContact(u"Fay"_s, 11);
    QStringList calls;
    mTV::Hooks().SelectedListKey = [] { return u"ID11E"_s; };
    mTV::Hooks().RemoveListRow = [&](const QString& k) { calls << "remove " + k; };
    mTV::Hooks().ClearDetailPane = [&] { calls << "pane"; };
    CurrentDiskKey = u"ID11E"_s;
    select(u"ID2"_s);
    fixture::MsgBoxRecorder yes(vb::vbYes);
    mTV::CatTreeDelete(*tree, true, false);
    EXPECT_EQ(calls, QStringList({"remove ID11E", "pane"}));
    EXPECT_EQ(CurrentDiskKey, QString());
    EXPECT_FALSE(tree->Nodes.Exists(u"ID11"_s));
    EXPECT_EQ(traces(member), 0);
}

TEST_F(TreeModelTest, SelfParentAndMembershipFollowTheTree) {
    deepCustomers();
    EXPECT_TRUE(mTV::SelfParent(*tree, u"ID3"_s, u"ID15"_s));
    EXPECT_TRUE(mTV::SelfParent(*tree, u"ID3"_s, u"ID3"_s));
    EXPECT_FALSE(mTV::SelfParent(*tree, u"ID15"_s, u"ID3"_s));
    EXPECT_FALSE(mTV::SelfParent(*tree, u"ID0"_s, u"ID3"_s));

    const int parisian = addContact(u"Jo"_s, 15);
    select(u"ID3"_s);
    EXPECT_TRUE(mLV::IsWithinCategory(*tree, 5, parisian));
    EXPECT_FALSE(mLV::IsWithinCategory(*tree, 9, parisian));
    EXPECT_TRUE(mLV::IsWithinCategory3(*tree, u"ID15"_s, u"ID4"_s, 0));
    EXPECT_FALSE(mLV::IsWithinCategory3(*tree, u"ID15"_s, u"ID2"_s, 0));
    select(u"ID1"_s); // node 1 does not hold node 11, whose key merely starts alike
    EXPECT_TRUE(mLV::IsWithinCategory2(*tree, u"ID1"_s, 0));
    EXPECT_FALSE(mLV::IsWithinCategory2(*tree, u"ID11"_s, 0));

    AdvancedCategoryMode = false; // only the selected node itself is in view
    select(u"ID3"_s);
    EXPECT_FALSE(mLV::IsWithinCategory(*tree, 5, parisian));
    EXPECT_TRUE(mLV::IsWithinCategory2(*tree, u"ID3"_s, 0));
    EXPECT_FALSE(mLV::IsWithinCategory2(*tree, u"ID4"_s, 0));
}

} // namespace
