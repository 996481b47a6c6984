// Sorting the contact list by a column: numbers and dates by value, texts with ties falling to the
// name, child rows ahead of contacts, the order reversed by a second click, and every text and Tag
// of the list as it was afterwards.
#include "support/fixture.h"

#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listhooks.h"
#include "contactlist/listsort.h"
#include "core/commandids.h"
#include "core/globals.h"
#include "support/controls/listview.h"
#include "support/helpers/dates.h"
#include "trees/viewstate.h"

#include <map>
#include <memory>

using namespace Qt::StringLiterals;

static void PrintTo(const QString& s, std::ostream* os) {
    *os << '"' << s.toStdString() << '"';
}

namespace {

class ListSortTest : public fixture::PhonebookTest {
  protected:
    void SetUp() override {
        PhonebookTest::SetUp();
        AdvancedCategoryMode = false;
        list = std::make_unique<ListView>();
        mLV::IniList(*list, mLV::lcContacts);
    }
    void TearDown() override {
        mLV::Hooks() = mLV::ListHooks();
        mDateTime::SetDisplayLocale(QLocale::system());
        list.reset();
        AdvancedCategoryMode = true;
        CurrentNodeKey = u"ID0"_s;
        PhonebookTest::TearDown();
    }

    void contact(const QString& name, std::initializer_list<std::pair<const char*, QVariant>> fields,
                 int idc = 1) {
        dao::Recordset rs =
            gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(addContact(name, idc)));
        rs.Edit();
        for (const auto& [field, value] : fields)
            rs.SetValue(QString::fromLatin1(field), value);
        rs.Update();
    }
    void fill(const QString& node = u"ID0"_s) {
        CurrentNodeKey = node;
        mLV::FillDriveList(*list, u"ALL"_s, node);
    }
    // Sorts by the column as a click on its header does, and answers the rows' texts in order.
    QString sortBy(int column) {
        mLV::SwitchSortDisk(*list, column, true);
        QStringList texts;
        for (const ListItem* item : list->ListItems)
            texts << item->Text();
        return texts.join(' ');
    }
    // Every text and Tag of the list, row by row, by key.
    std::map<QString, QStringList> snapshot() const {
        std::map<QString, QStringList> m;
        for (const ListItem* item : list->ListItems) {
            QStringList cells{item->Tag()};
            for (int c = 0; c < item->CellCount(); ++c)
                cells << item->CellText(c) << item->CellTag(c);
            m[item->Key()] = cells;
        }
        return m;
    }

    std::unique_ptr<ListView> list;
};

TEST_F(ListSortTest, ContactNumbersSortByValueWithBlanksFirst) {
    contact(u"Cleo"_s, {{"ContactNumber", 2}});
    contact(u"Abe"_s, {{"ContactNumber", 10}});
    contact(u"Bea"_s, {{"ContactNumber", 1}});
    contact(u"Zed"_s, {{"ContactNumber", 0}});
    fill();
    EXPECT_EQ(sortBy(mLV::cellID), u"Zed Bea Cleo Abe"_s);
    EXPECT_EQ(sortBy(mLV::cellID), u"Abe Cleo Bea Zed"_s) << "a second click reverses";
    EXPECT_EQ(sortBy(mLV::cellFullName), u"Abe Bea Cleo Zed"_s) << "another column starts ascending";
    EXPECT_EQ(list->SortKey(), 0);
    EXPECT_EQ(list->SortOrder(), int(lvwAscending));
}

TEST_F(ListSortTest, TextTiesFallToTheNameAndBlanksComeFirst) {
    contact(u"Olga"_s, {{"City", u"Oslo"_s}});
    contact(u"Bert"_s, {{"City", u"Bergen"_s}});
    contact(u"Anders"_s, {{"City", u"Oslo"_s}});
    contact(u"Nina"_s, {});
    contact(u"Mia"_s, {{"City", u"Os"_s}});
    contact(u"ander"_s, {{"City", u"oslo"_s}});
    fill();
    EXPECT_EQ(sortBy(mLV::cellCity), u"Nina Bert Mia ander Anders Olga"_s);
    EXPECT_EQ(sortBy(mLV::cellCity), u"Olga Anders ander Mia Bert Nina"_s);
}

