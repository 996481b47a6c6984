// The search window: its history of texts, the rows it lists with their link cells, the card
// opened from a row, its pop-ups and its empty state.
#include "card/cardentries.h"
#include "card/cardform.h"
#include "core/errorreport.h"
#include "core/language.h"
#include "core/seams.h"
#include "preferences/settings.h"
#include "search/form8.h"
#include "search/searchpopup.h"
#include "search/searchrows.h"
#include "searchtest.h"
#include "support/controls/listview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <memory>

using namespace Qt::StringLiterals;
using namespace mLanguageGobals;

namespace {

class SearchWindow : public SearchBook {
  protected:
    void SetUp() override {
        SearchBook::SetUp();
        gNotConnected = false;
        form = std::make_unique<Form8>();
    }
    void TearDown() override {
        form.reset();
        gNotConnected = true;
        SearchBook::TearDown();
    }
    QStringList history() const {
        QStringList h;
        for (int i = 0; i < form->cmbName->count(); ++i)
            h << form->cmbName->itemText(i);
        return h;
    }
    void search(const QString& text) {
        form->cmbName->setEditText(text);
        form->bnSearch_Click();
    }
    QStringList rows() const {
        QStringList r;
        for (const ListItem* item : form->ListView1->ListItems)
            r << item->Text();
        return r;
    }
    const ListItem* row(int contact) const { return form->ListView1->ListItems(u"ID%1"_s.arg(contact)); }
    QPoint cellCentre(int contact, int cell) const {
        const ListItem* item = row(contact);
        const QModelIndex index = form->ListView1->model()->index(item->Index() - 1, cell);
        form->ListView1->scrollTo(index);
        return form->ListView1->visualRect(index).center();
    }
    std::unique_ptr<Form8> form;
};

} // namespace

TEST_F(SearchWindow, HistoryKeepsFifteenTextsNewestFirst) {
    for (int i = 1; i <= 16; ++i)
        search(u"text %1"_s.arg(i));
    QStringList h = history();
    ASSERT_EQ(h.size(), 15);
    EXPECT_EQ(h.first(), u"text 16"_s);
    EXPECT_EQ(h.last(), u"text 2"_s); // the oldest went
    // A known text moves to the top; the length stays.
    search(u"text 9"_s);
    h = history();
    EXPECT_EQ(h.size(), 15);
    EXPECT_EQ(h.mid(0, 3), QStringList({u"text 9"_s, u"text 16"_s, u"text 15"_s}));
    EXPECT_EQ(h.count(u"text 9"_s), 1);
    // Another case is another text.
    search(u"TEXT 9"_s);
    EXPECT_EQ(history().mid(0, 2), QStringList({u"TEXT 9"_s, u"text 9"_s}));
    EXPECT_EQ(history().size(), 15);
    // Blank text is not kept.
    search(u"   "_s);
    EXPECT_EQ(history().first(), u"TEXT 9"_s);

    // Kept in the settings when the window closes, read back when it opens.
    form->reject();
    EXPECT_EQ(GetSetting(AppTitle(), u"SearchName"_s, u"0"_s), u"TEXT 9"_s);
    form = std::make_unique<Form8>();
    EXPECT_EQ(history().size(), 15);
    EXPECT_EQ(history().first(), u"TEXT 9"_s);
    EXPECT_TRUE(form->cmbName->currentText().isEmpty());
}

TEST_F(SearchWindow, RowsShowTheContactsFoundWithTheirCountAndOrder) {
    search(u"smith"_s);
    // By title, the sort of a fresh settings store: a row without one first.
    EXPECT_EQ(rows(), QStringList({u"Mary O'Brien"_s, u"John Smith"_s}));
    EXPECT_EQ(form->StatusPanel1->text(), msgContactsColon + u"2"_s);
    EXPECT_TRUE(form->bnSearch->isEnabled());
    EXPECT_FALSE(form->bnStop->isEnabled());
    EXPECT_EQ(form->ListView1->SelectedItem(), nullptr);
    // The cells of a row, in the columns' order.
    const ListItem* j = row(john);
    EXPECT_EQ(j->CellText(mSearch::scTitle), u"Manager"_s);
    EXPECT_EQ(j->CellText(mSearch::scInfo1), u"Home phone: 555-0100"_s);
    EXPECT_EQ(j->CellText(mSearch::scCity), u"New York"_s);
    EXPECT_EQ(j->CellText(mSearch::scID), QString::number(john));
    EXPECT_EQ(j->CellCount(), 25);

    // The rows of several lines, each on one line.
    search(u"łukasz дмитрий"_s);
    EXPECT_EQ(row(lukasz)->CellText(mSearch::scAddress), u"ul. Długa 5, Gdańsk"_s);
    EXPECT_EQ(row(dmitri)->CellText(mSearch::scComment), u"Встреча в Москве ..."_s);

    // A sort chosen by the user holds for the next search, in its order.
    form->ListView1_ColumnClick(mSearch::scCity); // ascending
    form->ListView1_ColumnClick(mSearch::scCity); // descending
    search(QString());                            // everyone
    EXPECT_EQ(rows().mid(0, 3), QStringList({u"John Smith"_s, u"Ærø Jensen"_s, u"Mary O'Brien"_s}));
    EXPECT_EQ(form->StatusPanel1->text(), msgContactsColon + u"6"_s);
}

