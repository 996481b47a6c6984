// The main window as a keyboard and mouse user meets it with a phonebook open: menu mnemonics and
// command keys, the pop-up of a tree node, the order of a sorted list as contacts come and
// change, the detail pane and the contact count in the status bar.
#include "app/mmain.h"
#include "app/previnstance.h"
#include "card/cardform.h"
#include "core/commandids.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "mainwindow/statusbar.h"
#include "phonebook/catpath.h"
#include "phonebook/createdb.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "support/controls/commandbars.h"
#include "support/controls/imagecombo.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/fixture.h"
#include "trees/viewstate.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Keys : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        m_book = path(u"book.kvdb"_s);
        ASSERT_EQ(mAccess::CreateDB(m_book, false), 1);
        ann = contact(u"Ann Archer"_s, u"Zeta Freight"_s, 4);
        bob = contact(u"Bob Brown"_s, u"Acme Tools"_s, 4);
        carl = contact(u"Carl Clark"_s, QString(), 9);
        dora = contact(u"Dora Dane"_s, u"Iris Labs"_s, 1);
        mMain::Closing();
        SaveSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s, true);
        mMain::SetCommandLine(m_book);
        mMain::Main();
        ASSERT_FALSE(gNotConnected);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(gForm1));
        gForm1->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(gForm1));
    }
    void TearDown() override {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        mMru::ClearMRUList();
        gNotConnected = true;
        TempDirTest::TearDown();
    }
    static int contact(const QString& name, const QString& company, int idc) {
        static int next = 0;
        const int id = scalar(u"SELECT IIf(IsNull(Max(IDCD)), 0, Max(IDCD)) + 1 FROM CDs"_s).toInt();
        next = id;
        gDB.Execute(u"INSERT INTO CDs (IDCD, ContactNumber, FullName, Company, IDC, IDX, IDB, Label) "
                    "VALUES (%1, %1, '%2', %3, %4, 1, -1, '%5')"_s.arg(id)
                        .arg(name, company.isEmpty() ? u"Null"_s : u"'"_s + company + u"'"_s)
                        .arg(idc)
                        .arg(name.left(1)));
        return next;
    }
    static QVariant scalar(const QString& sql) {
        dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
        return rs.AtEOF() ? QVariant() : rs.Value(0);
    }
    Form1& form() const { return *gForm1; }
    TreeView& tree() const { return *gForm1->CatTree; }
    ListView& list() const { return *gForm1->ListView2; }
    CommandBarAction* action(int id) const { return gForm1->CommandBars1->FindAction(id); }
    std::string names() const {
        QStringList n;
        for (const ListItem* item : list().ListItems)
            n << item->Text();
        return n.join(u", "_s).toStdString();
    }
    QPoint nodePoint(const QString& key) {
        TreeNode* node = tree().Nodes(key);
        EXPECT_NE(node, nullptr) << key.toStdString();
        if (!node) return {};
        tree().scrollToItem(node);
        return tree().visualItemRect(node).center();
    }
    void clickRow(int id) {
        const ListItem* item = list().ListItems(u"ID%1"_s.arg(id));
        ASSERT_NE(item, nullptr);
        const QModelIndex index = list().model()->index(item->Index() - 1, 0);
        list().scrollTo(index);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(index).center());
    }
    // The count follows the list once the events of a change have run.
    QString countText() const {
        QCoreApplication::processEvents();
        return form().StatusBar1->PanelText(form().StatusBar1->PanelCount());
    }

    QString m_book;
    int ann = 0, bob = 0, carl = 0, dora = 0;
};

// Every entry of `menu` and of its sub-menus, and the mnemonics that repeat within one menu.
void collectMnemonics(QWidget* menu, const QString& where, QStringList& without, QStringList& repeated) {
    QSet<QChar> seen;
    for (QAction* a : menu->actions()) {
        if (a->isSeparator() || !a->isVisible() || a->text().isEmpty()) continue;
        const QString text = a->text();
        const qsizetype at = text.indexOf(QRegularExpression(u"&[^&]"_s));
        if (at < 0) {
            without << where + u" > "_s + text;
        } else {
            const QChar m = text.at(at + 1).toLower();
            if (seen.contains(m)) repeated << where + u" > "_s + text;
            seen.insert(m);
        }
        if (QMenu* sub = a->menu()) collectMnemonics(sub, where + u" > "_s + text, without, repeated);
    }
}

} // namespace

