#pragma once
// The one way into a phonebook file, and its counterpart.

#include <functional>

namespace mLogin {
// Creates or opens gDBPath and brings it up to date. True: gDB is open. FromStart: only from Main.
bool LoginCnn(bool FromStart);
} // namespace mLogin

namespace mMain {
// Closes the database objects; safe at any point.
void Closing();
// Work that must end before the phonebook closes (a sync waiting for its server) is ended by
// this call, made first thing by Closing(). Answers the one it replaces.
std::function<void()> SetBeforeClosing(std::function<void()> hook);
} // namespace mMain
