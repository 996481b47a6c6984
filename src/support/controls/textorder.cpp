#include "support/controls/textorder.h"

#include "support/helpers/letters.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <array>

namespace {

struct Order {
    QCollator collator;
    bool plain; // the C locale: QCollator would compare code points there
};

const Order& order() {
    static thread_local const Order o = [] {
        const QLocale locale = QLocale::system();
        QCollator col(locale);
        col.setCaseSensitivity(Qt::CaseInsensitive);
        col.setNumericMode(false);
        col.setIgnorePunctuation(false);
        return Order{col, locale.language() == QLocale::C};
    }();
    return o;
}

// The root order, as a key that compares by code units. A key is the weights of the text's
// characters without case and marks; a text with any character outside ASCII adds a 0 and its
// decomposed, case-folded self, so that texts whose weights are equal order by their marks. An
// ASCII text needs no such tail: of two texts with equal weights, the one without marks comes
// first, which is what the shorter key gives.
//
// Weights: control characters, then the blank and the ASCII signs in code order, then every other
// sign, then digits, then the letters a to z; any other character (other scripts) weighs its
// code unit, which is above all of these.
constexpr char16_t kOtherSign = 65;
constexpr char16_t kDigitZero = 66;
constexpr char16_t kLetterA = 76;

constexpr std::array<char16_t, 128> makeAsciiWeights() {
    std::array<char16_t, 128> w{};
    char16_t next = 1;
    for (int c = 0; c < 0x20; ++c)
        w[size_t(c)] = next;
    w[0x7f] = next;
    ++next;
    for (int c = 0x20; c < 0x7f; ++c) {
        const bool digit = c >= '0' && c <= '9';
        const bool upper = c >= 'A' && c <= 'Z';
        const bool lower = c >= 'a' && c <= 'z';
        if (digit)
            w[size_t(c)] = char16_t(kDigitZero + (c - '0'));
        else if (upper)
            w[size_t(c)] = char16_t(kLetterA + (c - 'A'));
        else if (lower)
            w[size_t(c)] = char16_t(kLetterA + (c - 'a'));
        else
            w[size_t(c)] = next++;
    }
    return w;
}

constexpr std::array<char16_t, 128> kAscii = makeAsciiWeights();
static_assert(kAscii[0x7e] < kOtherSign, "the ASCII signs come before the other signs");

void appendWeight(QChar c, QString& out) {
    const char16_t u = c.unicode();
    if (u < 0x80) {
        out += QChar(kAscii[u]);
        return;
    }
    if (c.isMark()) return;
    const QLatin1String plain = mLetters::PlainLetters(u);
    if (!plain.isEmpty()) {
        for (const char l : plain)
            out += QChar(kAscii[size_t(l)]);
        return;
    }
    if (c.isSurrogate()) {
        out += c;
        return;
    }
    const QChar folded = c.toCaseFolded();
    const char16_t f = folded.unicode();
    if (f < 0x80) {
        out += QChar(kAscii[f]);
    } else if (folded.isPunct() || folded.isSymbol() || folded.isSpace()) {
        out += QChar(kOtherSign);
    } else if (folded.category() == QChar::Number_DecimalDigit) {
        out += QChar(char16_t(kDigitZero + folded.digitValue()));
    } else {
        out += folded;
    }
}

void appendRootKey(QStringView text, QString& out) {
    const qsizetype start = out.size();
    out.resize(start + text.size());
    QChar* k = out.data() + start;
    for (const QChar c : text) {
        const char16_t u = c.unicode();
        if (u >= 0x80) {
            // Marks apart from their letters, compatibility forms as their plain letters; the
            // tail in the same form, so that a letter and its marks typed apart are the same.
            out.truncate(start);
            const QString parts = text.toString().normalized(QString::NormalizationForm_KD);
            for (const QChar d : parts)
                appendWeight(d, out);
            out += QChar(0);
            out += parts.toCaseFolded();
            return;
        }
        *k++ = QChar(kAscii[u]);
    }
}

int compareUnits(const QChar* a, qsizetype an, const QChar* b, qsizetype bn) {
    const qsizetype n = std::min(an, bn);
    for (qsizetype k = 0; k < n; ++k) {
        if (a[k] != b[k]) return a[k] < b[k] ? -1 : 1;
    }
    return an < bn ? -1 : an > bn ? 1 : 0;
}

} // namespace

namespace TextOrder {

int Compare(const QString& a, const QString& b) {
    const Order& o = order();
    if (!o.plain) return o.collator.compare(a, b);
    static thread_local QString ka, kb;
    ka.truncate(0);
    kb.truncate(0);
    appendRootKey(a, ka);
    appendRootKey(b, kb);
    return compareUnits(ka.constData(), ka.size(), kb.constData(), kb.size());
}

void Keys::Reserve(size_t n) {
    if (order().plain)
        m_ends.reserve(n);
    else
        m_keys.reserve(n);
}

void Keys::Add(QStringView text) {
    const Order& o = order();
    if (!o.plain) {
        m_keys.push_back(o.collator.sortKey(text.toString()));
        return;
    }
    appendRootKey(text, m_plain);
    m_ends.push_back(m_plain.size());
}

int Keys::Compare(size_t i, size_t j) const {
    if (m_ends.empty()) return m_keys[i].compare(m_keys[j]);
    const qsizetype ai = i ? m_ends[i - 1] : 0, bj = j ? m_ends[j - 1] : 0;
    return compareUnits(m_plain.constData() + ai, m_ends[i] - ai, m_plain.constData() + bj, m_ends[j] - bj);
}

} // namespace TextOrder
