// The preferences dialog: every page read from and written to the preferences, Apply, OK and
// Cancel, the font chooser, the Database page with and without a phonebook, and the commands that
// open it.
#include "formtest.h"

#include "app/mmain.h"
#include "core/cfiledialog.h"
#include "core/commandids.h"
#include "core/language.h"
#include "core/seams.h"
#include "mainwindow/connection.h"
#include "mainwindow/dockingpane.h"
#include "mainwindow/form7.h"
#include "mainwindow/statusbar.h"
#include "phonebook/createdb.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QStackedWidget>
#include <QToolBar>

using namespace Qt::StringLiterals;
using namespace mLanguageGobals;

namespace {

class Preferences : public FormTest {
  protected:
    void TearDown() override {
        CFileDialog::SetHandler({});
        SetFontHandler({});
        FormTest::TearDown();
        mMain::Closing();
        mMru::ClearMRUList();
        gDBPath.clear();
        gNotConnected = true;
    }
    QString makePhonebook(const QString& name) {
        const QString file = path(name);
        EXPECT_EQ(mAccess::CreateDB(file, false), 1);
        mMain::Closing();
        return file;
    }
    void connect(const QString& file) {
        gDBPath = file;
        ASSERT_TRUE(mLogin::LoginCnn(false));
        mCommon::NotConnected(false);
    }
    static QStringList offeredPages(const Form7& dialog) {
        QStringList pages;
        for (int i = 0; i < dialog.List1->count(); ++i)
            if (!dialog.List1->item(i)->isHidden()) pages << dialog.List1->item(i)->text();
        return pages;
    }
};

} // namespace

TEST_F(Preferences, ThePagesShowThePreferencesInForce) {
    open();
    ShowStatusbar = false;
    BDSizeOnTitle = true;
    AppTheme = 5;
    ToolbarTheme = 0;
    AnimationSpeed = 450;
    FileDoubleClick = 2;
    form->CommandBars1->ToolBars().at(1)->hide(); // the letters
    Form7 dialog(form.get());
    EXPECT_EQ(dialog.windowTitle(), msgPreferencesTitle);
    EXPECT_EQ(offeredPages(dialog),
              QStringList({msgInterfaceElements, msgThemes, msgWindowSettings, msgMisc, msgDatabase}));
    EXPECT_EQ(dialog.Pages->currentIndex(), Form7::PageInterface);
    dialog.List1->setCurrentRow(Form7::PageMisc);
    EXPECT_EQ(dialog.Pages->currentWidget(), dialog.Pref[Form7::PageMisc]);

    EXPECT_TRUE(dialog.chToolbar1->isChecked());
    EXPECT_FALSE(dialog.chToolbar2->isChecked());
    EXPECT_TRUE(dialog.chToolbar3->isChecked());
    EXPECT_FALSE(dialog.chStatusbar->isChecked());
    EXPECT_TRUE(dialog.chBDSizeOnTitle->isChecked());
    EXPECT_TRUE(dialog.opAppTheme[5]->isChecked());
    EXPECT_EQ(dialog.opAppTheme[5]->text(), msgOffice2007Aqua);
    EXPECT_TRUE(dialog.opToolbarTheme[0]->isChecked());
    EXPECT_EQ(dialog.hscrAnimationSpeed->value(), 450);
    EXPECT_EQ(dialog.cmbFileDoubleClick->currentText(), msgShowProperties);
    EXPECT_FALSE(dialog.findChild<QWidget*>(u"NoPhonebookMessage"_s)->isVisibleTo(&dialog));
    // No phonebook is open: the page says so and nothing can be moved or cleared.
    EXPECT_EQ(dialog.fdSize->text(), msgTheDatabaseCannotBeFound);
    EXPECT_FALSE(dialog.bnMoveDatabase->isEnabled());
    EXPECT_FALSE(dialog.bnClearDatabase->isEnabled());
}

