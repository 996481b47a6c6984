#pragma once
// What the main window shows of the phonebook connection: the views, the commands and the caption.

namespace mCommon {
// Empties the views, closes gDB and gWS and drops both.
void Disconnect();
// Stores the state and disables every command that needs a phonebook (enables them for false).
void NotConnected(bool mode);
// Title of the main window: the application, the phonebook's path and, by preference, its size.
void EditCaption();
} // namespace mCommon
