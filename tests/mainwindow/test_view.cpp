// What the main window shows of a phonebook: the tree with its counts, the contacts of the node
// and letter in force, their order, the fields of the selected contact, and the list and counts
// following a new contact and a contact leaving its favorites.
#include "app/mmain.h"
#include "app/nophonebook.h"
#include "app/previnstance.h"
#include "card/cardentries.h"
#include "card/cardform.h"
#include "core/commandids.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "core/sendmail.h"
#include "mainwindow/connection.h"
#include "mainwindow/dockingpane.h"
#include "mainwindow/form1.h"
#include "mainwindow/form7.h"
#include "phonebook/catpath.h"
#include "phonebook/createdb.h"
#include "phonebook/store/daoimpl.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "support/controls/columnheader.h"
#include "support/controls/commandbars.h"
#include "support/controls/imagecombo.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/fixture.h"
#include "trees/treeselect.h"
#include "trees/viewstate.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class View : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        m_book = path(u"book.kvdb"_s);
        ASSERT_EQ(mAccess::CreateDB(m_book, false), 1);
        // Below the default Business > Customers a third level; two groups and a second
        // favorites folder beside "My favorites".
        exec(
            u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree) VALUES (13, 'Key accounts', 4, 'ID0EID3EID4EID13E')"_s);
        exec(u"INSERT INTO Boxes (ID, Name, IDPARENT, Pedigree) VALUES (2, 'Office', 0, 'ID0EID2E')"_s);
        exec(u"INSERT INTO Borrows (ID, Name, IDPARENT, Pedigree) VALUES (2, 'Emergency', 0, 'ID0EID2E')"_s);
        mLV::UpdateCatPathAll();
        ann = contact(u"Ann Archer"_s, u"Zeta Freight"_s, 4, 1, 1);
        bob = contact(u"Bob Brown"_s, u"Acme Tools"_s, 13, 2, -1);
        bea = contact(u"Bea Baker"_s, u"Acme Tools"_s, 3, 2, 2);
        carl = contact(u"Carl Clark"_s, QString(), 9, 1, -1);
        dora = contact(u"Dora Dane"_s, u"Iris Labs"_s, 1, 1, 1);
        exec(u"UPDATE CDs SET Type1 = 3, Number1 = '555 0101', Type2 = 5, Number2 = 'ann@zeta.example', "
             "City = 'Oslo' WHERE IDCD = %1"_s.arg(ann));
        mMain::Closing();
    }
    void TearDown() override {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        mMru::ClearMRUList(); // the start put the phonebook in the recent list
        gNotConnected = true;
        TempDirTest::TearDown();
    }

    static void exec(const QString& sql) { gDB.Execute(sql); }
    static int contact(const QString& name, const QString& company, int idc, int idx, int idb) {
        const int next = scalar(u"SELECT IIf(IsNull(Max(IDCD)), 0, Max(IDCD)) + 1 FROM CDs"_s).toInt();
        exec(u"INSERT INTO CDs (IDCD, ContactNumber, FullName, Company, IDC, IDX, IDB, Label) "
             "VALUES (%1, %1, '%2', %3, %4, %5, %6, '%7')"_s.arg(next)
                 .arg(name, company.isEmpty() ? u"Null"_s : u"'"_s + company + u"'"_s)
                 .arg(idc)
                 .arg(idx)
                 .arg(idb)
                 .arg(name.left(1)));
        return next;
    }
    static QVariant scalar(const QString& sql) {
        dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
        return rs.AtEOF() ? QVariant() : rs.Value(0);
    }

    // The program starts on the phonebook as when it is given on the command line.
    Form1& start(bool normalMode = false) {
        SaveSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s, normalMode);
        mMain::SetCommandLine(m_book);
        mMain::Main();
        EXPECT_FALSE(gNotConnected);
        Form1& f = *gForm1;
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&f));
        return f;
    }
    Form1& form() const { return *gForm1; }
    TreeView& tree() const { return *gForm1->CatTree; }
    ListView& list() const { return *gForm1->ListView2; }
    bool run(int id) const { return gForm1->CommandBars1->ExecuteId(id); }
    CommandBarAction* action(int id) const { return gForm1->CommandBars1->FindAction(id); }

    QString label(const QString& key) const {
        const TreeNode* node = tree().Nodes(key);
        return node ? node->Text() : u"<none>"_s;
    }
    QStringList names() const {
        QStringList n;
        for (const ListItem* item : list().ListItems)
            n << item->Text();
        return n;
    }
    QStringList keys() const {
        QStringList k;
        for (const ListItem* item : list().ListItems)
            k << item->Key();
        return k;
    }
    // The detail pane as "label value" lines.
    QStringList details() const {
        QStringList d;
        for (const ListItem* item : form().ListView1->ListItems)
            d << item->Text() + u' ' + item->CellText(1);
        return d;
    }

    // The user's mouse on the controls.
    void clickNode(const QString& key) {
        TreeNode* node = tree().Nodes(key);
        ASSERT_NE(node, nullptr) << key.toStdString();
        tree().scrollToItem(node);
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualItemRect(node).center());
    }
    QPoint rowPoint(const QString& key) {
        const ListItem* item = list().ListItems(key);
        EXPECT_NE(item, nullptr) << key.toStdString();
        if (!item) return {};
        const QModelIndex index = list().model()->index(item->Index() - 1, 0);
        list().scrollTo(index);
        return list().visualRect(index).center();
    }
    void clickRow(const QString& key) {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, rowPoint(key));
    }
    void doubleClickRow(const QString& key) {
        QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, rowPoint(key));
    }
    void clickHeader(int index) {
        QHeaderView* header = list().header();
        const int logical = index - 1;
        const int x = header->sectionViewportPosition(logical) + header->sectionSize(logical) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    }
    static QString id(int n) { return u"ID%1"_s.arg(n); }

    QString m_book;
    int ann = 0, bob = 0, bea = 0, carl = 0, dora = 0;
};

} // namespace

