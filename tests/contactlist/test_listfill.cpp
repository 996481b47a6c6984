// The contact list against real phonebooks: which rows a tree node and a letter tab pick out in
// each tree and mode, what a row shows, and the rows added or rewritten after a change.
#include "support/fixture.h"

#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listhooks.h"
#include "core/globals.h"
#include "phonebook/catpath.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/helpers/dates.h"
#include "trees/viewhooks.h"
#include "trees/viewstate.h"

#include <memory>

using namespace Qt::StringLiterals;

static void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class ListFillTest : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        AdvancedCategoryMode = false;
        list = std::make_unique<ListView>();
        mLV::IniList(*list, mLV::lcContacts);
        // What the procedures ask of the main window, in the order asked.
        mTV::Hooks().MenuNoBorrow = [this] { events << u"menu"_s; };
        mTV::Hooks().UpdateCounters = [this] { events << u"counters"_s; };
        mTV::Hooks().CheckTab = [this](const QString& key, const QString& node, bool force) {
            events << u"view %1 %2 %3"_s.arg(key, node).arg(force);
        };
        mLV::Hooks().ShowCurrentTree = [this] { events << "tree " + CurrentTreeTab; };
        mLV::Hooks().PreFillTree = [this](const QString& key) { events << "pane " + key; };
        mLV::Hooks().Hourglass = [this](bool busy) { events << u"hourglass %1"_s.arg(busy); };
        // Anna in Personal; Bob in Customers and Carl in Family, both favorites; Dora in Family.
        anna = addContact(u"Anna"_s, 2, 1, -1);
        bob = addContact(u"Bob"_s, 4, 1, 1);
        carl = addContact(u"Carl"_s, 9, 1, 1);
        dora = addContact(u"Dora"_s, 9, 1, -1);
    }
    void TearDown() override {
        mTV::Hooks() = mTV::ViewHooks();
        mLV::Hooks() = mLV::ListHooks();
        list.reset();
        tree.reset();
        AdvancedCategoryMode = true;
        CurrentTreeTab = u"Categories"_s;
        CurrentLetter = u"ALL"_s;
        CurrentNodeKey = u"ID0"_s;
        PhonebookTest::TearDown();
    }

    // Fills the list for that tree, letter and node, and answers its rows by text, sorted.
    QString show(const QString& tab, const QString& letter, const QString& node) {
        CurrentTreeTab = tab;
        CurrentLetter = letter;
        CurrentNodeKey = node;
        mLV::FillDriveList(*list, letter, node);
        return rows();
    }
    QString rows() const {
        QStringList texts;
        for (const ListItem* item : list->ListItems)
            texts << item->Text();
        texts.sort();
        return texts.join(' ');
    }
    ListItem* row(int contact) const { return list->ListItems(u"ID%1"_s.arg(contact)); }

    void set(int contact, std::initializer_list<std::pair<const char*, QVariant>> fields) {
        dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(contact));
        rs.Edit();
        for (const auto& [name, value] : fields)
            rs.SetValue(QString::fromLatin1(name), value);
        rs.Update();
    }

    // The category tree of the main window, labels with counts, `selected` selected.
    void makeTree(const QString& selected) {
        tree = std::make_unique<TreeView>();
        dao::Recordset rs =
            gDB.OpenRecordset(u"SELECT ID, IDPARENT, Name FROM Categories ORDER BY Pedigree"_s);
        for (; !rs.AtEOF(); rs.MoveNext())
            tree->Nodes.Add(rs.Value(1).toInt() < 0 ? QString() : "ID" + rs.Text(1), tvwChild,
                            "ID" + rs.Text(0), rs.Text(2) + u" (0)"_s);
        tree->SetSelectedItem(tree->Nodes(selected));
    }

    std::unique_ptr<ListView> list;
    std::unique_ptr<TreeView> tree;
    int anna = 0, bob = 0, carl = 0, dora = 0;
    QStringList events;
};

TEST_F(ListFillTest, AllAtTheRootShowsEveryContactAndOnlyFavoritesInFavorites) {
    for (bool advanced : {false, true}) {
        AdvancedCategoryMode = advanced;
        EXPECT_EQ(show(u"Categories"_s, u"ALL"_s, u"ID0"_s), u"Anna Bob Carl Dora"_s);
        EXPECT_EQ(show(u"Boxes"_s, u"ALL"_s, u"ID0"_s), u"Anna Bob Carl Dora"_s);
        EXPECT_EQ(show(u"Borrows"_s, u"ALL"_s, u"ID0"_s), u"Bob Carl"_s);
    }
    // A fresh list has no selection and tells the favorites commands, under the hourglass.
    list->SetSelectedItem(row(bob));
    events.clear();
    show(u"Borrows"_s, u"ALL"_s, u"ID0"_s);
    EXPECT_EQ(list->SelectedItem(), nullptr);
    EXPECT_EQ(events, (QStringList{u"hourglass 1"_s, u"hourglass 0"_s, u"menu"_s}));
}

