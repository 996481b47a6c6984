#include "phonebook/store/jetfunctions.h"

#include <QDateTime>
#include <QStringView>
#include <sqlite3.h>

namespace dao {

JetLikePattern::JetLikePattern(const QString& pattern) {
    const QString p = pattern.toCaseFolded();
    for (int i = 0; i < p.size(); ++i) {
        const QChar c = p[i];
        if (c == QLatin1Char('*')) {
            if (m_items.isEmpty() || m_items.last().kind != Item::AnyRun) m_items.append({Item::AnyRun, {}, {}, false});
        } else if (c == QLatin1Char('?')) {
            m_items.append({Item::AnyOne, {}, {}, false});
        } else if (c == QLatin1Char('#')) {
            m_items.append({Item::Digit, {}, {}, false});
        } else if (c == QLatin1Char('[')) {
            const int close = p.indexOf(QLatin1Char(']'), i + 2); // "[]]" would hold a ']'
            if (close < 0) { // an open bracket with no end stands for itself
                m_items.append({Item::Literal, QString(c), {}, false});
                continue;
            }
            Item it{Item::Class, {}, {}, false};
            int j = i + 1;
            if (p[j] == QLatin1Char('!') && j + 1 < close) {
                it.negate = true;
                ++j;
            }
            for (; j < close; ++j) {
                if (j + 2 < close && p[j + 1] == QLatin1Char('-')) {
                    it.ranges.append({p[j], p[j + 2]});
                    j += 2;
                } else {
                    it.chars += p[j];
                }
            }
            // A class of one ordinary character ([*], [?], [#], [[]) is that character.
            if (!it.negate && it.ranges.isEmpty() && it.chars.size() == 1) {
                if (!m_items.isEmpty() && m_items.last().kind == Item::Literal) m_items.last().chars += it.chars;
                else m_items.append({Item::Literal, it.chars, {}, false});
            } else {
                m_items.append(it);
            }
            i = close;
        } else {
            if (!m_items.isEmpty() && m_items.last().kind == Item::Literal) m_items.last().chars += c;
            else m_items.append({Item::Literal, QString(c), {}, false});
        }
    }
    if (m_items.size() == 3 && m_items[0].kind == Item::AnyRun && m_items[1].kind == Item::Literal &&
        m_items[2].kind == Item::AnyRun) {
        m_isContains = true;
        m_contains = m_items[1].chars;
    }
}

bool JetLikePattern::Matches(const QString& value) const {
    const QString v = value.toCaseFolded();
    if (m_isContains) return v.contains(m_contains);
    return match(0, v, 0);
}

bool JetLikePattern::match(int item, const QString& v, int pos) const {
    for (; item < m_items.size(); ++item) {
        const Item& it = m_items[item];
        switch (it.kind) {
        case Item::Literal:
            if (QStringView(v).mid(pos, it.chars.size()) != it.chars) return false;
            pos += it.chars.size();
            break;
        case Item::AnyOne:
            if (pos >= v.size()) return false;
            ++pos;
            break;
        case Item::Digit:
            if (pos >= v.size() || !v[pos].isDigit()) return false;
            ++pos;
            break;
        case Item::Class: {
            if (pos >= v.size()) return false;
            const QChar c = v[pos];
            bool in = it.chars.contains(c);
            for (const auto& r : it.ranges)
                if (c >= r.first && c <= r.second) in = true;
            if (in == it.negate) return false;
            ++pos;
            break;
        }
        case Item::AnyRun: {
            if (item + 1 == m_items.size()) return true;
            const Item& next = m_items[item + 1];
            for (int p = pos; p <= v.size(); ++p) {
                // Skip starts that cannot begin the next literal.
                if (next.kind == Item::Literal && (p >= v.size() || v[p] != next.chars[0])) continue;
                if (match(item + 1, v, p)) return true;
            }
            return false;
        }
        }
    }
    return pos == v.size();
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

void deletePattern(void* p) { delete static_cast<JetLikePattern*>(p); }

// like(pattern, value): what SQLite calls for "value LIKE pattern".
void likeFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL || sqlite3_value_type(argv[1]) == SQLITE_NULL) {
        sqlite3_result_null(ctx);
        return;
    }
    auto* pat = static_cast<JetLikePattern*>(sqlite3_get_auxdata(ctx, 0));
    if (!pat) {
        pat = new JetLikePattern(text(argv[0]));
        sqlite3_set_auxdata(ctx, 0, pat, deletePattern);
        pat = static_cast<JetLikePattern*>(sqlite3_get_auxdata(ctx, 0));
        if (!pat) { // SQLite could not keep it: use a pattern for this row only
            JetLikePattern once(text(argv[0]));
            sqlite3_result_int(ctx, once.Matches(text(argv[1])) ? 1 : 0);
            return;
        }
    }
    sqlite3_result_int(ctx, pat->Matches(text(argv[1])) ? 1 : 0);
}

void nowFn(sqlite3_context* ctx, int, sqlite3_value**) {
    resultText(ctx, QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
}
void dateFn(sqlite3_context* ctx, int, sqlite3_value**) {
    resultText(ctx, QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00"));
}
void timeFn(sqlite3_context* ctx, int, sqlite3_value**) {
    resultText(ctx, QStringLiteral("1899-12-30 ") + QTime::currentTime().toString(QStringLiteral("HH:mm:ss")));
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
    while (i < s.size() && (s[i].isDigit() || s[i] == QLatin1Char('.'))) ++i;
    sqlite3_result_double(ctx, s.left(i).toDouble());
}
void nzFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) != SQLITE_NULL) sqlite3_result_value(ctx, argv[0]);
    else if (argc > 1) sqlite3_result_value(ctx, argv[1]);
    else sqlite3_result_text(ctx, "", 0, SQLITE_STATIC);
}

} // namespace

void RegisterJetFunctions(sqlite3* db) {
    const int det = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    struct F { const char* name; int args; void (*fn)(sqlite3_context*, int, sqlite3_value**); bool deterministic; };
    const F fns[] = {
        {"like", 2, likeFn, true},   {"jet_now", 0, nowFn, false}, {"jet_date", 0, dateFn, false},
        {"jet_time", 0, timeFn, false}, {"len", 1, lenFn, true},   {"ucase", 1, ucaseFn, true},
        {"lcase", 1, lcaseFn, true}, {"left", 2, leftFn, true},    {"right", 2, rightFn, true},
        {"mid", 2, midFn, true},     {"mid", 3, midFn, true},      {"instr", 2, instrFn, true},
        {"instr", 3, instrFn, true}, {"val", 1, valFn, true},      {"nz", 1, nzFn, true},
        {"nz", 2, nzFn, true},
    };
    for (const F& f : fns)
        sqlite3_create_function_v2(db, f.name, f.args, f.deterministic ? det : SQLITE_UTF8, nullptr, f.fn, nullptr,
                                   nullptr, nullptr);
}

} // namespace dao