TEST_F(View, OpeningShowsTheTreeWithCountsAndEveryContactByName) {
    start();
    EXPECT_EQ(label(u"ID0"_s), "All categories (5)");
    EXPECT_EQ(label(u"ID3"_s), "Business (3)"); // Bea, and Ann and Bob below it
    EXPECT_EQ(label(u"ID4"_s), "Customers (2)");
    EXPECT_EQ(label(u"ID13"_s), "Key accounts (1)");
    EXPECT_EQ(label(u"ID2"_s), "Personal (1)");
    EXPECT_EQ(label(u"ID1"_s), "Others (1)");
    EXPECT_EQ(label(u"ID5"_s), "Employees (0)");
    EXPECT_EQ(tree().SelectedItem()->Key(), "ID0");
    EXPECT_EQ(names(), QStringList({"Ann Archer", "Bea Baker", "Bob Brown", "Carl Clark", "Dora Dane"}));
    EXPECT_EQ(list().SelectedItem(), nullptr);
    EXPECT_EQ(form().PCatTree->windowTitle(), mLanguageGobals::msgCategories);
    EXPECT_TRUE(action(cmd::TabCategories)->Checked() && action(cmd::LetterAll)->Checked());
    EXPECT_TRUE(action(cmd::ListSortFirst)->Checked()); // arranged by full name
    EXPECT_TRUE(action(cmd::CategoryModeAdvanced)->Checked() && !action(cmd::CategoryModeNormal)->Checked());
    EXPECT_TRUE(AdvancedCategoryMode);

    // The other trees count their own way: favorites only count favorites.
    ASSERT_TRUE(run(cmd::TabFavorites));
    EXPECT_EQ(label(u"ID0"_s), "All favorites (3)");
    EXPECT_EQ(label(u"ID1"_s), "My favorites (2)");
    EXPECT_EQ(label(u"ID2"_s), "Emergency (1)");
    EXPECT_EQ(names(), QStringList({"Ann Archer", "Bea Baker", "Dora Dane"}));
    EXPECT_EQ(form().PCatTree->windowTitle(), mLanguageGobals::msgFavoritesTree);
    EXPECT_TRUE(action(cmd::ViewFavorites)->Checked());
    ASSERT_TRUE(run(cmd::TabGroups));
    EXPECT_EQ(label(u"ID0"_s), "All groups (5)");
    EXPECT_EQ(label(u"ID2"_s), "Office (2)");
    EXPECT_EQ(names().size(), 5);
}

