#include "support/controls/textorder.h"

#include <QCollator>
#include <QLocale>

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
        m_folded.reserve(n);
    else
        m_keys.reserve(n);
}

void Keys::Add(const QString& text) {
    const Order& o = order();
    if (o.plain)
        m_folded.push_back(text.toCaseFolded());
    else
        m_keys.push_back(o.collator.sortKey(text));
}

void Keys::Add(QString&& text) {
    const Order& o = order();
    if (o.plain)
        m_folded.push_back(std::move(text).toCaseFolded());
    else
        m_keys.push_back(o.collator.sortKey(text));
}

int Keys::Compare(size_t i, size_t j) const {
    if (!m_folded.empty()) return QString::compare(m_folded[i], m_folded[j], Qt::CaseSensitive);
    return m_keys[i].compare(m_keys[j]);
}

} // namespace TextOrder
