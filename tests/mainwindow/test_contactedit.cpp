// Deleting, copying and dragging contacts and nodes in the main window, and its photo pane: what
// the phonebook holds afterwards, what the list, the counts and the detail pane show, and which
// drags the tree refuses.
#include "app/mmain.h"
#include "app/previnstance.h"
#include "card/form3.h"
#include "contactlist/dragdrop.h"
#include "core/commandids.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "phonebook/catpath.h"
#include "phonebook/createdb.h"
#include "phonebook/storedphoto.h"
#include "preferences/mru.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "support/fixture.h"
#include "trees/pedigree.h"
#include "trees/viewstate.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLinearGradient>
#include <QPainter>
#include <QTabWidget>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Edit : public fixture::TempDirTest {
  protected:
    void SetUp() override {
        TempDirTest::SetUp();
        m_book = path(u"book.kvdb"_s);
        ASSERT_EQ(mAccess::CreateDB(m_book, false), 1);
        // Business > Customers > Key accounts; a second group.
        exec(u"INSERT INTO Categories (ID, Name, IDPARENT, Pedigree) VALUES (13, 'Key accounts', 4, "
             "'ID0EID3EID4EID13E')"_s);
        exec(u"INSERT INTO Boxes (ID, Name, IDPARENT, Pedigree) VALUES (2, 'Office', 0, 'ID0EID2E')"_s);
        mLV::UpdateCatPathAll();
        ann = contact(u"Ann Archer"_s, 4, 1);
        bob = contact(u"Bob Brown"_s, 13, 2);
        carl = contact(u"Carl Clark"_s, 9, 1);
        dora = contact(u"Dora Dane"_s, 1, 1);
        mMain::Closing();
    }
    void TearDown() override {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        mMru::ClearMRUList();
        gNotConnected = true;
        gPhotoTempFile.clear();
        DeleteDiskWarning = true;
        TempDirTest::TearDown();
    }

    static void exec(const QString& sql) { gDB.Execute(sql); }
    static int contact(const QString& name, int idc, int idx) {
        const int next = scalar(u"SELECT IIf(IsNull(Max(IDCD)), 0, Max(IDCD)) + 1 FROM CDs"_s).toInt();
        exec(u"INSERT INTO CDs (IDCD, ContactNumber, FullName, IDC, IDX, IDB, Label) VALUES (%1, %1, '%2', "
             u"%3, "
             "%4, -1, '%5')"_s.arg(next)
                 .arg(name)
                 .arg(idc)
                 .arg(idx)
                 .arg(name.left(1)));
        return next;
    }
    static QVariant scalar(const QString& sql) {
        dao::Recordset rs = gDB.OpenRecordset(sql, dao::dbOpenSnapshot);
        return rs.AtEOF() ? QVariant() : rs.Value(0);
    }
    static int count(const QString& sql) { return scalar(sql).toInt(); }

    Form1& start(bool normalMode) {
        SaveSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s, normalMode);
        mMain::SetCommandLine(m_book);
        mMain::Main();
        EXPECT_FALSE(gNotConnected);
        EXPECT_TRUE(QTest::qWaitForWindowExposed(gForm1));
        gPhotoTempFile = path(u"kvdb_photo"_s);
        return *gForm1;
    }
    Form1& form() const { return *gForm1; }
    TreeView& tree() const { return *gForm1->CatTree; }
    ListView& list() const { return *gForm1->ListView2; }
    bool run(int id) const { return gForm1->CommandBars1->ExecuteId(id); }
    QString label(const QString& key) const {
        const TreeNode* node = tree().Nodes(key);
        return node ? node->Text() : u"<none>"_s;
    }
    QStringList keys() const {
        QStringList k;
        for (const ListItem* item : list().ListItems)
            k << item->Key();
        return k;
    }
    QPoint nodePoint(const QString& key) {
        TreeNode* node = tree().Nodes(key);
        EXPECT_NE(node, nullptr) << key.toStdString();
        if (!node) return {};
        node->EnsureVisible();
        return tree().visualItemRect(node).center();
    }
    void clickNode(const QString& key) {
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, nodePoint(key));
    }
    void clickRow(const QString& key) {
        const ListItem* item = list().ListItems(key);
        ASSERT_NE(item, nullptr) << key.toStdString();
        const QModelIndex index = list().model()->index(item->Index() - 1, 0);
        list().scrollTo(index);
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, list().visualRect(index).center());
    }
    // The effect a drag shows over node `key`, after the drag began as given.
    int over(const QString& key) {
        int effect = mLV::dragMove;
        form().CatTree_OLEDragOver(effect, nodePoint(key), mLV::dragOver);
        return effect;
    }
    bool startFromTree(const QString& key) {
        form().CatTree_MouseDown(Qt::LeftButton, nodePoint(key));
        int allowed = 0;
        return form().CatTree_OLEStartDrag(allowed) && allowed == mLV::dragMove;
    }
    void startFromList(const QString& rowKey) {
        clickRow(rowKey);
        int allowed = 0;
        form().ListView2_OLEStartDrag(allowed);
        EXPECT_EQ(allowed, mLV::dragMove);
    }

    QString m_book;
    int ann = 0, bob = 0, carl = 0, dora = 0;
};

} // namespace

