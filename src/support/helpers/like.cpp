#include "support/helpers/like.h"

#include "core/error.h"

#include <QStringList>

namespace mCommon {

QString GetLike(QString& str, const QString& fieldName, bool ExactMode) {
    HUNT_PLACE("mCommon.GetLike(str,fieldName,ExactMode)", str, fieldName, ExactMode);

    QString text = str.trimmed();
    text.replace(QLatin1Char('\''), QLatin1String("''"));
    // The colon is the working quote mark; an empty pair of quotes collapses into one.
    text.replace(QLatin1Char('"'), QLatin1Char(':'));
    while (text.contains(QLatin1String("::")))
        text.replace(QLatin1String("::"), QLatin1String(":"));

    // Blanks outside quotes separate the words.
    QString marked;
    marked.reserve(text.size());
    bool quoted = false;
    for (const QChar c : text) {
        if (c == QLatin1Char(':')) quoted = !quoted;
        marked += (c == QLatin1Char(' ') && !quoted) ? QLatin1Char('|') : c;
    }
    while (marked.contains(QLatin1String("||")))
        marked.replace(QLatin1String("||"), QLatin1String("|"));
    marked.remove(QLatin1Char(':'));
    str = marked;

    if (marked.isEmpty()) throw HuntERR::Error(5, QStringLiteral("Invalid procedure call or argument"));
    QStringList words = marked.split(QLatin1Char('|'));

    QString chain;
    for (QString& word : words) {
        if (!ExactMode && !word.contains(QLatin1Char('*'))) word = QLatin1Char('*') + word + QLatin1Char('*');
        chain += fieldName + QLatin1String(" Like '") + word + QLatin1String("' OR ");
    }
    chain.chop(4);
    return QLatin1Char('(') + chain + QLatin1Char(')');
}

} // namespace mCommon
