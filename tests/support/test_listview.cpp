// The list control: keyed rows and cells, columns, the text sort, selection, bulk fills, events.
#include "core/error.h"
#include "support/controls/listview.h"

#include <QElapsedTimer>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMap>
#include <QSet>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

namespace {

// Three columns and four contacts; the tag of a row tells its kind as the contact list does.
void fillPeople(ListView& lv) {
    lv.ColumnHeaders.Add("FullName", "Full Name", 150);
    lv.ColumnHeaders.Add("City", "City", 100);
    lv.ColumnHeaders.Add("ID", "Contact #", 60, lvwColumnRight);
    const char* rows[][4] = {{"ID1", "Zoe Weber", "oslo", "3"},
                             {"ID2", "adam Quinn", "Berlin", "12"},
                             {"ID3", "Marta Rossi", "Oslo", "7"},
                             {"ID4", "Bo Larsen", "", ""}};
    for (const auto& r : rows) {
        ListItem* item = lv.ListItems.Add(r[0], r[1], QString(), "BOR");
        item->SetTag("b");
        item->ListSubItems.Add(r[2]);
        item->ListSubItems.Add(r[3]);
    }
}

QStringList keysInOrder(const ListView& lv) {
    QStringList keys;
    for (const ListItem* item : lv.ListItems)
        keys << item->Key();
    return keys;
}

} // namespace

TEST(ListView, RowsByKeyAndByIndex) {
    ListView lv;
    fillPeople(lv);
    EXPECT_EQ(lv.ListItems.Count(), 4);
    EXPECT_EQ(lv.ListItems("ID3")->Text(), "Marta Rossi");
    EXPECT_EQ(lv.ListItems("ID3")->Index(), 3);
    EXPECT_EQ(lv.ListItems(1)->Key(), "ID1");
    EXPECT_EQ(lv.ListItems(0), nullptr);
    EXPECT_EQ(lv.ListItems(5), nullptr);
    EXPECT_EQ(lv.ListItems("ID9"), nullptr);

    int number = 0;
    try {
        lv.ListItems.Add("ID2", "again");
    } catch (const HuntERR::Error& e) {
        number = e.Number();
    }
    EXPECT_EQ(number, 35602);

    // Removal renumbers the rows after it and keeps the key lookup right.
    ListItem* last = lv.ListItems("ID4");
    lv.ListItems.Remove("ID2");
    EXPECT_EQ(lv.ListItems("ID2"), nullptr);
    EXPECT_EQ(lv.ListItems("ID4"), last);
    EXPECT_EQ(last->Index(), 3);
    EXPECT_EQ(lv.ListItems(2)->Key(), "ID3");
    lv.ListItems.Remove(1);
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID3", "ID4"}));

    // A row added at a place pushes the others down.
    lv.ListItems.Add(1, "ID7E", "Cousins");
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID7E", "ID3", "ID4"}));
    EXPECT_EQ(lv.model()->rowCount(), 3);
    lv.ListItems.Clear();
    EXPECT_EQ(lv.ListItems.Count(), 0);
    EXPECT_EQ(lv.ListItems("ID3"), nullptr);
    EXPECT_EQ(lv.model()->rowCount(), 0);
}

