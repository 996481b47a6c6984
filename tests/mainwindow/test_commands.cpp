// The commands of the main window: what each routed id does, the two button groups, the
// enabling rules without a phonebook and by the list's selection, and the icons.
#include "formtest.h"

#include "app/mmain.h"
#include "core/cfiledialog.h"
#include "core/commandids.h"
#include "core/language.h"
#include "core/seams.h"
#include "mainwindow/connection.h"
#include "mainwindow/statusbar.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "support/controls/icons.h"
#include "support/controls/imagelist.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

#include <QContextMenuEvent>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QHelpEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QTimer>
#include <QToolBar>
#include <QToolTip>
#include <QUrl>

namespace {

class Commands : public FormTest {
  protected:
    void TearDown() override {
        CFileDialog::SetHandler({});
        FormTest::TearDown();
        mMain::Closing();
        mMru::ClearMRUList();
        gDBPath.clear();
        gNotConnected = true;
    }
    // The file chooser answers `chosen` and remembers what it was asked.
    void chooseFile(const QString& chosen) {
        CFileDialog::SetHandler([this, chosen](CFileDialog& dialog, bool saveMode) {
            askedTitle = dialog.Title;
            askedSave = saveMode;
            dialog.FileName = chosen;
            return true;
        });
    }
    QString makePhonebook(const QString& name) {
        const QString file = path(name);
        EXPECT_EQ(mAccess::CreateDB(file, false), 1);
        mMain::Closing();
        return file;
    }
    QToolBar* toolbar(const QString& name) const { return form->findChild<QToolBar*>(name); }
    QString askedTitle;
    bool askedSave = false;
};

} // namespace

TEST_F(Commands, NewOpenAndRecentEntriesOpenTheirPhonebooks) {
    const QString second = makePhonebook(QStringLiteral("second.kvdb"));
    open();
    const QString first = path(QStringLiteral("first.kvdb"));
    chooseFile(first + QStringLiteral(".kvdb")); // a doubled extension is mended
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileNew));
    EXPECT_TRUE(askedSave);
    EXPECT_EQ(askedTitle, mLanguageGobals::msgCreatePhonebook);
    EXPECT_TRUE(QFile::exists(first));
    EXPECT_EQ(gDBPath, first);
    EXPECT_TRUE(gDBOpen);
    EXPECT_FALSE(gNotConnected);
    EXPECT_TRUE(form->windowTitle().contains(first));

    chooseFile(second);
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileOpen));
    EXPECT_FALSE(askedSave);
    EXPECT_EQ(askedTitle, mLanguageGobals::msgOpenPhonebook);
    EXPECT_EQ(gDBPath, second);
    EXPECT_TRUE(gDBOpen);
    EXPECT_EQ(mMru::MRUFiles, QStringList({second, first}));

    // The menu shows the list; its second entry opens the first phonebook and moves it up.
    EXPECT_TRUE(action(cmd::RecentFirst)->isVisible());
    EXPECT_TRUE(action(cmd::RecentFirst + 1)->Caption().endsWith(first));
    EXPECT_FALSE(action(cmd::RecentFirst + 2)->isVisible());
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::RecentFirst + 1));
    EXPECT_EQ(gDBPath, first);
    EXPECT_TRUE(gDBOpen);
    EXPECT_EQ(mMru::MRUFiles, QStringList({first, second}));

    // Only the number's "&" is a mnemonic; one in a path shows as it is.
    mMru::AddToMRUList(QStringLiteral("/home/me/R&D.kvdb"));
    EXPECT_EQ(action(cmd::RecentFirst)->text(), QStringLiteral("&1 /home/me/R&&D.kvdb"));
    mMru::AddToMRUList(first);

    // Clear list keeps the phonebook that is open.
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::RecentClear));
    EXPECT_EQ(mMru::MRUFiles, QStringList({first}));
    EXPECT_FALSE(action(cmd::RecentFirst + 1)->isVisible());
}

