#pragma once
// The access mode of a session: the passwords of the phonebook (table AccessMode, one row), the
// question whether a password dialog is needed, and the end of an open.

#include <QString>
#include <QVariant>

class QWidget;

namespace mAccess {

// The row of AccessMode: a password is Null when that mode has none, else its stored form.
struct AccessModeRow {
    QVariant FullPW;
    QVariant ReadOnlyPW;
    bool DefaultIsFull = true;
};
AccessModeRow ReadAccessMode();

// The five-line warning of a phonebook that could only be opened read-only.
QString ReadOnlyWarning();

// End of an open: a file that could only be opened read-only, while the session is not in
// Read-only access, gets the warning; then the rules of a restricted session on the main window
// `frm`. Answers true.
bool AddTableCombo(QWidget* frm);

// At an open: asks for the password (Form22, over `owner`) when the phonebook wants one.
// False when the user cancelled it; gReadOnlyMode is set either way.
bool LoginPassword(QWidget* owner);

} // namespace mAccess

namespace mMain {
// Whether a password dialog is needed: from the menu for the mode asked (pFullMode), at an open
// for the phonebook's default mode. A mode without a password needs none and is entered at once
// (gReadOnlyMode is set).
bool NeedPassword(bool pModeFromMenu, bool pFullMode);
} // namespace mMain
