// The header of the list control: a hidden column (width 0) cannot be opened by hand.
#include "support/controls/listview.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QStyle>
#include <QTest>
#include <gtest/gtest.h>

namespace {

// "Name" 120, "Phone" hidden, "City" 100, "Zip" hidden at the end.
class HiddenColumn : public ::testing::Test {
  protected:
    void SetUp() override {
        lv.ColumnHeaders.Add("Name", "Name", 120);
        lv.ColumnHeaders.Add("Phone", "Phone", 0);
        lv.ColumnHeaders.Add("City", "City", 100);
        lv.ColumnHeaders.Add("Zip", "Zip", 0);
        lv.ListItems.Add("ID1", "Ann Berg")->ListSubItems.Add("555-0100");
        lv.resize(500, 200);
        lv.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&lv));
        header = lv.header();
        grip = header->style()->pixelMetric(QStyle::PM_HeaderGripMargin, nullptr, header);
    }
    QPoint at(int x) const { return {x, header->height() / 2}; }
    void drag(int from, int to) {
        QWidget* w = header->viewport();
        QTest::mousePress(w, Qt::LeftButton, {}, at(from));
        QTest::mouseMove(w, at((from + to) / 2));
        QTest::mouseMove(w, at(to));
        QTest::mouseRelease(w, Qt::LeftButton, {}, at(to));
    }
    void expectHidden(int index) const {
        EXPECT_EQ(lv.ColumnHeaders.Item(index)->Width(), 0) << "column " << index;
        EXPECT_TRUE(header->isSectionHidden(index - 1) || header->sectionSize(index - 1) == 0);
    }
    Qt::CursorShape cursorAt(int x) {
        QTest::mouseMove(header->viewport(), at(x));
        return header->testAttribute(Qt::WA_SetCursor) ? header->cursor().shape() : Qt::ArrowCursor;
    }

    ListView lv;
    QHeaderView* header = nullptr;
    int grip = 0;
};

} // namespace

TEST_F(HiddenColumn, ADragOnItsSideOfTheEdgeOpensNothing) {
    QSignalSpy resized(&lv, &ListView::ColumnResize);
    // The edge after "Name" is where "Phone" hides; its side is the start of "City".
    drag(121, 220);
    expectHidden(2);
    EXPECT_EQ(lv.ColumnHeaders.Item(1)->Width(), 120);
    EXPECT_EQ(lv.ColumnHeaders.Item(3)->Width(), 100);
    EXPECT_EQ(resized.count(), 0);
    // Past the last visible column, where "Zip" hides.
    drag(221, 300);
    expectHidden(4);
    EXPECT_EQ(lv.ColumnHeaders.Item(3)->Width(), 100);
}

TEST_F(HiddenColumn, TheColumnBeforeStillSizesFromItsOwnSide) {
    QSignalSpy resized(&lv, &ListView::ColumnResize);
    drag(118, 168);
    EXPECT_EQ(lv.ColumnHeaders.Item(1)->Width(), 170);
    expectHidden(2);
    EXPECT_GE(resized.count(), 1);
}

TEST_F(HiddenColumn, ADoubleClickOnItsEdgeOpensNothing) {
    QTest::mouseDClick(header->viewport(), Qt::LeftButton, {}, at(121));
    expectHidden(2);
    EXPECT_EQ(lv.ColumnHeaders.Item(1)->Width(), 120);
    // The header takes the next drag as usual.
    drag(118, 148);
    EXPECT_EQ(lv.ColumnHeaders.Item(1)->Width(), 150);
    expectHidden(2);
}

TEST_F(HiddenColumn, ItsEdgeShowsNoGripButTheVisibleEdgesDo) {
    EXPECT_EQ(cursorAt(121), Qt::ArrowCursor);
    EXPECT_EQ(cursorAt(119), Qt::SplitHCursor);
    EXPECT_EQ(cursorAt(121 + grip), Qt::ArrowCursor);
    EXPECT_EQ(cursorAt(60), Qt::ArrowCursor);
    // A column shown again has its grip back.
    lv.ColumnHeaders.Item(2)->SetWidth(80);
    EXPECT_EQ(cursorAt(201), Qt::SplitHCursor);
    drag(198, 238);
    EXPECT_EQ(lv.ColumnHeaders.Item(2)->Width(), 120);
}
