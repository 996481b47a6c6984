#include "support/controls/textorder.h"

#include <QCollator>
#include <QLocale>
#include <algorithm>

namespace {

struct Order {
    QCollator collator;
    bool plain; // the C locale: QCollator's sort keys would not ignore case there
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

} // namespace

namespace TextOrder {

int Compare(const QString& a, const QString& b) {
    const Order& o = order();
    return o.plain ? QString::compare(a, b, Qt::CaseInsensitive) : o.collator.compare(a, b);
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
    // Plain letters fold here; a text with any other character folds as QString does it.
    const qsizetype start = m_folded.size();
    m_folded.append(text);
    QChar* c = m_folded.data() + start;
    QChar* const end = m_folded.data() + m_folded.size();
    for (; c != end; ++c) {
        const char16_t u = c->unicode();
        if (u >= 0x80) break;
        if (u >= u'A' && u <= u'Z') *c = QChar(char16_t(u + (u'a' - u'A')));
    }
    if (c != end) {
        m_folded.truncate(start);
        m_folded.append(text.toString().toCaseFolded());
    }
    m_ends.push_back(m_folded.size());
}

int Keys::Compare(size_t i, size_t j) const {
    if (m_ends.empty()) return m_keys[i].compare(m_keys[j]);
    // By UTF-16 code units, as a case-sensitive QString::compare orders them.
    const qsizetype ai = i ? m_ends[i - 1] : 0, bj = j ? m_ends[j - 1] : 0;
    const qsizetype an = m_ends[i] - ai, bn = m_ends[j] - bj;
    const QChar* a = m_folded.constData() + ai;
    const QChar* b = m_folded.constData() + bj;
    const qsizetype n = std::min(an, bn);
    for (qsizetype k = 0; k < n; ++k) {
        if (a[k] != b[k]) return a[k] < b[k] ? -1 : 1;
    }
    return an < bn ? -1 : an > bn ? 1 : 0;
}

} // namespace TextOrder