TEST_F(View, TheListOpensInTheOrderItWasClosedIn) {
    // Company, descending: ties fall to the name, the contact without a company comes last.
    SaveSetting(AppTitle(), u"ColumnHeaders12\\Other"_s, u"SortKey"_s, 2);
    SaveSetting(AppTitle(), u"ColumnHeaders12\\Other"_s, u"SortOrder"_s, 1);
    start();
    EXPECT_EQ(names(), QStringList({"Ann Archer", "Dora Dane", "Bob Brown", "Bea Baker", "Carl Clark"}));
    EXPECT_EQ(list().SortOrder(), lvwDescending);
    EXPECT_EQ(list().ColumnHeaders.Item(3)->Icon(), 1);
    EXPECT_TRUE(action(cmd::ListSortFirst + 2)->Checked());
    form().close();
    EXPECT_EQ(GetSetting(AppTitle(), u"ColumnHeaders12\\Other"_s, u"SortOrder"_s), "1");
    EXPECT_EQ(GetSetting(AppTitle(), u"ColumnHeaders12\\Other"_s, u"SortKey"_s), "2");
}

TEST_F(View, ANodeShowsItsSubtreeInAdvancedModeAndItsChildrenInNormalMode) {
    start();
    clickNode(u"ID3"_s);
    EXPECT_EQ(CurrentNodeKey, "ID3");
    EXPECT_EQ(names(), QStringList({"Ann Archer", "Bea Baker", "Bob Brown"}));
    EXPECT_EQ(tree().Nodes(u"ID13"_s)->Image(), "CATSEL"); // the subtree is marked

    ASSERT_TRUE(run(cmd::CategoryModeNormal));
    EXPECT_FALSE(AdvancedCategoryMode);
    EXPECT_EQ(tree().Nodes(u"ID13"_s)->Image(), "CAT");
    EXPECT_EQ(keys(), QStringList({"ID4E", "ID5E", "ID8E", "ID6E", "ID7E", id(bea)}));
    EXPECT_EQ(names().first(), "Customers");
    EXPECT_EQ(label(u"ID3"_s), "Business (3)"); // counts are those of the subtree in both modes

    // A double click opens a node row; Backspace goes back up.
    doubleClickRow(u"ID4E"_s);
    EXPECT_EQ(tree().SelectedItem()->Key(), "ID4");
    EXPECT_EQ(keys(), QStringList({"ID13E", id(ann)}));
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_Backspace);
    EXPECT_EQ(CurrentNodeKey, "ID3");
    EXPECT_EQ(GetSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s), "1");
}

TEST_F(View, ALetterFiltersTheListAndTheCounts) {
    start(true);
    ASSERT_TRUE(run(cmd::LetterA + 1)); // "B"
    EXPECT_EQ(CurrentLetter, "B");
    EXPECT_EQ(names(), QStringList({"Bea Baker", "Bob Brown"}));
    EXPECT_EQ(label(u"ID0"_s), "All categories (2)");
    EXPECT_EQ(label(u"ID4"_s), "Customers (1)");
    EXPECT_EQ(label(u"ID2"_s), "Personal (0)");
    EXPECT_TRUE(action(cmd::LetterA + 1)->Checked() && !action(cmd::LetterAll)->Checked());
    // The letter stays in force on another node.
    clickNode(u"ID4"_s);
    EXPECT_EQ(keys(), QStringList({"ID13E"}));
    ASSERT_TRUE(run(cmd::LetterAll));
    EXPECT_EQ(keys(), QStringList({"ID13E", id(ann)}));
}

TEST_F(View, AColumnClickSortsAndASecondClickReverses) {
    start();
    clickHeader(3); // Company
    EXPECT_EQ(names(), QStringList({"Carl Clark", "Bea Baker", "Bob Brown", "Dora Dane", "Ann Archer"}));
    EXPECT_EQ(list().ColumnHeaders.Item(3)->Icon(), 2);
    EXPECT_EQ(list().ColumnHeaders.Item(1)->Icon(), 0);
    EXPECT_TRUE(action(cmd::ListSortFirst + 2)->Checked() && !action(cmd::ListSortFirst)->Checked());
    clickHeader(3);
    EXPECT_EQ(names(), QStringList({"Ann Archer", "Dora Dane", "Bob Brown", "Bea Baker", "Carl Clark"}));
    EXPECT_EQ(list().ColumnHeaders.Item(3)->Icon(), 1);
    // The arrange entries of the pop-up sort the same way, and the order survives a refresh.
    ASSERT_TRUE(run(cmd::ListSortFirst));
    EXPECT_EQ(names(), QStringList({"Ann Archer", "Bea Baker", "Bob Brown", "Carl Clark", "Dora Dane"}));
    ASSERT_TRUE(run(cmd::ListSortFirst));
    ASSERT_TRUE(run(cmd::ViewRefresh));
    EXPECT_EQ(names(), QStringList({"Dora Dane", "Carl Clark", "Bob Brown", "Bea Baker", "Ann Archer"}));
}

