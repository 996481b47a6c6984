#pragma once
// Small lookups of single values in the open phonebook.

#include <QString>

namespace mCommon {
// Drive_Folder of the contact with key "ID<n>", or "" when there is none.
QString GetDiskPath(const QString& Key);
// Path and name of the element with key "ID<n>"; InsideArchive tells whether it lies in an archive.
QString GetElementPath(const QString& Key, bool& InsideArchive);
// The next contact number, as text: the highest + 1, "1" in an empty phonebook.
QString GetMaxNumber();
} // namespace mCommon
