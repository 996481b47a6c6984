#pragma once
// The text order of the controls' sorts: the user's locale, without regard to case, digits as
// text ("10" before "9"). Under the C locale, which has no order of its own, the Unicode root
// order without regard to case: blanks and signs, then digits, then letters, a letter with marks
// beside its base letter (É with E, Å with A, Ø with O, Ł with L, ß as "ss", Æ as "ae"), other
// scripts after the Latin one; texts equal but for their marks put the plain one first. The same
// order for the tree, the list and their users.

#include <QCollatorSortKey>
#include <QString>
#include <QStringView>
#include <vector>

namespace TextOrder {

// Negative when a sorts before b, zero when equal, positive after.
int Compare(const QString& a, const QString& b);

// Keys for sorting many texts at once: Compare(i, j) orders texts[i] and texts[j] as Compare
// does, at the cost of one key per text instead of one collation per comparison.
class Keys {
  public:
    void Reserve(size_t n);
    void Add(QStringView text);
    void Add(const QString& text) { Add(QStringView(text)); }
    size_t Count() const { return m_ends.size() + m_keys.size(); }
    int Compare(size_t i, size_t j) const;

  private:
    std::vector<QCollatorSortKey> m_keys; // with a locale
    // Under the C locale: the keys of the root order one after the other, and where each ends.
    QString m_plain;
    std::vector<qsizetype> m_ends;
};

} // namespace TextOrder