TEST_F(Commands, FileCommandsThatCannotOpenLeaveNothingOpenAndKeepTheEntry) {
    open();
    // A file that is not a phonebook: the message, not connected, and still in the list.
    const QString letter = path(QStringLiteral("letter.kvdb"));
    QFile f(letter);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("Dear Ann,\n");
    f.close();
    chooseFile(letter);
    {
        fixture::MsgBoxRecorder boxes;
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileOpen));
        EXPECT_EQ(boxes.texts(), QStringList{mLanguageGobals::msgNotADatabaseFileOrCorrupted});
    }
    EXPECT_TRUE(gNotConnected);
    EXPECT_FALSE(gDBOpen);
    EXPECT_EQ(mMru::MRUFiles.value(0), letter);
    EXPECT_EQ(form->windowTitle(), AppTitle());
    EXPECT_FALSE(action(cmd::ContactAdd)->Enabled());

    // New on a full disk: the store's message, and no file left behind.
    const QString full = path(QStringLiteral("full.kvdb"));
    chooseFile(full);
    {
        dao::ScopedHooks full;
        full->growthPages = 3;
        fixture::MsgBoxRecorder boxes;
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileNew));
        ASSERT_EQ(boxes.boxes.size(), 1);
        EXPECT_TRUE(boxes.boxes[0].text.startsWith(mLanguageGobals::msgCannotCreatePhonebookNoSpace));
    }
    EXPECT_FALSE(QFile::exists(full));
    EXPECT_TRUE(gNotConnected);

    // New over something that cannot be replaced (here a folder of that name) is denied.
    const QString folder = path(QStringLiteral("taken.kvdb"));
    QDir().mkpath(folder + QStringLiteral("/inside"));
    chooseFile(folder);
    {
        fixture::MsgBoxRecorder boxes;
        ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileNew));
        EXPECT_EQ(boxes.texts(), QStringList{mLanguageGobals::msgAccessDenied});
    }
    EXPECT_TRUE(QDir(folder + QStringLiteral("/inside")).exists());
    EXPECT_TRUE(gNotConnected);

    // Choosing the open file in Open does nothing.
    const QString book = path(QStringLiteral("book.kvdb"));
    chooseFile(book);
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileNew));
    gDB.Execute(QStringLiteral("INSERT INTO CDs (IDCD, FullName, IDC, IDX) VALUES (1, 'Ann', 1, 1)"));
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileOpen));
    EXPECT_TRUE(gDBOpen);
    EXPECT_FALSE(gNotConnected);
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("SELECT Count(*) FROM CDs"), dao::dbOpenSnapshot);
    EXPECT_EQ(rs.Value(0).toInt(), 1);
    rs.Close();
}

TEST_F(Commands, ExitUnloadsTheWindowAndClosesThePhonebook) {
    gDBPath = makePhonebook(QStringLiteral("book.kvdb"));
    ASSERT_TRUE(mLogin::LoginCnn(false));
    open();
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::FileExit));
    EXPECT_FALSE(form->isVisible());
    EXPECT_FALSE(gDBOpen);
    EXPECT_FALSE(GetSetting(AppTitle(), "Layout", "MainWindowPanes").isEmpty());
    EXPECT_FALSE(GetSetting(AppTitle(), "Layout", "MainWindowToolbar").isEmpty());
}

