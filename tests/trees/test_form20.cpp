// The node properties dialog against a fresh phonebook and a main window made of its controls:
// what OK writes (and leaves alone), how the tree and the contact list follow, and the entries
// that open it.
#include "support/fixture.h"

#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/catproperties.h"
#include "trees/form20.h"
#include "trees/treefill.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

static void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Form20Test : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        AdvancedCategoryMode = true;
        CurrentLetter = u"ALL"_s;
        CurrentTreeTab = u"Categories"_s;
        mLV::IniList(list2, mLV::lcContacts);
        // Customers (4) gets Europe (13) with France (14) below it; Bob lives in France.
        gDB.Execute(u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree) VALUES "
                    "(13, 'Europe', 4, 'ID0EID3EID4EID13E'), (14, 'France', 13, 'ID0EID3EID4EID13EID14E')"_s);
        mLV::UpdateCatPathAll();
        bob = u"ID%1"_s.arg(addContact(u"Bob"_s, 14));
        mTV::CategoryFill({tree, true}, 0);
        mTV::Hooks().UpdateCatInList = [this](const QString& k, const QString& n) {
            mLV::UpdateCatInList(list2, k, n);
        };
        mTV::Hooks().SetNodeRowComment = [](ListItem& row, const QString& c) {
            row.SetCellText(mLV::cellComment, c);
        };
    }
    void TearDown() override {
        mTV::Hooks() = mTV::ViewHooks();
        AdvancedCategoryMode = true;
        PhonebookTest::TearDown();
    }
    // Makes `key` the node in force, with the list filled for it.
    void open(const QString& key) {
        tree.SetSelectedItem(tree.Nodes(key));
        CurrentNodeKey = key;
        mLV::FillDriveList(list2, CurrentLetter, key);
    }
    QString field(const QString& name, int id) {
        return scalar(
                   u"SELECT IIf(IsNull(%1), '<null>', %1) FROM Categories WHERE ID = %2"_s.arg(name).arg(id))
            .toString();
    }

    // Makes the phonebook refuse the commit after `event`, the statements themselves going
    // through: a deferred foreign key is checked by COMMIT.
    void refuseCommitAfter(const QString& event) {
        gDB.ExecuteNative(
            u"PRAGMA foreign_keys = ON; CREATE TABLE Vouchers (Name TEXT PRIMARY KEY); "
            "CREATE TABLE Pins (Name TEXT REFERENCES Vouchers (Name) DEFERRABLE INITIALLY DEFERRED); "
            "CREATE TRIGGER pinned AFTER %1 BEGIN INSERT INTO Pins VALUES ('none'); END"_s.arg(event));
    }

    TreeView tree;
    ListView list2, list1;
    mTV::MainView view{tree, list2, list1};
    QString bob;
};

TEST_F(Form20Test, WritesNothingUnchangedAndTheRootKeepsItsName) {
    gDB.Execute(u"UPDATE Categories SET Comment = 'Key accounts', Catpath = 'stale' WHERE ID = 4"_s);
    Form20 frm(view, 4, 0, false);
    EXPECT_EQ(frm.fdName->selectedText(), u"Customers"_s);
    EXPECT_EQ(frm.fdComment->toPlainText(), u"Key accounts"_s);
    frm.bnOK_Click();
    EXPECT_EQ(frm.result(), QDialog::Accepted);
    EXPECT_EQ(field(u"Catpath"_s, 4), u"stale"_s); // not even the paths were renewed

    Form20 root(view, 0, 0, false);
    EXPECT_TRUE(root.fdName->isReadOnly());
    root.fdName->setText(u"Everything"_s);
    root.fdComment->setPlainText(u"All my people"_s);
    root.bnOK_Click();
    EXPECT_EQ(field(u"Name"_s, 0) + u"|"_s + field(u"Comment"_s, 0), u"All categories|All my people"_s);
}

TEST_F(Form20Test, ARenameReachesTheSubtreePathsTheTreeAndTheList) {
    open(u"ID4"_s);
    Form20 frm(view, 4, 0, false);
    frm.fdName->setText(u"Vendors"_s);
    frm.bnOK_Click();
    EXPECT_EQ(field(u"Catpath"_s, 13), u"Business/Vendors/Europe"_s);
    EXPECT_EQ(field(u"Catpath"_s, 14), u"Business/Vendors/Europe/France"_s);
    EXPECT_EQ(field(u"Pedigree"_s, 14), u"ID0EID3EID4EID13EID14E"_s);
    // The label keeps its count, and the node moves to its place by name.
    EXPECT_EQ(tree.Nodes(u"ID4"_s)->Text(), u"Vendors (1)"_s);
    EXPECT_EQ(tree.Nodes(u"ID3"_s)->LastChild()->Key(), u"ID4"_s);
    EXPECT_EQ(list2.ListItems(bob)->CellText(mLV::cellCategory), u"Business/Vendors/Europe/France"_s);
}