TEST_F(Keys, EveryMenuEntryHasAMnemonicOfItsOwnWithinItsMenu) {
    QStringList without, repeated;
    collectMnemonics(form().menuBar(), u"menu bar"_s, without, repeated);
    for (const char* name : {"Popup", "TreePopup"}) {
        QMenu* popup = form().CommandBars1->ContextMenu(QString::fromLatin1(name));
        ASSERT_NE(popup, nullptr) << name;
        collectMnemonics(popup, QString::fromLatin1(name), without, repeated);
    }
    EXPECT_TRUE(without.isEmpty()) << without.join(u"\n"_s).toStdString();
    EXPECT_TRUE(repeated.isEmpty()) << repeated.join(u"\n"_s).toStdString();
    // The toolbar buttons still show their captions without the mark.
    EXPECT_FALSE(action(cmd::ContactAdd)->iconText().contains(u'&'));
}

TEST_F(Keys, CommandKeysDoTheirUsualWorkAndNeverClash) {
    // No key twice among the window's keys; the tree's own keys only work in the tree.
    QMap<QString, int> windowKeys;
    for (CommandBarAction* a : form().CommandBars1->Actions()) {
        if (a->shortcut().isEmpty()) continue;
        if (a->shortcutContext() == Qt::WidgetShortcut) {
            EXPECT_TRUE(tree().actions().contains(a)) << a->Id();
            continue;
        }
        const QString key = a->shortcut().toString();
        EXPECT_FALSE(windowKeys.contains(key))
            << key.toStdString() << " on " << a->Id() << " and " << windowKeys.value(key);
        windowKeys.insert(key, a->Id());
    }
    EXPECT_EQ(windowKeys.value(u"Ctrl+Q"_s), int(cmd::FileExit));
    EXPECT_EQ(windowKeys.value(u"Ctrl+O"_s), int(cmd::FileOpen));
    EXPECT_EQ(action(cmd::CategoryRename)->shortcut(), QKeySequence(Qt::Key_F2));
    EXPECT_EQ(action(cmd::CategoryDelete)->shortcut(), QKeySequence(Qt::Key_Delete));

    // F2 in the tree opens the selected node's name for editing.
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, nodePoint(u"ID4"_s));
    ASSERT_EQ(QApplication::focusWidget(), &tree());
    QTest::keyClick(&tree(), Qt::Key_F2);
    EXPECT_TRUE(tree().IsEditingLabel());
    QLineEdit* editor = tree().findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), "Customers");
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_FALSE(tree().IsEditingLabel());

    // Del in the tree asks before deleting the node; in the contact list it asks before deleting
    // the contact, and leaves the tree alone.
    {
        fixture::MsgBoxRecorder boxes(vb::vbNo);
        tree().setFocus();
        QTest::keyClick(&tree(), Qt::Key_Delete);
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_TRUE(boxes.texts().first().startsWith(mLanguageGobals::msgReallyDeleteSelectedCategory));
        clickRow(ann);
        ASSERT_EQ(QApplication::focusWidget(), &list());
        QTest::keyClick(&list(), Qt::Key_Delete);
        ASSERT_EQ(boxes.boxes.size(), 2);
        EXPECT_EQ(boxes.texts().last(), mLanguageGobals::msgReallyDeleteSelectedContact);
    }
    EXPECT_NE(tree().Nodes(u"ID4"_s), nullptr);

    // Enter on a contact row opens its card, as a double click does.
    QString opened;
    {
        fixture::ModalRecorder cards([&](QDialog* d) {
            auto* card = static_cast<CardForm*>(d);
            opened = card->fdFullName->text();
            card->bnCancel_Click();
            return card->result();
        });
        QTest::keyClick(&list(), Qt::Key_Return);
        EXPECT_EQ(cards.shown, 1);
    }
    EXPECT_EQ(opened, "Ann Archer");

    // Ctrl+Q ends the program's window.
    QTest::keyClick(&form(), Qt::Key_Q, Qt::ControlModifier);
    EXPECT_FALSE(form().isVisible());
}

