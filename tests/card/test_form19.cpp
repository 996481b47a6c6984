// The number types editor: the change set it collects, what Save writes in one transaction, the
// question before a type in use goes, and the open card losing a deleted type at once.
#include "cardtest.h"

#include "card/form19.h"
#include "core/language.h"

#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
using mLanguageGobals::msgThisTypeAlreadyExists;

namespace {

class Types : public fixture::PhonebookTest {
  protected:
    void TearDown() override {
        form.reset();
        PhonebookTest::TearDown();
    }
    Form19& open() {
        form = std::make_unique<Form19>(nullptr);
        return *form;
    }
    // Selects the item of `key` as a click would, its name going into the text box.
    void pick(const QString& key) {
        ListItem* item = form->lvTypes->ListItems(key);
        ASSERT_NE(item, nullptr) << key.toStdString();
        form->lvTypes->SetSelectedItem(item);
        form->lvTypes_ItemClick(item);
    }
    void type(const QString& text) { form->fdNewType->setText(text); }
    QStringList listed() const {
        QStringList l;
        for (const ListItem* item : form->lvTypes->ListItems)
            l << item->Text() + (item->Tag().isEmpty() ? QString() : u"/"_s + item->Tag());
        return l;
    }
    QStringList stored() {
        QStringList l;
        dao::Recordset rs = gDB.OpenRecordset(u"SELECT IDTYPE, Type FROM Types"_s, dao::dbOpenSnapshot);
        for (; !rs.AtEOF(); rs.MoveNext())
            l << rs.Text(0) + u"="_s + rs.Text(1);
        return l;
    }
    bool saved() const { return form->result() == QDialog::Accepted; }
    std::unique_ptr<Form19> form;
};

} // namespace

TEST_F(Types, AddWarnsOnADuplicateWhileRenameSaysNothingAndANewItemIsCreatedOnceByItsLastName) {
    Form19& f = open();
    EXPECT_EQ(f.windowTitle(), "Add/Edit Type");
    EXPECT_EQ(f.lvTypes->ListItems.Count(), 9);
    EXPECT_TRUE(f.lvTypes->ListItems(u"ID1"_s)->Selected());
    EXPECT_FALSE(f.bnOK->isEnabled());
    fixture::MsgBoxRecorder boxes;
    type(u"  Pager "_s);
    f.bnAdd_Click();
    type(u"Pager"_s);
    f.bnAdd_Click();
    type(u"Home phone"_s);
    f.bnAdd_Click();
    EXPECT_EQ(boxes.texts(), (QStringList{msgThisTypeAlreadyExists, msgThisTypeAlreadyExists}));
    EXPECT_TRUE(f.bnOK->isEnabled());

    // A rename onto a name in the list does nothing and says nothing.
    pick(u"ID4"_s);
    type(u"Pager"_s);
    f.bnEdit_Click();
    EXPECT_EQ(f.lvTypes->ListItems(u"ID4"_s)->Text(), "Fax");
    EXPECT_EQ(boxes.boxes.size(), 2);
    // The new item keeps its mark through a rename; a stored one becomes an edit.
    form->lvTypes->SetSelectedItem(f.lvTypes->ListItems.Item(10));
    type(u"Beeper"_s);
    f.bnEdit_Click();
    pick(u"ID4"_s);
    type(u"Telefax"_s);
    f.bnEdit_Click();
    EXPECT_EQ(listed().mid(3, 1), QStringList{u"Telefax/edit"_s});
    EXPECT_EQ(listed().last(), "Beeper/new");

    f.bnOK->click();
    EXPECT_TRUE(saved());
    const QStringList after = stored();
    EXPECT_EQ(after.size(), 10);
    EXPECT_TRUE(after.contains(u"4=Telefax"_s));
    EXPECT_EQ(after.last(), "10=Beeper");
}