TEST_F(Commands, ViewSwitchesStoreTheirPreferenceAndChangeTheBars) {
    open();
    CommandBars& bars = *form->CommandBars1;
    QToolBar* main = toolbar(QStringLiteral("Main"));
    ASSERT_NE(main, nullptr);

    bars.ExecuteId(cmd::ViewStatusBar);
    EXPECT_FALSE(form->StatusBar1->isVisible());
    EXPECT_FALSE(checked(cmd::ViewStatusBar));
    EXPECT_EQ(pref("ShowStatusbar"), "0");
    bars.ExecuteId(cmd::ViewStatusBar);
    EXPECT_TRUE(form->StatusBar1->isVisible());
    EXPECT_EQ(pref("ShowStatusbar"), "1");

    EXPECT_EQ(main->iconSize().width(), CommandBars::IconSize(true));
    bars.ExecuteId(cmd::ViewLargeIcons);
    EXPECT_EQ(main->iconSize().width(), CommandBars::IconSize(false));
    EXPECT_EQ(pref("ShowLargeIcons"), "0");

    bars.ExecuteId(cmd::ViewLockToolbars);
    EXPECT_FALSE(main->isMovable());
    EXPECT_TRUE(checked(cmd::ViewLockToolbars));
    EXPECT_EQ(pref("LockToolbar"), "1");

    // Tool tips: the toolbar buttons stop showing theirs.
    auto tipOf = [&](int id) {
        QWidget* button = main->widgetForAction(action(id));
        QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), button->mapToGlobal(QPoint(2, 2)));
        QCoreApplication::sendEvent(button, &help);
        return QToolTip::text();
    };
    using mLanguageGobals::msgSearch, mLanguageGobals::msgStatistics;
    EXPECT_EQ(tipOf(cmd::MainSearch), msgSearch);
    bars.ExecuteId(cmd::ViewToolTips);
    EXPECT_NE(tipOf(cmd::MainStatistics), msgStatistics);
    EXPECT_EQ(pref("ShowToolTip"), "0");

    // Restore defaults: the layout of the first start, tips and large icons on, unlocked.
    toolbar(QStringLiteral("AlphabeticalIndex"))->toggleViewAction()->trigger();
    form->addToolBar(Qt::BottomToolBarArea, main);
    bars.ExecuteId(cmd::ViewToolbarsDefault);
    EXPECT_TRUE(toolbar(QStringLiteral("AlphabeticalIndex"))->isVisible());
    EXPECT_EQ(form->toolBarArea(main), Qt::TopToolBarArea);
    EXPECT_TRUE(main->isMovable());
    EXPECT_EQ(main->iconSize().width(), CommandBars::IconSize(true));
    EXPECT_EQ(tipOf(cmd::MainStatistics), msgStatistics);
    EXPECT_TRUE(checked(cmd::ViewToolTips) && checked(cmd::ViewLargeIcons) &&
                !checked(cmd::ViewLockToolbars));
    EXPECT_EQ(pref("ShowToolTip") + pref("ShowLargeIcons") + pref("LockToolbar"), "110");
}

TEST_F(Commands, TreeTabsAndLettersAreTwoIndependentRadioGroups) {
    open();
    CommandBars& bars = *form->CommandBars1;
    const QList<int> tabs = {cmd::TabCategories, cmd::TabGroups, cmd::TabFavorites};
    QList<int> letters = {cmd::LetterAll};
    for (int id = cmd::LetterA; id <= cmd::LetterUnknown; ++id)
        letters << id;
    auto onlyChecked = [&](const QList<int>& group) {
        QList<int> on;
        for (int id : group)
            if (checked(id)) on << id;
        return on;
    };
    EXPECT_EQ(onlyChecked(tabs), QList<int>{cmd::TabCategories});
    EXPECT_EQ(onlyChecked(letters), QList<int>{cmd::LetterAll});

    bars.ExecuteId(cmd::TabGroups);
    EXPECT_EQ(onlyChecked(tabs), QList<int>{cmd::TabGroups});
    EXPECT_EQ(onlyChecked(letters), QList<int>{cmd::LetterAll});
    EXPECT_TRUE(checked(cmd::ViewGroups)); // the View menu follows the tabs
    EXPECT_FALSE(checked(cmd::ViewCategories));

    bars.ExecuteId(cmd::LetterA + 5); // "F"
    EXPECT_EQ(onlyChecked(letters), QList<int>{cmd::LetterA + 5});
    EXPECT_EQ(onlyChecked(tabs), QList<int>{cmd::TabGroups});
    bars.ExecuteId(cmd::LetterA + 5); // a second click keeps the choice
    EXPECT_EQ(onlyChecked(letters), QList<int>{cmd::LetterA + 5});

    bars.ExecuteId(cmd::ViewFavorites); // the View menu's Favorites picks the tab with the tag "Borrows"
    EXPECT_EQ(onlyChecked(tabs), QList<int>{cmd::TabFavorites});
    EXPECT_TRUE(checked(cmd::ViewFavorites));
    EXPECT_EQ(onlyChecked(letters), QList<int>{cmd::LetterA + 5});
    EXPECT_EQ(action(cmd::LetterDigits)->Tag(), "NUM");
    EXPECT_EQ(action(cmd::LetterUnknown)->Tag(), "UNK");
}

