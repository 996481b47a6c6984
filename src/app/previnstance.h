#pragma once
// One running copy of the program per user: a second start hands its phonebook, if it names one,
// to the first, brings it forward and ends.

#include <QString>
#include <functional>

namespace mPrevInstance {
// True when a first instance answers; otherwise this instance starts listening for later ones.
bool PrevInstance();
// Tells the first instance to come forward and to open `phonebook` (an absolute path; empty:
// only come forward).
void ShowPrevInstance(const QString& phonebook = QString());
// What the listening instance does with a request: `phonebook` is empty for "come forward".
using RequestHandler = std::function<void(const QString& phonebook)>;
void SetRequestHandler(RequestHandler handler);
// Stops listening (tests and shutdown).
void StopListening();
} // namespace mPrevInstance
