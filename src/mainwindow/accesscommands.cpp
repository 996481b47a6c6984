// The access commands of the File menu, and the maintenance commands that close and reopen the
// phonebook: compact, clear, info.
#include "access/accessmode.h"
#include "access/form22.h"
#include "access/form23.h"
#include "access/form6.h"
#include "access/maintenance.h"
#include "access/rorestrictions.h"
#include "contactlist/favorites.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/restrictions.h"
#include "core/seams.h"
#include "mainwindow/connection.h"
#include "mainwindow/form1.h"
#include "support/controls/listview.h"
#include "trees/counters.h"

using namespace mLanguageGobals;

void Form1::SwithAccessMode(bool FullMode) {
    HUNT_PLACE("Form1.SwithAccessMode(FullMode)", FullMode);
    if (mMain::NeedPassword(true, FullMode)) {
        Form22 frm(true, FullMode, this);
        ShowModal(&frm, this);
        if (!gPasswordAccepted) {
            ROSwitch(); // the radio entries show the mode in force again
            return;
        }
    }
    ROSwitch();
    if (!gReadOnlyMode && gRestricted) MsgBox(mAccess::ReadOnlyWarning(), vb::vbOKOnly, vb::vbExclamation);
    mCommon::RORestrictions(this);
    MenuUpdate();
    mCommon::MenuNoBorrow(*ListView2, *CommandBars1);
    mCommon::EditCaption();
}

void Form1::OpenAccessOptions() {
    HUNT_PLACE("Form1.OpenAccessOptions");
    Form23 frm(this);
    ShowModal(&frm, this);
}

void Form1::mnuFileInfo_Click() {
    HUNT_PLACE("Form1.mnuFileInfo_Click");
    Form6 frm(this);
    ShowModal(&frm, this);
}

void Form1::mnuFileClearDB_Click() {
    HUNT_PLACE("Form1.mnuFileClearDB_Click");
    mAccess::ClearAndCompactDB(this);
}

void Form1::mnuFileCompactDB_Click() {
    HUNT_PLACE("Form1.mnuFileCompactDB_Click");
    mAccess::CompactCommand(this);
}

// What the maintenance of the phonebook file asks of the window, and the rules of a restricted
// session for every form.
void Form1::fillAccessHooks() {
    mAccess::InstallRORestrictions();
    mAccess::MaintenanceHooks& h = mAccess::MainHooks();
    h.ClearViews = [this] {
        ListView2->ListItems.Clear();
        ListView1->ListItems.Clear();
        ListView2->SetTag(QString());
        ListView1->SetTag(QString());
        SetNoImage();
    };
    h.MenuUpdate = [this] { MenuUpdate(); };
    h.Reopened = [this] {
        mCommon::MenuNoBorrow(*ListView2, *CommandBars1);
        mTV::UpdateCounters(*CatTree);
        mCommon::EditCaption();
    };
    // A phonebook that cannot be opened again after a compact or a clear ends the program.
    h.ReopenFailed = [this] { close(); };
    h.Moved = [this](bool connected) {
        if (connected) {
            mCommon::EditCaption();
            mCommon::RORestrictions(this);
        } else {
            mCommon::Disconnect();
            mCommon::NotConnected(true);
            mCommon::EditCaption();
        }
    };
}

void Form1::clearAccessHooks() {
    mAccess::MainHooks() = mAccess::MaintenanceHooks();
}
