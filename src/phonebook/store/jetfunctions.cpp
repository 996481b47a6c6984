#include "phonebook/store/jetfunctions.h"

#include <QDateTime>
#include <QStringView>
#include <cmath>
#include <cstring>
#include <limits>
#include <sqlite3.h>

namespace dao {

namespace {

// Whether a text may hold a letter made of a base and a combining mark: nothing below U+0300 does.
bool mayDecompose(QStringView s) {
    for (const QChar c : s)
        if (c.unicode() >= 0x300) return true;
    return false;
}

bool isAscii(const char* p, int n) {
    for (int i = 0; i < n; ++i)
        if (static_cast<unsigned char>(p[i]) >= 0x80) return false;
    return true;
}

} // namespace

QString JetLikePattern::Fold(const QString& text) {
    if (!mayDecompose(text)) return text.toCaseFolded();
    return text.normalized(QString::NormalizationForm_C).toCaseFolded();
}

JetLikePattern::JetLikePattern(const QString& pattern) {
    const QString p = Fold(pattern);
    m_pieces.emplace_back();
    auto add = [&](Unit unit) {
        Piece& piece = m_pieces.back();
        if (piece.length == 0) piece.from = int(m_units.size());
        ++piece.length;
        if (unit.kind == Unit::Char)
            piece.text += unit.c;
        else
            piece.literal = false;
        m_units.push_back(unit);
    };
    bool afterStar = false;
    for (int i = 0; i < p.size(); ++i) {
        const QChar c = p[i];
        if (c == QLatin1Char('*')) {
            if (!afterStar) m_pieces.emplace_back(); // ** is *
            afterStar = true;
            continue;
        }
        afterStar = false;
        if (c == QLatin1Char('?')) {
            add({Unit::AnyOne, QChar(), 0});
        } else if (c == QLatin1Char('#')) {
            add({Unit::Digit, QChar(), 0});
        } else if (c == QLatin1Char('[')) {
            const int close = p.indexOf(QLatin1Char(']'), i + 2); // "[]]" would hold a ']'
            if (close < 0) { // an open bracket with no end stands for itself
                add({Unit::Char, c, 0});
                continue;
            }
            Class klass;
            int j = i + 1;
            if (p[j] == QLatin1Char('!') && j + 1 < close) {
                klass.negate = true;
                ++j;
            }
            for (; j < close; ++j) {
                if (j + 2 < close && p[j + 1] == QLatin1Char('-')) {
                    klass.ranges.append({p[j], p[j + 2]});
                    j += 2;
                } else {
                    klass.chars += p[j];
                }
            }
            // A class of one ordinary character ([*], [?], [#], [[]) is that character.
            if (!klass.negate && klass.ranges.isEmpty() && klass.chars.size() == 1) {
                add({Unit::Char, klass.chars[0], 0});
            } else {
                m_classes.push_back(klass);
                add({Unit::InClass, QChar(), int(m_classes.size()) - 1});
            }
            i = close;
        } else {
            add({Unit::Char, c, 0});
        }
    }
}

bool JetLikePattern::Class::contains(QChar c) const {
    bool in = chars.contains(c);
    for (const auto& r : ranges)
        if (c >= r.first && c <= r.second) in = true;
    return in != negate;
}

bool JetLikePattern::matchesAt(const Piece& piece, QStringView v, int pos) const {
    if (piece.literal) return v.mid(pos, piece.length) == piece.text;
    for (int k = 0; k < piece.length; ++k) {
        const Unit& u = m_units[piece.from + k];
        const QChar c = v[pos + k];
        switch (u.kind) {
        case Unit::Char:
            if (c != u.c) return false;
            break;
        case Unit::AnyOne:
            break;
        case Unit::Digit:
            if (!c.isDigit()) return false;
            break;
        case Unit::InClass:
            if (!m_classes[u.klass].contains(c)) return false;
            break;
        }
    }
    return true;
}

int JetLikePattern::find(const Piece& piece, QStringView v, int from, int last) const {
    if (piece.literal) {
        const qsizetype at = v.indexOf(piece.text, from);
        return at >= 0 && at <= last ? int(at) : -1;
    }
    for (int pos = from; pos <= last; ++pos)
        if (matchesAt(piece, v, pos)) return pos;
    return -1;
}

bool JetLikePattern::Matches(const QString& value) const {
    return MatchesFolded(Fold(value));
}

bool JetLikePattern::MatchesUtf8(const char* value, int bytes) const {
    if (!isAscii(value, bytes)) return MatchesFolded(Fold(QString::fromUtf8(value, bytes)));
    // ASCII folds to lower case and needs no composing: the folded value is made in place, in a
    // buffer that keeps its room from one value to the next.
    thread_local QString buffer;
    buffer.resize(bytes);
    QChar* out = buffer.data();
    for (int i = 0; i < bytes; ++i) {
        const char c = value[i];
        out[i] = QLatin1Char(c >= 'A' && c <= 'Z' ? char(c + ('a' - 'A')) : c);
    }
    return MatchesFolded(buffer);
}

bool JetLikePattern::MatchesFolded(QStringView v) const {
    const int n = int(v.size());
    const Piece& first = m_pieces.front();
    if (m_pieces.size() == 1) return n == first.length && matchesAt(first, v, 0);
    // The first piece stands at the start and the last at the end; each piece between them is
    // best taken where it first occurs, which leaves the most room to the ones after it.
    const Piece& last = m_pieces.back();
    if (n < first.length + last.length) return false;
    const int lastStart = n - last.length;
    if (!matchesAt(first, v, 0) || !matchesAt(last, v, lastStart)) return false;
    int pos = first.length;
    for (size_t k = 1; k + 1 < m_pieces.size(); ++k) {
        const Piece& piece = m_pieces[k];
        const int at = find(piece, v, pos, lastStart - piece.length);
        if (at < 0) return false;
        pos = at + piece.length;
    }
    return true;
}

namespace {

QString text(sqlite3_value* v) {
    const auto* p = reinterpret_cast<const char*>(sqlite3_value_text(v));
    return QString::fromUtf8(p, sqlite3_value_bytes(v));
}

void resultText(sqlite3_context* ctx, const QString& s) {
    const QByteArray b = s.toUtf8();
    sqlite3_result_text(ctx, b.constData(), b.size(), SQLITE_TRANSIENT);
}

void deletePattern(void* p) {
    delete static_cast<JetLikePattern*>(p);
}

// like(pattern, value): what SQLite calls for "value LIKE pattern".
void likeFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    auto* pat = static_cast<JetLikePattern*>(sqlite3_get_auxdata(ctx, 0));
    const auto* value = reinterpret_cast<const char*>(sqlite3_value_text(argv[1]));
    const int bytes = sqlite3_value_bytes(argv[1]);
    if (!pat) {
        pat = new JetLikePattern(text(argv[0]));
        sqlite3_set_auxdata(ctx, 0, pat, deletePattern);
        pat = static_cast<JetLikePattern*>(sqlite3_get_auxdata(ctx, 0));
        if (!pat) { // SQLite could not keep it: use a pattern for this row only
            JetLikePattern once(text(argv[0]));
            sqlite3_result_int(ctx, once.MatchesUtf8(value, bytes) ? 1 : 0);
            return;
        }
    }
    sqlite3_result_int(ctx, pat->MatchesUtf8(value, bytes) ? 1 : 0);
}

// jet_cat(a, b, ...): Jet's a & b & ..., the texts joined with Null read as "".
void catFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    sqlite3_int64 size = 0;
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) != SQLITE_NULL) {
            sqlite3_value_text(argv[i]); // the text form first: its length in bytes follows
            size += sqlite3_value_bytes(argv[i]);
        }
    char* out = static_cast<char*>(sqlite3_malloc64(sqlite3_uint64(size) + 1));
    if (!out) {
        sqlite3_result_error_nomem(ctx);
        return;
    }
    char* at = out;
    for (int i = 0; i < argc; ++i) {
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL) continue;
        const unsigned char* text = sqlite3_value_text(argv[i]);
        const int n = sqlite3_value_bytes(argv[i]);
        if (n > 0) std::memcpy(at, text, size_t(n));
        at += n;
    }
    *at = 0;
    sqlite3_result_text64(ctx, out, sqlite3_uint64(size), sqlite3_free, SQLITE_UTF8);
}

