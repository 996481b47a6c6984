// Tools > Preferences with what its Apply changes in the main window, and the Help commands that
// reach the product: web site, support mail, feedback page, About.
#include "core/desktop.h"
#include "core/error.h"
#include "core/seams.h"
#include "mainwindow/form1.h"
#include "mainwindow/form10.h"
#include "mainwindow/form7.h"
#include "mainwindow/statusbar.h"
#include "preferences/preferences.h"
#include "preferences/regsettings.h"
#include "support/controls/commandbars.h"
#include "support/controls/listview.h"
#include "support/controls/treeview.h"

#include <QToolBar>

void Form1::mnuToolsPreferences_Click() {
    HUNT_PLACE("Form1.mnuToolsPreferences_Click");
    mCommon::ShowPreferences(this);
}

void Form1::ApplyViewPreferences(int oldToolbarTheme, int oldAppTheme, const bool (&toolbars)[3]) {
    HUNT_PLACE("Form1.ApplyViewPreferences(oldToolbarTheme, oldAppTheme)", oldToolbarTheme, oldAppTheme);
    mRegSettings::ApplyPreferences(false, oldToolbarTheme, oldAppTheme, {CatTree, ListView2, ListView1});
    CommandBars1->SetShowToolTips(ShowToolTip);
    CommandBars1->SetLargeIcons(ShowLargeIcons);
    CommandBars1->SetLocked(LockToolbar);
    StatusBar1->setVisible(ShowStatusbar);
    applyPaneVisibility();
    tickViewEntries();
    const QList<QToolBar*>& bars = CommandBars1->ToolBars();
    for (int i = 0; i < 3 && i < bars.size(); ++i)
        bars.at(i)->setVisible(toolbars[i]);
}

void Form1::mnuHelpWeb_Click() {
    HUNT_PLACE("Form1.mnuHelpWeb_Click");
    mCommon::OpenWebSite();
}

void Form1::mnuHelpMail_Click() {
    HUNT_PLACE("Form1.mnuHelpMail_Click");
    mCommon::MailSupport(mRegSettings::ProgramVersion());
}

void Form1::mnuHelpFeedback_Click() {
    HUNT_PLACE("Form1.mnuHelpFeedback_Click");
    mCommon::OpenFeedback(mRegSettings::ProgramVersion());
}

void Form1::mnuHelpAbout_Click() {
    HUNT_PLACE("Form1.mnuHelpAbout_Click");
    Form10 frm(this);
    ShowModal(&frm, this);
}