TEST_F(Commands, FunctionKeysAndTheListPopUpReachTheirCommands) {
    open();
    form->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form.get()));
    QSignalSpy executed(form->CommandBars1, &CommandBars::Execute);
    form->ListView2->setFocus();
    const ShellHandler old = SetShellHandler([](const QString&) { return true; });
    for (Qt::Key key : {Qt::Key_F5, Qt::Key_F1, Qt::Key_F3})
        QTest::keyClick(form->ListView2, key);
    SetShellHandler(old);
    QList<int> ids;
    for (const auto& call : executed)
        ids << call.at(0).value<CommandBarAction*>()->Id();
    EXPECT_EQ(ids, QList<int>({cmd::ViewRefresh, cmd::HelpContents, cmd::ToolsSearch}));

    QWidget* rows = form->ListView2->viewport();
    QContextMenuEvent menu(QContextMenuEvent::Mouse, QPoint(5, 5), rows->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(rows, &menu);
    EXPECT_TRUE(form->Popup->isVisible());
    EXPECT_TRUE(form->Popup->actions().contains(action(cmd::ListDelete)));
    form->Popup->hide();
}

TEST_F(Commands, WithoutAPhonebookOnlyTheListedCommandsStayEnabled) {
    open();
    mCommon::NotConnected(true);
    form->CatTree->setFocus();
    form->MenuUpdate(); // the toolbar's Delete does not come back through the tree's focus
    // What works on files, views, help and the tray stays usable; what reads or writes contacts
    // or the trees waits for a phonebook.
    for (int id : {cmd::FileNew, cmd::FileOpen, cmd::FileExit, cmd::RecentClear, cmd::ViewToolTips,
                   cmd::ViewPanePhoto, cmd::HelpAbout, cmd::MainPreferences, cmd::ViewPanesDefault})
        EXPECT_TRUE(action(id) && action(id)->Enabled()) << id;
    for (int id : {cmd::ListDelete, cmd::MainAdd, cmd::MainSearch, cmd::LetterA, cmd::TabCategories,
                   cmd::FileCompactDB})
        EXPECT_TRUE(action(id) && !action(id)->Enabled()) << id;
    int enabled = 0;
    for (CommandBarAction* a : form->CommandBars1->Actions())
        enabled += a->Enabled();
    EXPECT_GT(enabled, 20);
    EXPECT_TRUE(gNotConnected);
    // The toolbar list follows its command.
    EXPECT_TRUE(form->findChild<QToolBar*>(QStringLiteral("Main"))->toggleViewAction()->isEnabled());

    mCommon::NotConnected(false);
    for (CommandBarAction* a : form->CommandBars1->Actions())
        EXPECT_TRUE(a->Enabled()) << a->Id();
}

