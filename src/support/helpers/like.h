#pragma once
// The search text made into a Like condition.

#include <QString>

namespace mCommon {

// Splits `str` into words at blanks; a double quote (or a colon, which counts the same) keeps
// the words between a pair together. Returns "(" + fieldName + " Like '*word*' OR ... ")"; a
// word with a "*" of its own, or any word when ExactMode is set, goes in as typed. Apostrophes
// are doubled. `str` is overwritten with the words joined by "|". Text with no word at all
// throws error 5.
QString GetLike(QString& str, const QString& fieldName, bool ExactMode);

} // namespace mCommon
