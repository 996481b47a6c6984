// The dialog that customises the columns of a list: what it shows, moving, ticking, "Default",
// and that only OK changes the list.
#include "contactlist/columns.h"
#include "contactlist/form21.h"
#include "core/globals.h"
#include "preferences/settings.h"
#include "support/controls/listview.h"
#include "support/fixture.h"

#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>

namespace {

class Form21Dialog : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        mLV::IniList(list, mLV::lcContacts);
        list.ColumnHeaders("Added")->SetPosition(1);  // the user has put "Added" first
        mLV::HideColumn(*list.ColumnHeaders("City")); // and hidden "City"
    }
    static QStringList rows(const Form21& f, int count = 25) {
        QStringList l;
        for (const ListItem* r : f.lvColumns->ListItems)
            l << (r->Checked() ? "+" : "-") + r->Text();
        return l.mid(0, count);
    }
    QStringList columns() const {
        QStringList l;
        for (const ColumnHeader* c : list.ColumnHeaders)
            l << QStringLiteral("%1 %2 %3 %4").arg(c->Key()).arg(c->Position()).arg(c->Width()).arg(c->Tag());
        return l;
    }
    // A press on the row, or on its check box.
    static void click(Form21& f, int row, bool onCheckBox = false) {
        f.lvColumns->ListItems(row)->EnsureVisible();
        QStyleOptionViewItem opt;
        opt.initFrom(f.lvColumns->viewport());
        opt.rect = f.lvColumns->visualRect(f.lvColumns->model()->index(row - 1, 0));
        opt.features |= QStyleOptionViewItem::HasCheckIndicator;
        const QRect box =
            f.lvColumns->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &opt, f.lvColumns);
        QTest::mouseClick(f.lvColumns->viewport(), Qt::LeftButton, {},
                          onCheckBox ? box.center() : opt.rect.center());
    }
    ListView list;
};

} // namespace

TEST_F(Form21Dialog, ShowsTheColumnsInDisplayOrder) {
    Form21 f(list, 2);
    EXPECT_EQ(f.windowTitle(), "Customize columns");
    EXPECT_EQ(f.lvColumns->ColumnHeaders(1)->Text(), "Columns");
    EXPECT_EQ(rows(f, 8), QStringList({"+Added", "+Full Name", "+Title", "+Company", "+Category",
                                       "+Favorites", "+Address", "-City"}));
    EXPECT_EQ(f.lvColumns->SelectedItem(), f.lvColumns->ListItems(1));

    // The fields list has blank headers: its rows take the names of its column menu.
    ListView details;
    mLV::IniList(details, mLV::lcDetails);
    EXPECT_EQ(rows(Form21(details, 1)), QStringList({"+Name", "+Size"}));
}

TEST_F(Form21Dialog, MovesAndTicksReachTheListOnOK) {
    Form21 f(list, 2);
    f.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&f));
    const QStringList before = columns();

    click(f, 4); // Company
    for (int i = 0; i < 4; ++i)
        f.bnUp->click(); // the last press finds it first already
    EXPECT_EQ(rows(f, 3), QStringList({"+Company", "+Added", "+Full Name"}));
    f.VScroll1->triggerAction(QAbstractSlider::SliderSingleStepAdd); // the spin's own arrow
    click(f, 3, true);                                               // Full Name off: ticking moves nothing
    click(f, 8, true);                                               // City on
    EXPECT_EQ(rows(f, 3), QStringList({"+Added", "+Company", "-Full Name"}));
    click(f, 25);
    f.bnDown->click();
    EXPECT_EQ(f.lvColumns->SelectedItem(), f.lvColumns->ListItems(25));
    EXPECT_EQ(columns(), before);

    f.bnOK->click();
    EXPECT_EQ(list.ColumnHeaders("Company")->Position(), 2);
    EXPECT_EQ(list.ColumnHeaders("FullName")->Width(), 0);
    EXPECT_EQ(list.ColumnHeaders("FullName")->Tag(), "133");
    EXPECT_EQ(list.ColumnHeaders("City")->Width(), 133);
    EXPECT_EQ(rows(Form21(list, 2), 3), QStringList({"+Added", "+Company", "-Full Name"}));
}

TEST_F(Form21Dialog, DefaultThenCancelChangesNothingDefaultThenOKRestoresAll) {
    const QStringList before = columns();
    {
        Form21 f(list, 2);
        f.lvColumns->SetSelectedItem(f.lvColumns->ListItems(5));
        f.lvColumns_ItemClick(f.lvColumns->ListItems(5));
        f.bnDefault->click();
        EXPECT_EQ(rows(f, 8), QStringList({"+Full Name", "+Title", "+Company", "+Category", "+Favorites",
                                           "+Address", "+City", "+State/Prov"}));
        f.bnDown->click(); // moves the first row, selected by "Default"
        EXPECT_EQ(rows(f, 2), QStringList({"+Title", "+Full Name"}));
        f.bnCancel->click();
    }
    EXPECT_EQ(columns(), before);
    EXPECT_FALSE(GetSetting(AppTitle(), "CustomizeColumns", "MainLeft").isEmpty()); // its place is kept

    Form21 f(list, 2);
    f.bnDefault->click();
    f.bnOK->click();
    for (const ColumnHeader* c : list.ColumnHeaders) {
        EXPECT_EQ(c->Position(), c->Index());
        EXPECT_FALSE(mLV::HiddenColumn(*c));
    }
    EXPECT_EQ(list.ColumnHeaders("City")->Width(), 133);
}
