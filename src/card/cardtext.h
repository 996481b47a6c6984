#pragma once
// Texts of the contact card as they are stored and filed: blanks trimmed, an empty text as Null,
// and the letter tab a contact files under.

#include <QString>
#include <QVariant>

namespace mCard {

// The text without blanks at either end; other white space (tabs, line breaks) stays.
QString Trim(const QString& text);
// Trim(text), or Null when nothing is left: an empty text is never stored.
QVariant TextOrNull(const QString& text);

// The caption of the letter of a contact: the first character of the name followed by the
// company, both trimmed: "A" to "Z" for a Latin letter, with or without marks (É under "E", Ø
// under "O", ß under "S"), "0-9" for a digit, "?" for anything else, "" when both are empty.
QString LetterCaption(const QString& fullName, const QString& company);
// The stored letter for a caption: "NUM" for "0-9", "UNK" for "?", otherwise the caption.
QString LabelOfCaption(const QString& caption);

} // namespace mCard
