#include "card/cardtext.h"

#include "core/language.h"
#include "support/helpers/letters.h"

namespace mCard {

QString Trim(const QString& text) {
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == QLatin1Char(' '))
        ++begin;
    while (end > begin && text.at(end - 1) == QLatin1Char(' '))
        --end;
    return begin == 0 && end == text.size() ? text : text.mid(begin, end - begin);
}

QVariant TextOrNull(const QString& text) {
    const QString trimmed = Trim(text);
    return trimmed.isEmpty() ? QVariant() : QVariant(trimmed);
}

QString LetterCaption(const QString& fullName, const QString& company) {
    const QString both = Trim(fullName) + Trim(company);
    if (both.isEmpty()) return QString();
    const QChar first = both.at(0);
    if (first >= QLatin1Char('0') && first <= QLatin1Char('9')) return mLanguageGobals::msgLetterDigits;
    const QChar letter = mLetters::BaseLetter(first);
    return letter.isNull() ? mLanguageGobals::msgLetterUnknown : QString(letter);
}

QString LabelOfCaption(const QString& caption) {
    if (caption == mLanguageGobals::msgLetterDigits) return QStringLiteral("NUM");
    if (caption == mLanguageGobals::msgLetterUnknown) return QStringLiteral("UNK");
    return caption;
}

} // namespace mCard