TEST_F(Types, DeletingAsksOnlyForATypeInUseAndClearsItFromEveryNumberColumn) {
    const int ann = addContact(u"Ann"_s);
    const int bob = addContact(u"Bob"_s);
    gDB.Execute(u"UPDATE CDs SET Type1 = 3, Number1 = '555 1', Type12 = 3, Number12 = '555 12', Type2 = 5 "
                "WHERE IDCD = %1"_s.arg(ann));
    gDB.Execute(u"UPDATE CDs SET Type7 = 3, Number7 = '555 7' WHERE IDCD = %1"_s.arg(bob));
    Form19& f = open();
    {
        fixture::MsgBoxRecorder no(vb::vbNo);
        // An item added and deleted again, and an unused stored type: no question.
        type(u"Pager"_s);
        f.bnAdd_Click();
        f.bnDelete_Click();
        pick(u"ID8"_s);
        f.bnDelete_Click();
        EXPECT_TRUE(no.boxes.isEmpty());
        // A type in use asks; No keeps it.
        pick(u"ID3"_s);
        f.bnDelete_Click();
        ASSERT_EQ(no.boxes.size(), 1);
        EXPECT_EQ(no.boxes[0].text,
                  u"The selected type is used in one or more contact.\rDo you really want to "
                  u"delete this type?"_s);
        EXPECT_EQ(no.boxes[0].buttons, vb::vbYesNo | vb::vbDefaultButton2);
        EXPECT_EQ(no.boxes[0].icon, vb::vbExclamation);
        EXPECT_TRUE(f.lvTypes->ListItems.Exists(u"ID3"_s));
    }
    {
        fixture::MsgBoxRecorder yes(vb::vbYes);
        pick(u"ID3"_s);
        f.bnDelete_Click();
        EXPECT_EQ(yes.boxes.size(), 1);
    }
    EXPECT_FALSE(f.lvTypes->ListItems.Exists(u"ID3"_s));
    EXPECT_EQ(f.lvDeletedTypes->ListItems.Count(), 3);
    // Nothing is written before Save.
    EXPECT_EQ(stored().size(), 9);
    f.bnOK->click();
    ASSERT_TRUE(saved());
    EXPECT_EQ(stored().size(), 7);
    EXPECT_FALSE(stored().contains(u"3=Mobile phone"_s));
    EXPECT_FALSE(stored().contains(u"8=AOL"_s));
    // The numbers stay, without their type; other types are untouched.
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs WHERE Type1 = 3 Or Type7 = 3 Or Type12 = 3"_s).toInt(), 0);
    EXPECT_EQ(scalar(u"SELECT Number12 FROM CDs WHERE IDCD = %1"_s.arg(ann)).toString(), "555 12");
    EXPECT_EQ(scalar(u"SELECT Number7 FROM CDs WHERE IDCD = %1"_s.arg(bob)).toString(), "555 7");
    EXPECT_EQ(scalar(u"SELECT Type2 FROM CDs WHERE IDCD = %1"_s.arg(ann)).toInt(), 5);
}

TEST_F(Types, CancelWritesNothing) {
    const int ann = addContact(u"Ann"_s);
    gDB.Execute(u"UPDATE CDs SET Type1 = 3 WHERE IDCD = %1"_s.arg(ann));
    Form19& f = open();
    fixture::MsgBoxRecorder yes(vb::vbYes);
    pick(u"ID3"_s);
    f.bnDelete_Click();
    type(u"Pager"_s);
    f.bnAdd_Click();
    f.bnCancel->click();
    EXPECT_FALSE(saved());
    EXPECT_EQ(stored().size(), 9);
    EXPECT_EQ(scalar(u"SELECT Type1 FROM CDs"_s).toInt(), 3);
}

TEST_F(Types, AnApostropheInANameIsStoredAsTyped) {
    Form19& f = open();
    type(u"Kid's phone"_s);
    f.bnAdd_Click();
    pick(u"ID2"_s);
    type(u"Mum's 'work'"_s);
    f.bnEdit_Click();
    f.bnOK->click();
    ASSERT_TRUE(saved());
    EXPECT_TRUE(stored().contains(u"10=Kid's phone"_s));
    EXPECT_TRUE(stored().contains(u"2=Mum's 'work'"_s));
    form = std::make_unique<Form19>(nullptr);
    type(u"Kid's phone"_s);
    EXPECT_EQ(form->CheckExistType(), 1);
}

