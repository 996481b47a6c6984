// Saving from the card in both layouts: the row written for a new contact, its letter, its place
// in the trees and the list, the edit of a stored contact, and a failure inside OK.
#include "cardtest.h"

#include "card/cardentries.h"
#include "core/language.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

QString text(const QVariant& v) {
    return v.isNull() ? u"<Null>"_s : v.toString();
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Layouts, CardTest, ::testing::Values(true, false),
                         [](const auto& info) { return info.param ? "Tabs" : "Wide"; });

TEST_P(CardTest, ACompanyAloneIsEnoughAndFilesTheFirstContact) {
    CardForm& c = open();
    c.fdFullName->setText(u"   "_s);
    c.fdCompany->setText(u"  acme ltd "_s);
    EXPECT_EQ(c.lbLetter->text(), "A"); // the letter follows the company as it is typed
    c.fdCity->setText(u"  "_s);
    c.bnOK_Click();

    ASSERT_TRUE(closedWithOK());
    // The first contact of an empty phonebook: Max gives Null, so both start at 1.
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 1);
    EXPECT_EQ(scalar(u"SELECT IDCD FROM CDs"_s).toInt(), 1);
    EXPECT_EQ(scalar(u"SELECT ContactNumber FROM CDs"_s).toInt(), 1);
    EXPECT_EQ(text(scalar(u"SELECT FullName FROM CDs"_s)), "<Null>");
    EXPECT_EQ(text(scalar(u"SELECT City FROM CDs"_s)), "<Null>");
    EXPECT_EQ(text(scalar(u"SELECT Company FROM CDs"_s)), "acme ltd");
    EXPECT_EQ(text(scalar(u"SELECT Label FROM CDs"_s)), "A");
    EXPECT_EQ(scalar(u"SELECT IDC FROM CDs"_s).toInt(), 1);
    EXPECT_EQ(scalar(u"SELECT IDB FROM CDs"_s).toInt(), -1);
    EXPECT_EQ(c.CardKey, "1");
    // The list of the main window shows it, selected; the next new card starts in the same place.
    ListItem* row = main->ListView2->ListItems(u"ID1"_s);
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->SubItems(mLV::cellCompany), "acme ltd");
    EXPECT_TRUE(row->Selected());
    EXPECT_TRUE(ListNeedsClickReset);
    EXPECT_EQ(setting("ContactCard", "PreviousCategory"), "ID1");
    EXPECT_EQ(treeRefills, QStringList{u"000"_s});
}

TEST_P(CardTest, DigitsMarkedLettersAndOtherScriptsFileUnderTheirTabs) {
    struct Case {
        const char* name;
        const char* caption;
        const char* label;
    };
    const Case cases[] = {{"42nd Street Deli", "0-9", "NUM"},
                          {"Émile Zola", "E", "E"},
                          {"Ωmega Labs", "?", "UNK"},
                          {"(Ann) Lee", "?", "UNK"},
                          {"zoe", "Z", "Z"}};
    int id = 0;
    for (const Case& k : cases) {
        CardForm& c = open();
        c.fdFullName->setText(QString::fromUtf8(k.name));
        EXPECT_EQ(c.lbLetter->text(), k.caption) << k.name;
        c.bnOK_Click();
        ASSERT_TRUE(closedWithOK()) << k.name;
        ++id;
        EXPECT_EQ(text(scalar(u"SELECT Label FROM CDs WHERE IDCD = %1"_s.arg(id))), k.label) << k.name;
        EXPECT_EQ(scalar(u"SELECT ContactNumber FROM CDs WHERE IDCD = %1"_s.arg(id)).toInt(), id);
    }
}

TEST_P(CardTest, NeitherNameNorCompanyWritesNothingAndKeepsTheCardOpen) {
    CardForm& c = open();
    if (auto* tabs = dynamic_cast<Form3*>(&c)) tabs->TabControl1->setCurrentIndex(1);
    c.fdFullName->setText(u"   "_s);
    c.fdCity->setText(u"Oslo"_s);
    fixture::MsgBoxRecorder boxes;
    c.bnOK_Click();
    ASSERT_EQ(boxes.boxes.size(), 1);
    EXPECT_EQ(boxes.boxes[0].text, mLanguageGobals::msgPleaseEnterANameOrACompany);
    EXPECT_EQ(boxes.boxes[0].icon, vb::vbExclamation);
    EXPECT_EQ(boxes.boxes[0].title, AppTitle());
    if (auto* tabs = dynamic_cast<Form3*>(&c)) {
        EXPECT_EQ(tabs->TabControl1->currentIndex(), 0);
    }
    EXPECT_NE(c.result(), QDialog::Accepted);
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 0);
    EXPECT_EQ(c.fdCity->text(), "Oslo");
}