TEST_F(Preferences, ApplyStoresAndShowsAndCancelKeepsWhatWasApplied) {
    open();
    const QString before = pref("ShowStatusbar");
    Form7 dialog(form.get());
    dialog.chStatusbar->setChecked(false);
    dialog.chPanePhoto->setChecked(false);
    dialog.chToolbar2->setChecked(false);
    dialog.chLockToolbar->setChecked(true);
    dialog.opAppTheme[3]->setChecked(true);
    dialog.opToolbarTheme[0]->setChecked(true);
    dialog.hscrAnimationSpeed->setValue(700);
    dialog.cmbFileDoubleClick->setCurrentIndex(1);
    dialog.chContactCardWithTabs->setChecked(!ContactCardWithTabs);
    // Nothing reaches the store or the window before Apply.
    EXPECT_EQ(pref("ShowStatusbar"), before);
    EXPECT_TRUE(form->StatusBar1->isVisible());

    dialog.bnApply->click();
    EXPECT_EQ(pref("ShowStatusbar") + pref("PaneDiskImage") + pref("LockToolbar"), "001");
    EXPECT_EQ(pref("AppTheme") + pref("ToolbarTheme"), "30");
    EXPECT_EQ(pref("AnimationSpeed"), "700");
    EXPECT_EQ(pref("FileDoubleClick"), "1");
    EXPECT_EQ(pref("ContactCardWithTabs"), ContactCardWithTabs ? "1" : "0");
    EXPECT_FALSE(ShowStatusbar || PaneDiskImage);
    EXPECT_TRUE(LockToolbar);
    EXPECT_EQ(AppTheme, 3);
    EXPECT_FALSE(form->StatusBar1->isVisible());
    EXPECT_FALSE(form->Pane(Form1::PaneIdPhoto)->isVisible());
    EXPECT_FALSE(checked(cmd::ViewPanePhoto));
    EXPECT_TRUE(checked(cmd::ViewLockToolbars));
    EXPECT_FALSE(form->CommandBars1->ToolBars().at(1)->isVisible());
    EXPECT_FALSE(form->CommandBars1->ToolBars().at(2)->isMovable());

    // Changed again, then Cancel: what Apply stored stays, the new change is dropped.
    dialog.chStatusbar->setChecked(true);
    dialog.chBDSizeOnTitle->setChecked(!BDSizeOnTitle);
    const QString sizeOnTitle = pref("BDSizeOnTitle");
    dialog.bnCancel->click();
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(pref("ShowStatusbar"), "0");
    EXPECT_EQ(pref("BDSizeOnTitle"), sizeOnTitle);
    EXPECT_FALSE(ShowStatusbar);
    EXPECT_FALSE(form->StatusBar1->isVisible());

    // A new start reads what was stored.
    restartPreferences();
    EXPECT_FALSE(ShowStatusbar);
    EXPECT_EQ(AnimationSpeed, 700);
}

TEST_F(Preferences, OKAppliesAndCloses) {
    open();
    Form7 dialog(form.get());
    dialog.chBDSizeOnTitle->setChecked(true);
    dialog.chShowLargeIcons->setChecked(false);
    dialog.bnOK->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_TRUE(BDSizeOnTitle);
    EXPECT_EQ(pref("BDSizeOnTitle") + pref("ShowLargeIcons"), "10");
    EXPECT_EQ(form->CommandBars1->ToolBars().at(2)->iconSize().width(), CommandBars::IconSize(false));
}

TEST_F(Preferences, TheChosenFontGoesToTheListsAndTheStore) {
    open();
    Form7 dialog(form.get());
    EXPECT_EQ(dialog.findChild<QLabel*>(u"lbFont"_s)->text(), msgFontNone);
    QFont offered;
    SetFontHandler([&offered](QFont& font, QWidget*) {
        offered = font;
        font.setFamily(u"DejaVu Serif"_s);
        font.setPointSizeF(13.5);
        font.setBold(true);
        return true;
    });
    dialog.bnLvTvFonts->click();
    EXPECT_EQ(offered.family(), form->ListView2->font().family()); // the chooser starts at the lists' font
    EXPECT_TRUE(FontName.isEmpty());                               // not before Apply
    dialog.bnApply->click();
    EXPECT_EQ(FontName, u"DejaVu Serif"_s);
    EXPECT_DOUBLE_EQ(FontSize, 13.5);
    EXPECT_TRUE(FontBold);
    EXPECT_EQ(pref("FontName"), u"DejaVu Serif"_s);
    EXPECT_EQ(pref("FontBold"), "1");
    EXPECT_DOUBLE_EQ(form->ListView2->font().pointSizeF(), 13.5);
    EXPECT_TRUE(form->CatTree->font().bold());

    // A chooser closed without a choice changes nothing.
    SetFontHandler([](QFont& font, QWidget*) {
        font.setFamily(u"Other"_s);
        return false;
    });
    dialog.bnLvTvFonts->click();
    EXPECT_EQ(dialog.ChosenFont().family(), u"DejaVu Serif"_s);
    FontName.clear();
    FontBold = false;
    FontSize = 0;
}