TEST(ListView, CellsKeepTheirNeighboursWhenRewritten) {
    ListView lv;
    fillPeople(lv);
    ListItem* zoe = lv.ListItems("ID1");
    EXPECT_EQ(zoe->ListSubItems.Count(), 2);
    zoe->ListSubItems(1).SetText("a much longer city name");
    zoe->SetText("Z");
    EXPECT_EQ(zoe->Text(), "Z");
    EXPECT_EQ(zoe->SubItems(1), "a much longer city name");
    EXPECT_EQ(zoe->ListSubItems(2).Text(), "3");

    // Writing past the last cell makes the cells between; reading there gives "".
    zoe->SetSubItems(5, "five");
    EXPECT_EQ(zoe->ListSubItems.Count(), 5);
    EXPECT_EQ(zoe->SubItems(4), "");
    EXPECT_EQ(zoe->SubItems(9), "");
    zoe->ListSubItems.Add(1, "inserted");
    EXPECT_EQ(zoe->SubItems(1), "inserted");
    EXPECT_EQ(zoe->SubItems(2), "a much longer city name");

    // Tag, colour and bold of one cell stay on that cell only.
    ListSubItem link = lv.ListItems("ID3")->ListSubItems(1);
    link.SetTag("mail@example.org");
    link.SetForeColor(QColor(0, 0, 255));
    link.SetBold(true);
    EXPECT_EQ(link.Tag(), "mail@example.org");
    EXPECT_EQ(link.ForeColor(), QColor(0, 0, 255));
    EXPECT_TRUE(link.Bold());
    EXPECT_EQ(lv.ListItems("ID3")->ListSubItems(2).Tag(), "");
    EXPECT_FALSE(lv.ListItems("ID3")->ListSubItems(2).ForeColor().isValid());
    EXPECT_EQ(lv.ListItems("ID3")->Tag(), "b");
    link.SetTag(QString());
    EXPECT_EQ(link.Tag(), "");

    // What the view shows comes from the cells.
    const QAbstractItemModel* m = lv.model();
    EXPECT_EQ(m->data(m->index(2, 1)).toString(), "Oslo");
    EXPECT_EQ(m->data(m->index(2, 1), Qt::ForegroundRole).value<QBrush>().color(), QColor(0, 0, 255));
    EXPECT_TRUE(m->data(m->index(2, 1), Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(m->data(m->index(2, 0), Qt::DecorationRole).value<QIcon>().isNull());
    EXPECT_EQ(m->data(m->index(2, 2), Qt::TextAlignmentRole).toInt() & Qt::AlignRight, int(Qt::AlignRight));

    // A colour rule tints the cells it names and leaves the others to the palette.
    lv.SetCellColorRule([](const ListItem* item, int column) {
        return item->Key() == "ID3" && column == 0 ? QColor(255, 255, 200) : QColor();
    });
    EXPECT_EQ(m->data(m->index(2, 0), Qt::BackgroundRole).value<QBrush>().color(), QColor(255, 255, 200));
    EXPECT_FALSE(m->data(m->index(2, 1), Qt::BackgroundRole).isValid());
}

TEST(ListView, ColumnsByKeyIndexAndPosition) {
    ListView lv;
    fillPeople(lv);
    lv.ColumnHeaders.Add("Added", "Added", 110);
    ColumnHeader* city = lv.ColumnHeaders("City");
    ASSERT_NE(city, nullptr);
    EXPECT_EQ(city->Index(), 2);
    EXPECT_EQ(city->SubItemIndex(), 1);
    EXPECT_EQ(lv.ColumnHeaders(2), city);
    EXPECT_EQ(lv.ColumnHeaders("Nope"), nullptr);
    EXPECT_EQ(lv.model()->headerData(1, Qt::Horizontal).toString(), "City");

    // Moving a column to the front shifts the others right; indexes stay.
    lv.ColumnHeaders("Added")->SetPosition(1);
    EXPECT_EQ(lv.ColumnHeaders("Added")->Position(), 1);
    EXPECT_EQ(lv.ColumnHeaders("FullName")->Position(), 2);
    EXPECT_EQ(city->Position(), 3);
    EXPECT_EQ(lv.ColumnHeaders("ID")->Position(), 4);
    EXPECT_EQ(lv.ColumnHeaders("Added")->Index(), 4);
    // A full set of stored positions applied one by one ends as stored.
    const int stored[] = {4, 3, 2, 1};
    for (int i = 0; i < 4; ++i)
        lv.ColumnHeaders(i + 1)->SetPosition(stored[i]);
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(lv.ColumnHeaders(i + 1)->Position(), stored[i]) << i;

    // Width 0 hides; the width the procedures keep in Tag brings it back.
    city->SetTag(QString::number(city->Width()));
    city->SetWidth(0);
    EXPECT_TRUE(lv.header()->isSectionHidden(1));
    city->SetWidth(city->Tag().toDouble());
    city->SetTag(QString());
    EXPECT_FALSE(lv.header()->isSectionHidden(1));
    EXPECT_EQ(lv.header()->sectionSize(1), 100);

    city->SetIcon(2);
    EXPECT_FALSE(lv.model()->headerData(1, Qt::Horizontal, Qt::DecorationRole).value<QIcon>().isNull());
    city->SetIcon(0);
    EXPECT_FALSE(lv.model()->headerData(1, Qt::Horizontal, Qt::DecorationRole).isValid());
}

TEST(ListView, SortsByColumnTextInBothOrders) {
    ListView lv;
    fillPeople(lv);
    lv.SetSortKey(0);
    lv.SetSorted(true);
    // Without regard to case: "adam" before "Bo".
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID2", "ID4", "ID3", "ID1"}));
    lv.SetSortOrder(lvwDescending);
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID1", "ID3", "ID4", "ID2"}));

    // Sorted off leaves the order; on again sorts by the new key. By city: the blank first,
    // and "oslo" and "Oslo" are equal, so they keep the order they had.
    lv.SetSorted(false);
    lv.SetSortKey(1);
    lv.SetSortOrder(lvwAscending);
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID1", "ID3", "ID4", "ID2"}));
    lv.SetSorted(true);
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID4", "ID2", "ID1", "ID3"}));

    // Keys, tags, cells and the index all travel with their row.
    for (const ListItem* item : lv.ListItems) {
        EXPECT_EQ(lv.ListItems(item->Key()), item);
        EXPECT_EQ(lv.ListItems(item->Index()), item);
        EXPECT_EQ(item->Tag(), "b");
    }
    EXPECT_EQ(lv.ListItems("ID2")->SubItems(2), "12");
    EXPECT_EQ(lv.model()->data(lv.model()->index(0, 0)).toString(), "Bo Larsen");

    // While Sorted stays on, a new row goes to its place.
    lv.ListItems.Add("ID5", "Ann Berg")->ListSubItems.Add("Lyon");
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID4", "ID2", "ID5", "ID1", "ID3"}));
}

TEST(ListView, KindLetterAndPaddingOrderRowsAsTheSortPassWritesThem) {
    // The contact list sorts by rewritten cells: kind letter, the column padded to its longest
    // text, then the name. Padding must sort before any letter for that to hold.
    ListView lv;
    lv.ColumnHeaders.Add("FullName", "Full Name");
    lv.ListItems.Add("ID1", "bParis    Zed");
    lv.ListItems.Add("ID2", "bParisvilleAnn");
    lv.ListItems.Add("ID3", "bParis    Abe");
    lv.ListItems.Add("ID7E", "a          Cousins");
    lv.SetSorted(true);
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID7E", "ID3", "ID1", "ID2"}));
    lv.SetSortOrder(lvwDescending);
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID2", "ID1", "ID3", "ID7E"}));
}

TEST(ListView, RowAddedWholeMatchesRowAddedCellByCell) {
    ListView lv;
    fillPeople(lv);
    ListRowCells cells;
    cells.Add(u"Ann Berg");
    cells.Add(u"");
    cells.Add(u"5");
    ListItem* ann = lv.ListItems.Add("ID5", cells, QString(), "BOR");
    EXPECT_EQ(ann->CellCount(), 3);
    EXPECT_EQ(ann->Text(), "Ann Berg");
    EXPECT_EQ(ann->SubItems(1), "");
    EXPECT_EQ(ann->SubItems(2), "5");
    EXPECT_EQ(ann->SmallIcon(), "BOR");
    EXPECT_EQ(ann->Index(), 5);
    // A row made whole can be rewritten and grown like any other.
    ann->SetSubItems(1, "Lyon");
    ann->ListSubItems.Add("extra");
    EXPECT_EQ(ann->SubItems(1), "Lyon");
    EXPECT_EQ(ann->SubItems(2), "5");
    EXPECT_EQ(ann->SubItems(3), "extra");

    // The cells are reused for the next row; a key already there is refused and changes nothing.
    cells.Clear();
    cells.Add(u"Copy");
    int number = 0;
    try {
        lv.ListItems.Add("ID3", cells);
    } catch (const HuntERR::Error& e) {
        number = e.Number();
    }
    EXPECT_EQ(number, 35602);
    EXPECT_EQ(lv.ListItems.Count(), 5);
    EXPECT_EQ(lv.ListItems("ID3")->Text(), "Marta Rossi");

    // While Sorted, the row goes to its place; after a Clear the list fills again by key.
    lv.SetSorted(true);
    EXPECT_EQ(lv.ListItems.Add("ID6", cells)->Index(), 4); // after "Bo Larsen"
    lv.ListItems.Clear();
    lv.SetSorted(false);
    for (int n = 1; n <= 50; ++n) {
        cells.Clear();
        cells.Add(QString::number(n));
        lv.ListItems.Add(QStringLiteral("ID%1").arg(n), cells);
    }
    EXPECT_EQ(lv.ListItems("ID50")->Index(), 50);
    EXPECT_EQ(lv.ListItems("ID7")->Text(), "7");
}

TEST(ListView, SortByGivenKeysLeavesCellsAndSortedAlone) {
    ListView lv;
    fillPeople(lv);
    lv.SetSelectedItem(lv.ListItems("ID3"));
    // Keys for rows 1..4 in their present order; two are equal and keep their order.
    auto keysFor = [](std::initializer_list<const char*> texts) {
        TextOrder::Keys keys;
        for (const char* t : texts)
            keys.Add(QString::fromLatin1(t));
        return keys;
    };
    QSignalSpy resets(lv.model(), &QAbstractItemModel::modelReset);
    lv.BeginUpdate();
    lv.SortByKeys(keysFor({"c", "B", "a", "b"}));
    lv.EndUpdate();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID3", "ID2", "ID4", "ID1"}));
    EXPECT_FALSE(lv.Sorted());
    EXPECT_EQ(lv.ListItems("ID2")->SubItems(2), "12");
    EXPECT_EQ(lv.ListItems("ID4")->Index(), 3);
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3");

    // Outside a block the view follows at once; descending reverses, equal keys still in order.
    lv.SetSortOrder(lvwDescending);
    lv.SortByKeys(keysFor({"a", "b", "b", "c"}));
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID1", "ID2", "ID4", "ID3"}));
    EXPECT_EQ(lv.model()->data(lv.model()->index(0, 0)).toString(), "Zoe Weber");
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3");
    // Keys that do not match the rows are ignored.
    lv.SortByKeys(keysFor({"z", "a"}));
    EXPECT_EQ(keysInOrder(lv), QStringList({"ID1", "ID2", "ID4", "ID3"}));
}

TEST(ListView, SortKeysOrderTextsAsTheTextOrderDoes) {
    const QStringList texts{
        "abc",   "ABD",         "ab",      "",        "\u00c4pfel", "\u00e4pfel", "apfel",      "zebra ",
        "Zebra", "b10",         "b9",      " lead",   "a-b",        "\u03a9mega", "\u03c9mega", "\u0141ukasz",
        "Lukas", "Stra\u00dfe", "Strasse", "e\u0301", "\u00c9",     "_x"};
    TextOrder::Keys keys;
    keys.Reserve(size_t(texts.size()));
    for (qsizetype i = 0; i < texts.size(); ++i) {
        if (i % 2)
            keys.Add(QStringView(texts[i]));
        else
            keys.Add(texts[i]);
    }
    ASSERT_EQ(keys.Count(), size_t(texts.size()));
    const auto sign = [](int v) { return (v > 0) - (v < 0); };
    for (qsizetype i = 0; i < texts.size(); ++i)
        for (qsizetype j = 0; j < texts.size(); ++j)
            EXPECT_EQ(sign(keys.Compare(size_t(i), size_t(j))), sign(TextOrder::Compare(texts[i], texts[j])))
                << texts[i].toStdString() << " / " << texts[j].toStdString();
}

TEST(ListView, SelectionFollowsRowsAndClearsToNothing) {
    ListView lv;
    fillPeople(lv);
    EXPECT_EQ(lv.SelectedItem(), nullptr);
    lv.SetSelectedItem(lv.ListItems("ID3"));
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3");
    EXPECT_TRUE(lv.ListItems("ID3")->Selected());

    lv.SetSortKey(1);
    lv.SetSorted(true);
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3"); // the sort moved the row, the selection went along
    lv.ListItems.Remove("ID1");
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3");

    lv.SelectedItem()->SetSelected(false);
    EXPECT_EQ(lv.SelectedItem(), nullptr);
    lv.ListItems("ID2")->SetSelected(true);
    lv.SetSelectedItem(nullptr);
    EXPECT_EQ(lv.SelectedItem(), nullptr);
    EXPECT_TRUE(lv.SelectedItems().empty());

    lv.SetMultiSelect(true);
    lv.ListItems("ID4")->SetSelected(true);
    lv.ListItems("ID2")->SetSelected(true);
    const std::vector<ListItem*> sel = lv.SelectedItems();
    ASSERT_EQ(sel.size(), 2u);
    EXPECT_EQ(sel[0]->Index() < sel[1]->Index(), true);
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID2");
}

TEST(ListView, BulkFillResetsOnceAndKeepsSelection) {
    ListView lv;
    fillPeople(lv);
    lv.SetSelectedItem(lv.ListItems("ID3"));
    QSignalSpy resets(lv.model(), &QAbstractItemModel::modelReset);
    QSignalSpy inserts(lv.model(), &QAbstractItemModel::rowsInserted);
    lv.SetSorted(true);
    lv.BeginUpdate();
    lv.ListItems.Remove("ID1");
    for (int i = 10; i < 20; ++i)
        lv.ListItems.Add(QStringLiteral("ID%1").arg(i), QStringLiteral("Name %1").arg(i));
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3");
    lv.EndUpdate();
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(inserts.count(), 0);
    EXPECT_EQ(lv.model()->rowCount(), 13);
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3");
    EXPECT_EQ(lv.ListItems(1)->Key(), "ID2"); // sorted once at the end: "adam Quinn" first
}

TEST(ListView, HundredThousandRowsOf25Columns) {
    ListView lv;
    for (int c = 1; c <= 25; ++c)
        lv.ColumnHeaders.Add(QStringLiteral("C%1").arg(c), QStringLiteral("Column %1").arg(c));
    QElapsedTimer t;
    t.start();
    lv.BeginUpdate();
    for (int n = 1; n <= 100000; ++n) {
        ListItem* item = lv.ListItems.Add(QStringLiteral("ID%1").arg(n), QStringLiteral("Contact %1").arg(n));
        item->SetTag(QStringLiteral("b"));
        for (int c = 1; c < 25; ++c)
            item->ListSubItems.Add(c % 3 ? QStringLiteral("City %1").arg(n % 97) : QString());
    }
    lv.EndUpdate();
    const qint64 fillMs = t.elapsed();
    EXPECT_EQ(lv.ListItems.Count(), 100000);
    EXPECT_EQ(lv.model()->rowCount(), 100000);
    EXPECT_EQ(lv.ListItems("ID99999")->SubItems(2), "City 89");
    EXPECT_EQ(lv.ListItems("ID99999")->Index(), 99999);

    lv.SetSortKey(1);
    lv.SetSortOrder(lvwDescending);
    lv.SetSorted(true);
    EXPECT_EQ(lv.ListItems(1)->SubItems(1), "City 96");
    EXPECT_EQ(lv.ListItems(lv.ListItems("ID50000")->Index()), lv.ListItems("ID50000"));
    // Generous bounds: they catch a fill that went quadratic, not a slow machine.
    EXPECT_LT(fillMs, 15000);
}

class ListViewEvents : public ::testing::Test {
  protected:
    void SetUp() override {
        fillPeople(lv);
        lv.resize(400, 300);
        lv.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&lv));
    }
    QPoint cellCenter(const QString& key, int column) {
        return lv.visualRect(lv.model()->index(lv.ListItems(key)->Index() - 1, column)).center();
    }
    ListView lv;
};