TEST_F(Keys, ARightClickOnANodeShowsThatNodeAndItsMenu) {
    QMenu* popup = form().CommandBars1->ContextMenu(u"TreePopup"_s);
    ASSERT_NE(popup, nullptr);
    const QPoint at = nodePoint(u"ID4"_s);
    QTest::mousePress(tree().viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent menu(QContextMenuEvent::Mouse, at, tree().viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(tree().viewport(), &menu);
    QTest::mouseRelease(tree().viewport(), Qt::RightButton, {}, at);
    // The whole view follows the node the menu is for, so its commands act on what is shown.
    EXPECT_EQ(tree().SelectedItem()->Key(), "ID4");
    EXPECT_EQ(CurrentNodeKey, "ID4");
    EXPECT_EQ(names(), "Ann Archer, Bob Brown");
    ASSERT_TRUE(popup->isVisible());
    QStringList entries;
    for (QAction* a : popup->actions())
        if (!a->isSeparator()) entries << a->text().remove(u'&');
    EXPECT_EQ(entries,
              QStringList({mLanguageGobals::msgQuickAdd, mLanguageGobals::msgAdd, mLanguageGobals::msgRename,
                           mLanguageGobals::msgDelete, mLanguageGobals::msgProperties}));
    popup->close();

    // A right click on empty space opens nothing and changes nothing.
    const QPoint below(5, tree().viewport()->height() - 3);
    ASSERT_EQ(tree().HitTest(below), nullptr);
    QContextMenuEvent nowhere(QContextMenuEvent::Mouse, below, tree().viewport()->mapToGlobal(below));
    QCoreApplication::sendEvent(tree().viewport(), &nowhere);
    EXPECT_FALSE(popup->isVisible());
    EXPECT_EQ(CurrentNodeKey, "ID4");
}

TEST_F(Keys, ASortedListKeepsNewAndEditedContactsInTheirPlace) {
    // By company, descending: Zeta, Iris, Acme, then the contact without a company.
    QHeaderView* header = list().header();
    const auto clickCompany = [&] {
        const int x = header->sectionViewportPosition(2) + header->sectionSize(2) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
    };
    clickCompany();
    clickCompany();
    ASSERT_EQ(names(), "Ann Archer, Dora Dane, Bob Brown, Carl Clark");

    fixture::ModalRecorder cards([&](QDialog* d) {
        auto* card = static_cast<CardForm*>(d);
        if (card->fdFullName->text().isEmpty()) card->fdFullName->setText(u"Eve Evans"_s);
        card->fdCompany->setText(card->fdFullName->text() == u"Eve Evans"_s ? u"Juniper Foods"_s
                                                                            : u"Blue River"_s);
        card->bnOK_Click();
        return card->result();
    });
    ASSERT_TRUE(form().CommandBars1->ExecuteId(cmd::ContactAdd));
    EXPECT_EQ(names(), "Ann Archer, Eve Evans, Dora Dane, Bob Brown, Carl Clark");
    // Carl gets a company: his row moves up to it.
    clickRow(carl);
    form().ListView2_DblClick();
    EXPECT_EQ(cards.shown, 2);
    EXPECT_EQ(names(), "Ann Archer, Eve Evans, Dora Dane, Carl Clark, Bob Brown");
}

TEST_F(Keys, TheStatusBarCountsTheContactsInTheListAndTheDetailPaneFillsItsWidth) {
    EXPECT_EQ(countText(), mLanguageGobals::msgContactsColon + u"4"_s);
    // Below a node the rows of its children are no contacts.
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, nodePoint(u"ID3"_s));
    ASSERT_GT(list().ListItems.Count(), 0);
    EXPECT_EQ(countText(), mLanguageGobals::msgContactsColon + u"0"_s);
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, nodePoint(u"ID4"_s));
    EXPECT_EQ(countText(), mLanguageGobals::msgContactsColon + u"2"_s);

    // The detail pane: labels and values without blank captions, the values as wide as the pane.
    clickRow(ann);
    ListView& details = *form().ListView1;
    ASSERT_GT(details.ListItems.Count(), 0);
    EXPECT_TRUE(details.isHeaderHidden());
    const QHeaderView* h = details.header();
    EXPECT_GE(h->sectionViewportPosition(1) + h->sectionSize(1), details.viewport()->width() - 1);
    EXPECT_GT(h->sectionSize(1), 200);
}