TEST_F(ListFillTest, LetterAndNodeNarrowTheListInBothModes) {
    addContact(u"Daniel"_s, 2, 1, -1);
    EXPECT_EQ(show(u"Categories"_s, u"D"_s, u"ID0"_s), u"Daniel Dora"_s);
    EXPECT_EQ(show(u"Borrows"_s, u"C"_s, u"ID0"_s), u"Carl"_s);
    // Normal mode: the node's own contacts after a row for each child.
    const QString children = u"Family Friends Neighbors Relatives"_s;
    EXPECT_EQ(show(u"Categories"_s, u"ALL"_s, u"ID2"_s), "Anna Daniel " + children);
    EXPECT_EQ(show(u"Categories"_s, u"A"_s, u"ID2"_s), "Anna " + children);
    EXPECT_EQ(show(u"Categories"_s, u"ALL"_s, u"ID9"_s), u"Carl Dora"_s);
    EXPECT_EQ(show(u"Boxes"_s, u"ALL"_s, u"ID1"_s), u"Anna Bob Carl Daniel Dora"_s);
    // Advanced mode: the whole subtree and no child rows.
    AdvancedCategoryMode = true;
    EXPECT_EQ(show(u"Categories"_s, u"ALL"_s, u"ID2"_s), u"Anna Carl Daniel Dora"_s);
    EXPECT_EQ(show(u"Categories"_s, u"D"_s, u"ID2"_s), u"Daniel Dora"_s);
    EXPECT_EQ(show(u"Categories"_s, u"ALL"_s, u"ID3"_s), u"Bob"_s);
    EXPECT_EQ(show(u"Borrows"_s, u"ALL"_s, u"ID1"_s), u"Bob Carl"_s);
}

TEST_F(ListFillTest, RowsShowTheirFieldsInCatalogueOrder) {
    const QDateTime scanned(QDate(2024, 3, 5), QTime(14, 7, 9));
    set(bob, {{"FullName", u"Bob Berg"_s},
              {"Title", u"Dr."_s},
              {"Company", u"Acme"_s},
              {"Address", u"1 Main St\r\nFlat 2"_s},
              {"City", u"Oslo"_s},
              {"State", u"OS"_s},
              {"Zip", u"0150"_s},
              {"Comment", u"first line\r\nsecond"_s},
              {"ContactNumber", 0},
              {"DateScan", scanned},
              {"Type1", 3},
              {"Number1", u"+47 1234"_s},
              {"Number2", u"555"_s},
              {"Type3", 4}});
    set(anna, {{"FullName", QVariant()}, {"ContactNumber", 42}, {"DateScan", QVariant()}});
    show(u"Categories"_s, u"ALL"_s, u"ID0"_s);
    ASSERT_EQ(row(bob)->CellCount(), 25);
    QStringList cells;
    for (int c = 0; c < 25; ++c)
        cells << row(bob)->CellText(c);
    EXPECT_EQ(cells, (QStringList{u"Bob Berg"_s,
                                  u"Dr."_s,
                                  u"Acme"_s,
                                  u"Business/Customers"_s,
                                  u"My favorites"_s,
                                  u"1 Main St, Flat 2"_s,
                                  u"Oslo"_s,
                                  u"OS"_s,
                                  u"0150"_s,
                                  u"first line ..."_s,
                                  u" "_s,
                                  mCommon::TimeCorrectView(scanned),
                                  u"Others"_s,
                                  u"Mobile phone: +47 1234"_s,
                                  u"555"_s,
                                  u"Fax:"_s,
                                  "",
                                  "",
                                  "",
                                  "",
                                  "",
                                  "",
                                  "",
                                  "",
                                  ""}));
    EXPECT_EQ(row(bob)->Tag(), u"b"_s);
    EXPECT_EQ(row(bob)->SmallIcon(), u"BOR"_s);
    EXPECT_EQ(row(anna)->Text(), u""_s);
    EXPECT_EQ(row(anna)->CellText(mLV::cellID), u"42"_s);
    EXPECT_EQ(row(anna)->CellText(mLV::cellAdded), u""_s);

    // A child row: name, comment and a blank number, no cells for the numbers, its tree's icon.
    dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM Categories WHERE ID = 9"_s);
    rs.Edit();
    rs.SetValue(u"Comment"_s, u"Close family\nand more"_s);
    rs.Update();
    rs.Close();
    show(u"Categories"_s, u"ALL"_s, u"ID2"_s);
    const ListItem* family = list->ListItems(u"ID9E"_s);
    ASSERT_NE(family, nullptr);
    EXPECT_EQ(family->Tag(), u"a"_s);
    EXPECT_EQ(family->SmallIcon(), u"CAT"_s);
    EXPECT_EQ(family->CellCount(), 13);
    EXPECT_EQ(family->CellText(mLV::cellComment), u"Close family ..."_s);
    EXPECT_EQ(family->CellText(mLV::cellID), u" "_s);
    gDB.Execute(
        u"INSERT INTO Boxes (ID, Name, IDPARENT, Pedigree, Catpath) VALUES (2, 'Team', 1, 'ID0EID1EID2E', "
        "'Others/Team')"_s);
    show(u"Boxes"_s, u"ALL"_s, u"ID1"_s);
    EXPECT_EQ(list->ListItems(u"ID2E"_s)->SmallIcon(), u"BOX"_s);
}