TEST_F(Edit, DeletingACategoryTakesItsContactsWithEverythingThatHangsOnThem) {
    start(true);
    // Dependants of Ann and Bob (under Business) and of Carl (under Personal).
    for (int id : {ann, bob, carl}) {
        exec(u"INSERT INTO Paths (IDPATH, IDCD, Path) VALUES (%1, %1, '/p')"_s.arg(id));
        exec(u"INSERT INTO Elements (ID, IDPATH, ElementName) VALUES (%1, %1, 'e')"_s.arg(id));
        exec(u"INSERT INTO SearchWhere (IDCD, Path) VALUES (%1, 'w')"_s.arg(id));
        exec(u"INSERT INTO LoanHistory (IDHistory, IDCD, IDB) VALUES (%1, %1, 1)"_s.arg(id));
    }
    EXPECT_EQ(label(u"ID0"_s), u"%1 (4)"_s.arg(mLanguageGobals::msgAllCategories));
    clickNode(u"ID3"_s);
    tree().setFocus();
    fixture::MsgBoxRecorder yes(vb::vbYes);
    run(cmd::CategoryDelete);
    ASSERT_EQ(yes.boxes.size(), 1);

    for (const char* table : {"CDs", "SearchWhere", "LoanHistory", "Paths"})
        EXPECT_EQ(count(u"SELECT Count(*) FROM %1 WHERE IDCD In (%2, %3)"_s.arg(QLatin1String(table))
                            .arg(ann)
                            .arg(bob)),
                  0)
            << table;
    EXPECT_EQ(count(u"SELECT Count(*) FROM Elements WHERE IDPATH In (%1, %2)"_s.arg(ann).arg(bob)), 0);
    for (const char* table : {"CDs", "SearchWhere", "LoanHistory", "Paths"})
        EXPECT_EQ(count(u"SELECT Count(*) FROM %1 WHERE IDCD = %2"_s.arg(QLatin1String(table)).arg(carl)), 1)
            << table;
    EXPECT_EQ(count(u"SELECT Count(*) FROM Categories WHERE ID In (3, 4, 13)"_s), 0);
    EXPECT_EQ(label(u"ID0"_s), u"%1 (2)"_s.arg(mLanguageGobals::msgAllCategories));
    EXPECT_EQ(tree().Nodes(u"ID3"_s), nullptr);
}