TEST_F(SearchWindow, NothingToSearchOrNothingFoundShowsTheEmptyState) {
    search(u"nobody at all"_s);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(form->ListView1->Picture().startsWith(msgNoItemsFound));
    EXPECT_EQ(form->StatusPanel1->text(), msgContactsColon + u"0"_s);
    // All boxes clear: the list empties even after a search with rows.
    search(u"smith"_s);
    EXPECT_TRUE(form->ListView1->Picture().isEmpty());
    for (QCheckBox* b : form->findChildren<QCheckBox*>())
        b->setChecked(false);
    search(u"smith"_s);
    EXPECT_TRUE(rows().isEmpty());
    EXPECT_TRUE(form->ListView1->Picture().startsWith(msgNoItemsFound));
    // Quote marks alone hold no word: an error report, and the window is ready again.
    form->chFullName->setChecked(true);
    fixture::ModalRecorder errors([](QDialog*) { return 0; });
    form->cmbName->setEditText(u"\"\""_s);
    RunEvent("Form8.bnSearch_Click", [&] { form->bnSearch_Click(); });
    EXPECT_EQ(errors.shown, 1);
    EXPECT_TRUE(form->bnSearch->isEnabled());
    EXPECT_FALSE(form->bnStop->isEnabled());
}

TEST_F(SearchWindow, NumbersThatAreAddressesAreLinksToMailAndWeb) {
    form->resize(1600, 500);
    form->show();
    search(u"ærø łukasz 王伟"_s);
    // A number without a type shows alone, with no colon.
    EXPECT_EQ(row(lukasz)->CellText(mSearch::scInfo1 + 1), u"www.nowak.example"_s);
    EXPECT_EQ(row(aero)->CellText(mSearch::scInfo1 + 4), u"Email: aero@example.dk"_s);
    EXPECT_EQ(row(aero)->CellTag(mSearch::scInfo1 + 4), u"aero@example.dk"_s);
    EXPECT_EQ(row(aero)->CellForeColor(mSearch::scInfo1 + 4), mSearch::LinkColor());
    // A telephone number is no link.
    EXPECT_FALSE(row(wang)->CellForeColor(mSearch::scInfo1 + 2).isValid());

    QStringList opened;
    const ShellHandler old = SetShellHandler([&](const QString& target) {
        opened << target;
        return true;
    });
    form->ListView1_MouseUp(Qt::LeftButton, cellCentre(aero, mSearch::scInfo1 + 4));
    form->ListView1_MouseUp(Qt::LeftButton, cellCentre(lukasz, mSearch::scInfo1 + 1));
    form->ListView1_MouseUp(Qt::LeftButton, cellCentre(wang, mSearch::scInfo1 + 2));
    form->ListView1_MouseUp(Qt::LeftButton, cellCentre(aero, mSearch::scFullName));
    SetShellHandler(old);
    EXPECT_EQ(opened, QStringList({u"mailto:aero@example.dk"_s, u"www.nowak.example"_s}));
    // The hand over a link only.
    form->ListView1_MouseMove(cellCentre(aero, mSearch::scInfo1 + 4));
    EXPECT_EQ(form->ListView1->MousePointer(), int(ccCustom));
    form->ListView1_MouseMove(cellCentre(aero, mSearch::scCity));
    EXPECT_EQ(form->ListView1->MousePointer(), int(ccDefault));
}

