#pragma once
// The one way into a phonebook file, and its counterpart.

namespace mLogin {
// Creates or opens gDBPath and brings it up to date. True: gDB is open. FromStart: only from Main.
bool LoginCnn(bool FromStart);
} // namespace mLogin

namespace mMain {
// Closes the database objects; safe at any point.
void Closing();
} // namespace mMain