TEST_F(Form20Test, ANodeRowOfTheListFollowsAndAnEmptiedCommentIsNull) {
    AdvancedCategoryMode = false;
    open(u"ID3"_s);
    ListItem* nodeRow = list2.ListItems(u"ID4E"_s);
    list2.SetSelectedItem(nodeRow);
    Form20 frm(view, 4, 0, true);
    frm.fdName->setText(u"Clients"_s);
    frm.fdComment->setPlainText(u"Visit in spring\nCall first"_s);
    frm.bnOK_Click();
    EXPECT_EQ(nodeRow->Text(), u"Clients"_s);
    EXPECT_EQ(nodeRow->CellText(mLV::cellComment), u"Visit in spring ..."_s);

    Form20 again(view, 4, 0, true);
    again.fdComment->clear();
    again.bnOK_Click();
    EXPECT_EQ(field(u"Comment"_s, 4), u"<null>"_s);
    EXPECT_EQ(nodeRow->CellText(mLV::cellComment), QString());
}

TEST_F(Form20Test, ANewNodeGoesUnderTheSelectedNodeWithItsComment) {
    QStringList checkTabs;
    mTV::Hooks().CheckTab = [&](const QString& key, const QString& ckey, bool) { checkTabs << key + ckey; };
    open(u"ID3"_s);
    Form20 frm(view, -1, 0, false);
    EXPECT_EQ(frm.fdName->selectedText(), u"New category"_s);
    frm.fdName->setText(u"Prospects"_s);
    frm.fdComment->setPlainText(u"Met at the fair"_s);
    frm.bnOK_Click();
    EXPECT_EQ(field(u"Comment"_s, 15) + u"|"_s + field(u"Catpath"_s, 15),
              u"Met at the fair|Business/Prospects"_s);
    ASSERT_NE(tree.Nodes(u"ID15"_s), nullptr);
    EXPECT_EQ(tree.Nodes(u"ID15"_s)->Parent()->Key(), u"ID3"_s);
    EXPECT_EQ(tree.Nodes(u"ID15"_s)->Text(), u"Prospects (0)"_s);
    EXPECT_EQ(checkTabs, QStringList{u"ALLID15"_s});
}

TEST_F(Form20Test, TheStaffProbeFailsVisiblyAndChangesNothing) {
    int reports = 0;
    fixture::ModalRecorder modal([&](QDialog* d) {
        if (d->objectName() == u"frmShowError"_s) ++reports;
        return 0;
    });
    Form20 frm(view, 4, 0, false);
    frm.fdName->setText(u"snagprobesnagprobe"_s);
    frm.bnOK->click();
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(field(u"Name"_s, 4), u"Customers"_s);
    EXPECT_EQ(tree.Nodes(u"ID4"_s)->Text(), u"Customers (1)"_s);
    EXPECT_EQ(gWS.TransactionLevel(), 0);
    EXPECT_NE(frm.result(), QDialog::Accepted);
}

TEST_F(Form20Test, ARenameRefusedAtCommitLeavesTheControlsAsTheyWere) {
    int reports = 0;
    fixture::ModalRecorder modal([&](QDialog* d) {
        if (d->objectName() == u"frmShowError"_s) ++reports;
        return 0;
    });
    open(u"ID4"_s);
    const QString rowPath = list2.ListItems(bob)->CellText(mLV::cellCategory);
    refuseCommitAfter(u"UPDATE ON Categories"_s);
    Form20 frm(view, 4, 0, false);
    frm.fdName->setText(u"Clients"_s);
    frm.bnOK->click();
    EXPECT_EQ(reports, 1);
    EXPECT_EQ(field(u"Name"_s, 4), u"Customers"_s);
    EXPECT_EQ(tree.Nodes(u"ID4"_s)->Text(), u"Customers (1)"_s);
    EXPECT_EQ(list2.ListItems(bob)->CellText(mLV::cellCategory), rowPath);
    EXPECT_EQ(gWS.TransactionLevel(), 0);
    EXPECT_NE(frm.result(), QDialog::Accepted);

    gDB.ExecuteNative(u"DROP TRIGGER pinned"_s); // the same OK now goes through
    frm.bnOK->click();
    EXPECT_EQ(field(u"Name"_s, 4), u"Clients"_s);
    EXPECT_EQ(tree.Nodes(u"ID4"_s)->Text(), u"Clients (1)"_s);
    EXPECT_EQ(frm.result(), QDialog::Accepted);
}

TEST_F(Form20Test, TheEntriesOpenTheDialogForTheRightNode) {
    QStringList opened;
    fixture::ModalRecorder modal([&](QDialog* d) {
        auto* frm = qobject_cast<Form20*>(d);
        opened << u"%1|%2"_s.arg(frm->pID).arg(frm->pFromDiskList);
        return 0;
    });
    AdvancedCategoryMode = false;
    open(u"ID3"_s);
    mTV::mnuCategoryProperties(view);
    mTV::mnuCategoryAdd(view);
    list2.SetSelectedItem(list2.ListItems(u"ID5E"_s));
    mTV::DiskListCategoryProperties(view);
    open(u"ID14"_s);
    list2.SetSelectedItem(list2.ListItems(bob));
    mTV::DiskListCategoryProperties(view); // a contact row is no node
    EXPECT_EQ(opened, (QStringList{u"3|0"_s, u"-1|0"_s, u"5|1"_s}));
    EXPECT_FALSE(mTV::Hooks().NodeDialogComment); // a closed dialog lends no comment
}

} // namespace
