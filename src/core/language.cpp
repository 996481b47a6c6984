#include "core/language.h"

#include "support/helpers/values.h"

namespace mLanguageGobals {

#define CATALOGUE_TEXT(name, text) QString name;
#include "core/messages.def"
#undef CATALOGUE_TEXT

QList<const QString*> AllTexts() {
    return {
#define CATALOGUE_TEXT(name, text) &name,
#include "core/messages.def"
#undef CATALOGUE_TEXT
    };
}

} // namespace mLanguageGobals

namespace mLanguageEng {

void lngEng() {
    using namespace mLanguageGobals;
#define CATALOGUE_TEXT(name, text) name = QStringLiteral(text);
#include "core/messages.def"
#undef CATALOGUE_TEXT

    // The size helpers write their units in the language of the catalogue.
    mCommon::SetSizeUnitTexts(msgBytes, msgKB, msgMB, msgGB);
}

} // namespace mLanguageEng
