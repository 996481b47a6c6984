#pragma once
// The three families of file errors that creating and opening a phonebook answer by number.

#include <QString>

namespace mAccess {

enum class FileErrorFamily { None, NotDatabase, AccessDenied, NoSpace };

// The family of a Jet-style error number: 3343; 75, 70, 3051, 3356; 61, 3799, 3026.
FileErrorFamily FileErrorFamilyOf(qint32 number);

// Shows the family's message (critical icon); `noSpaceText` is the first line of the free-space
// message, which ends with the free space of the drive of `path`.
void ShowFileError(FileErrorFamily family, const QString& noSpaceText, const QString& path);

} // namespace mAccess
