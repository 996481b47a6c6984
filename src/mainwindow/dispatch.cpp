// The one dispatcher of the main window's commands, and the commands of the View menu that
// switch bars and panes.
#include "contactlist/checktab.h"
#include "core/commandids.h"
#include "core/datafiles.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "mainwindow/form4.h"
#include "mainwindow/form9.h"
#include "mainwindow/statusbar.h"
#include "mainwindow/tray.h"
#include "preferences/preferences.h"
#include "preferences/settings.h"
#include "reports/reportwindow.h"
#include "search/form8.h"
#include "support/controls/commandbars.h"
#include "support/controls/treeview.h"
#include "trees/catproperties.h"
#include "trees/mainview.h"
#include "trees/treedelete.h"
#include "trees/treeedit.h"
#include "trees/treesort.h"
#include "trees/viewstate.h"

#include <QToolBar>

#include <algorithm>
#include <iterator>

namespace {

void storePreference(const char* key, bool value) {
    SaveSetting(AppTitle(), QStringLiteral("PreferencesNew"), QLatin1String(key), value);
}

// The commands after which the enabled state of the list commands is brought up to date.
bool updatesMenu(int id) {
    return id == cmd::TabFavorites || id == cmd::LetterAll || (id >= cmd::MainAdd && id <= cmd::MainReport) ||
           id == cmd::MainPreferences || id == cmd::MainHelp ||
           (id >= cmd::LetterA && id <= cmd::TabGroups) || id == cmd::TabCategories;
}

// The commands that show another part of the phonebook in the contact list.
bool changesView(int id) {
    return id == cmd::ViewCategories || id == cmd::ViewFavorites || id == cmd::ViewGroups ||
           id == cmd::TabCategories || id == cmd::TabGroups || id == cmd::TabFavorites ||
           id == cmd::LetterAll || (id >= cmd::LetterA && id <= cmd::LetterUnknown) ||
           id == cmd::ViewRefresh || id == cmd::ListRefresh;
}

// The report button of the main toolbar repeats the source chosen last from its drop-down:
// the entry makes the button's tag "DiskList" or "FileList" and its tip, and stores the choice.
void chooseReportSource(CommandBars& bars, bool diskList) {
    const QString mode = diskList ? QStringLiteral("DiskList") : QStringLiteral("FileList");
    if (CommandBarAction* button = bars.FindAction(cmd::MainReport)) {
        button->SetTag(mode);
        button->setToolTip(diskList ? mLanguageGobals::msgReportBasedOnContactList
                                    : mLanguageGobals::msgReportBasedOnSelectedContact);
    }
    SaveSetting(AppTitle(), QStringLiteral("Main"), QStringLiteral("ReportMode"), mode);
    if (diskList)
        mCommon::ReportDiskList();
    else
        mCommon::ReportFileList();
}

} // namespace

void Form1::CommandBars1_Execute(CommandBarAction* Control) {
    if (!Control) return;
    RunEvent("Form1.CommandBars1_Execute(Control)", [this, Control] { Dispatch(*Control); });
}

