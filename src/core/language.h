#pragma once
// The catalogue of every text the user sees. One variable per text; a text that serves two
// purposes has two variables. messages.def lists every variable once, with its English text. The
// variables are empty until a language procedure fills them, so mLanguageEng::lngEng() must run
// before anything is shown. A further language is one more procedure that assigns every variable
// listed there.

#include <QList>
#include <QString>

namespace mLanguageGobals {

#define CATALOGUE_TEXT(name, text) extern QString name;
#include "core/messages.def"
#undef CATALOGUE_TEXT

// Every variable of the catalogue, in the order of messages.def.
QList<const QString*> AllTexts();

} // namespace mLanguageGobals

namespace mLanguageEng {
// Fills the catalogue with the English texts.
void lngEng();
} // namespace mLanguageEng