TEST_F(View, ARowShowsItsFieldsAndADoubleClickEditsItInTheCard) {
    start();
    clickRow(id(ann));
    EXPECT_EQ(details(),
              QStringList({"Full Name: Ann Archer", "Company: Zeta Freight", "Mobile phone: 555 0101",
                           "Email: ann@zeta.example", "City: Oslo", "Category: Business/Customers",
                           "Favorites: My favorites", "Group: Others"}));
    EXPECT_EQ(form().ListView1->ListItems.Item(4)->CellForeColor(1), QColor(0, 0, 255)); // a mail link
    EXPECT_TRUE(action(cmd::ContactProperties)->Enabled());
    EXPECT_TRUE(action(cmd::ContactNoFavorite)->Enabled()); // a favorite

    clickRow(id(carl));
    EXPECT_EQ(details().first(), "Full Name: Carl Clark");
    EXPECT_FALSE(action(cmd::ContactNoFavorite)->Enabled());

    // The card of the row: a new company and a move from Family to Friends.
    QString opened;
    {
        fixture::ModalRecorder cards([&](QDialog* d) {
            auto* card = static_cast<CardForm*>(d);
            opened = card->fdFullName->text();
            card->fdCompany->setText(u"Cedar Works"_s);
            card->icmbCategory->SetSelectedItem(card->icmbCategory->ComboItems(u"ID10"_s));
            card->icmbCategory_Click();
            card->bnOK_Click();
            return card->result();
        });
        doubleClickRow(id(carl));
        EXPECT_EQ(cards.shown, 1);
    }
    EXPECT_EQ(opened, "Carl Clark");
    EXPECT_EQ(PropertiesMode, 0);
    const ListItem* row = list().ListItems(id(carl));
    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->CellText(2), "Cedar Works");
    EXPECT_EQ(row->CellText(3), "Personal/Friends");
    EXPECT_EQ(label(u"ID9"_s), "Family (0)");
    EXPECT_EQ(label(u"ID10"_s), "Friends (1)");
    EXPECT_TRUE(details().contains(u"Company: Cedar Works"_s));

    // A node in force that no longer holds the row empties the pane.
    clickNode(u"ID3"_s);
    EXPECT_TRUE(details().isEmpty());
    EXPECT_FALSE(action(cmd::ContactProperties)->Enabled());
}

TEST_F(View, ANewContactFromTheCardJoinsTheListAndTheCounts) {
    start();
    auto addContact = [&](const QString& name, const char* category) {
        fixture::ModalRecorder cards([&](QDialog* d) {
            auto* card = static_cast<CardForm*>(d);
            card->fdFullName->setText(name);
            card->icmbCategory->SetSelectedItem(card->icmbCategory->ComboItems(QLatin1String(category)));
            card->bnOK_Click();
            return card->result();
        });
        EXPECT_TRUE(run(cmd::ContactAdd));
        EXPECT_EQ(cards.shown, 1);
    };
    addContact(u"Eve Evans"_s, "ID5");
    const int eve = scalar(u"SELECT IDCD FROM CDs WHERE FullName = 'Eve Evans'"_s).toInt();
    ASSERT_GT(eve, 0);
    EXPECT_EQ(names(),
              QStringList({"Ann Archer", "Bea Baker", "Bob Brown", "Carl Clark", "Dora Dane", "Eve Evans"}));
    EXPECT_EQ(list().SelectedItem()->Key(), id(eve));
    EXPECT_EQ(details().first(), "Full Name: Eve Evans");
    EXPECT_EQ(label(u"ID0"_s), "All categories (6)");
    EXPECT_EQ(label(u"ID3"_s), "Business (4)");
    EXPECT_EQ(label(u"ID5"_s), "Employees (1)");
    EXPECT_TRUE(ListNeedsClickReset);
    clickRow(id(ann));
    EXPECT_FALSE(ListNeedsClickReset);

    // Outside the view in force the view moves to the new contact, letter button included.
    ASSERT_TRUE(run(cmd::LetterA + 1)); // "B"
    addContact(u"Fay Fox"_s, "ID10");
    EXPECT_EQ(CurrentLetter, "F");
    EXPECT_EQ(CurrentNodeKey, "ID10");
    EXPECT_TRUE(action(cmd::LetterA + 5)->Checked() && !action(cmd::LetterA + 1)->Checked());
    EXPECT_EQ(names(), QStringList({"Fay Fox"}));
    EXPECT_EQ(label(u"ID10"_s), "Friends (1)");
}

