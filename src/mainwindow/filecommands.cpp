// The File menu: new and open phonebook, the recent files, exit.
#include "contactlist/favorites.h"
#include "core/cfiledialog.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "mainwindow/form1.h"
#include "phonebook/fileerrors.h"
#include "mainwindow/connection.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "preferences/settings.h"

#include <QFile>
#include <QFileInfo>

using namespace mLanguageGobals;

namespace {
const QString kMask = QStringLiteral("Kelvarin Files (*.kvdb)|*.kvdb");

// Every ".kvdb" is taken out and one is put at the end: "a.kvdb.old" becomes "a.old.kvdb".
QString withOneExtension(QString path) {
    path.remove(QStringLiteral(".kvdb"));
    return path + QStringLiteral(".kvdb");
}

QString recentFolder() {
    const QString recent = GetSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"));
    return QFileInfo(recent.isEmpty() ? DefaultPhonebook() : recent).absolutePath();
}
} // namespace

void Form1::mnuFileNew_Click() {
    HUNT_PLACE("Form1.mnuFileNew_Click");
    try {
        fileNew();
    } catch (const HuntERR::Error& e) {
        const mAccess::FileErrorFamily family = mAccess::FileErrorFamilyOf(e.Number());
        if (family == mAccess::FileErrorFamily::None) throw;
        mAccess::ShowFileError(family, msgNotEnoughFreeSpace, gDBPath);
        HuntERR::ClearPendingStack();
    }
}

void Form1::fileNew() {
    CFileDialog dlg;
    dlg.Owner = this;
    dlg.Extension = QStringLiteral("kvdb");
    dlg.Mask = kMask;
    dlg.Title = msgCreatePhonebook;
    dlg.InitDir = recentFolder();
    dlg.FileName = QFileInfo(DefaultPhonebook()).fileName();
    if (!dlg.Show(true) || dlg.FileName.isEmpty()) return;
    const QString path = withOneExtension(dlg.FileName);
    mMru::AddToMRUList(path);
    gDBPath = path;
    mCommon::Disconnect();
    mCommon::NotConnected(true);
    mCommon::EditCaption();
    // The save dialog has already asked before the file is replaced.
    if (QFile::exists(path) && !QFile::remove(path))
        throw dao::DbError(dao::errPathFile, QStringLiteral("Path/File access error: ") + path, QStringLiteral("Kelvarin"));
    showLogin(mLogin::LoginCnn(false));
}

void Form1::mnuFileOpen_Click() {
    HUNT_PLACE("Form1.mnuFileOpen_Click");
    CFileDialog dlg;
    dlg.Owner = this;
    dlg.Extension = QStringLiteral("kvdb");
    dlg.Mask = kMask;
    dlg.Title = msgOpenPhonebook;
    dlg.InitDir = recentFolder();
    if (!dlg.Show(false) || dlg.FileName.isEmpty() || dlg.FileName == gDBPath) return;
    mMru::AddToMRUList(dlg.FileName);
    openChosen(dlg.FileName);
}

void Form1::mnuFileMRU_Click(int Index) {
    HUNT_PLACE("Form1.mnuFileMRU_Click(Index)", Index);
    const QString path = mMru::MRUFiles.value(Index - 1);
    if (path.isEmpty()) return;
    mMru::AddToMRUList(path);
    if (path == gDBPath && !gNotConnected) return;
    openChosen(path);
}

void Form1::mnuFileClear_Click() {
    HUNT_PLACE("Form1.mnuFileClear_Click");
    mMru::ClearMRUListKeepCurrent();
}

void Form1::mnuFileExit_Click() {
    HUNT_PLACE("Form1.mnuFileExit_Click");
    close();
}

// The common road of Open and Recent once the path is known.
void Form1::openChosen(const QString& path) {
    gDBPath = path;
    mCommon::Disconnect();
    showLogin(mLogin::LoginCnn(false));
}

// The window after an open or a creation: the phonebook shown, or the state without one.
void Form1::showLogin(bool connected) {
    if (connected) {
        ROSwitch();
        mCommon::EditCaption();
        mCommon::NotConnected(false);
        ShowPhonebook();
        MenuUpdate();
        mCommon::MenuNoBorrow(*ListView2, *CommandBars1);
    } else {
        mCommon::NotConnected(true);
        mCommon::EditCaption();
    }
}
