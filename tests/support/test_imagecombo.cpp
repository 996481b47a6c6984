// The image combo: keyed entries with indentation, the choice, and the click of the user.
#include "core/error.h"
#include "support/controls/imagecombo.h"
#include "support/controls/imagecombodelegate.h"
#include "support/controls/imagelist.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QStyleOptionViewItem>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// The category tree below the root, indented by depth, as the card fills it.
void fillCategories(ImageCombo& combo) {
    combo.ComboItems.Add("ID1", "Others", "CAT", QString(), 0);
    combo.ComboItems.Add("ID3", "Family", "CAT", QString(), 0);
    combo.ComboItems.Add("ID7", "Cousins", "CAT", QString(), 1);
    combo.ComboItems.Add("ID9", "Paris", "CAT", QString(), 2);
    combo.ComboItems.Add("ID4", "Work", "CAT", QString(), 0);
}

QIcon iconAt(const ImageCombo& combo, int row) {
    return combo.itemIcon(row);
}

} // namespace

TEST(ImageCombo, EntriesByKeyWithNoChoiceUntilMade) {
    ImageCombo combo;
    fillCategories(combo);
    EXPECT_EQ(combo.ComboItems.Count(), 5);
    EXPECT_EQ(combo.count(), 5);
    EXPECT_EQ(combo.SelectedItem(), nullptr); // unlike a plain combo, the first entry is not taken
    EXPECT_EQ(combo.Text(), "");
    ComboItem* paris = combo.ComboItems("ID9");
    ASSERT_NE(paris, nullptr);
    EXPECT_EQ(paris->Indentation(), 2);
    EXPECT_EQ(paris->Index(), 4);
    EXPECT_EQ(combo.ComboItems(4), paris);
    EXPECT_EQ(combo.ComboItems("ID99"), nullptr);
    EXPECT_EQ(combo.itemData(3, ImageComboDelegate::IndentRole).toInt(), 2);

    int number = 0;
    try {
        combo.ComboItems.Add("ID3", "again");
    } catch (const HuntERR::Error& e) {
        number = e.Number();
    }
    EXPECT_EQ(number, 35602);

    combo.SetSelectedItem(paris);
    EXPECT_EQ(combo.SelectedItem(), paris);
    EXPECT_TRUE(paris->Selected());
    EXPECT_EQ(combo.Text(), "Paris");
    combo.SetText("Work");
    EXPECT_EQ(combo.SelectedItem()->Key(), "ID4");
    combo.SetText("");
    EXPECT_EQ(combo.SelectedItem(), nullptr);

    // An entry put in front moves the others; the choice stays on its entry.
    combo.SetSelectedItem(paris);
    combo.ComboItems.Add(1, "ID2", "Archive", "CAT");
    EXPECT_EQ(paris->Index(), 5);
    EXPECT_EQ(combo.SelectedItem(), paris);
    combo.ComboItems.Remove("ID7");
    EXPECT_EQ(combo.ComboItems("ID7"), nullptr);
    EXPECT_EQ(paris->Index(), 4);
    EXPECT_EQ(combo.itemText(3), "Paris");
    combo.ComboItems.Clear();
    EXPECT_EQ(combo.SelectedItem(), nullptr);
    EXPECT_EQ(combo.count(), 0);
}

TEST(ImageCombo, ClickFollowsTheUsersChoiceOnly) {
    ImageCombo combo;
    fillCategories(combo);
    QSignalSpy clicks(&combo, &ImageCombo::Click);
    combo.SetSelectedItem(combo.ComboItems("ID3"));
    EXPECT_EQ(clicks.count(), 0);
    QTest::keyClick(&combo, Qt::Key_Down);
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(combo.SelectedItem()->Key(), "ID7");
}

TEST(ImageCombo, IndentationAndImagesShowInTheList) {
    ImageList images;
    QPixmap green(16, 16), yellow(16, 16);
    green.fill(Qt::green);
    yellow.fill(Qt::yellow);
    images.Add("CAT", QIcon(green));
    images.Add("CATSEL", QIcon(yellow));
    ImageCombo combo;
    combo.SetImageList(&images);
    fillCategories(combo);
    combo.ComboItems("ID9")->SetSelImage("CATSEL");

    const auto color = [&](int row) { return iconAt(combo, row).pixmap(16).toImage().pixelColor(8, 8); };
    EXPECT_EQ(color(3), QColor(Qt::green));
    combo.SetSelectedItem(combo.ComboItems("ID9"));
    EXPECT_EQ(color(3), QColor(Qt::yellow)); // the chosen entry shows its selected image
    combo.SetSelectedItem(combo.ComboItems("ID1"));
    EXPECT_EQ(color(3), QColor(Qt::green));

    // Each level of indentation widens the entry by one step.
    QStyleOptionViewItem opt;
    opt.initFrom(combo.view());
    QAbstractItemDelegate* d = combo.view()->itemDelegate();
    const QAbstractItemModel* m = combo.model();
    const int flat = d->sizeHint(opt, m->index(1, 0)).width(); // "Family", level 0
    combo.ComboItems("ID9")->SetText("Family");
    EXPECT_EQ(d->sizeHint(opt, m->index(3, 0)).width(), flat + 2 * ImageComboDelegate::IndentStep);
}
