#pragma once
// Latin letters without their marks: the letter tab a name files under, and the plain letters
// that the text order compares first.

#include <QChar>
#include <QLatin1String>

namespace mLetters {

// The letter "A" to "Z" that `c` files under: itself for A to Z in either case, the base letter of
// a Latin letter with marks (É under E, Å under A, Ç under C), and for the Latin letters that have
// no decomposition the letter they are read as (Æ under A, Ø and Œ under O, Ł under L, ß under S,
// Đ and Ð under D, Þ under T). A null QChar for anything else: digits, signs, other scripts.
QChar BaseLetter(QChar c);

// The lower-case plain letters that stand for a Latin letter with no decomposition ("ae" for Æ
// and æ, "o" for Ø, "ss" for ß, "th" for Þ); empty for any other character.
QLatin1String PlainLetters(char16_t c);

} // namespace mLetters