TEST_F(Types, AFailureInsideSaveRollsEverythingBackAndKeepsTheDialogOpen) {
    Form19& f = open();
    pick(u"ID1"_s);
    type(u"Private phone"_s);
    f.bnEdit_Click();
    // The column holds 255 characters: this name is refused by the phonebook.
    type(QString(300, u'x'));
    f.bnAdd_Click();
    QString report;
    {
        fixture::ModalRecorder windows([&](QDialog* dialog) {
            if (auto* text = dialog->findChild<QPlainTextEdit*>(u"txtError"_s)) report = text->toPlainText();
            return 0;
        });
        f.bnOK->click();
        EXPECT_EQ(windows.shown, 1);
    }
    EXPECT_TRUE(report.contains(u"Form19.bnOK_Click"_s)) << report.toStdString();
    EXPECT_FALSE(saved());
    EXPECT_TRUE(stored().contains(u"1=Home phone"_s)); // the rename before the failure is undone
    EXPECT_EQ(stored().size(), 9);
    EXPECT_EQ(listed().first(), "Private phone/edit");
    EXPECT_EQ(listed().size(), 10);

    // Corrected, the same change set goes through.
    f.lvTypes->SetSelectedItem(f.lvTypes->ListItems.Item(10));
    f.lvTypes->ListItems.Remove(f.lvTypes->ListItems.Item(10));
    f.bnOK->click();
    ASSERT_TRUE(saved());
    EXPECT_TRUE(stored().contains(u"1=Private phone"_s));
}

// (CardTest runs in both layouts by the instantiation beside the saving tests.)
TEST_P(CardTest, ATypeDeletedFromTheCardLeavesItsCombosAtOnce) {
    const int kate = addContact(u"Kate"_s, 1, 1, -1, u"K"_s);
    gDB.Execute(
        u"UPDATE CDs SET Type1 = 3, Number1 = '555', Type2 = 4, Type5 = 3 WHERE IDCD = %1"_s.arg(kate));
    showPhonebook();
    CardForm& c = open(QString::number(kate));
    ASSERT_EQ(selectedKey(c.icType[1]), "ID3");
    bool lostAtOnce = false;
    fixture::MsgBoxRecorder yes(vb::vbYes);
    fixture::ModalRecorder editor([&](QDialog* dialog) {
        auto* types = qobject_cast<Form19*>(dialog);
        if (!types) {
            if (auto* text = dialog->findChild<QPlainTextEdit*>(u"txtError"_s))
                ADD_FAILURE() << text->toPlainText().toStdString();
            return 0;
        }
        types->lvTypes->SetSelectedItem(types->lvTypes->ListItems(u"ID3"_s));
        types->bnDelete_Click();
        types->lvTypes->SetSelectedItem(types->lvTypes->ListItems(u"ID4"_s));
        types->fdNewType->setText(u"Telefax"_s);
        types->bnEdit_Click();
        types->bnOK_Click();
        // Before the card refills its combos, the deleted type is gone from all twelve.
        lostAtOnce = true;
        for (int n = 1; n <= CardForm::kRows; ++n)
            lostAtOnce = lostAtOnce && !c.icType[n]->ComboItems.Exists(u"ID3"_s);
        lostAtOnce = lostAtOnce && c.icType[1]->Text().isEmpty() && c.icType[5]->Text().isEmpty();
        return types->result();
    });
    c.bnAddType->click();
    EXPECT_EQ(editor.shown, 1);
    EXPECT_TRUE(lostAtOnce);
    EXPECT_EQ(c.icType[1]->SelectedItem(), nullptr);
    EXPECT_EQ(c.icType[2]->Text(), "Telefax"); // the rename shows after the refill
    EXPECT_EQ(c.fdNumber[1]->text(), "555");
    c.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_TRUE(scalar(u"SELECT Type1 FROM CDs"_s).isNull());
    EXPECT_EQ(scalar(u"SELECT Number1 FROM CDs"_s).toString(), "555");
    EXPECT_EQ(scalar(u"SELECT Type2 FROM CDs"_s).toInt(), 4);
}