TEST_F(ListViewEvents, ClicksKeysAndHits) {
    QSignalSpy clicks(&lv, &ListView::ItemClick);
    QSignalSpy doubles(&lv, &ListView::DblClick);
    QTest::mouseClick(lv.viewport(), Qt::LeftButton, {}, cellCenter("ID3", 1));
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.at(0).at(0).value<ListItem*>()->Key(), "ID3");
    EXPECT_EQ(lv.SelectedItem()->Key(), "ID3");
    EXPECT_EQ(lv.LastButton(), Qt::LeftButton);
    QTest::mouseDClick(lv.viewport(), Qt::LeftButton, {}, cellCenter("ID3", 1));
    EXPECT_EQ(doubles.count(), 1);

    int sub = -5;
    EXPECT_EQ(lv.HitTest(cellCenter("ID2", 2), &sub), lv.ListItems("ID2"));
    EXPECT_EQ(sub, 2);
    EXPECT_EQ(lv.HitTest(QPoint(5, 290), &sub), nullptr);
    EXPECT_EQ(sub, -1);

    QList<int> typed;
    QObject::connect(&lv, &ListView::KeyPress, [&](int& ascii) {
        typed << ascii;
        if (ascii == 8) ascii = 0;
    });
    QTest::keyClick(&lv, Qt::Key_Backspace);
    QTest::keyClick(&lv, Qt::Key_Return);
    EXPECT_EQ(typed, QList<int>({8, 13}));
    // Arrow keys move the selection and count as an item click.
    clicks.clear();
    QTest::keyClick(&lv, Qt::Key_Down);
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.at(0).at(0).value<ListItem*>()->Key(), "ID4");
}