TEST_F(Edit, DeletingAContactAsksByPreferenceAndEmptiesTheDetailPaneThatShowedIt) {
    start(true);
    clickRow(u"ID%1"_s.arg(ann));
    EXPECT_EQ(list().Tag(), QString::number(ann));
    {
        fixture::MsgBoxRecorder no(vb::vbNo);
        EXPECT_TRUE(run(cmd::ContactDelete));
        ASSERT_EQ(no.texts(), QStringList{mLanguageGobals::msgReallyDeleteSelectedContact});
        EXPECT_EQ(no.boxes[0].buttons, vb::vbYesNo | vb::vbDefaultButton2);
    }
    EXPECT_EQ(count(u"SELECT Count(*) FROM CDs"_s), 4);
    {
        fixture::MsgBoxRecorder yes(vb::vbYes);
        run(cmd::ListDelete);
    }
    EXPECT_EQ(count(u"SELECT Count(*) FROM CDs WHERE IDCD = %1"_s.arg(ann)), 0);
    EXPECT_FALSE(list().ListItems.Exists(u"ID%1"_s.arg(ann)));
    EXPECT_EQ(list().SelectedItem(), nullptr);
    EXPECT_EQ(form().ListView1->ListItems.Count(), 0);
    EXPECT_TRUE(list().Tag().isEmpty());
    EXPECT_EQ(label(u"ID0"_s), u"%1 (3)"_s.arg(mLanguageGobals::msgAllCategories));
    EXPECT_EQ(label(u"ID3"_s), u"Business (1)"_s);

    // Without the preference the Delete key deletes at once.
    DeleteDiskWarning = false;
    clickRow(u"ID%1"_s.arg(dora));
    list().setFocus();
    fixture::MsgBoxRecorder none;
    QTest::keyClick(&list(), Qt::Key_Delete);
    EXPECT_TRUE(none.boxes.isEmpty());
    EXPECT_EQ(count(u"SELECT Count(*) FROM CDs"_s), 2);
    EXPECT_EQ(keys().filter(u"ID%1"_s.arg(dora)).size(), 0);
}

TEST_F(Edit, TheToolbarDeleteActsOnTheTreeWhenItHasTheFocus) {
    start(true);
    clickNode(u"ID9"_s); // Family, with Carl
    tree().setFocus();
    fixture::MsgBoxRecorder yes(vb::vbYes);
    run(cmd::MainDelete);
    EXPECT_EQ(yes.texts().first(), mLanguageGobals::msgReallyDeleteSelectedCategory + u'\n' +
                                       mLanguageGobals::msgCategoryDeleteWarning);
    EXPECT_EQ(count(u"SELECT Count(*) FROM CDs WHERE IDCD = %1"_s.arg(carl)), 0);
    EXPECT_EQ(tree().Nodes(u"ID9"_s), nullptr);
}

TEST_F(Edit, ACloneKeepsEveryFieldAndTakesTheNextNumbers) {
    start(true);
    const QByteArray photo = mPhotoStore::StoredPhotoBytes(QByteArray(40000, 'p'));
    QString numbers;
    for (int n = 1; n <= 12; ++n)
        numbers += u", Type%1 = %2, Number%1 = 'n%1'"_s.arg(n).arg(n % 9 + 1);
    exec(u"UPDATE CDs SET Title = 'Dr', Company = 'Acme', Address = 'Main St 1', City = 'Oslo', Comment = "
         u"'c', "
         "ContactNumber = 40, IDB = 1, PhotoExt = 'png', PhotoSize = 40000"_s +
         numbers + u" WHERE IDCD = %1"_s.arg(dora));
    {
        dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(dora));
        rs.Edit();
        rs.AppendChunk(u"Photo"_s, photo);
        rs.Update();
    }
    form().mnuViewMainRefresh_Click();
    clickRow(u"ID%1"_s.arg(dora));
    run(cmd::ContactCopy);
    const int copy = dora + 1;
    EXPECT_EQ(count(u"SELECT ContactNumber FROM CDs WHERE IDCD = %1"_s.arg(copy)), 41);
    // Every column but the copy's own three is the same.
    dao::Recordset a =
        gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(dora), dao::dbOpenSnapshot);
    dao::Recordset b =
        gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(copy), dao::dbOpenSnapshot);
    ASSERT_FALSE(b.AtEOF());
    int compared = 0;
    for (int i = 0; i < a.FieldCount(); ++i) {
        const QString name = a.FieldName(i);
        if (name == u"IDCD"_s || name == u"ContactNumber"_s || name == u"DateScan"_s) continue;
        EXPECT_EQ(a.Value(i), b.Value(i)) << name.toStdString();
        ++compared;
    }
    EXPECT_GE(compared, 60);
    EXPECT_EQ(b[u"Photo"_s].toByteArray(), photo);
    // The copy shows in the list with the same name, and counts.
    ASSERT_TRUE(list().ListItems.Exists(u"ID%1"_s.arg(copy)));
    EXPECT_EQ(list().ListItems(u"ID%1"_s.arg(copy))->Text(), "Dora Dane");
    EXPECT_EQ(label(u"ID0"_s), u"%1 (5)"_s.arg(mLanguageGobals::msgAllCategories));
    EXPECT_EQ(label(u"ID1"_s), u"Others (2)"_s);
    EXPECT_EQ(label(u"ID3"_s), u"Business (2)"_s); // untouched

    // Deleted and copied again, the copy gets the same numbers again.
    DeleteDiskWarning = false;
    clickRow(u"ID%1"_s.arg(copy));
    run(cmd::ContactDelete);
    clickRow(u"ID%1"_s.arg(dora));
    run(cmd::ListCopy);
    EXPECT_EQ(count(u"SELECT ContactNumber FROM CDs WHERE IDCD = %1"_s.arg(copy)), 41);
    // A node row is not copied.
    clickNode(u"ID3"_s);
    clickRow(u"ID4E"_s);
    EXPECT_EQ(form().CloneContact(), 0);
}