TEST_F(Commands, ListCommandsFollowTheSelectionAndTheTreeFocus) {
    open();
    gNotConnected = false;
    ListView& list = *form->ListView2;
    list.ColumnHeaders.Add(QStringLiteral("FullName"), QStringLiteral("Full Name"));
    list.ListItems.Add(QStringLiteral("ID1"), QStringLiteral("Ann"));
    list.ListItems.Add(QStringLiteral("ID2"), QStringLiteral("Bob"));
    auto states = [&] {
        QString s;
        for (int id : {cmd::ContactCopy, cmd::ContactDelete, cmd::ContactProperties, cmd::MainDelete,
                       cmd::MainProperties})
            s += action(id)->Enabled() ? QLatin1Char('1') : QLatin1Char('0');
        return s;
    };
    form->ListView2->setFocus();
    form->MenuUpdate();
    EXPECT_EQ(states(), "00000");
    form->CatTree->setFocus();
    form->MenuUpdate();
    // Delete and Properties of the toolbar work on the tree; the list's commands need a row.
    EXPECT_EQ(states(), "00011");
    list.SetSelectedItem(list.ListItems.Item(QStringLiteral("ID2")));
    form->MenuUpdate();
    EXPECT_EQ(states(), "11111");
    list.ListItems.Clear();
    form->ListView2->setFocus();
    form->MenuUpdate();
    EXPECT_EQ(states(), "00000");
}

TEST_F(Commands, StatusBarShowsTodayAndTheCaptionFollowsTheFile) {
    gDBPath = makePhonebook(QStringLiteral("book.kvdb"));
    ASSERT_TRUE(mLogin::LoginCnn(false));
    gNotConnected = false;
    open();
    EXPECT_TRUE(form->StatusBar1->PanelText(1).startsWith(QStringLiteral("Today: ")));
    EXPECT_EQ(form->Timer1->interval(), 1000);
    BDSizeOnTitle = true;
    form->Timer1_Timer();
    BDSizeOnTitle = false;
    EXPECT_TRUE(form->windowTitle().startsWith(AppTitle() + QStringLiteral(" - ") + gDBPath));
    EXPECT_TRUE(form->windowTitle().contains(mLanguageGobals::msgDatabaseSize));
}

TEST_F(Commands, EveryCommandAndEveryTreeAndRowKindHasAnIcon) {
    open();
    for (CommandBarAction* a : form->CommandBars1->Actions()) {
        const int id = a->Id();
        auto within = [id](int first, int last) { return id >= first && id <= last; };
        const bool captionOnly =
            within(cmd::RecentFirst, cmd::RecentLast) || id == cmd::ToolbarList || id == cmd::LetterAll ||
            within(cmd::LetterA, cmd::LetterUnknown) || within(cmd::ListSortFirst, cmd::ListSortLast) ||
            id == cmd::ListSortByGroup || within(cmd::ListSortInfoFirst, cmd::ListSortInfoLast) ||
            within(cmd::DetailsColumnName, cmd::DetailsColumnsCustomize) ||
            within(cmd::ContactColumnFirst, cmd::ContactColumnLast); // the column pickers
        EXPECT_EQ(a->icon().isNull(), captionOnly) << id;
    }
    for (const char* key : {"CAT", "CATS", "CATSEL", "CATSSEL", "BOX", "BOXS", "BOXSEL", "BOXSSEL", "STAR",
                            "STARS", "BOR", "Tray16", "Tray256"}) {
        ASSERT_TRUE(ImageList::Shared().Exists(QLatin1String(key))) << key;
        const QImage img = ImageList::Shared().Icon(QLatin1String(key)).pixmap(32, 32).toImage();
        int painted = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                painted += qAlpha(img.pixel(x, y)) > 0;
        EXPECT_GT(painted, 100) << key;
    }
}

TEST_F(Commands, HelpOpensThePagesInTheBrowser) {
    open();
    QStringList opened;
    const ShellHandler old = SetShellHandler([&](const QString& target) {
        opened << target;
        return true;
    });
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::HelpContents));
    ASSERT_TRUE(form->CommandBars1->ExecuteId(cmd::MainHelp));
    SetShellHandler(old);
    ASSERT_EQ(opened.size(), 2);
    EXPECT_EQ(opened[0], opened[1]);
    EXPECT_TRUE(opened[0].startsWith(QLatin1String("file:///")));
    EXPECT_TRUE(QFile::exists(QUrl(opened[0]).toLocalFile())) << opened[0].toStdString();
}