TEST_F(SearchWindow, ARowOpensItsContactsCard) {
    form->resize(1200, 500);
    form->show();
    search(u"smith"_s);
    QStringList cards;
    fixture::ModalRecorder modal([&](QDialog* d) {
        if (auto* card = qobject_cast<CardForm*>(d)) cards << card->CardKey;
        return 0;
    });
    // Properties on the pop-up of a row; the card opens once the pop-up has closed.
    QStringList entries;
    const mSearch::PopupHandler old = mSearch::SetPopupHandler([&](QMenu* menu) -> QAction* {
        QAction* properties = nullptr;
        for (QAction* a : menu->actions()) {
            entries << a->text();
            if (a->data().toInt() == Form8::idProperties) properties = a;
        }
        return properties;
    });
    form->ListView1->SetSelectedItem(const_cast<ListItem*>(row(mary)));
    form->ListView1_MouseUp(Qt::RightButton, cellCentre(mary, mSearch::scTitle));
    EXPECT_EQ(entries, QStringList({msgArrangeItems, msgProperties}));
    EXPECT_EQ(cards, QStringList({QString::number(mary)}));
    // Over no row: the pop-up has no Properties, and no card opens.
    entries.clear();
    form->ListView1_MouseUp(Qt::RightButton, QPoint(5, form->ListView1->viewport()->height() - 3));
    EXPECT_EQ(entries, QStringList({msgArrangeItems}));
    EXPECT_EQ(form->ListView1->SelectedItem(), nullptr);
    EXPECT_EQ(cards.size(), 1);
    mSearch::SetPopupHandler(old);
    // A double click and Enter on the selected row.
    form->ListView1->SetSelectedItem(const_cast<ListItem*>(row(john)));
    form->ListView1_DblClick();
    int enter = 13;
    form->ListView1_KeyPress(enter);
    EXPECT_EQ(cards, QStringList({QString::number(mary), QString::number(john), QString::number(john)}));
    EXPECT_EQ(PropertiesMode, 0);
}

TEST_F(SearchWindow, MenusArrangeTheRowsAndShowOrHideColumns) {
    search(QString());
    QMenu* popup = form->PopupSearch(2, false);
    QMenu* arrange = popup->actions().first()->menu();
    ASSERT_NE(arrange, nullptr);
    ASSERT_EQ(arrange->actions().size(), 25);
    EXPECT_EQ(arrange->actions().at(24)->data().toInt(), int(Form8::idSortByGroup));
    form->CommandBars8_Execute(Form8::idSortFirst + mSearch::scCompany);
    EXPECT_EQ(form->ListView1->SortKey(), int(mSearch::scCompany));
    // Rows without a company first, by name; then the companies.
    EXPECT_EQ(rows().first(), u"Ærø Jensen"_s);
    EXPECT_EQ(rows().last(), u"王伟"_s);
    popup = form->PopupSearch(2, false);
    EXPECT_TRUE(popup->actions().first()->menu()->actions().at(mSearch::scCompany)->isChecked());

    // The column menu: 25 columns and the customising entry, checked while visible.
    QMenu* columns = form->PopupHL8(false);
    EXPECT_EQ(columns->actions().size(), 26);
    form->CommandBars8_Execute(Form8::idColumnFirst + 1); // Title
    EXPECT_EQ(form->ListView1->ColumnHeaders.Item(2)->Width(), 0);
    columns = form->PopupHL8(false);
    EXPECT_FALSE(columns->actions().at(1)->isChecked());
    form->CommandBars8_Execute(Form8::idColumnFirst + 1);
    EXPECT_GT(form->ListView1->ColumnHeaders.Item(2)->Width(), 0);
    form->CommandBars8_Execute(Form8::idColumnGroup);
    EXPECT_EQ(form->ListView1->ColumnHeaders.Item(25)->Width(), 0);
}

TEST_F(SearchWindow, ASearchForOneContactKeepsItsTextAmongTheLastFifteen) {
    form.reset();
    auto rowsOf = [this](int contact) {
        return scalar(u"SELECT Count(*) FROM SearchWhere WHERE IDCD = %1"_s.arg(contact)).toInt();
    };
    // The whole phonebook leaves no trace.
    form = std::make_unique<Form8>();
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM SearchWhere"_s).toInt(), 0);
    for (int i = 0; i < 15; ++i)
        form = std::make_unique<Form8>(nullptr, 100 + i, u"Kid's folder %1"_s.arg(i));
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM SearchWhere"_s).toInt(), 15);
    // Written on fifteen days in turn.
    for (int i = 0; i < 15; ++i)
        gDB.Execute(
            u"UPDATE SearchWhere SET [Update] = #01/%1/24# WHERE IDCD = %2"_s.arg(i + 1).arg(100 + i));
    // A known text only takes the newest time; a sixteenth drops the oldest.
    form = std::make_unique<Form8>(nullptr, 100, u"Kid's folder 0"_s);
    EXPECT_EQ(rowsOf(100), 1);
    form = std::make_unique<Form8>(nullptr, john, u"Kid's folder"_s);
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM SearchWhere"_s).toInt(), 15);
    EXPECT_EQ(rowsOf(101), 0);
    EXPECT_EQ(rowsOf(100), 1);
    EXPECT_EQ(rowsOf(john), 1);
}

TEST_F(SearchWindow, RefusesASizeBelowTheMinimumAndLetsItGoWhenItCloses) {
    form->resize(500, 300);
    EXPECT_EQ(form->size(), QSize(780, 540));
    form->resize(790, 400);
    EXPECT_EQ(form->size(), QSize(790, 540));
    form->show();
    EXPECT_EQ(form->maximumSize(), form->screen()->size().expandedTo(QSize(780, 540)));
    form->reject();
    EXPECT_EQ(form->minimumSize(), QSize(0, 0));
}