TEST_F(ListFillTest, CellsFoldBreaksTrimBlanksAndKeepAnyScript) {
    set(carl, {{"FullName", u"\u0141ukasz \u00d6berg \u4e2d"_s},
               {"Address", u"a\rb\n\nc\r\n"_s},
               {"Comment", u"\nhidden"_s},
               {"ContactNumber", 5000000000LL},
               {"Type2", 3},
               {"Number2", u"  12  "_s},
               {"Number4", u" 9 "_s}});
    set(dora, {{"Address", u"one line"_s}, {"Comment", u"as is "_s}, {"Number1", u"   "_s}});
    show(u"Categories"_s, u"ALL"_s, u"ID0"_s);
    const ListItem* c = row(carl);
    EXPECT_EQ(c->Text(), u"\u0141ukasz \u00d6berg \u4e2d"_s);
    EXPECT_EQ(c->CellText(mLV::cellAddress), u"a, b, , c, "_s);
    EXPECT_EQ(c->CellText(mLV::cellComment), u" ..."_s);
    EXPECT_EQ(c->CellText(mLV::cellID), u"5000000000"_s);
    EXPECT_EQ(c->CellText(mLV::cellInfo1 + 1), u"Mobile phone:   12"_s);
    EXPECT_EQ(c->CellText(mLV::cellInfo1 + 3), u"9"_s);
    const ListItem* d = row(dora);
    EXPECT_EQ(d->CellText(mLV::cellAddress), u"one line"_s);
    EXPECT_EQ(d->CellText(mLV::cellComment), u"as is "_s);
    EXPECT_EQ(d->CellText(mLV::cellInfo1), u""_s);
    EXPECT_EQ(d->CellCount(), 25);
}

TEST_F(ListFillTest, ChildRowsAreAddedOnlyBelowTheRootInNormalMode) {
    show(u"Categories"_s, u"ALL"_s, u"ID3"_s);
    gDB.Execute(
        u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree, Catpath) VALUES (13, 'Key accounts', 3, "
        "'ID0EID3EID13E', 'Business/Key accounts')"_s);
    makeTree(u"ID3"_s); // the tree has grown behind the list
    list->SetSelectedItem(list->ListItems(u"ID4E"_s));
    mLV::AddMissingCatRecords(*list, *tree);
    EXPECT_EQ(rows(), u"Customers Employees Key accounts Partners Sponsors Suppliers"_s);
    EXPECT_EQ(list->SelectedItem(), nullptr);

    for (const auto& [advanced, node] : {std::pair{true, u"ID3"_s}, std::pair{false, u"ID0"_s}}) {
        AdvancedCategoryMode = advanced;
        CurrentNodeKey = node;
        list->ListItems.Clear();
        mLV::AddCatRecord(*list, u"ID13"_s, u"Key accounts (0)"_s);
        EXPECT_EQ(rows(), u""_s) << "advanced " << advanced << " at " << node.toStdString();
    }
}

TEST_F(ListFillTest, PassiveAddReadsOneContact) {
    show(u"Categories"_s, u"ALL"_s, u"ID9"_s);
    list->SetSelectedItem(row(carl));
    const int eve = addContact(u"Eve"_s, 9, 1, -1);
    mLV::AddDriveListPassive(*list, eve);
    EXPECT_EQ(row(eve)->CellText(mLV::cellCategory), u"Personal/Family"_s);
    EXPECT_EQ(list->SelectedItem(), nullptr) << "no contact in the pane: the selection goes";
    list->SetTag(QString::number(carl)); // a contact in the pane keeps its row selected
    list->SetSelectedItem(row(carl));
    mLV::AddDriveListPassive(*list, addContact(u"Fay"_s, 9, 1, -1));
    EXPECT_EQ(list->SelectedItem(), row(carl));
    EXPECT_EQ(rows(), u"Carl Dora Eve Fay"_s);
}