TEST_F(ListSortTest, ChildRowsLeadWhenAscendingAndTrailWhenDescending) {
    // Personal has four children; names alone would put Aaron before them and Zoe after.
    contact(u"Aaron"_s, {{"ContactNumber", 5}, {"City", u"Zug"_s}}, 2);
    contact(u"Zoe"_s, {{"ContactNumber", 3}}, 2);
    fill(u"ID2"_s);
    for (int column : {int(mLV::cellFullName), int(mLV::cellID), int(mLV::cellCity), int(mLV::cellInfo1)}) {
        list->SetSortKey(column + 1); // each column starts ascending
        EXPECT_TRUE(sortBy(column).startsWith(u"Family Friends Neighbors Relatives "_s)) << column;
        EXPECT_TRUE(sortBy(column).endsWith(u" Relatives Neighbors Friends Family"_s)) << column;
    }
    EXPECT_EQ(sortBy(mLV::cellID), u"Family Friends Neighbors Relatives Zoe Aaron"_s);
}

TEST_F(ListSortTest, EveryTextAndTagIsBackAfterAnySort) {
    contact(u"Ann"_s,
            {{"ContactNumber", 7}, {"City", u"Rome"_s}, {"Type1", 5}, {"Number1", u"ann@example.org"_s}}, 2);
    contact(u"Ben"_s, {{"ContactNumber", 0}, {"Comment", u"two\nlines"_s}}, 2);
    fill(u"ID2"_s);
    // A cell Tag set by someone else (a link address) survives the sort of its column.
    list->ListItems(u"ID1"_s)->SetCellTag(mLV::cellInfo1, u"mailto:ann@example.org"_s);
    const auto before = snapshot();
    for (int column = 0; column < 25; ++column) {
        for (int click = 0; click < 2; ++click) {
            sortBy(column);
            EXPECT_EQ(snapshot(), before) << "column " << column << " click " << click;
        }
    }
}

TEST_F(ListSortTest, AddedSortsByDateWhateverTheDisplayPattern) {
    // Text order and date order differ in every pattern; two-digit years read as 1930 to 2029.
    const QDateTime third(QDate(2010, 1, 2), QTime(13, 0, 1));
    contact(u"Dan"_s, {{"DateScan", third}});
    contact(u"Bob"_s, {{"DateScan", QDateTime(QDate(2029, 2, 1), QTime(8, 0, 0))}});
    contact(u"Cid"_s, {{"DateScan", QDateTime(QDate(1999, 12, 31), QTime(23, 59, 58))}});
    contact(u"Abe"_s, {{"DateScan", QDateTime(QDate(2010, 1, 2), QTime(9, 5, 0))}});
    contact(u"Eli"_s, {{"DateScan", QVariant()}});
    for (const char* locale : {"en_US", "de_DE", "en_GB", "C", "ja_JP"}) {
        mDateTime::SetDisplayLocale(QLocale(QString::fromLatin1(locale)));
        fill();
        list->SetSortKey(0);
        EXPECT_EQ(sortBy(mLV::cellAdded), u"Eli Cid Abe Dan Bob"_s) << locale;
        EXPECT_EQ(list->ListItems(u"ID1"_s)->CellText(mLV::cellAdded), mCommon::TimeCorrectView(third))
            << locale;
    }
}

TEST_F(ListSortTest, ValuesThatAreNoDateOrNumberSortAsTheyStandAndSelectionStays) {
    contact(u"Ann"_s, {{"ContactNumber", 4}});
    contact(u"Bob"_s, {{"ContactNumber", 9}});
    contact(u"Cat"_s, {{"ContactNumber", 30}});
    fill();
    // A cell someone wrote by hand: its bare text, without the kind letter, decides its place.
    list->ListItems(u"ID2"_s)->SetCellText(mLV::cellID, u"aa"_s);
    list->SetSelectedItem(list->ListItems(u"ID1"_s));
    list->SetSortKey(0);
    EXPECT_EQ(sortBy(mLV::cellID), u"Bob Ann Cat"_s);
    EXPECT_EQ(list->ListItems(u"ID2"_s)->CellText(mLV::cellID), u"aa"_s);
    EXPECT_EQ(list->SelectedItem()->Key(), u"ID1"_s);
    EXPECT_FALSE(list->Sorted());
}

