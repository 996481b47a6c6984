#include "support/helpers/values.h"

#include <cmath>

namespace mCommon {

namespace {

struct SizeUnits {
    QString bytes = QStringLiteral("bytes");
    QString kb = QStringLiteral("KB");
    QString mb = QStringLiteral("MB");
    QString gb = QStringLiteral("GB");
};

SizeUnits& units() {
    static SizeUnits u;
    return u;
}

inline bool isLineBreak(QChar c) {
    return c == QLatin1Char('\r') || c == QLatin1Char('\n');
}

// A whole number with "," between groups of three digits, rounded half away from zero.
QString groupedWhole(double v) {
    if (!std::isfinite(v)) return QString::number(v);
    double r = std::round(v);
    if (r == 0) r = 0; // no "-0"
    QString s = QString::number(r, 'f', 0);
    const int first = s.startsWith(QLatin1Char('-')) ? 1 : 0;
    for (int i = s.size() - 3; i > first; i -= 3)
        s.insert(i, QLatin1Char(','));
    return s;
}

} // namespace

void SetSizeUnitTexts(const QString& bytes, const QString& kb, const QString& mb, const QString& gb) {
    units() = SizeUnits{bytes, kb, mb, gb};
}

QVariant Nz(const QVariant& val, const QVariant& repl) {
    return val.isNull() ? repl : val;
}

QVariant NzColon(const QVariant& val, const QVariant& repl) {
    if (val.isNull()) return repl;
    return QVariant(val.toString() + QLatin1Char(':'));
}

QVariant strNzColon(const QVariant& val, const QVariant& repl) {
    const QString s = val.toString();
    if (s.isEmpty()) return repl;
    return QVariant(s + QLatin1Char(':'));
}

QVariant NzMultiline(const QVariant& val, const QVariant& repl) {
    if (val.isNull()) return repl;
    if (val.typeId() != QMetaType::QString) return QVariant(val.toString());
    const QString& s = *static_cast<const QString*>(val.constData());
    for (qsizetype i = 0; i < s.size(); ++i) {
        if (isLineBreak(s.at(i))) return QVariant(s.left(i) + QLatin1String(" ..."));
    }
    return val;
}

QVariant NzMultiline2(const QVariant& val, const QVariant& repl) {
    if (val.isNull()) return repl;
    if (val.typeId() != QMetaType::QString) return QVariant(val.toString());
    const QString& s = *static_cast<const QString*>(val.constData());
    qsizetype i = 0;
    while (i < s.size() && !isLineBreak(s.at(i)))
        ++i;
    if (i == s.size()) return val;

    // A CR LF pair is one break; a CR or LF alone counts as one as well.
    QString out = s.left(i);
    out.reserve(s.size() + 8);
    while (i < s.size()) {
        const QChar c = s.at(i);
        if (c == QLatin1Char('\r') && i + 1 < s.size() && s.at(i + 1) == QLatin1Char('\n')) {
            out += QLatin1String(", ");
            i += 2;
        } else if (isLineBreak(c)) {
            out += QLatin1String(", ");
            ++i;
        } else {
            out += c;
            ++i;
        }
    }
    return QVariant(out);
}

QString SizeCorrectView(double Size, int NumberMode) {
    switch (NumberMode) {
    case 1:
        return groupedWhole(Size) + QLatin1Char(' ') + units().bytes;
    case 2:
        return groupedWhole(std::ceil(Size / 1024.0)) + QLatin1Char(' ') + units().kb;
    default:
        return groupedWhole(Size);
    }
}

QString RoundEx(double num) {
    if (!std::isfinite(num)) return QString::number(num);
    if (num < 0) return QLatin1Char('-') + RoundEx(-num);

    // Divide while the whole part has four digits or more.
    int unit = 0;
    while (std::trunc(num) >= 1000.0) {
        num /= 1024.0;
        ++unit;
    }
    // The figure is cut from the full text of the number: three characters when the whole part
    // has three digits ("120"), else four ("1.5", "12.3", "0.99").
    const QString t = QString::number(num, 'g', 15);
    const QString figure = t.left(std::trunc(num) >= 100.0 ? 3 : 4);

    const SizeUnits& u = units();
    switch (unit) {
    case 0:
        return figure + QLatin1Char(' ') + u.bytes;
    case 1:
        return figure + QLatin1Char(' ') + u.kb;
    case 2:
        return figure + QLatin1Char(' ') + u.mb;
    case 3:
        return figure + QLatin1Char(' ') + u.gb;
    default:
        return figure;
    }
}

} // namespace mCommon