TEST_F(Preferences, TheDatabasePageShowsThePhonebookAndOpensAnother) {
    const QString first = makePhonebook(u"first.kvdb"_s);
    const QString second = makePhonebook(u"second.kvdb"_s);
    open();
    connect(first);
    Form7 dialog(form.get());
    EXPECT_EQ(dialog.fdDatabasePath->text(), first);
    EXPECT_TRUE(dialog.fdSize->text().contains(u"bytes"_s));
    EXPECT_TRUE(dialog.bnMoveDatabase->isEnabled());
    EXPECT_TRUE(dialog.bnClearDatabase->isEnabled());
    CFileDialog::SetHandler([&](CFileDialog& d, bool) {
        d.FileName = second;
        return true;
    });
    dialog.bnDatabasePath->click();
    EXPECT_EQ(gDBPath, second);
    EXPECT_EQ(dialog.fdDatabasePath->text(), second);
    EXPECT_EQ(dialog.result(), 0); // still open: it was not opened for lack of a phonebook
    EXPECT_TRUE(form->windowTitle().contains(second));
}

TEST_F(Preferences, WithoutAPhonebookOnlyTheDatabasePageIsOfferedAndOpenLeavesAConnectedProgram) {
    const QString book = makePhonebook(u"found.kvdb"_s);
    open();
    gDBPath = path(u"gone.kvdb"_s);
    mCommon::NotConnected(true);
    Form7 dialog(form.get(), true,
                 u"The phonebook “gone.kvdb” could not be opened because the file does not exist."_s);
    EXPECT_EQ(offeredPages(dialog), QStringList{msgDatabase});
    EXPECT_EQ(dialog.Pages->currentIndex(), Form7::PageDatabase);
    const QString message = dialog.lbNoPhonebook->text();
    EXPECT_TRUE(message.startsWith(msgDatabaseCannotBeFoundOrDoesNotExist));
    EXPECT_TRUE(message.contains(u"gone.kvdb"_s)); // which file, and why
    EXPECT_TRUE(dialog.findChild<QWidget*>(u"NoPhonebookMessage"_s)->isVisibleTo(&dialog));
    EXPECT_FALSE(dialog.bnApply->isEnabled());

    // The chooser cancelled: the dialog stays, still without a phonebook.
    CFileDialog::SetHandler([](CFileDialog&, bool) { return false; });
    dialog.bnDatabasePath->click();
    EXPECT_TRUE(gNotConnected);
    EXPECT_EQ(dialog.result(), 0);

    CFileDialog::SetHandler([&](CFileDialog& d, bool) {
        d.FileName = book;
        return true;
    });
    dialog.bnDatabasePath->click();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(gNotConnected);
    EXPECT_TRUE(gDBOpen);
    EXPECT_EQ(gDBPath, book);
    EXPECT_TRUE(action(cmd::ContactAdd)->Enabled());
    EXPECT_EQ(offeredPages(dialog).size(), 5);
}

TEST_F(Preferences, BothPreferencesCommandsOpenTheDialog) {
    open();
    QStringList opened;
    fixture::ModalRecorder dialogs([&](QDialog* d) {
        opened << d->objectName();
        auto* prefs = qobject_cast<Form7*>(d);
        EXPECT_TRUE(prefs && !prefs->NoPhonebook);
        return 0;
    });
    // Also without a phonebook.
    mCommon::NotConnected(true);
    EXPECT_TRUE(form->CommandBars1->ExecuteId(cmd::ToolsPreferences));
    EXPECT_TRUE(form->CommandBars1->ExecuteId(cmd::MainPreferences));
    EXPECT_EQ(opened, QStringList({u"Form7"_s, u"Form7"_s}));
}
