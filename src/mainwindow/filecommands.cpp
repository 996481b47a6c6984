// The File menu: new and open phonebook, the recent files, exit.
#include "access/accessmode.h"
#include "contactlist/favorites.h"
#include "core/cfiledialog.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "legacy/jetfile.h"
#include "mainwindow/connection.h"
#include "mainwindow/form1.h"
#include "mainwindow/jetopen.h"
#include "phonebook/fileerrors.h"
#include "phonebook/login.h"
#include "phonebook/store/dao.h"
#include "preferences/mru.h"
#include "preferences/settings.h"

#include <QDir>
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

// The default phonebook's name, numbered from 2 when `folder` already has a file of that name:
// "phonebook.kvdb", "phonebook 2.kvdb", "phonebook 3.kvdb"...
QString freePhonebookName(const QString& folder) {
    const QFileInfo def(DefaultPhonebook());
    const QString base = def.completeBaseName();
    const QString suffix = QStringLiteral(".") + def.suffix();
    const QDir dir(folder);
    QString name = base + suffix;
    for (int n = 2; dir.exists(name); ++n)
        name = base + QLatin1Char(' ') + QString::number(n) + suffix;
    return name;
}

bool sameFile(const QString& a, const QString& b) {
    const QString ca = QFileInfo(a).canonicalFilePath();
    return !ca.isEmpty() && ca == QFileInfo(b).canonicalFilePath();
}

// The number of contacts in the phonebook `path`, read without disturbing the open one; -1 when
// the file cannot be read as a phonebook.
int contactCount(const QString& path) {
    try {
        dao::Workspace ws;
        dao::Database db = ws.OpenDatabase(path, false, true, QStringLiteral(";pwd=vorla"));
        int count;
        {
            dao::Recordset rs =
                db.OpenRecordset(QStringLiteral("SELECT Count(*) FROM CDs"), dao::dbOpenSnapshot);
            count = rs.AtEOF() ? 0 : rs.Value(0).toInt();
            rs.Close();
        }
        db.Close();
        ws.Close();
        return count;
    } catch (const HuntERR::Error&) {
        HuntERR::ClearPendingStack(); // not a phonebook: the question says so by not counting
        return -1;
    }
}

// Whether the new phonebook may be made at `path`. The open phonebook is never replaced; another
// existing file is replaced only when the user agrees to a question that names it and, for a
// phonebook, its number of contacts. A folder of that name is left to the creation, which refuses it.
bool mayCreateAt(const QString& path) {
    const QFileInfo file(path);
    if (!file.exists() || file.isDir()) return true;
    if (gDBOpen && sameFile(path, gDBPath)) {
        MsgBox(msgNewIsOpenPhonebook.arg(path), vb::vbOKOnly, vb::vbExclamation);
        return false;
    }
    const int count = contactCount(path);
    const QString question = count < 0    ? msgReplaceFile.arg(path)
                             : count == 1 ? msgReplacePhonebookOneContact.arg(path)
                                          : msgReplacePhonebook.arg(path).arg(count);
    return MsgBox(question, vb::vbYesNo | vb::vbDefaultButton2, vb::vbExclamation) == vb::vbYes;
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
    dlg.FileName = freePhonebookName(dlg.InitDir);
    // The name is mended below, so the dialog's own question could name another file: ours follows.
    dlg.ConfirmOverwrite = false;
    if (!dlg.Show(true) || dlg.FileName.isEmpty()) return;
    const QString path = withOneExtension(dlg.FileName);
    if (!mayCreateAt(path)) return;
    mMru::AddToMRUList(path);
    gDBPath = path;
    mCommon::Disconnect();
    mCommon::NotConnected(true);
    mCommon::EditCaption();
    // The user has agreed above before an existing file is replaced.
    if (QFile::exists(path) && !QFile::remove(path))
        throw dao::DbError(dao::errPathFile, QStringLiteral("Path/File access error: ") + path,
                           QStringLiteral("Kelvarin"));
    gReadOnlyMode = false; // a new phonebook has no passwords: Full access
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

void Form1::OpenPhonebook(const QString& path) {
    HUNT_PLACE("Form1.OpenPhonebook(path)", path);
    if (path.isEmpty() || (path == gDBPath && !gNotConnected)) return;
    mMru::AddToMRUList(path);
    openChosen(path);
}

// The common road of Open and Recent once the path is known.
void Form1::openChosen(const QString& chosen) {
    QString path = chosen;
    // A phonebook of the Windows version opens converted; without a conversion, what was open stays.
    if (mLegacy::IsJetFile(path)) {
        path = mConvert::OfferConversion(path, this);
        if (path.isEmpty()) return;
    }
    gDBPath = path;
    mCommon::Disconnect();
    bool connected = mLogin::LoginCnn(false);
    // A phonebook with a password for its default mode asks for it; Cancel leaves none open.
    if (connected && !mAccess::LoginPassword(this)) {
        mCommon::Disconnect();
        connected = false;
    }
    showLogin(connected);
    if (connected) mAccess::AddTableCombo(this);
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
        SyncAtOpen();
    } else {
        mCommon::NotConnected(true);
        mCommon::EditCaption();
    }
}
