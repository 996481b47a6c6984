// The detail pane: one bold label and one value per field that the contact has, mail and web
// numbers as blue links, and no rebuild for the contact already shown.
#include "viewfixture.h"

#include "trees/treeselect.h"

namespace {

class DetailPaneTest : public TreeViewTest {
  protected:
    int eva() {
        const int id = addContact(u"Eva Lind"_s, 9, 1, 1);
        dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(id));
        rs.Edit();
        const std::pair<const char*, QVariant> fields[] = {
            {"Title", u"Dr."_s},          {"Type1", 1},
            {"Number1", u"555 1234"_s},   {"Type2", 5},
            {"Number2", u"eva@example.org"_s}, {"Number3", u"WWW.lind.example"_s},
            {"City", u"Oslo"_s},          {"Address", u"Main St 1\r\nFloor 2"_s},
            {"Comment", u"Met in May\nLikes chess"_s}};
        for (const auto& [name, value] : fields) rs.SetValue(QLatin1String(name), value);
        rs.Update();
        return id;
    }
    QStringList lines() const {
        QStringList l;
        for (const ListItem* item : list1.ListItems) l << item->Text() + u"|"_s + item->SubItems(1);
        return l;
    }
};

TEST_F(DetailPaneTest, ShowsEachFieldWithItsLabelAndLinksInBlue) {
    const int id = eva();
    mTV::SelectNode(list1, u"ID%1"_s.arg(id));
    EXPECT_EQ(lines(), QStringList({u"Full Name:|Eva Lind"_s, u"Title:|Dr."_s, u"Home phone:|555 1234"_s,
                                    u"Email:|eva@example.org"_s, u"|WWW.lind.example"_s,
                                    u"Address:|Main St 1, Floor 2"_s, u"City:|Oslo"_s,
                                    u"Comment:|Met in May ..."_s, u"Category:|Personal/Family"_s,
                                    u"Favorites:|My favorites"_s, u"Group:|Others"_s}));
    const ListItem* first = list1.ListItems(u"1k"_s);
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(first->Bold());
    EXPECT_FALSE(first->ListSubItems(1).ForeColor().isValid());
    for (const QString& key : {u"4k"_s, u"5k"_s}) {
        const ListSubItem link = list1.ListItems(key)->ListSubItems(1);
        EXPECT_EQ(link.ForeColor(), QColor(0, 0, 255)) << key.toStdString();
        EXPECT_EQ(link.Tag(), link.Text());
    }
    EXPECT_FALSE(list1.ListItems(u"3k"_s)->ListSubItems(1).ForeColor().isValid());
    EXPECT_EQ(list1.SelectedItem(), nullptr);
    EXPECT_EQ(photos, QList<int>({id}));

    // A contact with no favorite and no other fields shows its name and its two nodes.
    const int bare = addContact(u"Olof"_s, 1);
    mTV::SelectNode(list1, u"ID%1"_s.arg(bare));
    EXPECT_EQ(lines(), QStringList({u"Full Name:|Olof"_s, u"Category:|Others"_s, u"Group:|Others"_s}));
}

TEST_F(DetailPaneTest, TheSameContactIsNotBuiltTwiceAndANodeRowEmptiesThePane) {
    const int id = eva();
    const QString key = u"ID%1"_s.arg(id);
    mTV::PreFillTree(view, key);
    EXPECT_EQ(list2.Tag(), QString::number(id));
    ASSERT_EQ(list1.ListItems.Count(), 11);
    list1.ListItems.Remove(u"1k"_s);
    mTV::PreFillTree(view, key);
    EXPECT_EQ(list1.ListItems.Count(), 10);
    EXPECT_EQ(photos.size(), 1);

    mTV::PreFillTree(view, u"ID9E"_s);
    EXPECT_EQ(list1.ListItems.Count(), 0);
    EXPECT_EQ(list2.Tag(), QString());
    EXPECT_EQ(noImage, 1);
    mTV::PreFillTree(view, key);
    EXPECT_EQ(list1.ListItems.Count(), 11);
}

} // namespace
