// The detail pane: a bold label and a value per field the contact has, mail and web numbers as
// blue links, no rebuild for the contact already shown.
#include "viewfixture.h"

#include "trees/treeselect.h"

namespace {

class DetailPaneTest : public TreeViewTest {
  protected:
    QStringList lines() const {
        QStringList l;
        for (const ListItem* item : list1.ListItems)
            l << item->Text() + u"|"_s + item->SubItems(1);
        return l;
    }
};

TEST_F(DetailPaneTest, ShowsEachFieldWithItsLabelAndLinksInBlue) {
    const int id = addContact(u"Eva Lind"_s, 9, 1, 1);
    dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(id));
    rs.Edit();
    const std::pair<const char*, QVariant> fields[] = {{"Title", u"Dr."_s},
                                                       {"Type1", 1},
                                                       {"Number1", u"555 1234"_s},
                                                       {"Type2", 5},
                                                       {"Number2", u"eva@example.org"_s},
                                                       {"Number3", u"WWW.lind.example"_s},
                                                       {"City", u"Oslo"_s},
                                                       {"Address", u"Main St 1\r\nFloor 2"_s},
                                                       {"Comment", u"Met in May\nLikes chess"_s}};
    for (const auto& [name, value] : fields)
        rs.SetValue(QLatin1String(name), value);
    rs.Update();

    const QString key = u"ID%1"_s.arg(id);
    mTV::PreFillTree(view, key);
    EXPECT_EQ(lines(), QStringList({u"Full Name:|Eva Lind"_s, u"Title:|Dr."_s, u"Home phone:|555 1234"_s,
                                    u"Email:|eva@example.org"_s, u"|WWW.lind.example"_s,
                                    u"Address:|Main St 1, Floor 2"_s, u"City:|Oslo"_s,
                                    u"Comment:|Met in May ..."_s, u"Category:|Personal/Family"_s,
                                    u"Favorites:|My favorites"_s, u"Group:|Others"_s}));
    EXPECT_TRUE(list1.ListItems(u"1k"_s)->Bold());
    EXPECT_FALSE(list1.ListItems(u"3k"_s)->ListSubItems(1).ForeColor().isValid());
    for (const QString& k : {u"4k"_s, u"5k"_s}) {
        const ListSubItem link = list1.ListItems(k)->ListSubItems(1);
        EXPECT_EQ(link.ForeColor(), QColor(0, 0, 255)) << k.toStdString();
        EXPECT_EQ(link.Tag(), link.Text());
    }
    EXPECT_EQ(photos, QList<int>({id}));
    EXPECT_EQ(list2.Tag(), QString::number(id));

    // The same contact again is not rebuilt; a node row empties the pane.
    list1.ListItems.Remove(u"1k"_s);
    mTV::PreFillTree(view, key);
    EXPECT_EQ(list1.ListItems.Count(), 10);
    mTV::PreFillTree(view, u"ID9E"_s);
    EXPECT_EQ(list1.ListItems.Count(), 0);
    EXPECT_EQ(list2.Tag(), QString());
    EXPECT_EQ(noImage, 1);

    // No favorite, no line for it.
    mTV::SelectNode(list1, u"ID%1"_s.arg(addContact(u"Olof"_s, 1)));
    EXPECT_EQ(lines(), QStringList({u"Full Name:|Olof"_s, u"Category:|Others"_s, u"Group:|Others"_s}));
}

} // namespace
