#pragma once
// The ColumnHeaders of a ListView, by place from 1 or by key.

#include <QHash>
#include <QString>
#include <vector>

class ColumnHeader;
class ListView;

class ColumnHeaderCollection {
  public:
    ~ColumnHeaderCollection();

    // Appends a column. A negative width takes the list's default. Throws HuntERR::Error 35602
    // for a key already there.
    ColumnHeader* Add(const QString& key, const QString& text, double width = -1, int alignment = 0);

    ColumnHeader* Item(int index) const {
        return index >= 1 && index <= Count() ? m_columns[size_t(index - 1)] : nullptr;
    }
    ColumnHeader* operator()(int index) const { return Item(index); }
    ColumnHeader* Item(const QString& key) const { return m_byKey.value(key, nullptr); }
    ColumnHeader* operator()(const QString& key) const { return Item(key); }
    int Count() const { return int(m_columns.size()); }
    // Removes every column (the rows keep their cells).
    void Clear();

    std::vector<ColumnHeader*>::const_iterator begin() const { return m_columns.begin(); }
    std::vector<ColumnHeader*>::const_iterator end() const { return m_columns.end(); }

  private:
    friend class ListView;
    explicit ColumnHeaderCollection(ListView* view) : m_view(view) {}
    ColumnHeaderCollection(const ColumnHeaderCollection&) = delete;
    ColumnHeaderCollection& operator=(const ColumnHeaderCollection&) = delete;

    ListView* m_view;
    std::vector<ColumnHeader*> m_columns;
    QHash<QString, ColumnHeader*> m_byKey;
};
