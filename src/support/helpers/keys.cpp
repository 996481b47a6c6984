#include "support/helpers/keys.h"

#include "core/commandids.h"
#include "core/error.h"

#include <limits>

namespace {

// Raises an error with the place already on its stack. These helpers run for every row of a
// list and its sort, so they do without the guard object on the way that succeeds.
[[noreturn]] void raise(qint32 number, const char* description, const char* place, const QString& key) {
    HuntERR::Error error(number, QString::fromLatin1(description));
    HuntERR::AppendPlace(QStringLiteral("    ") + QString::fromLatin1(place) + QStringLiteral(" {") + key +
                         QLatin1Char('}'));
    throw error;
}

qint32 toLong(QStringView digits, const char* place, const QString& key) {
    bool ok = false;
    const qlonglong v = digits.toLongLong(&ok);
    if (!ok) {
        // A number too long even for 64 bits is still a number.
        const QStringView t = digits.trimmed();
        bool allDigits = !t.isEmpty();
        for (qsizetype i = (t.startsWith(u'-') || t.startsWith(u'+')) ? 1 : 0; i < t.size(); ++i)
            allDigits = allDigits && t.at(i) >= u'0' && t.at(i) <= u'9';
        if (allDigits && t.size() > 1) raise(6, "Overflow", place, key);
        raise(13, "Type mismatch", place, key);
    }
    if (v < std::numeric_limits<qint32>::min() || v > std::numeric_limits<qint32>::max())
        raise(6, "Overflow", place, key);
    return qint32(v);
}

} // namespace

namespace mCommon {

qint32 GetID1(const QString& Key) {
    return toLong(QStringView(Key).mid(qMin<qsizetype>(2, Key.size())), "mCommon.GetID1(Key)", Key);
}

qint32 GetID2(QString& Key) {
    const qsizetype p = Key.indexOf(QLatin1Char('P'));
    if (p < 2) raise(5, "Invalid procedure call or argument", "mCommon.GetID2(Key)", Key);
    const qint32 id = toLong(QStringView(Key).mid(2, p - 2), "mCommon.GetID2(Key)", Key);
    Key = Key.mid(p + 1);
    return id;
}

} // namespace mCommon

namespace mDrive {

qint32 GetLetterTabID(const QString& Key) {
    const QString k = Key.toUpper();
    if (k.size() == 1 && k.at(0) >= QLatin1Char('A') && k.at(0) <= QLatin1Char('Z'))
        return cmd::LetterA + (k.at(0).unicode() - u'A');
    if (k == QLatin1String("NUM")) return cmd::LetterDigits;
    if (k == QLatin1String("UNK")) return cmd::LetterUnknown;
    if (k == QLatin1String("ALL")) return cmd::LetterAll;
    return 0;
}

} // namespace mDrive
