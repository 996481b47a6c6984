#pragma once
// Files that come with the program rather than with a phonebook: the tips and the help pages.
// In a build folder they stand beside the program; once installed, in share/kelvarin below the
// installation prefix (bin/kelvarin finds ../share/kelvarin).

#include <QString>

namespace mCommon {
// The path of `name` among the program's files: the first of the two places that holds it, else
// the installed place (so a message can name where it was looked for).
QString ProgramDataPath(const QString& name);
} // namespace mCommon

namespace mCommon {
// Opens the help pages in the browser; says where they were looked for when they are missing.
void CallHelp();
} // namespace mCommon
