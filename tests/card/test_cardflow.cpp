// The card at work in both layouts: what its combos offer, where a new contact starts, moving
// number rows, nodes made from the card, the comment box, and the choice of layout.
#include "cardtest.h"

#include "card/cardentries.h"
#include "core/language.h"
#include "trees/form14.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

QStringList entries(const ImageCombo* combo) {
    QStringList l;
    for (const ComboItem* item : combo->ComboItems)
        l << u"%1%2 %3"_s.arg(QString(item->Indentation(), QLatin1Char('.')), item->Key(), item->Image());
    return l;
}

} // namespace

TEST_P(CardTest, TheCombosShowTheTreesBelowTheirRootsAndTheTypes) {
    CardForm& c = open();
    EXPECT_EQ(entries(c.icmbCategory),
              (QStringList{u"ID3 CAT"_s, u".ID4 CAT"_s, u".ID5 CAT"_s, u".ID8 CAT"_s, u".ID6 CAT"_s,
                           u".ID7 CAT"_s, u"ID1 CAT"_s, u"ID2 CAT"_s, u".ID9 CAT"_s, u".ID10 CAT"_s,
                           u".ID11 CAT"_s, u".ID12 CAT"_s}));
    EXPECT_EQ(entries(c.icmbBox), QStringList{u"ID1 BOX"_s});
    EXPECT_EQ(entries(c.icmbFavorite), QStringList{u"ID1 STAR"_s});
    for (int n = 1; n <= CardForm::kRows; ++n) {
        ASSERT_EQ(c.icType[n]->ComboItems.Count(), 9);
        EXPECT_EQ(c.icType[n]->ComboItems(4)->Key(), "ID4");
        EXPECT_EQ(c.icType[n]->ComboItems(4)->Text(), "Fax");
        EXPECT_EQ(c.icType[n]->SelectedItem(), nullptr);
    }
    EXPECT_EQ(c.cmbUpDown->count(), 12);
    EXPECT_EQ(c.cmbUpDown->currentText(), "1");
}

TEST_P(CardTest, ANewContactStartsWhereTheLastWentUnlessThatNodeIsGone) {
    // Nothing remembered yet: "Others" in both trees, no favorite.
    CardForm& first = open();
    EXPECT_EQ(selectedKey(first.icmbCategory), "ID1");
    EXPECT_EQ(selectedKey(first.icmbBox), "ID1");
    EXPECT_EQ(first.icmbFavorite->SelectedItem(), nullptr);
    first.fdFullName->setText(u"Bo"_s);
    choose(first.icmbCategory, "ID7");
    choose(first.icmbFavorite, "ID1");
    first.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_EQ(scalar(u"SELECT IDC & '/' & IDX & '/' & IDB FROM CDs"_s).toString(), "7/1/1");

    CardForm& second = open();
    EXPECT_EQ(selectedKey(second.icmbCategory), "ID7");
    EXPECT_EQ(selectedKey(second.icmbFavorite), "ID1");
    second.bnClearFavorite_Click();
    EXPECT_EQ(second.icmbFavorite->SelectedItem(), nullptr);
    second.bnCancel_Click();

    // The category and the favorite have since been deleted.
    gDB.Execute(u"DELETE FROM Categories WHERE ID = 7"_s);
    gDB.Execute(u"DELETE FROM Borrows WHERE ID = 1"_s);
    CardForm& third = open();
    EXPECT_EQ(selectedKey(third.icmbCategory), "ID1");
    EXPECT_EQ(third.icmbFavorite->SelectedItem(), nullptr);
    EXPECT_EQ(third.icmbFavorite->currentText(), "");
}

