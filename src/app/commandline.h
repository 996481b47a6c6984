#pragma once
// The program's arguments: the phonebook to open, and the two options that need no window.

#include <QString>
#include <QStringList>

namespace mMain {

struct CommandLine {
    enum Action { Start, Help, Version, UnknownOption, Convert };
    Action action = Start;
    // The phonebook as given: the arguments that are no option, joined by blanks, so that an
    // unquoted path with blanks still names one file.
    QString phonebook;
    QString option; // the option that was not understood
    // --convert OLD [NEW]: the phonebook of the Windows version and, when given, the new file.
    QString convertFrom, convertTo;
};

// Reads the arguments after the program's name. "--help" and "-h", "--version" and "-v";
// "--convert" with the names that follow it as OLD and NEW (a third name is refused); any
// other argument that starts with "-" is an unknown option; after "--" every argument is a name.
CommandLine ReadCommandLine(const QStringList& arguments);

// The phonebook named on the command line as an absolute, clean path: every double quote removed,
// a relative path taken from the current folder. Empty stays empty.
QString PhonebookFromCommandLine(const QString& commandLine);

// The text --help prints, one line each.
QStringList UsageLines();

// kelvarin --convert OLD [NEW]: converts without a window; prints the new file's path and answers
// 0, or prints one line and answers 1 (2 when OLD is missing).
int RunConvert(const CommandLine& line);

} // namespace mMain
