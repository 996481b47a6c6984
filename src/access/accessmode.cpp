#include "access/accessmode.h"

#include "access/form22.h"
#include "core/error.h"
#include "core/globals.h"
#include "core/language.h"
#include "core/restrictions.h"
#include "core/seams.h"

using namespace mLanguageGobals;

namespace mAccess {

AccessModeRow ReadAccessMode() {
    HUNT_PLACE("mAccess.ReadAccessMode");
    AccessModeRow row;
    dao::Recordset rs = gDB.OpenRecordset(QStringLiteral("Select * From AccessMode"), dao::dbOpenSnapshot);
    if (!rs.AtEOF()) {
        row.FullPW = rs[QStringLiteral("FullPW")];
        row.ReadOnlyPW = rs[QStringLiteral("ReadOnlyPW")];
        const QVariant def = rs[QStringLiteral("DefaultIsFull")];
        row.DefaultIsFull = def.isNull() || def.toBool();
    }
    rs.Close();
    return row;
}

QString ReadOnlyWarning() {
    return QStringList{msgOpenedReadOnlyBecause, msgReadOnlyMarked, msgReadOnlyWriteProtected,
                       msgReadOnlyNoRights, msgReadOnlyNoSpace}
        .join(QLatin1Char('\n'));
}

bool AddTableCombo(QWidget* frm) {
    HUNT_PLACE("mAccess.AddTableCombo");
    if (gFileReadOnly && !gReadOnlyMode) MsgBox(ReadOnlyWarning(), vb::vbOKOnly, vb::vbExclamation);
    mCommon::RORestrictions(frm);
    return true;
}

bool LoginPassword(QWidget* owner) {
    HUNT_PLACE("mAccess.LoginPassword");
    if (!mMain::NeedPassword(false, false)) return true;
    Form22 frm(false, false, owner);
    ShowModal(&frm, owner);
    return gPasswordAccepted;
}

} // namespace mAccess

namespace mMain {

bool NeedPassword(bool pModeFromMenu, bool pFullMode) {
    HUNT_PLACE("mMain.NeedPassword(pModeFromMenu, pFullMode)", pModeFromMenu, pFullMode);
    const mAccess::AccessModeRow row = mAccess::ReadAccessMode();
    // From the menu the mode asked for; at an open the phonebook's default.
    const bool full = pModeFromMenu ? pFullMode : row.DefaultIsFull;
    const QVariant& password = full ? row.FullPW : row.ReadOnlyPW;
    if (!password.isNull()) return true;
    gReadOnlyMode = !full;
    return false;
}

} // namespace mMain