TEST_F(ListSortTest, ASortedListKeepsANewOrChangedRowInItsPlace) {
    contact(u"Olga"_s, {{"City", u"Oslo"_s}}, 2);
    contact(u"Bert"_s, {{"City", u"Bergen"_s}}, 2);
    contact(u"Karl"_s, {{"City", u"Malmo"_s}}, 2);
    fill(u"ID2"_s); // with the child rows of Personal, which stay ahead of the contacts
    EXPECT_EQ(sortBy(mLV::cellCity).toStdString(), "Family Friends Neighbors Relatives Bert Karl Olga");
    const auto names = [&] {
        QStringList texts;
        for (const ListItem* item : list->ListItems)
            texts << item->Text();
        return texts.join(' ').toStdString();
    };
    // A contact added as the card adds one: its row, then its kind.
    CurrentNodeKey = u"ID2"_s;
    mLV::AddDriveListPassive(*list, addContact(u"Ann"_s, 2));
    EXPECT_EQ(names(), "Family Friends Neighbors Relatives Ann Bert Karl Olga") << "a blank city first";
    // A contact whose city changes, cell by cell as the card writes it back.
    list->ListItems(u"ID2"_s)->SetCellText(mLV::cellCity, u"Turku"_s);
    EXPECT_EQ(names(), "Family Friends Neighbors Relatives Ann Karl Olga Bert");
    list->ListItems(u"ID3"_s)->SetText(u"Aaron"_s); // a tie with no city breaks by name
    list->ListItems(u"ID3"_s)->SetCellText(mLV::cellCity, QString());
    EXPECT_EQ(names(), "Family Friends Neighbors Relatives Aaron Ann Olga Bert");

    // Descending, by name: the new row still goes to its place.
    contact(u"Zed"_s, {}, 2);
    EXPECT_EQ(sortBy(mLV::cellFullName).toStdString(),
              "Family Friends Neighbors Relatives Aaron Ann Bert Olga");
    EXPECT_EQ(sortBy(mLV::cellFullName).toStdString(),
              "Olga Bert Ann Aaron Relatives Neighbors Friends Family");
    mLV::AddDriveListPassive(*list, 5);
    EXPECT_EQ(names().substr(0, 8), "Zed Olga") << names();
    // A new fill is sorted afresh by the caller; rows come as the phonebook gives them.
    fill(u"ID2"_s);
    EXPECT_FALSE(list->HasSortRule());
}

TEST_F(ListSortTest, HeaderArrowAndArrangeEntryFollowTheColumn) {
    std::map<int, bool> checks;
    mLV::Hooks().SetCommandChecked = [&](int id, bool checked) { checks[id] = checked; };
    contact(u"Ann"_s, {});
    fill();
    list->SetSortKey(1);
    for (const auto& [column, id] : {std::pair{0, int(cmd::ListSortFirst)},
                                     {11, int(cmd::ListSortLast)},
                                     {12, int(cmd::ListSortByGroup)},
                                     {13, int(cmd::ListSortInfoFirst)},
                                     {24, int(cmd::ListSortInfoLast)}}) {
        sortBy(column);
        EXPECT_EQ(checks.size(), 25u);
        for (const auto& [entry, checked] : checks)
            EXPECT_EQ(checked, entry == id) << entry;
        for (const ColumnHeader* c : list->ColumnHeaders)
            EXPECT_EQ(c->Icon(), c->SubItemIndex() == column ? 2 : 0) << column;
    }
    sortBy(24);
    EXPECT_EQ(list->ColumnHeaders.Item(25)->Icon(), 1) << "descending";
    EXPECT_EQ(list->MousePointer(), int(ccDefault));
}

} // namespace
