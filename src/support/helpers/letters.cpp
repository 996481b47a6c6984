#include "support/helpers/letters.h"

#include <QString>

namespace mLetters {

QLatin1String PlainLetters(char16_t c) {
    switch (c) {
    case u'\u00c6': // Æ
    case u'\u00e6':
        return QLatin1String("ae");
    case u'\u00d0': // Ð
    case u'\u00f0':
    case u'\u0110': // Đ
    case u'\u0111':
        return QLatin1String("d");
    case u'\u00d8': // Ø
    case u'\u00f8':
        return QLatin1String("o");
    case u'\u00de': // Þ
    case u'\u00fe':
        return QLatin1String("th");
    case u'\u00df': // ß
    case u'\u1e9e':
        return QLatin1String("ss");
    case u'\u0126': // Ħ
    case u'\u0127':
        return QLatin1String("h");
    case u'\u0131': // dotless i
        return QLatin1String("i");
    case u'\u0141': // Ł
    case u'\u0142':
        return QLatin1String("l");
    case u'\u014a': // Ŋ
    case u'\u014b':
        return QLatin1String("n");
    case u'\u0152': // Œ
    case u'\u0153':
        return QLatin1String("oe");
    case u'\u0166': // Ŧ
    case u'\u0167':
        return QLatin1String("t");
    default:
        return QLatin1String();
    }
}

QChar BaseLetter(QChar c) {
    const char16_t u = c.unicode();
    if (u >= u'A' && u <= u'Z') return c;
    if (u >= u'a' && u <= u'z') return QChar(char16_t(u - (u'a' - u'A')));
    if (u < 0xc0 || c.isSurrogate()) return QChar();
    const QLatin1String plain = PlainLetters(u);
    if (!plain.isEmpty()) return QChar(char16_t(plain.front().unicode() - (u'a' - u'A')));
    // A letter with marks decomposes into its base letter and the marks.
    if (!c.isLetter() || c.decompositionTag() == QChar::NoDecomposition) return QChar();
    const QString parts = QString(c).normalized(QString::NormalizationForm_KD);
    for (qsizetype i = 1; i < parts.size(); ++i)
        if (!parts.at(i).isMark()) return QChar();
    const char16_t base = parts.at(0).unicode();
    if (base >= u'a' && base <= u'z') return QChar(char16_t(base - (u'a' - u'A')));
    return base >= u'A' && base <= u'Z' ? QChar(base) : QChar();
}

} // namespace mLetters