TEST_F(View, RemoveFromFavoritesTakesTheContactOutOfTheFavoritesView) {
    start();
    ASSERT_TRUE(run(cmd::TabFavorites));
    clickNode(u"ID1"_s);
    EXPECT_EQ(names(), QStringList({"Ann Archer", "Dora Dane"}));
    clickRow(id(dora));
    ASSERT_TRUE(action(cmd::ContactNoFavorite)->Enabled());
    ASSERT_TRUE(run(cmd::ContactNoFavorite));
    EXPECT_EQ(scalar(u"SELECT IDB FROM CDs WHERE IDCD = %1"_s.arg(dora)).toInt(), -1);
    EXPECT_EQ(names(), QStringList({"Ann Archer"}));
    EXPECT_EQ(label(u"ID1"_s), "My favorites (1)");
    EXPECT_EQ(label(u"ID0"_s), "All favorites (2)");
    EXPECT_TRUE(details().isEmpty());
    EXPECT_FALSE(action(cmd::ContactNoFavorite)->Enabled());
    // The end of the assignment is kept in the history.
    EXPECT_EQ(scalar(u"SELECT Count(*) FROM LoanHistory WHERE IDCD = %1 AND IDB = 1"_s.arg(dora)).toInt(), 1);
}

TEST_F(View, WithAContactSelectedItsCommandsAreEnabledAgainAfterAReconnect) {
    Form1& f = start();
    list().SetSelectedItem(list().ListItems(u"ID%1"_s.arg(ann)));
    f.MenuUpdate();
    for (int id :
         {int(cmd::FileNew), int(cmd::ContactProperties), int(cmd::MainProperties), int(cmd::ViewRefresh),
          int(cmd::ContactDelete), int(cmd::ContactCopy), int(cmd::MainDelete)})
        EXPECT_TRUE(action(id)->Enabled()) << id;
    // Closing the phonebook and opening it again enables the commands again.
    mCommon::NotConnected(true);
    mCommon::NotConnected(false);
    EXPECT_TRUE(action(cmd::ToolsSearch)->isEnabled());
    EXPECT_TRUE(action(cmd::ContactAdd)->isEnabled());
}

TEST_F(View, AClickOnALinkValueOfTheDetailPaneOpensIt) {
    Form1& f = start();
    QStringList opened;
    const ShellHandler old = SetShellHandler([&](const QString& target) {
        opened << target;
        return true;
    });
    mTV::SelectNode(*f.ListView1, u"ID%1"_s.arg(ann));
    ListView& pane = *f.ListView1;
    auto cellCentre = [&](const QString& value, int column) {
        for (int row = 0; row < pane.ListItems.Count(); ++row)
            if (pane.ListItems(row + 1)->CellText(1) == value)
                return pane.visualRect(pane.model()->index(row, column)).center();
        ADD_FAILURE() << value.toStdString() << " is not in the pane";
        return QPoint();
    };
    QTest::mouseClick(pane.viewport(), Qt::LeftButton, {}, cellCentre(u"555 0101"_s, 1));
    QTest::mouseClick(pane.viewport(), Qt::LeftButton, {}, cellCentre(u"ann@zeta.example"_s, 0));
    EXPECT_TRUE(opened.isEmpty()); // a plain number, and the label beside a link
    QTest::mouseClick(pane.viewport(), Qt::LeftButton, {}, cellCentre(u"ann@zeta.example"_s, 1));
    EXPECT_EQ(opened, QStringList{u"mailto:ann@zeta.example"_s});
    SetShellHandler(old);

    EXPECT_EQ(mCommon::MailtoAddress(u"a@b.example"_s, u"Q & A\r\nnow"_s, u"Hi\n"_s, u"c@d"_s, QString(),
                                     QString()),
              u"mailto:a@b.example?Subject=Q%20%26%20A%0D%0Anow&Body=Hi%0A%0D%0A&CC=c@d"_s);
}

