#include "contactlist/celltext.h"

namespace mLV {

namespace {
bool isLineBreak(QChar c) {
    return c == QLatin1Char('\r') || c == QLatin1Char('\n');
}
} // namespace

int FieldIndex(const dao::Recordset& rs, const QString& name) {
    const int i = rs.FieldIndex(name);
    if (i < 0)
        throw dao::DbError(dao::errItemNotFound,
                           QStringLiteral("Item '%1' not found in this collection.").arg(name));
    return i;
}

void TrimBlanks(QString& s, qsizetype start) {
    qsizetype end = s.size();
    while (end > start && s.at(end - 1) == QLatin1Char(' '))
        --end;
    s.truncate(end);
    qsizetype first = start;
    while (first < s.size() && s.at(first) == QLatin1Char(' '))
        ++first;
    if (first > start) s.remove(start, first - start);
}

void KeepFirstLine(QString& s, qsizetype start) {
    for (qsizetype i = start; i < s.size(); ++i) {
        if (isLineBreak(s.at(i))) {
            s.truncate(i);
            s += QLatin1String(" ...");
            return;
        }
    }
}

void JoinLines(QString& s, qsizetype start) {
    qsizetype i = start;
    while (i < s.size() && !isLineBreak(s.at(i)))
        ++i;
    if (i == s.size()) return;
    const QString rest = s.mid(i);
    s.truncate(i);
    for (qsizetype k = 0; k < rest.size(); ++k) {
        const QChar c = rest.at(k);
        if (isLineBreak(c)) {
            s += QLatin1String(", ");
            if (c == QLatin1Char('\r') && k + 1 < rest.size() && rest.at(k + 1) == QLatin1Char('\n')) ++k;
        } else {
            s += c;
        }
    }
}

} // namespace mLV