TEST_P(CardTest, MovingARowCarriesItsTypeAndTheMarkFollowsIt) {
    CardForm& c = open();
    c.fdFullName->setText(u"Rows"_s);
    choose(c.icType[1], "ID1");
    c.fdNumber[1]->setText(u"111"_s);
    c.fdNumber[2]->setText(u"222"_s); // no type
    choose(c.icType[3], "ID4");
    c.fdNumber[3]->setText(u"333"_s);
    choose(c.icType[12], "ID5");
    c.fdNumber[12]->setText(u"ann@example.org"_s);

    // Row 1 down twice: it travels with its type to row 3, and the chooser with it.
    stand(c, 1);
    c.bnDown_Click();
    c.bnDown_Click();
    EXPECT_EQ(c.cmbUpDown->currentText(), "3");
    EXPECT_EQ(c.fdNumber[3]->text(), "111");
    EXPECT_EQ(selectedKey(c.icType[3]), "ID1");
    EXPECT_EQ(c.fdNumber[1]->text(), "222");
    EXPECT_EQ(selectedKey(c.icType[1]), "");
    EXPECT_EQ(c.fdNumber[2]->text(), "333");
    EXPECT_EQ(selectedKey(c.icType[2]), "ID4");

    // The untyped row 1 down past the fax: the row it leaves takes the fax, the row it reaches
    // loses it.
    stand(c, 1);
    c.bnDown_Click();
    EXPECT_EQ(c.fdNumber[1]->text(), "333");
    EXPECT_EQ(selectedKey(c.icType[1]), "ID4");
    EXPECT_EQ(c.fdNumber[2]->text(), "222");
    EXPECT_EQ(selectedKey(c.icType[2]), "");

    // At the ends nothing moves.
    stand(c, 12);
    c.bnDown_Click();
    stand(c, 1);
    c.bnUp_Click();
    EXPECT_EQ(c.fdNumber[12]->text(), "ann@example.org");
    EXPECT_EQ(c.fdNumber[1]->text(), "333");
    EXPECT_EQ(c.cmbUpDown->currentText(), "1");

    c.bnCleareType_Click(3);
    c.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_EQ(
        scalar(u"SELECT Type1 & ':' & Number1 & ' ' & IsNull(Type2) & ':' & Number2 FROM CDs"_s).toString(),
        "4:333 1:222");
    EXPECT_EQ(scalar(u"SELECT IsNull(Type3) & ' ' & IsNull(Number3) FROM CDs"_s).toString(), "1 1");
    EXPECT_EQ(scalar(u"SELECT Type12 & ':' & Number12 FROM CDs"_s).toString(), "5:ann@example.org");
}

TEST_P(CardTest, ANodeMadeFromTheCardStaysWhenTheCardIsCancelled) {
    CardForm& c = open();
    c.fdFullName->setText(u"Never saved"_s);
    QString made;
    {
        fixture::ModalRecorder windows([&](QDialog* form) {
            auto* chooser = dynamic_cast<Form14*>(form);
            if (!chooser) return 0;
            chooser->bnAdd_Click();
            chooser->bnOK_Click();
            made = chooser->ChosenKey;
            return chooser->result();
        });
        c.bnAddCategory_Click();
        EXPECT_EQ(windows.shown, 1);
    }
    ASSERT_FALSE(made.isEmpty());
    // The combo has the new node, chosen for the contact.
    EXPECT_EQ(selectedKey(c.icmbCategory), made);
    EXPECT_EQ(c.NewDiskCat, made);
    EXPECT_TRUE(c.AddCat);

    c.bnCancel_Click();
    EXPECT_EQ(c.result(), QDialog::Rejected);
    EXPECT_EQ(treeRefills, QStringList{u"100"_s});
    EXPECT_EQ(scalar(u"SELECT Name FROM Categories WHERE ID = %1"_s.arg(made.mid(2))).toString(),
              mLanguageGobals::msgNewCategory);
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 0);
}

