// Switching the view of the main window: letter tab, node and tree tab refill the list in the
// order in force, keep a selected contact that is still in view, mark the subtree in the advanced
// mode, and follow the keys and clicks of the contact list.
#include "viewfixture.h"

#include "contactlist/listsort.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"
#include "trees/treeevents.h"
#include "trees/treeselect.h"

namespace {

class CheckTabTest : public TreeViewTest {
  protected:
    void SetUp() override {
        TreeViewTest::SetUp();
        anna = u"ID%1"_s.arg(addContact(u"Anna"_s, 9, 1, 1));
        bob = u"ID%1"_s.arg(addContact(u"Bob"_s, 2));
        ken = u"ID%1"_s.arg(addContact(u"Ken"_s, 4));
        fill();
        mToolBar::CheckTab(view, u"ALL"_s, u"ID0"_s, true);
    }
    // Selects a row as a click on it does.
    void pick(const QString& key) {
        list2.SetSelectedItem(list2.ListItems(key));
        mTV::DiskListItemClick(view, list2.ListItems(key));
    }
    QString image(const QString& key) const { return tree.Nodes(key)->Image(); }
    QString selectedRow() const { return list2.SelectedItem() ? list2.SelectedItem()->Key() : QString(); }
    QString anna, bob, ken;
};

TEST_F(CheckTabTest, LetterAndNodeMakeTheViewAndTheCounts) {
    EXPECT_EQ(rows().size(), 3);
    click(u"ID2"_s);
    EXPECT_EQ(CurrentNodeKey, u"ID2"_s);
    QStringList shown = rows();
    shown.sort();
    EXPECT_EQ(shown, QStringList({anna, bob}));
    mToolBar::CheckTab(view, u"B"_s, u"ID2"_s);
    EXPECT_EQ(rows(), QStringList({bob}));
    EXPECT_EQ(label(u"ID2"_s), u"Personal (1)"_s);
    EXPECT_EQ(label(u"ID9"_s), u"Family (0)"_s);
    EXPECT_EQ(label(u"ID0"_s), u"All categories (1)"_s);
    mToolBar::CheckTab(view, u"ALL"_s, u"ID2"_s);
    EXPECT_EQ(label(u"ID2"_s), u"Personal (2)"_s);
}

TEST_F(CheckTabTest, TheAdvancedModeMarksTheSubtreeInForce) {
    click(u"ID2"_s);
    for (const char* k : {"ID2", "ID9", "ID12"}) EXPECT_EQ(image(QLatin1String(k)), u"CATSEL"_s) << k;
    EXPECT_EQ(image(u"ID3"_s), u"CAT"_s);
    click(u"ID3"_s);
    EXPECT_EQ(image(u"ID9"_s), u"CAT"_s);
    EXPECT_EQ(image(u"ID4"_s), u"CATSEL"_s);
    EXPECT_EQ(image(u"ID0"_s), u"CATS"_s);

    mLV::SwitchCategoryMode(view, true);
    EXPECT_FALSE(AdvancedCategoryMode);
    EXPECT_TRUE(CategoryNormalMode);
    EXPECT_EQ(GetSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s), u"1"_s);
    EXPECT_TRUE(checked.value(206));
    EXPECT_FALSE(checked.value(207));
    EXPECT_EQ(image(u"ID4"_s), u"CAT"_s);
    // The normal mode lists the node's own contacts (none) and a row for each child.
    EXPECT_EQ(rows().size(), 5);
    EXPECT_TRUE(list2.ListItems.Exists(u"ID4E"_s));
    mLV::SwitchCategoryMode(view, false);
    EXPECT_EQ(GetSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s), u"0"_s);
    EXPECT_EQ(rows(), QStringList({ken}));
}

