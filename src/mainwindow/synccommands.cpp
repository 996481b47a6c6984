// File > Sync now and File > Sync settings: the address book the phonebook is linked to.
#include "core/error.h"
#include "core/seams.h"
#include "mainwindow/form1.h"
#include "sync/account.h"
#include "sync/ui/synccontroller.h"
#include "sync/ui/syncsettings.h"

void Form1::mnuFileSync_Click() {
    HUNT_PLACE("Form1.mnuFileSync_Click");
    if (!carddav::LoadAccount().linked()) {
        mnuFileSyncSettings_Click(); // nothing to sync with yet: choose the address book first
        return;
    }
    m_sync->syncNow(true);
}

void Form1::mnuFileSyncSettings_Click() {
    HUNT_PLACE("Form1.mnuFileSyncSettings_Click");
    carddav::SyncSettings frm(m_sync, this);
    ShowModal(&frm, this);
}

void Form1::SyncAtOpen() {
    m_sync->phonebookOpened();
}