TEST_F(Edit, OthersAndTheRootNeverMoveAndANodeNeverGoesIntoItsOwnSubtree) {
    start(true);
    EXPECT_FALSE(startFromTree(u"ID0"_s));
    EXPECT_FALSE(startFromTree(u"ID1"_s));
    ASSERT_TRUE(startFromTree(u"ID3"_s));
    EXPECT_EQ(over(u"ID4"_s), mLV::dragNone);  // its child
    EXPECT_EQ(over(u"ID13"_s), mLV::dragNone); // further down
    EXPECT_EQ(over(u"ID3"_s), mLV::dragNone);  // itself
    EXPECT_EQ(over(u"ID0"_s), mLV::dragNone);  // its present parent
    EXPECT_EQ(over(u"ID2"_s), mLV::dragMove);
    EXPECT_EQ(tree().DropHighlight(), tree().Nodes(u"ID2"_s));
    int effect = mLV::dragMove;
    form().CatTree_OLEDragOver(effect, QPoint(), mLV::dragLeave);
    EXPECT_EQ(effect, mLV::dragNone);
    EXPECT_EQ(tree().DropHighlight(), nullptr);

    form().ViewMainSwich(u"Boxes"_s);
    EXPECT_FALSE(startFromTree(u"ID1"_s));
    EXPECT_TRUE(startFromTree(u"ID2"_s));
    // Favorites: "Others" may start, but nothing is rearranged there.
    form().ViewMainSwich(u"Borrows"_s);
    exec(u"INSERT INTO Borrows (ID, Name, IDPARENT, Pedigree) VALUES (2, 'Emergency', 0, 'ID0EID2E')"_s);
    form().mnuViewMainRefresh_Click();
    EXPECT_TRUE(startFromTree(u"ID1"_s));
    EXPECT_EQ(over(u"ID2"_s), mLV::dragNone);
}

TEST_F(Edit, ANodeDroppedOnAnotherMovesWithItsSubtreeInTheFileAndTheTree) {
    start(true);
    clickNode(u"ID3"_s);
    ASSERT_TRUE(startFromTree(u"ID4"_s));
    ASSERT_EQ(over(u"ID2"_s), mLV::dragMove);
    int effect = mLV::dragMove;
    form().CatTree_OLEDragDrop(effect);
    EXPECT_EQ(effect, mLV::dragNone);
    EXPECT_EQ(scalar(u"SELECT IDPARENT FROM Categories WHERE ID = 4"_s).toInt(), 2);
    EXPECT_EQ(scalar(u"SELECT Pedigree FROM Categories WHERE ID = 13"_s).toString(), "ID0EID2EID4EID13E");
    EXPECT_EQ(tree().Nodes(u"ID4"_s)->Parent()->Key(), "ID2");
    EXPECT_EQ(tree().Nodes(u"ID13"_s)->Parent()->Key(), "ID4");
    // The node in force keeps its place; the moved node's row left its list.
    EXPECT_EQ(tree().SelectedItem()->Key(), "ID3");
    EXPECT_FALSE(list().ListItems.Exists(u"ID4E"_s));
    EXPECT_EQ(label(u"ID3"_s), u"Business (0)"_s);
    EXPECT_EQ(label(u"ID2"_s), u"Personal (3)"_s);

    // With the node in force inside the moved subtree, its rows show their new paths.
    clickNode(u"ID13"_s);
    ASSERT_TRUE(startFromTree(u"ID4"_s));
    ASSERT_EQ(over(u"ID3"_s), mLV::dragMove);
    form().CatTree_OLEDragDrop(effect);
    ASSERT_TRUE(list().ListItems.Exists(u"ID%1"_s.arg(bob)));
    EXPECT_EQ(list().ListItems(u"ID%1"_s.arg(bob))->CellText(3), mTV::GetCBName(13, 0));
    EXPECT_TRUE(mTV::GetCBName(13, 0).startsWith(u"Business"_s));
}