// A trigger makes the phonebook refuse the second write of OK, after the row itself is written.
TEST_P(CardTest, AFailureInsideOKUndoesEverythingAndKeepsTheInput) {
    gDB.ExecuteNative(
        u"CREATE TRIGGER refuse AFTER UPDATE ON CDs BEGIN SELECT RAISE(ABORT, 'refused'); END"_s);
    CardForm& c = open();
    c.fdFullName->setText(u"Nina Berg"_s);
    c.fdComment->setPlainText(u"met in Bergen"_s);
    choose(c.icmbCategory, "ID4");
    QString report;
    {
        fixture::ModalRecorder windows([&](QDialog* form) {
            report = form->findChild<QPlainTextEdit*>(u"txtError"_s)->toPlainText();
            return 0;
        });
        c.bnOK_Click();
        EXPECT_EQ(windows.shown, 1);
    }
    EXPECT_TRUE(report.contains(c.FormName() + u".bnOK_Click"_s)) << report.toStdString();
    EXPECT_TRUE(report.contains(u"refused"_s));
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 0);
    EXPECT_EQ(main->ListView2->ListItems.Count(), 0);
    EXPECT_NE(c.result(), QDialog::Accepted);
    EXPECT_EQ(c.CardKey, "0"); // still a new contact
    EXPECT_EQ(c.fdFullName->text(), "Nina Berg");
    EXPECT_EQ(c.fdComment->toPlainText(), "met in Bergen");
    EXPECT_TRUE(setting("ContactCard", "PreviousCategory").isEmpty());

    // Once the phonebook takes it, the same card saves as the first contact.
    gDB.ExecuteNative(u"DROP TRIGGER refuse"_s);
    c.bnOK_Click();
    ASSERT_TRUE(closedWithOK());
    EXPECT_EQ(scalar(u"SELECT IDCD FROM CDs WHERE IDC = 4"_s).toInt(), 1);
}

TEST_P(CardTest, AnEditRewritesTheRowAndHandsTheNewPlaceOn) {
    const int kate = addContact(u"Kate"_s, 4, 1, -1, u"K"_s);
    gDB.Execute(u"UPDATE CDs SET Type2 = 4, Number2 = '555', Title = 'Dr' WHERE IDCD = %1"_s.arg(kate));
    showPhonebook();
    CardForm& c = open(QString::number(kate));
    EXPECT_EQ(c.fdFullName->text(), "Kate");
    EXPECT_EQ(c.fdTitle->text(), "Dr");
    EXPECT_EQ(selectedKey(c.icType[2]), "ID4");
    EXPECT_EQ(c.fdNumber[2]->text(), "555");
    EXPECT_EQ(selectedKey(c.icmbCategory), "ID4");
    EXPECT_EQ(c.icmbFavorite->SelectedItem(), nullptr);

    c.fdFullName->setText(u" Mary Kate "_s);
    c.fdTitle->clear();
    c.fdAddress->setPlainText(u"1 High St\nApt 2"_s);
    choose(c.icmbCategory, "ID5");
    c.icmbCategory_Click();
    choose(c.icmbFavorite, "ID1");
    c.icmbFavorite_Click();
    c.bnOK_Click();
    ASSERT_TRUE(closedWithOK());

    const QString where = u" FROM CDs WHERE IDCD = %1"_s.arg(kate);
    EXPECT_EQ(text(scalar(u"SELECT FullName"_s + where)), "Mary Kate");
    EXPECT_EQ(text(scalar(u"SELECT Title"_s + where)), "<Null>");
    EXPECT_EQ(text(scalar(u"SELECT Label"_s + where)), "M");
    EXPECT_EQ(text(scalar(u"SELECT Number2"_s + where)), "555");
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM CDs"_s).toInt(), 1);
    EXPECT_EQ(assignments, QStringList{u"M|K|ID4|ID5||ID1|ID1|ID1|%1"_s.arg(kate)});

    ListItem* row = main->ListView2->ListItems(u"ID%1"_s.arg(kate));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Text(), "Mary Kate");
    EXPECT_EQ(row->SubItems(mLV::cellTitle), "");
    EXPECT_EQ(row->SubItems(mLV::cellAddress), "1 High St, Apt 2");
    EXPECT_EQ(row->SubItems(mLV::cellCategory), "Business/Employees");
    EXPECT_EQ(row->SubItems(mLV::cellFavorite), "My favorites");
    EXPECT_EQ(row->SubItems(mLV::cellInfo1 + 1), "Fax: 555");
    // Only a new contact moves the place where the next one starts.
    EXPECT_TRUE(setting("ContactCard", "PreviousCategory").isEmpty());
}