bool Form1::Dispatch(CommandBarAction& Control) {
    bool routed = true;
    const int id = Control.Id();
    // A command that changes the view takes the list back from the quick filter first.
    if (QuickFilterHolds() && changesView(id)) ClearQuickFilter(true);
    switch (id) {
    case cmd::FileNew:
        mnuFileNew_Click();
        break;
    case cmd::FileOpen:
        mnuFileOpen_Click();
        break;
    case cmd::FileExit:
        mnuFileExit_Click();
        break;
    case cmd::RecentClear:
        mnuFileClear_Click();
        break;
    case cmd::FileInfo:
        mnuFileInfo_Click();
        break;
    case cmd::FileClearDB:
        mnuFileClearDB_Click();
        break;
    case cmd::FileCompactDB:
        mnuFileCompactDB_Click();
        break;
    case cmd::FileImport:
        mnuFileImport_Click();
        break;
    case cmd::FileExportAll:
    case cmd::FileExportList:
    case cmd::FileExportSelected:
        mnuFileExport_Click(id);
        break;
    case cmd::FileSync:
        mnuFileSync_Click();
        break;
    case cmd::FileSyncSettings:
        mnuFileSyncSettings_Click();
        break;
    case cmd::AccessFull:
    case cmd::AccessReadOnly:
        SwithAccessMode(id == cmd::AccessFull);
        break;
    case cmd::AccessOptions:
        OpenAccessOptions();
        break;

    case cmd::CategoryQuickAdd:
        mTV::CatTreeAdd(mTV::TreeForm{*CatTree, true}, mToolBar::WhatCATIsChecked());
        break;
    case cmd::CategoryAdd:
        mTV::mnuCategoryAdd(View());
        break;
    case cmd::CategoryRename:
        mTV::CatTreeRename(mTV::TreeForm{*CatTree, true});
        break;
    case cmd::CategoryDelete:
        mTV::CatTreeDelete(*CatTree, false, false);
        MenuUpdate();
        break;
    case cmd::CategorySortByName:
        mTV::SortTreeByName(*CatTree);
        break;
    case cmd::CategorySortByContacts:
        mTV::SortTreeByQuantity(*CatTree);
        break;
    case cmd::CategoryModeNormal:
    case cmd::CategoryModeAdvanced:
        mLV::SwitchCategoryMode(View(), id == cmd::CategoryModeNormal);
        MenuUpdate();
        break;
    case cmd::CategoryProperties:
        mTV::mnuCategoryProperties(View());
        break;

    case cmd::ContactAdd:
    case cmd::ListAdd:
    case cmd::MainAdd:
        mnuEditAdd_Click();
        break;
    case cmd::ContactNoFavorite:
    case cmd::ListNoFavorite:
        mnuEditNoBorrow_Click();
        break;
    case cmd::ContactProperties:
    case cmd::ListProperties:
        mnuEditProperties_Click();
        break;
    case cmd::MainProperties:
        PropertiesFromTab();
        break;
    case cmd::ContactDelete:
    case cmd::ListDelete:
        mnuEditDelete_Click();
        break;
    case cmd::MainDelete:
        DeleteFromTab(true);
        break;
    case cmd::ContactCopy:
    case cmd::ListCopy:
        CloneContact();
        break;

    case cmd::ViewCategories:
        ViewMainSwich(QStringLiteral("Categories"));
        break;
    case cmd::ViewFavorites:
        ViewMainSwich(QStringLiteral("Borrows"));
        break;
    case cmd::ViewGroups:
        ViewMainSwich(QStringLiteral("Boxes"));
        break;
    case cmd::ViewRefresh:
    case cmd::ListRefresh:
        mnuViewMainRefresh_Click();
        break;
    case cmd::ViewToolTips:
        SwitchToolTips();
        break;

    case cmd::ToolsPreferences:
    case cmd::MainPreferences:
        mnuToolsPreferences_Click();
        break;
    case cmd::HelpWebsite:
    case cmd::TrayWebsite:
        mnuHelpWeb_Click();
        break;
    case cmd::HelpSupport:
    case cmd::TraySupport:
        mnuHelpMail_Click();
        break;
    case cmd::HelpFeedback:
    case cmd::TrayFeedback:
        mnuHelpFeedback_Click();
        break;
    case cmd::HelpAbout:
        mnuHelpAbout_Click();
        break;
    case cmd::DetailsColumnsCustomize:
        mnuHL1Customize_Click();
        break;
    case cmd::ContactColumnsCustomize:
        mnuHL2Customize_Click();
        break;
    case cmd::DetailsSendMail:
    case cmd::DetailsOpenWeb:
    case cmd::DetailsCall:
    case cmd::DetailsCopy:
        runQuickAction(id);
        break;

    case cmd::HelpContents:
    case cmd::MainHelp:
        mCommon::CallHelp();
        break;
    case cmd::TrayRestore:
        mMain::MainFormShow();
        break;
    case cmd::TrayExit:
        mMain::MainFormShow();
        mnuFileExit_Click();
        break;
    case cmd::HelpTip:
        mTips::StartupTip(true, this);
        break;
    case cmd::ToolsStatistics:
    case cmd::MainStatistics:
        mTips::Summary(this);
        break;
    case cmd::ViewStatusBar:
        SwitchStatusBar();
        break;
    case cmd::ViewLargeIcons:
        SwitchLargeIcons();
        break;
    case cmd::ViewLockToolbars:
        SwitchLockToolbars();
        break;
    case cmd::ViewToolbarsDefault:
        RestoreToolbarDefaults();
        break;
    case cmd::ViewPaneCategories:
        SwitchPane(PaneIdCategories);
        break;
    case cmd::ViewPaneContacts:
        SwitchPane(PaneIdContacts);
        break;
    case cmd::ViewPaneCard:
        SwitchPane(PaneIdCard);
        break;
    case cmd::ViewPanePhoto:
        SwitchPane(PaneIdPhoto);
        break;
    case cmd::ViewPanesDefault:
        RestorePaneDefaults();
        break;

    case cmd::ToolsSearch:
    case cmd::MainSearch:
        mCommon::Search();
        break;
    case cmd::ToolsReport:
        mCommon::ReportDiskList();
        break;
    case cmd::ToolsReportSelected:
        mCommon::ReportFileList();
        break;
    case cmd::MainReport:
        if (Control.Tag() == QLatin1String("FileList"))
            mCommon::ReportFileList();
        else
            mCommon::ReportDiskList();
        break;
    case cmd::ReportOnList:
    case cmd::ReportOnContact:
        chooseReportSource(*CommandBars1, id == cmd::ReportOnList);
        break;

    case cmd::TabCategories:
    case cmd::TabGroups:
    case cmd::TabFavorites:
        ViewMainSwich(Control.Tag());
        break;

    default:
        if (id >= cmd::RecentFirst && id <= cmd::RecentLast) {
            mnuFileMRU_Click(id);
        } else if (id == cmd::LetterAll || (id >= cmd::LetterA && id <= cmd::LetterUnknown)) {
            ViewMainSwich(Control.Tag());
        } else if ((id >= cmd::ListSortFirst && id <= cmd::ListSortLast) || id == cmd::ListSortByGroup ||
                   (id >= cmd::ListSortInfoFirst && id <= cmd::ListSortInfoLast)) {
            ArrangeBy(id);
        } else if (id >= cmd::DetailsColumnName && id <= cmd::DetailsColumnModified) {
            mnuHL1_Click(id - cmd::DetailsColumnName + 1);
        } else if (ContactColumnIndex(id) > 0) {
            mnuHL2_Click(ContactColumnIndex(id));
        } else {
            routed = false;
        }
        break;
    }
    if (updatesMenu(id)) MenuUpdate();
    return routed;
}

