// The quick filter of the contact list: the rows follow the text, a new text drops the run of the
// old one, and the main window's field hands the list back to the tree on Esc.
#include "app/mmain.h"
#include "app/previnstance.h"
#include "contactlist/columns.h"
#include "core/commandids.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "mainwindow/statusbar.h"
#include "preferences/mru.h"
#include "preferences/settings.h"
#include "search/form8.h"
#include "search/quickfilter.h"
#include "searchtest.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"
#include "trees/viewstate.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <memory>

using namespace Qt::StringLiterals;
using namespace mLanguageGobals;

namespace {

QStringList rowNames(const ListView& list) {
    QStringList n;
    for (const ListItem* item : list.ListItems)
        n << item->Text();
    return n;
}

class QuickFilterRuns : public SearchBook {
  protected:
    void SetUp() override {
        SearchBook::SetUp();
        list = std::make_unique<ListView>();
        mLV::IniList(*list, mLV::lcContacts);
        filter = std::make_unique<mSearch::QuickFilter>(*list);
    }
    void TearDown() override {
        filter.reset();
        list.reset();
        SearchBook::TearDown();
    }
    QStringList run(const QString& text) {
        EXPECT_TRUE(filter->Start(text));
        filter->RunToEnd();
        return rowNames(*list);
    }
    std::unique_ptr<ListView> list;
    std::unique_ptr<mSearch::QuickFilter> filter;
};

} // namespace

TEST_F(QuickFilterRuns, RowsFollowTheTextOverNameCompanyAndNumbers) {
    EXPECT_EQ(run(u"smi"_s), QStringList({u"John Smith"_s, u"Mary O'Brien"_s})); // name, company
    EXPECT_EQ(run(u"smit"_s).size(), 2);
    EXPECT_EQ(run(u"smith o'b"_s).size(), 2);
    EXPECT_EQ(run(u"0100"_s), QStringList({u"John Smith"_s}));     // a number
    EXPECT_EQ(run(u"ДМИТ"_s), QStringList({u"Дмитрий Иванов"_s})); // any case
    EXPECT_EQ(run(u"北京"_s), QStringList({u"王伟"_s}));
    EXPECT_TRUE(run(u"boston"_s).isEmpty()); // the city is not among the fields
    EXPECT_EQ(filter->Matches(), 0);
    // Text without a word starts nothing.
    EXPECT_FALSE(filter->Start(u"\"\" "_s));
    EXPECT_FALSE(filter->Running());
}

TEST_F(QuickFilterRuns, ANewTextDropsTheRunOfTheOldOne) {
    // Contacts far apart in the table, so that a run takes several steps.
    for (int i = 0; i < 40; ++i)
        gDB.ExecuteNative(u"INSERT INTO CDs (rowid, IDCD, FullName, IDC, IDX, IDB, Label) "
                          "VALUES (%1, %2, 'Anna %3', 1, 1, -1, 'A')"_s.arg(10000 + i * 50000)
                              .arg(100 + i)
                              .arg(i));
    QSignalSpy finished(filter.get(), &mSearch::QuickFilter::Finished);
    ASSERT_TRUE(filter->Start(u"anna"_s));
    QCoreApplication::processEvents(); // one step
    ASSERT_TRUE(filter->Running());
    const int early = list->ListItems.Count();
    EXPECT_LT(early, 40);
    // The next keystroke: the old rows go at once, and the old run never adds another.
    ASSERT_TRUE(filter->Start(u"ærø"_s));
    EXPECT_EQ(list->ListItems.Count(), 0);
    for (int i = 0; i < 200 && filter->Running(); ++i)
        QCoreApplication::processEvents();
    EXPECT_FALSE(filter->Running());
    EXPECT_EQ(rowNames(*list), QStringList({u"Ærø Jensen"_s}));
    ASSERT_EQ(finished.size(), 1);
    EXPECT_EQ(finished.first().first().toInt(), 1);
    // Cancelled: what was found stays, and nothing more comes.
    ASSERT_TRUE(filter->Start(u"anna"_s));
    QCoreApplication::processEvents();
    filter->Cancel();
    const int kept = list->ListItems.Count();
    for (int i = 0; i < 20; ++i)
        QCoreApplication::processEvents();
    EXPECT_EQ(list->ListItems.Count(), kept);
    EXPECT_EQ(finished.size(), 1);
    // Run through, every Anna.
    EXPECT_EQ(run(u"anna"_s).size(), 40);
}

