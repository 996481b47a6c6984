#pragma once
// Start and shutdown of the program.

#include "phonebook/login.h" // mMain::Closing

#include <QString>

namespace mMain {
// Makes the application object, runs Main and the event loop; the process's exit code.
int Run(int argc, char** argv);
// The start sequence: catalogue, checks, preferences, choice and opening of the phonebook, windows.
void Main();
} // namespace mMain

namespace mMain {
// The command line as Main reads it (tests set it; Run sets it from the program's arguments).
void SetCommandLine(const QString& commandLine);
} // namespace mMain
