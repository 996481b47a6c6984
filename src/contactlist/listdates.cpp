#include "contactlist/listdates.h"

#include "support/helpers/dates.h"

namespace mLV {

namespace {

// A date whose every number differs from the others: 2033-11-22 13:44:55.
constexpr int kYear = 2033, kMonth = 11, kDay = 22, kHour = 13, kMinute = 44, kSecond = 55;

struct Run {
    qsizetype start;
    qsizetype length;
    int value;
};

bool isDigit(QChar c) {
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// The runs of ASCII digits in a text (the lists show dates with ASCII digits only).
std::vector<Run> digitRuns(QStringView s) {
    std::vector<Run> runs;
    for (qsizetype i = 0; i < s.size();) {
        if (!isDigit(s[i])) {
            ++i;
            continue;
        }
        Run r{i, 0, 0};
        while (i < s.size() && isDigit(s[i])) {
            if (r.length < 9) r.value = r.value * 10 + (s[i].unicode() - u'0');
            ++r.length;
            ++i;
        }
        runs.push_back(r);
    }
    return runs;
}

QString shown(int month, int day, int hour, int minute, int second) {
    return mCommon::TimeCorrectView(QDateTime(QDate(kYear, month, day), QTime(hour, minute, second)));
}

void appendNumber(QString& out, int value, int width) {
    char digits[12];
    int n = 0;
    do {
        digits[n++] = char('0' + value % 10);
        value /= 10;
    } while (value > 0 && n < 12);
    for (int i = n; i < width; ++i)
        out += QLatin1Char('0');
    while (n > 0)
        out += QLatin1Char(digits[--n]);
}

} // namespace

ShownDate::ShownDate() {
    if (!learn()) m_fields = 0;
}

bool ShownDate::learn() {
    // Which number is which field.
    const std::vector<Run> runs = digitRuns(shown(kMonth, kDay, kHour, kMinute, kSecond));
    if (runs.size() < 4 || runs.size() > 6) return false;
    bool seen[6] = {};
    for (size_t i = 0; i < runs.size(); ++i) {
        Field f;
        switch (runs[i].value) {
        case kYear:
        case kYear % 100:
            f = Year;
            break;
        case kMonth:
            f = Month;
            break;
        case kDay:
            f = Day;
            break;
        case kHour:
            f = Hour;
            break;
        case kHour - 12:
            f = Hour;
            m_twelveHour = true;
            break;
        case kMinute:
            f = Minute;
            break;
        case kSecond:
            f = Second;
            break;
        default:
            return false;
        }
        if (seen[f]) return false;
        seen[f] = true;
        m_order[i] = f;
    }
    if (!seen[Year] || !seen[Day] || !seen[Hour] || !seen[Minute]) return false;
    m_namedMonth = !seen[Month];
    const int count = int(runs.size());

    // How wide each number is at least: one-digit values show whether they are padded.
    const std::vector<Run> small = digitRuns(shown(3, 5, 4, 7, 9));
    if (int(small.size()) != count) return false;
    for (int i = 0; i < count; ++i)
        m_width[m_order[i]] = m_order[i] == Year ? int(runs[size_t(i)].length) : int(small[size_t(i)].length);

    // The text around the numbers, for every month (when named) and both halves of the day.
    for (int month = 1; month <= (m_namedMonth ? 12 : 1); ++month) {
        for (const bool afternoon : {false, true}) {
            const QString text =
                shown(m_namedMonth ? month : kMonth, kDay, afternoon ? kHour : kHour - 12, kMinute, kSecond);
            const std::vector<Run> r = digitRuns(text);
            if (int(r.size()) != count) return false;
            Frame f{{}, m_namedMonth ? month : 0, afternoon};
            qsizetype at = 0;
            for (const Run& run : r) {
                f.pieces.push_back(text.mid(at, run.start - at));
                at = run.start + run.length;
            }
            f.pieces.push_back(text.mid(at));
            // Two frames alike must not stand for different months or, on a twelve-hour clock,
            // different halves of the day.
            for (const Frame& other : m_frames) {
                if (other.pieces == f.pieces &&
                    (other.month != f.month || (m_twelveHour && other.afternoon != f.afternoon)))
                    return false;
            }
            m_frames.push_back(std::move(f));
        }
    }
    m_fields = count;

    // The shape must give back what TimeCorrectView shows, at the corners of the clock and the
    // calendar too.
    const QDateTime samples[] = {
        QDateTime(QDate(2024, 1, 1), QTime(0, 0, 0)),      QDateTime(QDate(2024, 2, 29), QTime(12, 0, 1)),
        QDateTime(QDate(2009, 12, 31), QTime(23, 59, 59)), QDateTime(QDate(1999, 10, 9), QTime(11, 5, 0)),
        QDateTime(QDate(2030, 6, 15), QTime(9, 30, 30)),   QDateTime(QDate(2001, 7, 4), QTime(17, 45, 8)),
    };
    for (const QDateTime& s : samples)
        if (!reproduces(s)) return false;
    for (int month = 1; month <= 12; ++month)
        if (!reproduces(QDateTime(QDate(2020, month, 10 + month), QTime(month + 5, month * 4, month * 3))))
            return false;
    return true;
}

bool ShownDate::reproduces(const QDateTime& sample) const {
    QString mine;
    if (!Append(sample.date(), sample.time(), mine)) return false;
    int v[6];
    const QDate d = sample.date();
    const QTime t = sample.time();
    const bool twoDigitYear = m_width[Year] <= 2;
    return mine == mCommon::TimeCorrectView(sample) && Read(mine, v) &&
           (twoDigitYear ? v[Year] % 100 == d.year() % 100 : v[Year] == d.year()) && v[Month] == d.month() &&
           v[Day] == d.day() && v[Hour] == t.hour() && v[Minute] == t.minute() &&
           (v[Second] == t.second() || m_width[Second] == 0);
}

bool ShownDate::Append(QDate date, QTime time, QString& out) const {
    if (m_fields == 0 || !date.isValid() || !time.isValid() || date.year() < 1 || date.year() > 9999)
        return false;
    const int hour = time.hour();
    const Frame& f = frame(date.month(), hour >= 12);
    int value[6];
    value[Year] = m_width[Year] <= 2 ? date.year() % 100 : date.year();
    value[Month] = date.month();
    value[Day] = date.day();
    value[Hour] = m_twelveHour ? (hour % 12 == 0 ? 12 : hour % 12) : hour;
    value[Minute] = time.minute();
    value[Second] = time.second();
    for (int i = 0; i < m_fields; ++i) {
        out += f.pieces[size_t(i)];
        appendNumber(out, value[m_order[i]], m_width[m_order[i]]);
    }
    out += f.pieces[size_t(m_fields)];
    return true;
}

bool ShownDate::Read(QStringView text, int v[6]) const {
    if (m_fields == 0) return false;
    // At most one run more than the shape has, to tell a text with more numbers apart.
    Run runs[7];
    int count = 0;
    for (qsizetype i = 0; i < text.size() && count <= m_fields;) {
        if (!isDigit(text[i])) {
            ++i;
            continue;
        }
        Run& r = runs[count++];
        r = Run{i, 0, 0};
        while (i < text.size() && isDigit(text[i])) {
            if (r.length < 9) r.value = r.value * 10 + (text[i].unicode() - u'0');
            ++r.length;
            ++i;
        }
    }
    if (count != m_fields) return false;

    // The frame whose pieces stand between the numbers; most often the one of the row before.
    const auto fits = [&](const Frame& f) {
        qsizetype at = 0;
        for (int i = 0; i < count; ++i) {
            if (text.mid(at, runs[i].start - at) != f.pieces[size_t(i)]) return false;
            at = runs[i].start + runs[i].length;
        }
        return text.mid(at) == f.pieces[size_t(count)];
    };
    const Frame* f = &m_frames[size_t(m_lastFrame)];
    if (!fits(*f)) {
        f = nullptr;
        for (size_t i = 0; i < m_frames.size() && !f; ++i) {
            if (fits(m_frames[i])) {
                f = &m_frames[i];
                m_lastFrame = int(i);
            }
        }
        if (!f) return false;
    }
    v[Second] = 0;
    v[Month] = f->month;
    for (int i = 0; i < m_fields; ++i) {
        if (runs[i].length > 4) return false;
        v[m_order[i]] = runs[i].value;
        // A two-digit year reads as the phonebook reads one: 00 to 29 in this century, 30 to 99
        // in the last.
        if (m_order[i] == Year && runs[i].length <= 2) v[Year] += v[Year] < 30 ? 2000 : 1900;
    }
    if (m_twelveHour) {
        if (v[Hour] < 1 || v[Hour] > 12) return false;
        v[Hour] = v[Hour] % 12 + (f->afternoon ? 12 : 0);
    }
    return QDate::isValid(v[Year], v[Month], v[Day]) && QTime::isValid(v[Hour], v[Minute], v[Second]);
}

} // namespace mLV
