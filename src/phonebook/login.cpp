#include "phonebook/login.h"

#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/seams.h"
#include "phonebook/createdb.h"
#include "phonebook/upgrade.h"
#include "support/helpers/drives.h"

using namespace mLanguageGobals;

namespace mLogin {

namespace {
const QString kConnect = QStringLiteral(";pwd=vorla");

void closeObjects() {
    if (gDBOpen || gDB.isOpen()) gDB.Close();
    gDB = dao::Database();
    gDBOpen = false;
    if (gWSOpen) gWS.Close();
    gWS = dao::Workspace();
    gWSOpen = false;
}
} // namespace

bool LoginCnn(bool FromStart) {
    HUNT_PLACE("mLogin.LoginCnn(FromStart)", FromStart);
    try {
        const int created = mAccess::CreateDB(gDBPath, FromStart);
        if (created == -1) return false;
        if (created != 1) {
            gWS = dao::Workspace();
            gWSOpen = true;
            bool opened = false;
            try { // first attempt: shared and writable; its failure is only noted
                gDB = gWS.OpenDatabase(gDBPath, false, false, kConnect);
                gFileReadOnly = false;
                opened = true;
            } catch (const HuntERR::Error&) {
            }
            if (!opened) { // second attempt: exclusive and read-only
                gDB = gWS.OpenDatabase(gDBPath, true, true, kConnect);
                gFileReadOnly = true;
            }
        }
        gDBOpen = true;
        // The engine's lock and buffer limits have no counterpart: large single transactions just work.
        mAccess::UpgradeChain();
        return true;
    } catch (const HuntERR::Error& e) {
        closeObjects();
        switch (e.Number()) {
        case 3343: MsgBox(msgNotADatabaseFileOrCorrupted, vb::vbOKOnly, vb::vbCritical); break;
        case 75:
        case 70:
        case 3051:
        case 3356: MsgBox(msgAccessDenied, vb::vbOKOnly, vb::vbCritical); break;
        case 61:
        case 3799:
        case 3026:
            MsgBox(msgCannotOpenPhonebookNoSpace + QLatin1Char('\n') + msgFreeSpace + mDrive::GetFreeSpace(gDBPath, true),
                   vb::vbOKOnly, vb::vbCritical);
            break;
        default: HuntERR::Report(e, "mLogin.LoginCnn(FromStart)"); break;
        }
        HuntERR::ClearPendingStack();
        return false;
    }
}

} // namespace mLogin