TEST_F(ListFillTest, NewContactInViewIsAddedAndSelected) {
    makeTree(u"ID9"_s);
    show(u"Categories"_s, u"ALL"_s, u"ID9"_s);
    const int eve = addContact(u"Eve"_s, 1, 1, -1);
    events.clear();
    mLV::AddDriveList(*list, *tree, u"ID9"_s, u"ID1"_s, QString(), true, eve);
    EXPECT_EQ(scalar(u"SELECT IDC & '/' & IDB & '/' & IDX FROM CDs WHERE IDCD = %1"_s.arg(eve)).toString(),
              u"9/1/1"_s);
    EXPECT_EQ(rows(), u"Carl Dora Eve"_s);
    EXPECT_EQ(row(eve)->CellText(mLV::cellFavorite), u"My favorites"_s);
    EXPECT_EQ(list->SelectedItem(), row(eve));
    EXPECT_EQ(events, (QStringList{u"hourglass 1"_s, u"hourglass 0"_s, u"counters"_s, u"menu"_s,
                                   u"pane ID%1"_s.arg(eve)}));
}

TEST_F(ListFillTest, NewContactOutOfViewSwitchesTheViewToIt) {
    makeTree(u"ID3"_s);
    show(u"Categories"_s, u"B"_s, u"ID3"_s);
    events.clear();
    mLV::AddDriveList(*list, *tree, u"ID9"_s, QString(), QString(), false, addContact(u"Eve"_s, 1, 1, -1));
    EXPECT_EQ(events.mid(2), QStringList{u"view E ID9 1"_s}) << "its letter and its category";
    EXPECT_EQ(tree->SelectedItem()->Key(), u"ID9"_s);

    // Among the favorites a contact that is none is out of view, also at the root: the view goes
    // back to the categories. The tab "ALL" fits every letter.
    show(u"Borrows"_s, u"ALL"_s, u"ID0"_s);
    events.clear();
    mLV::AddDriveList(*list, *tree, u"ID2"_s, QString(), QString(), false, addContact(u"Fay"_s, 1, 1, -1));
    EXPECT_EQ(events.mid(2), (QStringList{u"tree Categories"_s, u"view ALL ID2 1"_s}));
}

TEST_F(ListFillTest, RenamedNodeRewritesThePathCellOfTheRowsThatShowIt) {
    show(u"Categories"_s, u"ALL"_s, u"ID0"_s);
    const auto rename = [this](int id, const QString& name, qint16 mode) {
        gDB.Execute(u"UPDATE %1 SET Name = '%2' WHERE ID = %3"_s.arg(mTV::TreeTable(mode), name).arg(id));
        mLV::UpdateCatPaths(u"ID%1E"_s.arg(id), mode);
        mLV::UpdateCatInList(*list, u"ID%1"_s.arg(id), name);
    };
    rename(9, u"Kin"_s, 0); // normal mode: the contacts of that node
    EXPECT_EQ(row(carl)->CellText(mLV::cellCategory), u"Personal/Kin"_s);
    EXPECT_EQ(row(dora)->CellText(mLV::cellCategory), u"Personal/Kin"_s);
    EXPECT_EQ(row(anna)->CellText(mLV::cellCategory), u"Personal"_s);

    AdvancedCategoryMode = true; // its subtree, the letter in force only
    CurrentLetter = u"C"_s;
    rename(2, u"Private"_s, 0);
    EXPECT_EQ(row(carl)->CellText(mLV::cellCategory), u"Private/Kin"_s);
    EXPECT_EQ(row(dora)->CellText(mLV::cellCategory), u"Personal/Kin"_s);
    EXPECT_EQ(row(anna)->CellText(mLV::cellCategory), u"Personal"_s);

    CurrentTreeTab = u"Borrows"_s; // a favorites node: the favorites cell
    CurrentLetter = u"ALL"_s;
    rename(1, u"Best"_s, 2);
    EXPECT_EQ(row(bob)->CellText(mLV::cellFavorite), u"Best"_s);
    EXPECT_EQ(row(bob)->CellText(mLV::cellCategory), u"Business/Customers"_s);
}

} // namespace
