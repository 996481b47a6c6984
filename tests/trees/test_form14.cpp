// The node chooser on a fresh phonebook: only a node below the root can be chosen, and "Add"
// stores a node at once and lets the user name it in place.
#include "support/fixture.h"

#include "support/controls/treeview.h"
#include "trees/form14.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

static void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class Form14Test : public fixture::PhonebookTest {
  protected:
    static void click(Form14& frm, const QString& key) {
        frm.CatTree->SetSelectedItem(frm.CatTree->Nodes(key));
        frm.CatTree_NodeClick(frm.CatTree->Nodes(key));
    }
    static QStringList children(const TreeNode* node) {
        QStringList texts;
        for (const TreeNode* c = node->Child(); c; c = c->Next())
            texts << c->Text();
        return texts;
    }
};

TEST_F(Form14Test, ShowsNamesOnlyAndChoosesOnlyBelowTheRoot) {
    Form14 frm(0);
    EXPECT_EQ(frm.windowTitle(), u"Browse categories"_s);
    EXPECT_EQ(frm.Label1->text(), u"Choose a category:"_s);
    EXPECT_EQ(frm.CatTree->SelectedItem()->Text(), u"All categories"_s);
    EXPECT_EQ(children(frm.CatTree->Nodes(u"ID3"_s)),
              (QStringList{u"Customers"_s, u"Employees"_s, u"Partners"_s, u"Sponsors"_s, u"Suppliers"_s}));
    EXPECT_FALSE(frm.bnOK->isEnabled());

    click(frm, u"ID4"_s);
    EXPECT_TRUE(frm.bnOK->isEnabled());
    click(frm, u"ID0"_s);
    EXPECT_FALSE(frm.bnOK->isEnabled());
    frm.bnOK_Click(); // even a direct call cannot choose the root
    EXPECT_TRUE(frm.ChosenKey.isEmpty());

    click(frm, u"ID10"_s);
    frm.bnOK_Click();
    EXPECT_EQ(frm.result(), QDialog::Accepted);
    EXPECT_EQ(frm.ChosenKey + frm.ComboKey + frm.ChosenText, u"ID10ID10Friends"_s);
}

TEST_F(Form14Test, AddStoresANodeThatTheUserNamesInPlaceAndCancelKeeps) {
    Form14 frm(0);
    frm.show();
    click(frm, u"ID3"_s);
    frm.bnAdd_Click();
    const QString row = u"SELECT Name & '|' & Pedigree & '|' & Catpath FROM Categories WHERE ID = 13"_s;
    EXPECT_EQ(scalar(row).toString(), u"New category|ID0EID3EID13E|Business/New category"_s);
    TreeNode* added = frm.CatTree->Nodes(u"ID13"_s);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(frm.CatTree->SelectedItem(), added);
    EXPECT_TRUE(frm.CatTree->IsEditingLabel());
    EXPECT_TRUE(frm.AddCat && !frm.AddBox && !frm.AddBor);

    QLineEdit* editor = frm.CatTree->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, u"Prospects"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QCoreApplication::processEvents(); // the editor hands its text over through a posted call
    // Enter ends the edit, not the dialog.
    EXPECT_TRUE(frm.isVisible());
    EXPECT_EQ(scalar(row).toString(), u"Prospects|ID0EID3EID13E|Business/Prospects"_s);
    frm.CatTree_NodeClick(added); // the next event in the tree puts the name in its place
    EXPECT_EQ(children(frm.CatTree->Nodes(u"ID3"_s)).indexOf(u"Prospects"_s), 3);

    frm.bnCancel_Click();
    EXPECT_TRUE(frm.ChosenKey.isEmpty());
    EXPECT_TRUE(frm.AddCat);
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM Categories WHERE Name = 'Prospects'"_s).toInt(), 1);
}

} // namespace
