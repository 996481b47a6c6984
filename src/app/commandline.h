#pragma once
// The program's arguments: the phonebook to open, and the two options that need no window.

#include <QString>
#include <QStringList>

namespace mMain {

struct CommandLine {
    enum Action { Start, Help, Version, UnknownOption, Convert, Exchange, Sync };
    Action action = Start;
    // The phonebook as given: the arguments that are no option, joined by blanks, so that an
    // unquoted path with blanks still names one file.
    QString phonebook;
    QString option; // the option that was not understood
    // --convert OLD [NEW]: the phonebook of the Windows version and, when given, the new file.
    QString convertFrom, convertTo;
    // --export-vcard, --export-csv, --import-vcard, --import-csv FILE [PHONEBOOK] (the option as
    // given), and --vcard3 for vCard 3.0 on export.
    QString exchangeOption, exchangeFile, exchangePhonebook;
    bool vcard3 = false;
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

// kelvarin --export-vcard/--export-csv/--import-vcard/--import-csv FILE [PHONEBOOK]: exports every
// contact or imports the file (duplicates completed) without a window; prints the summary of an
// import and answers 0, or prints one line on the standard error and answers 1 (2 without FILE).
int RunExchange(const CommandLine& line);

// kelvarin --sync [PHONEBOOK]: syncs the phonebook (by default the last one opened) with its
// address book without a window; prints the summary and answers 0, or prints one line on the
// standard error and answers 1.
int RunSync(const CommandLine& line);

} // namespace mMain
