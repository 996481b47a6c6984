#include "app/mmain.h"

#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "app/previnstance.h"
#include "core/seams.h"
#include "contactlist/columns.h"
#include "contactlist/listfill.h"
#include "contactlist/listsort.h"
#include "preferences/settingdefaults.h"
#include "preferences/settingvalue.h"
#include "support/controls/listview.h"
#include "mainwindow/form1.h"
#include "mainwindow/connection.h"
#include "phonebook/login.h"
#include "preferences/mru.h"
#include "preferences/regsettings.h"
#include "preferences/settings.h"
#include "trees/viewstate.h"

#include <QApplication>
#include <QDir>
#include <QFile>

using namespace mLanguageGobals;

namespace mMain {

namespace {
QString gCommandLine;

// The build runs on the platform it was made for; anything else is refused as before.
bool PlatformSupported() {
#if defined(Q_OS_LINUX)
    return true;
#else
    return false;
#endif
}
} // namespace

int Run(int argc, char** argv) {
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(AppTitle());
    QCoreApplication::setApplicationName(AppTitle());
    QCoreApplication::setApplicationVersion(mRegSettings::ProgramVersion());
    QStringList args = QCoreApplication::arguments();
    args.removeFirst();
    gCommandLine = args.join(QLatin1Char(' '));
    Main();
    if (!gMainFormShown) return 0;
    const int rc = app.exec();
    delete gForm1;
    return rc;
}

void SetCommandLine(const QString& commandLine) { gCommandLine = commandLine; }

void Main() {
    RunEvent("mMain.Main", [] {
        // 1. Every later message comes from the catalogue.
        mLanguageEng::lngEng();
        // 2. The platform.
        if (!PlatformSupported()) {
            MsgBox(msgKelvarinSupportsOnly, vb::vbOKOnly, vb::vbExclamation);
            return;
        }
        // 3. A running first instance is brought forward and this one ends.
        if (mPrevInstance::PrevInstance()) {
            mPrevInstance::ShowPrevInstance();
            return;
        }
        // 4. Recorded only.
        gManifestPresent = QFile::exists(QCoreApplication::applicationDirPath() + QStringLiteral("/Kelvarin.exe.manifest"));
        gRuntimePresent = QFile::exists(QStringLiteral("msvbvm60.dll"));
        // 5. The file through which photos pass.
        gPhotoTempFile = QDir::tempPath() + QStringLiteral("/kvdb_photo");
        // 6. Preferences; the version is saved last, after the two steps that compare with it.
        // A stored value that cannot be read is reported, and the start goes on with defaults.
        RunEvent("mRegSettings.CorrectingPreferencesFormat", [] { mRegSettings::CorrectingPreferencesFormat(); });
        RunEvent("mRegSettings.IniPreferences", [] { mRegSettings::IniPreferences(); });
        RunEvent("mRegSettings.ForceShowTipOfDay", [] { mRegSettings::ForceShowTipOfDay(); });
        RunEvent("mRegSettings.ResetPanesLayout", [] { mRegSettings::ResetPanesLayout(); });
        RunEvent("mRegSettings.SaveVersion", [] { mRegSettings::SaveVersion(); });
        // 7. Which phonebook.
        if (!gCommandLine.isEmpty()) {
            gDBPath = QString(gCommandLine).remove(QLatin1Char('"'));
        } else {
            // One level normally; on Linux the documents folder itself may be missing in a fresh home.
            if (!QDir(DefaultFolder()).exists()) QDir().mkpath(DefaultFolder());
            const QString recent = GetSetting(AppTitle(), QStringLiteral("Recent"), QStringLiteral("1"));
            if (recent.isEmpty())
                gDBPath = QFile::exists(ProgramFolderPhonebook()) ? ProgramFolderPhonebook() : DefaultPhonebook();
            else
                gDBPath = recent;
        }
        mMru::LoadMRUList();
        // 8. Open, or create, and upgrade.
        const bool connected = mLogin::LoginCnn(true);
        // 10. The main window; loading it restores its layout, place and recent files.
        auto* form = new Form1();
        form->show();
        MainFormVisible = true;
        form->SetNoImage();
        form->ROSwitch();
        // 11.
        gNotConnected = !connected;
        // 12. A file given to the program enters the recent list at once.
        if (connected) {
            mCommon::EditCaption();
            mCommon::NotConnected(false);
            form->IniToolBar2();
            if (!gCommandLine.isEmpty()) mMru::AddToMRUList(gDBPath);
        } else {
            mCommon::NotConnected(true);
            mCommon::EditCaption();
        }
        // 13.
        form->MenuUpdate();
        // 14. The list columns, and the sort the list had when it was last closed.
        mLV::IniList(*form->ListView1, mLV::lcDetails);
        mLV::IniList(*form->ListView2, mLV::lcContacts);
        form->ListView2->SetSortKey(int(mRegSettings::SettingNumber(mRegSettings::ReadSetting(QStringLiteral("ColumnHeaders12\\Other"), QStringLiteral("SortKey")))));
        // The order is set the other way round: the sort of the same column turns it back to the
        // stored one. The list of the whole phonebook is filled once, now that it has its columns.
        form->ListView2->SetSortOrder(mRegSettings::SettingBool(mRegSettings::ReadSetting(QStringLiteral("ColumnHeaders12\\Other"), QStringLiteral("SortOrder"))) ? 0 : 1);
        if (connected) mLV::FillDriveList(*form->ListView2, CurrentLetter, CurrentNodeKey);
        mLV::SwitchSortDisk(*form->ListView2, form->ListView2->SortKey(), true);
        // 17.
        gMainFormShown = true;
    });
}

void MainFormHide() {
    if (gForm1) gForm1->hide();
    MainFormVisible = false;
    gMainFormShown = false;
}

void MainFormShow() {
    if (gForm1) {
        gForm1->showNormal();
        gForm1->raise();
        gForm1->activateWindow();
    }
    MainFormVisible = true;
    gMainFormShown = true;
}

} // namespace mMain
