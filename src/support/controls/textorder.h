#pragma once
// The text order of the controls' sorts: the user's locale, without regard to case, digits as
// text ("10" before "9"). Under the C locale it is the plain code order of the case-folded
// texts. The same order for the tree, the list and their users.

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
    // Under the C locale: the case-folded texts one after the other, and where each one ends.
    QString m_folded;
    std::vector<qsizetype> m_ends;
};

} // namespace TextOrder