TEST_F(CheckTabTest, ASelectedContactStaysOnlyWhileInView) {
    noImage = 0;
    pick(bob);
    ASSERT_EQ(list2.Tag(), bob.mid(2));
    click(u"ID2"_s);
    EXPECT_EQ(selectedRow(), bob);
    EXPECT_GT(list1.ListItems.Count(), 0);
    click(u"ID9"_s);
    EXPECT_EQ(selectedRow(), QString());
    EXPECT_EQ(list1.ListItems.Count(), 0);
    EXPECT_EQ(list2.Tag(), QString());
    EXPECT_EQ(noImage, 1);

    click(u"ID0"_s);
    pick(anna);
    mToolBar::CheckTab(view, u"B"_s, u"ID0"_s);
    EXPECT_EQ(selectedRow(), QString());
    pick(bob);
    mToolBar::CheckTab(view, u"B"_s, u"ID0"_s, true);
    EXPECT_EQ(selectedRow(), QString()) << "a forced update drops the selection";
}

TEST_F(CheckTabTest, TheNodeInForceWithoutForceChangesNothing) {
    list2.ListItems.Add(u"marker"_s, u"marker"_s);
    mToolBar::CheckTab(view, u"ALL"_s, u"ID0"_s);
    EXPECT_TRUE(list2.ListItems.Exists(u"marker"_s));
    mToolBar::CheckTab(view, u"ALL"_s, u"ID0"_s, true);
    EXPECT_FALSE(list2.ListItems.Exists(u"marker"_s));
}

TEST_F(CheckTabTest, TheFreshListKeepsTheSortInForce) {
    mLV::SwitchSortDisk(list2, 0, false); // the names were ascending: now descending
    click(u"ID2"_s);
    click(u"ID0"_s);
    EXPECT_EQ(rows(), QStringList({ken, bob, anna}));
    EXPECT_EQ(list2.SortOrder(), int(lvwDescending));
}

TEST_F(CheckTabTest, AnotherTreeTabStartsAtItsRootAndKeepsAFavorite) {
    click(u"ID2"_s);
    pick(anna);
    fill(u"Borrows"_s);
    CurrentTreeTab = u"Categories"_s; // the tab switch is told before the state changes
    mToolBar::CheckCBTab(view, u"Borrows"_s);
    EXPECT_EQ(captions, QList<qint16>({2}));
    EXPECT_EQ(CurrentTreeTab, u"Borrows"_s);
    EXPECT_EQ(CurrentNodeKey, u"ID0"_s);
    EXPECT_EQ(rows(), QStringList({anna}));
    EXPECT_EQ(selectedRow(), anna);

    mToolBar::CheckCBTab(view, u"Categories"_s);
    pick(bob);
    mToolBar::CheckCBTab(view, u"Borrows"_s);
    EXPECT_EQ(selectedRow(), QString());
    EXPECT_EQ(list1.ListItems.Count(), 0);
}

TEST_F(CheckTabTest, BackspaceGoesUpAndANodeRowOpensItsNode) {
    list2.ListItems.Add(u"marker"_s, u"marker"_s);
    mTV::DiskListKeyPress(view, 8);
    EXPECT_TRUE(list2.ListItems.Exists(u"marker"_s)) << "nothing above the root";

    mLV::SwitchCategoryMode(view, true);
    click(u"ID2"_s);
    list2.SetSelectedItem(list2.ListItems(u"ID9E"_s));
    mTV::DiskListDblClick(view);
    EXPECT_EQ(tree.SelectedItem()->Key(), u"ID9"_s);
    EXPECT_EQ(rows(), QStringList({anna}));
    mTV::DiskListKeyPress(view, 8);
    EXPECT_EQ(tree.SelectedItem()->Key(), u"ID2"_s);
    EXPECT_EQ(CurrentNodeKey, u"ID2"_s);
    list2.SetSelectedItem(list2.ListItems(u"ID10E"_s));
    mTV::DiskListKeyPress(view, 13);
    EXPECT_EQ(CurrentNodeKey, u"ID10"_s);
}

} // namespace