TEST_P(CardTest, TheCommentGrowsAndShrinksAndTheCardRemembersIt) {
    CardForm& c = open();
    c.show();
    const int height = c.height();
    c.fdComment->setPlainText(u"first line\nsecond line"_s);
    c.bnCommentMaximize_Click();
    EXPECT_EQ(setting("PreferencesNew", "IncreasedComment"), "1");
    EXPECT_FALSE(c.bnCommentMaximize->isVisible());
    EXPECT_TRUE(c.chWordWrap->isVisibleTo(&c) || GetParam()); // on its own page in the tabbed card
    if (auto* tabs = dynamic_cast<Form3*>(&c)) {
        EXPECT_TRUE(tabs->TabControl1->isTabVisible(3));
        EXPECT_EQ(tabs->TabControl1->currentWidget(), tabs->TabControlPage4);
        EXPECT_TRUE(tabs->TabControlPage4->isAncestorOf(c.fdComment));
    } else {
        EXPECT_GT(c.height(), height + 100);
    }
    EXPECT_EQ(c.fdComment->toPlainText(), "first line\nsecond line");

    c.chWordWrap->setChecked(false);
    c.chWordWrap_Click();
    EXPECT_EQ(c.fdComment->lineWrapMode(), QPlainTextEdit::NoWrap);
    EXPECT_EQ(setting("PreferencesNew", "CommentWordWrap"), "0");
    c.bnCancel_Click();

    // The next card opens as this one was left.
    CardForm& next = open();
    EXPECT_FALSE(next.chWordWrap->isChecked());
    if (auto* tabs = dynamic_cast<Form3*>(&next)) {
        EXPECT_TRUE(tabs->TabControl1->isTabVisible(3));
        EXPECT_EQ(tabs->TabControl1->currentIndex(), 0); // a card opens on its first page
    }
    next.show();
    next.bnCommentMinimize_Click();
    EXPECT_EQ(setting("PreferencesNew", "IncreasedComment"), "0");
    if (auto* tabs = dynamic_cast<Form3*>(&next)) {
        EXPECT_FALSE(tabs->TabControl1->isTabVisible(3));
        EXPECT_TRUE(tabs->TabControlPage1->isAncestorOf(next.fdComment));
    } else {
        EXPECT_LT(next.height(), height + 50);
    }
}

// The entries open the layout that the preference names; the choice made on a card, even a
// cancelled one, is the layout of the next.
TEST_P(CardTest, TheLayoutChosenOnACardOpensNextTime) {
    QStringList opened;
    fixture::ModalRecorder windows([&](QDialog* form) {
        auto* c = dynamic_cast<CardForm*>(form);
        if (!c) return 0;
        opened << c->FormName() + u" "_s + c->CardKey;
        EXPECT_TRUE(c->FormName() == u"Form3"_s ? gForm3 == c : gForm2 == c);
        EXPECT_EQ(c->chContactCardWithTabs->isChecked(), ContactCardWithTabs);
        c->chContactCardWithTabs->setChecked(!ContactCardWithTabs);
        c->bnCancel_Click();
        return c->result();
    });
    const int ann = addContact(u"Ann"_s);
    showPhonebook();
    mScanCD::AddNewDisk();

    // Properties of the selected row: only when asked for, and only once.
    main->ListView2->SetSelectedItem(main->ListView2->ListItems(u"ID%1"_s.arg(ann)));
    mScanCD::DiskProperties();
    PropertiesMode = 1;
    mScanCD::DiskProperties();
    EXPECT_EQ(PropertiesMode, 0);

    const QString tabs = u"Form3 "_s, wide = u"Form2 "_s;
    const QString a = GetParam() ? tabs : wide, b = GetParam() ? wide : tabs;
    EXPECT_EQ(opened, (QStringList{a + u"0"_s, b + QString::number(ann)}));
    EXPECT_EQ(gForm3, nullptr);
    EXPECT_EQ(gForm2, nullptr);
    EXPECT_EQ(ContactCardWithTabs, GetParam());
    EXPECT_EQ(setting("PreferencesNew", "ContactCardWithTabs"), GetParam() ? "1" : "0");
}