void Form1::SwitchToolTips() {
    HUNT_PLACE("Form1.SwitchToolTips");
    ShowToolTip = !ShowToolTip;
    storePreference("ShowToolTip", ShowToolTip);
    CommandBars1->SetShowToolTips(ShowToolTip);
    CommandBars1->FindAction(cmd::ViewToolTips)->SetChecked(ShowToolTip);
}

void Form1::SwitchStatusBar() {
    HUNT_PLACE("Form1.SwitchStatusBar");
    ShowStatusbar = !ShowStatusbar;
    storePreference("ShowStatusbar", ShowStatusbar);
    StatusBar1->setVisible(ShowStatusbar);
    CommandBars1->FindAction(cmd::ViewStatusBar)->SetChecked(ShowStatusbar);
}

void Form1::SwitchLargeIcons() {
    HUNT_PLACE("Form1.SwitchLargeIcons");
    ShowLargeIcons = !ShowLargeIcons;
    storePreference("ShowLargeIcons", ShowLargeIcons);
    CommandBars1->SetLargeIcons(ShowLargeIcons);
    CommandBars1->FindAction(cmd::ViewLargeIcons)->SetChecked(ShowLargeIcons);
}

void Form1::SwitchLockToolbars() {
    HUNT_PLACE("Form1.SwitchLockToolbars");
    LockToolbar = !LockToolbar;
    storePreference("LockToolbar", LockToolbar);
    CommandBars1->SetLocked(LockToolbar);
    CommandBars1->FindAction(cmd::ViewLockToolbars)->SetChecked(LockToolbar);
}

void Form1::RestoreToolbarDefaults() {
    HUNT_PLACE("Form1.RestoreToolbarDefaults");
    CommandBars1->LoadLayout(GetSetting(AppTitle(), kLayout, QStringLiteral("MainWindowToolbarDefault")));
    ShowToolTip = true;
    ShowLargeIcons = true;
    LockToolbar = false;
    storePreference("ShowToolTip", ShowToolTip);
    storePreference("ShowLargeIcons", ShowLargeIcons);
    storePreference("LockToolbar", LockToolbar);
    CommandBars1->SetShowToolTips(ShowToolTip);
    CommandBars1->SetLargeIcons(ShowLargeIcons);
    CommandBars1->SetLocked(LockToolbar);
    tickViewEntries();
}
