#pragma once
// The ListSubItems of a list row: the cells after the first, numbered from 1.

#include "support/controls/listsubitem.h"

#include <QString>

class ListItem;

class ListSubItemCollection {
  public:
    // Appends a cell; with `index` (from 1) inserts it there, moving the later cells right.
    ListSubItem Add(const QString& text = QString());
    ListSubItem Add(int index, const QString& text);

    // The sub-item `index` (from 1); see ListSubItem for cells that do not exist yet.
    ListSubItem operator()(int index) const { return ListSubItem(m_item, index); }
    ListSubItem Item(int index) const { return ListSubItem(m_item, index); }
    int Count() const;
    void Clear();

  private:
    friend class ListItem;
    explicit ListSubItemCollection(ListItem* item) : m_item(item) {}
    ListSubItemCollection(const ListSubItemCollection&) = delete;
    ListSubItemCollection& operator=(const ListSubItemCollection&) = delete;

    ListItem* m_item;
};