void nowFn(sqlite3_context* ctx, int, sqlite3_value**) {
    resultText(ctx, QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}
void dateFn(sqlite3_context* ctx, int, sqlite3_value**) {
    resultText(ctx,
               QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00"));
}
void timeFn(sqlite3_context* ctx, int, sqlite3_value**) {
    resultText(ctx,
               QStringLiteral("1899-12-30 ") + QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
}

bool nullArg(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL) {
            sqlite3_result_null(ctx);
            return true;
        }
    return false;
}

void lenFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (!nullArg(ctx, argc, argv)) sqlite3_result_int(ctx, text(argv[0]).size());
}
void ucaseFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (!nullArg(ctx, argc, argv)) resultText(ctx, text(argv[0]).toUpper());
}
void lcaseFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (!nullArg(ctx, argc, argv)) resultText(ctx, text(argv[0]).toLower());
}
void leftFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (!nullArg(ctx, argc, argv)) resultText(ctx, text(argv[0]).left(qMax(0, sqlite3_value_int(argv[1]))));
}
void rightFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (!nullArg(ctx, argc, argv)) resultText(ctx, text(argv[0]).right(qMax(0, sqlite3_value_int(argv[1]))));
}
void midFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (nullArg(ctx, argc, argv)) return;
    const int start = qMax(1, sqlite3_value_int(argv[1]));
    const int len = argc > 2 ? qMax(0, sqlite3_value_int(argv[2])) : -1;
    resultText(ctx, text(argv[0]).mid(start - 1, len));
}
// InStr([start,] haystack, needle): 1-based position, 0 when absent; no regard to case.
void instrFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (nullArg(ctx, argc, argv)) return;
    const int start = argc == 3 ? qMax(1, sqlite3_value_int(argv[0])) : 1;
    const QString hay = text(argv[argc == 3 ? 1 : 0]), needle = text(argv[argc == 3 ? 2 : 1]);
    sqlite3_result_int(ctx, hay.indexOf(needle, start - 1, Qt::CaseInsensitive) + 1);
}
// Val: the leading number of a text, 0 when there is none.
void valFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (nullArg(ctx, argc, argv)) return;
    const QString s = text(argv[0]).trimmed();
    int i = 0;
    if (i < s.size() && (s[i] == QLatin1Char('-') || s[i] == QLatin1Char('+'))) ++i;
    while (i < s.size() && (s[i].isDigit() || s[i] == QLatin1Char('.')))
        ++i;
    sqlite3_result_double(ctx, s.left(i).toDouble());
}
void nzFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) != SQLITE_NULL)
        sqlite3_result_value(ctx, argv[0]);
    else if (argc > 1)
        sqlite3_result_value(ctx, argv[1]);
    else
        sqlite3_result_text(ctx, "", 0, SQLITE_STATIC);
}

