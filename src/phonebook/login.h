#pragma once
// The one way into a phonebook file, and its counterpart.

namespace mLogin {
// Creates or opens gDBPath and brings it up to date. True: gDB is open. FromStart: only from Main.
bool LoginCnn(bool FromStart);
} // namespace mLogin

namespace mCommon {
// Empties the views, closes gDB and gWS and drops both.
void Disconnect();
// Stores the state and disables every command that needs a phonebook (enables them for false).
void NotConnected(bool mode);
// Title of the main window: the application, the phonebook's path and, by preference, its size.
void EditCaption();
} // namespace mCommon
