#pragma once
// Conversion of a phonebook of the Windows version (a Jet file) into a new Kelvarin phonebook
// beside it. The Jet file is only read, never changed.

#include "legacy/jetfile.h"

#include <QString>
#include <functional>

namespace mLegacy {

// The name of the converted phonebook: "book.kvdb" gives "book (converted).kvdb" in the same
// folder, "book (converted 2).kvdb" and so on when that exists; the documents folder takes the
// place of a folder that cannot be written.
QString ConvertedName(const QString& jetPath);

// Told how many rows of all are done; answering false stops the conversion.
using Progress = std::function<bool(qint64 done, qint64 total)>;

// Reads the catalogue and the columns of `jetPath` and checks that it is a phonebook that can be
// converted, without reading its rows. Throws ConversionError (Unreadable or OtherSchema).
void CheckJetPhonebook(const QString& jetPath);

// Converts `jetPath` into a new phonebook at `newPath`, which must not exist yet. A file of the
// present format is filled into a phonebook made by CreateDB; an older one is written with the
// tables and fields it has. Either is filled in one transaction, then brought up to date by the
// upgrade chain. The phonebook open before (gWS, gDB) stays open and untouched. Throws
// ConversionError, and then leaves no file at `newPath`.
void ConvertJet(const QString& jetPath, const QString& newPath, const Progress& progress = Progress());

// The message for a conversion that did not happen, for the user.
QString ConversionMessage(const ConversionError& e, const QString& jetPath);

} // namespace mLegacy