TEST_F(Edit, AContactDropsOnTheNodeInForceOnlyInTheAdvancedModeAndNeverOnARoot) {
    start(true);
    clickNode(u"ID4"_s);
    startFromList(u"ID%1"_s.arg(ann));
    EXPECT_EQ(over(u"ID4"_s), mLV::dragNone);
    EXPECT_EQ(over(u"ID0"_s), mLV::dragNone);
    EXPECT_EQ(over(u"ID13"_s), mLV::dragMove);
    AdvancedCategoryMode = true;
    EXPECT_EQ(over(u"ID4"_s), mLV::dragMove);
    AdvancedCategoryMode = false;

    // Dropped on Family: the contact moves there and leaves the list of Customers.
    ASSERT_EQ(over(u"ID9"_s), mLV::dragMove);
    int effect = mLV::dragMove;
    form().CatTree_OLEDragDrop(effect);
    form().ListView2_OLECompleteDrag(effect);
    EXPECT_EQ(scalar(u"SELECT IDC FROM CDs WHERE IDCD = %1"_s.arg(ann)).toInt(), 9);
    EXPECT_FALSE(list().ListItems.Exists(u"ID%1"_s.arg(ann)));
    EXPECT_EQ(form().ListView1->ListItems.Count(), 0); // the pane showed Ann
    EXPECT_EQ(label(u"ID9"_s), u"Family (2)"_s);
    EXPECT_TRUE(CurrentDiskKey.isEmpty());

    // A node row dropped on a node moves that node; never into itself.
    clickNode(u"ID3"_s);
    startFromList(u"ID4E"_s);
    EXPECT_EQ(over(u"ID13"_s), mLV::dragNone);
    EXPECT_EQ(over(u"ID0"_s), mLV::dragMove);
    form().CatTree_OLEDragDrop(effect);
    EXPECT_EQ(tree().Nodes(u"ID4"_s)->Parent()->Key(), "ID0");
    EXPECT_EQ(scalar(u"SELECT Pedigree FROM Categories WHERE ID = 13"_s).toString(), "ID0EID4EID13E");
    EXPECT_FALSE(list().ListItems.Exists(u"ID4E"_s));
}

TEST_F(Edit, InTheAdvancedModeAContactMovedWithinTheViewStaysWithItsNewPath) {
    start(false);
    clickNode(u"ID3"_s);
    ASSERT_TRUE(list().ListItems.Exists(u"ID%1"_s.arg(ann)));
    startFromList(u"ID%1"_s.arg(ann));
    ASSERT_EQ(over(u"ID13"_s), mLV::dragMove);
    int effect = mLV::dragMove;
    form().CatTree_OLEDragDrop(effect);
    ASSERT_TRUE(list().ListItems.Exists(u"ID%1"_s.arg(ann)));
    EXPECT_EQ(list().ListItems(u"ID%1"_s.arg(ann))->CellText(3), mTV::GetCBName(13, 0));

    // A node dragged out of the subtree in force takes its contacts out of the list.
    ASSERT_TRUE(startFromTree(u"ID4"_s));
    ASSERT_EQ(over(u"ID2"_s), mLV::dragMove);
    form().CatTree_OLEDragDrop(effect);
    EXPECT_EQ(keys().filter(u"E"_s).size(), 0);
    EXPECT_FALSE(list().ListItems.Exists(u"ID%1"_s.arg(ann)));
    EXPECT_FALSE(list().ListItems.Exists(u"ID%1"_s.arg(bob)));
}

