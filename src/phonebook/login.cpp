#include "phonebook/login.h"

#include "core/error.h"
#include "core/errorreport.h"
#include "core/globals.h"
#include "core/language.h"
#include "phonebook/createdb.h"
#include "phonebook/fileerrors.h"
#include "phonebook/upgrade.h"

using namespace mLanguageGobals;

namespace mLogin {

namespace {
const QString kConnect = QStringLiteral(";pwd=vorla");
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
        mMain::Closing();
        const mAccess::FileErrorFamily family = mAccess::FileErrorFamilyOf(e.Number());
        if (family == mAccess::FileErrorFamily::None)
            HuntERR::Report(e, "mLogin.LoginCnn(FromStart)");
        else
            mAccess::ShowFileError(family, msgCannotOpenPhonebookNoSpace, gDBPath);
        HuntERR::ClearPendingStack();
        return false;
    }
}

} // namespace mLogin

namespace mMain {

namespace {
std::function<void()>& BeforeClosing() {
    static std::function<void()> hook;
    return hook;
}
} // namespace

std::function<void()> SetBeforeClosing(std::function<void()> hook) {
    std::swap(BeforeClosing(), hook);
    return hook;
}

void Closing() {
    if (BeforeClosing()) BeforeClosing()();
    if (gDBOpen) {
        gDB.Close();
        gDBOpen = false;
        gDB = dao::Database();
    }
    if (gWSOpen) {
        gWS.Close();
        gWSOpen = false;
        gWS = dao::Workspace();
    }
}

} // namespace mMain
