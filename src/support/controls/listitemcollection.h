#pragma once
// The ListItems of a ListView: the rows in display order, found by key or by place.

#include <QHash>
#include <QString>
#include <vector>

class ListItem;
class ListRowCells;
class ListView;

class ListItemCollection {
  public:
    ~ListItemCollection();

    // Adds a row. `index` is its place from 1 (0 or past the end appends); while the list is
    // Sorted the row goes to its place in the order instead. Throws HuntERR::Error 35602 when
    // `key` is already in the list; an empty key is allowed and never found by key.
    ListItem* Add(int index, const QString& key, const QString& text, const QString& icon = QString(),
                  const QString& smallIcon = QString());
    ListItem* Add(const QString& key, const QString& text, const QString& icon = QString(),
                  const QString& smallIcon = QString()) {
        return Add(0, key, text, icon, smallIcon);
    }

    // Adds a row with all its cells at once, at the end (or at its place while Sorted): the
    // first text of `cells` is the item text, the others its sub-items. The same as Add and a
    // ListSubItems.Add for each further cell, made in one go.
    ListItem* Add(const QString& key, const ListRowCells& cells, const QString& icon = QString(),
                  const QString& smallIcon = QString());

    // By key (nullptr when absent) and by place from 1 (nullptr outside 1..Count).
    ListItem* Item(const QString& key) const { return m_byKey.value(key, nullptr); }
    ListItem* operator()(const QString& key) const { return Item(key); }
    ListItem* Item(int index) const { return At(index - 1); }
    ListItem* operator()(int index) const { return Item(index); }
    ListItem* At(int row) const { return row >= 0 && row < Count() ? m_rows[size_t(row)] : nullptr; }
    bool Exists(const QString& key) const { return m_byKey.contains(key); }
    int Count() const { return int(m_rows.size()); }

    // Removal deletes the row; a missing key or index is ignored.
    void Remove(const QString& key);
    void Remove(int index);
    void Remove(ListItem* item);
    void Clear();

    // Rows in display order: for (ListItem* item : list->ListItems) ...
    std::vector<ListItem*>::const_iterator begin() const { return m_rows.begin(); }
    std::vector<ListItem*>::const_iterator end() const { return m_rows.end(); }

  private:
    friend class ListView;
    explicit ListItemCollection(ListView* view) : m_view(view) {}
    ListItemCollection(const ListItemCollection&) = delete;
    ListItemCollection& operator=(const ListItemCollection&) = delete;
    void renumber(int from);
    ListItem* insert(ListItem* item, int row);

    ListView* m_view;
    std::vector<ListItem*> m_rows;
    QHash<QString, ListItem*> m_byKey;
    int m_lastChars = 0; // size of the last row made, to size the next one
    int m_lastCells = 0;
    int m_lastCount = 0; // rows before the last Clear: a refill makes room for as many at once
};