TEST_F(ListViewEvents, CheckBoxesTickByClick) {
    lv.SetCheckboxes(true);
    lv.ListItems("ID2")->SetChecked(true);
    QSignalSpy checks(&lv, &ListView::ItemCheck);
    QStyleOptionViewItem opt;
    opt.initFrom(lv.viewport());
    opt.rect = lv.visualRect(lv.model()->index(0, 0));
    opt.features |= QStyleOptionViewItem::HasCheckIndicator;
    const QRect box = lv.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &opt, &lv);
    QTest::mouseClick(lv.viewport(), Qt::LeftButton, {}, box.center());
    ASSERT_EQ(checks.count(), 1);
    EXPECT_TRUE(lv.ListItems("ID1")->Checked());
    EXPECT_TRUE(lv.ListItems("ID2")->Checked());
    EXPECT_FALSE(lv.ListItems("ID3")->Checked());
}

TEST_F(ListViewEvents, HeaderClickNamesTheColumn) {
    QSignalSpy columns(&lv, &ListView::ColumnClick);
    QHeaderView* h = lv.header();
    QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, QPoint(h->sectionViewportPosition(1) + 10, 5));
    ASSERT_EQ(columns.count(), 1);
    EXPECT_EQ(columns.at(0).at(0).value<ColumnHeader*>()->Key(), "City");

    // A drag or resize in the header is told; the same change made by code is not.
    QSignalSpy moves(&lv, &ListView::ColumnMove);
    QSignalSpy sizes(&lv, &ListView::ColumnResize);
    lv.ColumnHeaders("ID")->SetPosition(1);
    lv.ColumnHeaders("ID")->SetWidth(80);
    EXPECT_EQ(moves.count() + sizes.count(), 0);
    h->moveSection(h->visualIndex(1), 0); // as a drag of "City" to the front
    h->resizeSection(1, 140);
    ASSERT_EQ(moves.count(), 1);
    EXPECT_EQ(lv.ColumnHeaders("City")->Position(), 1);
    ASSERT_EQ(sizes.count(), 1);
    EXPECT_EQ(lv.ColumnHeaders("City")->Width(), 140);
}