TEST_F(View, APhonebookOpenedReadOnlyRestrictsTheCommandsThatWrite) {
    dao::Hooks().refuseOpen = [](const QString&, bool readOnly) {
        return readOnly ? 0 : qint32(dao::errPermission);
    };
    fixture::MsgBoxRecorder warning; // the file could only be opened read-only: the user is told why
    Form1& f = start();
    dao::Hooks() = dao::TestHooks();
    EXPECT_EQ(warning.boxes.size(), 1);
    EXPECT_TRUE(gFileReadOnly);
    EXPECT_TRUE(gRestricted);
    EXPECT_TRUE(action(cmd::AccessFull)->Checked()); // the file, not the session, is read-only
    ListItem* favorite = list().ListItems(u"ID%1"_s.arg(ann));
    list().SetSelectedItem(favorite);
    f.ListView2_ItemClick(favorite);
    EXPECT_FALSE(action(cmd::ContactNoFavorite)->Enabled());

    // A phonebook that can be written lifts the restriction.
    gFileReadOnly = false;
    f.ROSwitch();
    f.ListView2_ItemClick(favorite);
    EXPECT_FALSE(gRestricted);
    EXPECT_TRUE(action(cmd::ContactNoFavorite)->Enabled());
}

TEST_F(View, AValueOfTheDetailPaneOffersWhatSuitsIt) {
    Form1& f = start();
    mTV::SelectNode(*f.ListView1, id(ann));
    ListView& pane = *f.ListView1;
    auto cell = [&](const QString& value) {
        for (int row = 0; row < pane.ListItems.Count(); ++row)
            if (pane.ListItems(row + 1)->CellText(1) == value)
                return pane.visualRect(pane.model()->index(row, 1)).center();
        ADD_FAILURE() << value.toStdString() << " is not in the pane";
        return QPoint();
    };
    auto offered = [&](QMenu* menu) {
        QList<int> ids;
        for (QAction* a : menu->actions())
            if (auto* c = qobject_cast<CommandBarAction*>(a); c && c->isVisible()) ids << c->Id();
        return ids;
    };
    QStringList handed;
    const ShellHandler old = SetShellHandler([&](const QString& target) {
        handed << target;
        return true;
    });
    QMenu* menu = f.PopupDetails(cell(u"ann@zeta.example"_s), false);
    EXPECT_EQ(menu->objectName(), u"PopupDetails"_s);
    EXPECT_EQ(offered(menu), QList<int>({cmd::DetailsSendMail, cmd::DetailsCopy}));
    EXPECT_TRUE(run(cmd::DetailsSendMail));
    // A plain number can be called: the desktop gets its tel: address.
    menu = f.PopupDetails(cell(u"555 0101"_s), false);
    EXPECT_EQ(offered(menu), QList<int>({cmd::DetailsCall, cmd::DetailsCopy}));
    EXPECT_TRUE(run(cmd::DetailsCall));
    EXPECT_TRUE(run(cmd::DetailsCopy));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"555 0101"_s);
    SetShellHandler(old);
    EXPECT_EQ(handed, QStringList({u"mailto:ann@zeta.example"_s, u"tel:5550101"_s}));
    // A city is only copied; below the last row the pane's column picker opens instead.
    menu = f.PopupDetails(cell(u"Oslo"_s), false);
    EXPECT_EQ(offered(menu), QList<int>{cmd::DetailsCopy});
    menu = f.PopupDetails(QPoint(5, pane.viewport()->height() - 2), false);
    EXPECT_EQ(menu->objectName(), u"PopupHL1"_s);
    EXPECT_EQ(offered(menu),
              QList<int>({cmd::DetailsColumnName, cmd::DetailsColumnSize, cmd::DetailsColumnsCustomize}));
}

