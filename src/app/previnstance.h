#pragma once
// One running copy of the program per user: a second start brings the first forward and ends.

namespace mPrevInstance {
// True when a first instance answers; otherwise this instance starts listening for later ones.
bool PrevInstance();
// Tells the first instance to come forward (nothing is passed to it).
void ShowPrevInstance();
// Stops listening (tests and shutdown).
void StopListening();
} // namespace mPrevInstance