TEST_F(ListViewEvents, EmptyListShowsItsBackgroundText) {
    lv.SetMousePointer(ccHourglass); // safe with or without a window
    EXPECT_EQ(lv.MousePointer(), ccHourglass);
    lv.SetMousePointer(ccDefault);
    lv.ListItems.Clear();
    const QImage blank = lv.viewport()->grab().toImage();
    lv.SetPicture("No items found   ");
    EXPECT_NE(lv.viewport()->grab().toImage(), blank);
    lv.ListItems.Add("ID1", "Ann"); // rows hide the text
    lv.ListItems.Clear();
    lv.SetPicture(QString());
    EXPECT_EQ(lv.viewport()->grab().toImage(), blank);
}

TEST_F(ListViewEvents, TheSortArrowNeverHidesTheCaption) {
    // A narrow number column with its caption right-aligned, and a narrow text column: with the
    // arrow, a caption starts as it does without one (shortened at its end if need be), and the
    // arrow and the caption never share a column of pixels.
    QHeaderView* h = lv.header();
    const auto section = [&](const ColumnHeader* c) {
        const int logical = c->Index() - 1;
        return h->grab(QRect(h->sectionViewportPosition(logical), 0, h->sectionSize(logical), h->height()))
            .toImage();
    };
    // Where two pictures clearly differ (the soft edges of letters aside): for each column of
    // pixels that does, the rows that do.
    const auto differing = [](const QImage& a, const QImage& b) {
        QMap<int, QSet<int>> columns;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                if (std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))) > 96) columns[x].insert(y);
        return columns;
    };
    // The first columns of a caption's pixels, counted from where the caption starts.
    const auto start = [](const QMap<int, QSet<int>>& caption) {
        QList<QSet<int>> first;
        const int x0 = caption.isEmpty() ? 0 : caption.firstKey();
        for (int x = x0; x < x0 + 4; ++x)
            first << caption.value(x);
        return first;
    };
    const std::pair<const char*, QStringList> cases[] = {
        {"ID", {"Contact #", "#"}}, {"City", {"City", "Contact #", "A caption far too long for the column"}}};
    for (const auto& [key, captions] : cases) {
        ColumnHeader* c = lv.ColumnHeaders(key);
        c->SetPosition(1);
        for (const QString& caption : captions) {
            c->SetIcon(0);
            c->SetText(QString());
            c->SetWidth(300);
            const QImage wideEmpty = section(c);
            c->SetText(caption);
            const auto whole = differing(wideEmpty, section(c));
            c->SetWidth(67);
            c->SetText(QString());
            const QImage empty = section(c);
            c->SetIcon(2);
            const QImage arrowAlone = section(c);
            c->SetText(caption);
            const auto arrow = differing(empty, arrowAlone);
            const auto text = differing(arrowAlone, section(c));
            ASSERT_FALSE(arrow.isEmpty());
            ASSERT_FALSE(text.isEmpty()) << key << " " << caption.toStdString();
            EXPECT_EQ(start(text), start(whole)) << key << " " << caption.toStdString();
            for (const int x : arrow.keys())
                EXPECT_FALSE(text.contains(x)) << key << " " << caption.toStdString() << " at " << x;
        }
    }
}

TEST_F(ListViewEvents, ACutCellShowsItsWholeTextAsATip) {
    lv.ListItems("ID3")->SetSubItems(1, "Oslo, Akershus, Norway, at the far end of the fjord");
    const auto tipAt = [&](const QString& key) {
        QToolTip::hideText();
        const QPoint at = cellCenter(key, 1);
        QHelpEvent help(QEvent::ToolTip, at, lv.viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(lv.viewport(), &help);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_EQ(tipAt("ID2"), ""); // "Berlin" fits
    EXPECT_EQ(tipAt("ID3"), "Oslo, Akershus, Norway, at the far end of the fjord");
}
