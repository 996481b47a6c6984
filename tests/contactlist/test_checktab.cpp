// Switching the view of the main window: letter tab, node and tree tab refill the list in the
// order in force, keep a selected contact that is still in view, mark the subtree in the advanced
// mode, and follow the keys and clicks of the contact list.
#include "trees/viewfixture.h"

#include "contactlist/listsort.h"
#include "contactlist/treeevents.h"
#include "core/commandids.h"
#include "preferences/settings.h"

namespace {

class CheckTabTest : public TreeViewTest {
  protected:
    void SetUp() override {
        TreeViewTest::SetUp();
        anna = u"ID%1"_s.arg(addContact(u"Anna"_s, 9, 1, 1)); // Personal/Family, a favorite
        bob = u"ID%1"_s.arg(addContact(u"Bob"_s, 2));         // Personal
        ken = u"ID%1"_s.arg(addContact(u"Ken"_s, 4));         // Business/Customers
        fill();
        mToolBar::CheckTab(view, u"ALL"_s, u"ID0"_s, true);
        noImage = 0;
    }
    void pick(const QString& key) {
        list2.SetSelectedItem(list2.ListItems(key));
        mTV::DiskListItemClick(view, list2.ListItems(key));
    }
    QString image(const char* key) const { return tree.Nodes(QLatin1String(key))->Image(); }
    QString selectedRow() const { return list2.SelectedItem() ? list2.SelectedItem()->Key() : QString(); }
    QString anna, bob, ken;
};

TEST_F(CheckTabTest, LetterAndNodeMakeTheViewAndTheCounts) {
    mLV::SwitchSortDisk(list2, 0, false); // names descending, kept through every refill
    click(u"ID2"_s);
    EXPECT_EQ(rows(), QStringList({bob, anna}));
    mToolBar::CheckTab(view, u"B"_s, u"ID2"_s);
    EXPECT_EQ(rows(), QStringList({bob}));
    EXPECT_EQ(label(u"ID9"_s), u"Family (0)"_s);
    EXPECT_EQ(label(u"ID0"_s), u"All categories (1)"_s);
}

TEST_F(CheckTabTest, TheAdvancedModeMarksTheSubtreeInForce) {
    click(u"ID2"_s);
    for (const char* k : {"ID2", "ID9", "ID12"})
        EXPECT_EQ(image(k), u"CATSEL"_s) << k;
    click(u"ID3"_s);
    EXPECT_EQ(image("ID9") + image("ID4") + image("ID0"), u"CAT"
                                                          "CATSEL"
                                                          "CATS"_s);

    mLV::SwitchCategoryMode(view, true);
    EXPECT_EQ(GetSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s), u"1"_s);
    EXPECT_TRUE(checked[cmd::CategoryModeNormal] && !checked[cmd::CategoryModeAdvanced]);
    EXPECT_EQ(image("ID4"), u"CAT"_s);
    EXPECT_EQ(rows(), QStringList({u"ID4E"_s, u"ID5E"_s, u"ID8E"_s, u"ID6E"_s, u"ID7E"_s}));
    mLV::SwitchCategoryMode(view, false);
    EXPECT_EQ(rows(), QStringList({ken}));
}

TEST_F(CheckTabTest, ASelectedContactStaysOnlyWhileInView) {
    pick(bob);
    click(u"ID2"_s);
    EXPECT_EQ(selectedRow(), bob);
    EXPECT_EQ(list2.Tag(), bob.mid(2));
    click(u"ID9"_s);
    EXPECT_EQ(selectedRow(), QString());
    EXPECT_EQ(list1.ListItems.Count(), 0);
    EXPECT_EQ(list2.Tag(), QString());
    EXPECT_EQ(noImage, 1);
    click(u"ID0"_s);
    pick(anna);
    mToolBar::CheckTab(view, u"B"_s, u"ID0"_s);
    EXPECT_EQ(selectedRow(), QString()) << "another letter";
}

TEST_F(CheckTabTest, AnotherTreeTabStartsAtItsRootAndKeepsAFavorite) {
    click(u"ID2"_s);
    pick(anna);
    mToolBar::CheckCBTab(view, u"Borrows"_s);
    EXPECT_EQ(captions, QList<qint16>({2}));
    EXPECT_EQ(CurrentNodeKey, u"ID0"_s);
    EXPECT_EQ(rows(), QStringList({anna}));
    EXPECT_EQ(selectedRow(), anna);

    mToolBar::CheckCBTab(view, u"Categories"_s);
    pick(bob);
    mToolBar::CheckCBTab(view, u"Borrows"_s);
    EXPECT_EQ(selectedRow(), QString());
    EXPECT_EQ(list1.ListItems.Count(), 0);
}

TEST_F(CheckTabTest, KeysAndClicksOfTheListMoveThroughTheTree) {
    // Nothing happens for the view in force, nor for Backspace at the root.
    list2.ListItems.Add(u"marker"_s, u"marker"_s);
    mToolBar::CheckTab(view, u"ALL"_s, u"ID0"_s);
    mTV::DiskListKeyPress(view, 8);
    EXPECT_TRUE(list2.ListItems.Exists(u"marker"_s));

    mLV::SwitchCategoryMode(view, true);
    click(u"ID2"_s);
    list2.SetSelectedItem(list2.ListItems(u"ID9E"_s));
    mTV::DiskListDblClick(view);
    EXPECT_EQ(tree.SelectedItem()->Key(), u"ID9"_s);
    EXPECT_EQ(rows(), QStringList({anna}));
    mTV::DiskListKeyPress(view, 8);
    EXPECT_EQ(CurrentNodeKey, u"ID2"_s);
    list2.SetSelectedItem(list2.ListItems(u"ID10E"_s));
    mTV::DiskListKeyPress(view, 13);
    EXPECT_EQ(CurrentNodeKey, u"ID10"_s);
}

} // namespace
