#pragma once
// How a contact's values become the text of a list cell, shared by the contact list and the
// search results: texts trimmed of blanks, a comment cut to its first line, an address joined
// into one line; and the place of a field in a recordset, found once per fill.

#include "phonebook/store/dao.h"

#include <QString>

namespace mLV {
// The place of field `name` in the rows of `rs`; error 3265 when the query has no such field.
int FieldIndex(const dao::Recordset& rs, const QString& name);
// Removes the blanks at both ends of the text from `start` on, in place (other white space stays).
void TrimBlanks(QString& s, qsizetype start);
// The text from `start` on as a multi-line cell shows it: the first line and " ..." when there
// are more.
void KeepFirstLine(QString& s, qsizetype start);
// The text from `start` on as an address cell shows it: ", " for each line break, a CR LF pair
// being one.
void JoinLines(QString& s, qsizetype start);
} // namespace mLV