TEST_F(Edit, NothingDropsFromTheListWhileFavoritesAreShown) {
    start(true);
    exec(u"UPDATE CDs SET IDB = 1 WHERE IDCD = %1"_s.arg(ann));
    form().ViewMainSwich(u"Borrows"_s);
    startFromList(u"ID%1"_s.arg(ann));
    EXPECT_EQ(over(u"ID1"_s), mLV::dragNone);
    EXPECT_EQ(over(u"ID0"_s), mLV::dragNone);
}

TEST_F(Edit, ThePhotoPaneShowsTheStoredPhotoAndLeavesNoTemporaryFile) {
    start(true);
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    {
        dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(ann));
        rs.Edit();
        rs.AppendChunk(u"Photo"_s, mPhotoStore::StoredPhotoBytes(png));
        rs.SetValue(u"PhotoSize"_s, double(png.size()));
        rs.Update();
    }
    clickRow(u"ID%1"_s.arg(ann));
    EXPECT_EQ(form().picImage.size(), QSize(64, 48));
    EXPECT_EQ(form().picBox->pixmap().size(), QSize(64, 48));
    EXPECT_FALSE(QFile::exists(gPhotoTempFile));
    clickRow(u"ID%1"_s.arg(dora));
    EXPECT_EQ(form().picImage.toImage(), form().imNoImage.toImage());
}

// Pictures of the card's photo page and of the photo pane for the documentation: run with
// KELVARIN_SCREENSHOT_DIR set, under a real display (Xvfb), to write them there.
TEST_F(Edit, ScreenshotsOfThePhoto) {
    const QString dir = qEnvironmentVariable("KELVARIN_SCREENSHOT_DIR");
    if (dir.isEmpty()) GTEST_SKIP() << "KELVARIN_SCREENSHOT_DIR not set";
    Form1& f = start(true);
    f.resize(1180, 760);
    // A portrait: a head and shoulders on a soft background.
    QImage portrait(240, 300, QImage::Format_RGB32);
    {
        QPainter p(&portrait);
        p.setRenderHint(QPainter::Antialiasing);
        QLinearGradient sky(0, 0, 0, 300);
        sky.setColorAt(0, QColor(176, 206, 232));
        sky.setColorAt(1, QColor(236, 242, 248));
        p.fillRect(portrait.rect(), sky);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(52, 73, 110));
        p.drawEllipse(QRectF(30, 190, 180, 200));
        p.setBrush(QColor(233, 190, 160));
        p.drawEllipse(QRectF(75, 70, 90, 110));
        p.setBrush(QColor(92, 60, 40));
        p.drawChord(QRectF(70, 58, 100, 80), 0, 180 * 16);
    }
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    portrait.save(&buffer, "PNG");
    exec(
        u"UPDATE CDs SET Title = 'Sales lead', Company = 'Zeta Freight', City = 'Oslo', Type1 = 2, Number1 = "
        "'+47 22 33 44 55', Type3 = 5, Number3 = 'ann@zeta.example', PhotoExt = 'png', PhotoSize = %1 "
        "WHERE IDCD = %2"_s.arg(png.size())
            .arg(ann));
    {
        dao::Recordset rs = gDB.OpenRecordset(u"SELECT * FROM CDs WHERE IDCD = %1"_s.arg(ann));
        rs.Edit();
        rs.AppendChunk(u"Photo"_s, mPhotoStore::StoredPhotoBytes(png));
        rs.Update();
    }
    f.mnuViewMainRefresh_Click();
    clickNode(u"ID0"_s);
    clickRow(u"ID%1"_s.arg(ann));
    QTest::qWait(200);
    EXPECT_TRUE(f.grab().save(dir + u"/mainwindow-photo.png"_s));

    // The card with tabs on its photo page.
    ContactCardWithTabs = true;
    bool shot = false;
    fixture::ModalRecorder card([&](QDialog* d) {
        auto* c = qobject_cast<Form3*>(d);
        if (!c) return 0;
        c->show();
        c->TabControl1->setCurrentIndex(2);
        QTest::qWait(200);
        shot = c->grab().save(dir + u"/card-photo.png"_s);
        c->bnCancel_Click();
        return c->result();
    });
    form().mnuEditProperties_Click();
    EXPECT_TRUE(shot);
}