TEST_F(View, TheColumnPickerHidesAColumnAndShowsItAgainAtItsWidth) {
    Form1& f = start();
    ColumnHeader* company = list().ColumnHeaders.Item(3);
    company->SetWidth(141);
    QMenu* menu = f.PopupHL2(false);
    CommandBarAction* entry = action(Form1::ContactColumnCommand(3));
    EXPECT_EQ(entry->Caption(), company->Text());
    EXPECT_TRUE(entry->Checked());
    EXPECT_TRUE(menu->actions().contains(action(cmd::ContactColumnsCustomize)));
    // Info 2 is the fifteenth column, Info 3 comes after "Customize columns".
    EXPECT_EQ(Form1::ContactColumnCommand(15), 10214);
    EXPECT_EQ(Form1::ContactColumnCommand(16), 10216);
    EXPECT_EQ(Form1::ContactColumnIndex(10216), 16);
    EXPECT_EQ(Form1::ContactColumnIndex(cmd::ContactColumnsCustomize), 0);

    ASSERT_TRUE(run(Form1::ContactColumnCommand(3)));
    EXPECT_EQ(company->Width(), 0);
    EXPECT_FALSE(entry->Checked());
    f.PopupHL2(false);
    EXPECT_FALSE(entry->Checked());
    ASSERT_TRUE(run(Form1::ContactColumnCommand(3)));
    EXPECT_EQ(company->Width(), 141);
    EXPECT_TRUE(company->Tag().isEmpty());
    EXPECT_TRUE(entry->Checked());

    // Customize opens the columns dialog of this list.
    int shown = 0;
    fixture::ModalRecorder dialogs([&shown](QDialog* d) {
        shown += d->objectName() == u"Form21"_s;
        return 0;
    });
    EXPECT_TRUE(run(cmd::ContactColumnsCustomize));
    EXPECT_TRUE(run(cmd::DetailsColumnsCustomize));
    EXPECT_EQ(shown, 2);
}

// Pictures for the documentation: run under Xvfb with KELVARIN_SHOTS=<folder> and
// --gtest_also_run_disabled_tests; with QT_SCALE_FACTOR=2 only the main window, at double size.
TEST_F(View, DISABLED_Screenshots) {
    const QString folder = qEnvironmentVariable("KELVARIN_SHOTS");
    ASSERT_FALSE(folder.isEmpty());
    Form1& f = start();
    f.resize(1180, 760);
    clickRow(id(ann));
    QTest::qWait(200);
    if (qEnvironmentVariable("QT_SCALE_FACTOR") == u"2"_s) {
        EXPECT_TRUE(f.grab().save(folder + u"/mainwindow-200-percent.png"_s));
        return;
    }
    // The pop-up of a mail value, drawn where it opens over the window.
    ListView& pane = *f.ListView1;
    QPoint at;
    for (int row = 0; row < pane.ListItems.Count(); ++row)
        if (pane.ListItems(row + 1)->CellText(1) == u"ann@zeta.example"_s)
            at = pane.visualRect(pane.model()->index(row, 1)).topLeft() + QPoint(60, 8);
    QMenu* menu = f.PopupDetails(at, true);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    QTest::qWait(100);
    QPixmap shot = f.grab();
    {
        QPainter painter(&shot);
        painter.drawPixmap(f.mapFromGlobal(menu->pos()), menu->grab());
    }
    EXPECT_TRUE(shot.save(folder + u"/mainwindow-link-popup.png"_s));
    menu->hide();

    const char* pages[] = {"interface", "themes", "window", "misc", "database"};
    {
        Form7 dialog(&f);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
        for (int i = 0; i < 5; ++i) {
            dialog.List1->setCurrentRow(i);
            QTest::qWait(50);
            EXPECT_TRUE(dialog.grab().save(folder + u"/form7-%1.png"_s.arg(QLatin1String(pages[i]))));
        }
    }
    // A start that found no phonebook.
    const QString gone = path(u"Kelvarin/phonebook.kvdb"_s);
    mCommon::Disconnect();
    mCommon::NotConnected(true);
    gDBPath = gone;
    Form7 missing(&f, true, mMain::WhyNotOpened(gone, {}));
    missing.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&missing));
    QTest::qWait(50);
    EXPECT_TRUE(missing.grab().save(folder + u"/start-missing-phonebook.png"_s));
}
