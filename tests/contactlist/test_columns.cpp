// Columns of the three lists: their defaults, the hidden-column rule and their state in the store.
#include "contactlist/columns.h"
#include "core/globals.h"
#include "preferences/settings.h"
#include "support/controls/listview.h"
#include "support/fixture.h"

#include <algorithm>

namespace {

QString stored(int code, int index, const char* key) {
    return GetSetting(AppTitle(), mLV::ColumnSection(code, index), QLatin1String(key));
}
void store(int code, int index, const char* key, const QString& value) {
    SaveSetting(AppTitle(), mLV::ColumnSection(code, index), QLatin1String(key), value);
}
QList<double> widths(const ListView& lv) {
    QList<double> l;
    for (const ColumnHeader* c : lv.ColumnHeaders)
        l << c->Width();
    return l;
}
// Keys from the leftmost column to the rightmost.
QStringList shownOrder(const ListView& lv) {
    std::vector<const ColumnHeader*> cs(lv.ColumnHeaders.begin(), lv.ColumnHeaders.end());
    std::sort(cs.begin(), cs.end(), [](auto a, auto b) { return a->Position() < b->Position(); });
    QStringList l;
    for (const ColumnHeader* c : cs)
        l << c->Key();
    return l;
}

const QStringList kInfo = {"Info 1", "Info 2", "Info 3", "Info 4",  "Info 5",  "Info 6",
                           "Info 7", "Info 8", "Info 9", "Info 10", "Info 11", "Info 12"};

} // namespace

using ColumnCatalogue = fixture::TempDirTest;
using ColumnSettings = fixture::TempDirTest;

TEST_F(ColumnCatalogue, FreshStoreShowsEveryColumnInOrderAtItsDefaultWidth) {
    store(12, 13, "Width", "300"); // the numbers take the default of "Group", not what it stores
    ListView contacts, search, details;
    mLV::IniList(details, mLV::lcDetails);
    mLV::IniList(contacts, mLV::lcContacts);
    mLV::IniSearchListMain(search);

    QStringList headers;
    for (const ColumnHeader* c : contacts.ColumnHeaders)
        headers << c->Text();
    EXPECT_EQ(headers,
              QStringList({"Full Name", "Title", "Company", "Category", "Favorites", "Address", "City",
                           "State/Prov", "Zip/Postal Code", "Comment", "Contact #", "Added", "Group"}) +
                  kInfo);
    EXPECT_EQ(widths(contacts),
              QList<double>({133, 133, 133, 107, 107, 133, 133, 133, 100, 120, 67, 123, 300}) +
                  QList<double>(12, 107));
    EXPECT_EQ(shownOrder(search), QStringList({"FullName", "Title", "Company"}) + kInfo +
                                      QStringList({"Category", "Favorite", "Address", "City", "State", "Zip",
                                                   "Comment", "ID", "Added", "Box"}));
    EXPECT_EQ(widths(search),
              QList<double>(15, 133) + QList<double>({107, 107, 133, 133, 133, 100, 120, 67, 123, 107}));
    EXPECT_EQ(details.ColumnHeaders(1)->Text(), "");
    EXPECT_EQ(widths(details), QList<double>({120, 200}));

    for (const ListView* lv : {&contacts, &search, &details}) {
        for (const ColumnHeader* c : lv->ColumnHeaders) {
            EXPECT_EQ(c->Position(), c->Index()) << c->Key().toStdString();
            EXPECT_FALSE(mLV::HiddenColumn(*c)) << c->Key().toStdString();
            EXPECT_EQ(c->Alignment(), c->Key() == "ID" ? lvwColumnRight : lvwColumnLeft)
                << c->Key().toStdString();
        }
    }
}

TEST_F(ColumnSettings, SaveAndReloadKeepsWidthsOrderHiddenColumnsAndSort) {
    ListView lv;
    mLV::IniSearchListMain(lv);
    lv.ColumnHeaders("City")->SetWidth(250.7);
    lv.ColumnHeaders("Box")->SetPosition(1);
    lv.ColumnHeaders("Title")->SetWidth(0); // dragged shut by hand: still a visible column
    mLV::HideColumn(*lv.ColumnHeaders("Added"));
    mLV::HideColumn(*lv.ColumnHeaders("Added")); // hiding twice keeps the width, not the 0
    lv.SetSortKey(4);
    lv.SetSortOrder(lvwDescending);
    mLV::SaveColumnSize(lv, mLV::lcSearch);
    EXPECT_EQ(stored(81, 19, "Width"), "250");
    EXPECT_EQ(stored(81, 2, "Visible"), "1");
    EXPECT_EQ(stored(81, 24, "Visible"), "0");
    EXPECT_EQ(stored(81, 24, "Width"), "123");
    EXPECT_EQ(GetSetting(AppTitle(), "ColumnHeaders81\\Other", "SortKey"), "4");
    EXPECT_EQ(GetSetting(AppTitle(), "ColumnHeaders81\\Other", "SortOrder"), "1");

    ListView again;
    mLV::IniSearchListMain(again);
    EXPECT_EQ(shownOrder(again), shownOrder(lv));
    EXPECT_EQ(again.ColumnHeaders("City")->Width(), 250);
    EXPECT_EQ(again.ColumnHeaders("Title")->Width(), 0);
    EXPECT_FALSE(mLV::HiddenColumn(*again.ColumnHeaders("Title")));
    ColumnHeader* added = again.ColumnHeaders("Added");
    EXPECT_EQ(added->Width(), 0);
    mLV::ShowColumn(*added);
    EXPECT_EQ(added->Width(), 123);
    EXPECT_EQ(added->Tag(), "");

    ListView details; // the fields list has no sort to keep
    mLV::IniList(details, mLV::lcDetails);
    mLV::SaveColumnSize(details, mLV::lcDetails);
    EXPECT_TRUE(GetAllSettings(AppTitle(), "ColumnHeaders11\\Other").isEmpty());
}

TEST_F(ColumnSettings, StoredPositionsApplyAsTheyStand) {
    // A full set of places, in an order that moving the columns one by one by index would spoil.
    for (int i = 1; i <= 25; ++i)
        store(12, i, "Position", QString::number((i - 1) * 7 % 25 + 1));
    ListView lv;
    mLV::IniList(lv, mLV::lcContacts);
    for (const ColumnHeader* c : lv.ColumnHeaders)
        EXPECT_EQ(c->Position(), (c->Index() - 1) * 7 % 25 + 1);

    // A place stored alone is taken; the others keep their order behind it.
    store(81, 25, "Position", "1");
    ListView search;
    mLV::IniSearchListMain(search);
    EXPECT_EQ(shownOrder(search).mid(0, 3), QStringList({"Box", "FullName", "Title"}));
}
