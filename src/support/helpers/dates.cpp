#include "support/helpers/dates.h"

namespace mDateTime {

namespace {

// The display patterns, worked out once per locale: TimeCorrectView runs for every row of a list.
struct Patterns {
    bool ready = false;
    bool chosen = false; // a locale was set; else the system's
    QLocale locale;
    QString date;
    QString time;
    // The last value shown: contacts added together share their date and often their time.
    QDate lastDate;
    QTime lastTime;
    QString lastText;
};

// The long time pattern without its time zone ("t" runs outside quotes) and the blank beside it.
QString withoutZone(const QString& pattern) {
    QString out;
    bool quoted = false;
    for (qsizetype i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern.at(i);
        if (c == QLatin1Char('\'')) quoted = !quoted;
        if (quoted || c != QLatin1Char('t')) {
            out += c;
            continue;
        }
        while (i + 1 < pattern.size() && pattern.at(i + 1) == QLatin1Char('t'))
            ++i;
        if (out.endsWith(QLatin1Char(' ')))
            out.chop(1);
        else if (i + 1 < pattern.size() && pattern.at(i + 1) == QLatin1Char(' '))
            ++i;
    }
    return out.trimmed();
}

Patterns& patterns() {
    static Patterns p;
    if (!p.ready) {
        if (!p.chosen) p.locale = QLocale::system();
        p.date = p.locale.dateFormat(QLocale::ShortFormat);
        p.time = withoutZone(p.locale.timeFormat(QLocale::LongFormat));
        p.lastDate = QDate();
        p.lastText.clear();
        p.ready = true;
    }
    return p;
}

// Numbers on screen use ASCII digits whatever digits the locale writes.
QString& asciiDigits(QString& s) {
    for (QChar& c : s) {
        if (c.unicode() >= 0x80 && c.isDigit()) c = QChar(u'0' + c.digitValue());
    }
    return s;
}

// Reads "yyyy-MM-dd", "yyyy-MM-dd HH:mm" and "yyyy-MM-dd HH:mm:ss" ("T" may stand for the blank),
// the form in which the phonebook stores dates.
bool readStored(const QString& s, QDate& date, QTime& time) {
    const qsizetype n = s.size();
    if (n != 10 && n != 16 && n != 19) return false;
    auto num = [&s](int from, int len, int& v) {
        v = 0;
        for (int i = from; i < from + len; ++i) {
            const char16_t c = s.at(i).unicode();
            if (c < u'0' || c > u'9') return false;
            v = v * 10 + (c - u'0');
        }
        return true;
    };
    int y, mo, d, h = 0, mi = 0, se = 0;
    if (!num(0, 4, y) || s.at(4) != QLatin1Char('-') || !num(5, 2, mo) || s.at(7) != QLatin1Char('-') ||
        !num(8, 2, d))
        return false;
    if (n > 10) {
        if ((s.at(10) != QLatin1Char(' ') && s.at(10) != QLatin1Char('T')) || !num(11, 2, h) ||
            s.at(13) != QLatin1Char(':') || !num(14, 2, mi))
            return false;
        if (n == 19 && (s.at(16) != QLatin1Char(':') || !num(17, 2, se))) return false;
    }
    date = QDate(y, mo, d);
    time = QTime(h, mi, se);
    return date.isValid() && time.isValid();
}

// The date and time of day of a value, in local time.
bool readValue(const QVariant& value, QDate& date, QTime& time) {
    switch (value.typeId()) {
    case QMetaType::QDateTime: {
        QDateTime dt = value.toDateTime();
        if (dt.timeSpec() != Qt::LocalTime) dt = dt.toLocalTime();
        date = dt.date();
        time = dt.time();
        return dt.isValid();
    }
    case QMetaType::QDate:
        date = value.toDate();
        time = QTime(0, 0);
        return date.isValid();
    default:
        break;
    }
    if (value.isNull()) return false;
    const QString s = value.toString().trimmed();
    if (readStored(s, date, time)) return true;

    QDateTime dt = QDateTime::fromString(s, Qt::ISODate);
    const QLocale& loc = patterns().locale;
    if (!dt.isValid()) dt = loc.toDateTime(s, QLocale::ShortFormat);
    if (!dt.isValid())
        dt = loc.toDateTime(s, loc.dateFormat(QLocale::ShortFormat) + QLatin1Char(' ') + patterns().time);
    if (dt.isValid()) {
        date = dt.date();
        time = dt.time();
        return true;
    }
    date = loc.toDate(s, QLocale::ShortFormat);
    time = QTime(0, 0);
    return date.isValid();
}

QString dateText(QDate date) {
    Patterns& p = patterns();
    QString s = p.locale.toString(date, p.date);
    return asciiDigits(s);
}

QString timeText(QTime time) {
    Patterns& p = patterns();
    QString s = p.locale.toString(time, p.time);
    return asciiDigits(s);
}

} // namespace

void SetDisplayLocale(const QLocale& locale) {
    Patterns& p = patterns();
    p.locale = locale;
    p.chosen = true;
    p.ready = false;
}

QDateTime ToDateTime(const QVariant& value) {
    QDate date;
    QTime time;
    if (!readValue(value, date, time)) return QDateTime();
    return QDateTime(date, time);
}

QString FormatTime(const QVariant& pTime) {
    if (pTime.typeId() == QMetaType::QTime) {
        const QTime t = pTime.toTime();
        return t.isValid() ? timeText(t) : QString();
    }
    QDate date;
    QTime time;
    return readValue(pTime, date, time) ? timeText(time) : QString();
}

QString FormatDate(const QVariant& pDate) {
    QDate date;
    QTime time;
    return readValue(pDate, date, time) ? dateText(date) : QString();
}

} // namespace mDateTime

namespace mCommon {

QString TimeCorrectView(const QVariant& strTime) {
    if (strTime.isNull()) return QString();
    QDate date;
    QTime time;
    if (!mDateTime::readValue(strTime, date, time)) return strTime.toString();
    mDateTime::Patterns& p = mDateTime::patterns();
    if (date != p.lastDate || time != p.lastTime) {
        p.lastText = mDateTime::dateText(date) + QLatin1Char(' ') + mDateTime::timeText(time);
        p.lastDate = date;
        p.lastTime = time;
    }
    return p.lastText;
}

} // namespace mCommon