namespace {

class QuickFilterField : public SearchBook {
  protected:
    void SetUp() override {
        SearchBook::SetUp();
        m_book = m_path;
        mMain::Closing();
        SaveSetting(AppTitle(), u"PreferencesNew"_s, u"CategoryNormalMode"_s, false);
        mMain::SetCommandLine(m_book);
        mMain::Main();
        ASSERT_NE(gForm1, nullptr);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(gForm1));
    }
    void TearDown() override {
        delete gForm1;
        mMain::Closing();
        mPrevInstance::StopListening();
        mMain::SetCommandLine(QString());
        mMru::ClearMRUList();
        gNotConnected = true;
        fixture::TempDirTest::TearDown();
    }
    Form1& f() const { return *gForm1; }
    QStringList shown() const { return rowNames(*gForm1->ListView2); }
    void type(const QString& text) {
        f().txtQuickFilter->setText(text);
        for (int i = 0; i < 500 && f().QuickFilter1->Running(); ++i)
            QCoreApplication::processEvents();
    }
    QString m_book;
};

} // namespace

TEST_F(QuickFilterField, TheListFollowsTypingAndEscBringsTheTreeBack) {
    // The tree's list: the root of the categories, every contact.
    TreeNode* others = f().CatTree->Nodes(u"ID1"_s);
    ASSERT_NE(others, nullptr);
    f().CatTree->SetSelectedItem(others);
    f().CatTree_NodeClick(others);
    const QStringList tree = shown();

    type(u"ł"_s);
    EXPECT_EQ(shown(), QStringList({u"Łukasz Nowak"_s}));
    EXPECT_FALSE(f().CatTree->isEnabled());
    type(u"ż"_s);
    EXPECT_TRUE(shown().isEmpty());
    type(u"sm"_s);
    EXPECT_EQ(shown(), QStringList({u"John Smith"_s, u"Mary O'Brien"_s}));
    // The count of the status bar is the count of the matches.
    QCoreApplication::processEvents();
    EXPECT_EQ(f().StatusBar1->PanelText(f().StatusBar1->PanelCount()), msgContactsColon + u"2"_s);

    QTest::keyClick(f().txtQuickFilter, Qt::Key_Escape);
    EXPECT_TRUE(f().txtQuickFilter->text().isEmpty());
    EXPECT_TRUE(f().CatTree->isEnabled());
    EXPECT_EQ(shown(), tree);
    EXPECT_EQ(CurrentNodeKey, u"ID1"_s);

    // Enter hands the text to the search window, which searches it at once.
    type(u"smith"_s);
    QStringList searched;
    fixture::ModalRecorder modal([&](QDialog* d) {
        if (auto* search = qobject_cast<Form8*>(d)) {
            QCoreApplication::processEvents();
            for (const ListItem* item : search->ListView1->ListItems)
                searched << item->Text();
            searched.sort();
            searched.prepend(search->cmbName->currentText());
        }
        return 0;
    });
    QTest::keyClick(f().txtQuickFilter, Qt::Key_Return);
    EXPECT_EQ(searched, QStringList({u"smith"_s, u"John Smith"_s, u"Mary O'Brien"_s}));
    // A letter tab takes the list back for the tree.
    f().CommandBars1->ExecuteId(cmd::LetterAll);
    EXPECT_TRUE(f().txtQuickFilter->text().isEmpty());
    EXPECT_TRUE(f().CatTree->isEnabled());
}
