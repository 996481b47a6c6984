#include "access/maintenance.h"

#include "access/compactfile.h"
#include "access/form5.h"
#include "core/cfiledialog.h"
#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/fileerrors.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "support/helpers/drives.h"
#include "support/helpers/paths.h"
#include "trees/deletecd.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <cstring>

using namespace mLanguageGobals;

namespace mAccess {

namespace {

struct Hourglass {
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
};

template <class F> void call(const F& hook) {
    if (hook) hook();
}

// The phonebook back after a compact or a clear; without it the program ends.
void reopen() {
    call(MainHooks().MenuUpdate);
    if (mLogin::LoginCnn(false))
        call(MainHooks().Reopened);
    else
        call(MainHooks().ReopenFailed);
}

} // namespace

MaintenanceHooks& MainHooks() {
    static MaintenanceHooks hooks;
    return hooks;
}

bool CompactDB(const QString& CompactingDBPathAndName, bool BackupBeforeCompactDB, bool EraseOld) {
    HUNT_PLACE("mAccess.CompactDB(CompactingDBPathAndName, BackupBeforeCompactDB, EraseOld)",
               CompactingDBPathAndName, BackupBeforeCompactDB, EraseOld);
    const QString& path = CompactingDBPathAndName;
    try {
        Hourglass busy;
        if (BackupBeforeCompactDB) CopyFileSafely(path, FreeBackupName(path, EraseOld));
        const QString temp = TempName(path);
        if (QFile::exists(temp) && !QFile::remove(temp))
            throw dao::DbError(dao::errPathFile, QStringLiteral("Cannot delete '%1'.").arg(temp),
                               QStringLiteral("Kelvarin"));
        if (!CompactFile(path, temp)) MsgBox(msgCompactedDatabaseNotFound, vb::vbOKOnly, vb::vbCritical);
        return true;
    } catch (const HuntERR::Error& e) {
        if (FileErrorFamilyOf(e.Number()) == FileErrorFamily::NoSpace)
            ShowFileError(FileErrorFamily::NoSpace, msgCannotCompactNoSpace, path);
        else
            HuntERR::Report(e, "mAccess.CompactDB");
        HuntERR::ClearPendingStack();
        return false;
    }
}

bool ClearDB() {
    HUNT_PLACE("mAccess.ClearDB");
    try {
        dao::Transaction trans(gWS);
        DeleteCD(-1, -1);
        trans.Commit();
        return true;
    } catch (const HuntERR::Error& e) {
        HuntERR::Report(e, "mAccess.ClearDB");
        HuntERR::ClearPendingStack();
        return false;
    }
}

void ClearAndCompactDB(QWidget* owner) {
    HUNT_PLACE("mAccess.ClearAndCompactDB");
    (void)owner;
    if (MsgBox(msgReallyDeleteAllData, vb::vbYesNo | vb::vbDefaultButton2, vb::vbQuestion) != vb::vbYes)
        return;
    if (!ClearDB()) return;
    call(MainHooks().ClearViews);
    MsgBox(msgPhonebookCleared, vb::vbOKOnly, vb::vbInformation);
    mMain::Closing();
    CompactDB(gDBPath, false, false);
    reopen();
}

void CompactCommand(QWidget* owner) {
    HUNT_PLACE("mAccess.CompactCommand");
    mMain::Closing();
    {
        Form5 frm(owner);
        ShowModal(&frm, owner);
    }
    reopen();
}

void MoveDatabase(QWidget* owner, const std::function<void(const QString&)>& fdDatabasePath) {
    HUNT_PLACE("mAccess.MoveDatabase");
    const QString folder = BrowseForFolder(msgMoveDatabaseTo, QFileInfo(gDBPath).absolutePath(), owner);
    if (folder.isEmpty()) return;
    const QString target =
        mDrive::GetPathWithNoSlash(folder) + QLatin1Char('/') + QFileInfo(gDBPath).fileName();
    if (QFileInfo::exists(target)) {
        MsgBox(msgDatabaseNotMovedFileExists, vb::vbOKOnly, vb::vbExclamation);
        return;
    }
    bool connected = false;
    try {
        mMain::Closing();
        const QByteArray from = QFile::encodeName(gDBPath);
        const QByteArray to = QFile::encodeName(target);
        if (::rename(from.constData(), to.constData()) != 0) {
            const int e = errno;
            if (e != EXDEV)
                throw dao::DbError(e == ENOSPC                 ? dao::errDiskFull
                                   : e == EACCES || e == EPERM ? dao::errPermission
                                                               : dao::errPathFile,
                                   QString::fromLocal8Bit(strerror(e)), QStringLiteral("Kelvarin"));
            // Another file system: copy, then delete the original once the copy is whole.
            CopyFileSafely(gDBPath, target);
            QFile::remove(gDBPath);
        }
        gDBPath = target;
        if (fdDatabasePath) fdDatabasePath(gDBPath);
    } catch (const HuntERR::Error& e) {
        const FileErrorFamily family = FileErrorFamilyOf(e.Number());
        if (family == FileErrorFamily::None)
            HuntERR::Report(e, "mAccess.MoveDatabase");
        else
            ShowFileError(family, msgCannotMoveDatabaseNoSpace, target);
        HuntERR::ClearPendingStack();
    }
    connected = mLogin::LoginCnn(false);
    if (connected) mMru::AddToMRUList(gDBPath);
    if (MainHooks().Moved) MainHooks().Moved(connected);
}

} // namespace mAccess
