#include "phonebook/store/jetsql.h"

#include "phonebook/store/dao.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <tuple>
#include <vector>

namespace dao {

namespace {

enum class K { Space, Ident, Quoted, Str, Num, Op, LParen, RParen, Comma, Dot, Star };

struct Tok {
    K kind;
    QString text;
    bool is(const char* word) const {
        return kind == K::Ident && text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
    }
    bool op(const char* s) const { return kind == K::Op && text == QLatin1String(s); }
};

[[noreturn]] void fail(const QString& why, const QString& sql) {
    throw DbError(errSyntax, QStringLiteral("%1 in statement: %2").arg(why, sql), QStringLiteral("JetSql"));
}

QString quoteIdent(const QString& name) {
    QString q = name;
    q.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + q + QLatin1Char('"');
}

QString quoteString(const QString& s) {
    QString q = s;
    q.replace(QLatin1Char('\''), QLatin1String("''"));
    return QLatin1Char('\'') + q + QLatin1Char('\'');
}

// Words that SQLite reads as keywords but that the phonebook uses as names of fields
// (SearchWhere.Update, SearchWhat.Update). Statement words elsewhere are never names.
bool isReservedName(const QString& w) {
    return w.compare(QLatin1String("update"), Qt::CaseInsensitive) == 0;
}

std::vector<Tok> tokenize(const QString& s, const QString& sql) {
    std::vector<Tok> out;
    const int n = s.size();
    int i = 0;
    auto isIdentStart = [](QChar c) { return c.isLetter() || c == QLatin1Char('_'); };
    auto isIdentChar = [](QChar c) {
        return c.isLetterOrNumber() || c == QLatin1Char('_') || c == QLatin1Char('$');
    };
    while (i < n) {
        const QChar c = s[i];
        if (c.isSpace()) {
            int j = i;
            while (j < n && s[j].isSpace())
                ++j;
            out.push_back({K::Space, QStringLiteral(" ")});
            i = j;
        } else if (c == QLatin1Char('\'') || c == QLatin1Char('"')) {
            QString v;
            int j = i + 1;
            for (;;) {
                if (j >= n) fail(QStringLiteral("Unterminated text"), sql);
                if (s[j] == c) {
                    if (j + 1 < n && s[j + 1] == c) {
                        v += c;
                        j += 2;
                        continue;
                    }
                    break;
                }
                v += s[j++];
            }
            out.push_back({K::Str, quoteString(v)});
            i = j + 1;
        } else if (c == QLatin1Char('[')) {
            const int j = s.indexOf(QLatin1Char(']'), i + 1);
            if (j < 0) fail(QStringLiteral("Unterminated bracketed name"), sql);
            out.push_back({K::Quoted, s.mid(i + 1, j - i - 1)});
            i = j + 1;
        } else if (c == QLatin1Char('#')) {
            const int j = s.indexOf(QLatin1Char('#'), i + 1);
            const QString lit = j < 0 ? QString() : JetSql::DateLiteral(s.mid(i + 1, j - i - 1));
            if (lit.isEmpty()) fail(QStringLiteral("Invalid date literal"), sql);
            out.push_back({K::Str, quoteString(lit)});
            i = j + 1;
        } else if (c.isDigit() || (c == QLatin1Char('.') && i + 1 < n && s[i + 1].isDigit())) {
            int j = i;
            while (j < n && (s[j].isDigit() || s[j] == QLatin1Char('.')))
                ++j;
            if (j < n && (s[j] == QLatin1Char('e') || s[j] == QLatin1Char('E')) && j + 1 < n &&
                (s[j + 1].isDigit() || s[j + 1] == QLatin1Char('-') || s[j + 1] == QLatin1Char('+'))) {
                j += 2;
                while (j < n && s[j].isDigit())
                    ++j;
            }
            out.push_back({K::Num, s.mid(i, j - i)});
            i = j;
        } else if (isIdentStart(c)) {
            int j = i;
            while (j < n && isIdentChar(s[j]))
                ++j;
            out.push_back({K::Ident, s.mid(i, j - i)});
            i = j;
        } else if (c == QLatin1Char('(')) {
            out.push_back({K::LParen, QStringLiteral("(")});
            ++i;
        } else if (c == QLatin1Char(')')) {
            out.push_back({K::RParen, QStringLiteral(")")});
            ++i;
        } else if (c == QLatin1Char(',')) {
            out.push_back({K::Comma, QStringLiteral(",")});
            ++i;
        } else if (c == QLatin1Char('.')) {
            out.push_back({K::Dot, QStringLiteral(".")});
            ++i;
        } else if (c == QLatin1Char('*')) {
            out.push_back({K::Star, QStringLiteral("*")});
            ++i;
        } else if (c == QLatin1Char(';')) {
            // A closing semicolon is allowed; anything after it is not.
            for (int j = i + 1; j < n; ++j)
                if (!s[j].isSpace()) fail(QStringLiteral("Characters found after end of SQL statement"), sql);
            i = n;
        } else {
            static const QStringList two{QStringLiteral("<>"), QStringLiteral("<="), QStringLiteral(">="),
                                         QStringLiteral("!=")};
            const QString pair = s.mid(i, 2);
            if (two.contains(pair)) {
                out.push_back({K::Op, pair == QLatin1String("!=") ? QStringLiteral("<>") : pair});
                i += 2;
            } else if (QStringLiteral("=<>+-/&\\^").contains(c)) {
                out.push_back({K::Op, QString(c)});
                ++i;
            } else {
                fail(QStringLiteral("Unexpected character '%1'").arg(c), sql);
            }
        }
    }
    return out;
}

// Index of the token after the parenthesis that closes the one at `open`.
size_t closing(const std::vector<Tok>& t, size_t open, const QString& sql) {
    int depth = 0;
    for (size_t i = open; i < t.size(); ++i) {
        if (t[i].kind == K::LParen)
            ++depth;
        else if (t[i].kind == K::RParen && --depth == 0)
            return i;
    }
    fail(QStringLiteral("Missing closing parenthesis"), sql);
}

size_t nextSolid(const std::vector<Tok>& t, size_t i) {
    while (i < t.size() && t[i].kind == K::Space)
        ++i;
    return i;
}

QString join(const std::vector<Tok>& t, size_t from, size_t to) {
    QString s;
    for (size_t i = from; i < to && i < t.size(); ++i)
        s += t[i].text;
    return s;
}

// Rewrites the expression-level constructs in place: names, booleans, IsNull, &, Date(), Now().
void rewriteExpressions(std::vector<Tok>& t, const QString& sql) {
    int depth = 0;
    for (size_t i = 0; i < t.size(); ++i) {
        Tok& k = t[i];
        if (k.kind == K::LParen)
            ++depth;
        else if (k.kind == K::RParen && --depth < 0)
            fail(QStringLiteral("Extra closing parenthesis"), sql);
        if (k.kind == K::Quoted) {
            k.kind = K::Ident;
            k.text = quoteIdent(k.text);
            continue;
        }
        if (k.kind == K::Op && k.text == QLatin1String("&")) {
            k.text = QStringLiteral("||");
            continue;
        }
        if (k.kind != K::Ident || k.text.startsWith(QLatin1Char('"'))) continue;
        const bool afterDot = i > 0 && t[i - 1].kind == K::Dot;
        const size_t nx = nextSolid(t, i + 1);
        const bool call = nx < t.size() && t[nx].kind == K::LParen;
        if (afterDot) {
            if (isReservedName(k.text)) k.text = quoteIdent(k.text);
            continue;
        }
        if (k.is("True") && !call)
            k.text = QStringLiteral("1");
        else if (k.is("False") && !call)
            k.text = QStringLiteral("0");
        else if (k.is("Mod"))
            k.text = QStringLiteral("%");
        else if (call && k.is("IsNull")) {
            const size_t close = closing(t, nx, sql);
            t[i].text = QString();
            t[nx].text = QStringLiteral("((");
            t[close].text = QStringLiteral(") IS NULL)");
            t[nx].kind = K::Op; // keep depth bookkeeping simple: the pair is balanced textually
            t[close].kind = K::Op;
        } else if (call && (k.is("Date") || k.is("Now") || k.is("Time"))) {
            const size_t close = closing(t, nx, sql);
            if (nextSolid(t, nx + 1) != close) continue; // Date(x) with an argument is SQLite's own
            k.text = k.is("Date")  ? QStringLiteral("jet_date")
                     : k.is("Now") ? QStringLiteral("jet_now")
                                   : QStringLiteral("jet_time");
        } else if (!call && isReservedName(k.text) && i > 0) {
            k.text = quoteIdent(k.text);
        }
    }
    if (depth != 0) fail(QStringLiteral("Missing closing parenthesis"), sql);
}

// Jet's & joins texts and reads Null as "", where SQLite's || gives Null. A chain of & at one
// level (a & b & c) becomes one call of the store's jet_cat(a, b, c), which makes the joined text
// in one piece. An operand runs to the nearest operator of lower precedence.
bool endsOperand(const Tok& k) {
    static const char* words[] = {"AND",   "OR",    "NOT",      "LIKE", "IS",     "BETWEEN", "IN",   "SELECT",
                                  "WHERE", "FROM",  "SET",      "AS",   "ON",     "WHEN",    "THEN", "ELSE",
                                  "END",   "ORDER", "GROUP",    "BY",   "HAVING", "ASC",     "DESC", "UNION",
                                  "JOIN",  "CASE",  "DISTINCT", "XOR",  "EQV",    "IMP"};
    if (k.kind == K::Comma) return true;
    if (k.kind == K::Op)
        return k.text == QLatin1String("=") || k.text == QLatin1String("<>") ||
               k.text == QLatin1String("<") || k.text == QLatin1String(">") ||
               k.text == QLatin1String("<=") || k.text == QLatin1String(">=") || k.text == QLatin1String("&");
    if (k.kind == K::Ident)
        for (const char* w : words)
            if (k.is(w)) return true;
    return false;
}

void wrapConcatOperands(std::vector<Tok>& t, const QString& sql) {
    std::vector<std::pair<size_t, size_t>> spans; // [first, last] token of each operand, two per &
    for (size_t i = 0; i < t.size(); ++i) {
        if (!t[i].op("&")) continue;
        // Left operand.
        size_t first = i;
        int depth = 0;
        for (size_t j = i; j-- > 0;) {
            if (t[j].kind == K::RParen)
                ++depth;
            else if (t[j].kind == K::LParen && --depth < 0)
                break;
            else if (depth == 0 && endsOperand(t[j]))
                break;
            first = j;
        }
        size_t last = i;
        depth = 0;
        for (size_t j = i + 1; j < t.size(); ++j) {
            if (t[j].kind == K::LParen)
                ++depth;
            else if (t[j].kind == K::RParen && --depth < 0)
                break;
            else if (depth == 0 && endsOperand(t[j]))
                break;
            last = j;
        }
        // The operand without its blanks; a blank operand is a missing one.
        auto trimmed = [&](size_t a, size_t b, const char* side) {
            while (a <= b && t[a].kind == K::Space)
                ++a;
            while (b > a && t[b].kind == K::Space)
                --b;
            if (a > b) fail(QStringLiteral("Missing %1 operand of &").arg(QLatin1String(side)), sql);
            return std::make_pair(a, b);
        };
        if (first == i) fail(QStringLiteral("Missing left operand of &"), sql);
        if (last == i) fail(QStringLiteral("Missing right operand of &"), sql);
        spans.push_back(trimmed(first, i - 1, "left"));
        spans.push_back(trimmed(i + 1, last, "right"));
    }
    if (spans.empty()) return;
    // A chain starts at a left operand that is no right operand, and ends at a right operand
    // that is no left operand.
    std::vector<int> opens(t.size(), 0), closes(t.size(), 0);
    auto isSpan = [&](const std::pair<size_t, size_t>& sp, size_t side) {
        for (size_t k = side; k < spans.size(); k += 2)
            if (spans[k] == sp) return true;
        return false;
    };
    for (size_t k = 0; k < spans.size(); k += 2) {
        if (!isSpan(spans[k], 1)) ++opens[spans[k].first];
        if (!isSpan(spans[k + 1], 0)) ++closes[spans[k + 1].second];
    }
    std::vector<Tok> out;
    for (size_t i = 0; i < t.size(); ++i) {
        for (int n = 0; n < opens[i]; ++n) {
            out.push_back({K::Ident, QStringLiteral("jet_cat")});
            out.push_back({K::LParen, QStringLiteral("(")});
        }
        if (t[i].op("&"))
            out.push_back({K::Comma, QStringLiteral(",")});
        else
            out.push_back(t[i]);
        for (int n = 0; n < closes[i]; ++n)
            out.push_back({K::RParen, QStringLiteral(")")});
    }
    t.swap(out);
}

// Jet's ^ (power) and \ (integer division) have no SQLite operator: each becomes a call of a
// function of the store, jet_pow(a, b) or jet_idiv(a, b), over the operands the operator binds.
// ^ binds a single value (a name, a literal, a call, a parenthesised group) on either side, with
// a sign allowed on the right; \ binds products and quotients. Both group from the left.
constexpr size_t npos = size_t(-1);

bool isOperatorWord(const Tok& k) {
    return k.kind == K::Ident && (endsOperand(k) || k.is("MOD"));
}

size_t prevSolid(const std::vector<Tok>& t, size_t i) { // the solid token before i, npos if none
    while (i-- > 0)
        if (t[i].kind != K::Space) return i;
    return npos;
}

bool isSign(const Tok& k) {
    return k.op("-") || k.op("+");
}

// The first token of the value that ends at token `end`; npos when no value ends there.
size_t valueStart(const std::vector<Tok>& t, size_t end, const QString& sql) {
    const Tok& k = t[end];
    if (k.kind == K::RParen) {
        int depth = 0;
        for (size_t j = end + 1; j-- > 0;) {
            if (t[j].kind == K::RParen)
                ++depth;
            else if (t[j].kind == K::LParen && --depth == 0) {
                const size_t name = prevSolid(t, j);
                return name != npos && t[name].kind == K::Ident && !isOperatorWord(t[name]) ? name : j;
            }
        }
        fail(QStringLiteral("Extra closing parenthesis"), sql);
    }
    if (k.kind == K::Num || k.kind == K::Str) return end;
    if ((k.kind != K::Ident && k.kind != K::Quoted) || isOperatorWord(k)) return npos;
    size_t start = end; // a.b.c
    while (start >= 2 && t[start - 1].kind == K::Dot &&
           (t[start - 2].kind == K::Ident || t[start - 2].kind == K::Quoted))
        start -= 2;
    return start;
}

// The last token of the value that starts at token `begin`; npos when no value starts there.
size_t valueEnd(const std::vector<Tok>& t, size_t begin, const QString& sql) {
    if (begin >= t.size()) return npos;
    const Tok& k = t[begin];
    if (k.kind == K::LParen) return closing(t, begin, sql);
    if (k.kind == K::Num || k.kind == K::Str) return begin;
    if ((k.kind != K::Ident && k.kind != K::Quoted) || isOperatorWord(k)) return npos;
    size_t end = begin;
    while (end + 2 < t.size() && t[end + 1].kind == K::Dot &&
           (t[end + 2].kind == K::Ident || t[end + 2].kind == K::Quoted))
        end += 2;
    const size_t next = nextSolid(t, end + 1);
    if (end == begin && k.kind == K::Ident && next < t.size() && t[next].kind == K::LParen)
        return closing(t, next, sql);
    return end;
}

bool isProductOperator(const Tok& k) {
    return k.kind == K::Star || k.op("/");
}

// The operands of the operator at `at`: [left first, right last].
std::pair<size_t, size_t> operandsOf(const std::vector<Tok>& t, size_t at, bool products,
                                     const QString& sql) {
    const QString missing = QStringLiteral("Missing %1 operand of ") + t[at].text;
    size_t end = prevSolid(t, at);
    size_t first = npos;
    for (;;) {
        const size_t start = end == npos ? npos : valueStart(t, end, sql);
        if (start == npos) fail(missing.arg(QLatin1String("left")), sql);
        first = start;
        size_t before = prevSolid(t, start);
        if (!products || before == npos) break;
        if (isSign(t[before])) { // a sign of this factor, unless it subtracts it from what stands before
            const size_t previous = prevSolid(t, before);
            if (previous != npos && (valueStart(t, previous, sql) != npos)) break;
            first = before;
            before = previous;
            if (before == npos) break;
        }
        if (!isProductOperator(t[before])) break;
        end = prevSolid(t, before);
    }
    size_t last = npos;
    size_t begin = nextSolid(t, at + 1);
    for (;;) {
        while (begin < t.size() && isSign(t[begin]))
            begin = nextSolid(t, begin + 1);
        const size_t stop = valueEnd(t, begin, sql);
        if (stop == npos) fail(missing.arg(QLatin1String("right")), sql);
        last = stop;
        const size_t after = nextSolid(t, stop + 1);
        if (!products || after >= t.size() || !isProductOperator(t[after])) break;
        begin = nextSolid(t, after + 1);
    }
    return {first, last};
}

void rewriteArithmetic(std::vector<Tok>& t, const QString& sql) {
    for (const auto& [op, function, products] :
         {std::make_tuple("^", "jet_pow", false), std::make_tuple("\\", "jet_idiv", true)}) {
        for (size_t at = 0; at < t.size(); ++at) {
            if (!t[at].op(op)) continue;
            const auto [first, last] = operandsOf(t, at, products, sql);
            std::vector<Tok> call{{K::Ident, QLatin1String(function)}, {K::LParen, QStringLiteral("(")}};
            call.insert(call.end(), t.begin() + first, t.begin() + prevSolid(t, at) + 1);
            call.push_back({K::Comma, QStringLiteral(",")});
            call.insert(call.end(), t.begin() + nextSolid(t, at + 1), t.begin() + last + 1);
            call.push_back({K::RParen, QStringLiteral(")")});
            t.erase(t.begin() + first, t.begin() + last + 1);
            t.insert(t.begin() + first, call.begin(), call.end());
            at = first; // the next operator of the kind comes after this call
        }
    }
}

int findWord(const std::vector<Tok>& t, size_t from, const char* word) {
    int depth = 0;
    for (size_t i = from; i < t.size(); ++i) {
        if (t[i].kind == K::LParen || t[i].op("(("))
            ++depth;
        else if (t[i].kind == K::RParen)
            --depth;
        else if (depth == 0 && t[i].is(word))
            return int(i);
    }
    return -1;
}

QString translateStatement(const QString& jet) {
    std::vector<Tok> t = tokenize(jet, jet);
    rewriteArithmetic(t, jet);
    wrapConcatOperands(t, jet);
    size_t first = nextSolid(t, 0);
    if (first >= t.size()) fail(QStringLiteral("Empty statement"), jet);
    // Statement-level forms first, on raw tokens.
    if (t[first].is("SELECT")) {
        if (findWord(t, first, "INTO") >= 0) fail(QStringLiteral("SELECT INTO is not supported"), jet);
        size_t w = nextSolid(t, first + 1);
        if (w < t.size() && t[w].is("DISTINCTROW")) t[w].text = QStringLiteral("DISTINCT");
        if (w < t.size() && t[w].is("TOP")) {
            const size_t num = nextSolid(t, w + 1);
            if (num >= t.size() || t[num].kind != K::Num) fail(QStringLiteral("TOP needs a number"), jet);
            const QString limit = t[num].text;
            t.erase(t.begin() + w, t.begin() + nextSolid(t, num + 1));
            rewriteExpressions(t, jet);
            return join(t, 0, t.size()).trimmed() + QStringLiteral(" LIMIT ") + limit;
        }
        rewriteExpressions(t, jet);
        return join(t, 0, t.size()).trimmed();
    }
    if (t[first].is("DELETE")) {
        const int from = findWord(t, first + 1, "FROM");
        if (from < 0) fail(QStringLiteral("DELETE without FROM"), jet);
        const size_t tableTok = nextSolid(t, from + 1);
        if (tableTok >= t.size()) fail(QStringLiteral("DELETE without a table"), jet);
        // The table rows are deleted from: named before FROM (t.*, t.Field, t) or the one after FROM.
        QString target;
        const size_t before = nextSolid(t, first + 1);
        if (int(before) < from && (t[before].kind == K::Ident || t[before].kind == K::Quoted))
            target = t[before].text;
        else
            target = t[tableTok].text;
        const int join = findWord(t, from + 1, "JOIN");
        std::vector<Tok> rest(t.begin() + from + 1, t.end());
        rewriteExpressions(rest, jet);
        const QString restSql = ::dao::join(rest, 0, rest.size()).trimmed();
        const QString tgt = quoteIdent(target);
        if (join >= 0)
            return QStringLiteral("DELETE FROM %1 WHERE rowid IN (SELECT %1.rowid FROM %2)")
                .arg(tgt, restSql);
        return QStringLiteral("DELETE FROM ") + restSql;
    }
    if (t[first].is("UPDATE")) {
        const int set = findWord(t, first + 1, "SET");
        if (set < 0) fail(QStringLiteral("UPDATE without SET"), jet);
        if (findWord(t, first + 1, "JOIN") >= 0 && findWord(t, first + 1, "JOIN") < set)
            fail(QStringLiteral("UPDATE through a join is not supported"), jet);
        // SQLite wants bare names on the left of each assignment: drop "Table." there.
        int depth = 0;
        bool lhs = true;
        for (size_t i = set + 1; i < t.size(); ++i) {
            if (t[i].kind == K::LParen)
                ++depth;
            else if (t[i].kind == K::RParen)
                --depth;
            else if (depth == 0 && t[i].kind == K::Comma)
                lhs = true;
            else if (depth == 0 && t[i].op("="))
                lhs = false;
            else if (depth == 0 && t[i].is("WHERE"))
                break;
            else if (lhs && depth == 0 && (t[i].kind == K::Ident || t[i].kind == K::Quoted)) {
                const size_t d = i + 1;
                if (d < t.size() && t[d].kind == K::Dot) {
                    t[i].text.clear();
                    t[i].kind = K::Space;
                    t[d].text.clear();
                    t[d].kind = K::Space;
                }
            }
        }
        for (size_t i = set + 1; i < t.size(); ++i) // names right after SET or a comma are field names
            if (t[i].kind == K::Ident && isReservedName(t[i].text)) t[i].kind = K::Quoted;
        rewriteExpressions(t, jet);
        return join(t, 0, t.size()).trimmed();
    }
    if (t[first].is("INSERT")) {
        rewriteExpressions(t, jet);
        return join(t, 0, t.size()).trimmed();
    }
    fail(QStringLiteral("Unsupported statement"), jet);
}

} // namespace

QString JetSql::DateLiteral(const QString& body) {
    static const QRegularExpression re(
        QStringLiteral(
            R"(^\s*(\d{1,2})/(\d{1,2})/(\d{2}|\d{4})(?:\s+(\d{1,2}):(\d{2})(?::(\d{2}))?\s*(AM|PM)?)?\s*$)"),
        QRegularExpression::CaseInsensitiveOption);
    const auto m = re.match(body);
    if (!m.hasMatch()) return QString();
    int year = m.captured(3).toInt();
    if (m.captured(3).size() == 2) year += year < 30 ? 2000 : 1900;
    const int month = m.captured(1).toInt(), day = m.captured(2).toInt();
    int hour = m.captured(4).toInt();
    const int minute = m.captured(5).toInt(), second = m.captured(6).toInt();
    const QString ampm = m.captured(7).toUpper();
    if (ampm == QLatin1String("PM") && hour < 12) hour += 12;
    if (ampm == QLatin1String("AM") && hour == 12) hour = 0;
    if (month < 1 || month > 12 || day < 1 || day > 31 || hour > 23 || minute > 59 || second > 59)
        return QString();
    return QString::asprintf("%04d-%02d-%02d %02d:%02d:%02d", year, month, day, hour, minute, second);
}

QString JetSql::Translate(const QString& jet) {
    static QHash<QString, QString> cache;
    auto it = cache.constFind(jet);
    if (it != cache.constEnd()) return it.value();
    const QString out = translateStatement(jet);
    if (cache.size() > 4096) cache.clear();
    cache.insert(jet, out);
    return out;
}

QString JetSql::TranslateExpression(const QString& jet) {
    std::vector<Tok> t = tokenize(jet, jet);
    rewriteArithmetic(t, jet);
    wrapConcatOperands(t, jet);
    rewriteExpressions(t, jet);
    return join(t, 0, t.size()).trimmed();
}

} // namespace dao
