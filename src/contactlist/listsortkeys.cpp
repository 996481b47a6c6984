#include "contactlist/listsortkeys.h"

#include "support/helpers/dates.h"

#include <QDate>
#include <QLocale>
#include <algorithm>
#include <cmath>
#include <vector>

namespace mLV {

namespace {

void appendDigits(QString& out, int value, int width) {
    char buf[16];
    for (int i = width - 1; i >= 0; --i) {
        buf[i] = char('0' + value % 10);
        value /= 10;
    }
    out.append(QLatin1String(buf, width));
}

} // namespace

bool DateSortText::Append(QStringView text, QString& out) {
    if (!m_lastKey.isEmpty() && text == m_lastText) {
        out += m_lastKey;
        return true;
    }
    int v[6]; // year, month, day, hour, minute, second
    if (!m_shape.Read(text, v)) {
        const QDateTime dt = mDateTime::ToDateTime(QVariant(text.toString()));
        if (!dt.isValid()) return false;
        const QDate d = dt.date();
        const QTime t = dt.time();
        v[0] = d.year();
        v[1] = d.month();
        v[2] = d.day();
        v[3] = t.hour();
        v[4] = t.minute();
        v[5] = t.second();
        if (v[0] < 0 || v[0] > 9999) return false;
    }
    m_lastText.truncate(0);
    m_lastText += text;
    m_lastKey.truncate(0);
    appendDigits(m_lastKey, v[0], 4);
    for (int i = 1; i < 6; ++i)
        appendDigits(m_lastKey, v[i], 2);
    out += m_lastKey;
    return true;
}

bool AppendNumberSortText(QStringView text, QString& out) {
    const QStringView t = text.trimmed();
    if (t.isEmpty()) return false;
    // Contact numbers are whole numbers: their digits go straight in.
    const bool minus = t[0] == QLatin1Char('-');
    const qsizetype first = minus || t[0] == QLatin1Char('+') ? 1 : 0;
    qsizetype end = first;
    while (end < t.size() && t[end] >= QLatin1Char('0') && t[end] <= QLatin1Char('9'))
        ++end;
    if (end == t.size() && end > first && end - first <= 30) {
        qsizetype lead = first;
        while (lead < end - 1 && t[lead] == QLatin1Char('0'))
            ++lead;
        const bool zero = end - lead == 1 && t[lead] == QLatin1Char('0');
        if (minus && !zero) out += QLatin1Char('-');
        out.resize(out.size() + 30 - (end - lead), QLatin1Char('0'));
        out += t.mid(lead, end - lead);
        out += QLatin1Char('.');
        out.resize(out.size() + 30, QLatin1Char('0'));
        return true;
    }

    // Anything else as the locale reads it, then as the program writes numbers.
    bool ok = false;
    double value = QLocale::system().toDouble(t, &ok);
    if (!ok) value = QLocale::c().toDouble(t, &ok);
    if (!ok || !std::isfinite(value)) return false;
    const double a = std::fabs(value);
    const int wholeDigits = a < 1 ? 1 : int(std::floor(std::log10(a))) + 1;
    // About fifteen significant digits, as a double holds; the rest of the thirty are zeros.
    const int decimals = std::clamp(15 - wholeDigits, 0, 30);
    const QString s = QString::number(a, 'f', decimals);
    const qsizetype point = s.indexOf(QLatin1Char('.'));
    const QStringView whole = point < 0 ? QStringView(s) : QStringView(s).left(point);
    const QStringView fraction = point < 0 ? QStringView() : QStringView(s).mid(point + 1);
    if (value < 0 && a != 0) out += QLatin1Char('-');
    for (qsizetype k = whole.size(); k < 30; ++k)
        out += QLatin1Char('0');
    out += whole;
    out += QLatin1Char('.');
    out += fraction;
    for (qsizetype k = fraction.size(); k < 30; ++k)
        out += QLatin1Char('0');
    return true;
}

} // namespace mLV