// a ^ b; Null where the power is no number (a negative base under a fraction) or overflows.
void powFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (nullArg(ctx, argc, argv)) return;
    const double r = std::pow(sqlite3_value_double(argv[0]), sqlite3_value_double(argv[1]));
    if (std::isfinite(r))
        sqlite3_result_double(ctx, r);
    else
        sqlite3_result_null(ctx);
}

// An operand of \ as a whole number: rounded half to even, as Jet rounds it. False when it does
// not fit in 64 bits.
bool wholeNumber(sqlite3_value* v, qint64& out) {
    if (sqlite3_value_numeric_type(v) == SQLITE_INTEGER) {
        out = sqlite3_value_int64(v);
        return true;
    }
    const double d = std::nearbyint(sqlite3_value_double(v));
    if (!(d > -9.2e18 && d < 9.2e18)) return false; // NaN fails too
    out = qint64(d);
    return true;
}

// a \ b: both rounded, then divided, the quotient cut toward zero. Null for a division by zero,
// as SQLite's / gives.
void idivFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (nullArg(ctx, argc, argv)) return;
    qint64 a = 0, b = 0;
    if (!wholeNumber(argv[0], a) || !wholeNumber(argv[1], b) || b == 0 ||
        (a == std::numeric_limits<qint64>::min() && b == -1))
        sqlite3_result_null(ctx);
    else
        sqlite3_result_int64(ctx, a / b);
}

} // namespace

void RegisterJetFunctions(sqlite3* db) {
    const int det = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    struct F {
        const char* name;
        int args;
        void (*fn)(sqlite3_context*, int, sqlite3_value**);
        bool deterministic;
    };
    const F fns[] = {
        {"like", 2, likeFn, true},      {"jet_now", 0, nowFn, false}, {"jet_date", 0, dateFn, false},
        {"jet_time", 0, timeFn, false}, {"len", 1, lenFn, true},      {"ucase", 1, ucaseFn, true},
        {"lcase", 1, lcaseFn, true},    {"left", 2, leftFn, true},    {"right", 2, rightFn, true},
        {"mid", 2, midFn, true},        {"mid", 3, midFn, true},      {"instr", 2, instrFn, true},
        {"instr", 3, instrFn, true},    {"val", 1, valFn, true},      {"nz", 1, nzFn, true},
        {"nz", 2, nzFn, true},          {"jet_pow", 2, powFn, true},  {"jet_idiv", 2, idivFn, true},
        {"jet_cat", -1, catFn, true},
    };
    for (const F& f : fns)
        sqlite3_create_function_v2(db, f.name, f.args, f.deterministic ? det : SQLITE_UTF8, nullptr, f.fn,
                                   nullptr, nullptr, nullptr);
}

} // namespace dao
